#pragma once

// Words in entered texts and names for list items, for the checks.

#include <string>
#include <string_view>
#include <vector>

namespace taxcore::review {

/// The words of a text: runs of letters and digits; every byte beyond ASCII counts as a letter.
std::vector<std::string_view> wordsOf(std::string_view text);

/// Whether a text is one of the words, in exactly this spelling.
bool hasWord(std::string_view text, std::string_view word);

/// How a sentence speaks of a list item: its name in guillemets, or what it is with its number.
std::string itemName(std::string_view name, std::string_view kind, int index);

} // namespace taxcore::review
