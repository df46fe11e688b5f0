#pragma once

#include "TaxCore/base/Decimal.h"

#include <algorithm>

namespace taxcore {

// The roundings of tax law by name, and its floor. "Plain" is to nearest, halves away from zero;
// "cut" is toward negative infinity.

/// Plain to 5 Rappen: 1234.575 becomes 1234.60.
constexpr Decimal toFiveRappen(const Decimal& francs) {
    return (francs * 20).roundPlain(0) * 0.05_dec;
}

/// Cut to the 5 Rappen below: 1234.57 becomes 1234.55.
constexpr Decimal cutToFiveRappen(const Decimal& francs) {
    return (francs * 20).roundDown(0) * 0.05_dec;
}

/// The amount, or 0 when it is negative.
constexpr Decimal notBelowZero(const Decimal& amount) { return std::max(amount, Decimal(0)); }

/// Plain to whole Rappen.
constexpr Decimal toRappen(const Decimal& francs) { return francs.roundPlain(2); }

/// Plain to whole francs.
constexpr Decimal toWholeFrancs(const Decimal& francs) { return francs.roundPlain(0); }

/// Cut to full 10 francs.
constexpr Decimal cutToTen(const Decimal& francs) { return francs.roundDown(-1); }

/// Cut to full 100 francs.
constexpr Decimal cutToHundred(const Decimal& francs) { return francs.roundDown(-2); }

} // namespace taxcore
