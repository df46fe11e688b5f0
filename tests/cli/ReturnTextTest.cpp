// The return as text: whatever a case says, it stays a table that a terminal can show.

#include "cli/ReturnText.h"

#include "TaxCore/demo/DemoData.h"
#include "TaxCore/regions/CaseCalculator.h"
#include "cli/DerivationText.h"
#include "cli/Printable.h"
#include "cli/TextTable.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <optional>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

namespace fiscarel::cli {
namespace {

using namespace taxcore;
using namespace std::string_literals;

std::string textOf(const TaxCase& taxCase) {
    return returnText(taxCase, CaseCalculator::forCase(taxCase)->calculate(taxCase));
}

/// The lines of a text that hold all of the parts.
std::vector<std::string> linesWith(const std::string& text, const std::vector<std::string>& parts) {
    std::vector<std::string> found;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) {
        if (std::ranges::all_of(parts, [&](const std::string& part) {
                return line.find(part) != std::string::npos;
            })) {
            found.push_back(line);
        }
    }
    return found;
}

TEST(Printable, leavesNothingATerminalObeys) {
    struct Row {
        std::string text;
        std::string shown;
    };
    const Row table[] = {
        {"", ""},
        {"Zürich – «Zoë» 😀 ~ \u00A0€", "Zürich – «Zoë» 😀 ~ \u00A0€"},
        {"a\tb\nc\rd", "a b c d"},
        {"\x1b[2J\a\0\x1f\x7f"s, "\uFFFD[2J\uFFFD\uFFFD\uFFFD\uFFFD"},
        {"\u0080\u009B31m\u009F\u00A0", "\uFFFD\uFFFD31m\uFFFD\u00A0"},
        {"\u2027\u2028\u202A\u202E\u202F\n", "\u2027\uFFFD\uFFFD\uFFFD\u202F "},
        {"\u2065\u2066\u2069\u206A", "\u2065\uFFFD\uFFFD\u206A"},
        {"\u200D\u200E\u200F\u2010", "\u200D\uFFFD\uFFFD\u2010"},
        {"\u061B\u061C\u061D", "\u061B\uFFFD\u061D"},
        {"\uFEFFa\uFEFE", "\uFFFDa\uFEFE"},
        {"\xff\xc3", "\uFFFD\uFFFD"},
        {"a\xe2\x82 b\x9b", "a\uFFFD\uFFFD b\uFFFD"},
    };
    for (const Row& row : table) {
        EXPECT_EQ(printable(row.text), row.shown);
    }
}

TEST(TextTable, wrapsWordsOfAnyLength) {
    constexpr std::size_t width = 92;
    const std::string word(5'000'000, 'W');
    std::string expected;
    for (std::size_t at = 0; at < word.size(); at += width) {
        expected += "  " + word.substr(at, width) + "\n";
    }
    EXPECT_TRUE(wrapped(word, width, "  ") == expected);
    EXPECT_EQ(wrapped("a äöüäöü b", 3, ">"), ">a\n>äöü\n>äöü\n>b\n");
    EXPECT_EQ(wrapped("a äöüä b", 3, ">"), ">a\n>äöü\n>ä b\n");
}

TEST(TextTable, keepsCellsApart) {
    struct Row {
        std::string text;
        std::size_t width;
        std::string cell;
    };
    const Row table[] = {
        {"Süd", 6, "   Süd"}, {"12345", 6, " 12345"}, {"123456", 6, " 123456"}, {"", 2, "  "}};
    for (const Row& row : table) {
        EXPECT_EQ(cell(row.text, row.width), row.cell);
    }
}

TEST(TextTable, underlinesHeadingsOfAnyLength) {
    EXPECT_EQ(heading("Süd"), "Süd\n===\n");
    const std::string word(60, 'W');
    EXPECT_EQ(heading(word + "X " + word),
              word + "X\n" + word + "\n" + std::string(61, '=') + "\n");
    const std::string cut(100, 'W');
    EXPECT_EQ(heading(cut + "W"), cut + "\nW\n" + std::string(100, '=') + "\n");
}

TEST(DerivationText, staysReadableWithExtremeFigures) {
    const Decimal amount = *Decimal::parse("-123456789012.123456");
    DerivationStep step{.kind = DerivationStep::Kind::line, .text = "Betrag"};
    step.code = "cantonRate";
    step.unit = Unit::francs;
    step.canton = amount;
    step.federal = amount;
    const Derivation derivation{"x", std::string(300, 'W'), {step}, Unit::francs, amount, 0};
    const std::string text = derivationText(derivation, TaxRegion::stGallen);
    const std::string shown = " -123’456’789’012.123456";
    EXPECT_EQ(linesWith(text, {"  Betrag", shown + shown}).size(), 1U) << text;
    EXPECT_EQ(linesWith(text, {"  Ergebnis", shown + "            0.00"}).size(), 1U) << text;
    EXPECT_EQ(linesWith(text, {"  siehe cantonRate"}).size(), 1U) << text;
    const auto head = linesWith(text, {"WW"});
    EXPECT_EQ(head, std::vector<std::string>(3, std::string(100, 'W')));
}

TEST(ReturnText, keepsExtremeAmountsApart) {
    TaxCase household = DemoData::family(2025);
    household.income1.salaries[0].grossSalary = *Decimal::parse("1000000000000000");
    household.cash = household.income1.salaries[0].grossSalary;
    household.debts.front().amount = household.cash / 2;
    const std::string text = textOf(household);
    EXPECT_FALSE(std::regex_search(text, std::regex("(\\.[0-9]{2}|%)[-0-9]"))) << text;
    EXPECT_NE(text.find("1’000’000’000’"), std::string::npos) << text;
}

TEST(ReturnText, tellsAnAssumedSurcharge) {
    TaxCase household = DemoData::household(TaxRegion::liechtenstein, 2025);
    EXPECT_EQ(linesWith(textOf(household), {"  Gemeindezuschlag Triesen  ", "%"}).size(), 1U);
    for (const char* unknown : {"Atlantis", ""}) {
        household.municipality = unknown;
        const std::string text = textOf(household);
        EXPECT_EQ(linesWith(text, {"  Gemeindezuschlag (angenommen)  ", " 150%"}).size(), 1U)
            << text;
    }
}

TEST(ReturnText, staysATableWhateverTheCaseSays) {
    const std::string longWord(300, 'W');
    std::string longText;
    for (int i = 0; i < 40; ++i) {
        longText += "Wörter ";
    }
    for (const std::string& evil : {"\x1b[2J\u009B\u202E\n\t\x7f"s, longWord, longText}) {
        TaxCase household = DemoData::family(2025);
        household.person1.firstName = evil;
        household.person2.lastName = evil;
        household.municipality = evil;
        household.parish = evil;
        household.householdDeductions.otherDeductions = 100;
        household.householdDeductions.otherDeductionsDescription = "x" + evil;
        const std::string text = textOf(household);
        std::istringstream in(text);
        for (std::string line; std::getline(in, line);) {
            EXPECT_LE(displayWidth(line), 100U) << line;
            EXPECT_EQ(line, printable(line));
        }
        // The amount of the line named by the case stands where the others stand.
        const auto amounts = linesWith(text, {"-100.00"});
        ASSERT_EQ(amounts.size(), 1U);
        EXPECT_EQ(displayWidth(amounts[0]), 2U + 6U + 58U + 2U * 16U);
    }
}

TEST(ReturnText, namesTheParishOrItsAbsence) {
    using enum Confession;
    struct Row {
        std::string municipality;
        std::optional<std::string> parish;
        CivilStatus status;
        Confession first;
        Confession second;
        std::string church;
    };
    const auto joint = CivilStatus::verheiratet;
    const auto alone = CivilStatus::ledig;
    const std::string none = "  Kirche (keine Kirchgemeinde";
    const Row table[] = {
        {"Sevelen", "Sevelen", joint, roemischKatholisch, keine,
         "  Kirche (Kirchgemeinde Sevelen) "},
        {"Sevelen", {}, alone, roemischKatholisch, keine, none},
        {"Sevelen", {}, joint, keine, evangelischReformiert, none},
        {"Sevelen", {}, alone, keine, evangelischReformiert, "  Kirche   "},
        {"Sevelen", {}, joint, christkatholisch, andere, "  Kirche   "},
        {"Sevelen", "Atlantis", joint, roemischKatholisch, keine, "  Kirche (Kirchgemeinde"},
        {"Atlantis", "Sevelen", joint, roemischKatholisch, keine, "  «Sevelen» nicht gefunden)"},
    };
    for (const Row& row : table) {
        TaxCase household = DemoData::family(2025);
        household.municipality = row.municipality;
        household.parish = row.parish;
        household.civilStatus = row.status;
        household.person1.confession = row.first;
        household.person2.confession = row.second;
        EXPECT_EQ(linesWith(textOf(household), {row.church}).size(), 1U) << row.church << "\n"
                                                                         << textOf(household);
    }
    // A long name has lines of its own; the amounts stay in their columns behind its end.
    TaxCase household = DemoData::family(2025);
    household.parish.reset();
    const std::string text = textOf(household);
    const auto church = linesWith(text, {"  gewählt) ", " 0%"});
    const auto canton = linesWith(text, {"  Kanton  ", " 105%"});
    ASSERT_EQ(church.size(), 1U);
    ASSERT_EQ(canton.size(), 1U);
    EXPECT_EQ(displayWidth(church[0]), displayWidth(canton[0]));
}

TEST(ReturnText, headsTheReturnWithPersonsAndMunicipality) {
    struct Row {
        std::function<void(TaxCase&)> change;
        std::string head;
    };
    const auto nameless = [](Person& person) { person.firstName = person.lastName = ""; };
    const Row table[] = {
        {[](TaxCase& c) { c.municipality = "SEVELEN"; },
         "Nora Rheintaler und Jonas Rheintaler, Sevelen, verheiratet"},
        {[](TaxCase& c) { c.municipality = "sevelen "; },
         "Nora Rheintaler und Jonas Rheintaler, sevelen , verheiratet"},
        {[](TaxCase& c) { c.municipality = ""; },
         "Nora Rheintaler und Jonas Rheintaler, verheiratet"},
        {[&](TaxCase& c) {
             nameless(c.person1);
             nameless(c.person2);
         },
         "Person 1 und Person 2, Sevelen, verheiratet"},
        {[&](TaxCase& c) { nameless(c.person2); },
         "Nora Rheintaler und Person 2, Sevelen, verheiratet"},
        {[&](TaxCase& c) {
             nameless(c.person1);
             c.civilStatus = CivilStatus::ledig;
         },
         "Person, Sevelen, ledig"},
    };
    for (const Row& row : table) {
        TaxCase household = DemoData::family(2025);
        row.change(household);
        EXPECT_NE(textOf(household).find("\n" + row.head + "\n"), std::string::npos)
            << row.head << "\n"
            << textOf(household).substr(0, 300);
    }
}

/// The amount a line shows in its last column, in hundredths.
long long lastAmount(const std::string& line) {
    std::string digits;
    for (const char c : line.substr(line.rfind(' '))) {
        digits += c == '-' || (c >= '0' && c <= '9') ? std::string(1, c) : "";
    }
    return std::stoll(digits);
}

TEST(ReturnText, showsColumnsThatAddUp) {
    const std::string text = textOf(DemoData::family(2025));
    const std::string section = text.substr(text.find("\nAbzüge "));
    std::istringstream in(section.substr(0, section.find("Nettoeinkommen")));
    long long sum = 0;
    std::string last;
    for (std::string line; std::getline(in, line);) {
        if (line.starts_with("  1") && !line.starts_with("  18")) {
            sum += lastAmount(line);
        }
        last = line.starts_with("  18") ? line : last;
    }
    ASSERT_NE(last.find("Total der Abzüge"), std::string::npos);
    EXPECT_LT(sum, 0);
    EXPECT_EQ(lastAmount(last), sum);
}

} // namespace
} // namespace fiscarel::cli
