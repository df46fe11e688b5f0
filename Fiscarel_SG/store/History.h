#pragma once

#include "Fiscarel_SG/store/PersistedState.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace fiscarel {

/// One step that can be undone: the change of cases and, perhaps, of a document or of their list.
struct Edit {
    struct OfCase {
        int year = 0;
        std::shared_ptr<const taxcore::TaxCase> before;
        std::shared_ptr<const taxcore::TaxCase> after; ///< null: the year was removed
    };
    struct Removal {
        StoredDocument document;
        std::size_t position = 0; ///< in the list it was removed from
    };

    struct OfDocument {
        StoredDocument before;
        StoredDocument after;
    };

    std::string name; ///< German: what was edited, "Bruttolohn"
    std::vector<OfCase> cases;
    std::optional<Removal> removed;
    std::optional<OfDocument> document;
    /// Edits that follow each other with the same key become one; empty: never.
    std::string mergeKey;
    Moment at;
};

/// The edits of a session. An edit is kept as the change it made, so that it can still be undone
/// after other fields have changed underneath, as remote state does.
class History {
  public:
    /// More edits than anybody undoes one by one.
    static constexpr std::size_t longest = 200;
    /// A pause of this many seconds in one field begins a new edit.
    static constexpr int mergeSeconds = 3;

    /// Keeps an edit that was made; what had been undone can no longer be redone.
    void record(Edit edit);
    /// The next edit is one of its own.
    void endMerging() noexcept { mayMerge_ = false; }

    /// The name of what the next step would undo or redo; absent when there is nothing.
    std::optional<std::string> undoName() const;
    std::optional<std::string> redoName() const;

    /// Takes the last edit back in the state, or makes it again. Edits that no longer apply are
    /// dropped on the way. The edit; absent when nothing was left.
    std::optional<Edit> undo(PersistedState& state);
    std::optional<Edit> redo(PersistedState& state);

    /// Drops the edits that no longer apply to a state that came from elsewhere.
    void dropStale(const PersistedState& state);

  private:
    enum class Direction { back, forth };

    static bool apply(const Edit& edit, Direction direction, PersistedState& state);
    static std::optional<Edit> step(std::vector<Edit>& from, std::vector<Edit>& to,
                                    Direction direction, PersistedState& state);
    static void dropStale(std::vector<Edit>& edits, Direction direction, PersistedState state);
    bool merge(const Edit& edit);

    std::vector<Edit> undone_; ///< the next to redo last
    std::vector<Edit> done_;   ///< the next to undo last
    bool mayMerge_ = false;
};

} // namespace fiscarel
