// Reads one untrusted document and answers on standard output.
//   fiscarel-reader scan SECONDS [FILE]         a ScanResult as JSON
//   fiscarel-reader render PAGE WIDTH [FILE]    a page as PNG
//   fiscarel-reader --raw [FILE]                what stands in the document, for developers
// Without a file the document is standard input.

#include "Fiscarel_SG/DocumentScanner.h"
#include "Fiscarel_SG/documents/SecondReader.h"
#include "reader/Answer.h"
#include "reader/Limits.h"
#include "reader/Scan.h"
#include "reader/Straighten.h"
#include "reader/TimeLimit.h"
#include "reader/Warp.h"

#include <fcntl.h>
#include <leptonica/allheaders.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

namespace {

using namespace fiscarel;
using namespace fiscarel::reader;

constexpr int usage = 2;

struct Call {
    enum class Mode { scan, render, raw };
    Mode mode = Mode::scan;
    int seconds = 120;
    int page = 1;
    int width = 0;
    const char* file = nullptr;
};

std::optional<int> numberIn(std::string_view text, int most) {
    int number = 0;
    const auto [end, status] = std::from_chars(text.data(), text.data() + text.size(), number);
    const bool isGood =
        status == std::errc{} && end == text.data() + text.size() && number >= 1 && number <= most;
    return isGood ? std::optional(number) : std::nullopt;
}

std::optional<Call> understood(const std::vector<std::string_view>& words, char** argv) {
    constexpr int mostSeconds = 3600;
    constexpr int mostPages = 1'000'000;
    constexpr int widest = 8000;
    Call call;
    std::size_t used = 1;
    if (words.size() > 1 && words[0] == "scan") {
        const auto seconds = numberIn(words[1], mostSeconds);
        call.seconds = seconds.value_or(0);
        used = seconds ? 2 : 0;
    } else if (words.size() > 2 && words[0] == "render") {
        const auto page = numberIn(words[1], mostPages);
        const auto width = numberIn(words[2], widest);
        call.mode = Call::Mode::render;
        call.page = page.value_or(0);
        call.width = width.value_or(0);
        used = page && width ? 3 : 0;
    } else if (!words.empty() && words[0] == "--raw") {
        call.mode = Call::Mode::raw;
    } else {
        return std::nullopt;
    }
    if (used == 0 || words.size() > used + 1) {
        return std::nullopt;
    }
    if (words.size() == used + 1) {
        call.file = argv[used + 1];
    }
    return call;
}

/// Reads an open file to its end; one more byte than allowed when it is too long.
std::string contentOf(int file) {
    std::string bytes;
    struct stat status {};
    if (fstat(file, &status) == 0 && status.st_size > 0) {
        bytes.reserve(std::min(static_cast<std::size_t>(status.st_size), largestDocument) + 1);
    }
    std::array<char, 65536> piece{};
    while (bytes.size() <= largestDocument) {
        const ssize_t size = read(file, piece.data(), piece.size());
        if (size <= 0) {
            break;
        }
        bytes.append(piece.data(), static_cast<std::size_t>(size));
    }
    return bytes;
}

std::optional<Fault> faultOf(const std::string& bytes) {
    if (bytes.empty()) {
        return "Diese Datei ist leer oder lässt sich nicht lesen.";
    }
    if (bytes.size() > largestDocument) {
        return "Diese Datei ist zu gross: Möglich sind 100 MB.";
    }
    return std::nullopt;
}

Deadline deadlineOf(const Call& call) {
    return std::chrono::steady_clock::now() + std::chrono::seconds(call.seconds);
}

Scanned scanned(const std::string& bytes, const Call& call, Deadline deadline) {
    if (auto fault = faultOf(bytes)) {
        return {.problem = std::move(fault)};
    }
    constexpr unsigned mostThreads = 4; // each holds the languages in memory
    return scanDocument(
        bytes, {.deadline = deadline,
                .threads = std::clamp(std::thread::hardware_concurrency(), 1U, mostThreads),
                .progress = [&](int done, int total) {
                    if (call.mode == Call::Mode::scan) {
                        Answer::progress(done, total);
                    }
                }});
}

/// Adds what a reading proposes; by the deadline, or else the text has to do.
ScanResult withProposals(ScanResult result, DocumentReading reading, Deadline deadline) {
    const auto kept = std::make_shared<const DocumentReading>(std::move(reading));
    auto proposed = doneBy<ScanResult>(deadline, [result, kept]() mutable {
        propose(*kept, result);
        return std::move(result);
    });
    if (proposed) {
        return std::move(*proposed);
    }
    result.problem = (result.problem ? *result.problem + ' ' : std::string())
                     + "Die Beträge liessen sich in der erlaubten Zeit nicht vorschlagen; der Text "
                       "ist gelesen.";
    return result;
}

bool scan(const std::string& bytes, const Call& call) {
    constexpr std::chrono::seconds forProposals{8}; // who asks waits longer than that
    const Deadline deadline = deadlineOf(call);
    Scanned found = scanned(bytes, call, deadline);
    ScanResult result = DocumentScanner::read(std::move(found.text), std::move(found.barcodes));
    result.pageCount = found.reading.pageCount;
    result.problem = std::move(found.problem);
    result = withProposals(std::move(result), std::move(found.reading), deadline + forProposals);
    return Answer::give("result", taxcore::toJson(result, taxcore::JsonStyle::compact));
}

bool raw(const std::string& bytes, const Call& call) {
    const Scanned found = scanned(bytes, call, deadlineOf(call));
    if (found.problem) {
        std::fprintf(stderr, "%s\n", found.problem->c_str());
    }
    const std::string json = readingJson(found.reading);
    return std::fwrite(json.data(), 1, json.size(), stdout) == json.size()
           && std::fflush(stdout) == 0;
}

/// The page as it was read: a scan stands upright, so that places on it are found again.
PixPtr shown(const Document& document, const Call& call) {
    std::string layer;
    for (int page = 1;
         page <= std::min(document.pageCount(), bounds::textPages) && hasLittleText(layer);
         ++page) {
        layer += document.text(page).text;
    }
    if (!isReadFromPicture(document, call.page, document.text(call.page), hasLittleText(layer))) {
        return document.preview(call.page, call.width);
    }
    const Picture source = document.picture(call.page);
    if (!source) {
        return nullptr;
    }
    Recognition recognition;
    const Upright upright = findUpright(source, document.mayBePhoto(call.page), recognition);
    if (upright.isUnchanged) {
        return document.preview(call.page, call.width);
    }
    const double scale = static_cast<double>(call.width) / std::max(upright.width, 1);
    const int height =
        std::clamp(static_cast<int>(std::lround(upright.height * scale)), 1, 4 * call.width);
    const double sourceScale = scale * upright.dpi / source.dpi;
    const int sourceWidth = std::max(1, static_cast<int>(widthOf(source.grey) * sourceScale));
    const PixPtr page = document.preview(call.page, sourceWidth);
    const double previewScale = static_cast<double>(widthOf(page)) / widthOf(source.grey);
    return warped(page,
                  Mapping::scaling(previewScale)
                      .after(wayBack(source, upright))
                      .after(Mapping::scaling(1 / scale)),
                  call.width, height);
}

bool render(const std::string& bytes, const Call& call) {
    if (const auto fault = faultOf(bytes)) {
        return Answer::give("problem", *fault);
    }
    const auto document = openDocument(bytes, deadlineOf(call));
    if (!document) {
        return Answer::give("problem", document.error());
    }
    const bool hasPage = call.page <= (*document)->pageCount();
    const std::string png = hasPage ? pngOf(shown(**document, call)) : std::string();
    return png.empty() ? Answer::give("problem", "Diese Seite lässt sich nicht darstellen.")
                       : Answer::give("image", png);
}

bool work(const Call& call, const std::string& bytes) {
    switch (call.mode) {
    case Call::Mode::scan:
        return scan(bytes, call);
    case Call::Mode::render:
        return render(bytes, call);
    case Call::Mode::raw:
        break;
    }
    return raw(bytes, call);
}

/// The recogniser's threads are no help here, and it looks at this only when it is loaded.
void startAgainWithOneThreadPerPage(char** argv) {
    if (std::getenv("OMP_THREAD_LIMIT") == nullptr) {
        setenv("OMP_THREAD_LIMIT", "1", 1);
        execv("/proc/self/exe", argv);
    }
}

std::size_t writableBytes() {
    constexpr std::size_t most = std::size_t{256} << 20U;
    struct stat status {};
    return fstat(STDOUT_FILENO, &status) == 0 && S_ISREG(status.st_mode) ? most : 0;
}

} // namespace

int main(int argc, char** argv) {
    startAgainWithOneThreadPerPage(argv);
    const auto call = understood({argv + std::min(argc, 1), argv + argc}, argv);
    if (!call) {
        std::fputs(
            "fiscarel-reader scan SECONDS [FILE] | render PAGE WIDTH [FILE] | --raw [FILE]\n",
            stderr);
        return usage;
    }
    const int file =
        call->file == nullptr ? STDIN_FILENO : open(call->file, O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (!confine({.fileBytes = writableBytes()})) {
        std::fputs("The limits cannot be set.\n", stderr);
        _exit(EXIT_FAILURE);
    }
    setMsgSeverity(L_SEVERITY_NONE);
    bool isDone = false;
    try {
        const std::string bytes = contentOf(file);
        isDone = work(*call, bytes);
    } catch (const std::exception&) {
        isDone = Answer::give("problem", "Dieses Dokument braucht beim Lesen zu viel Speicher.");
    }
    // Threads may still be at work on a page, or proposals, that take too long.
    _exit(isDone ? EXIT_SUCCESS : EXIT_FAILURE);
}
