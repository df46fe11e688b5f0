// Many cases at once.

#include "tests/cli/CommandLine.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace taxcore {
namespace {

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

TEST_F(CommandLine, survivesABatchLineWithoutEnd) {
    const std::string good = toJson(DemoData::family(2025), JsonStyle::compact) + "\n";
    const Outcome outcome = run("stapel", good + std::string(40'000'000, '[') + "\n" + good);
    const auto lines = linesOf(outcome.out);
    ASSERT_EQ(lines.size(), 3U);
    EXPECT_EQ(lines[1], R"({"line": 2, "error": "Die Zeile ist länger als 16 MB."})");
    EXPECT_EQ(lines[0], lines[2]);
}

} // namespace
} // namespace taxcore
