#pragma once

// What people type, read: amounts and sums, numbers, dates, account numbers. Texts are UTF-8.
// What cannot be read is answered with a German sentence that says what would be right; never an
// exception, never a value that was not meant.

#include "TaxCore/base/Date.h"
#include "TaxCore/base/Decimal.h"

#include <tl/expected.hpp>

#include <string>
#include <string_view>

namespace fiscarel::forms {

using taxcore::Date;
using taxcore::Decimal;

/// What was typed, or the sentence that says why it cannot be read.
template <class T>
using Read = tl::expected<T, std::string>;

/// An amount in francs as it is written in Switzerland, "CHF 12’345.50" or "12 345.–", or a sum of
/// such: + - * / and parentheses with the usual precedence. An amount that is typed has at most two
/// decimals, its thousands are grouped by ’ or blanks (never by points), and the point may be a
/// comma. Sums are computed with the 38 digits of `Decimal`; only the result is rounded, plainly,
/// to Rappen. Amounts and all that is computed on the way stay below 10^12.
Read<Decimal> parseAmount(std::string_view text);

/// A number with at most six decimals, such as kilometres or percent; `unit` may stand behind it.
Read<Decimal> parseNumber(std::string_view text, std::string_view unit = {});

/// A count: a whole number from 0 to 999'999'999; `unit` may stand behind it.
Read<int> parseInteger(std::string_view text, std::string_view unit = {});

/// A day from 1900 to 2100, as "1.3.84", "01.03.1984", "1/3/84", "010384", "01031984" or
/// "2025-03-01". A year of two digits is the latest that is not after the year that follows
/// `referenceYear`.
Read<Date> parseDate(std::string_view text, int referenceYear);

/// An account number with right check digits, grouped in fours as it is printed. Blanks, dashes,
/// letter case and "IBAN" in front do not matter.
Read<std::string> parseIban(std::string_view text);

/// Grouped, without decimals or with at least two: "12’345", "12’345.50".
std::string formatAmount(const Decimal& amount);
/// The same without grouping, as one types: "12345.50".
std::string formatPlain(const Decimal& amount);
/// Grouped, without zeros at the end: "12’345.5".
std::string formatNumber(const Decimal& number);
/// "01.03.1984"
std::string formatDate(Date date);
/// Letters and digits in fours: "CH93 0076 2011 6238 5295 7"; for any text, finished or not.
std::string groupIban(std::string_view text);

} // namespace fiscarel::forms
