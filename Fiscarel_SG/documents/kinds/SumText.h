#pragma once

#include "TaxCore/base/Decimal.h"

#include <string>
#include <vector>

namespace fiscarel {

// What proves an amount, as sentences say it: the sum with its summands, then what it comes to.

/// "54’652.10 − 3’967.70 = 50’684.40"; negative parts are taken off, parts of nothing left out.
std::string sumText(const std::vector<taxcore::Decimal>& parts, const taxcore::Decimal& sum);

/// "100.00 + 20.00 = 120.00, die Summe der Beträge darüber" of `what` in the plural; of more parts
/// than anybody adds up in a line only how many they are.
std::string partsText(const std::string& what, const std::vector<taxcore::Decimal>& parts,
                      const taxcore::Decimal& sum);

/// Of several that belong together: "100.00 + 20.00 = 120.00, alle zusammen".
std::string togetherText(const std::vector<taxcore::Decimal>& parts, const taxcore::Decimal& sum);

/// "4 × 1’275.00 = 5’100.00": what several of the same come to.
std::string productText(int count, const taxcore::Decimal& one);

/// "35 % von 500.00 = 175.00, die Verrechnungssteuer".
std::string withheldText(const taxcore::Decimal& income, const taxcore::Decimal& tax);

} // namespace fiscarel
