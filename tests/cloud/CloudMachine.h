#pragma once

#include "Fiscarel_SG/cloud/CloudSync.h"
#include "Fiscarel_SG/store/PosixFiles.h"
#include "tests/cloud/MemoryKeychain.h"
#include "tests/cloud/StepQueue.h"
#include "tests/support/FakeServices.h"
#include "tests/support/TemporaryFolder.h"

#include <QUrl>
#include <chrono>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>

namespace fiscarel::testing {

/// Makes sure of the application that sockets need.
void needApplication();
/// Lets the event loop run until something holds; false when it does not in time.
bool waitFor(const std::function<bool()>& holds,
             std::chrono::milliseconds most = std::chrono::seconds(20));

/// Lets the event loop run for a while.
void passTime(std::chrono::milliseconds time);

/// One machine of a household: store and engine on a folder and a keyring of its own. Work waits on
/// the queues until it is let.
class CloudMachine {
  public:
    /// `base` is where it finds the server, or what stands before it.
    CloudMachine(std::string name, QUrl base, FakeClock& clock,
                 std::chrono::milliseconds patience = std::chrono::seconds(5));
    ~CloudMachine();
    CloudMachine(const CloudMachine&) = delete;
    CloudMachine& operator=(const CloudMachine&) = delete;

    const std::string name;
    FakeClock& clock;
    PosixFiles files;
    FileSystem* fileSystem = &files;    ///< what the program is started with
    std::chrono::milliseconds patience; ///< with the server, from the next start on
    MemoryKeychain keychain;
    MemorySettings settings;
    std::unique_ptr<FakeTimers> timers;
    std::unique_ptr<StepQueue> writer;
    std::unique_ptr<StepQueue> worker;
    std::unique_ptr<Persistence> persistence;
    std::unique_ptr<AppStore> store;
    std::unique_ptr<CloudSync> sync;

    std::filesystem::path root() const { return folder_.path() / "Brennick"; }
    /// A path for files that are not the program's.
    std::filesystem::path outside(const std::string& file) const { return folder_.path() / file; }
    const CloudStatus& status() const { return sync->status(); }
    const PersistedState& state() const { return store->snapshot(); }

    void start(LaunchArguments launch = {});
    /// Ends the program in order.
    void quit();
    /// Kills it: what was not on the disk is gone.
    void crash();

    /// Called after each piece of work, when it is set.
    std::function<void()> worked;
    /// Does what waits on the queues; whether there was something.
    bool work();
    /// Does one piece of it.
    bool workOne(bool writersFirst);
    /// Lets time pass and does all that follows from it, requests too.
    bool settle(std::chrono::milliseconds time = std::chrono::seconds(3));
    /// Compares now, to its end.
    bool check();
    /// Waits until no request and no work is under way.
    bool rest();

    /// From the address to the code's answer.
    bool signIn(const std::string& email, const std::function<std::string()>& code);
    /// The same with a key: a new one, whose recovery key is answered.
    std::string setUp(const std::string& email, const std::function<std::string()>& code);
    bool join(const std::string& email, const std::function<std::string()>& code,
              const std::string& recoveryKey);
    /// Adds a document with a content; its id.
    Uuid addDocument(const std::string& fileName, const std::string& content);

  private:
    TemporaryFolder folder_;
    const QUrl base_;
    std::unique_ptr<CloudAPI> api_;
};

} // namespace fiscarel::testing
