#include "TaxCore/demo/DemoData.h"
#include "TaxCore/stgallen/TaxCalculator.h"
#include "tests/support/CaseFile.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <map>
#include <set>

namespace taxcore {
namespace {

const TaxCalculator& calculator(int year) {
    static const std::map<int, TaxCalculator> calculators = [] {
        std::map<int, TaxCalculator> made;
        for (const int supported : RuleBook::supportedYears) {
            made.emplace(supported, TaxCalculator::forYear(supported).value());
        }
        return made;
    }();
    return calculators.at(year);
}

Date day(std::string_view text) { return Date::parse(text).value(); }

TaxResult calculate(const TaxCase& taxCase) { return calculator(taxCase.year).calculate(taxCase); }

TaxCase employed(const Decimal& gross) {
    TaxCase taxCase{.year = 2025};
    taxCase.civilStatus = CivilStatus::ledig;
    taxCase.income1.salaries.emplace_back().grossSalary = gross;
    return taxCase;
}

bool hasNotice(const TaxResult& result, std::string_view id) {
    return std::ranges::find(result.notices, id, &Notice::id) != result.notices.end();
}

TEST(Calculator, coversEveryLineAndNoticeInTheCaseFiles) {
    std::set<std::string> codes;
    std::set<std::string> notices;
    for (const auto& file : testing::readCaseFiles("sg")) {
        for (const auto& line : file.lines) {
            codes.insert(line.code);
        }
        notices.insert(file.notices.begin(), file.notices.end());
    }
    // 50 lines of the household and 13 that exist once per person.
    EXPECT_EQ(codes.size(), 50U + 2 * 13U);
    const std::set<std::string> everyNotice{
        "eigenmietwert-bund",     "schuldzinsen-limit", "3a-ohne-erwerb-1",
        "3a-ohne-erwerb-2",       "3a-max-1",           "3a-max-2",
        "3a-einkauf-1",           "3a-einkauf-2",       "spenden-min",
        "krankheit-selbstbehalt", "gemeinde",           "steuerfuss-fehlt",
        "kinderabzug-unterhalt",  "konfession-gemischt"};
    EXPECT_EQ(notices, everyNotice);
}

TEST(Calculator, countsAChildOnlyFromTheYearOfItsBirth) {
    TaxCase parent = employed(80'000);
    Child& child = parent.children.emplace_back();
    child.education = ChildEducation::vorschule;
    for (const auto& [born, tariff] : {std::pair{2024, TariffKind::joint},
                                       {2025, TariffKind::joint},
                                       {2026, TariffKind::single}}) {
        child.birthDate = Date::of(born, 1, 1);
        const TaxResult result = calculate(parent);
        EXPECT_EQ(result.bill.kind, tariff) << born;
        EXPECT_EQ(result.line("kinderabzugVorschule") != nullptr, tariff == TariffKind::joint);
        EXPECT_EQ(parent.tariffKind(), TariffKind::joint) << "the household as entered";
    }
}

struct Edge {
    const char* what;
    TaxCase taxCase;
    const char* code;
    Decimal canton;
    Decimal federal;
};

std::vector<Edge> edges() {
    std::vector<Edge> table;
    const auto add = [&](const char* what, const char* code, const Decimal& canton,
                         const Decimal& federal, const auto& change) {
        Edge edge{what, employed(90'000), code, canton, federal};
        change(edge.taxCase);
        table.push_back(std::move(edge));
    };
    add("230 working days count as 220", "berufskosten1", 2'400 + 20 * 220 * 0.4_dec,
        90'000 * 0.03_dec + 20 * 220 * 0.4_dec, [](TaxCase& c) {
            c.deductions1.work.carKmOneWay = 10;
            c.deductions1.work.carWorkDays = 230;
            c.deductions1.work.carIsMotorbike = true;
            c.deductions1.work.carJustification = "Kein öffentliches Verkehrsmittel";
        });
    add("a car without justification does not count", "berufskosten1", 2'400, 2'700,
        [](TaxCase& c) {
            c.deductions1.work.carKmOneWay = 10;
            c.deductions1.work.carWorkDays = 200;
            c.deductions1.work.carJustification = "  ";
        });
    add("box F leaves nothing of a season ticket", "berufskosten1", 2'400, 2'700, [](TaxCase& c) {
        c.deductions1.work.publicTransportCost = 1'500;
        c.income1.salaries[0].fieldF = true;
    });
    add("an override of 0 is no salary", "berufskosten1", 0, 0,
        [](TaxCase& c) { c.income1.salaries[0].netSalaryOverride = 0; });
    add("a third of the rooms in use leaves an even amount", "liegenschaftsertrag", 2'100, 2'100,
        [](TaxCase& c) {
            RealEstate& home = c.realEstate.emplace_back();
            home.imputedRentalValue = 9'000;
            home.rooms = 4;
            home.unusedRooms = 9;
        });
    add("a loss leaves no room in pillar 3a, and no negative one", "saeule3a1", 0, 0,
        [](TaxCase& c) {
            c.income1.salaries.clear();
            c.income1.selfEmployment = -50'000;
            c.income1.unemployment = 1'000;
            c.person1.hasPensionFund = false;
            c.deductions1.pillar3a = 1'000;
        });
    add("a vehicle of the fifth year is worth nothing", "fahrzeuge", 30'001, 30'001,
        [](TaxCase& c) {
            for (const int bought : {2020, 2025, 2026}) {
                Vehicle& car = c.vehicles.emplace_back();
                car.purchasePrice = 15'000.25_dec;
                car.purchaseYear = bought;
            }
            c.vehicles.emplace_back().taxValueOverride = 1;
        });
    return table;
}

TEST(Calculator, holdsAtTheEdgesOfTheRules) {
    for (const Edge& edge : edges()) {
        const TaxResult result = calculate(edge.taxCase);
        const TaxLine* line = result.line(edge.code);
        EXPECT_EQ(line != nullptr ? line->canton : Decimal(0), edge.canton) << edge.what;
        EXPECT_EQ(line != nullptr ? line->federalOrCanton() : Decimal(0), edge.federal)
            << edge.what;
    }
}

TEST(Calculator, rendersTheSameForAnyOrderOfListEntries) {
    for (const auto& file : testing::readCaseFiles("sg")) {
        TaxCase reversed = file.household;
        for (auto* income : {&reversed.income1, &reversed.income2}) {
            std::ranges::reverse(income->salaries);
            std::ranges::reverse(income->pensions);
        }
        std::ranges::reverse(reversed.children);
        std::ranges::reverse(reversed.securities);
        std::ranges::reverse(reversed.realEstate);
        std::ranges::reverse(reversed.vehicles);
        std::ranges::reverse(reversed.debts);
        std::ranges::reverse(reversed.capitalPayments);
        std::ranges::reverse(reversed.householdDeductions.donations);
        std::ranges::reverse(reversed.householdDeductions.medicalCosts);
        EXPECT_EQ(calculate(reversed), calculate(file.household)) << file.path;
    }
}

TEST(Calculator, survivesNumbersNobodyHas) {
    for (const int number : {std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
        for (const Decimal& amount : {Decimal::largest(), -Decimal::largest()}) {
            TaxCase taxCase = DemoData::family(2025);
            RealEstate& home = taxCase.realEstate[0];
            home.rooms = std::numeric_limits<int>::max();
            home.unusedRooms = number;
            home.imputedRentalValue = amount;
            taxCase.vehicles[0].purchaseYear = number;
            taxCase.householdDeductions.supportedPersons = number;
            taxCase.children[1].childcareDaysWithMealsIncluded = number;
            taxCase.deductions1.work.carWorkDays = number;
            taxCase.deductions1.work.carKmOneWay = amount;
            taxCase.deductions1.work.weeklyStay = true;
            taxCase.deductions1.work.weeklyStayMonths = number;
            taxCase.deductions1.work.mealDays = number;
            taxCase.income1.salaries[0].grossSalary = amount;
            taxCase.capitalPayments[0].amount = amount;
            const TaxResult result = calculate(taxCase);
            EXPECT_GE(result.bill.taxableIncomeCanton, 0);
            EXPECT_GE(result.bill.taxableWealth, 0);
        }
    }
}

TEST(Calculator, ignoresPersonTwoOutsideAJointHousehold) {
    TaxCase taxCase = DemoData::family(2025);
    taxCase.civilStatus = CivilStatus::getrennt;
    TaxCase alone = taxCase;
    alone.person2 = {};
    alone.income2 = {};
    alone.deductions2 = {};
    std::erase_if(alone.securities,
                  [](const SecurityEntry& entry) { return entry.owner == Owner::person2; });
    EXPECT_EQ(calculate(taxCase), calculate(alone));
    EXPECT_EQ(calculate(taxCase).work.canton->size(), 1U);
}

TEST(Calculator, neverTaxesMoreForLessIncome) {
    for (const int year : RuleBook::supportedYears) {
        TaxCase taxCase = DemoData::family(year);
        Decimal last;
        for (int gross = 0; gross <= 600'000; gross += 1'000) {
            taxCase.income1.salaries[0].grossSalary = gross;
            const Decimal total = calculate(taxCase).bill.total();
            EXPECT_GE(total, last) << year << " " << gross;
            last = total;
        }
    }
}

TEST(Calculator, knowsAgesAndStagesOfEducation) {
    EXPECT_EQ(TaxCalculator::age(day("2011-12-31"), 2025), 14);
    EXPECT_EQ(TaxCalculator::age(day("2012-01-01"), 2025), 13);
    struct Stage {
        const char* born;
        ChildEducation expected;
    };
    using enum ChildEducation;
    for (const auto& [born, expected] :
         {Stage{"2025-06-01", vorschule}, Stage{"2021-08-01", vorschule},
          Stage{"2021-07-31", schule}, Stage{"2010-08-01", schule}, Stage{"2010-07-31", ausbildung},
          Stage{"2000-01-01", ausbildung}, Stage{"1999-12-31", keine},
          Stage{"2030-01-01", vorschule}}) {
        EXPECT_EQ(TaxCalculator::suggestedEducation(day(born), 2025), expected) << born;
    }
    EXPECT_EQ(TaxCalculator::suggestedEducation(std::nullopt, 2025), schule);
}

TEST(Calculator, leavesOutSectionsWithoutLinesAndKeepsTitlesUnique) {
    const TaxResult result = calculate(employed(50'000));
    std::vector<std::string> titles;
    std::ranges::transform(result.sections, std::back_inserter(titles), &TaxSection::title);
    EXPECT_EQ(titles, (std::vector<std::string>{"Einkommensberechnung", "Abzüge", "Sozialabzüge",
                                                "Vermögensberechnung"}));
    EXPECT_FALSE(result.capitalPaymentTax.has_value());
    EXPECT_FALSE(hasNotice(result, "eigenmietwert-bund"));
}

} // namespace
} // namespace taxcore
