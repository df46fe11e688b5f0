// Runs one scenario of the state file, or, as a server, many of them each in a child of its own:
// the rules are then read only once, and the fault shim is told anew for every child.
//   state-driver SCENARIO FOLDER
//   state-driver serve      lines "MODE AT ERROR ONLY SCENARIO FOLDER" on standard input

#include "tests/support/faults/FaultPlan.h"
#include "tests/support/faults/Scenario.h"
#include "tests/support/faults/StateSession.h"

#include <dlfcn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <iostream>
#include <sstream>
#include <string>

namespace {

using namespace faults;

template <class Function>
Function* fromShim(const char* name) {
    return reinterpret_cast<Function*>(dlsym(RTLD_DEFAULT, name));
}

template <std::size_t size>
void set(char (&field)[size], const std::string& text) {
    std::snprintf(std::begin(field), size, "%s", text.c_str());
}

/// A calculation before the first child, so that the rules are in its memory.
void readRules() {
    InlineQueue queue;
    const FakeClock clock;
    fiscarel::testing::FakeTimers timers;
    fiscarel::testing::MemorySettings settings;
    const fiscarel::AppStore demo({.persistence = nullptr,
                                   .writer = queue,
                                   .clock = clock,
                                   .timers = timers,
                                   .settings = settings},
                                  fiscarel::LaunchArguments{.demo = true});
}

int runChild(const std::string& scenario, const std::string& folder) {
    const pid_t child = fork();
    if (child == 0) {
        fromShim<ArmFunction>("faultArm")();
        _exit(runScenario(scenario, folder));
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
}

/// Answers with the exit code, the number of calls and then each call.
void answer(const FaultPlan& plan, int code) {
    const long traced = std::min(plan.calls, FaultPlan::longestTrace);
    std::cout << code << ' ' << plan.calls << ' ' << traced << '\n';
    for (long i = 0; i < traced; ++i) {
        const TracedCall& call = plan.trace[i];
        std::cout << std::begin(call.name) << ' ' << call.file << ' ' << std::begin(call.path)
                  << '\n';
    }
    std::cout.flush();
}

int serve() {
    if (fromShim<PlanFunction>("faultPlan") == nullptr) {
        std::cerr << "the fault shim is not loaded\n";
        return 1;
    }
    FaultPlan* const plan = fromShim<PlanFunction>("faultPlan")();
    readRules();
    for (std::string line; std::getline(std::cin, line);) {
        std::istringstream words(line);
        int mode = 0;
        std::string only;
        std::string scenario;
        std::string folder;
        *plan = {};
        words >> mode >> plan->at >> plan->error >> only >> scenario >> folder;
        plan->mode = static_cast<Mode>(mode);
        set(plan->only, only);
        set(plan->folder, folder);
        answer(*plan, runChild(scenario, folder));
    }
    return 0;
}

} // namespace

int main(int count, char** arguments) {
    if (count == 2 && std::string(arguments[1]) == "serve") {
        return serve();
    }
    if (count != 3) {
        std::cerr << "state-driver SCENARIO FOLDER\n";
        return 1;
    }
    return runScenario(arguments[1], arguments[2]);
}
