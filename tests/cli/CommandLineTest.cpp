// What the commands answer.

#include "tests/cli/CommandLine.h"

#include "cli/TextTable.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <string>
#include <utility>
#include <vector>

namespace taxcore {
namespace {

TEST_F(CommandLine, computesTheDemoHousehold) {
    const Outcome demo = run("demo --jahr 2026");
    EXPECT_EQ(demo.exitCode, 0);
    const TaxCase household = DemoData::family(2026);
    EXPECT_EQ(demo.out, toJson(household));
    EXPECT_EQ(run("rechne --json", demo.out).out, resultOf(household, JsonStyle::pretty));

    const Outcome text = run("rechne -", demo.out);
    EXPECT_EQ(text.exitCode, 0);
    for (const char* part : {"Steuererklärung 2026", "Total der Einkünfte", "Steuerrechnung",
                             "Gemeinde Sevelen", "Konfessionell gemischte Ehe"}) {
        EXPECT_NE(text.out.find(part), std::string::npos) << part;
    }
    const Outcome why = run("rechne --warum cantonIncome", demo.out);
    EXPECT_EQ(why.exitCode, 0);
    EXPECT_NE(why.out.find("Auf 5 Rappen"), std::string::npos);
}

/// A return of Liechtenstein speaks of one tax, and fits the terminal.
void expectLiechtensteinText(const std::string& text) {
    for (const char* foreign : {"Kanton", "Bund", "Kirch", "St.Gallen", "Einfache Steuer"}) {
        EXPECT_EQ(text.find(foreign), std::string::npos) << foreign;
    }
    for (const std::string& line : linesOf(text)) {
        EXPECT_LE(fiscarel::cli::displayWidth(line), 100U) << line;
    }
}

TEST_F(CommandLine, computesTheDemoHouseholdOfLiechtenstein) {
    const Outcome demo = run("demo --region li --jahr 2026");
    EXPECT_EQ(demo.exitCode, 0);
    const TaxCase household = DemoData::liechtensteinFamily(2026);
    EXPECT_EQ(demo.out, toJson(household));
    EXPECT_EQ(run("rechne --json", demo.out).out, resultOf(household, JsonStyle::pretty));

    const Outcome text = run("rechne -", demo.out);
    EXPECT_EQ(text.exitCode, 0) << text.err;
    for (const char* part :
         {"Steuererklärung 2026 – Liechtenstein", "Vermögen per 1. Januar", "Sollertrag: 4 % von",
          "Fahrkosten Inland berechnet", "Steuerbarer Gesamterwerb", "Gemeindezuschlag Triesen",
          "Gemeindezuschlag vorläufig", "Total der Steuern"}) {
        EXPECT_NE(text.out.find(part), std::string::npos) << part;
    }
    expectLiechtensteinText(text.out);
}

TEST_F(CommandLine, derivesLinesOfLiechtenstein) {
    const TaxCase household = DemoData::liechtensteinFamily(2026);
    const std::string input = toJson(household);
    const auto calculator = CaseCalculator::forCase(household).value();
    for (const auto& [code, parts] : std::vector<std::pair<std::string, std::vector<std::string>>>{
             {"580",
              {"Gewinnungskosten", "siehe 500", "siehe 505", "Von Triesen", "Nach Vaduz",
               "Regel fahrkostenMatrix[1][0]", "Feld li.commute2.kmPerDay", "SteV Art. 14"}},
             {"590", {"Sozialversicherungen", "Pensionskasse abziehbar", "Kind Aline"}},
             {"660", {"Regel tarif.verheiratet[3].satz", "SteG Art. 19"}},
             {"772", {"Freibetrag für Verheiratete", "siehe 771"}},
             {"885", {"Sollertrag: 4 % von CHF", "Auf ganze 100 Franken abgerundet"}},
             {"municipalityRate", {"Gemeinde Triesen", "150%", "Vorläufig", "SteG Art. 75"}}}) {
        const Outcome why = run("rechne --warum " + code, input);
        EXPECT_EQ(why.exitCode, 0) << why.err;
        for (const std::string& part : parts) {
            EXPECT_NE(why.out.find(part), std::string::npos) << part << " in\n" << why.out;
        }
        expectLiechtensteinText(why.out);
        EXPECT_EQ(run("rechne --json --warum " + code, input).out,
                  toJson(calculator.explain(household, code).value()));
    }
    const Outcome foreign = run("rechne --warum totalEinkuenfte", input);
    EXPECT_EQ(foreign.exitCode, 1);
    EXPECT_NE(foreign.err.find("«totalEinkuenfte»"), std::string::npos) << foreign.err;
}

TEST_F(CommandLine, beginsACaseThatComputes) {
    for (const TaxRegion region : allValues<TaxRegion>()) {
        const std::string code(rawValue(region));
        const Outcome fresh = run("neu --jahr 2025 --region " + code);
        EXPECT_EQ(fresh.exitCode, 0) << fresh.err;
        const auto begun = fromJson<TaxCase>(fresh.out);
        ASSERT_TRUE(begun) << begun.error().message;
        EXPECT_EQ(begun->taxRegion(), region);
        const Outcome computed = run("rechne --json", fresh.out);
        EXPECT_EQ(computed.exitCode, 0) << computed.err;
        EXPECT_EQ(computed.out, resultOf(*begun, JsonStyle::pretty));
        EXPECT_TRUE(CaseCalculator::forCase(*begun)->calculate(*begun).notices.empty()) << code;
        EXPECT_EQ(run("rechne -", fresh.out).exitCode, 0) << code;
    }
    EXPECT_EQ(run("neu --jahr 2025").out.find("\"region\""), std::string::npos);
}

TEST_F(CommandLine, checksACaseAndComparesItWithTheYearBefore) {
    const std::string demo = run("demo").out;
    const Outcome text = run("pruefe", demo);
    EXPECT_EQ(text.exitCode, 0);
    for (const char* part :
         {"Prüfung 2025", "Konfessionell gemischte Ehe", "Spartipps", "Säule 3a ausschöpfen",
          "BVV 3 Art. 7", "an die Steuer", "Nicht berechnet"}) {
        EXPECT_NE(text.out.find(part), std::string::npos) << part;
    }
    EXPECT_EQ(text.out.find("Veränderung"), std::string::npos);
    const Outcome json = run("pruefe --json", run("demo --region li").out);
    for (const char* part : {"\"notices\"", "\"tips\"", "\"saving\"", "\"marginalRate\"",
                             "\"notComputed\"", "\"path\""}) {
        EXPECT_NE(json.out.find(part), std::string::npos) << part;
    }
    const fs::path state =
        write("zwei-jahre.json",
              stateOf("\"2025\": " + demo + ", \"2026\": " + run("demo --jahr 2026").out));
    const Outcome later = run("pruefe --jahr 2026 " + state.string());
    EXPECT_NE(later.out.find("Veränderung gegenüber 2025"), std::string::npos) << later.out;
    for (const char* part : {"durch Zeitablauf", "durch die Tarife"}) {
        EXPECT_NE(later.out.find(part), std::string::npos) << part;
    }
    const Outcome planned = run("pruefe --kurve --einkauf 60000 --person 2", demo);
    for (const char* part : {"Steuer über dem steuerbaren Einkommen", "Bund: je weitere 100",
                             "In 5 Jahren:", "Am meisten spart"}) {
        EXPECT_NE(planned.out.find(part), std::string::npos) << part;
    }
    EXPECT_NE(run("pruefe --json --einkauf 60000", demo).out.find("\"buyInPlanning\""),
              std::string::npos);
    EXPECT_EQ(run("pruefe --einkauf viel", demo).exitCode, 2);
    EXPECT_EQ(run("pruefe --person 3", demo).exitCode, 2);
    EXPECT_EQ(run("pruefe", "{}").exitCode, 1);
}

TEST_F(CommandLine, reviewsTheDocumentsOfAStateFile) {
    const auto stateWith = [](const std::string& applied) {
        return stateOf("\"2025\": " + toJson(DemoData::family(2025)),
                       "{\"id\": \"6f1c2b9a-0000-4000-8000-00000000000a\", \"year\": 2025, "
                       "\"kind\": \"spende\", "
                       "\"title\": \"Dankesbrief\", \"fileName\": \"a.pdf\", \"importedAt\": "
                       "\"2026-01-05T09:00:00+01:00\", \"amount\": 120, \"note\": \"\", "
                       "\"isApplied\": "
                           + applied + "}");
    };
    EXPECT_NE(run("pruefe --jahr 2025", stateWith("false")).out.find("Dankesbrief"),
              std::string::npos);
    EXPECT_EQ(run("pruefe --jahr 2025", stateWith("true")).out.find("Dankesbrief"),
              std::string::npos);
    std::string otherYear = stateWith("false");
    otherYear.replace(otherYear.find("\"year\": 2025"), 12, "\"year\": 2024");
    EXPECT_EQ(run("pruefe --jahr 2025", otherYear).out.find("Dankesbrief"), std::string::npos);
}

TEST_F(CommandLine, listsWhatIsToBeTransferred) {
    const std::string demo = run("demo --jahr 2025").out;
    const Outcome text = run("liste", demo);
    EXPECT_EQ(text.exitCode, 0) << text.err;
    for (const char* part :
         {"Übertragungsliste 2025 – Kanton St.Gallen", "0 von ",
          "Formular 1 – Steuererklärung, Seite 2",
          "1.1   [ ] Haupterwerb (Nettolohn) – Nora Rheintaler", "Formular 4 – Berufskosten",
          "Wertschriften- und Guthabenverzeichnis"}) {
        EXPECT_NE(text.out.find(part), std::string::npos) << part;
    }
    const Outcome abroad = run("liste -", run("demo --region li").out);
    EXPECT_EQ(abroad.exitCode, 0) << abroad.err;
    EXPECT_NE(abroad.out.find("11.11 500 [ ]"), std::string::npos);
    for (const std::string& line : linesOf(text.out + abroad.out)) {
        EXPECT_LE(fiscarel::cli::displayWidth(line), 100U) << line;
    }

    const std::string state =
        "{\"version\": 1, \"documents\": [], \"transferChecked\": {\"2025\": "
        "[\"haupterwerb1=103’968\", \"schuldzinsen=7’000\", \"renten1=12’000\"]}, "
        "\"cases\": {\"2025\": "
        + demo + "}}";
    const Outcome ticked = run("liste --jahr 2025", state);
    EXPECT_EQ(ticked.exitCode, 0) << ticked.err;
    for (const char* part : {"1 von ", "[x] Haupterwerb", "[!] Schuldzinsen", "bisher 7’000",
                             "Renten / Pensionen (steuerbarer Teil): 12’000"}) {
        EXPECT_NE(ticked.out.find(part), std::string::npos) << part;
    }
    const Outcome csv = run("liste --csv --jahr 2025", state);
    EXPECT_TRUE(csv.out.starts_with("Formular;Seite;Ziffer;"));
    EXPECT_NE(csv.out.find(";7440;;geändert;7’000;\r\n"), std::string::npos);
    EXPECT_EQ(run("liste", "{}").exitCode, 1);
    EXPECT_EQ(run("liste --tsv", demo).exitCode, 2);
}

TEST_F(CommandLine, readsOneYearOfAStateFile) {
    const std::string cases = stateOf("\"2025\": " + toJson(DemoData::family(2025)));
    const fs::path state = write("daten.json", cases);
    EXPECT_EQ(run("rechne --json --jahr 2025 " + state.string()).out,
              resultOf(DemoData::family(2025), JsonStyle::pretty));
    const auto changed = [&](const std::string& from, const std::string& to) {
        std::string text = cases;
        return text.replace(text.find(from), from.size(), to);
    };
    const std::string several =
        "Die Datei enthält mehrere Steuerjahre: bitte mit --jahr eines wählen.\n";
    const std::string single =
        "Die Datei enthält einen einzelnen Fall: bitte ohne --jahr aufrufen.\n";
    const std::string one = toJson(DemoData::family(2025));
    struct Row {
        std::string arguments;
        std::string input;
        std::string message;
    };
    const Row table[] = {
        {"--jahr 2024", cases, "Die Datei enthält keine Angaben für das Steuerjahr 2024.\n"},
        {"--jahr 2025", changed("\"version\": 1", "\"version\": 2"),
         "Die Daten haben die Version 2 und stammen von einer neueren Ausgabe des Programms; diese "
         "Ausgabe liest Version 1.\n"},
        {"--jahr 2025", changed("\"year\": 2025", "\"year\": 2026"),
         "Unter dem Steuerjahr 2025 steht in der Datei ein Fall des Steuerjahrs 2026.\n"},
        {"", cases, several},
        {"--warum 16.1", changed("\"cash\"", "\"cush\""), several},
        {"--jahr 2025", changed("\"cash\"", "\"cush\""), "Die Angabe «cases.2025.cash» fehlt.\n"},
        {"--jahr 2025", one, single},
        {"--jahr 2025", "{\"year\": 2025}", single},
        {"--jahr 2025", "{}", "Die Angabe «cases» fehlt.\n"},
        {"", "{}", "Die Angabe «year» fehlt.\n"},
        {"--jahr 2025", " \r\n", "Die Eingabe ist leer.\n"},
    };
    for (const Row& row : table) {
        const Outcome outcome = run("rechne " + row.arguments, row.input);
        EXPECT_EQ(outcome.err, row.message);
        EXPECT_EQ(outcome.exitCode, 1) << row.message;
        EXPECT_EQ(outcome.out, "") << row.message;
    }
}

TEST_F(CommandLine, derivesALineByItsCodeOrItsZiffer) {
    const TaxCase household = DemoData::family(2025);
    const std::string input = toJson(household);
    for (const char* format : {"", "--json "}) {
        const Outcome byCode =
            run(std::string("rechne ") + format + "--warum verwaltungskosten", input);
        const Outcome byZiffer = run(std::string("rechne ") + format + "--warum 16.1", input);
        EXPECT_EQ(byZiffer.exitCode, 0) << byZiffer.err;
        EXPECT_EQ(byZiffer.out, byCode.out);
        EXPECT_NE(byZiffer.out.find("verwaltungskosten"), std::string::npos);
    }
    const Outcome several = run("rechne --warum 21.1", input);
    EXPECT_EQ(several.exitCode, 1);
    EXPECT_EQ(several.err, "Die Ziffer «21.1» steht für mehrere Zeilen. Mögliche Angaben: "
                           "krankheitskosten,\nkrankheitSelbstbehalt, krankheitAbzug.\n");
}

TEST_F(CommandLine, derivesALineThatTheCaseNames) {
    TaxCase household = DemoData::family(2025);
    household.householdDeductions.otherDeductions = 100;
    household.householdDeductions.otherDeductionsDescription = "a\x1b[2J\nb";
    const Outcome why = run("rechne --warum uebrigeAbzuege", toJson(household));
    EXPECT_EQ(why.exitCode, 0);
    EXPECT_EQ(linesOf(why.out).at(0), "a\uFFFD[2J b (uebrigeAbzuege)");
}

TEST_F(CommandLine, writesTheReportWholeOrNotAtAll) {
    const std::string household = toJson(DemoData::family(2025));
    const std::string file = "'" + (folder_ / "bericht.pdf").string() + "'";
    const Outcome good = run("bericht - -o " + file, household, "env -u DISPLAY");
    EXPECT_EQ(good.exitCode, 0);
    EXPECT_EQ(good.out + good.err, "");
    EXPECT_EQ(read("bericht.pdf").substr(0, 5), "%PDF-");

    const Outcome besides =
        run("bericht - -o hier.pdf", household, "cd '" + folder_.string() + "' &&");
    EXPECT_EQ(besides.exitCode, 0) << besides.err;
    EXPECT_EQ(read("hier.pdf").substr(0, 5), "%PDF-");

    fiscarel::PersistedState state;
    state.cases[2025] = DemoData::family(2025);
    state.cases[2026] = DemoData::liechtensteinFamily(2026);
    EXPECT_EQ(run("bericht --jahr 2026 -o " + file, encodeState(state)).exitCode, 0);

    const std::string before = read("bericht.pdf");
    struct Bad {
        std::string arguments;
        std::string input;
        int exitCode;
        std::string says;
    };
    for (const Bad& bad :
         {Bad{"bericht -", household, 2, "-o"}, Bad{"bericht - -o " + file, "{}", 1, "year"},
          Bad{"bericht - -o " + file, "", 1, "leer"},
          Bad{"bericht - --jahr 2025 -o " + file, household, 1, "ohne --jahr"},
          Bad{"bericht - -o '" + folder_.string() + "/fehlt/x.pdf'", household, 1,
              "nicht schreiben"},
          Bad{"bericht - -o '" + folder_.string() + "'", household, 1, "nicht schreiben"}}) {
        const Outcome outcome = run(bad.arguments, bad.input);
        EXPECT_EQ(outcome.exitCode, bad.exitCode) << bad.arguments;
        EXPECT_EQ(outcome.out, "") << bad.arguments;
        EXPECT_EQ(linesOf(outcome.err).size(), 1U) << outcome.err;
        EXPECT_NE(outcome.err.find(bad.says), std::string::npos) << outcome.err;
    }
    EXPECT_EQ(read("bericht.pdf"), before);
}

} // namespace
} // namespace taxcore
