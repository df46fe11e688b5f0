#pragma once

#include "Fiscarel_SG/cloud/CloudMemory.h"
#include "Fiscarel_SG/cloud/CloudRecord.h"
#include "Fiscarel_SG/cloud/Lifeline.h"
#include "Fiscarel_SG/cloud/SharedState.h"
#include "Fiscarel_SG/store/WorkQueue.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace fiscarel {

/// The states of the cloud that ours came from, over restarts: the last one known to lie there, and
/// those that may still arrive there, because their answers are missing. A copy counts only when
/// the keyring knows its content; with a folder that was copied or restored nothing is known of a
/// common past.
class CommonStates {
  public:
    struct Kept {
        int slot = 0;
        std::string id;
        std::string sha256;  ///< of the file
        std::string version; ///< that the server gives it, a whole number
        /// SHA-256 of our state, encoded, once it has taken this one in; absent: it has.
        std::optional<std::string> ifState = std::nullopt;
        bool operator==(const Kept&) const = default;
    };
    struct Loaded {
        std::vector<Kept> kept;
        std::vector<SharedStatePointer> states; ///< of the same order
        bool isDecided = false;                 ///< about one that was being taken in
    };

    /// All must outlive it, and the work it posts.
    CommonStates(const CloudFolder& folder, WorkQueue& writer, CloudMemory& memory)
        : folder_(folder), writer_(writer), memory_(memory) {}

    /// Reads what is there; on any thread. `lastState` is what the keyring holds.
    /// `stateHash` is the SHA-256 of our state, encoded: it tells whether a state of the cloud had
    /// been taken in when the program ended.
    static Loaded load(const CloudFolder& folder, const std::optional<std::string>& lastState,
                       const std::string& stateHash);
    void adopt(Loaded loaded);

    const std::vector<SharedStatePointer>& known() const noexcept { return loaded_.states; }
    /// One of those known lies on the server, or did, at a version: it is not forgotten before a
    /// later one does, and what was sent for this version or an earlier one no longer arrives.
    void confirm(const std::string& id, std::int64_t version);
    const std::string& confirmed() const noexcept { return confirmed_; }
    /// Keeps a further one, on the disk and in the keyring, before `done`; `version` is the one
    /// that the server has given it or will.
    void remember(const SharedStatePointer& shared, std::int64_t version,
                  std::function<void(FileResult<void>)> done);
    /// Keeps one that is about to be taken in: after a restart it is known if our state is `ours`
    /// then, in this run once it is remembered.
    void expect(const SharedStatePointer& shared, std::int64_t version, const PersistedState& ours,
                std::function<void(FileResult<void>)> done);
    /// Knows nothing of a common past any more.
    void forget();

  private:
    /// Writes one to the disk.
    void write(const SharedStatePointer& shared, int slot,
               std::function<void(FileResult<void>, std::string sha256)> done);
    int freeSlot();
    void drop(std::size_t index);
    void keepInKeyring(std::function<void()> done);

    const CloudFolder& folder_;
    WorkQueue& writer_;
    CloudMemory& memory_;
    Loaded loaded_;
    std::optional<Kept> expected_;
    std::string confirmed_;
    Lifeline life_;
};

} // namespace fiscarel
