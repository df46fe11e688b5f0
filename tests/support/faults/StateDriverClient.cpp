#include "tests/support/faults/StateDriverClient.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdlib>
#include <sstream>
#include <utility>

namespace faults {

namespace {

constexpr const char* driverProgram = FISCAREL_STATE_DRIVER;

struct Started {
    pid_t process = -1;
    int in = -1;  ///< to write to
    int out = -1; ///< to read from
};

Started start(const char* first, const char* second, bool withShim) {
    std::array<int, 2> in{};
    std::array<int, 2> out{};
    if (pipe2(in.data(), O_CLOEXEC) != 0 || pipe2(out.data(), O_CLOEXEC) != 0) {
        return {};
    }
    const pid_t process = fork();
    if (process == 0) {
        dup2(in[0], STDIN_FILENO);
        dup2(out[1], STDOUT_FILENO);
        if (withShim) {
            setenv("LD_PRELOAD", FISCAREL_FAULT_SHIM, 1);
            // The sanitizer wants to be the first library; after the shim it works as well.
            setenv("ASAN_OPTIONS", "verify_asan_link_order=0", 1);
        }
        execl(driverProgram, driverProgram, first, second, nullptr);
        _exit(127);
    }
    close(in[0]);
    close(out[1]);
    return {process, in[1], out[0]};
}

int ended(pid_t process) {
    int status = 0;
    waitpid(process, &status, 0);
    return WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
}

} // namespace

StateDriverClient::StateDriverClient() {
    const Started started = start("serve", nullptr, true);
    driver_ = started.process;
    to_ = fdopen(started.in, "w");
    from_ = fdopen(started.out, "r");
}

StateDriverClient::~StateDriverClient() {
    std::fclose(to_);
    std::fclose(from_);
    (void)ended(driver_);
}

std::string StateDriverClient::line() {
    std::string text;
    for (int c = std::fgetc(from_); c != EOF && c != '\n'; c = std::fgetc(from_)) {
        text += static_cast<char>(c);
    }
    return text;
}

DriverRun StateDriverClient::run(const std::string& scenario, const std::filesystem::path& folder,
                                 const Fault& fault, long at) {
    std::fprintf(to_, "%d %ld %d %s %s %s\n", static_cast<int>(fault.mode), at, fault.error,
                 fault.only.empty() ? "-" : fault.only.c_str(), scenario.c_str(), folder.c_str());
    std::fflush(to_);
    DriverRun run;
    std::size_t traced = 0;
    std::istringstream(line()) >> run.code >> run.calls >> traced;
    for (std::size_t i = 0; i < traced; ++i) {
        DriverRun::Call call;
        std::istringstream words(line());
        words >> call.name >> call.file >> std::ws;
        std::getline(words, call.path);
        run.trace.push_back(std::move(call));
    }
    return run;
}

LoneDriver::LoneDriver(const std::string& scenario, const std::filesystem::path& folder) {
    const Started started = start(scenario.c_str(), folder.c_str(), false);
    driver_ = started.process;
    in_ = started.in;
    out_ = started.out;
}

LoneDriver::~LoneDriver() {
    if (driver_ > 0) {
        kill();
        (void)wait();
    }
    close(in_);
    close(out_);
}

bool LoneDriver::waitUntilHeld() const {
    char byte = 0;
    return read(out_, &byte, 1) == 1;
}

void LoneDriver::kill() const { ::kill(driver_, SIGKILL); }

void LoneDriver::release() const { (void)!::write(in_, "r", 1); }

int LoneDriver::wait() { return ended(std::exchange(driver_, -1)); }

} // namespace faults
