#pragma once

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string_view>

namespace fiscarel {

constexpr bool isDigit(char c) { return c >= '0' && c <= '9'; }

/// Whether a text is made of digits and nothing else; false for an empty one.
constexpr bool hasOnlyDigits(std::string_view text) {
    return !text.empty() && std::ranges::all_of(text, isDigit);
}

constexpr std::size_t countDigits(std::string_view text) {
    return static_cast<std::size_t>(std::ranges::count_if(text, isDigit));
}

constexpr bool hasDigit(std::string_view text) { return std::ranges::any_of(text, isDigit); }

/// The value of a text of at most `mostDigits` digits (no more than nine) and nothing else.
constexpr std::optional<int> smallNumber(std::string_view text, std::size_t mostDigits) {
    if (!hasOnlyDigits(text) || text.size() > mostDigits) {
        return std::nullopt;
    }
    int value = 0;
    for (const char digit : text) {
        value = 10 * value + (digit - '0');
    }
    return value;
}

/// The year from 2000 on that a text of four digits is.
constexpr std::optional<int> yearOf2000s(std::string_view text) {
    return text.size() == 4 && text.starts_with("20") ? smallNumber(text, 4) : std::nullopt;
}

} // namespace fiscarel
