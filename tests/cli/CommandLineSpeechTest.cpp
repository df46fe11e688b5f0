// How the program speaks: help, numbers, faults.

#include "cli/TextTable.h"
#include "tests/cli/CommandLine.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <set>
#include <string>
#include <vector>

namespace taxcore {
namespace {

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
        {"\"$(printf 'a\\033[2Jb')\"", "", 2,
         "Den Befehl «a\uFFFD[2Jb» gibt es nicht; «fiscarel-cli --help» zeigt alle."},
        {"", "", 2, "Im Aufruf fehlt der Befehl"},
        {"rechnet a.json", "", 2,
         "Den Befehl «rechnet» gibt es nicht; «fiscarel-cli --help» zeigt alle."},
        {"--rechnet", "", 2, "--rechnet"},
        {"rechne a b", "", 2, "Unbekanntes: b."},
        {"lies", "", 2, "fehlt die Angabe DATEI; «fiscarel-cli lies --help» zeigt die Angaben."},
        {"lies -", "", 2, "bitte eine Datei nennen"},
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

} // namespace
} // namespace taxcore
