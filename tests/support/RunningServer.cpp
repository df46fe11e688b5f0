#include "tests/support/RunningServer.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <sstream>
#include <stdexcept>
#include <utility>

namespace fiscarel::testing {

namespace {

constexpr int longestStart = 30'000; ///< milliseconds; other tests may use the machine as well

/// The first line that comes out of a pipe; empty when none comes in time.
std::string firstLine(int from) {
    std::string line;
    pollfd readable{.fd = from, .events = POLLIN, .revents = 0};
    while (::poll(&readable, 1, longestStart) > 0) {
        char c = 0;
        if (::read(from, &c, 1) != 1) {
            return {};
        }
        if (c == '\n') {
            return line;
        }
        line += c;
    }
    return {};
}

int exitCodeOf(pid_t process) {
    int status = 0;
    ::waitpid(process, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

} // namespace

RunningServer::RunningServer(std::vector<std::string> arguments)
    : arguments_(std::move(arguments)) {
    start();
}

RunningServer::~RunningServer() { kill(); }

std::string RunningServer::base() const {
    return "http://127.0.0.1:" + std::to_string(port_) + "/fiscarel/api/v1/";
}

std::string RunningServer::log() const { return readFile(folder_ / "log"); }

std::string RunningServer::latestCode(const std::string& email) const {
    std::istringstream lines(readFile(codeFile()));
    std::string latest;
    for (std::string address, code; lines >> address >> code;) {
        latest = address == email ? code : latest;
    }
    return latest;
}

void RunningServer::kill() {
    if (isRunning()) {
        ::kill(process_, SIGKILL);
        (void)exitCodeOf(std::exchange(process_, -1));
    }
}

int RunningServer::end() {
    if (!isRunning()) {
        return -1;
    }
    ::kill(process_, SIGTERM);
    return exitCodeOf(std::exchange(process_, -1));
}

void RunningServer::start() {
    std::vector<std::string> arguments{"--port", std::to_string(port_), "--code-file",
                                       codeFile().string()};
    arguments.insert(arguments.end(), arguments_.begin(), arguments_.end());
    std::array<int, 2> pipe{};
    if (::pipe2(pipe.data(), O_CLOEXEC) != 0) {
        throw std::runtime_error("no pipe");
    }
    process_ = spawn(arguments, pipe[1]);
    ::close(pipe[1]);
    const std::string line = firstLine(pipe[0]);
    ::close(pipe[0]);
    const std::size_t colon = line.rfind(':');
    if (!line.starts_with("listening on http://") || colon == std::string::npos) {
        kill();
        throw std::runtime_error("the server does not start: " + log());
    }
    port_ = std::stoi(line.substr(colon + 1));
}

int RunningServer::runOnce(const std::vector<std::string>& arguments) const {
    const int nowhere = ::open("/dev/null", O_WRONLY | O_CLOEXEC);
    const pid_t process = spawn(arguments, nowhere);
    ::close(nowhere);
    return exitCodeOf(process);
}

pid_t RunningServer::spawn(const std::vector<std::string>& arguments, int output) const {
    const std::string log = (folder_ / "log").string();
    std::vector<std::string> words{FISCAREL_SERVER, "--data", data().string()};
    words.insert(words.end(), arguments.begin(), arguments.end());
    std::vector<char*> argv;
    for (std::string& word : words) {
        argv.push_back(word.data());
    }
    argv.push_back(nullptr);
    const pid_t process = ::fork();
    if (process == 0) {
        // It must not outlive tests that are stopped from outside.
        ::prctl(PR_SET_PDEATHSIG, SIGKILL);
        const int errors = ::open(log.c_str(), O_WRONLY | O_CREAT | O_APPEND, 0600);
        ::dup2(output, STDOUT_FILENO);
        ::dup2(errors, STDERR_FILENO);
        ::execv(argv.front(), argv.data());
        ::_exit(127);
    }
    if (process < 0) {
        throw std::runtime_error("no process");
    }
    return process;
}

} // namespace fiscarel::testing
