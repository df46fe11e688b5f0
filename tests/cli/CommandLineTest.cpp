// Runs the real program: arguments and standard input in, output, messages and exit code out.

#include "Fiscarel_SG/store/PersistedState.h"
#include "TaxCore/demo/DemoData.h"
#include "TaxCore/regions/CaseCalculator.h"
#include "cli/TextTable.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace taxcore {
namespace {

namespace fs = std::filesystem;

struct Outcome {
    int exitCode = -1;
    std::string out;
    std::string err;
};

class CommandLine : public ::testing::Test {
  protected:
    CommandLine() {
        std::string name = (fs::temp_directory_path() / "fiscarel-cli-XXXXXX").string();
        folder_ = mkdtemp(name.data());
    }
    ~CommandLine() override { fs::remove_all(folder_); }

    fs::path write(const std::string& name, const std::string& text) const {
        std::ofstream(folder_ / name, std::ios::binary) << text;
        return folder_ / name;
    }

    /// Redirections among the arguments replace those to the files. `before` is for the shell.
    Outcome run(const std::string& arguments, const std::string& input = {},
                const std::string& before = {}) const {
        write("in", input);
        const auto quoted = [&](const char* name) {
            return "'" + (folder_ / name).string() + "' ";
        };
        const std::string command = before + " <" + quoted("in") + ">" + quoted("out") + "2>"
                                    + quoted("err") + "'" + FISCAREL_CLI + "' " + arguments;
        Outcome outcome;
        const int status = std::system(command.c_str());
        outcome.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
        outcome.out = read("out");
        outcome.err = read("err");
        return outcome;
    }

    std::string read(const std::string& name) const {
        std::ifstream in(folder_ / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(in), {}};
    }

    fs::path folder_;
};

std::string resultOf(const TaxCase& taxCase, JsonStyle style) {
    return toJson(CaseCalculator::forCase(taxCase)->calculate(taxCase), style);
}

/// The text of a state file with these years, `"2025": {…}`, and documents.
std::string stateOf(const std::string& cases, const std::string& documents = "") {
    return "{\"version\": 1, \"documents\": [" + documents
           + "], \"transferChecked\": {}, \"cases\": {" + cases + "}}";
}

std::vector<std::string> linesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) {
        lines.push_back(line);
    }
    return lines;
}

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

TEST_F(CommandLine, offersTheCodesThatItKnows) {
    for (const TaxRegion region : allValues<TaxRegion>()) {
        const TaxCase household = DemoData::household(region, 2025);
        const Outcome outcome = run("rechne --warum \"$(printf 'a\\033[2Jb')\"", toJson(household));
        EXPECT_EQ(outcome.exitCode, 1);
        EXPECT_EQ(outcome.out, "");
        for (const std::string& line : linesOf(outcome.err)) {
            EXPECT_LE(fiscarel::cli::displayWidth(line), fiscarel::cli::lineWidth) << line;
        }
        std::string text = outcome.err;
        std::ranges::replace(text, '\n', ' ');
        const std::string sentence = "Eine Zeile «a\uFFFD[2Jb» gibt es in dieser Steuererklärung "
                                     "nicht. Mögliche Angaben: ";
        ASSERT_TRUE(text.starts_with(sentence)) << text;
        ASSERT_TRUE(text.ends_with(". ")) << text;
        std::istringstream in(text.substr(sentence.size(), text.size() - sentence.size() - 2));
        std::set<std::string> codes;
        for (std::string code; in >> code;) {
            codes.insert(code.substr(0, code.find(',')));
        }
        const auto calculator = CaseCalculator::forCase(household);
        for (const std::string& code : codes) {
            EXPECT_TRUE(calculator->explain(household, code)) << code;
        }
        for (const TaxLine& line : calculator->calculate(household).fields()) {
            EXPECT_TRUE(codes.contains(line.code)) << line.code;
        }
    }
}

TEST_F(CommandLine, tellsAtATerminalThatItReads) {
    const int terminal = posix_openpt(O_RDWR | O_NOCTTY);
    if (terminal < 0 || grantpt(terminal) != 0 || unlockpt(terminal) != 0) {
        GTEST_SKIP() << "The system gives no terminal.";
    }
    const std::string hint =
        "Die Angaben werden von der Standardeingabe gelesen; Ende mit Strg+D.\n";
    const std::string from = std::string(" <") + ptsname(terminal);
    const char end = '\x04';
    ASSERT_EQ(::write(terminal, &end, 1), 1);
    EXPECT_EQ(run("rechne" + from).err, hint + "Die Eingabe ist leer.\n");
    ASSERT_EQ(::write(terminal, &end, 1), 1);
    EXPECT_EQ(run("stapel" + from).err, hint);
    close(terminal);
}

TEST_F(CommandLine, readsNumbersInDecimalDigits) {
    const std::string fresh = run("neu --jahr 2025").out;
    EXPECT_EQ(run("neu --jahr 02025").out, fresh);
    const std::string good = toJson(DemoData::family(2025), JsonStyle::compact) + "\n";
    EXPECT_EQ(run("stapel --kerne 0256", good).exitCode, 0);
    EXPECT_EQ(run("rechne --jahr 02025", stateOf("\"2025\": " + good)).exitCode, 0);
}

TEST_F(CommandLine, showsTheHelpInColumns) {
    const Outcome help = run("neu --help");
    const auto column = [&](const std::string& option, const std::string& description) {
        for (const std::string& line : linesOf(help.out)) {
            if (line.starts_with("  " + option)) {
                return fiscarel::cli::displayWidth(line.substr(0, line.find(description)));
            }
        }
        return std::size_t{0};
    };
    const std::size_t first = column("-h,--help ", "Diese");
    EXPECT_GT(first, 10U) << help.out;
    EXPECT_EQ(column("--jahr ZAHL (nötig) ", "Steuerjahr"), first) << help.out;
    EXPECT_EQ(column("--region TEXT=sg ", "Steuerregion"), first) << help.out;
}

TEST_F(CommandLine, answersFaultsWithOneGermanSentence) {
    const std::string good = run("neu --jahr 2025").out;
    const auto changed = [&](const std::string& from, const std::string& to) {
        std::string text = good;
        return text.replace(text.find(from), from.size(), to);
    };
    struct Fault {
        std::string arguments;
        std::string input;
        int exitCode;
        std::string message;
    };
    const std::vector<Fault> faults{
        {"rechne", changed("\"iban\": \"\",\n", ""), 1, "Die Angabe «iban» fehlt."},
        {"rechne", changed("\"cash\": 0", "\"cash\": \"0\""), 1, "«cash» muss eine Zahl sein."},
        {"rechne", changed("\"verheiratet\"", "\"verlobt\""), 1,
         "«civilStatus» hat einen unbekannten Wert"},
        {"rechne", changed("\"cash\": 0", "\"cash\": " + std::string(10'000, '9')), 1, "«cash»"},
        {"rechne", good.substr(0, good.size() / 2), 1, " ab."},
        {"rechne", changed("\"iban\": \"\"", "\"iban\": \"\xff\""), 1, "UTF-8"},
        {"rechne", std::string(100'000'000, '['), 1, "."},
        {"rechne", "", 1, "Die Eingabe ist leer."},
        {"rechne", changed("\"year\": 2025", "\"year\": 1999"), 1,
         "Die Angabe «year» nennt das Steuerjahr 1999; unterstützt werden 2025 und 2026."},
        {"rechne nicht-vorhanden.json", "", 1, "nicht-vorhanden.json"},
        {"rechne /tmp", "", 1, "Ordner"},
        {"stapel nicht-vorhanden.json", "", 1, "nicht-vorhanden.json"},
        {"stapel /tmp", "", 1, "Ordner"},
        {"rechne <&-", "", 1, "Die Standardeingabe lässt sich nicht lesen"},
        {"stapel - <&-", "", 1, "Die Standardeingabe lässt sich nicht lesen"},
        {"stapel >/dev/full", good, 1, "Ausgabe"},
        {"--help >/dev/full", "", 1, "Die Ausgabe lässt sich nicht schreiben."},
        {"demo --help >/dev/full", "", 1, "Die Ausgabe lässt sich nicht schreiben."},
        {"rechne >/dev/full", good, 1, "Die Ausgabe lässt sich nicht schreiben."},
        // What a call or a file says is quoted, but not obeyed by the terminal.
        {"rechne \"$(printf 'a\\033[2Jb\\nc\\377')\"", "", 1, "«a\uFFFD[2Jb c\uFFFD»"},
        {"rechne", "{\"\x7f\u009B\": [", 1, "«\uFFFD\uFFFD[0]»"},
        {"\"$(printf 'a\\033[2Jb')\"", "", 2, "Den Befehl «a\uFFFD[2Jb» gibt es nicht."},
        {"", "", 2, "Im Aufruf fehlt der Befehl"},
        {"rechnet a.json", "", 2, "Den Befehl «rechnet» gibt es nicht."},
        {"--rechnet", "", 2, "--rechnet"},
        {"rechne a b", "", 2, "Unbekanntes: b."},
        {"neu", "", 2, "--jahr"},
        {"neu --jahr", "", 2, "fehlt ein Wert zu --jahr"},
        {"neu --jahr 2025 --jahr 2026", "", 2, "--jahr mehr als einmal"},
        {"neu --jahr zwei", "", 2, "keine brauchbare Zahl: --jahr = zwei"},
        {"neu --jahr 1999", "", 2,
         "Das Steuerjahr 1999 wird nicht unterstützt (möglich sind 2025 und 2026)."},
        {"demo --jahr 2024", "", 2, "Das Steuerjahr 2024 wird nicht unterstützt"},
        {"neu --jahr 0x7E9", "", 2, "keine brauchbare Zahl: --jahr = 0x7E9"},
        {"neu --jahr -2025", "", 2, "keine brauchbare Zahl: --jahr = -2025"},
        {"rechne --jahr 2025.0", "", 2, "keine brauchbare Zahl: --jahr = 2025.0"},
        {"demo --region zh", "", 2,
         "Im Aufruf ist der Wert von --region nicht erlaubt; möglich sind sg und li."},
        {"stapel --kerne 999", "", 2,
         "Im Aufruf ist der Wert von --kerne nicht erlaubt; möglich ist 0 bis 256."},
        {"stapel --kerne -1", "", 2, "möglich ist 0 bis 256."},
    };
    for (const Fault& fault : faults) {
        const Outcome outcome = run(fault.arguments, fault.input);
        EXPECT_EQ(outcome.exitCode, fault.exitCode) << fault.arguments << outcome.err;
        EXPECT_NE(outcome.err.find(fault.message), std::string::npos)
            << fault.arguments << ": " << outcome.err.substr(0, 400);
        EXPECT_TRUE(outcome.out.empty()) << fault.arguments;
        EXPECT_LT(outcome.err.size(), 600U) << fault.arguments;
        EXPECT_EQ(linesOf(outcome.err).size(), 1U) << outcome.err;
        EXPECT_TRUE(outcome.err.ends_with(".\n")) << outcome.err;
    }
}

TEST_F(CommandLine, computesBatchesInOrderOnAnyNumberOfThreads) {
    std::string input;
    std::vector<std::string> expected;
    for (int i = 0; i < 400; ++i) {
        if (i % 50 == 7) {
            input += i % 100 == 7 ? "{\"year\": 2025}\n" : "\n";
            expected.emplace_back("{\"line\": " + std::to_string(i + 1) + ", \"error\": ");
            continue;
        }
        TaxCase household = DemoData::household(
            i % 3 == 1 ? TaxRegion::liechtenstein : TaxRegion::stGallen, 2025 + i % 2);
        household.income1.salaries[0].grossSalary += i;
        input += toJson(household, JsonStyle::compact) + (i % 3 == 0 ? "\r\n" : "\n");
        expected.push_back(resultOf(household, JsonStyle::compact));
    }
    input.pop_back(); // the last line may end without a line feed
    for (const char* threads : {"1", "2", "3", "0"}) {
        const Outcome outcome = run(std::string("stapel --kerne ") + threads, input);
        EXPECT_EQ(outcome.exitCode, 0) << outcome.err;
        const auto lines = linesOf(outcome.out);
        ASSERT_EQ(lines.size(), expected.size()) << threads;
        for (std::size_t i = 0; i < lines.size(); ++i) {
            EXPECT_TRUE(lines[i].starts_with(expected[i])) << i + 1 << lines[i].substr(0, 200);
        }
    }
}

TEST_F(CommandLine, namesTheLineOfABatchOnlyOnce) {
    const auto lines = linesOf(run("stapel", "\n{\"cash\": 1,}\n \r\n{").out);
    ASSERT_EQ(lines.size(), 4U);
    EXPECT_EQ(lines[0], R"({"line": 1, "error": "Die Zeile ist leer."})");
    EXPECT_EQ(lines[1], R"({"line": 2, "error": "Die Daten sind bei «cash» kein gültiges JSON."})");
    EXPECT_EQ(lines[2], R"({"line": 3, "error": "Die Zeile ist leer."})");
    EXPECT_EQ(lines[3], R"({"line": 4, "error": "Die Daten brechen auf der obersten Ebene ab."})");
}

TEST_F(CommandLine, goesOnWithTheThreadsItGets) {
    // A stack of 1 GB for each thread, and 3 GB for the process.
    const std::string limits = "ulimit -s 1048576 && ulimit -v 3145728 &&";
    if (run("--help", {}, limits).exitCode != 0) {
        GTEST_SKIP() << "The program does not start within these limits (sanitizers need more).";
    }
    const std::string good = toJson(DemoData::family(2025), JsonStyle::compact) + "\n";
    const Outcome outcome = run("stapel --kerne 64", good + good, limits);
    EXPECT_EQ(outcome.exitCode, 0) << outcome.err;
    EXPECT_EQ(linesOf(outcome.out).size(), 2U);
}

TEST_F(CommandLine, derivesALineThatTheCaseNames) {
    TaxCase household = DemoData::family(2025);
    household.householdDeductions.otherDeductions = 100;
    household.householdDeductions.otherDeductionsDescription = "a\x1b[2J\nb";
    const Outcome why = run("rechne --warum uebrigeAbzuege", toJson(household));
    EXPECT_EQ(why.exitCode, 0);
    EXPECT_EQ(linesOf(why.out).at(0), "a\uFFFD[2J b (uebrigeAbzuege)");
}

TEST_F(CommandLine, survivesABatchLineWithoutEnd) {
    const std::string good = toJson(DemoData::family(2025), JsonStyle::compact) + "\n";
    const Outcome outcome = run("stapel", good + std::string(40'000'000, '[') + "\n" + good);
    const auto lines = linesOf(outcome.out);
    ASSERT_EQ(lines.size(), 3U);
    EXPECT_EQ(lines[1], R"({"line": 2, "error": "Die Zeile ist länger als 16 MB."})");
    EXPECT_EQ(lines[0], lines[2]);
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
