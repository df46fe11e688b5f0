#include "Fiscarel_SG/cloud/StateMerge.h"

#include "TaxCore/demo/DemoData.h"
#include "tests/cloud/StatePrinting.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

namespace fiscarel {

namespace {

using namespace taxcore;

Uuid id(char digit) {
    return Uuid::parse("00000000-0000-0000-0000-00000000000" + std::string(1, digit)).value();
}
std::string at(const std::string& list, char digit) {
    return list + "[" + id(digit).toString() + "]";
}

Debt debt(char digit, int amount = 0) {
    return {.id = id(digit), .creditor = "Bank", .amount = amount};
}
StoredDocument document(char digit) {
    StoredDocument made;
    made.id = id(digit);
    made.year = 2025;
    made.title = "Beleg";
    return made;
}

/// Three debts, two documents of which a donation names the first, two ticks.
PersistedState common() {
    PersistedState state;
    TaxCase& taxCase = state.cases[2025] = TaxCase{.year = 2025};
    taxCase.debts = {debt('1', 100), debt('2', 200), debt('3', 300)};
    taxCase.householdDeductions.donations = {{.id = id('9'), .amount = 50, .documentID = id('A')}};
    state.documents = {document('A'), document('B')};
    state.transferChecked[2025] = {"a=1", "b=2"};
    return state;
}

using Edit = std::function<void(PersistedState&)>;
Edit inCase(std::function<void(TaxCase&)> edit) {
    return [edit](PersistedState& state) { edit(state.cases[2025]); };
}
Edit inDebts(std::function<void(std::vector<Debt>&)> edit) {
    return inCase([edit](TaxCase& taxCase) { edit(taxCase.debts); });
}
const Edit nothing = [](PersistedState&) {};
const Edit yearGone = [](PersistedState& state) { state.cases.erase(2025); };
const Edit firstDocumentGone = [](PersistedState& state) {
    state.documents.erase(state.documents.begin());
    state.cases[2025].householdDeductions.donations[0].documentID.reset();
};
const Edit debtGone = inDebts([](auto& debts) { debts.erase(debts.begin() + 1); });
const Edit debtChanged = inDebts([](auto& debts) { debts[1].amount = 250; });
const Edit lastDebtFirst =
    inDebts([](auto& debts) { std::ranges::rotate(debts, debts.end() - 1); });
Edit debtAdded(std::ptrdiff_t position, char digit) {
    return inDebts([=](auto& debts) { debts.insert(debts.begin() + position, debt(digit)); });
}
Edit cash(int amount) {
    return inCase([=](TaxCase& taxCase) { taxCase.cash = amount; });
}
Edit applied(std::vector<std::string> paths) {
    return [=](PersistedState& state) {
        auto& values = state.documents[1].applied;
        values.reset();
        for (const std::string& path : paths) {
            values = values.value_or(std::vector<AppliedValue>{});
            values->push_back({.path = path, .value = "1"});
        }
    };
}
Edit commute(const std::string& from, const std::string& to) {
    return inCase([=](TaxCase& taxCase) {
        taxCase.li.emplace();
        taxCase.li->commute1.from = from;
        taxCase.li->commute1.to = to;
    });
}
Edit both(Edit first, Edit second) {
    return [=](PersistedState& state) {
        first(state);
        second(state);
    };
}

struct MergeRow {
    std::string name;
    Edit before = nothing; ///< makes the common state
    Edit ours;
    Edit theirs;
    Edit expected;                        ///< made in the common state
    std::vector<MergeConflict> conflicts; ///< without the texts of whole items: "…"
};

MergeConflict conflict(int year, std::string path, std::optional<std::string> ours,
                       std::optional<std::string> theirs) {
    return {year, std::move(path), std::move(ours), std::move(theirs)};
}

std::vector<MergeRow> fieldRows() {
    return {
        {"different fields", nothing, cash(7), debtChanged, both(cash(7), debtChanged)},
        {"same field, same value", nothing, cash(7), both(cash(7), debtChanged),
         both(cash(7), debtChanged)},
        {"same field", nothing, cash(7), cash(8), cash(7), {conflict(2025, "cash", "7", "8")}},
        {"back to empty against a new value",
         cash(5),
         cash(0),
         cash(8),
         cash(0),
         {conflict(2025, "cash", "0", "8")}},
        {"optional emptied against a new value",
         inCase([](TaxCase& taxCase) { taxCase.parish = "evang"; }),
         inCase([](TaxCase& taxCase) { taxCase.parish.reset(); }),
         inCase([](TaxCase& taxCase) { taxCase.parish = "kath"; }),
         inCase([](TaxCase& taxCase) { taxCase.parish.reset(); }),
         {conflict(2025, "parish", {}, "\"kath\"")}},
        {"optional record added by both", nothing, commute("Buchs", ""), commute("", "Vaduz"),
         commute("Buchs", "Vaduz")},
        {"optional record removed against changed",
         commute("Buchs", "Vaduz"),
         inCase([](TaxCase& taxCase) { taxCase.li.reset(); }),
         commute("Buchs", "Triesen"),
         commute("Buchs", "Triesen"),
         {conflict(2025, "li", {}, "…")}},
        {"year added by both, one with entries", nothing,
         [](PersistedState& state) { state.cases[2026] = TaxCase{.year = 2026}; },
         [](PersistedState& state) { state.cases[2026] = DemoData::family(2026); },
         [](PersistedState& state) { state.cases[2026] = DemoData::family(2026); }},
        {"year removed, unchanged there", nothing, both(cash(1), yearGone),
         [](PersistedState& state) { state.documents[1].note = "neu"; },
         both(yearGone, [](PersistedState& state) { state.documents[1].note = "neu"; })},
        {"year removed against edited",
         nothing,
         yearGone,
         cash(3),
         cash(3),
         {conflict(2025, "", {}, "…")}},
        {"year edited against removed",
         nothing,
         cash(3),
         yearGone,
         cash(3),
         {conflict(2025, "", "…", {})}},
        {"newer version", nothing, cash(3), [](PersistedState& state) { state.version = 2; },
         both(cash(3), [](PersistedState& state) { state.version = 2; })},
    };
}

std::vector<MergeRow> listRows() {
    return {
        {"items added behind the same one", nothing, debtAdded(1, '4'), debtAdded(1, '5'),
         both(debtAdded(1, '4'), debtAdded(1, '5'))},
        {"items added at the front and at the end", nothing, debtAdded(0, '4'), debtAdded(3, '5'),
         both(debtAdded(3, '5'), debtAdded(0, '4'))},
        {"added behind one that was removed", nothing, debtGone, debtAdded(2, '5'),
         both(debtGone, debtAdded(1, '5'))},
        {"moved there, changed here", nothing, debtChanged, lastDebtFirst,
         both(debtChanged, lastDebtFirst)},
        {"moved there, added here", nothing, debtAdded(1, '4'), lastDebtFirst,
         both(debtAdded(1, '4'), lastDebtFirst)},
        {"moved on both sides", nothing, inDebts([](auto& debts) { std::ranges::reverse(debts); }),
         lastDebtFirst, inDebts([](auto& debts) { std::ranges::reverse(debts); })},
        {"item removed by both", nothing, both(debtGone, cash(1)), debtGone,
         both(debtGone, cash(1))},
        {"item removed, moved there", nothing, debtGone, lastDebtFirst,
         both(debtGone, lastDebtFirst)},
        {"item removed against changed",
         nothing,
         debtGone,
         debtChanged,
         debtChanged,
         {conflict(2025, at("debts", '2'), {}, "…")}},
        {"item changed against removed",
         nothing,
         debtChanged,
         debtGone,
         debtChanged,
         {conflict(2025, at("debts", '2'), "…", {})}},
        {"field of an item",
         nothing,
         debtChanged,
         inDebts([](auto& debts) {
             debts[1].amount = 1;
             debts[1].interest = 2;
         }),
         inDebts([](auto& debts) {
             debts[1].amount = 250;
             debts[1].interest = 2;
         }),
         {conflict(2025, at("debts", '2') + ".amount", "250", "1")}},
        {"ticks", nothing,
         [](PersistedState& state) {
             state.transferChecked[2025] = {"a=1", "b=3"};
         },
         [](PersistedState& state) {
             state.transferChecked[2025] = {"b=2", "c=4"};
         },
         [](PersistedState& state) {
             state.transferChecked[2025] = {"b=3", "c=4"};
         }},
        {"ticks all taken away", nothing,
         [](PersistedState& state) { state.transferChecked.erase(2025); },
         [](PersistedState& state) { state.transferChecked[2025].insert("c=4"); },
         [](PersistedState& state) { state.transferChecked[2025] = {"c=4"}; }},
    };
}

std::vector<MergeRow> documentRows() {
    const auto title = [](const char* text) -> Edit {
        return [=](PersistedState& state) { state.documents[0].title = text; };
    };
    const auto added = [](const char* text) -> Edit {
        return [=](PersistedState& state) {
            state.documents.push_back(document('C'));
            state.documents.back().title = text;
        };
    };
    const Edit linked = inCase([](TaxCase& taxCase) {
        taxCase.householdDeductions.medicalCosts = {{.id = id('8'), .documentID = id('A')}};
    });
    return {
        {"same new document, one title empty", nothing, added(""), added("Rechnung"),
         added("Rechnung")},
        {"same new document, two titles",
         nothing,
         added("Bon"),
         added("Rechnung"),
         added("Bon"),
         {conflict(0, at("documents", 'C') + ".title", "\"Bon\"", "\"Rechnung\"")}},
        {"document removed: its links go", nothing, cash(1), firstDocumentGone,
         both(cash(1), firstDocumentGone)},
        {"document removed without its links", nothing, cash(1),
         [](PersistedState& state) { state.documents.erase(state.documents.begin()); },
         both(cash(1), firstDocumentGone)},
        {"document removed, item with its link removed there", nothing, firstDocumentGone,
         inCase([](TaxCase& taxCase) { taxCase.householdDeductions.donations.clear(); }),
         both(firstDocumentGone,
              inCase([](TaxCase& taxCase) { taxCase.householdDeductions.donations.clear(); }))},
        {"document removed against renamed",
         nothing,
         title("Quittung"),
         firstDocumentGone,
         both(title("Quittung"), inCase([](TaxCase& taxCase) {
                  taxCase.householdDeductions.donations[0].documentID.reset();
              })),
         {conflict(0, at("documents", 'A'), "…", {})}},
        {"document removed against linked anew",
         nothing,
         firstDocumentGone,
         linked,
         both(linked, inCase([](TaxCase& taxCase) {
                  taxCase.householdDeductions.donations[0].documentID.reset();
              })),
         {conflict(0, at("documents", 'A'), {}, "…")}},
        {"values taken over on both sides", applied({"cash"}), applied({"cash", "iban"}),
         applied({"otherAssets"}), applied({"otherAssets", "iban"})},
        {"values taken over first on both sides", nothing, applied({"cash"}),
         applied({"otherAssets"}), applied({"otherAssets", "cash"})},
        {"values taken back against taken over",
         applied({"cash"}),
         applied({}),
         applied({"cash", "iban"}),
         applied({"cash", "iban"}),
         {conflict(0, at("documents", 'B') + ".applied", {}, "…")}},
        {"value of an item that is gone", applied({at("debts", '2') + ".amount"}), debtGone,
         cash(1), both(debtGone, cash(1))},
    };
}

void check(const std::vector<MergeRow>& rows) {
    for (const MergeRow& row : rows) {
        PersistedState base = common();
        row.before(base);
        PersistedState ours = base;
        row.ours(ours);
        PersistedState theirs = base;
        row.theirs(theirs);
        PersistedState expected = base;
        row.expected(expected);
        MergedState merged = mergeStates(&base, ours, theirs);
        EXPECT_EQ(merged.state, expected) << row.name;
        for (MergeConflict& found : merged.conflicts) {
            for (auto* text : {&found.ours, &found.theirs}) {
                *text = *text && text->value().find_first_of("{[") == 0 ? "…" : *text;
            }
        }
        EXPECT_EQ(merged.conflicts, row.conflicts) << row.name;
    }
}

TEST(StateMerge, fieldsAndYears) { check(fieldRows()); }
TEST(StateMerge, listsOfItems) { check(listRows()); }
TEST(StateMerge, documents) { check(documentRows()); }

TEST(StateMerge, withoutACommonPastNothingGoes) {
    PersistedState ours = common();
    PersistedState theirs = common();
    debtGone(ours);
    firstDocumentGone(theirs);
    cash(7)(ours);
    cash(8)(theirs);
    theirs.cases[2025].iban = "CH93";
    const MergedState merged = mergeStates(nullptr, ours, theirs);
    PersistedState expected = common();
    cash(7)(expected);
    expected.cases[2025].iban = "CH93";
    EXPECT_EQ(merged.state, expected);
    EXPECT_EQ(merged.conflicts, (std::vector{conflict(2025, "cash", "7", "8")}));
}

TEST(StateMerge, theOtherChoiceNeedsThePlaceAsItWas) {
    struct Row {
        MergeConflict conflict;
        Edit now; ///< the state in which theirs is chosen
        bool taken;
        Edit expected; ///< made in that state
    };
    const Edit changed = both(debtChanged, cash(7));
    const PersistedState state = [&] {
        PersistedState made = common();
        changed(made);
        return made;
    }();
    const std::string json = toJson(state.cases.at(2025), JsonStyle::compact);
    const std::string amount = at("debts", '2') + ".amount";
    const Row rows[] = {
        {conflict(2025, "cash", "7", "8"), changed, true, cash(8)},
        {conflict(2025, "cash", "7", "8"), both(changed, cash(8)), true, nothing},
        {conflict(2025, "cash", "7", "8"), both(changed, cash(9)), false, nothing},
        {conflict(2025, amount, "250", "1"), changed, true,
         inDebts([](auto& debts) { debts[1].amount = 1; })},
        {conflict(2025, amount, "250", "1"), both(changed, lastDebtFirst), true,
         inDebts([](auto& debts) { debts[2].amount = 1; })},
        {conflict(2025, amount, "250", "1"), both(changed, debtGone), false, nothing},
        {conflict(2025, amount, "250", "no number"), changed, false, nothing},
        {conflict(2025, "nowhere", "1", "2"), changed, false, nothing},
        {conflict(2025, "", json, {}), changed, true, yearGone},
        {conflict(2025, "", json, {}), both(changed, cash(9)), false, nothing},
        {conflict(2025, "", json, {}), yearGone, false, nothing},
        {conflict(2025, "", {}, json), changed, true, nothing},
        {conflict(0, at("documents", 'B') + ".amount", {}, "12.5"), changed, true,
         [](PersistedState& made) { made.documents[1].amount = Decimal::parse("12.5").value(); }},
        {conflict(0, at("documents", 'A') + ".title", "\"Beleg\"", "\"a\\\"b\""), changed, true,
         [](PersistedState& made) { made.documents[0].title = "a\"b"; }},
    };
    for (const Row& row : rows) {
        PersistedState chosen = common();
        row.now(chosen);
        PersistedState expected = chosen;
        row.expected(expected);
        EXPECT_EQ(takeTheirs(chosen, row.conflict), row.taken)
            << ::testing::PrintToString(row.conflict);
        EXPECT_EQ(chosen, expected) << ::testing::PrintToString(row.conflict);
    }
}

TEST(StateMerge, theirRemovalOfADocumentTakesItsLinksAlong) {
    PersistedState base = common();
    PersistedState ours = base;
    ours.documents[0].note = "wichtig";
    ours.cases[2025].householdDeductions.donations[0].amount = 60;
    PersistedState theirs = base;
    theirs.documents.erase(theirs.documents.begin());
    MergedState merged = mergeStates(&base, ours, theirs);
    ASSERT_EQ(merged.conflicts.size(), 1U);
    EXPECT_EQ(merged.state, ours);
    ASSERT_TRUE(takeTheirs(merged.state, merged.conflicts[0]));
    firstDocumentGone(ours);
    EXPECT_EQ(merged.state, ours);
}

TEST(StateMerge, whatIsLostBetweenTwoStates) {
    const auto documents = [](std::size_t count) -> Edit {
        return [=](PersistedState& state) { state.documents.resize(count); };
    };
    const auto family = [](PersistedState& state) { state.cases[2025] = DemoData::family(2025); };
    const auto debts = [](std::size_t count) -> Edit { // with two filled fields each
        return inDebts([=](auto& list) {
            list.clear();
            for (std::size_t i = 0; i < count; ++i) {
                list.push_back(debt(static_cast<char>('0' + i), 100));
            }
        });
    };
    const auto noDonation =
        inCase([](TaxCase& taxCase) { taxCase.householdDeductions.donations.clear(); });
    struct Row {
        std::string name;
        Edit before;
        Edit after; ///< made in the state before
        std::vector<int> years;
        std::vector<int> halved;
        std::size_t fields;
        std::size_t documents;
        bool isGrave;
    };
    const Row rows[] = {
        {"nothing", family, nothing, {}, {}, 0, 0, false},
        {"a change is no loss", nothing, debtChanged, {}, {}, 0, 0, false},
        {"a field", nothing, inDebts([](auto& list) { list[0].amount = 0; }), {}, {}, 1, 0, false},
        {"an item", nothing, debtGone, {}, {}, 2, 0, false},
        {"moved", nothing, lastDebtFirst, {}, {}, 0, 0, false},
        {"a year", nothing, yearGone, {2025}, {}, 8, 0, true},
        {"a year set back",
         nothing,
         inCase([](TaxCase& taxCase) { taxCase = TaxCase{.year = 2025}; }),
         {2025},
         {},
         8,
         0,
         true},
        {"an empty year",
         [](PersistedState& state) { state.cases[2030] = TaxCase{.year = 2030}; },
         [](PersistedState& state) { state.cases.erase(2030); },
         {},
         {},
         0,
         0,
         false},
        {"half of a year", both(noDonation, debts(10)), debts(5), {}, {2025}, 10, 0, true},
        {"less than half",
         both(noDonation, debts(10)),
         both(debts(6), inDebts([](auto& list) { list[0].amount = 0; })),
         {},
         {},
         9,
         0,
         false},
        {"half of few fields", both(noDonation, debts(8)), debts(4), {}, {}, 8, 0, false},
        {"half of a year among others",
         both(both(noDonation, debts(10)),
              [](PersistedState& state) { state.cases[2024] = DemoData::family(2024); }),
         debts(5),
         {},
         {2025},
         10,
         0,
         true},
        {"half of the documents", documents(6), documents(3), {}, {}, 0, 3, true},
        {"less than half of the documents", documents(7), documents(4), {}, {}, 0, 3, false},
        {"both documents", nothing, documents(0), {}, {}, 0, 2, false},
        {"three documents", documents(3), documents(0), {}, {}, 0, 3, true},
    };
    for (const Row& row : rows) {
        PersistedState before = common();
        row.before(before);
        PersistedState after = before;
        row.after(after);
        const StateLoss loss = lossBetween(before, after);
        EXPECT_EQ(loss.years, row.years) << row.name;
        EXPECT_EQ(loss.halvedYears, row.halved) << row.name;
        EXPECT_EQ(loss.fields, row.fields) << row.name;
        EXPECT_EQ(loss.documents, row.documents) << row.name;
        EXPECT_EQ(loss.documentsBefore, before.documents.size()) << row.name;
        EXPECT_EQ(loss.isGrave(), row.isGrave) << row.name;
    }
}

} // namespace
} // namespace fiscarel
