#pragma once

#include "TaxCore/base/Decimal.h"
#include "TaxCore/result/TaxResult.h"

/// Every notice of the Liechtenstein calculation; the one home of their texts.
namespace taxcore::li::notices {

Notice unknownMunicipality();
/// `maximum` in francs is what pension-fund contributions count at most.
Notice pensionFundMaximum(const Decimal& maximum);
Notice provisionalSurcharge(int year);

} // namespace taxcore::li::notices
