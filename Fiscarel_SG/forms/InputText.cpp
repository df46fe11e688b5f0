#include "Fiscarel_SG/forms/InputText.h"

#include "Fiscarel_SG/forms/TypedSum.h"
#include "TaxCore/base/Iban.h"
#include "TaxCore/base/MoneyFormat.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>
#include <utility>
#include <vector>

namespace fiscarel::forms {

namespace {

constexpr std::size_t maxDecimals = 6;

constexpr bool isDigit(char c) noexcept { return c >= '0' && c <= '9'; }

tl::unexpected<std::string> sentence(std::string text) { return tl::unexpected(std::move(text)); }

/// The text of a number without the unit behind it.
std::string withoutUnit(std::string_view text, std::string_view unit) {
    std::string plain = plainTyping(text);
    const std::string typedUnit = plainTyping(unit);
    if (!typedUnit.empty() && plain.size() > typedUnit.size() && plain.ends_with(typedUnit)) {
        plain.erase(plain.size() - typedUnit.size());
        plain.erase(plain.find_last_not_of(' ') + 1);
    }
    return plain;
}

int toInt(std::string_view digits) {
    int value = -1;
    std::from_chars(digits.data(), digits.data() + digits.size(), value);
    return value;
}

/// Day, month and year as typed.
struct DateParts {
    std::string day;
    std::string month;
    std::string year;
};

/// The runs of digits of a date; nothing when anything but digits and separators stands there.
std::vector<std::string> digitRuns(std::string_view text) {
    std::vector<std::string> runs;
    bool inRun = false;
    for (const char c : text) {
        if (isDigit(c)) {
            if (!inRun) {
                runs.emplace_back();
            }
            runs.back() += c;
        } else if (c != '.' && c != '/' && c != '-' && c != ' ') {
            return {};
        }
        inRun = isDigit(c);
    }
    return runs;
}

/// Takes a date apart without looking at its numbers; absent when it has not the form of one.
std::optional<DateParts> dateParts(std::string_view plain) {
    const auto runs = digitRuns(plain);
    if (plain.empty() || !isDigit(plain.front()) || plain.find("..") != std::string_view::npos) {
        return std::nullopt;
    }
    if (runs.size() == 1 && (runs[0].size() == 6 || runs[0].size() == 8)) {
        return DateParts{runs[0].substr(0, 2), runs[0].substr(2, 2), runs[0].substr(4)};
    }
    if (runs.size() == 2 && !runs[0].empty() && runs[0].size() <= 2 && runs[1].size() <= 2) {
        return DateParts{runs[0], runs[1], ""};
    }
    if (runs.size() != 3) {
        return std::nullopt;
    }
    if (runs[0].size() == 4) {
        return DateParts{runs[2], runs[1], runs[0]};
    }
    return DateParts{runs[0], runs[1], runs[2]};
}

std::string_view monthName(int month) {
    static constexpr std::array<std::string_view, 12> names{
        "Januar", "Februar", "März",      "April",   "Mai",      "Juni",
        "Juli",   "August",  "September", "Oktober", "November", "Dezember"};
    return names[static_cast<std::size_t>(month - 1)];
}

/// The sentence for a day that the calendar does not have.
std::string missingDay(int year, int month, int day) {
    if (month < 1 || month > 12) {
        return "Einen Monat " + std::to_string(month)
               + " gibt es nicht. Zuerst steht der Tag: 31.12.2025.";
    }
    const std::string date = std::to_string(day) + ". " + std::string(monthName(month));
    if (month == 2 && day == 29) {
        const std::string inYear = std::to_string(year);
        return "Den " + date + " " + inYear + " gibt es nicht: " + inYear + " ist kein Schaltjahr.";
    }
    return "Den " + date + " gibt es nicht.";
}

} // namespace

Read<Decimal> parseNumber(std::string_view text, std::string_view unit) {
    const std::string plain = withoutUnit(text, unit);
    const bool negative = plain.starts_with('-');
    const std::string_view digits = std::string_view(plain).substr(negative ? 1 : 0);
    const auto number = readNumber(digits, maxDecimals);
    if (number && number->length == digits.size() && !digits.ends_with('-')) {
        return negative ? -number->value : number->value;
    }
    const NumberFault fault = number ? NumberFault::form : number.error();
    switch (fault) {
    case NumberFault::grouping:
        return sentence("Tausender stehen in Dreiergruppen: 12’345 oder ohne Zeichen 12345.");
    case NumberFault::decimals:
        return sentence("Hier sind höchstens sechs Stellen nach dem Punkt möglich.");
    case NumberFault::tooLarge:
        return sentence("Diese Zahl ist zu gross.");
    case NumberFault::none:
    case NumberFault::form:
        break;
    }
    return sentence(quoted(text) + " ist keine Zahl. Beispiel: 12.5.");
}

Read<int> parseInteger(std::string_view text, std::string_view unit) {
    constexpr int largest = 999'999'999;
    const auto number = parseNumber(text, unit);
    if (!number) {
        return sentence(quoted(text) + " ist keine ganze Zahl. Beispiel: 12.");
    }
    if (!number->isInteger()) {
        return sentence("Hier steht eine ganze Zahl, ohne Stellen nach dem Punkt. Beispiel: 12.");
    }
    if (number->isNegative()) {
        return sentence("Diese Zahl kann nicht negativ sein.");
    }
    if (*number > Decimal(largest)) {
        return sentence("Diese Zahl ist zu gross.");
    }
    return static_cast<int>(number->toInteger().value_or(0));
}

Read<Date> parseDate(std::string_view text, int referenceYear) {
    constexpr int firstYear = 1900;
    constexpr int lastYear = 2100;
    const auto parts = dateParts(plainTyping(text));
    if (!parts || parts->day.size() > 2 || parts->month.size() > 2) {
        return sentence(quoted(text) + " ist kein Datum. Beispiel: 1.3.1984.");
    }
    if (parts->year.empty()) {
        return sentence("Es fehlt noch das Jahr. Beispiel: 1.3.1984.");
    }
    if (parts->year.size() != 2 && parts->year.size() != 4) {
        return sentence("Das Jahr hat zwei oder vier Ziffern. Beispiel: 1.3.1984.");
    }
    int year = toInt(parts->year);
    if (parts->year.size() == 2) {
        const int latest = referenceYear + 1;
        year += latest / 100 * 100;
        year -= year > latest ? 100 : 0;
    }
    const int month = toInt(parts->month);
    const int day = toInt(parts->day);
    if (year < firstYear || year > lastYear) {
        return sentence("Das Jahr " + std::to_string(year)
                        + " liegt nicht zwischen 1900 und 2100.");
    }
    const auto date = Date::of(year, month, day);
    if (!date) {
        return sentence(missingDay(year, month, day));
    }
    return *date;
}

Read<std::string> parseIban(std::string_view text) {
    constexpr std::size_t swissLength = 21;
    const std::string grouped = groupIban(text);
    const auto fault = taxcore::ibanFault(grouped);
    if (!fault) {
        return grouped;
    }
    const std::size_t length = taxcore::compactIban(grouped).size();
    const bool isSwiss = grouped.starts_with("CH") || grouped.starts_with("LI");
    if (*fault == taxcore::IbanFault::checkDigits) {
        return sentence("Die Prüfziffern passen nicht: Wahrscheinlich ist ein Zeichen vertippt.");
    }
    if (*fault == taxcore::IbanFault::length && isSwiss) {
        const std::size_t off = length < swissLength ? swissLength - length : length - swissLength;
        return sentence("Eine IBAN aus "
                        + std::string(grouped.starts_with("CH") ? "der Schweiz" : "Liechtenstein")
                        + " hat 21 Zeichen; hier " + (off == 1 ? "ist es " : "sind es ")
                        + std::to_string(off)
                        + (length < swissLength ? " zu wenig." : " zu viel."));
    }
    if (*fault == taxcore::IbanFault::length) {
        return sentence("Eine IBAN hat 15 bis 34 Zeichen; hier stehen " + std::to_string(length)
                        + ".");
    }
    return sentence("Eine IBAN beginnt mit dem Land und zwei Ziffern. Beispiel: CH93 0076 2011 "
                    "6238 5295 7.");
}

std::string formatAmount(const Decimal& amount) {
    const std::string plain = amount.toString();
    const std::size_t point = plain.find('.');
    if (point == std::string::npos) {
        return taxcore::MoneyFormat::chf(amount, 0, false);
    }
    const auto decimals = static_cast<int>(plain.size() - point - 1);
    return taxcore::MoneyFormat::chf(amount, std::max(decimals, 2), false);
}

std::string formatPlain(const Decimal& amount) {
    std::string plain = amount.toString();
    const std::size_t point = plain.find('.');
    if (point != std::string::npos && plain.size() - point - 1 < 2) {
        plain += '0';
    }
    return plain;
}

std::string formatNumber(const Decimal& number) {
    const std::string plain = number.toString();
    const std::size_t point = plain.find('.');
    const auto decimals =
        point == std::string::npos ? 0 : static_cast<int>(plain.size() - point - 1);
    return taxcore::MoneyFormat::chf(number, decimals, false);
}

std::string formatDate(Date date) {
    const auto padded = [](int value) { return (value < 10 ? "0" : "") + std::to_string(value); };
    return padded(date.day()) + "." + padded(date.month()) + "." + std::to_string(date.year());
}

std::string groupIban(std::string_view text) {
    constexpr std::string_view prefix = "IBAN";
    std::string compact;
    // What is not a letter or a digit separates; other letters stay, so that they are told.
    for (const char c : taxcore::compactIban(text)) {
        const auto letter = static_cast<unsigned char>(c);
        if (letter >= 0x80 || std::isalnum(letter) != 0) {
            compact += c;
        }
    }
    for (const std::string_view blank : {"\u00A0", "\u202F", "\u2007", "\u2009", "\u2013"}) {
        for (std::size_t at = compact.find(blank); at != std::string::npos;
             at = compact.find(blank, at)) {
            compact.erase(at, blank.size());
        }
    }
    std::string_view rest = compact;
    if (rest.starts_with(prefix)) {
        rest.remove_prefix(prefix.size());
    }
    std::string grouped;
    for (; rest.size() > 4; rest.remove_prefix(4)) {
        grouped += rest.substr(0, 4);
        grouped += ' ';
    }
    return grouped.append(rest);
}

} // namespace fiscarel::forms
