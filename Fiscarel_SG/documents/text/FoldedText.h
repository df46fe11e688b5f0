#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace fiscarel {

/// The words of a text as labels are compared: lower-case letters a to z and digits, one blank
/// between words. Marks on letters fall away, and so does the e of "ae", "oe" and "ue", so that
/// both spellings of an umlaut are one. Whatever is no well-formed UTF-8 separates words.
std::string foldWords(std::string_view text);

/// The text with printers' ligatures ("ﬁ") as single letters and everything else as it is.
std::string withoutLigatures(std::string_view text);

/// The folded words one by one.
std::vector<std::string> foldedTokens(std::string_view text);

/// Whether folded words stand in a folded text, at the borders of words. An open
/// phrase's last word may go on.
bool hasPhrase(std::string_view folded, std::string_view phrase, bool isOpen = false);

/// Whether two words are the same but for at most `most` letters wrong, missing or too many.
bool isWithinEdits(std::string_view a, std::string_view b, std::size_t most);

} // namespace fiscarel
