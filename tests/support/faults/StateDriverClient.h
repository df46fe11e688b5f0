#pragma once

#include "tests/support/faults/FaultPlan.h"

#include <sys/types.h>

#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

namespace faults {

struct Fault {
    Mode mode = Mode::count;
    int error = 0;
    std::string only; ///< the calls that fail, for `failNamed`
};

struct DriverRun {
    struct Call {
        std::string name;
        int file = -1;
        std::string path;
    };

    int code = -1; ///< of the driver, 137 when it was killed
    long calls = 0;
    std::vector<Call> trace;
};

/// The driver with the shim before it, as a server.
class StateDriverClient {
  public:
    StateDriverClient();
    StateDriverClient(const StateDriverClient&) = delete;
    StateDriverClient& operator=(const StateDriverClient&) = delete;
    ~StateDriverClient();

    /// Runs a scenario with a fault at the call `at`.
    DriverRun run(const std::string& scenario, const std::filesystem::path& folder,
                  const Fault& fault = {}, long at = 0);

  private:
    std::string line();

    pid_t driver_ = -1;
    std::FILE* to_ = nullptr;
    std::FILE* from_ = nullptr;
};

/// The driver without the shim, for one scenario in a process of its own.
class LoneDriver {
  public:
    LoneDriver(const std::string& scenario, const std::filesystem::path& folder);
    LoneDriver(const LoneDriver&) = delete;
    LoneDriver& operator=(const LoneDriver&) = delete;
    ~LoneDriver();

    /// Waits until the scenario that holds the folder has it.
    bool waitUntilHeld() const;
    void kill() const;
    /// Lets the scenario that holds the folder end.
    void release() const;
    /// Waits for its end; the exit code.
    int wait();

  private:
    pid_t driver_ = -1;
    int in_ = -1;
    int out_ = -1;
};

} // namespace faults
