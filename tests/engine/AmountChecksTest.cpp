#include "TaxCore/demo/DemoData.h"
#include "tests/support/CheckRows.h"
#include "tests/support/RandomCase.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <map>

namespace taxcore {
namespace {

using testing::spotlessHousehold;
using testing::spotlessLiechtenstein;
using enum Notice::Level;

TEST(AmountChecks, speakUp) {
    testing::expectAllChecks(
        {"AmountChecks.cpp"},
        {
            {warning,
             {"betrag-negativ-1",
              [](TaxCase& c) { c.householdDeductions.accidentInsurancePremiums = -1; },
              [](TaxCase& c) { c.income1.selfEmployment = -1; }}},
            {warning,
             {"betrag-hoch-1", [](TaxCase& c) { c.income1.boardFees = 5'000'000; },
              [](TaxCase& c) { c.income1.boardFees = 4'999'999; }, spotlessLiechtenstein}},
            {warning,
             {"betrag-hoch-1", [](TaxCase& c) { c.cash = 100'000'000; },
              [](TaxCase& c) { c.cash = 99'999'999; }}},
            {warning,
             {"anzahl-negativ-1", [](TaxCase& c) { c.deductions2.work.mealDays = -1; },
              [](TaxCase& c) {
                  c.deductions2.work.mealDays = -1;
                  c.civilStatus = CivilStatus::ledig;
              }}},
            {warning,
             {"anzahl-negativ-1", [](TaxCase& c) { c.li->commute1.workDays = -1; },
              [](TaxCase& c) { c.deductions1.work.carWorkDays = -1; }, spotlessLiechtenstein}},
            {warning,
             {"betraege-weitere", [](TaxCase& c) { c.debts.resize(21, Debt{.interest = -1}); },
              [](TaxCase& c) { c.debts.resize(20, Debt{.interest = -1}); }}},
        });
}

/// A case of a region with one item in every list and a value in every optional number.
TaxCase withEverything(TaxRegion region) {
    TaxCase c = region == TaxRegion::stGallen ? spotlessHousehold() : spotlessLiechtenstein();
    for (PersonIncome* income : {&c.income1, &c.income2}) {
        income->salaries[0].netSalaryOverride = 1;
        income->pensions.emplace_back();
    }
    c.householdDeductions.actualAssetManagementCosts = 0;
    c.householdDeductions.medicalCosts.emplace_back();
    c.householdDeductions.donations.emplace_back();
    c.securities[0].quantity = 1;
    c.insurances.emplace_back() = {.startYear = 2020, .endYear = 2030};
    c.vehicles.emplace_back() = {.purchaseYear = 2020, .taxValueOverride = 1};
    c.realEstate.emplace_back();
    c.debts.emplace_back();
    c.capitalPayments.emplace_back();
    return c;
}

/// Calls `use(path, number)` for every amount and count of a record.
template <class T, class Use>
void forEachNumber(T& value, const std::string& path, const Use& use) {
    if constexpr (std::is_same_v<T, Decimal> || std::is_same_v<T, int>) {
        use(path, value);
    } else if constexpr (isOptional<T>) {
        if (value) {
            forEachNumber(*value, path, use);
        }
    } else if constexpr (isList<T>) {
        for (std::size_t i = 0; i < value.size(); ++i) {
            forEachNumber(value[i], path + "[" + std::to_string(i) + "]", use);
        }
    } else if constexpr (Record<T>) {
        forEachField(value, [&](std::string_view name, auto& field) {
            forEachNumber(field, path.empty() ? std::string(name) : path + "." + std::string(name),
                          use);
        });
    }
}

bool isOfAmountChecks(const Notice& notice) {
    return notice.id.starts_with("betrag-") || notice.id.starts_with("anzahl-");
}

/// Losses, corrections and shares of estates in debt may be negative; the year is none of the
/// household's numbers.
bool mayBeNegative(const std::string& path) {
    static const std::set<std::string> any{"year",
                                           "income1.salaries[0].netSalaryOverride",
                                           "income2.salaries[0].netSalaryOverride",
                                           "income1.selfEmployment",
                                           "income2.selfEmployment",
                                           "income1.partnership",
                                           "income2.partnership",
                                           "householdIncome.undividedEstates",
                                           "undividedEstatesWealth",
                                           "businessAssets",
                                           "vehicles[0].purchaseYear",
                                           "vehicles[0].taxValueOverride"};
    return any.contains(path);
}

/// Whether a field belongs to the return of the other region.
bool isElsewhere(const std::string& path, TaxRegion region) {
    return region == TaxRegion::stGallen ? path.starts_with("li.")
                                         : path.find(".work.") != std::string::npos;
}

TEST(AmountChecks, nameEveryNegativeNumberOfTheCaseInGerman) {
    for (const TaxRegion region : {TaxRegion::stGallen, TaxRegion::liechtenstein}) {
        TaxCase taxCase = withEverything(region);
        int numbers = 0;
        forEachNumber(taxCase, "", [&](const std::string& path, auto& number) {
            ++numbers;
            if (path == "year") {
                return;
            }
            const auto kept = number;
            number = -7;
            const auto notices = testing::reviewed(taxCase);
            number = kept;
            const auto found = std::ranges::find_if(notices, isOfAmountChecks);
            if (mayBeNegative(path) || isElsewhere(path, region)) {
                EXPECT_EQ(found, notices.end()) << path;
                return;
            }
            ASSERT_NE(found, notices.end()) << path;
            EXPECT_EQ(std::ranges::count_if(notices, isOfAmountChecks), 1) << path;
            EXPECT_EQ(found->path, path);
            EXPECT_EQ(found->message.find("Ein Betrag"), std::string::npos) << path;
            const std::string field = path.substr(path.rfind('.') + 1);
            EXPECT_EQ(found->message.find(field), std::string::npos) << found->message;
        });
        EXPECT_GT(numbers, 90);
    }
}

TEST(AmountChecks, leaveOutWhatIsNotTheHouseholds) {
    TaxCase taxCase = spotlessHousehold();
    taxCase.civilStatus = CivilStatus::ledig;
    taxCase.income2.boardFees = -1;
    taxCase.deductions2.pensionBuyIn = 9'000'000;
    taxCase.securities[0].owner = Owner::person2;
    taxCase.securities[0].taxValue = -1;
    const auto notices = testing::reviewed(taxCase);
    EXPECT_EQ(std::ranges::count_if(notices, isOfAmountChecks), 0);
}

TEST(AmountChecks, tellWhoseFieldItIs) {
    TaxCase taxCase = spotlessHousehold();
    taxCase.income2.salaries.emplace_back().grossSalary = -250;
    const auto notices = testing::reviewed(taxCase);
    const auto found = std::ranges::find_if(notices, isOfAmountChecks);
    ASSERT_NE(found, notices.end());
    EXPECT_EQ(found->message, "«Bruttolohn» (Beat Muster, Eintrag 2) ist mit CHF -250 eingetragen. "
                              "Hier gehören Werte ohne Minuszeichen hin.");
    EXPECT_EQ(found->area, "income");
}

/// Whatever a case holds, the review ends, no id stands twice and every path leads to a field.
TEST(Checks, surviveCasesThatMakeNoSense) {
    testing::RandomCase random(20'250'301);
    for (int i = 0; i < 300; ++i) {
        TaxCase taxCase = random.next();
        taxCase.year = 2025 + i % 2;
        SCOPED_TRACE(i);
        testing::reviewedIds(taxCase);
        for (const Notice& notice : testing::reviewed(taxCase)) {
            EXPECT_TRUE(!notice.path || valueAt(taxCase, *notice.path)) << *notice.path;
        }
    }
}

} // namespace
} // namespace taxcore
