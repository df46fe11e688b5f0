#pragma once

#include "TaxCore/result/Derivation.h"

#include <string>

namespace taxcore {

/// The number of a step of a derivation with its unit: "1’234.50" for francs (two decimals, or the
/// further ones it has), "20%" for a share of 0.2, "1.7‰"; at most six decimals but for plain
/// numbers.
std::string unitText(const Decimal& value, Unit unit);

} // namespace taxcore
