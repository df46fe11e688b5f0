#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace fiscarel {

/// A character at the beginning of a text.
struct Utf8Letter {
    char32_t code = 0;      ///< 0 for a byte that begins no well-formed sequence
    std::size_t length = 1; ///< bytes
};

/// The first character of a text that is not empty.
Utf8Letter firstLetter(std::string_view text) noexcept;

/// Whether a text begins with a small letter of German, French, Italian or English, as what goes on
/// from the line before does.
bool startsSmall(std::string_view text) noexcept;

/// How many characters a text has.
std::size_t charactersIn(std::string_view text) noexcept;

/// Whether a character neither steers a terminal or a file nor turns the direction of writing:
/// C0, DEL, C1, line separators, direction marks and byte order marks do.
bool isPlain(char32_t code) noexcept;

/// A text of unknown origin as one line of plain characters: line feeds and tabs become blanks,
/// other characters that are not plain, and bytes that are no UTF-8, are left out.
std::string plainText(std::string_view text);

/// Whether a character separates thousands in an amount, as printed or as recognition mistakes it:
/// apostrophes, accents standing alone, the degree sign, narrow and unbreakable blanks.
bool isThousandsMark(char32_t code) noexcept;

/// Whether a character is a hyphen, dash or minus sign.
bool isDash(char32_t code) noexcept;

} // namespace fiscarel
