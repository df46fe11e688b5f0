#pragma once

#include "Fiscarel_SG/store/PersistedState.h"
#include "TaxCore/base/Record.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace fiscarel {

/// A place that both sides changed, each in its way.
struct MergeConflict {
    int year = 0;                      ///< 0: of the list of documents
    std::string path;                  ///< in the year's case, items by identity:
                                       ///< "debts[<UUID>].amount"; "documents[<UUID>].title"
    std::optional<std::string> ours;   ///< JSON text; absent: gone here
    std::optional<std::string> theirs; ///< JSON text; absent: gone there

    bool operator==(const MergeConflict&) const = default;
};
TAXCORE_RECORD(MergeConflict, year, path, ours, theirs);

struct MergedState {
    PersistedState state; ///< with our values where there are conflicts
    std::vector<MergeConflict> conflicts;
};

/// Brings two states together that went apart from a common one, by year, item and field. A side
/// that changed nothing gives way wholly; an item that one side removed and the other changed stays
/// as changed, with a conflict. Items of lists without identity are never in conflict: what either
/// side adds comes, what either removes goes. Links to documents that are gone are cleared; where
/// both sides moved items of a list, our order stays. With no common state (null) everything either
/// side has stays, and a field that has the value of a new case yields.
MergedState mergeStates(const PersistedState* base, const PersistedState& ours,
                        const PersistedState& theirs);

/// Puts the other side's value in place of ours; false, with the state unchanged, when the place
/// has gone or holds something else by now. True as well when it holds theirs already, as it does
/// where we removed what the other side changed.
bool takeTheirs(PersistedState& state, const MergeConflict& conflict);
/// The conflict as the other side sees it.
MergeConflict swapped(MergeConflict conflict);
/// Whether our side removed a whole item, document or year that the merge kept, since the other
/// side had changed it. Our removal is then what `takeTheirs` makes of the swapped conflict.
bool isRemovalHere(const MergeConflict& conflict);

/// What going from one state to another takes away.
struct StateLoss {
    std::vector<int> years;       ///< that had entries and have none left, ascending
    std::vector<int> halvedYears; ///< others that lose half of their filled fields, ascending
    std::size_t fields = 0;       ///< filled fields that are empty or gone afterwards
    std::size_t fieldsBefore = 0; ///< filled fields there were
    std::size_t documents = 0;
    std::size_t documentsBefore = 0;

    /// Whether to ask before it happens: a whole year goes, or half of the documents (at least
    /// three) or of the filled fields, a year's or all (at least ten).
    bool isGrave() const noexcept;
    bool operator==(const StateLoss&) const = default;
};
StateLoss lossBetween(const PersistedState& before, const PersistedState& after);

} // namespace fiscarel
