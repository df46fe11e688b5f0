#include "tests/engine/CheckTables.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <map>

namespace taxcore {
namespace {

using testing::spotlessHousehold;
using testing::spotlessLiechtenstein;
using enum Notice::Level;

std::vector<testing::LevelledRow> allRows() {
    return {
        {warning,
         {"betrag-negativ-householdDeductions.accidentInsurancePremiums",
          [](TaxCase& c) { c.householdDeductions.accidentInsurancePremiums = -1; },
          [](TaxCase& c) { c.income1.selfEmployment = -1; }}},
        {warning,
         {"betrag-hoch-income1.boardFees", [](TaxCase& c) { c.income1.boardFees = 5'000'000; },
          [](TaxCase& c) { c.income1.boardFees = 4'999'999; }, spotlessLiechtenstein}},
        {warning,
         {"betrag-hoch-otherAssets", [](TaxCase& c) { c.otherAssets = 100'000'000; },
          [](TaxCase& c) { c.otherAssets = 99'999'999; }}},
        {warning,
         {"anzahl-negativ-deductions2.work.mealDays",
          [](TaxCase& c) { c.deductions2.work.mealDays = -1; },
          [](TaxCase& c) {
              c.deductions2.work.mealDays = -1;
              c.civilStatus = CivilStatus::ledig;
          }}},
        {warning,
         {"anzahl-negativ-li.commute1.workDays", [](TaxCase& c) { c.li->commute1.workDays = -1; },
          [](TaxCase& c) { c.deductions1.work.carWorkDays = -1; }, spotlessLiechtenstein}},
        {warning,
         {"betraege-weitere", [](TaxCase& c) { c.debts.resize(21, Debt{.interest = -1}); },
          [](TaxCase& c) { c.debts.resize(20, Debt{.interest = -1}); }}},
    };
}

TEST(AmountChecks, speakUp) { testing::expectAllChecks({"AmountChecks.cpp"}, allRows()); }

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

/// Kilometres, percentages, pieces, days and years have no scale to be out of.
bool isTooHigh(const std::string& path, const TaxCase& taxCase) {
    const auto notices = testing::reviewed(taxCase);
    const auto found = std::ranges::find(notices, "betrag-hoch-" + path, &Notice::id);
    return found != notices.end();
}

/// Asserts that one check tells of the field and calls it by a German name.
void expectNamed(const std::string& path, const TaxCase& taxCase) {
    const auto notices = testing::reviewed(taxCase);
    const auto found = std::ranges::find_if(notices, isOfAmountChecks);
    ASSERT_NE(found, notices.end()) << path;
    EXPECT_EQ(std::ranges::count_if(notices, isOfAmountChecks), 1) << path;
    EXPECT_EQ(found->path, path);
    EXPECT_TRUE(found->id.ends_with("-" + path)) << found->id;
    EXPECT_EQ(found->message.find("Ein Betrag"), std::string::npos) << path;
    const std::string field = path.substr(path.rfind('.') + 1);
    for (const std::string& text : {found->title, found->message}) {
        EXPECT_EQ(text.find(field), std::string::npos) << text;
        EXPECT_EQ(text.find("]."), std::string::npos) << text;
    }
}

TEST(AmountChecks, nameEveryNumberOfTheCaseInGerman) {
    for (const TaxRegion region : {TaxRegion::stGallen, TaxRegion::liechtenstein}) {
        TaxCase taxCase = withEverything(region);
        int numbers = 0;
        forEachNumber(taxCase, "", [&](const std::string& path, auto& number) {
            ++numbers;
            // The year is none of the household's numbers; a purchase has a check of its own.
            if (path == "year" || path == "vehicles[0].purchaseYear") {
                return;
            }
            const auto kept = number;
            number = -7;
            const bool tellsOfMinus = !mayBeNegative(path) && !isElsewhere(path, region);
            if (tellsOfMinus) {
                expectNamed(path, taxCase);
            } else {
                const auto notices = testing::reviewed(taxCase);
                EXPECT_TRUE(std::ranges::none_of(notices, isOfAmountChecks)) << path;
            }
            number = 200'000'000;
            if (isTooHigh(path, taxCase)) {
                expectNamed(path, taxCase);
            } else {
                EXPECT_TRUE(tellsOfMinus || isElsewhere(path, region)) << path << " has no name";
            }
            number = kept;
        });
        EXPECT_GT(numbers, 90);
    }
}

/// The walk above sees every number only while no list and no optional number is empty.
template <class T>
void expectFilled(const T& value, const std::string& path) {
    if constexpr (isOptional<T>) {
        using Inner = typename T::value_type;
        if constexpr (Record<
                          Inner> || std::is_same_v<Inner, Decimal> || std::is_same_v<Inner, int>) {
            ASSERT_TRUE(value) << path;
            expectFilled(*value, path);
        }
    } else if constexpr (isList<T>) {
        ASSERT_FALSE(value.empty()) << path;
        expectFilled(value[0], path);
    } else if constexpr (Record<T>) {
        forEachField(value, [&](std::string_view name, const auto& field) {
            expectFilled(field, path + "." + std::string(name));
        });
    }
}

TEST(AmountChecks, areTriedOnACaseWithEveryNumber) {
    TaxCase taxCase = withEverything(TaxRegion::liechtenstein);
    expectFilled(taxCase, "");
}

TEST(AmountChecks, keepTheirIdWhateverElseIsEntered) {
    TaxCase taxCase = spotlessHousehold();
    taxCase.income2.boardFees = -1;
    const std::string id = "betrag-negativ-income2.boardFees";
    EXPECT_TRUE(testing::reviewedIds(taxCase).contains(id));
    taxCase.income1.boardFees = -1;
    taxCase.income1.salaries[0].pensionBuyIn = -1;
    EXPECT_TRUE(testing::reviewedIds(taxCase).contains(id));
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

} // namespace

std::vector<testing::CheckRow> testing::amountRows() { return testing::withoutLevels(allRows()); }

} // namespace taxcore
