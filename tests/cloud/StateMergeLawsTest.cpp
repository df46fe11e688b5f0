// The laws of merging, over random states that two sides edited at random.

#include "Fiscarel_SG/cloud/StateMerge.h"
#include "Fiscarel_SG/store/DocumentLinks.h"
#include "TaxCore/base/RecordMerge.h"
#include "tests/cloud/FlatState.h"
#include "tests/cloud/RandomEdits.h"
#include "tests/cloud/StatePrinting.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace fiscarel {

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

/// Whether the place is a document that a side, but not the common state, has a link to somewhere.
bool isLinkedAnew(const std::string& place, const FlatState& base, const FlatState& side) {
    constexpr std::string_view documents = "documents[";
    return place.starts_with(documents) && std::ranges::any_of(side.leaves, [&](const auto& leaf) {
               return leaf.first.ends_with(".documentID")
                      && leaf.second.find(place.substr(documents.size(), 36)) == 1
                      && !same(base.find(leaf.first), &leaf.second);
           });
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
            EXPECT_TRUE(here != base.below(place) || isLinkedAnew(place, base, ours)) << place;
            EXPECT_TRUE(there != base.below(place) || isLinkedAnew(place, base, theirs)) << place;
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

/// Everything as it is in a new record, with the items that are there.
template <class T>
void makeNew(T& value) {
    if constexpr (Record<T>) {
        const T fresh;
        boost::mp11::mp_for_each<Fields<T>>([&](auto field) {
            using Member = std::remove_cvref_t<decltype(value.*field.pointer)>;
            if constexpr (Record<Member> || isList<Member> || detail::mergesWithin<Member>) {
                makeNew(value.*field.pointer);
            } else if (std::string_view(field.name) != "id") {
                value.*field.pointer = fresh.*field.pointer;
            }
        });
    } else if constexpr (isOptional<T>) {
        if (value) {
            makeNew(*value);
        }
    } else if constexpr (isList<T>) {
        if constexpr (Identified<typename T::value_type>) {
            std::ranges::for_each(value, [](auto& item) { makeNew(item); });
        }
    }
}

TEST(StateMergeLaws, withoutACommonPastAllStaysThatEitherHas) {
    std::size_t yielded = 0;
    std::size_t conflicts = 0;
    for (std::uint64_t seed = 0; seed < 300 && !HasFailure(); ++seed) {
        const auto [unknown, mine, others] = triple(seed);
        const MergedState merged = mergeStates(nullptr, mine, others);
        PersistedState asNew = mine;
        makeNew(asNew.documents);
        for (auto& [year, taxCase] : asNew.cases) {
            makeNew(taxCase);
        }
        const FlatState fresh(asNew);
        const FlatState ours(mine);
        const FlatState theirs(others);
        const FlatState result(merged.state);
        std::set<std::string> expected;
        for (const auto& [place, text] : result.leaves) {
            const auto* here = ours.find(place);
            const auto* there = theirs.find(place);
            if (same(here, there) || !there || (here && !same(here, fresh.find(place)))) {
                EXPECT_TRUE(same(&text, here)) << seed << " " << place;
                if (!same(here, there) && there && !same(there, fresh.find(place))) {
                    expected.insert(place);
                }
            } else {
                EXPECT_EQ(text, *there) << seed << " " << place;
                yielded += here ? 1U : 0U;
            }
        }
        for (const FlatState* side : {&ours, &theirs}) {
            for (const auto& [place, text] : side->leaves) {
                EXPECT_TRUE(result.find(place)) << seed << " " << place;
            }
        }
        std::set<std::string> shown;
        for (const MergeConflict& conflict : merged.conflicts) {
            shown.insert(placeOf(conflict));
        }
        EXPECT_EQ(shown, expected) << seed;
        conflicts += shown.size();
    }
    EXPECT_GT(yielded, 50U);
    EXPECT_GT(conflicts, 300U);
}

std::vector<std::string> only(const std::vector<std::string>& items,
                              const std::vector<std::string>& kept) {
    std::vector<std::string> left;
    std::ranges::copy_if(items, std::back_inserter(left), [&](const std::string& item) {
        return std::ranges::find(kept, item) != kept.end();
    });
    return left;
}

TEST(StateMergeLaws, listsKeepTheOrderOfTheSideThatMovedSomething) {
    std::size_t moved = 0;
    for (std::uint64_t seed = 0; seed < 400; ++seed) {
        const Triple states = triple(seed);
        const FlatState base(states.base);
        FlatState ours(states.ours);
        FlatState theirs(states.theirs);
        const FlatState result(mergeStates(&states.base, states.ours, states.theirs).state);
        for (const auto& [list, was] : base.orders) {
            const auto here = only(ours.orders[list], theirs.orders[list]);
            const auto there = only(theirs.orders[list], here);
            const auto common = only(was, here);
            const auto found = result.orders.find(list);
            if (found == result.orders.end()) {
                continue;
            }
            const bool byThem = only(here, common) == common && only(there, common) != common;
            const auto& leading = byThem ? theirs.orders[list] : ours.orders[list];
            EXPECT_EQ(only(found->second, leading), only(leading, found->second)) << seed << list;
            moved += byThem ? 1U : 0U;
        }
    }
    EXPECT_GT(moved, 20U);
}

TEST(StateMergeLaws, theChoiceOfAConflictGivesTheValueOfItsSide) {
    std::size_t removals = 0;
    for (std::uint64_t seed = 0; seed < 300 && !HasFailure(); ++seed) {
        const Triple states = triple(seed);
        const MergedState merged = mergeStates(&states.base, states.ours, states.theirs);
        for (const MergeConflict& conflict : merged.conflicts) {
            PersistedState chosen = merged.state;
            ASSERT_TRUE(takeTheirs(chosen, conflict)) << seed << " " << placeOf(conflict);
            const auto gone = goneDocuments(states, chosen);
            const std::string place = placeOf(conflict);
            EXPECT_EQ(FlatState(chosen).below(place),
                      FlatState(withoutLinks(states.theirs, gone)).below(place))
                << seed << " " << place;
            const PersistedState once = chosen;
            (void)takeTheirs(chosen, conflict);
            EXPECT_EQ(chosen, once) << seed << " " << place;
            if (isRemovalHere(conflict)) {
                PersistedState removed = merged.state;
                ASSERT_TRUE(takeTheirs(removed, swapped(conflict))) << seed << " " << place;
                EXPECT_TRUE(FlatState(removed).below(place).empty()) << seed << " " << place;
                ++removals;
            }
        }
    }
    EXPECT_GT(removals, 20U);
}

/// A machine and what it last had in common with the others.
struct Machine {
    PersistedState state;
    PersistedState common;

    void exchange(PersistedState& shared) {
        state = mergeStates(&common, state, shared).state;
        common = shared = state;
    }
};

TEST(StateMergeLaws, machinesThatExchangeInTurnEndEqual) {
    for (std::uint64_t seed = 0; seed < 100; ++seed) {
        RandomEdits edits(seed);
        PersistedState shared = edits.state();
        std::vector<Machine> machines(3, {shared, shared});
        for (int step = 0; step < 20; ++step) {
            Machine& machine = machines[edits.below(machines.size())];
            edits.edit(machine.state, edits.below(15));
            if (edits.below(2) == 0) {
                machine.exchange(shared);
            }
        }
        for (int round = 0; round < 2; ++round) {
            for (Machine& machine : machines) {
                machine.exchange(shared);
            }
        }
        for (const Machine& machine : machines) {
            EXPECT_EQ(machine.state, shared) << seed;
        }
    }
}

} // namespace
} // namespace fiscarel
