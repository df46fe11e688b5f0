#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace fiscarel::cli {

/// Columns of the texts for the terminal.
inline constexpr std::size_t lineWidth = 100;

/// Columns a terminal shows for UTF-8 text of Latin letters: one per code point.
std::size_t displayWidth(std::string_view text) noexcept;

/// The text padded with blanks on the right to `width` columns; longer texts stay whole.
std::string padRight(std::string_view text, std::size_t width);
/// The same with the blanks on the left.
std::string padLeft(std::string_view text, std::size_t width);

/// A cell of a table: on the right of its `width` columns, at least one blank before it. A text
/// that does not fit makes its line longer.
std::string cell(std::string_view text, std::size_t width);

/// Breaks a text between words into lines of at most `width` columns, each behind `indent`; a word
/// wider than that is cut.
std::string wrapped(std::string_view text, std::size_t width, std::string_view indent);

/// The line ended by a line feed, without the blanks before it.
std::string withoutTrailingBlanks(std::string line);

/// A heading in lines of at most `lineWidth` columns and the rule under it, as wide as the widest.
std::string heading(std::string_view text);

} // namespace fiscarel::cli
