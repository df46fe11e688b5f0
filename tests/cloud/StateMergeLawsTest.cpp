// The laws of merging, over random states that two sides edited at random.

#include "Fiscarel_SG/cloud/StateMerge.h"
#include "Fiscarel_SG/store/DocumentLinks.h"
#include "tests/cloud/FlatState.h"
#include "tests/cloud/RandomEdits.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace fiscarel {

void PrintTo(const PersistedState& state, std::ostream* out) { *out << encodeState(state); }

namespace {

using namespace taxcore;
using testing::FlatState;
using testing::RandomEdits;

constexpr std::uint64_t tripleCount = 1'500;

struct Triple {
    PersistedState base;
    PersistedState ours;
    PersistedState theirs;
};

Triple triple(std::uint64_t seed) {
    RandomEdits edits(seed);
    Triple made;
    made.base = edits.state();
    made.ours = made.theirs = made.base;
    edits.edit(made.ours, edits.below(60));
    edits.edit(made.theirs, edits.below(60));
    return made;
}

std::string placeOf(const MergeConflict& conflict) {
    if (conflict.year == 0) {
        return conflict.path;
    }
    const std::string year = "cases[" + std::to_string(conflict.year) + "]";
    return conflict.path.empty() ? year : year + "." + conflict.path;
}

/// A state without links to documents that some state of the triple has and the merge has not.
PersistedState withoutLinks(PersistedState state, const std::set<Uuid>& gone) {
    for (auto& [year, taxCase] : state.cases) {
        for (const Uuid& document : gone) {
            clearDocumentLinks(taxCase, document);
        }
    }
    return state;
}

std::set<Uuid> goneDocuments(const Triple& triple, const PersistedState& merged) {
    std::set<Uuid> gone;
    for (const PersistedState* state : {&triple.base, &triple.ours, &triple.theirs}) {
        for (const StoredDocument& document : state->documents) {
            gone.insert(document.id);
        }
    }
    for (const StoredDocument& document : merged.documents) {
        gone.erase(document.id);
    }
    return gone;
}

/// The common state; what both sides added in its own right began as a new one.
PersistedState commonStart(const Triple& triple) {
    PersistedState base = triple.base;
    for (const auto& [year, ours] : triple.ours.cases) {
        if (const auto theirs = triple.theirs.cases.find(year);
            theirs != triple.theirs.cases.end()) {
            TaxCase& common = base.cases.try_emplace(year, TaxCase{.year = year}).first->second;
            if (ours.li && theirs->second.li && !common.li) {
                common.li.emplace();
            }
        }
    }
    return base;
}

bool same(const std::string* a, const std::string* b) {
    return (a == nullptr) == (b == nullptr) && (a == nullptr || *a == *b);
}

TEST(StateMergeLaws, aSideThatChangedNothingGivesWayWholly) {
    for (std::uint64_t seed = 0; seed < 200; ++seed) {
        const auto [base, ours, theirs] = triple(seed);
        const MergedState cases[] = {
            mergeStates(&base, base, theirs), mergeStates(&base, ours, base),
            mergeStates(&base, ours, ours),   mergeStates(nullptr, ours, ours),
            mergeStates(nullptr, {}, theirs), mergeStates(nullptr, ours, {}),
        };
        const PersistedState* expected[] = {&theirs, &ours, &ours, &ours, &theirs, &ours};
        for (std::size_t i = 0; i < std::size(cases); ++i) {
            EXPECT_EQ(cases[i].state, *expected[i]) << seed << " " << i;
            EXPECT_TRUE(cases[i].conflicts.empty()) << seed << " " << i;
        }
    }
}

/// Every place holds what the side that changed it made of it; where both did, and where a place
/// went on one side while the other changed something around it, there is a conflict.
TEST(StateMergeLaws, everyEditIsInTheResultOrInAConflict) {
    std::size_t edits = 0;
    std::size_t conflicts = 0;
    for (std::uint64_t seed = 0; seed < tripleCount; ++seed) {
        const Triple states = triple(seed);
        if (states.base == states.ours || states.base == states.theirs) {
            continue; // stays exactly, dead links and all
        }
        const MergedState merged = mergeStates(&states.base, states.ours, states.theirs);
        const auto gone = goneDocuments(states, merged.state);
        const FlatState base(withoutLinks(commonStart(states), gone));
        const FlatState ours(withoutLinks(states.ours, gone));
        const FlatState theirs(withoutLinks(states.theirs, gone));
        const FlatState result(merged.state);

        std::set<std::string> places;
        for (const FlatState* flat : {&base, &ours, &theirs, &result}) {
            for (const auto& [path, text] : flat->leaves) {
                places.insert(path);
            }
        }
        for (const std::string& place : places) {
            const auto* was = base.find(place);
            const auto* here = ours.find(place);
            const auto* there = theirs.find(place);
            const auto* now = result.find(place);
            edits += same(was, here) && same(was, there) ? 0U : 1U;
            EXPECT_TRUE(same(now, here) || same(now, there)) << seed << " " << place;
            const bool isCovered = std::ranges::any_of(merged.conflicts, [&](const auto& conflict) {
                return FlatState::isWithin(place, placeOf(conflict));
            });
            if (isCovered) {
                continue;
            }
            const bool oneSided = same(was, here) || same(was, there) || same(here, there);
            EXPECT_TRUE(oneSided && same(now, same(was, here) ? there : here))
                << seed << " " << place;
        }
        for (const MergeConflict& conflict : merged.conflicts) {
            const std::string place = placeOf(conflict);
            const auto here = ours.below(place);
            const auto there = theirs.below(place);
            EXPECT_NE(here, there) << seed << " " << place;
            EXPECT_NE(here, base.below(place)) << seed << " " << place;
            EXPECT_NE(there, base.below(place)) << seed << " " << place;
            EXPECT_EQ(conflict.ours.has_value(), !here.empty()) << seed << " " << place;
            EXPECT_EQ(conflict.theirs.has_value(), !there.empty()) << seed << " " << place;
        }
        conflicts += merged.conflicts.size();
        if (HasFailure()) {
            return;
        }
    }
    EXPECT_GT(edits, 10 * tripleCount);
    EXPECT_GT(conflicts, tripleCount);
}

} // namespace
} // namespace fiscarel
