#include "Fiscarel_SG/documents/text/Utf8Letters.h"

#include "TaxCore/base/Utf8.h"

#include <algorithm>
#include <array>

namespace fiscarel {

Utf8Letter firstLetter(std::string_view text) noexcept {
    const std::size_t length = taxcore::utf8Length(text);
    if (length == 0) {
        return {};
    }
    const auto byte = [text](std::size_t at) { return static_cast<unsigned char>(text[at]); };
    if (length == 1) {
        return {byte(0), 1};
    }
    char32_t code = byte(0) & (0x7FU >> length);
    for (std::size_t i = 1; i < length; ++i) {
        code = code << 6U | (byte(i) & 0x3FU);
    }
    return {code, length};
}

std::size_t charactersIn(std::string_view text) noexcept {
    return static_cast<std::size_t>(std::ranges::count_if(text, [](char c) {
        return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; // no byte within a character
    }));
}

bool isPlain(char32_t code) noexcept {
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
    const bool isControl = code < 0x20 || (code >= 0x7F && code <= 0x9F);
    const bool isLayout = (code >= lineSeparator && code <= lastOverride)
                          || (code >= firstIsolate && code <= lastIsolate);
    return !isControl && !isLayout && std::ranges::find(marks, code) == marks.end();
}

std::string plainText(std::string_view text) {
    std::string plain;
    plain.reserve(text.size());
    while (!text.empty()) {
        const Utf8Letter letter = firstLetter(text);
        if (letter.code == '\n' || letter.code == '\r' || letter.code == '\t') {
            plain += ' ';
        } else if (isPlain(letter.code)) {
            plain += text.substr(0, letter.length);
        }
        text.remove_prefix(letter.length);
    }
    return plain;
}

bool isThousandsMark(char32_t code) noexcept {
    constexpr std::array<char32_t, 15> marks{U'\'',     U'`',      U'\u00B4', U'\u00B0', U'\u00BA',
                                             U'\u2018', U'\u2019', U'\u201B', U'\u2032', U'\u02B9',
                                             U'\u02BC', U'\u00A0', U'\u202F', U'\u2009', U'\u201A'};
    return std::ranges::find(marks, code) != marks.end();
}

bool startsSmall(std::string_view text) noexcept {
    const char32_t first = text.empty() ? U'A' : firstLetter(text).code;
    return (first >= U'a' && first <= U'z') || (first >= U'\u00DF' && first <= U'\u00FF');
}

bool isDash(char32_t code) noexcept {
    return code == U'-' || (code >= U'\u2010' && code <= U'\u2015') || code == U'\u2212';
}

} // namespace fiscarel
