// What a process can no longer do once it is confined, and what it still can.

#include "reader/Limits.h"

#include "reader/ReadableFolders.h"
#include "tests/documents/reader/Files.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <spawn.h>
#include <sys/mman.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <functional>
#include <thread>

namespace fiscarel::reader {
namespace {

constexpr int held = 0;
constexpr int notConfined = 99;

/// Runs in a confined child; its number is the first check that failed, `held` when none did.
int inConfinedChild(const Limits& limits, const std::function<int()>& checks) {
    const pid_t child = fork();
    if (child == 0) {
        _exit(confine(limits) ? checks() : notConfined);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

TEST(Limits, aConfinedProcessChangesNothingAndReachesNobody) {
    const TestFolder folder;
    const auto own = folder.write("own", "text");
    const int standing = open(own.c_str(), O_RDWR | O_CLOEXEC);
    const pid_t parent = getpid();
    const int result = inConfinedChild({}, [&] {
        const auto refused = [](long outcome) {
            return outcome < 0 && (errno == EPERM || errno == EACCES);
        };
        const std::function<bool()> attempts[]{
            [&] { return refused(open(own.c_str(), O_WRONLY)); },
            [&] { return refused(open(own.c_str(), O_RDWR)); },
            [&] { return refused(open(own.c_str(), O_RDONLY | O_TRUNC)); },
            [&] {
                return refused(open((folder.path() / "new").c_str(), O_RDONLY | O_CREAT, 0600));
            },
            [&] { return refused(open(folder.path().c_str(), O_TMPFILE | O_RDWR, 0600)); },
            [&] { return refused(unlink(own.c_str())); },
            [&] { return refused(rename(own.c_str(), (folder.path() / "moved").c_str())); },
            [&] { return refused(mkdir((folder.path() / "folder").c_str(), 0700)); },
            [&] { return refused(chmod(own.c_str(), 0)); },
            [&] { return refused(truncate(own.c_str(), 0)); },
            [&] { return refused(ftruncate(standing, 0)); },
            [&] { return refused(socket(AF_INET, SOCK_STREAM, 0)); },
            [&] { return refused(socket(AF_UNIX, SOCK_STREAM, 0)); },
            [&] { return refused(fork()); },
            [&] { return refused(execl("/bin/true", "true", nullptr)); },
            [&] {
                pid_t id = 0;
                char name[] = "true";
                char* const words[]{name, nullptr};
                return posix_spawn(&id, "/bin/true", nullptr, nullptr, words, nullptr) != 0;
            },
            [&] { return refused(kill(parent, 0)); },
            [&] { return refused(memfd_create("memory", 0)); },
            [&] { return refused(setuid(getuid())); },
        };
        int number = 0;
        for (const auto& isRefused : attempts) {
            ++number;
            if (!isRefused()) {
                return number;
            }
        }
        return held;
    });
    close(standing);
    EXPECT_EQ(result, held) << "the number of the attempt that was not refused";
    EXPECT_EQ(std::filesystem::file_size(own), 4U);
}

TEST(Limits, readingTheSystemsFilesAndThreadsStillWork) {
    const TestFolder folder;
    const auto own = folder.write("own", "text");
    const int standing = open(own.c_str(), O_RDONLY | O_CLOEXEC);
    const int result = inConfinedChild({}, [&] {
        char text[4];
        if (read(standing, text, sizeof text) != 4) {
            return 1;
        }
        const int system = open("/etc/passwd", O_RDONLY | O_CLOEXEC);
        if (read(system, text, sizeof text) != 4) {
            return 2;
        }
        if (canBeKeptFromFolders() && open(own.c_str(), O_RDONLY | O_CLOEXEC) >= 0) {
            return 3;
        }
        int sum = 0;
        std::thread([&] { sum = 2; }).join();
        return sum == 2 ? held : 4;
    });
    close(standing);
    EXPECT_EQ(result, held) << "the number of the check that failed";
}

TEST(Limits, aFileThatStandsOpenForWritingGrowsNoFurther) {
    const TestFolder folder;
    const int file = open(folder.write("own", "").c_str(), O_WRONLY);
    EXPECT_EQ(inConfinedChild({},
                              [&] {
                                  std::signal(SIGXFSZ, SIG_IGN);
                                  return write(file, "x", 1) < 0 ? held : 1;
                              }),
              held);
    close(file);
    EXPECT_EQ(std::filesystem::file_size(folder.path() / "own"), 0U);
}

#if !defined(__SANITIZE_ADDRESS__)
TEST(Limits, memoryEnds) {
    EXPECT_EQ(inConfinedChild({.memoryBytes = std::size_t{512} << 20U},
                              [] {
                                  void* const memory =
                                      mmap(nullptr, std::size_t{600} << 20U, PROT_READ | PROT_WRITE,
                                           MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
                                  return memory == MAP_FAILED ? held : 1;
                              }),
              held);
}
#endif

TEST(Limits, computingTimeEnds) {
    const int signal = -inConfinedChild({.cpuSeconds = 1}, [] {
        volatile unsigned counter = 0;
        while (true) {
            counter = counter + 1;
        }
        return 1;
    });
    EXPECT_TRUE(signal == SIGXCPU || signal == SIGKILL) << signal;
}

} // namespace
} // namespace fiscarel::reader
