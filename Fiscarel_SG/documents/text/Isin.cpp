#include "Fiscarel_SG/documents/text/Isin.h"

#include "Fiscarel_SG/documents/text/Digits.h"

#include <algorithm>

namespace fiscarel {

bool isIsin(std::string_view word) {
    const auto isUpper = [](char c) { return c >= 'A' && c <= 'Z'; };
    return word.size() == 12 && isUpper(word[0]) && isUpper(word[1]) && isDigit(word[11])
           && std::ranges::all_of(word, [&](char c) { return isUpper(c) || isDigit(c); })
           && std::ranges::count_if(word, isDigit) >= 5; // else a word in capitals
}

} // namespace fiscarel
