#pragma once

#include <string_view>

namespace taxcore {

/// Whether a text entered by the user holds nothing but blanks and line breaks.
constexpr bool isBlank(std::string_view text) noexcept {
    return text.find_first_not_of(" \t\r\n") == std::string_view::npos;
}

} // namespace taxcore
