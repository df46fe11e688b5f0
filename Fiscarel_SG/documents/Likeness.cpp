#include "Fiscarel_SG/documents/Likeness.h"

#include "Fiscarel_SG/documents/text/FoldedText.h"

#include <algorithm>
#include <string>

namespace fiscarel {

namespace {

/// The name in one piece, however its words are written apart.
std::string inOnePiece(std::string_view name) {
    std::string folded = foldWords(name);
    std::erase(folded, ' ');
    return folded;
}

} // namespace

bool alike(std::string_view first, std::string_view second) {
    const std::string name = inOnePiece(first);
    return !name.empty() && name == inOnePiece(second);
}

bool isNamedIn(std::string_view name, std::string_view text) {
    const std::vector<std::string> words = foldedTokens(name);
    const std::vector<std::string> all = foldedTokens(text);
    return !words.empty() && std::ranges::all_of(words, [&](const std::string& word) {
        return std::ranges::find(all, word) != all.end();
    });
}

} // namespace fiscarel
