#pragma once

#include "Fiscarel_SG/cloud/CloudMemory.h"
#include "Fiscarel_SG/cloud/CloudRecord.h"
#include "Fiscarel_SG/cloud/Lifeline.h"
#include "Fiscarel_SG/cloud/SharedState.h"
#include "Fiscarel_SG/store/WorkQueue.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace fiscarel {

/// The states of the cloud that ours came from, over restarts: the last one known to lie there, and
/// one that may have arrived there, because its answer is missing. A copy counts only when the
/// keyring knows its content; with a folder that was copied or restored nothing is known of a
/// common past.
class CommonStates {
  public:
    struct Kept {
        int slot = 0;
        std::string id;
        std::string sha256; ///< of the file
        bool operator==(const Kept&) const = default;
    };
    struct Loaded {
        std::vector<Kept> kept;
        std::vector<SharedStatePointer> states; ///< of the same order
    };

    /// All must outlive it, and the work it posts.
    CommonStates(const CloudFolder& folder, WorkQueue& writer, CloudMemory& memory)
        : folder_(folder), writer_(writer), memory_(memory) {}

    /// Reads what is there; on any thread. `lastState` is what the keyring holds.
    static Loaded load(const CloudFolder& folder, const std::optional<std::string>& lastState);
    void adopt(Loaded loaded);

    const std::vector<SharedStatePointer>& known() const noexcept { return loaded_.states; }
    /// One of those known lies on the server: it is not forgotten before another one does.
    void confirm(const std::string& id) { confirmed_ = id; }
    const std::string& confirmed() const noexcept { return confirmed_; }
    /// Keeps a further one, on the disk and in the keyring, before `done`.
    void remember(const SharedStatePointer& shared, std::function<void(FileResult<void>)> done);
    /// Knows nothing of a common past any more.
    void forget();

  private:
    void keepInKeyring(std::function<void()> done);

    const CloudFolder& folder_;
    WorkQueue& writer_;
    CloudMemory& memory_;
    Loaded loaded_;
    std::string confirmed_;
    Lifeline life_;
};

} // namespace fiscarel
