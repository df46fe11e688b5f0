#pragma once

#include "tests/documents/corpus/kit/Random.h"
#include "tests/documents/corpus/kit/Truth.h"

namespace corpus {

/// How one issuer writes amounts.
struct AmountStyle {
    enum class Fraction { always, dash, doubleDash, hyphen, onlyWhenNeeded };
    enum class Currency { none, before, after };

    QString mark = "’"; ///< between thousands
    Fraction fraction = Fraction::always;
    Currency place = Currency::none;
    QString currency = "CHF";

    static AmountStyle random(Random& random);

    /// Digits alone: "1’234.50", "200.–".
    QString plain(Cents cents) const;
    /// With the currency where this style has it: "CHF 1’234.50".
    QString full(Cents cents) const;
    /// For running text: always with the currency.
    QString spoken(Cents cents) const;
};

} // namespace corpus
