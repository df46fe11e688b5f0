#pragma once

#include "TaxCore/base/Decimal.h"

namespace fiscarel {

/// Swiss withholding tax on what capital earns, 35 per cent of it, in francs, not rounded (VStG
/// Art. 13 para. 1 a).
taxcore::Decimal withholdingOn(const taxcore::Decimal& income);

/// Whether a tax, of either sign, is that of an income, to the five centimes that banks round to.
bool isWithholdingOf(const taxcore::Decimal& tax, const taxcore::Decimal& income);

} // namespace fiscarel
