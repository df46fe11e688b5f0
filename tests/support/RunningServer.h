#pragma once

#include "tests/support/TemporaryFolder.h"

#include <sys/types.h>

#include <filesystem>
#include <string>
#include <vector>

namespace fiscarel::testing {

/// The real server of the encrypted backup, in a folder of its own and on a free port of this
/// machine. Codes go to a file. Link `running-server` to have it.
/// The server goes with the thread that started it, so that none outlives a test that was stopped.
class RunningServer {
  public:
    /// Starts it and waits until it listens; throws when it does not. The arguments are beside
    /// folder, port and code file.
    explicit RunningServer(std::vector<std::string> arguments = {"--no-rate-limits"});
    /// Kills it, if it still runs.
    ~RunningServer();
    RunningServer(const RunningServer&) = delete;
    RunningServer& operator=(const RunningServer&) = delete;

    /// "http://127.0.0.1:PORT/fiscarel/api/v1/"; the same after a restart.
    std::string base() const;
    int port() const { return port_; }
    /// What the server has on its disk.
    std::filesystem::path data() const { return folder_ / "data"; }
    std::filesystem::path codeFile() const { return folder_ / "codes"; }
    /// What it wrote to standard error, of all its runs.
    std::string log() const;

    /// The last code that was sent to an address (as accounts are named, in lower case); empty when
    /// there was none.
    std::string latestCode(const std::string& email) const;

    bool isRunning() const { return process_ > 0; }
    /// SIGKILL: it gets to do nothing any more.
    void kill();
    /// SIGTERM; its exit code, or -1 when it did not end by itself.
    int end();
    /// Starts it again on the same folder and port; throws when it does not come up.
    void start();

    /// Runs the program with arguments on the same folder, to its end; its exit code.
    int runOnce(const std::vector<std::string>& arguments) const;

  private:
    pid_t spawn(const std::vector<std::string>& arguments, int output) const;

    TemporaryFolder folder_;
    std::vector<std::string> arguments_;
    pid_t process_ = -1;
    int port_ = 0;
};

} // namespace fiscarel::testing
