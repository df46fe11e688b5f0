#include "Fiscarel_SG/documents/ReaderAnswer.h"

#include <algorithm>
#include <charconv>
#include <system_error>
#include <utility>

namespace fiscarel {

namespace {

constexpr std::size_t longestLine = 64;
constexpr std::size_t longestAnswer = std::size_t{64} << 20U;
constexpr std::size_t longestSentence = 500;
constexpr int mostPages = 1'000'000;

/// A number in plain digits, removed from the front of the text together with one blank after it.
template <class T>
std::optional<T> takeNumber(std::string_view& text) {
    T number = 0;
    const char* const last = text.data() + text.size();
    const auto [end, status] = std::from_chars(text.data(), last, number);
    if (status != std::errc{} || text.starts_with('-') || (end != last && *end != ' ')) {
        return std::nullopt;
    }
    text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    text.remove_prefix(std::min<std::size_t>(text.size(), 1));
    return number;
}

} // namespace

bool ReaderOutput::takeLine(std::string_view line) {
    const std::size_t end = std::min(line.find(' '), line.size());
    const std::string_view kind = line.substr(0, end);
    std::string_view rest = line.substr(std::min(end + 1, line.size()));
    if (kind == "progress") {
        const auto done = takeNumber<int>(rest);
        const auto total = takeNumber<int>(rest);
        if (!done || !total || !rest.empty() || *done > *total || *total > mostPages) {
            return false;
        }
        if (progress_) {
            progress_(*done, *total);
        }
        return true;
    }
    const auto size = takeNumber<std::size_t>(rest);
    const std::size_t most = kind == "problem" ? longestSentence : longestAnswer;
    if ((kind != "result" && kind != "image" && kind != "problem") || !size || !rest.empty()
        || *size > most) {
        return false;
    }
    kind_ = kind;
    size_ = *size;
    return true;
}

bool ReaderOutput::take(std::string_view piece) {
    while (!piece.empty()) {
        if (!kind_.empty()) {
            bytes_ += piece;
            return bytes_.size() <= size_;
        }
        const std::size_t end = piece.find('\n');
        line_ += piece.substr(0, std::min(end, longestLine + 1));
        if (line_.size() > longestLine) {
            return false;
        }
        if (end == std::string_view::npos) {
            return true;
        }
        piece.remove_prefix(end + 1);
        if (!takeLine(std::exchange(line_, {}))) {
            return false;
        }
    }
    return true;
}

tl::expected<ReaderAnswer, std::string> ReaderOutput::answer() && {
    if (kind_ == "problem") {
        return tl::unexpected(std::move(bytes_));
    }
    return ReaderAnswer{.kind = kind_ == "image" ? ReaderAnswer::Kind::image
                                                 : ReaderAnswer::Kind::result,
                        .bytes = std::move(bytes_)};
}

} // namespace fiscarel
