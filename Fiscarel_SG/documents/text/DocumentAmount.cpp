#include "Fiscarel_SG/documents/text/DocumentAmount.h"

#include "Fiscarel_SG/documents/text/Digits.h"
#include "Fiscarel_SG/documents/text/FoldedText.h"
#include "Fiscarel_SG/documents/text/Utf8Letters.h"

#include <algorithm>
#include <array>
#include <set>

namespace fiscarel {

using taxcore::Date;
using taxcore::Decimal;

namespace {

constexpr std::size_t mostDigits = 12;
constexpr std::size_t longestAmount = 64; // bytes, with signs and marks

/// The characters of an amount: digits, "." and ",", ' for every thousands mark, - for every dash.
std::optional<std::string> plainForm(std::string_view text) {
    std::string plain;
    while (!text.empty()) {
        const auto [code, length] = firstLetter(text);
        text.remove_prefix(length);
        if (isThousandsMark(code)) {
            plain += '\'';
        } else if (isDash(code)) {
            plain += '-';
        } else if (code > 0 && code < 0x80) {
            plain += static_cast<char>(code);
        } else {
            return std::nullopt;
        }
    }
    return plain;
}

bool takeCurrency(std::string_view& text) {
    for (const std::string_view name :
         {"CHF", "SFr.", "Sfr.", "sFr.", "Fr.", "FR.", "fr.", "Fr", "SFR"}) {
        if (text.starts_with(name)) {
            text.remove_prefix(name.size());
            return true;
        }
    }
    return false;
}

void trimFront(std::string_view& text, std::string_view marks) {
    text.remove_prefix(std::min(text.find_first_not_of(marks), text.size()));
}

/// Cuts ".–", ",-", ".--" and the like from the end; they stand for no decimals.
bool takeEmptyDecimals(std::string_view& text) {
    const std::size_t end = text.find_last_not_of('-');
    if (end == std::string_view::npos || end + 1 == text.size()) {
        return false;
    }
    if (text[end] != '.' && text[end] != ',') {
        return false;
    }
    text = text.substr(0, end);
    return true;
}

/// Digits in groups of three by one kind of mark, or plain. Absent when they are neither.
std::optional<std::string> groupedDigits(std::string_view text, char mark, bool& hasMark) {
    std::string digits;
    std::size_t group = 0;
    for (const char c : text) {
        if (isDigit(c)) {
            digits += c;
            ++group;
        } else if (c == mark && group > 0 && group <= 3 && (!hasMark || group == 3)) {
            hasMark = true;
            group = 0;
        } else {
            return std::nullopt;
        }
    }
    if (digits.empty() || digits.size() > mostDigits || (hasMark && group != 3)) {
        return std::nullopt;
    }
    return digits;
}

/// The digits before the decimals; "." or "," may group them where the other one is decimal.
std::optional<std::string> wholeDigits(std::string_view text, char decimal, bool& hasMark) {
    if (const auto plain = groupedDigits(text, '\'', hasMark)) {
        return plain;
    }
    hasMark = false;
    if (decimal == 0) {
        return std::nullopt;
    }
    return groupedDigits(text, decimal == ',' ? '.' : ',', hasMark);
}

std::optional<PrintedAmount> parsePlain(std::string_view text, PrintedAmount amount) {
    std::string decimals;
    char decimal = 0;
    if (takeEmptyDecimals(text)) {
        amount.hasDecimals = true;
    } else if (text.size() > 3 && (text[text.size() - 3] == '.' || text[text.size() - 3] == ',')
               && isDigit(text[text.size() - 2]) && isDigit(text.back())) {
        decimal = text[text.size() - 3];
        decimals = text.substr(text.size() - 2);
        text.remove_suffix(3);
        amount.hasDecimals = true;
    }
    auto digits = wholeDigits(text, decimal, amount.hasMark);
    if (!digits || (digits->size() > 1 && digits->front() == '0')) {
        return std::nullopt; // a leading zero is a number of another sort
    }
    const auto value = Decimal::parse(decimals.empty() ? *digits : *digits + '.' + decimals);
    if (!value) {
        return std::nullopt;
    }
    amount.value = *value;
    return amount;
}

/// Puts digits for the letters that look like them; only where everything else is a digit or mark.
bool correctDigits(std::string& plain) {
    std::size_t digits = 0;
    std::size_t letters = 0;
    for (char& c : plain) {
        if (isDigit(c)) {
            ++digits;
        } else if (c == 'O' || c == 'o') {
            c = '0';
            ++letters;
        } else if (c == 'l' || c == 'I' || c == '|') {
            c = '1';
            ++letters;
        }
    }
    return letters > 0 && digits > letters;
}

/// Puts the marks of a misread amount right: "4.016.00" with points between thousands, "33:15" with
/// a colon before the cents, which is no time of day. False for what has neither.
bool mendMarks(std::string& text) {
    if (text.size() < 5) {
        return false;
    }
    char& mark = text[text.size() - 3];
    const std::string_view before = std::string_view(text).substr(0, text.size() - 3);
    if (mark == '.') {
        std::replace(text.begin(), text.end() - 3, '.', '\'');
        return true;
    }
    const bool isHour = before.size() < 2 || (before.size() == 2 && before < "24");
    if (mark == ':' && !isHour) {
        mark = '.';
        return true;
    }
    return false;
}

} // namespace

bool isFrancs(std::string_view word) {
    std::string_view rest = word;
    static constexpr std::array misread{"CHE", "CHEF", "SER.", "SFR.", "CHP", "GHF"};
    return (takeCurrency(rest) && rest.find_first_not_of(".:;") == std::string_view::npos)
           || std::ranges::find(misread, word) != misread.end() || word == "Franken"
           || word == "francs" || word == "franchi";
}

bool isForeignCurrency(std::string_view word) {
    static const std::set<std::string_view> codes{
        "EUR", "USD", "GBP", "JPY", "CAD", "AUD", "NZD", "SEK", "NOK", "DKK", "PLN", "CZK",
        "HUF", "CNY", "HKD", "SGD", "ZAR", "TRY", "THB", "€",   "$",   "£",   "US$", "Euro"};
    while (!word.empty()
           && std::string_view("()[],:").find(word.front()) != std::string_view::npos) {
        word.remove_prefix(1);
    }
    while (!word.empty()
           && std::string_view("()[],:").find(word.back()) != std::string_view::npos) {
        word.remove_suffix(1);
    }
    return codes.contains(word);
}

std::optional<PrintedAmount> parseAmount(std::string_view text, bool isRecognised) {
    if (text.empty() || text.size() > longestAmount) {
        return std::nullopt;
    }
    if (text.size() > 2 && text.starts_with('(') && text.ends_with(')')) { // as ledgers take off
        auto inner = parseAmount(text.substr(1, text.size() - 2), isRecognised);
        if (!inner || !inner->hasDecimals || inner->value.isNegative()) {
            return std::nullopt;
        }
        inner->value = -inner->value;
        return inner;
    }
    auto plain = plainForm(text);
    if (!plain) {
        return std::nullopt;
    }
    PrintedAmount amount;
    std::string_view rest = *plain;
    trimFront(rest, " '+=-:");
    amount.hasCurrency = takeCurrency(rest);
    const std::size_t lead = rest.find_first_not_of(" '+=-:.");
    if (lead == std::string_view::npos) {
        return std::nullopt;
    }
    const std::string_view signs =
        std::string_view(*plain).substr(0, plain->size() - rest.size() + lead);
    bool isNegative = signs.find('-') != std::string_view::npos;
    rest.remove_prefix(lead);
    while (!rest.empty() && std::string_view("*;:'").find(rest.back()) != std::string_view::npos) {
        rest.remove_suffix(1);
    }
    if (rest.ends_with('.') || rest.ends_with(',')) {
        rest.remove_suffix(1);
    }
    if (rest.size() > 1 && rest.back() == '-' && isDigit(rest[rest.size() - 2])) {
        isNegative = true;
        rest.remove_suffix(1);
    }
    const bool isCredit = rest.ends_with('+'); // as ledgers mark it
    rest.remove_suffix(isCredit ? 1 : 0);
    auto parsed = parsePlain(rest, amount);
    if (isCredit && (!parsed || !parsed->hasDecimals)) {
        return std::nullopt;
    }
    if (std::string marked(rest); !parsed && isRecognised && mendMarks(marked)) {
        parsed = parsePlain(marked, amount);
        if (parsed) {
            parsed->wasCorrected = true;
        }
    }
    if (std::string corrected(rest); !parsed && isRecognised && correctDigits(corrected)) {
        parsed = parsePlain(corrected, amount);
        if (!parsed || !parsed->hasDecimals) {
            return std::nullopt;
        }
        parsed->wasCorrected = true;
    }
    if (parsed && isNegative) {
        parsed->value = -parsed->value;
    }
    return parsed;
}

} // namespace fiscarel
