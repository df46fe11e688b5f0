#include "TaxCore/base/Iban.h"

#include <algorithm>

namespace taxcore {

namespace {

constexpr std::size_t shortest = 15;
constexpr std::size_t longest = 34;
constexpr std::size_t swissLength = 21;

bool isDigit(char c) { return c >= '0' && c <= '9'; }
bool isCapital(char c) { return c >= 'A' && c <= 'Z'; }

bool hasShape(std::string_view compact) {
    return compact.size() >= shortest && compact.size() <= longest && isCapital(compact[0])
           && isCapital(compact[1]) && isDigit(compact[2]) && isDigit(compact[3])
           && std::ranges::all_of(compact, [](char c) { return isDigit(c) || isCapital(c); });
}

/// Remainder by 97 of the number that digits and letters (A is 10) spell, after `remainder`.
int remainderBy97(std::string_view characters, int remainder) {
    for (const char c : characters) {
        remainder = isDigit(c) ? (remainder * 10 + (c - '0')) % 97
                               : (remainder * 100 + (c - 'A' + 10)) % 97;
    }
    return remainder;
}

} // namespace

std::string compactIban(std::string_view text) {
    std::string compact;
    for (const char c : text) {
        if (c != ' ' && c != '\t') {
            compact += c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
        }
    }
    return compact;
}

bool looksLikeIban(std::string_view text) { return hasShape(compactIban(text)); }

bool isValidIban(std::string_view text) {
    const std::string compact = compactIban(text);
    if (!hasShape(compact)) {
        return false;
    }
    const bool swiss = compact.starts_with("CH") || compact.starts_with("LI");
    const std::string_view characters = compact;
    return (!swiss || compact.size() == swissLength)
           && remainderBy97(characters.substr(0, 4), remainderBy97(characters.substr(4), 0)) == 1;
}

} // namespace taxcore
