#include "cli/Printable.h"

#include "TaxCore/base/Utf8.h"

#include <algorithm>
#include <array>

namespace fiscarel::cli {

namespace {

constexpr std::string_view replacement = "\uFFFD";

/// The code point of a whole UTF-8 sequence.
char32_t codePoint(std::string_view sequence) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(sequence[i]); };
    char32_t code = sequence.size() == 1 ? byte(0) : byte(0) & (0x7FU >> sequence.size());
    for (std::size_t i = 1; i < sequence.size(); ++i) {
        code = code << 6U | (byte(i) & 0x3FU);
    }
    return code;
}

bool isShown(char32_t code) {
    constexpr char32_t lineSeparator = 0x2028; // followed by the marks that turn the direction
    constexpr char32_t lastOverride = 0x202E;
    constexpr char32_t firstIsolate = 0x2066;
    constexpr char32_t lastIsolate = 0x2069;
    constexpr std::array<char32_t, 4> marks{
        0x061C, // Arabic letter mark
        0x200E, // left-to-right mark
        0x200F, // right-to-left mark
        0xFEFF, // byte order mark
    };
    const bool control = code < 0x20 || (code >= 0x7F && code <= 0x9F);
    const bool layout = (code >= lineSeparator && code <= lastOverride)
                        || (code >= firstIsolate && code <= lastIsolate);
    const bool mark = std::ranges::find(marks, code) != marks.end();
    return !control && !layout && !mark;
}

/// How one well-formed sequence is shown.
std::string_view shown(std::string_view sequence) {
    if (sequence == "\n" || sequence == "\r" || sequence == "\t") {
        return " ";
    }
    return isShown(codePoint(sequence)) ? sequence : replacement;
}

} // namespace

std::string printable(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    while (!text.empty()) {
        const std::size_t length = taxcore::utf8Length(text);
        result += length > 0 ? shown(text.substr(0, length)) : replacement;
        text.remove_prefix(std::max<std::size_t>(length, 1));
    }
    return result;
}

} // namespace fiscarel::cli
