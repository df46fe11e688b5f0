#include "tests/support/faults/Child.h"

#include <gtest/gtest.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <iostream>

namespace faults {

namespace {

constexpr int failedCode = 1;
constexpr int skippedCode = 77;

std::string problem(const std::string& what) {
    return what + ": " + std::strerror(errno); // NOLINT(concurrency-mt-unsafe): one thread
}

} // namespace

ChildRun runInChild(const std::function<std::string()>& checks) {
    std::cout.flush();
    std::fflush(stdout);
    const pid_t child = fork();
    if (child == 0) {
        const std::string reason = checks();
        if (!reason.empty()) {
            std::cout << "not possible here: " << reason << '\n';
        }
        std::cout.flush();
        std::fflush(stdout);
        _exit(::testing::Test::HasFailure() ? failedCode : reason.empty() ? 0 : skippedCode);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return {.held = status == 0,
            .skipped = WIFEXITED(status) && WEXITSTATUS(status) == skippedCode};
}

std::string mountSmallDisk(const std::string& folder, const std::string& size) {
    const uid_t user = getuid();
    const gid_t group = getgid();
    if (unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0) {
        return problem("unshare");
    }
    std::ofstream("/proc/self/setgroups") << "deny";
    std::ofstream("/proc/self/uid_map") << "0 " << user << " 1";
    std::ofstream("/proc/self/gid_map") << "0 " << group << " 1";
    if (mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0
        || mount("tmpfs", folder.c_str(), "tmpfs", 0, ("size=" + size).c_str()) != 0) {
        return problem("mount");
    }
    return {};
}

std::string makeReadOnly(const std::string& folder) {
    return mount("none", folder.c_str(), nullptr, MS_REMOUNT | MS_RDONLY, nullptr) == 0
               ? std::string()
               : problem("remount");
}

std::string becomeOrdinaryUser(const std::string& folder) {
    constexpr uid_t nobody = 65534;
    if (geteuid() != 0) {
        return {};
    }
    if (chown(folder.c_str(), nobody, nobody) != 0 || setresgid(nobody, nobody, nobody) != 0
        || setresuid(nobody, nobody, nobody) != 0) {
        return problem("no other user");
    }
    return {};
}

} // namespace faults
