#include "Fiscarel_SG/cloud/SharedState.h"

#include "tests/cloud/StatePrinting.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace fiscarel {
namespace {

PersistedState withCash(int francs) {
    PersistedState state;
    state.cases[2025] = taxcore::TaxCase{.year = 2025, .cash = francs};
    return state;
}

SharedStatePointer shared(const std::string& id, std::vector<std::string> lineage, int francs) {
    return std::make_shared<const SharedState>(
        SharedState{id, std::move(lineage), withCash(francs)});
}

TEST(SharedState, theBaseIsTheLastKnownStateThatTheCloudsCameFrom) {
    const auto first = shared("1", {}, 10);
    const auto second = shared("2", {"1"}, 20);
    const auto sent = shared("3", {"1", "2"}, 30); // whether it arrived is not known
    struct Row {
        const char* what;
        std::vector<SharedStatePointer> known;
        SharedStatePointer theirs;
        const char* base; ///< empty: none
        bool isBehind;
        int cash; ///< of the merged state; ours is 40
        std::size_t conflicts;
    };
    const std::vector<Row> rows{
        {"nothing new", {first}, first, "1", false, 40, 0},
        {"it had arrived", {second, sent}, sent, "3", false, 40, 0},
        {"it had not", {second, sent}, second, "2", false, 40, 0},
        {"another went on from it",
         {second, sent},
         shared("4", {"1", "2", "3"}, 50),
         "3",
         false,
         40,
         1},
        {"another was faster", {second, sent}, shared("5", {"1", "2"}, 50), "2", false, 40, 1},
        {"an old copy", {second}, first, "", true, 40, 0},
        {"others on top of an old copy", {second}, shared("6", {"1"}, 10), "", false, 40, 1},
        {"nothing known", {}, first, "", false, 40, 1},
        {"back to an older value", {first, second}, shared("7", {"1", "2"}, 10), "2", false, 40, 1},
    };
    for (const Row& row : rows) {
        const Reconciled result = reconcile(row.known, withCash(40), row.theirs);
        EXPECT_EQ(result.base ? result.base->id : "", row.base) << row.what;
        EXPECT_EQ(result.cloudIsBehind, row.isBehind) << row.what;
        EXPECT_EQ(result.merged.state, withCash(row.cash)) << row.what;
        EXPECT_EQ(result.merged.conflicts.size(), row.conflicts) << row.what;
        SharedState merged{.lineage = result.lineage};
        for (const SharedStatePointer& known : row.known) {
            EXPECT_TRUE(merged.comesFrom(known->id)) << row.what;
        }
        EXPECT_TRUE(merged.comesFrom(row.theirs->id)) << row.what;
    }
    EXPECT_TRUE(reconcile({first}, withCash(10), shared("2", {"1"}, 20)).merged.conflicts.empty());
    EXPECT_EQ(reconcile({first}, withCash(10), shared("2", {"1"}, 20), true).base, nullptr);
}

TEST(SharedState, aLineageHasAnEnd) {
    std::vector<std::string> many;
    for (int i = 0; i < 3'000; ++i) {
        many.push_back(std::to_string(i));
    }
    const Reconciled result = reconcile({}, withCash(1), shared("x", many, 1));
    EXPECT_EQ(result.lineage.size(), SharedState::longestLineage);
    EXPECT_EQ(result.lineage.back(), "x") << "the oldest are left out";
}

TEST(SharedState, readsWhatItWroteAndPlainStates) {
    const std::vector<std::string> lineage{SharedState::idOf("a"), SharedState::idOf("b")};
    const std::string text = SharedState::encode(lineage, withCash(5));
    const auto read = SharedState::decode(text, "id");
    ASSERT_TRUE(read);
    EXPECT_EQ(read->lineage, lineage);
    EXPECT_EQ(read->state, withCash(5));
    EXPECT_EQ(decodeState(text).value(), withCash(5)) << "a state file to everybody else";
    EXPECT_TRUE(SharedState::decode(encodeState(withCash(5)), "id")->lineage.empty());
    EXPECT_FALSE(SharedState::decode(text.substr(0, text.size() / 2), "id"));
}

} // namespace
} // namespace fiscarel
