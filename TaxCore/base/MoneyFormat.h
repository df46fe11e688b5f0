#pragma once

#include "TaxCore/base/Decimal.h"

#include <string>

namespace taxcore {

/// The one place where amounts become text.
struct MoneyFormat {
    MoneyFormat() = delete;

    /// Swiss notation: rounded plain to `decimals` places (at least 0, exactly that many are
    /// shown), grouped by ’ (U+2019), point before the decimals, minus sign before the digits.
    /// "CHF " stands in front with `withCurrency`: 12700 gives "CHF 12’700", −1234.5 with two
    /// decimals "-1’234.50".
    static std::string chf(const Decimal& amount, int decimals, bool withCurrency);

    /// Whole francs as the forms write them: "Fr. 8’000".
    static std::string fr(const Decimal& amount) { return "Fr. " + chf(amount, 0, false); }

    /// A plain number such as a multiplier or a percentage: point, no grouping, no trailing zeros.
    static std::string number(const Decimal& value) { return value.toString(); }
};

} // namespace taxcore
