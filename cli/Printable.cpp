#include "cli/Printable.h"

#include "Fiscarel_SG/documents/text/Utf8Letters.h"

namespace fiscarel::cli {

namespace {

constexpr std::string_view replacement = "\uFFFD";

/// How one character is shown.
std::string_view shown(char32_t code, std::string_view sequence) {
    if (code == '\n' || code == '\r' || code == '\t') {
        return " ";
    }
    return isPlain(code) ? sequence : replacement;
}

} // namespace

std::string printable(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    while (!text.empty()) {
        const Utf8Letter letter = firstLetter(text);
        result += shown(letter.code, text.substr(0, letter.length));
        text.remove_prefix(letter.length);
    }
    return result;
}

} // namespace fiscarel::cli
