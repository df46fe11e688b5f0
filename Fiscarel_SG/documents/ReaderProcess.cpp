#include "Fiscarel_SG/documents/ReaderProcess.h"

#include "Fiscarel_SG/documents/ReaderAnswer.h"
#include "Fiscarel_SG/store/FileSystem.h"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/eventfd.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <system_error>
#include <utility>

namespace fiscarel {

namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

/// An open file that closes itself.
class OpenFile {
  public:
    explicit OpenFile(int number = -1) noexcept : number_(number) {}
    OpenFile(const OpenFile&) = delete;
    OpenFile(OpenFile&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
    OpenFile& operator=(const OpenFile&) = delete;
    OpenFile& operator=(OpenFile&& other) noexcept {
        std::swap(number_, other.number_);
        return *this;
    }
    ~OpenFile() {
        if (number_ >= 0) {
            close(number_);
        }
    }
    int number() const noexcept { return number_; }
    explicit operator bool() const noexcept { return number_ >= 0; }

  private:
    int number_;
};

std::string crashSentence() {
    return "Diese Datei lässt sich nicht lesen: Das Leseprogramm ist an ihr gescheitert.";
}
std::string timeSentence() { return "Diese Datei liess sich in der erlaubten Zeit nicht lesen."; }
std::string stoppedSentence() { return "Das Lesen wurde abgebrochen."; }

/// Opens a document without waiting for anything: only plain files of bounded size.
tl::expected<OpenFile, std::string> openPlainFile(const fs::path& path) {
    const auto refused = [&](int code) {
        return tl::unexpected("Diese Datei lässt sich nicht lesen. "
                              + FileError{code, path}.reason());
    };
    OpenFile file(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    if (!file) {
        return refused(errno == ENXIO ? EINVAL : errno);
    }
    struct stat status {};
    if (fstat(file.number(), &status) != 0) {
        return refused(errno);
    }
    if (!S_ISREG(status.st_mode)) {
        return refused(S_ISDIR(status.st_mode) ? EISDIR : EINVAL);
    }
    if (status.st_size == 0) {
        return tl::unexpected<std::string>(
            "Diese Datei ist leer. Bitte den Beleg nochmals speichern oder scannen.");
    }
    if (status.st_size > static_cast<off_t>(largestDocument)) {
        return tl::unexpected<std::string>("Diese Datei ist zu gross: Möglich sind 100 MB.");
    }
    return file;
}

/// A started process; it is ended with this object at the latest.
class Child {
  public:
    explicit Child(pid_t id) noexcept : id_(id) {}
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;
    ~Child() {
        kill(id_, SIGKILL);
        while (waitpid(id_, nullptr, 0) < 0 && errno == EINTR) {
        }
    }

  private:
    pid_t id_;
};

struct SpawnSetup {
    SpawnSetup() {
        posix_spawn_file_actions_init(&actions);
        posix_spawnattr_init(&attributes);
    }
    SpawnSetup(const SpawnSetup&) = delete;
    SpawnSetup& operator=(const SpawnSetup&) = delete;
    ~SpawnSetup() {
        posix_spawn_file_actions_destroy(&actions);
        posix_spawnattr_destroy(&attributes);
    }

    posix_spawn_file_actions_t actions{};
    posix_spawnattr_t attributes{};
};

/// The document becomes its standard input, `output` its standard output; it inherits nothing else,
/// and of the environment only where the languages are.
pid_t spawn(const ReaderCall& call, const OpenFile& document, const OpenFile& output) {
    SpawnSetup setup;
    auto* const actions = &setup.actions;
    posix_spawn_file_actions_adddup2(actions, document.number(), STDIN_FILENO);
    posix_spawn_file_actions_adddup2(actions, output.number(), STDOUT_FILENO);
    posix_spawn_file_actions_addopen(actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_addclosefrom_np(actions, STDERR_FILENO + 1);
    sigset_t none;
    sigset_t all;
    sigemptyset(&none);
    sigfillset(&all);
    posix_spawnattr_setsigmask(&setup.attributes, &none);
    posix_spawnattr_setsigdefault(&setup.attributes, &all);
    posix_spawnattr_setflags(&setup.attributes, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);

    std::vector<std::string> words{call.program.string()};
    words.insert(words.end(), call.arguments.begin(), call.arguments.end());
    std::vector<std::string> settings{"LANG=C.UTF-8", "OMP_THREAD_LIMIT=1", "PATH=/usr/bin:/bin"};
    if (const char* const data = std::getenv("TESSDATA_PREFIX")) { // NOLINT(concurrency-mt-unsafe)
        settings.push_back(std::string("TESSDATA_PREFIX=") + data);
    }
    const auto pointers = [](std::vector<std::string>& texts) {
        std::vector<char*> list;
        list.reserve(texts.size() + 1);
        for (std::string& text : texts) {
            list.push_back(text.data());
        }
        list.push_back(nullptr);
        return list;
    };
    pid_t id = -1;
    const int failed = posix_spawn(&id, call.program.c_str(), actions, &setup.attributes,
                                   pointers(words).data(), pointers(settings).data());
    return failed == 0 ? id : -1;
}

/// Why waiting for output ended.
enum class Ending { finished, malformed, outOfTime, stopped };

/// Reads what the process writes until it closes its output, the time is over or the stop asked.
Ending readOutput(const ReaderCall& call, const OpenFile& input, const OpenFile& bell,
                  ReaderOutput& output) {
    using std::chrono::duration_cast;
    using std::chrono::milliseconds;
    const Clock::time_point end = Clock::now() + call.timeLimit;
    std::array<char, 65536> piece{};
    while (true) {
        if (call.stop.stop_requested()) {
            return Ending::stopped;
        }
        const auto left = duration_cast<milliseconds>(end - Clock::now()).count();
        if (left <= 0) {
            return Ending::outOfTime;
        }
        std::array<pollfd, 2> sources{pollfd{input.number(), POLLIN, 0},
                                      pollfd{bell.number(), POLLIN, 0}};
        constexpr std::int64_t longest = 60'000;
        if (poll(sources.data(), sources.size(), static_cast<int>(std::min(left, longest))) <= 0
            || sources[0].revents == 0) {
            continue;
        }
        const ssize_t size = read(input.number(), piece.data(), piece.size());
        if (size < 0 && errno == EINTR) {
            continue;
        }
        if (size <= 0) {
            return Ending::finished;
        }
        if (!output.take({piece.data(), static_cast<std::size_t>(size)})) {
            return Ending::malformed;
        }
    }
}

} // namespace

fs::path readerProgram() {
    std::error_code error;
    const fs::path folder = fs::read_symlink("/proc/self/exe", error).parent_path();
    for (const fs::path& program :
         {folder / "fiscarel-reader",
          folder.parent_path() / "libexec" / "fiscarel-sg" / "fiscarel-reader"}) {
        if (!folder.empty() && fs::is_regular_file(program, error)) {
            return program;
        }
    }
    return {};
}

tl::expected<ReaderAnswer, std::string> askReader(const ReaderCall& call) {
    const auto document = openPlainFile(call.document);
    if (!document) {
        return tl::unexpected(document.error());
    }
    std::array<int, 2> ends{-1, -1};
    const OpenFile bell(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK));
    if (!bell || pipe2(ends.data(), O_CLOEXEC) != 0) {
        return tl::unexpected<std::string>("Das Betriebssystem lässt gerade kein Lesen zu.");
    }
    const OpenFile input(ends[0]);
    OpenFile output(ends[1]);
    const pid_t id = call.program.empty() ? -1 : spawn(call, *document, output);
    if (id < 0) {
        return tl::unexpected<std::string>(
            "Das Leseprogramm «fiscarel-reader» fehlt oder lässt sich nicht starten.");
    }
    Child child(id);
    output = OpenFile();
    const std::stop_callback ring(call.stop, [&] {
        constexpr std::uint64_t once = 1;
        static_cast<void>(write(bell.number(), &once, sizeof once));
    });
    ReaderOutput taken(call.progress);
    switch (readOutput(call, input, bell, taken)) {
    case Ending::stopped:
        return tl::unexpected(stoppedSentence());
    case Ending::outOfTime:
        return tl::unexpected(timeSentence());
    case Ending::malformed:
        return tl::unexpected(crashSentence());
    case Ending::finished:
        break;
    }
    // How the process ends no longer matters: the answer is whole, or there is none.
    if (!taken.isWhole()) {
        return tl::unexpected(crashSentence());
    }
    return std::move(taken).answer();
}

} // namespace fiscarel
