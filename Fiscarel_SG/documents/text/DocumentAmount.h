#pragma once

#include "TaxCore/base/Date.h"
#include "TaxCore/base/Decimal.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace fiscarel {

/// An amount as it is printed, with what tells an amount from other numbers.
struct PrintedAmount {
    taxcore::Decimal value;
    bool hasDecimals = false;  ///< "120.50", "120.–"
    bool hasMark = false;      ///< "1’200"
    bool hasCurrency = false;  ///< "CHF 1200"
    bool wasCorrected = false; ///< a letter was taken for a digit, or digits may be missing

    /// Whether its form alone speaks for an amount.
    bool isFirm() const { return hasDecimals || hasMark || hasCurrency; }
    /// A whole number that may be a year just as well.
    bool isYearLike() const;
};

/// Reads a text that is an amount and nothing else: 1’234.50, 1'234,50, 1.234,50, 120.–, CHF 80.00,
/// −45.20, (45.20); signs and currency before it, a sign, a full stop or an asterisk after it.
/// Thousands marks are those of `isThousandsMark`, in groups of three. Absent for numbers with
/// other than two decimals, dates, percentages, more than twelve digits. `isRecognised`: letters
/// that recognition takes for 0 and 1 are corrected where the rest is an amount with two decimals.
std::optional<PrintedAmount> parseAmount(std::string_view text, bool isRecognised = false);

/// Whether a word is a currency's name or sign for francs: CHF, Fr., SFr., Franken.
bool isFrancs(std::string_view word);
/// Whether a word is a code, a sign or the name of another currency, maybe in brackets.
bool isForeignCurrency(std::string_view word);

/// The year that a text is, a whole number from 1900 to 2100 and nothing else.
std::optional<int> parseYear(std::string_view text);
/// A day as printed: 31.12.2024, 31.12.24, 2024-12-31, 31/12/2024; a mark after it is allowed.
std::optional<taxcore::Date> parseDay(std::string_view text);
/// Day and month without a year: "31.12.", "31.12"; false for days that do not exist.
bool isDayOfYear(std::string_view text);
/// A day in words: "31. Dezember 2024", "31 décembre 2024", "31 dicembre 2024", from its parts.
std::optional<taxcore::Date> parseDay(std::string_view day, std::string_view month,
                                      std::string_view year);
/// 1 to 12 for a month's name in German, French, Italian or English; 0 for other words.
int monthOf(std::string_view word);

/// Marks among the words of a line those that are numbers but no amounts: dates, percentages,
/// account, telephone, reference and social-security numbers, postal codes, page numbers.
std::vector<bool> wordsWithoutAmount(const std::vector<std::string_view>& words);

} // namespace fiscarel
