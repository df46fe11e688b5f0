// Loaded before the C library: stands between a program and its file system calls below one folder,
// counts them, and makes a chosen one fail or kills the program there.

#include "tests/support/faults/FaultPlan.h"

#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstring>
#include <mutex>

namespace {

using namespace faults;

FaultPlan* plan = nullptr;
bool armed = false;

/// The paths of open files below the folder; empty: another file.
constexpr int mostFiles = 1024;
char openPaths[mostFiles][256];

__attribute__((constructor)) void makePlan() {
    void* const memory =
        mmap(nullptr, sizeof(FaultPlan), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    plan = memory == MAP_FAILED ? nullptr : static_cast<FaultPlan*>(memory);
}

bool isBelow(const char* path) {
    if (!armed || path == nullptr) {
        return false;
    }
    const std::size_t length = std::strlen(plan->folder);
    return std::strncmp(path, plan->folder, length) == 0
           && (path[length] == '/' || path[length] == '\0');
}

const char* pathOf(int file) {
    return armed && file >= 0 && file < mostFiles ? openPaths[file] : "";
}

bool isBelow(int file) { return *pathOf(file) != '\0'; }

/// For the calls that take a folder and a path.
bool isBelow(int folder, const char* path) {
    return path != nullptr && (path[0] == '/' ? isBelow(path) : isBelow(folder));
}

void remember(int file, const char* path) {
    if (file >= 0 && file < mostFiles) {
        std::strncpy(openPaths[file], path, sizeof(openPaths[file]) - 1);
    }
}

enum class Verdict { pass, fail, half, halfThenKill, killAfter };

[[noreturn]] void die() {
    kill(getpid(), SIGKILL);
    for (;;) {
        pause();
    }
}

Verdict ofFull(long call, bool grows, bool writes) {
    static bool wasHalf = false;
    if (call < plan->at || !grows) {
        return Verdict::pass;
    }
    if (writes && !wasHalf) {
        wasHalf = true;
        return Verdict::half;
    }
    return Verdict::fail;
}

/// Counts a call below the folder and says what is to become of it.
Verdict count(const char* name, int file, const char* path, bool grows = false,
              bool writes = false) {
    static std::mutex mutex;
    const std::lock_guard lock(mutex);
    const long call = ++plan->calls;
    if (call <= FaultPlan::longestTrace) {
        TracedCall& traced = plan->trace[call - 1];
        traced.file = file;
        std::strncpy(traced.name, name, sizeof(traced.name) - 1);
        std::strncpy(traced.path, path, sizeof(traced.path) - 1);
    }
    const bool chosen = call == plan->at;
    switch (plan->mode) {
    case Mode::count:
        return Verdict::pass;
    case Mode::failOnce:
        return chosen ? Verdict::fail : Verdict::pass;
    case Mode::failOn:
        return call >= plan->at ? Verdict::fail : Verdict::pass;
    case Mode::full:
        return ofFull(call, grows, writes);
    case Mode::killBefore:
        if (chosen) {
            die();
        }
        return Verdict::pass;
    case Mode::killAfter:
        return !chosen ? Verdict::pass : writes ? Verdict::halfThenKill : Verdict::killAfter;
    case Mode::failNamed:
        return std::strcmp(name, plan->only) == 0 ? Verdict::fail : Verdict::pass;
    }
    return Verdict::pass;
}

template <class Function>
Function* next(const char* name) {
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

/// Makes a call, or lets it fail with `failure`.
template <class Result, class Call>
Result decide(Verdict verdict, Result failure, const Call& call) {
    if (verdict == Verdict::fail) {
        errno = plan->error;
        return failure;
    }
    const Result result = call();
    if (verdict == Verdict::killAfter) {
        die();
    }
    return result;
}

int opened(const char* name, const char* path, int flags, const auto& open) {
    const bool grows = (flags & O_CREAT) != 0;
    const int file = decide(count(name, -1, path, grows), -1, open);
    remember(file, path);
    return file;
}

mode_t modeOf(int flags, va_list& arguments) {
    return (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(arguments, mode_t)
                                                : 0; // NOLINT(clang-analyzer-valist.Uninitialized)
}

ssize_t written(const char* name, int file, std::size_t size, const auto& write) {
    const Verdict verdict = count(name, file, pathOf(file), true, true);
    const bool half = verdict == Verdict::half || verdict == Verdict::halfThenKill;
    const ssize_t done =
        decide(verdict, ssize_t{-1}, [&] { return write(half && size > 1 ? size / 2 : size); });
    if (verdict == Verdict::halfThenKill) {
        die();
    }
    return done;
}

} // namespace

// NOLINTBEGIN(bugprone-macro-parentheses,clang-analyzer-valist.Uninitialized): the macros make
// whole functions, with types as arguments; their lists of arguments are started.
extern "C" {

FaultPlan* faultPlan() { return plan; }
void faultArm() { armed = true; }

#define OPEN(name)                                                                                 \
    int name(const char* path, int flags, ...) {                                                   \
        static auto* const real = next<int(const char*, int, ...)>(#name);                         \
        va_list arguments;                                                                         \
        va_start(arguments, flags);                                                                \
        const mode_t mode = modeOf(flags, arguments);                                              \
        va_end(arguments);                                                                         \
        const auto call = [&] { return real(path, flags, mode); };                                 \
        return isBelow(path) ? opened(#name, path, flags, call) : call();                          \
    }
OPEN(open)
OPEN(open64)

#define OPENAT(name)                                                                               \
    int name(int folder, const char* path, int flags, ...) {                                       \
        static auto* const real = next<int(int, const char*, int, ...)>(#name);                    \
        va_list arguments;                                                                         \
        va_start(arguments, flags);                                                                \
        const mode_t mode = modeOf(flags, arguments);                                              \
        va_end(arguments);                                                                         \
        const auto call = [&] { return real(folder, path, flags, mode); };                         \
        return isBelow(folder, path) ? opened(#name, path, flags, call) : call();                  \
    }
OPENAT(openat)
OPENAT(openat64)

ssize_t write(int file, const void* bytes, std::size_t size) {
    static auto* const real = next<decltype(write)>("write");
    const auto call = [&](std::size_t count) { return real(file, bytes, count); };
    return isBelow(file) ? written("write", file, size, call) : call(size);
}

#define PWRITE(name)                                                                               \
    ssize_t name(int file, const void* bytes, std::size_t size, off_t offset) {                    \
        static auto* const real = next<decltype(name)>(#name);                                     \
        const auto call = [&](std::size_t count) { return real(file, bytes, count, offset); };     \
        return isBelow(file) ? written(#name, file, size, call) : call(size);                      \
    }
PWRITE(pwrite)
PWRITE(pwrite64)

int close(int file) {
    static auto* const real = next<decltype(close)>("close");
    if (!isBelow(file)) {
        return real(file);
    }
    const Verdict verdict = count("close", file, pathOf(file));
    openPaths[file][0] = '\0';
    const int result = real(file); // a close that fails has closed all the same
    return decide(verdict, -1, [&] { return result; });
}

/// Calls whose first argument says whether they are below the folder.
#define BY_FILE(result, failure, name, parameters, ...)                                            \
    result name parameters {                                                                       \
        static auto* const real = next<result parameters>(#name);                                  \
        const auto call = [&] { return real(__VA_ARGS__); };                                       \
        return isBelow(file) ? decide(count(#name, file, pathOf(file)), result(failure), call)     \
                             : call();                                                             \
    }
BY_FILE(ssize_t, -1, read, (int file, void* bytes, std::size_t size), file, bytes, size)
BY_FILE(ssize_t, -1, pread, (int file, void* bytes, std::size_t size, off_t offset), file, bytes,
        size, offset)
BY_FILE(int, -1, fsync, (int file), file)
BY_FILE(int, -1, fdatasync, (int file), file)
BY_FILE(int, -1, flock, (int file, int operation), file, operation)
BY_FILE(int, -1, ftruncate, (int file, off_t size) noexcept, file, size)
BY_FILE(int, -1, fchmod, (int file, mode_t mode) noexcept, file, mode)
BY_FILE(int, -1, fstat, (int file, struct stat* status) noexcept, file, status)
BY_FILE(int, -1, fstat64, (int file, struct stat64* status) noexcept, file, status)

#define BY_PATH(grows, name, parameters, ...)                                                      \
    int name parameters {                                                                          \
        static auto* const real = next<int parameters>(#name);                                     \
        const auto call = [&] { return real(__VA_ARGS__); };                                       \
        return isBelow(path) ? decide(count(#name, -1, path, grows), -1, call) : call();           \
    }
BY_PATH(false, stat, (const char* path, struct stat* status) noexcept, path, status)
BY_PATH(false, stat64, (const char* path, struct stat64* status) noexcept, path, status)
BY_PATH(false, lstat, (const char* path, struct stat* status) noexcept, path, status)
BY_PATH(false, lstat64, (const char* path, struct stat64* status) noexcept, path, status)
BY_PATH(false, access, (const char* path, int mode) noexcept, path, mode)
BY_PATH(false, unlink, (const char* path) noexcept, path)
BY_PATH(false, rmdir, (const char* path) noexcept, path)
BY_PATH(false, remove, (const char* path) noexcept, path)
BY_PATH(false, truncate, (const char* path, off_t size) noexcept, path, size)
BY_PATH(false, chmod, (const char* path, mode_t mode) noexcept, path, mode)
BY_PATH(true, mkdir, (const char* path, mode_t mode) noexcept, path, mode)

/// Two paths: traced is the second, the new name.
#define TO_PATH(name, parameters, ...)                                                             \
    int name parameters {                                                                          \
        static auto* const real = next<int parameters>(#name);                                     \
        const auto call = [&] { return real(__VA_ARGS__); };                                       \
        return isBelow(path) ? decide(count(#name, -1, path, true), -1, call) : call();            \
    }
TO_PATH(rename, (const char* from, const char* path) noexcept, from, path)
TO_PATH(link, (const char* from, const char* path) noexcept, from, path)
TO_PATH(symlink, (const char* from, const char* path) noexcept, from, path)

#define AT_PATH(grows, name, parameters, ...)                                                      \
    int name parameters {                                                                          \
        static auto* const real = next<int parameters>(#name);                                     \
        const auto call = [&] { return real(__VA_ARGS__); };                                       \
        return isBelow(folder, path) ? decide(count(#name, -1, path, grows), -1, call) : call();   \
    }
AT_PATH(false, fstatat, (int folder, const char* path, struct stat* status, int flags) noexcept,
        folder, path, status, flags)
AT_PATH(false, fstatat64, (int folder, const char* path, struct stat64* status, int flags) noexcept,
        folder, path, status, flags)
AT_PATH(false, statx,
        (int folder, const char* path, int flags, unsigned mask, struct statx* status) noexcept,
        folder, path, flags, mask, status)
AT_PATH(false, unlinkat, (int folder, const char* path, int flags) noexcept, folder, path, flags)
AT_PATH(true, mkdirat, (int folder, const char* path, mode_t mode) noexcept, folder, path, mode)
AT_PATH(true, renameat, (int from, const char* old, int folder, const char* path) noexcept, from,
        old, folder, path)
AT_PATH(true, renameat2,
        (int from, const char* old, int folder, const char* path, unsigned flags) noexcept, from,
        old, folder, path, flags)
AT_PATH(true, linkat, (int from, const char* old, int folder, const char* path, int flags) noexcept,
        from, old, folder, path, flags)

/// The streams of folders below ours; the program has few open at once.
constexpr int mostFolders = 16;
DIR* openFolders[mostFolders];

DIR* opendir(const char* path) {
    static auto* const real = next<DIR*(const char*)>("opendir");
    const auto call = [&] { return real(path); };
    if (!isBelow(path)) {
        return call();
    }
    DIR* const folder = decide(count("opendir", -1, path), static_cast<DIR*>(nullptr), call);
    for (DIR*& place : openFolders) {
        if (folder != nullptr && place == nullptr) {
            place = folder;
            break;
        }
    }
    return folder;
}

#define READDIR(name, entry)                                                                       \
    entry* name(DIR* folder) {                                                                     \
        static auto* const real = next<entry*(DIR*)>(#name);                                       \
        const auto call = [&] { return real(folder); };                                            \
        for (DIR* const place : openFolders) {                                                     \
            if (place == folder && folder != nullptr) {                                            \
                return decide(count("readdir", -1, ""), static_cast<entry*>(nullptr), call);       \
            }                                                                                      \
        }                                                                                          \
        return call();                                                                             \
    }
READDIR(readdir, dirent)
READDIR(readdir64, dirent64)

int closedir(DIR* folder) {
    static auto* const real = next<int(DIR*)>("closedir");
    for (DIR*& place : openFolders) {
        if (place == folder) {
            place = nullptr;
        }
    }
    return real(folder);
}

} // extern "C"
// NOLINTEND(bugprone-macro-parentheses,clang-analyzer-valist.Uninitialized)
