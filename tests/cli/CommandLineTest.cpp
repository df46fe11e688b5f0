// Runs the real program: arguments and standard input in, output, messages and exit code out.

#include "TaxCore/demo/DemoData.h"
#include "TaxCore/stgallen/TaxCalculator.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
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

    Outcome run(const std::string& arguments, const std::string& input = {}) const {
        write("in", input);
        const auto quoted = [&](const char* name) {
            return " '" + (folder_ / name).string() + "'";
        };
        const std::string command = std::string("'") + FISCAREL_CLI + "' " + arguments + " <"
                                    + quoted("in") + " >" + quoted("out") + " 2>" + quoted("err");
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
    return toJson(TaxCalculator::forYear(taxCase.year)->calculate(taxCase), style);
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

TEST_F(CommandLine, readsOneYearOfAStateFile) {
    const std::string cases = "{\"version\": 1, \"documents\": [], \"transferChecked\": {}, "
                              "\"cases\": {\"2025\": "
                              + toJson(DemoData::family(2025)) + "}}";
    const fs::path state = write("daten.json", cases);
    EXPECT_EQ(run("rechne --json --jahr 2025 " + state.string()).out,
              resultOf(DemoData::family(2025), JsonStyle::pretty));
    EXPECT_EQ(run("rechne --jahr 2024 " + state.string()).exitCode, 1);
    write("daten.json", "{\"version\": 2" + cases.substr(std::string("{\"version\": 1").size()));
    const Outcome newer = run("rechne --jahr 2025 " + state.string());
    EXPECT_EQ(newer.exitCode, 1);
    EXPECT_NE(newer.err.find("Version 2"), std::string::npos);
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
        {"rechne", "", 1, "."},
        {"rechne", changed("\"year\": 2025", "\"year\": 1999"), 1,
         "Regeldatei fehlt: sg-params-1999.json"},
        {"rechne", run("neu --jahr 2025 --region li").out, 1, "Liechtenstein"},
        {"rechne --warum gibtEsNicht", good, 1, "«gibtEsNicht»"},
        {"rechne nicht-vorhanden.json", "", 1, "nicht-vorhanden.json"},
        {"rechne /tmp", "", 1, "Ordner"},
        {"stapel nicht-vorhanden.json", "", 1, "nicht-vorhanden.json"},
        {"", "", 2, "Aufruf"},
        {"rechnet", "", 2, "Aufruf"},
        {"neu", "", 2, "--jahr"},
        {"neu --jahr zwei", "", 2, "Aufruf"},
        {"demo --region vd", "", 2, "nicht erlaubt"},
    };
    for (const Fault& fault : faults) {
        const Outcome outcome = run(fault.arguments, fault.input);
        EXPECT_EQ(outcome.exitCode, fault.exitCode) << fault.arguments << outcome.err;
        EXPECT_NE(outcome.err.find(fault.message), std::string::npos)
            << fault.arguments << ": " << outcome.err.substr(0, 400);
        EXPECT_TRUE(outcome.out.empty()) << fault.arguments;
        EXPECT_LT(outcome.err.size(), 600U) << fault.arguments;
        if (fault.exitCode == 1) {
            EXPECT_EQ(linesOf(outcome.err).size(), 1U) << outcome.err;
            EXPECT_TRUE(outcome.err.ends_with(".\n") || outcome.err.ends_with(".json\n"))
                << outcome.err;
        }
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
        TaxCase household = DemoData::family(2025 + i % 2);
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

TEST_F(CommandLine, survivesABatchLineWithoutEnd) {
    const std::string good = toJson(DemoData::family(2025), JsonStyle::compact) + "\n";
    const Outcome outcome = run("stapel", good + std::string(40'000'000, '[') + "\n" + good);
    const auto lines = linesOf(outcome.out);
    ASSERT_EQ(lines.size(), 3U);
    EXPECT_TRUE(lines[1].starts_with("{\"line\": 2, \"error\": ")) << lines[1].substr(0, 200);
    EXPECT_EQ(lines[0], lines[2]);
}

} // namespace
} // namespace taxcore
