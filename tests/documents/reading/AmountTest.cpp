#include "Fiscarel_SG/documents/text/DocumentAmount.h"
#include "Fiscarel_SG/documents/text/FoldedText.h"

#include <gtest/gtest.h>

namespace fiscarel {
namespace {

using namespace taxcore::literals;
using taxcore::Decimal;

TEST(DocumentAmount, readsEveryWayOfPrintingAnAmount) {
    struct Row {
        const char* text;
        std::optional<Decimal> value;
        bool isFirm = true;
    };
    const std::vector<Row> rows{
        {"1’234.50", 1234.50_dec},
        {"1'234,50", 1234.50_dec},
        {"1`234.50", 1234.50_dec},
        {"68´000.00", 68000},
        {"68°000.00", 68000},
        {"68\u00A0000.00", 68000},
        {"68\u202F000", 68000},
        {"68\u2009000.–", 68000},
        {"1’234’567", 1'234'567},
        {"1.234,50", 1234.50_dec},
        {"1,234.50", 1234.50_dec},
        {"120.–", 120},
        {"120.—", 120},
        {"120.--", 120},
        {"80,-", 80},
        {"CHF120.00", 120},
        {"Fr.1’200", 1200},
        {"−45.20", -45.20_dec},
        {"45.20-", -45.20_dec},
        {"45.20+", 45.20_dec},
        {"45+", std::nullopt},
        {"(45.20)", -45.20_dec},
        {"=56’343.00", 56343},
        {"0.05", 0.05_dec},
        {"0.00", 0},
        {"250.00.", 250},
        {"250.00*", 250},
        {"8", 8, false},
        {"2024", 2024, false},
        {"", std::nullopt},
        {"CHF", std::nullopt},
        {"31.12.2024", std::nullopt},
        {"31.12.", 31.12_dec}, // whether it is a day is told by the words around it
        {"10.1", std::nullopt},
        {"1.234", std::nullopt},
        {"0.8138", std::nullopt},
        {"1’23", std::nullopt},
        {"12’3456", std::nullopt},
        {"1’234’56.00", std::nullopt},
        {"007", std::nullopt},
        {"35%", std::nullopt},
        {"756.1234.5678.97", std::nullopt},
        {"1234567890123", std::nullopt},
        {"12O.5O", std::nullopt},
        {"\xFF\xC3", std::nullopt},
    };
    for (const Row& row : rows) {
        const auto amount = parseAmount(row.text);
        ASSERT_EQ(amount.has_value(), row.value.has_value()) << row.text;
        if (amount) {
            EXPECT_EQ(amount->value, *row.value) << row.text;
            EXPECT_EQ(amount->isFirm(), row.isFirm) << row.text;
        }
    }
    EXPECT_TRUE(parseAmount("2024")->isYearLike());
    EXPECT_FALSE(parseAmount("2024.00")->isYearLike());
}

TEST(DocumentAmount, takesLettersForDigitsOnlyWhereTheRestIsAnAmount) {
    EXPECT_EQ(parseAmount("12O.5O", true)->value, 120.50_dec);
    EXPECT_EQ(parseAmount("l’2I0.00", true)->value, 1210);
    EXPECT_TRUE(parseAmount("12O.5O", true)->wasCorrected);
    EXPECT_EQ(parseAmount("33:15", true)->value, 33.15_dec);
    EXPECT_FALSE(parseAmount("13:15", true)) << "a time of day";
    EXPECT_FALSE(parseAmount("33:15"));
    EXPECT_FALSE(parseAmount("lO", true)) << "a word, not 10";
    EXPECT_FALSE(parseAmount("Ol.Il", true)) << "more letters than digits";
}

TEST(DocumentAmount, leavesOutNumbersThatAreNoAmounts) {
    struct Row {
        std::vector<std::string_view> words;
        std::vector<int> marked; ///< indices
    };
    const std::vector<Row> rows{
        {{"Saldo", "per", "31.12.2024", "1’200.00"}, {2}},
        {{"Saldo", "per", "31.12.", "2024", "5.00"}, {2}},
        {{"Saldo", "per", "31.12", "2024"}, {2}},
        {{"Am", "31.", "Dezember", "2024", "waren", "80"}, {1, 3}},
        {{"Zins", "1.25", "%", "von", "200.00"}, {1, 2}},
        {{"Rabatt", "10%", "20.00"}, {1}},
        {{"IBAN", "CH93", "0076", "2011", "6238", "5295", "7", "400.00"}, {1, 2, 3, 4, 5, 6}},
        {{"Tel.", "071", "123", "45", "67"}, {1, 2, 3, 4}},
        {{"071", "123", "45", "67", "Praxis"}, {0, 1, 2, 3}},
        {{"Police", "Nr.", "88123", "450.00"}, {2}},
        {{"Vertragsnummer", "4711"}, {1}},
        {{"21", "00000", "00003", "13947", "14300", "09017"}, {1, 2, 3, 4, 5}},
        {{"9000", "St.Gallen"}, {0}},
        {{"von", "08.00", "bis", "17.30", "Uhr"}, {1, 3}},
        {{"Total", "CHF", "1200", "CHF"}, {}},
    };
    for (const Row& row : rows) {
        const auto marked = wordsWithoutAmount(row.words);
        std::vector<int> found;
        for (std::size_t i = 0; i < marked.size(); ++i) {
            if (marked[i] && row.words[i].find_first_of("0123456789%") != std::string_view::npos) {
                found.push_back(static_cast<int>(i));
            }
        }
        EXPECT_EQ(found, row.marked) << row.words.front() << " " << row.words.back();
    }
}

TEST(FoldedText, comparesWordsHoweverTheyAreSpelt) {
    EXPECT_EQ(foldWords("Beiträge AHV/IV – Prämien"), "beitrage ahv iv pramien");
    EXPECT_EQ(foldWords("Praemien"), foldWords("PRÄMIEN"));
    EXPECT_EQ(foldWords("Pra\u0308mien"), foldWords("Prämien"));
    EXPECT_EQ(foldWords("ﬁnanziell"), "finanziell");
    EXPECT_EQ(withoutLigatures("Oﬀene Tür"), "Offene Tür");
    EXPECT_TRUE(hasPhrase("die kita am bach", "kita"));
    EXPECT_FALSE(hasPhrase("akita", "kita"));
    EXPECT_TRUE(hasPhrase("spenden an alle", "spende", true));
}

} // namespace
} // namespace fiscarel
