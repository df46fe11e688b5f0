#pragma once

#include "Fiscarel_SG/cloud/SharedState.h"
#include "tests/cloud/FlatState.h"

#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace fiscarel::testing {

/// Every edit that anybody made, place by place, and every conflict that was shown: what must be
/// accounted for in the end.
class EditJournal {
  public:
    /// An edit of the user's at a machine.
    /// One that only takes back what another machine has not seen yet, or the cloud, asks for
    /// nothing: `common` tells the states that a machine and the cloud had in common.
    void record(const std::string& who, const PersistedState& before, const PersistedState& after,
                const std::function<std::vector<SharedStatePointer>(const std::string&)>& common);
    /// A machine was killed: its edits from a position on were not on its disk yet.
    void excuse(const std::string& who, std::size_t from);
    void shown(const std::vector<MergeConflict>& conflicts);
    /// From here on removals and values of a new case may come undone without a conflict: nothing
    /// is known of a common past where both sides are kept whole.
    void forgetRemovals() { isLenient_ = true; }
    void forgetRemovals(int year) { lenientYears_.insert(year); }
    /// The same for the edits of a time: before two machines know of each other.
    bool beforeJoining = false;

    /// The edits that the final state does not have, that nothing later replaced and that stand in
    /// no conflict; in words.
    std::vector<std::string> lost(const PersistedState& end) const;
    std::size_t size() const { return edits_.size(); }
    std::size_t conflicts() const { return conflicts_.size(); }

  private:
    struct Edit {
        std::string who;
        std::string place;
        std::optional<std::string> value; ///< absent: removed
        bool isExcused = false;
        bool isLenient = false;
        bool takesBack = false;
    };
    bool isReplaced(std::size_t index) const;
    bool isShown(const Edit& edit) const;
    bool isLenient(const Edit& edit) const;

    std::vector<Edit> edits_;
    std::set<std::string> conflicts_; ///< as JSON texts, to tell them apart
    std::vector<MergeConflict> all_;
    bool isLenient_ = false;
    std::set<int> lenientYears_;
};

} // namespace fiscarel::testing
