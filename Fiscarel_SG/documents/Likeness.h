#pragma once

#include <string_view>

namespace fiscarel {

// Whether names mean the same, as people and papers write them: letter case, accents, blanks and
// punctuation do not matter, and ae, oe, ue count as ä, ö, ü. An empty name is like none.

bool alike(std::string_view first, std::string_view second);

/// Whether the words of `name` stand among those of `text`, in any order.
bool isNamedIn(std::string_view name, std::string_view text);

} // namespace fiscarel
