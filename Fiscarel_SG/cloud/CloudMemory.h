#pragma once

#include "Fiscarel_SG/cloud/CloudKeychain.h"
#include "Fiscarel_SG/store/WorkQueue.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace fiscarel {

/// The keyring, off the window's thread: it may wait for the user to unlock it. What is asked for
/// is done in order.
class CloudMemory {
  public:
    struct Content {
        bool isAvailable = false;
        std::optional<std::string> token;
        std::shared_ptr<const Secret> dataKey; ///< null: none
        std::optional<std::string> lastState;
    };

    /// Both must outlive it, and what was asked for.
    CloudMemory(CloudKeychain& keychain, WorkQueue& worker)
        : keychain_(keychain), worker_(worker) {}

    /// Reads all of it; on the worker, as part of other work.
    Content readNow() const;

    void keepToken(const std::optional<std::string>& token);
    /// Null: forgets it.
    void keepDataKey(const std::shared_ptr<const Secret>& key);
    void keepLastState(const std::string& text, std::function<void()> done);

  private:
    CloudKeychain& keychain_;
    WorkQueue& worker_;
};

} // namespace fiscarel
