#include "TaxCore/base/Iban.h"

#include <algorithm>

namespace taxcore {

namespace {

constexpr std::size_t headLength = 4; // country and check digits
constexpr std::size_t shortest = 15;  // Norway
constexpr std::size_t longest = 34;

constexpr bool isDigit(char c) noexcept { return c >= '0' && c <= '9'; }
constexpr bool isLetter(char c) noexcept { return c >= 'A' && c <= 'Z'; }

bool isWellFormed(std::string_view iban) {
    return iban.size() > headLength && std::ranges::all_of(iban.substr(0, 2), isLetter)
           && std::ranges::all_of(iban.substr(2, 2), isDigit)
           && std::ranges::all_of(iban.substr(headLength),
                                  [](char c) { return isDigit(c) || isLetter(c); });
}

/// The remainder by 97 of the number that the account, then the head, spell; a letter stands for
/// two digits (A = 10).
int remainder(std::string_view iban) {
    int rest = 0;
    const auto read = [&](std::string_view part) {
        for (const char c : part) {
            rest = isDigit(c) ? rest * 10 + (c - '0') : rest * 100 + (c - 'A' + 10);
            rest %= 97;
        }
    };
    read(iban.substr(headLength));
    read(iban.substr(0, headLength));
    return rest;
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

bool looksLikeIban(std::string_view text) {
    const std::string iban = compactIban(text);
    return isWellFormed(iban) && iban.size() >= shortest && iban.size() <= longest;
}

std::optional<IbanFault> ibanFault(std::string_view text) {
    constexpr std::size_t swissLength = 21;
    constexpr std::size_t bankDigits = 5;
    const std::string iban = compactIban(text);
    if (!isWellFormed(iban)) {
        return IbanFault::form;
    }
    const bool swiss = iban.starts_with("CH") || iban.starts_with("LI");
    if (swiss ? iban.size() != swissLength : iban.size() < shortest || iban.size() > longest) {
        return IbanFault::length;
    }
    if (swiss
        && !std::ranges::all_of(std::string_view(iban).substr(headLength, bankDigits), isDigit)) {
        return IbanFault::form;
    }
    return remainder(iban) == 1 ? std::nullopt : std::optional(IbanFault::checkDigits);
}

} // namespace taxcore
