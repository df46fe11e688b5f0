#pragma once

#include <tl/expected.hpp>

#include <chrono>
#include <filesystem>
#include <functional>
#include <stop_token>
#include <string>
#include <vector>

namespace fiscarel {

/// Told of the pages that are read; called on the thread that waits.
using PagesRead = std::function<void(int done, int total)>;

/// What the reading process is asked about a document.
struct ReaderCall {
    std::filesystem::path program; ///< the reading process
    std::filesystem::path document;
    std::vector<std::string> arguments;
    std::chrono::milliseconds timeLimit{150'000}; ///< after which it is ended
    PagesRead progress;
    std::stop_token stop;
};

/// What it answers, whole and of bounded size, but of unproven content.
struct ReaderAnswer {
    enum class Kind { result, image };

    Kind kind = Kind::result;
    std::string bytes;
};

/// Where the reading process stands: beside the running program, else in "../libexec/fiscarel-sg"
/// seen from it; empty when it is in neither place.
std::filesystem::path readerProgram();

/// Starts the reading process on a document, which it gets as an open file, and waits for the
/// answer. Whatever goes wrong, a crash included, becomes one German sentence. Safe to call from
/// any thread, several at once.
tl::expected<ReaderAnswer, std::string> askReader(const ReaderCall& call);

} // namespace fiscarel
