#include "reader/Limits.h"

#include "reader/ReadableFolders.h"

#include <fcntl.h>
#include <malloc.h>
#include <sched.h>
#include <seccomp.h>
#include <sys/ioctl.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <memory>

namespace fiscarel::reader {

namespace {

#if defined(__SANITIZE_ADDRESS__)
constexpr bool isSanitized = true; // needs terabytes of address space
#else
constexpr bool isSanitized = false;
#endif

bool limit(__rlimit_resource resource, rlim_t most) {
    rlimit now{};
    if (getrlimit(resource, &now) != 0) {
        return false;
    }
    most = now.rlim_max == RLIM_INFINITY ? most : (most < now.rlim_max ? most : now.rlim_max);
    const rlimit bounded{.rlim_cur = most, .rlim_max = most};
    return setrlimit(resource, &bounded) == 0;
}

bool limitResources(const Limits& limits) {
    constexpr rlim_t openFiles = 128;
    return (limits.memoryBytes == 0 || isSanitized || limit(RLIMIT_AS, limits.memoryBytes))
           && limit(RLIMIT_CPU, limits.cpuSeconds) && limit(RLIMIT_FSIZE, limits.fileBytes)
           && limit(RLIMIT_CORE, 0) && limit(RLIMIT_NOFILE, openFiles);
}

struct FilterRelease {
    void operator()(void* filter) const noexcept { seccomp_release(filter); }
};

/// What memory, threads, clocks and reading need. Anything else fails with EPERM.
constexpr std::array plainCalls{
    // reading, and writing to what stands open
    SCMP_SYS(read), SCMP_SYS(readv), SCMP_SYS(pread64), SCMP_SYS(preadv), SCMP_SYS(write),
    SCMP_SYS(writev), SCMP_SYS(lseek), SCMP_SYS(close), SCMP_SYS(fstat), SCMP_SYS(stat),
    SCMP_SYS(lstat), SCMP_SYS(newfstatat), SCMP_SYS(statx), SCMP_SYS(statfs), SCMP_SYS(fstatfs),
    SCMP_SYS(access), SCMP_SYS(faccessat), SCMP_SYS(faccessat2), SCMP_SYS(readlink),
    SCMP_SYS(readlinkat), SCMP_SYS(getdents64), SCMP_SYS(getcwd), SCMP_SYS(fadvise64),
    SCMP_SYS(poll), SCMP_SYS(ppoll),
    // memory
    SCMP_SYS(brk), SCMP_SYS(mmap), SCMP_SYS(munmap), SCMP_SYS(mremap), SCMP_SYS(mprotect),
    SCMP_SYS(madvise), SCMP_SYS(mincore),
    // threads and signals
    SCMP_SYS(futex), SCMP_SYS(set_robust_list), SCMP_SYS(rseq), SCMP_SYS(sched_yield),
    SCMP_SYS(sched_getaffinity), SCMP_SYS(sched_getparam), SCMP_SYS(sched_getscheduler),
    SCMP_SYS(set_tid_address), SCMP_SYS(rt_sigaction), SCMP_SYS(rt_sigprocmask),
    SCMP_SYS(rt_sigreturn), SCMP_SYS(sigaltstack), SCMP_SYS(restart_syscall), SCMP_SYS(exit),
    SCMP_SYS(exit_group),
    // what the process is and what time it is
    SCMP_SYS(getpid), SCMP_SYS(gettid), SCMP_SYS(getuid), SCMP_SYS(geteuid), SCMP_SYS(getgid),
    SCMP_SYS(getegid), SCMP_SYS(uname), SCMP_SYS(sysinfo), SCMP_SYS(getrlimit), SCMP_SYS(getrusage),
    SCMP_SYS(getrandom), SCMP_SYS(clock_gettime), SCMP_SYS(clock_getres), SCMP_SYS(clock_nanosleep),
    SCMP_SYS(nanosleep), SCMP_SYS(gettimeofday), SCMP_SYS(time), SCMP_SYS(times)};

/// The sanitizers ask through a pipe whether memory can be read; there are none in what is shipped.
constexpr std::array callsOfSanitizers{SCMP_SYS(pipe), SCMP_SYS(pipe2)};

bool allow(scmp_filter_ctx filter, int call, const scmp_arg_cmp& condition) {
    return seccomp_rule_add_array(filter, SCMP_ACT_ALLOW, call, 1, &condition) == 0;
}

bool allowCalls(scmp_filter_ctx filter) {
    for (const int call : plainCalls) {
        if (seccomp_rule_add_array(filter, SCMP_ACT_ALLOW, call, 0, nullptr) != 0) {
            return false;
        }
    }
    for (const int call : callsOfSanitizers) {
        if (isSanitized && seccomp_rule_add_array(filter, SCMP_ACT_ALLOW, call, 0, nullptr) != 0) {
            return false;
        }
    }
    constexpr scmp_datum_t changing = O_ACCMODE | O_CREAT | O_TRUNC | O_APPEND;
    const auto readsOnly = [&](unsigned argument) {
        return scmp_arg_cmp{argument, SCMP_CMP_MASKED_EQ, changing, O_RDONLY};
    };
    const auto is = [](unsigned argument, scmp_datum_t value) {
        return scmp_arg_cmp{argument, SCMP_CMP_EQ, value, 0};
    };
    // The library of threads asks for `clone3` first and does without when it is not there; the
    // filter could not look into its argument.
    return allow(filter, SCMP_SYS(open), readsOnly(1))
           && allow(filter, SCMP_SYS(openat), readsOnly(2))
           && allow(filter, SCMP_SYS(clone),
                    {0, SCMP_CMP_MASKED_EQ, CLONE_THREAD | CLONE_VM, CLONE_THREAD | CLONE_VM})
           && seccomp_rule_add_array(filter, SCMP_ACT_ERRNO(ENOSYS), SCMP_SYS(clone3), 0, nullptr)
                  == 0
           && allow(filter, SCMP_SYS(tgkill), is(0, static_cast<scmp_datum_t>(getpid())))
           && allow(filter, SCMP_SYS(prlimit64), is(2, 0)) // asks, sets nothing
           && allow(filter, SCMP_SYS(prctl), is(0, PR_SET_NAME))
           && allow(filter, SCMP_SYS(ioctl), is(1, TCGETS))
           && allow(filter, SCMP_SYS(fcntl), is(1, F_GETFD))
           && allow(filter, SCMP_SYS(fcntl), is(1, F_SETFD))
           && allow(filter, SCMP_SYS(fcntl), is(1, F_GETFL));
}

bool filterCalls() {
    const std::unique_ptr<void, FilterRelease> filter(seccomp_init(SCMP_ACT_ERRNO(EPERM)));
    return filter != nullptr && allowCalls(filter.get()) && seccomp_load(filter.get()) == 0;
}

} // namespace

bool confine(const Limits& limits) {
    // Every thread would else reserve address space for a heap of its own.
    mallopt(M_ARENA_MAX, 4);
    return prctl(PR_SET_DUMPABLE, 0) == 0 && prctl(PR_SET_PDEATHSIG, SIGKILL) == 0
           && prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 && readSystemFoldersOnly()
           && limitResources(limits) && filterCalls();
}

} // namespace fiscarel::reader
