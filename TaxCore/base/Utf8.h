#pragma once

#include <cstddef>
#include <string_view>

namespace taxcore {

/// Length in bytes of the well-formed UTF-8 sequence at the start of a text that is not empty; 0
/// when there is none (overlong forms, surrogates and values beyond U+10FFFF included).
std::size_t utf8Length(std::string_view text) noexcept;

} // namespace taxcore
