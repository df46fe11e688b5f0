#include "Fiscarel_SG/documents/kinds/WithholdingTax.h"

namespace fiscarel {

using taxcore::Decimal;

Decimal withholdingOn(const Decimal& income) { return income * 35 / 100; }

bool isWithholdingOf(const Decimal& tax, const Decimal& income) {
    return (withholdingOn(income) - tax.abs()).abs() <= Decimal(5) / 100;
}

} // namespace fiscarel
