#include "TaxCore/stgallen/TaxCalculator.h"
#include "tests/support/Csv.h"
#include "tests/support/RuleCopy.h"

#include <gtest/gtest.h>

#include <charconv>
#include <set>
#include <stdexcept>

namespace taxcore {
namespace {

using testing::CsvRow;
using testing::readCsv;
using testing::shippedLIRules;
using testing::shippedRules;

/// "joint-kids-3" taken apart.
struct Kind {
    TariffKind tariff = TariffKind::single;
    bool capital = false;
    int children = 0;
};

Kind kindOf(const CsvRow& row) {
    const std::string& text = row.text("kind");
    const auto dash = text.find('-');
    const auto tariff = enumFromRaw<TariffKind>(text.substr(0, dash));
    Kind kind{tariff.value(), false, 0};
    if (dash != std::string::npos) {
        const std::string_view rest = std::string_view(text).substr(dash + 1);
        constexpr std::string_view kids = "kids-";
        kind.capital = rest == "capital";
        if (rest.starts_with(kids)) {
            std::from_chars(rest.data() + kids.size(), rest.data() + rest.size(), kind.children);
        }
        if (!kind.capital && kind.children == 0) {
            throw std::runtime_error(row.place() + ": unknown kind " + text);
        }
    }
    return kind;
}

TaxCase householdOf(int year, TariffKind tariff) {
    TaxCase household;
    household.year = year;
    household.civilStatus =
        tariff == TariffKind::joint ? CivilStatus::verheiratet : CivilStatus::ledig;
    return household;
}

CapitalPaymentTax capitalPaymentTax(TaxCase household, const Decimal& amount) {
    household.capitalPayments.emplace_back().amount = amount;
    const TaxCalculator calculator(shippedRules(household.year));
    return calculator.calculate(household).capitalPaymentTax.value();
}

void expectMet(const CsvRow& row, const Decimal& tax, const std::string& column) {
    EXPECT_LE((tax - row.amount(column)).abs(), row.amount("tolerance"))
        << row.place() << ": " << tax << " instead of " << row.text(column);
}

TEST(FederalTariff, meetsThePublishedFigures) {
    const auto rows = readCsv("federal-tariff.csv");
    std::set<std::string> covered;
    for (const CsvRow& row : rows) {
        const int year = row.integer("year");
        const Kind kind = kindOf(row);
        const Decimal taxable = row.amount("taxable");
        const FederalTariff& tariff = shippedRules(year)->federalRules.tarif;
        expectMet(row,
                  kind.capital
                      ? capitalPaymentTax(householdOf(year, kind.tariff), taxable).federal
                      : Tariffs::federalIncomeTaxNet(taxable, kind.tariff, kind.children, tariff),
                  "expected_tax");
        covered.insert(row.text("kind") + " " + row.text("year"));
    }
    EXPECT_EQ(rows.size(), 47U);
    EXPECT_EQ(covered, (std::set<std::string>{"joint 2025", "joint 2026", "joint-capital 2025",
                                              "joint-capital 2026", "joint-kids-1 2026",
                                              "joint-kids-3 2026", "single 2025", "single 2026",
                                              "single-capital 2025", "single-capital 2026"}));
}

TEST(CantonalTariff, meetsThePublishedFigures) {
    const auto rows = readCsv("sg-simple-tax.csv");
    for (const CsvRow& row : rows) {
        const SGTariffTable& table = shippedRules(row.integer("year"))->sgTariff;
        expectMet(row, Tariffs::sgSimpleIncomeTax(row.amount("taxable"), kindOf(row).tariff, table),
                  "expected_simple_tax");
    }
    EXPECT_EQ(rows.size(), 52U);
}

TEST(CantonalBill, meetsThePublishedFigures) {
    const auto rows = readCsv("sg-bill.csv");
    for (const CsvRow& row : rows) {
        const auto rules = shippedRules(row.integer("year"));
        TaxCase household = householdOf(rules->year, kindOf(row).tariff);
        household.person1.confession = enumFromRaw<Confession>(row.text("confession")).value();
        household.person2.confession = household.person1.confession;
        const Municipality* municipality =
            rules->municipalities.municipality(row.text("municipality"));
        ASSERT_NE(municipality, nullptr) << row.place();
        const Decimal income = row.amount("taxable_income");
        const TaxBill bill = TaxCalculator(rules).computeBill(
            household, income, income, row.amount("taxable_wealth"), municipality,
            &municipality->parishes.at(0));
        expectMet(row, bill.cantonTotal(), "expected_canton");
        expectMet(row, bill.municipalityTotal(), "expected_municipality");
        expectMet(row, bill.churchTotal(), "expected_church");
    }
    EXPECT_EQ(rows.size(), 17U);
}

TEST(LITariff, meetsThePublishedFigures) {
    const auto rows = readCsv("li-national-tax.csv");
    for (const CsvRow& row : rows) {
        const auto kind = enumFromRaw<LITariffKind>(row.text("kind"));
        const LIRules::Tarif& tariff = shippedLIRules(row.integer("year"))->tarif;
        expectMet(row, Tariffs::landessteuer(row.amount("taxable"), kind.value(), tariff),
                  "expected_landessteuer");
    }
    EXPECT_EQ(rows.size(), 22U);
}

TEST(CapitalPayments, areTaxedInStGallenAsPublished) {
    TaxCase household = householdOf(2025, TariffKind::single);
    household.municipality = "St.Gallen";
    EXPECT_EQ(capitalPaymentTax(household, 100'000).canton, 5'346);
}

} // namespace
} // namespace taxcore
