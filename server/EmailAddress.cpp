#include "server/EmailAddress.h"

#include "TaxCore/base/Utf8.h"

#include <algorithm>

namespace fiscarel::server {

namespace {

constexpr std::size_t mostAddressBytes = 254;
constexpr std::size_t mostNameCharacters = 64;

bool isLetterOrDigit(char c) { return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9'); }

std::string_view trimmed(std::string_view text) {
    constexpr std::string_view blanks = " \t\r\n";
    const std::size_t from = text.find_first_not_of(blanks);
    return from == std::string_view::npos
               ? std::string_view()
               : text.substr(from, text.find_last_not_of(blanks) - from + 1);
}

/// Labels of letters, digits and hyphens between dots, at least two.
bool isDomain(std::string_view domain) {
    std::size_t labels = 0;
    while (true) {
        const std::string_view label = domain.substr(0, domain.find('.'));
        if (label.empty() || label.size() > 63 || label.front() == '-' || label.back() == '-'
            || !std::ranges::all_of(label, [](char c) { return isLetterOrDigit(c) || c == '-'; })) {
            return false;
        }
        ++labels;
        if (label.size() == domain.size()) {
            return labels > 1;
        }
        domain.remove_prefix(label.size() + 1);
    }
}

bool isLocalPart(std::string_view part) {
    static constexpr std::string_view others = "!#$%&'*+-/=?^_`{|}~.";
    return !part.empty() && part.size() <= 64 && part.front() != '.' && part.back() != '.'
           && part.find("..") == std::string_view::npos && std::ranges::all_of(part, [](char c) {
                  return isLetterOrDigit(c) || others.find(c) != std::string_view::npos;
              });
}

char32_t codePointOf(std::string_view sequence) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(sequence[i]); };
    if (sequence.size() == 1) {
        return byte(0);
    }
    char32_t value = byte(0) & (0xFFU >> (sequence.size() + 1));
    for (std::size_t i = 1; i < sequence.size(); ++i) {
        value = value << 6U | (byte(i) & 0x3FU);
    }
    return value;
}

bool isHidden(char32_t c) {
    return c < 0x20 || (c >= 0x7F && c < 0xA0) || c == 0xAD || c == 0x61C
           || (c >= 0x200B && c <= 0x200F) || (c >= 0x2028 && c <= 0x202E)
           || (c >= 0x2060 && c <= 0x206F) || c == 0xFEFF || c >= 0xE0000;
}

} // namespace

std::optional<std::string> emailAddressOf(std::string_view typed) {
    std::string address(trimmed(typed));
    for (char& c : address) {
        c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    }
    const std::size_t at = address.find('@');
    if (address.size() > mostAddressBytes || at == std::string::npos
        || !isLocalPart(std::string_view(address).substr(0, at))
        || !isDomain(std::string_view(address).substr(at + 1))) {
        return std::nullopt;
    }
    return address;
}

std::string deviceNameOf(std::string_view typed) {
    typed = trimmed(typed);
    std::string name;
    std::size_t characters = 0;
    while (!typed.empty() && characters < mostNameCharacters) {
        const std::size_t length = taxcore::utf8Length(typed);
        if (length == 0) {
            typed.remove_prefix(1);
            continue;
        }
        const std::string_view sequence = typed.substr(0, length);
        if (!isHidden(codePointOf(sequence))) {
            name += sequence;
            ++characters;
        }
        typed.remove_prefix(length);
    }
    return name.empty() ? "Unbenanntes Gerät" : name;
}

} // namespace fiscarel::server
