#include "Fiscarel_SG/documents/rows/PageArrangement.h"
#include "Fiscarel_SG/documents/rows/PageRows.h"
#include "Fiscarel_SG/documents/rows/RowLabels.h"
#include "tests/documents/reading/DrawnPage.h"

#include <gtest/gtest.h>

#include <limits>

namespace fiscarel {
namespace {

using namespace taxcore::literals;

std::vector<std::string> textsOf(const PageRows& page) {
    std::vector<std::string> texts;
    for (const Row& row : page.rows) {
        texts.push_back(textBetween(row, 0, row.words.size() - 1));
    }
    return texts;
}

DrawnPage table() {
    DrawnPage page;
    page.line("Gehalt brutto Januar bis Dezember", "68´000.00");
    page.line("Beiträge an alle Versicherungen", "3´657.00");
    page.line("Beiträge an die Kasse des Betriebs", "6´500.00");
    page.line("Ausbezahlt auf Ihr Konto im Jahr", "57´843.00");
    return page;
}

TEST(PageRows, findsTheSameRowsHoweverCrookedThePage) {
    const auto straight = textsOf(buildRows(table().page()));
    ASSERT_EQ(straight.size(), 4U);
    EXPECT_EQ(straight[1], "Beiträge an alle Versicherungen 3´657.00");
    for (const double degrees : {-4.0, -2.0, -0.7, 0.4, 1.0, 2.0, 3.5}) {
        const PageRows rows = buildRows(table().scanned(degrees).page());
        EXPECT_EQ(textsOf(rows), straight) << degrees;
        EXPECT_NEAR(rows.slope, degrees * 3.14159 / 180, 0.005) << degrees;
    }
}

TEST(PageRows, aTextLayerWhoseColumnsAreOffsetIsNotCrooked) {
    DrawnPage page;
    for (int i = 0; i < 5; ++i) {
        page.text(60, 100 + 13 * i, "Wort links und noch eines");
        page.text(300, 113 + 13 * i, "Wert rechts davon weiter");
    }
    EXPECT_EQ(buildRows(page.page()).slope, 0);
}

TEST(PageRows, joinsAmountsThatBlanksTearApartAndNoOthers) {
    struct Row {
        std::vector<std::pair<double, const char*>> words; ///< left edge
        std::vector<Decimal> amounts;
    };
    const std::vector<Row> rows{
        {{{100, "68"}, {112.5, "000.00"}}, {68000}},
        {{{100, "1"}, {108, "234"}, {126, "567.50"}}, {1234567.50_dec}},
        {{{100, "12"}, {180, "250.80"}}, {12, 250.80_dec}},
        {{{100, "2024"}, {123, "500.00"}}, {2024, 500}},
        {{{100, "3"}, {108, "50.00"}}, {3, 50}},
    };
    for (const Row& row : rows) {
        DrawnPage page;
        for (const auto& [left, word] : row.words) {
            page.text(left, 100, word);
        }
        std::vector<Decimal> found;
        const PageRows rebuilt = buildRows(page.page());
        for (const RowAmount& amount : rebuilt.rows.at(0).amounts) {
            found.push_back(amount.amount.value);
        }
        EXPECT_EQ(found, row.amounts) << row.words.front().second;
    }
    DrawnPage unsure;
    unsure.text(100, 100, "17").text(125, 100, "500.00");
    EXPECT_TRUE(buildRows(unsure.page()).rows.at(0).amounts.back().amount.wasCorrected)
        << "nobody can tell whether it is 17 500.00";
}

TEST(PageRows, mendsWhatRecognitionToreInAnAmountAndSaysSo) {
    struct Row {
        std::vector<std::pair<double, const char*>> words; ///< left edge
        Decimal amount;
        bool wasCorrected = true;
    };
    const std::vector<Row> rows{
        {{{100, "1839"}, {123, "000.--"}}, 1839000},
        {{{100, "2"}, {108, "164°000.--"}}, 2164000, false},
        {{{100, "85°"}, {118, "494.52"}}, 85494.52_dec, false},
        {{{100, "7."}, {113, "623.55"}}, 7623.55_dec, false},
        {{{100, "113"}, {118, "89752"}}, 113897.52_dec},
        {{{100, "4.016.00"}}, 4016},
        {{{100, "2024"}, {123, "500.00"}}, 500, false},
    };
    for (const Row& row : rows) {
        DrawnPage page;
        for (const auto& [left, word] : row.words) {
            page.text(left, 100, word);
        }
        const PageRows rebuilt = buildRows(page.scanned(0).page());
        ASSERT_FALSE(rebuilt.rows.at(0).amounts.empty()) << row.words.front().second;
        const PrintedAmount& found = rebuilt.rows.at(0).amounts.back().amount;
        EXPECT_EQ(found.value, row.amount) << row.words.front().second;
        EXPECT_EQ(found.wasCorrected, row.wasCorrected) << row.words.front().second;
    }
}

TEST(PageRows, givesAmountsInAColumnOfCentsTheirPointBack) {
    const auto lastOf = [](const char* taken, const char* above, const char* below) {
        DrawnPage page;
        page.line("Zins brutto", above).line("Zins netto", below).line("Spesen", taken);
        const PageRows rows = arranged(buildRows(page.scanned(0).page()));
        const auto& amounts = rows.rows.back().amounts;
        return amounts.empty() ? PrintedAmount() : amounts.back().amount;
    };
    EXPECT_EQ(lastOf("37135", "57.00", "1'230.60").value, 371.35_dec);
    EXPECT_EQ(lastOf("3:55", "57.00", "1'230.60").value, 3.55_dec);
    EXPECT_TRUE(lastOf("37135", "57.00", "1'230.60").wasCorrected);
    EXPECT_EQ(lastOf("37 784. 17", "57.00", "").value, 37784.17_dec);
    EXPECT_NE(lastOf("31. 12", "57.00", "").value, 31.12_dec) << "a day";
    EXPECT_EQ(lastOf("2024", "57.00", "1'230.60").value, 2024) << "a year stands there as well";
    EXPECT_EQ(lastOf("648", "57.00", "1'230").value, 648) << "not all have cents";
    EXPECT_EQ(lastOf("CH93 0076 2011 6238 5295", "57.00", "1'230.60").value, 0);
}

TEST(PageRows, anAccountNumberEndsWhereItIsComplete) {
    for (const char* number : {"CH93 0076 2011 6238 5295 7", "CH93 0076 2011 6238 52957"}) {
        DrawnPage page;
        page.text(60, 60, number).right(540, 60, "5 320.16");
        const PageRows rows = buildRows(page.scanned(0).page());
        ASSERT_EQ(rows.rows.at(0).amounts.size(), 1U) << number;
        EXPECT_EQ(rows.rows.at(0).amounts[0].amount.value, 5320.16_dec) << number;
    }
}

TEST(PageRows, putsAccountNumbersRightThatTheirCheckDigitsProve) {
    struct Case {
        const char* taken;
        const char* read;
    };
    const std::vector<Case> cases{
        {"L112 4237 697O 4935 6I85 7 Zahlungskonto", "LI12 4237 6970 4935 6185 7 Zahlungskonto"},
        {"Konto L112423769704935618S7", "Konto LI1242376970493561857"},
        {"Konto L112423769704935618S8", "Konto L112423769704935618S8"}, // nothing proves it
        {"L112 4237 6970 4935 6185", "L112 4237 6970 4935 6185"},       // too short
    };
    for (const Case& one : cases) {
        DrawnPage page;
        page.line(one.taken);
        EXPECT_EQ(textsOf(arranged(buildRows(page.scanned(0).page()))),
                  std::vector<std::string>{one.read});
    }
}

TEST(PageRows, joinsAccountNumbersThatLinesTearApartWhereTheirCheckDigitsProveIt) {
    const auto rowsOf = [](const std::string& first, const std::string& second) {
        DrawnPage page;
        page.text(60, 60, first).text(60, 75, second);
        return textsOf(arranged(buildRows(page.page())));
    };
    EXPECT_EQ(rowsOf("Ihr Sparkonto CH93 0076 2011", "6238 5295 7 schloss"),
              (std::vector<std::string>{"Ihr Sparkonto CH93 0076 2011 6238 5295 7", "schloss"}));
    EXPECT_EQ(rowsOf("Ihr Sparkonto CH93 0076 2011", "6238 5295 8 schloss"),
              (std::vector<std::string>{"Ihr Sparkonto CH93 0076 2011", "6238 5295 8 schloss"}));
}

TEST(PageRows, putsWordsBehindAmountsBeforeThemInEachTable) {
    DrawnPage page;
    double y = 100;
    for (const double column : {300.0, 420.0}) { // one table right below the other
        for (const char* words : {"Privatkonto", "Sparkonto", "Festhypothek"}) {
            page.right(150, y, "4'393.64").right(240, y, "2.00").text(column, y, words);
            y += 14;
        }
    }
    EXPECT_EQ(textsOf(arranged(buildRows(page.page()))),
              (std::vector<std::string>{"Privatkonto 4'393.64 2.00", "Sparkonto 4'393.64 2.00",
                                        "Festhypothek 4'393.64 2.00", "Privatkonto 4'393.64 2.00",
                                        "Sparkonto 4'393.64 2.00", "Festhypothek 4'393.64 2.00"}));
}

TEST(PageRows, standsWhateverIsOnThePage) {
    const double none = std::numeric_limits<double>::quiet_NaN();
    const double vast = std::numeric_limits<double>::max();
    PageReading page{.number = 1, .width = 0, .height = -1, .isRecognised = true};
    for (const double value : {none, vast, -vast, 0.0, 1e-300}) {
        for (int i = 0; i < 12; ++i) {
            page.words.push_back({"Total 12.00", {value, 0, value, 10}});
            page.words.push_back({"\xFF\xFE", {0, value, 5, value}});
            page.words.push_back({"", {0, 0, 10, 10}});
            page.words.push_back({"99.00", {10.0 * i, 0, 10.0 * i + 8, 10}});
        }
    }
    const PageRows rows = buildRows(page);
    EXPECT_FALSE(rows.rows.empty());
    EXPECT_FALSE(arranged(rows).rows.empty());
    EXPECT_FALSE(pageBox({0, 0, 1, 1}, rows));
}

TEST(RowLabels, findsWordsTornApartRunTogetherOrMisread) {
    const auto isFound = [](const char* words, const Label& label, bool isRecognised) {
        DrawnPage page;
        page.text(60, 100, words);
        return findLabel(buildRows(page.page()).rows.at(0), label, isRecognised).has_value();
    };
    EXPECT_TRUE(isFound("8. Bruttolohn total / Rente", "Bruttolohn total", false));
    EXPECT_TRUE(isFound("8. Brutto lohn total", "Bruttolohn total", false));
    EXPECT_FALSE(isFound("8. Bruttalohn total", "Bruttolohn total", false));
    EXPECT_TRUE(isFound("8. Bruttalohn total", "Bruttolohn total", true));
    EXPECT_FALSE(isFound("Nettolohn total", "Bruttolohn total", true));
    EXPECT_FALSE(isFound("4 2. Säule", "3. Säule", true)) << "digits are not misread by a little";
    EXPECT_FALSE(isFound("756.8633.6143.13 22.06.1993", "13.2.2", false));
    EXPECT_TRUE(isFound("13.2.2 Auto", "13.2.2", false));
}

} // namespace
} // namespace fiscarel
