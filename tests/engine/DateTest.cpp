#include "TaxCore/base/Date.h"

#include "TaxCore/base/MoneyFormat.h"
#include "TaxCore/base/Rounding.h"
#include "TaxCore/base/Uuid.h"
#include "TaxCore/result/TaxResult.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <sstream>

namespace taxcore {
namespace {

using namespace literals;

/// "2025-03-01", or "–" for a text that is no date.
std::string dayOf(std::string_view text) {
    const auto date = Date::parse(text);
    return date ? date->toString().substr(0, 10) : "–";
}

TEST(DateText, readsAsTheDayInSwissLocalTime) {
    const std::pair<const char*, const char*> groups[] = {
        {"plain days", "2025-03-01 2025-03-01   20250301 2025-03-01     2024-02-29 2024-02-29 "
                       "2000-02-29 2000-02-29   0001-01-01 0001-01-01   9999-12-31 9999-12-31"},
        {"winter", "2015-03-01T00:00:00Z 2015-03-01   2015-02-28T22:59:59Z 2015-02-28 "
                   "2015-02-28T23:00:00Z 2015-03-01   2025-12-31T23:00:00Z 2026-01-01"},
        {"summer", "2015-07-31T21:59:59Z 2015-07-31   2015-07-31T22:00:00Z 2015-08-01"},
        {"the switch to summer",
         "2025-03-29T22:59:59Z 2025-03-29   2025-03-29T23:00:00Z 2025-03-30 "
         "2025-03-30T00:59:59Z 2025-03-30   2025-03-30T01:00:00Z 2025-03-30 "
         "2025-03-30T21:59:59Z 2025-03-30   2025-03-30T22:00:00Z 2025-03-31"},
        {"the switch to winter",
         "2025-10-25T22:00:00Z 2025-10-26   2025-10-26T00:59:59Z 2025-10-26 "
         "2025-10-26T01:00:00Z 2025-10-26   2025-10-26T22:59:59Z 2025-10-26 "
         "2025-10-26T23:00:00Z 2025-10-27"},
        {"the first summer time",
         "1980-07-31T22:00:00Z 1980-07-31   1980-07-31T23:00:00Z 1980-08-01 "
         "1981-03-28T22:30:00Z 1981-03-28   1981-03-29T22:00:00Z 1981-03-30"},
        {"its end in September",
         "1985-09-28T22:00:00Z 1985-09-29   1985-09-29T22:00:00Z 1985-09-29 "
         "1995-10-10T22:00:00Z 1995-10-10   1996-10-10T22:00:00Z 1996-10-11"},
        {"in the war", "1941-08-31T22:00:00Z 1941-09-01   1942-10-05T22:00:00Z 1942-10-05 "
                       "1943-08-31T22:00:00Z 1943-08-31"},
        {"other offsets",
         "2025-07-01T00:00:00+02:00 2025-07-01   2025-07-01T00:00+0200 2025-07-01 "
         "2025-01-01T00:00:00+02 2024-12-31 "
         "2025-12-31T17:29:59-05:30 2025-12-31   2025-12-31T17:30-05:30 2026-01-01"},
        {"no offset", "2025-12-31T23:59:59 2025-12-31   20250301T0000 2025-03-01"},
        {"fractions", "2015-02-28T22:59:59.999999999999999999999Z 2015-02-28 "
                      "2015-02-28t23:00:00,0z 2015-03-01"},
        {"the end of a day", "2025-12-31T24:00:00 2026-01-01   2025-02-28T24:00 2025-03-01"},
        {"leap seconds", "2016-12-31T23:59:60Z 2017-01-01   2016-12-31T22:59:60Z 2016-12-31 "
                         "2016-12-31T23:59:60 2016-12-31   2016-12-31T23:59:60+01:00 2016-12-31"}};
    for (const auto& [what, rows] : groups) {
        std::istringstream words(rows);
        for (std::string text, day; words >> text >> day;) {
            EXPECT_EQ(dayOf(text), day) << what << ": " << text;
        }
    }
    EXPECT_EQ(dayOf("2025-12-31 23:59"), "2025-12-31");
}

TEST(DateText, refusesWhatIsNoExistingDayOrTime) {
    std::istringstream texts(
        "| |2025|2025-01|2025-1-1|25-01-01|2025-02-29|1900-02-29|2025-04-31|2025-00-10|2025-13-01|"
        "2025-01-00|2025-01-32|0000-01-01|-2025-01-01|+2025-01-01|2025-01-01 | 2025-01-01|"
        "2025-01-01x|2025-0101|202501-01|2025/01/01|01.01.2025|2025-W01-1|2025-001|２０２５-01-01|"
        "2025-01-01T|2025-01-01T1|2025-01-01T25:00|2025-01-01T24:01|2025-01-01T24:00:01|"
        "2025-01-01T12:60|2025-01-01T12:00:61|2025-01-01T12:00:00.|2025-01-01T12:00:00.Z|"
        "2025-01-01T12:00:00ZZ|2025-01-01T12:00:00+24:00|2025-01-01T12:00:00+01:60|"
        "2025-01-01T12:00:00+1|2025-01-01T12:00:00+01:|2025-01-01T12:00 +01:00|"
        "0001-01-01T00:00:00+14:00|9999-12-31T23:00:00Z|9999-12-31T24:00");
    for (std::string text; std::getline(texts, text, '|');) {
        EXPECT_EQ(dayOf(text), "–") << text;
    }
}

TEST(Date, existsOrderedAndWrittenAsMidnight) {
    EXPECT_EQ(Date::of(1984, 2, 29).value().toString(), "1984-02-29T00:00:00Z");
    EXPECT_EQ(Date().toString(), "0001-01-01T00:00:00Z");
    using Day = std::array<int, 3>;
    for (const auto& [year, month, day] :
         {Day{2025, 2, 29}, Day{2025, 13, 1}, Day{2025, 0, 1}, Day{2025, 1, 0}, Day{2025, 1, 257},
          Day{0, 1, 1}, Day{10'000, 1, 1}, Day{-1, 1, 1}, Day{67'561, 1, 1}, Day{2025, 257, 1}}) {
        EXPECT_FALSE(Date::of(year, month, day).has_value()) << year << month << day;
    }
    const char* ascending[] = {"1999-12-31", "2000-01-01", "2000-01-31",
                               "2000-02-01", "2000-02-02", "2001-01-01"};
    EXPECT_TRUE(std::ranges::is_sorted(ascending, std::less<>(), Date::parse));
    EXPECT_LT(Date::parse(ascending[2]), Date::parse(ascending[3]));
}

TEST(Date, givesAgesInCompletedYears) {
    const struct {
        const char* birth;
        const char* on;
        int years;
    } table[] = {{"2010-06-15", "2025-06-14", 14}, {"2010-06-15", "2025-06-15", 15},
                 {"2010-06-15", "2025-05-31", 14}, {"2010-06-15", "2025-07-01", 15},
                 {"2010-12-31", "2025-12-31", 15}, {"2004-02-29", "2005-02-28", 0},
                 {"2004-02-29", "2005-03-01", 1},  {"2004-02-29", "2008-02-28", 3},
                 {"2004-02-29", "2008-02-29", 4},  {"2025-06-15", "2025-06-15", 0},
                 {"2025-06-15", "2025-06-14", -1}, {"2025-06-15", "2024-06-14", -2}};
    for (const auto& [birth, on, years] : table) {
        EXPECT_EQ(completedYears(Date::parse(birth).value(), Date::parse(on).value()), years)
            << birth << " " << on;
    }
}

TEST(UuidText, isReadInEitherCaseAndWrittenInUpper) {
    const std::string upper = "6F1C0E52-9A04-4D6B-8B3E-2D5A7C9B01FF";
    const std::string lower = "6f1c0e52-9a04-4d6b-8b3e-2d5a7c9b01ff";
    ASSERT_TRUE(Uuid::parse(lower).has_value());
    EXPECT_EQ(Uuid::parse(lower)->toString(), upper);
    EXPECT_EQ(Uuid::parse(lower), Uuid::parse(upper));
    EXPECT_EQ(Uuid().toString(), "00000000-0000-0000-0000-000000000000");
    EXPECT_NE(Uuid::parse(upper.substr(0, 35) + "E"), Uuid::parse(upper));
    for (const std::string& text :
         {std::string(), upper.substr(0, 35), upper + "0", upper + " ", "{" + upper + "}",
          "{" + upper.substr(0, 34) + "}", "urn:uuid:" + upper, std::string(36, '0'),
          std::string("6F1C0E529-A04-4D6B-8B3E-2D5A7C9B01FF"), upper.substr(0, 35) + "G",
          upper.substr(0, 35) + "-", "-" + upper.substr(1)}) {
        EXPECT_EQ(Uuid::parse(text), std::nullopt) << text;
    }
    const Uuid one = Uuid::random();
    EXPECT_NE(one, Uuid::random());
    EXPECT_EQ(Uuid::parse(one.toString()), one);
    EXPECT_EQ(one.toString()[14], '4') << "version 4";
}

TEST(MoneyFormat, groupsRoundsAndSigns) {
    const struct {
        const char* amount;
        int decimals;
        bool withCurrency;
        std::string text;
    } table[] = {{"12700", 0, true, "CHF 12’700"},
                 {"1234.5", 2, false, "1’234.50"},
                 {"0", 2, true, "CHF 0.00"},
                 {"1000", 0, false, "1’000"},
                 {"0.5", 0, false, "1"},
                 {"-0.4", 0, false, "0"},
                 {"-0.004", 2, true, "CHF 0.00"},
                 {"-0.005", 2, false, "-0.01"},
                 {"-0.5", 0, false, "-1"},
                 {"-5", 0, true, "CHF -5"},
                 {"-999", 0, false, "-999"},
                 {"-1000", 0, false, "-1’000"},
                 {"-1234567.895", 2, false, "-1’234’567.90"},
                 {"999.995", 2, false, "1’000.00"},
                 {"999.994", 2, false, "999.99"},
                 {"0.05", 1, false, "0.1"},
                 {"1234567.00001", 4, false, "1’234’567.0000"},
                 {"1e30", 0, false, "1’000’000’000’000’000’000’000’000’000’000"},
                 {"12.5", -1, false, "13"}};
    for (const auto& [amount, decimals, withCurrency, text] : table) {
        EXPECT_EQ(MoneyFormat::chf(Decimal::parse(amount).value(), decimals, withCurrency), text)
            << amount;
    }
    EXPECT_EQ(MoneyFormat::fr(8'000), "Fr. 8’000");
    EXPECT_EQ(MoneyFormat::number(115.50_dec), "115.5");
    EXPECT_EQ(MoneyFormat::number(1e3_dec), "1000");
}

TEST(Rounding, followsTheNamesOfTaxLaw) {
    const struct {
        Decimal (*round)(const Decimal&);
        const char* rows; ///< pairs of an amount and what it becomes
    } table[] = {
        {toFiveRappen,
         "1234.575 1234.6  1234.574999 1234.55  1234.525 1234.55  -1234.575 -1234.6  0.024 0"},
        {cutToFiveRappen, "1234.56 1234.55  1234.5999 1234.55  1234.60 1234.6  -1234.56 -1234.6  "
                          "-0.01 -0.05"},
        {toRappen, "0.005 0.01  -0.005 -0.01  2.67499 2.67"},
        {toWholeFrancs, "0.5 1  -0.5 -1  99.4999 99"},
        {cutToTen, "1239.99 1230  1240 1240  -1 -10"},
        {cutToHundred, "99.99 0  100 100  123456.78 123400  -0.01 -100"}};
    for (const auto& [round, rows] : table) {
        std::istringstream words(rows);
        for (std::string amount, expected; words >> amount >> expected;) {
            EXPECT_EQ(round(Decimal::parse(amount).value()).toString(), expected) << amount;
        }
    }
}

TEST(TaxResult, findsItsLines) {
    TaxResult result;
    result.sections = {
        {"Einkünfte",
         2,
         {{"lohn1", "1.1", "Lohn", 100_dec, 90_dec}, {"", "1.2", "Hinweis", 5_dec}}},
        {"Abzüge", 3, {{"lohn1", "9", "anderer Lohn", 7_dec}, {"fahrt", "", "Fahrt", 3_dec}}}};
    const auto& lines = result.sections[0].lines;
    EXPECT_EQ(result.line("lohn1"), &lines[0]) << "the first of two equal codes";
    EXPECT_EQ(result.line("Lohn1"), nullptr);
    EXPECT_EQ(result.line(""), nullptr) << "a line without code is not found by its lack";
    EXPECT_EQ(result.value("lohn1"), 100);
    EXPECT_EQ(result.value("fahrt"), 3);
    EXPECT_EQ(result.value("lohn"), 0);
    EXPECT_EQ(lines[0].id(), "lohn1");
    EXPECT_EQ(lines[1].id(), "1.2-Hinweis");
    EXPECT_EQ(result.sections[1].id(), "Abzüge");

    std::string codes;
    for (const TaxLine& line : result.fields()) {
        codes += line.code + line.ziffer + " ";
    }
    EXPECT_EQ(codes, "lohn11.1 lohn19 fahrt ");

    EXPECT_TRUE(lines[0].differsFederally());
    EXPECT_EQ(lines[0].federalOrCanton(), 90);
    EXPECT_FALSE(lines[1].differsFederally());
    EXPECT_EQ(lines[1].federalOrCanton(), 5);
    EXPECT_FALSE((TaxLine{.canton = 100_dec, .federal = 100.00_dec}.differsFederally()));
    EXPECT_TRUE((TaxLine{.canton = 100_dec, .federal = 0_dec}.differsFederally()));
}

TEST(TaxResult, addsUpItsParts) {
    EXPECT_EQ((InsuranceBreakdown{.paid = 5'000, .maximum = 4'800}.deduction()), 4'800);
    EXPECT_EQ((InsuranceBreakdown{.paid = 4'800, .maximum = 4'800}.deduction()), 4'800);
    EXPECT_EQ((InsuranceBreakdown{.paid = 4'799.95_dec, .maximum = 4'800}.deduction()),
              4'799.95_dec);

    // Powers of ten, so that every part shows in the sum and none twice.
    const WorkExpenseBreakdown work{.commute = 1,
                                    .commuteUncapped = 500'000,
                                    .meals = 10,
                                    .other = 100,
                                    .weeklyStay = 1'000,
                                    .sideJob = 10'000};
    EXPECT_EQ(work.total(), 11'111);

    const TaxBill bill{.cantonRate = 105,
                       .municipalityRate = 1'120.5_dec,
                       .churchRate = 20'000,
                       .cantonIncome = 1,
                       .municipalityIncome = 10,
                       .churchIncome = 100,
                       .cantonWealth = 1'000,
                       .municipalityWealth = 10'000,
                       .churchWealth = 100'000,
                       .federalBeforeChildReduction = 700'000'000,
                       .federalChildReduction = 7,
                       .federal = 1'000'000};
    EXPECT_EQ(bill.cantonTotal(), 1'001);
    EXPECT_EQ(bill.municipalityTotal(), 10'010);
    EXPECT_EQ(bill.churchTotal(), 100'100);
    EXPECT_EQ(bill.cantonAndMunicipalityTotal(), 111'111);
    EXPECT_EQ(bill.total(), 1'111'111);
    EXPECT_EQ(bill.totalRate(), 21'225.5_dec);

    ByJurisdiction<int> sides;
    sides[Jurisdiction::canton] = 1;
    EXPECT_EQ(sides.canton, 1);
    EXPECT_FALSE(sides[Jurisdiction::federal].has_value());

    // The text shows the sums beside the parts.
    const std::string text = toJson(TaxResult{.bill = bill}, JsonStyle::compact);
    for (const char* part : {R"("cantonAndMunicipalityTotal":111111,)", R"("total":1111111,)",
                             R"("totalRate":21225.5})", R"("churchTotal":100100,)"}) {
        EXPECT_NE(text.find(part), std::string::npos) << part << " " << text;
    }
}

} // namespace
} // namespace taxcore
