#pragma once

#include <string>
#include <string_view>

namespace taxcore {

/// Whether a text entered by the user holds nothing but blanks and line breaks.
constexpr bool isBlank(std::string_view text) noexcept {
    return text.find_first_not_of(" \t\r\n") == std::string_view::npos;
}

/// The text with the letters A to Z in lower case; every other byte stays.
inline std::string lowerAscii(std::string_view text) {
    std::string lower(text);
    for (char& c : lower) {
        if (c >= 'A' && c <= 'Z') {
            c = static_cast<char>(c - 'A' + 'a');
        }
    }
    return lower;
}

} // namespace taxcore
