#pragma once

#include "Fiscarel_SG/AppStore.h"
#include "Fiscarel_SG/CloudAPI.h"
#include "Fiscarel_SG/cloud/CloudMemory.h"
#include "Fiscarel_SG/cloud/CloudRecord.h"
#include "Fiscarel_SG/cloud/CloudStatus.h"
#include "Fiscarel_SG/cloud/CommonStates.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace fiscarel {

/// Why an exchange did not come to its end.
struct CloudTrouble {
    enum class Kind {
        offline,     ///< tried again soon, and ever later
        busy,        ///< the server asks for a pause
        sessionOver, ///< the user has to sign in again
        keyChanged,  ///< another machine began anew, or made another key
        asked,       ///< a question waits for its answer
        stopped,     ///< the user has to see to something; tried again now and then
    };
    Kind kind = Kind::offline;
    std::string message; ///< one German sentence; empty: nothing to be said

    static CloudTrouble of(const CloudAPI::Failure& failure);
    static CloudTrouble stopped(std::string message) { return {Kind::stopped, std::move(message)}; }
};

/// What the parts of the exchange work with and on, on the main thread.
struct CloudContext {
    AppStore& store;
    CloudAPI& api;
    FileSystem& files;
    WorkQueue& writer; ///< the store's: files in the order in which the state is saved
    WorkQueue& worker; ///< for what takes long or waits for the user
    const Clock& clock;
    const Persistence* persistence; ///< null in demo mode
    std::string device;

    CloudMemory memory;
    CloudFolder folder;
    std::optional<CommonStates> common = std::nullopt; ///< made once the others stand
    CloudRecord record = {};
    CloudStatus status = {};
    std::string token = {}; ///< empty: signed out
    std::shared_ptr<const Secret> dataKey = nullptr;
    std::function<void()> changed = {}; ///< the status did
    Lifeline life = {};

    /// Puts the record on the disk; `done` learns how it went, behind the saves given before.
    void keepRecord(std::function<void(FileResult<void>)> done = {});
    /// Keeps the file of a document that is about to go here, while the backup is used: another
    /// machine may have changed the document, and then it comes back.
    void keepFileOf(const StoredDocument& document);
    void tell() const { changed(); }
    void setProblem(std::string message) {
        status.problem = std::move(message);
        tell();
    }
    /// Forgets what belongs to an account or server; open conflicts and kept files stay.
    void forgetAccount();
};

} // namespace fiscarel
