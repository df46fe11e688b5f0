#include "TaxCore/review/CheckText.h"

#include "TaxCore/base/Text.h"

#include <algorithm>

namespace taxcore::review {

namespace {

bool isLetter(char c) {
    return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z')
           || static_cast<unsigned char>(c) >= 0x80;
}

} // namespace

std::vector<std::string_view> wordsOf(std::string_view text) {
    std::vector<std::string_view> words;
    for (std::size_t at = 0; at < text.size();) {
        std::size_t end = at;
        while (end < text.size() && isLetter(text[end])) {
            ++end;
        }
        if (end > at) {
            words.push_back(text.substr(at, end - at));
        }
        at = end + 1;
    }
    return words;
}

bool hasWord(std::string_view text, std::string_view word) {
    return std::ranges::count(wordsOf(text), word) > 0;
}

std::string itemName(std::string_view name, std::string_view kind, int index) {
    if (!isBlank(name)) {
        return "«" + std::string(name) + "»";
    }
    return std::string(kind) + " " + std::to_string(index + 1);
}

} // namespace taxcore::review
