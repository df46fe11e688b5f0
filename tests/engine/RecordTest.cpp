#include "TaxCore/result/Derivation.h"
#include "TaxCore/result/TaxResult.h"
#include "tests/support/RandomCase.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>
#include <sstream>

namespace taxcore {
namespace {

using testing::RandomCase;

template <class T>
inline constexpr bool isOptionalRecord = false;
template <Record T>
inline constexpr bool isOptionalRecord<std::optional<T>> = true;

/// Calls `visit(path, field)` for every value that is no record and no list.
template <class T, class Visit>
void forEachLeaf(T& value, const std::string& path, const Visit& visit) {
    if constexpr (Record<T>) {
        forEachField(value, [&](std::string_view name, auto& field) {
            forEachLeaf(field, (path.empty() ? "" : path + ".") + std::string(name), visit);
        });
    } else if constexpr (isList<T>) {
        for (std::size_t i = 0; i < value.size(); ++i) {
            forEachLeaf(value[i], path + "[" + std::to_string(i) + "]", visit);
        }
    } else if constexpr (isOptionalRecord<T>) {
        forEachLeaf(*value, path, visit);
    } else {
        visit(path, value);
    }
}

/// Gives every list one new item, and every optional record its new values.
template <Record T>
void grow(T& record) {
    forEachField(record, [](std::string_view, auto& field) {
        using Member = std::remove_reference_t<decltype(field)>;
        if constexpr (Record<Member>) {
            grow(field);
        } else if constexpr (isList<Member>) {
            grow(field.emplace_back());
        } else if constexpr (isOptionalRecord<Member>) {
            grow(field.emplace());
        }
    });
}

TaxCase grownCase() {
    TaxCase household{.year = 2025};
    grow(household);
    return household;
}

TEST(NewCase, hasItsInitialValuesAndNothingElse) {
    std::istringstream rows(R"(year 2025  municipality "Sevelen"  civilStatus "verheiratet"
        person1.confession "keine"  person1.employment "unselbstaendig"
        person1.hasPensionFund true  children[0].education "schule"
        children[0].livesInHousehold true  income1.salaries[0].isMainEmployment true
        income1.pensions[0].taxablePercent 100  deductions1.work.bicycleCost 700
        deductions1.work.carTripsPerDay 2  deductions1.work.meals "keine"
        securities[0].kind "konto"  securities[0].code ""  securities[0].owner "gemeinsam"
        securities[0].isSavingsAccount true  realEstate[0].canton "SG"
        realEstate[0].sharePerson1 50  realEstate[0].use "selbstbewohnt"
        realEstate[0].isPrimaryResidence true  realEstate[0].useFlatRateMaintenance true
        capitalPayments[0].kind "saeule3a"  li.commute1.mode "inland"  li.commute1.workDays 220
        li.useRealEstateFromList true)");
    std::map<std::string, std::string> initial;
    for (std::string path, value; rows >> path >> value;) {
        initial[path] = value;
    }
    const std::set<std::string> nothing{"0", "false", R"("")", "null"};
    std::set<Uuid> identities;
    TaxCase household = grownCase();
    forEachLeaf(household, "", [&](const std::string& path, const auto& field) {
        if constexpr (std::is_same_v<decltype(field), const Uuid&>) {
            EXPECT_NE(field, Uuid()) << path;
            EXPECT_TRUE(identities.insert(field).second) << path;
        } else {
            const std::string value = valueAt(household, path).value_or("");
            std::string row = path;
            std::ranges::replace(row, '2', '1'); // both persons start the same
            const auto expected = initial.find(row);
            EXPECT_TRUE(expected != initial.end() ? value == expected->second
                                                  : nothing.contains(value))
                << path << " " << value;
        }
    });
    EXPECT_EQ(identities.size(), 13U);
    for (const auto& [path, value] : initial) {
        EXPECT_TRUE(valueAt(household, path).has_value()) << path;
    }
}

TEST(EveryField, countsForEqualityHashDifferenceAndJson) {
    RandomCase random(11);
    for (int round = 0; round < 3; ++round) {
        TaxCase before = random.next();
        before.li.emplace();
        if (round == 0) {
            before = grownCase();
        }
        TaxCase after = before;
        int fields = 0;
        forEachLeaf(after, "", [&](const std::string& path, auto& field) {
            ++fields;
            const auto old = field;
            while (field == old) {
                random.fill(field);
            }
            EXPECT_NE(before, after) << path;
            EXPECT_NE(std::hash<TaxCase>{}(before), std::hash<TaxCase>{}(after)) << path;
            EXPECT_EQ(fromJson<TaxCase>(toJson(after)), after) << path;

            const std::vector<FieldChange> changes = diff(before, after);
            if (path.ends_with("].id")) { // another identity: one item went, one came
                EXPECT_EQ(changes.size(), 2U) << path;
            } else if (changes.size() != 1) {
                ADD_FAILURE() << path << ": " << changes.size() << " changes";
            } else {
                EXPECT_EQ(changes[0].path, path);
                EXPECT_EQ(changes[0].before.value_or("null"), valueAt(before, path)) << path;
                EXPECT_EQ(changes[0].after.value_or("null"), valueAt(after, path)) << path;
                EXPECT_NE(changes[0].before, changes[0].after) << path;
            }
            field = old;
        });
        EXPECT_GT(fields, 150);
        EXPECT_EQ(before, after);
        EXPECT_TRUE(diff(before, after).empty());
    }
}

std::string debtText(const Debt& debt) {
    return R"({"amount":)" + debt.amount.toString() + R"(,"creditor":")" + debt.creditor
           + R"(","id":")" + debt.id.toString() + R"(","interest":0,"isBusiness":false})";
}

TEST(Difference, matchesListItemsByIdentity) {
    TaxCase before = grownCase();
    before.li.reset();
    before.debts = {{.creditor = "A"}, {.creditor = "B", .amount = 100}, {.creditor = "C"}};
    before.householdDeductions.donations.resize(2);
    const Debt added{.creditor = "D"};

    struct Change {
        const char* what;
        void (*apply)(TaxCase&, const Debt&);
        std::vector<FieldChange> expected;
    };
    const std::vector<Change> table{
        {"a field of an item",
         [](TaxCase& c, const Debt&) { c.debts[1].interest = 5; },
         {{"debts[1].interest", "0", "5"}}},
        {"another notation of the same amount",
         [](TaxCase& c, const Debt&) { c.debts[1].amount = Decimal::parse("100.00").value(); },
         {}},
        {"an item inserted at the front",
         [](TaxCase& c, const Debt& debt) { c.debts.insert(c.debts.begin(), debt); },
         {{"debts[0]", std::nullopt, debtText(added)}}},
        {"an item removed",
         [](TaxCase& c, const Debt&) { c.debts.erase(c.debts.begin()); },
         {{"debts[0]", debtText(before.debts[0]), std::nullopt}}},
        {"items in another order",
         [](TaxCase& c, const Debt&) {
             std::rotate(c.debts.begin(), c.debts.begin() + 1, c.debts.end());
         },
         {}},
        {"an item moved and changed",
         [](TaxCase& c, const Debt&) {
             std::rotate(c.debts.begin(), c.debts.begin() + 1, c.debts.end());
             c.debts[2].creditor = "Z";
         },
         {{"debts[2].creditor", R"("A")", R"("Z")"}}},
        {"an item replaced by another",
         [](TaxCase& c, const Debt& debt) { c.debts[2] = debt; },
         {{"debts[2]", debtText(before.debts[2]), std::nullopt},
          {"debts[2]", std::nullopt, debtText(added)}}},
        {"an item of a list in a record, and a value that appears",
         [](TaxCase& c, const Debt&) {
             c.householdDeductions.donations[1].isPoliticalParty = true;
             c.vehicles[0].purchaseYear = 2020;
         },
         {{"householdDeductions.donations[1].isPoliticalParty", "false", "true"},
          {"vehicles[0].purchaseYear", std::nullopt, "2020"}}},
        {"another year and a text",
         [](TaxCase& c, const Debt&) {
             c.iban = "CH\"";
             c.year = 2026;
         },
         {{"year", "2025", "2026"}, {"iban", R"("")", R"("CH\"")"}}},
    };
    for (const auto& [what, apply, expected] : table) {
        SCOPED_TRACE(what);
        TaxCase after = before;
        apply(after, added);
        const std::vector<FieldChange> changes = diff(before, after);
        EXPECT_EQ(changes, expected);
        for (const FieldChange& change : changes) {
            if (change.after) {
                EXPECT_EQ(valueAt(after, change.path), change.after);
            }
        }
    }
    TaxCase after = before;
    after.li.emplace();
    ASSERT_EQ(diff(before, after).size(), 1U);
    EXPECT_EQ(diff(before, after)[0].path, "li");
    EXPECT_EQ(diff(before, after)[0].after, valueAt(after, "li"));
    EXPECT_EQ(diff(after, before)[0].before, valueAt(after, "li"));
}

TEST(ValueAt, answersOnlyForPathsThatLeadSomewhere) {
    TaxCase household = grownCase();
    household.region = TaxRegion::liechtenstein;
    household.li->commute1.to = "Vaduz";
    household.debts.resize(11);
    household.debts[10].amount = 7;
    EXPECT_EQ(valueAt(household, "region"), R"("li")");
    EXPECT_EQ(valueAt(household, "li.commute1.to"), R"("Vaduz")");
    EXPECT_EQ(valueAt(household, "debts[10].amount"), "7");
    EXPECT_EQ(valueAt(household, ""), toJson(household, JsonStyle::compact));
    household.li.reset();
    for (const char* path :
         {"nothing", "Cash", "cash.x", "cash[0]", "income1.", "income", "debts[11]", "debts[-1]",
          "debts[]", "debts[x]", "debts[0", "debts[ 0]", "debts.0", "debts[0].nothing",
          "debts[99999999999999999999]", "li.commute1", "income1..salaries", "iban.size"}) {
        EXPECT_EQ(valueAt(household, path), std::nullopt) << path;
    }
}

TEST(Household, knowsItsAdultsDeductibleChildrenAndTariff) {
    using enum CivilStatus;
    using enum ChildEducation;
    const struct {
        CivilStatus status;
        std::vector<ChildEducation> children;
        bool joint;
        bool singleParent;
        TariffKind tariff;
        std::vector<int> deductible; ///< positions
    } table[] = {{verheiratet, {}, true, false, TariffKind::joint, {}},
                 {verheiratet, {keine, schule}, true, false, TariffKind::joint, {1}},
                 {eingetragenePartnerschaft, {}, true, false, TariffKind::joint, {}},
                 {eingetragenePartnerschaft, {vorschule}, true, false, TariffKind::joint, {0}},
                 {ledig, {}, false, false, TariffKind::single, {}},
                 {ledig, {ausbildung}, false, true, TariffKind::joint, {0}},
                 {getrennt, {}, false, false, TariffKind::single, {}},
                 {getrennt, {schule, keine, vorschule}, false, true, TariffKind::joint, {0, 2}},
                 {geschieden, {keine, keine}, false, false, TariffKind::single, {}},
                 {verwitwet, {keine}, false, false, TariffKind::single, {}},
                 {verwitwet, {keine, ausbildung}, false, true, TariffKind::joint, {1}}};
    for (const auto& row : table) {
        TaxCase household{.civilStatus = row.status};
        for (const ChildEducation education : row.children) {
            household.children.push_back({.education = education, .livesInHousehold = false});
        }
        SCOPED_TRACE(std::string(rawValue(row.status)) + " " + std::to_string(row.children.size()));
        EXPECT_EQ(household.isJoint(), row.joint);
        EXPECT_EQ(household.isSingleParent(), row.singleParent);
        EXPECT_EQ(household.tariffKind(), row.tariff);
        ASSERT_EQ(household.persons().size(), row.joint ? 2U : 1U);
        EXPECT_EQ(&household.persons().front().get(), &household.person1);
        EXPECT_EQ(&household.persons().back().get(),
                  row.joint ? &household.person2 : &household.person1);
        std::vector<int> deductible;
        for (const Child& child : household.deductibleChildren()) {
            deductible.push_back(static_cast<int>(&child - household.children.data()));
        }
        EXPECT_EQ(deductible, row.deductible);
    }
}

TEST(Household, computesNetAmountsAndNames) {
    using namespace literals;
    const struct {
        SalaryCertificate salary;
        Decimal net;
    } salaries[] = {
        {{.grossSalary = 88'412.35_dec,
          .socialContributions = 5'658.40_dec,
          .pensionContributions = 4'200_dec,
          .pensionBuyIn = 10'000_dec},
         68'553.95_dec},
        {{.grossSalary = 100, .socialContributions = 60, .pensionContributions = 40}, 0},
        {{.grossSalary = 100, .socialContributions = 60, .pensionContributions = 41}, 0},
        {{.grossSalary = 100, .flatRateExpenses = 30}, 100},
        {{.grossSalary = 100, .netSalaryOverride = 0_dec}, 0},
        {{.grossSalary = 100, .pensionBuyIn = 10, .netSalaryOverride = 77.5_dec}, 77.5_dec},
        {{}, 0},
    };
    for (const auto& [salary, net] : salaries) {
        EXPECT_EQ(salary.netSalary(), net) << net.toString();
    }
    EXPECT_EQ((MedicalCost{.gross = 120.50_dec, .reimbursed = 100}.selfPaid()), 20.5_dec);
    EXPECT_EQ((MedicalCost{.gross = 100, .reimbursed = 100.05_dec}.selfPaid()), 0);

    EXPECT_EQ((Person{.firstName = "Ursina", .lastName = "Gähwiler"}.displayName()),
              "Ursina Gähwiler");
    EXPECT_EQ(Person{.firstName = "Ursina"}.displayName(), "Ursina");
    EXPECT_EQ(Person{.lastName = "Gähwiler"}.displayName(), "Gähwiler");
    EXPECT_EQ(Person{}.displayName(), "Person");

    EXPECT_FALSE(SalaryCertificate{}.isLiechtensteinEmployer());
    EXPECT_TRUE(SalaryCertificate{.employerInLiechtenstein = true}.isLiechtensteinEmployer());

    TaxCase household;
    EXPECT_EQ(household.liExtras(), LIExtras());
    EXPECT_FALSE(household.li.has_value()) << "asking for the defaults enters nothing";
    household.setLiExtras({.householdGoods = 5'000});
    EXPECT_EQ(household.liExtras().householdGoods, 5'000);
    EXPECT_EQ(valueAt(household, "li.householdGoods"), "5000");
}

template <class E>
std::string rawValues() {
    std::string values;
    for (const E value : allValues<E>()) {
        values += "|" + std::string(rawValue(value));
    }
    return values;
}

TEST(Differences, keepItemsOfOneIdentityApart) {
    TaxCase before;
    before.debts.resize(2);
    before.debts[1].id = before.debts[0].id; // somebody copied an item by hand
    before.debts[0].amount = 1;
    before.debts[1].amount = 2;
    TaxCase after = before;
    after.debts[0].amount = 9;
    EXPECT_EQ(diff(before, after), (std::vector<FieldChange>{{"debts[0].amount", "1", "9"}}));
    after = before;
    after.debts.pop_back();
    ASSERT_EQ(diff(before, after).size(), 1U);
    EXPECT_EQ(diff(before, after)[0].path, "debts[1]");
    for (const char* nowhere : {".cash", "debts[0]amount", "debts[0]", "debts.amount", "cash."}) {
        EXPECT_EQ(valueAt(TaxCase(), nowhere), std::nullopt) << nowhere;
    }
}

TEST(Enumerations, areStoredUnderTheirRawValues) {
    EXPECT_EQ(rawValues<TaxRegion>(), "|sg|li");
    EXPECT_EQ(rawValues<AssetCode>(), "||G|N|E|S|BP|BG");
    EXPECT_EQ(rawValues<CommuteVehicle>(), "|keine|oev|velo|auto|motorrad");
    EXPECT_EQ(rawValues<CapitalPayment::Kind>(), "|saeule3a|saeule2|uebrige");

    using All =
        boost::mp11::mp_list<CivilStatus, Confession, EmploymentKind, ChildEducation, Owner,
                             TaxRegion, TariffKind, AssetKind, AssetCode, PropertyUse,
                             CapitalPayment::Kind, MealSituation, CommuteVehicle, LICommute::Mode,
                             Jurisdiction, TaxLine::Kind, Notice::Level, DerivationStep::Kind>;
    boost::mp11::mp_for_each<boost::mp11::mp_transform<std::type_identity, All>>([](auto type) {
        using E = typename decltype(type)::type;
        std::set<std::string_view> labels;
        for (const E value : allValues<E>()) {
            EXPECT_EQ(enumFromRaw<E>(rawValue(value)), value) << rawValue(value);
            EXPECT_FALSE(label(value).empty()) << rawValue(value);
            EXPECT_TRUE(labels.insert(label(value)).second) << label(value);
        }
        for (const char* unknown : {"KEINE", " sg", "sg ", "St.Gallen", "?"}) {
            EXPECT_EQ(enumFromRaw<E>(unknown), std::nullopt) << rawValues<E>();
        }
    });
    EXPECT_EQ(enumFromRaw<TaxRegion>(""), std::nullopt);
}

} // namespace
TEST(RecordPath, itemsAreFoundByPositionAndIdentity) {
    TaxCase household{.year = 2025};
    household.debts = {{.creditor = "A", .amount = 1}, {.creditor = "B", .amount = 2}};
    const std::string lasting = lastingPath(household, "debts[1].amount").value();
    EXPECT_EQ(lasting, "debts[" + household.debts[1].id.toString() + "].amount");
    std::swap(household.debts[0], household.debts[1]);
    EXPECT_EQ(valueAt(household, lasting), "2");
    EXPECT_EQ(countedPath(household, lasting), "debts[0].amount");
    EXPECT_EQ(countedPath(household, "cash"), "cash");
    household.debts.clear();
    for (const std::string& path :
         {lasting, std::string("debts[0]"), std::string("debts[]"), std::string("debts[1x].amount"),
          std::string("debts"), std::string("")}) {
        EXPECT_EQ(countedPath(household, path).has_value(), path.size() < 6) << path;
    }
}

TEST(RecordPath, writesAFieldFromItsText) {
    TaxCase household{.year = 2025};
    household.income1.salaries.emplace_back();
    struct Row {
        const char* path;
        const char* text;
        const char* json; ///< null: refused
    };
    const std::vector<Row> rows{
        {"cash", "12.50", "12.5"},
        {"cash", "12,50", nullptr},
        {"cash", "", nullptr},
        {"civilStatus", "verheiratet", R"("verheiratet")"},
        {"civilStatus", "vermählt", nullptr},
        {"person1.birthDate", "1984-03-01", R"("1984-03-01T00:00:00Z")"},
        {"person1.birthDate", "1984-02-30", nullptr},
        {"person1.firstName", "A\"ä", R"("A\"ä")"},
        {"person1.hasPensionFund", "false", "false"},
        {"person1.hasPensionFund", "nein", nullptr},
        {"householdDeductions.supportedPersons", "2", "2"},
        {"householdDeductions.supportedPersons", "2.5", nullptr},
        {"householdDeductions.actualAssetManagementCosts", "7", "7"},
        {"income1.salaries[0].netSalaryOverride", "x", nullptr},
        {"income1.salaries[1].grossSalary", "1", nullptr},
        {"income1", "1", nullptr},
        {"li.commute1.workDays", "3", nullptr},
    };
    for (const Row& row : rows) {
        TaxCase changed = household;
        ASSERT_EQ(setValueAt(changed, row.path, row.text), row.json != nullptr)
            << row.path << " " << row.text;
        if (row.json != nullptr) {
            EXPECT_EQ(valueAt(changed, row.path), row.json);
        } else {
            EXPECT_EQ(changed, household) << row.path;
        }
    }
}

} // namespace taxcore
