#include "tests/engine/CheckTables.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace taxcore {
namespace {

using testing::spotlessHousehold;
using testing::spotlessLiechtenstein;
using enum Notice::Level;

TaxCase nextYear() {
    TaxCase taxCase = spotlessHousehold();
    taxCase.year = 2026;
    for (PersonIncome* income : {&taxCase.income1, &taxCase.income2}) {
        income->salaries[0].periodFrom = Date::of(2026, 1, 1);
        income->salaries[0].periodTo = Date::of(2026, 12, 31);
    }
    return taxCase;
}

CapitalPayment& draw(TaxCase& c, CapitalPayment::Kind kind, int year) {
    CapitalPayment& payment = c.capitalPayments.emplace_back();
    payment.kind = kind;
    payment.amount = 100'000;
    payment.date = Date::of(year, 6, 30);
    return payment;
}

std::vector<testing::LevelledRow> pensionFundRows() {
    return {
        {warning,
         {"pensionskasse-ohne-beitrag-1",
          [](TaxCase& c) { c.income1.salaries[0].pensionContributions = 0; },
          [](TaxCase& c) {
              c.income1.salaries[0].pensionContributions = 0;
              c.deductions1.pillar3a = 0;
          }}},
        {warning,
         {"beitrag-ohne-pensionskasse-2", [](TaxCase& c) { c.person2.hasPensionFund = false; },
          [](TaxCase& c) {
              c.person2.hasPensionFund = false;
              c.civilStatus = CivilStatus::getrennt;
          }}},
        {error,
         {"3a-einkauf-zu-frueh-1", [](TaxCase& c) { c.deductions1.pillar3aBuyIn = 1; },
          [](TaxCase& c) { c.deductions2.pillar3aBuyIn = 1; }}},
        {error,
         {"3a-einkauf-vor-maximum-1",
          [](TaxCase& c) {
              c.deductions1.pillar3aBuyIn = 500;
              c.deductions1.pillar3a = 7'257;
          },
          [](TaxCase& c) {
              c.deductions1.pillar3aBuyIn = 500;
              c.deductions1.pillar3a = 7'258;
          },
          nextYear}},
        {warning,
         {"3a-zu-spaet-1", [](TaxCase& c) { c.person1.birthDate = Date::of(1954, 12, 31); },
          [](TaxCase& c) { c.person1.birthDate = Date::of(1955, 1, 1); }}},
        {warning,
         {"3a-zu-jung-1", [](TaxCase& c) { c.person1.birthDate = Date::of(2008, 1, 1); },
          [](TaxCase& c) { c.person1.birthDate = Date::of(2007, 12, 31); }}},
        {warning,
         {"einkauf-ohne-pensionskasse-1",
          [](TaxCase& c) {
              c.person1.hasPensionFund = false;
              c.income1.salaries[0].pensionContributions = 0;
              c.income1.salaries[0].pensionBuyIn = 2'000;
          },
          [](TaxCase& c) {
              c.income1.salaries[0].pensionContributions = 0;
              c.income1.salaries[0].pensionBuyIn = 2'000;
          },
          spotlessLiechtenstein}},
        {warning,
         {"einkauf-und-kapitalbezug-2",
          [](TaxCase& c) {
              c.income2.salaries[0].pensionBuyIn = 2'000;
              draw(c, CapitalPayment::Kind::saeule2, 2025);
          },
          [](TaxCase& c) {
              c.income2.salaries[0].pensionBuyIn = 2'000;
              draw(c, CapitalPayment::Kind::saeule3a, 2025);
          }}},
        {info,
         {"li-saeule-3a-2", [](TaxCase& c) { c.deductions2.pillar3aBuyIn = 100; },
          [](TaxCase& c) { c.deductions2.pensionBuyIn = 100; }, spotlessLiechtenstein}},
    };
}

std::vector<testing::LevelledRow> paymentRows() {
    return {
        {warning,
         {"krankenkasse-fehlt",
          [](TaxCase& c) { c.householdDeductions.healthInsurancePremiums = 0; },
          [](TaxCase& c) { c.householdDeductions.healthInsurancePremiums = 1; },
          spotlessLiechtenstein}},
        {warning,
         {"praemienverbilligung-zu-hoch",
          [](TaxCase& c) { c.householdDeductions.premiumReduction = 9'001; },
          [](TaxCase& c) { c.householdDeductions.premiumReduction = 9'000; }}},
        {warning,
         {"kapitalleistung-ohne-betrag-1",
          [](TaxCase& c) { draw(c, CapitalPayment::Kind::saeule3a, 2025).amount = 0; },
          [](TaxCase& c) { draw(c, CapitalPayment::Kind::saeule3a, 2025).amount = 1; }}},
        {warning,
         {"kapitalleistung-ohne-datum-2",
          [](TaxCase& c) {
              draw(c, CapitalPayment::Kind::saeule3a, 2025);
              draw(c, CapitalPayment::Kind::uebrige, 2025).date.reset();
          },
          [](TaxCase& c) {
              draw(c, CapitalPayment::Kind::saeule3a, 2025).date.reset();
              draw(c, CapitalPayment::Kind::uebrige, 2025);
          }}},
        {warning,
         {"kapitalleistung-anderes-jahr-1",
          [](TaxCase& c) { draw(c, CapitalPayment::Kind::saeule3a, 2026); },
          [](TaxCase& c) { draw(c, CapitalPayment::Kind::saeule3a, 2025); },
          spotlessLiechtenstein}},
    };
}

std::vector<testing::LevelledRow> allRows() {
    return testing::joined<testing::LevelledRow>({pensionFundRows(), paymentRows()});
}

TEST(PensionChecks, speakUp) {
    testing::expectAllChecks({"PensionChecks.cpp"}, allRows(),
                             {"3a-einkauf-ohne-luecke-1", "kapitalbezug-nach-einkauf"});
}

/// Whether a notice stands in the review of a case beside the same household's case of another
/// year.
bool findsBeside(const TaxCase& taxCase, const TaxCase& other, std::string_view id) {
    const auto notices = testing::reviewed(taxCase, {&other});
    return std::ranges::count(notices, id, &Notice::id) == 1;
}

TEST(PensionChecks, lookForCapitalDrawnThreeYearsAroundABuyIn) {
    TaxCase buyer = spotlessHousehold();
    buyer.deductions1.pensionBuyIn = 5'000;
    for (const int year : {2022, 2024, 2026, 2028}) {
        TaxCase other{.year = year};
        draw(other, CapitalPayment::Kind::saeule2, year);
        EXPECT_TRUE(findsBeside(buyer, other, "einkauf-und-kapitalbezug-1")) << year;
        EXPECT_FALSE(findsBeside(spotlessHousehold(), other, "einkauf-und-kapitalbezug-1"));
    }
    for (const int year : {2021, 2029}) {
        TaxCase other{.year = year};
        draw(other, CapitalPayment::Kind::saeule2, year);
        EXPECT_FALSE(findsBeside(buyer, other, "einkauf-und-kapitalbezug-1")) << year;
    }
}

TEST(PensionChecks, lookForBuyInsInTheThreeYearsBeforeCapitalIsDrawn) {
    TaxCase drawer = spotlessHousehold();
    draw(drawer, CapitalPayment::Kind::saeule2, 2025);
    for (const auto& [year, found] :
         {std::pair(2021, false), {2022, true}, {2024, true}, {2026, false}}) {
        TaxCase other{.year = year};
        other.deductions2.pensionBuyIn = 5'000;
        EXPECT_EQ(findsBeside(drawer, other, "kapitalbezug-nach-einkauf"), found) << year;
        other.civilStatus = CivilStatus::ledig;
        EXPECT_FALSE(findsBeside(drawer, other, "kapitalbezug-nach-einkauf")) << year;
    }
}

TEST(PensionChecks, lookForTheGapThatABuyInIntoPillar3aCloses) {
    TaxCase buyer = nextYear();
    buyer.deductions1.pillar3a = 7'258;
    buyer.deductions1.pillar3aBuyIn = 258;
    const auto found = [&](const TaxCase& before) {
        return findsBeside(buyer, before, "3a-einkauf-ohne-luecke-1");
    };
    TaxCase before = spotlessHousehold();
    EXPECT_FALSE(found(before)) << "258 were left open";
    buyer.deductions1.pillar3aBuyIn = 259;
    EXPECT_TRUE(found(before));
    before.deductions1.pillar3a = 0;
    EXPECT_FALSE(found(before));
    before.income1 = {};
    EXPECT_TRUE(found(before)) << "nothing earned";
    before.year = 2024;
    EXPECT_FALSE(found(before)) << "the year before is not known";
    before = spotlessLiechtenstein();
    before.deductions1.pillar3a = 7'258;
    EXPECT_FALSE(found(before)) << "Liechtenstein does not tell";
}

} // namespace

std::vector<testing::CheckRow> testing::pensionRows() { return testing::withoutLevels(allRows()); }

} // namespace taxcore
