#pragma once

#include "TaxCore/model/TaxCase.h"
#include "TaxCore/result/Derivation.h"
#include "TaxCore/result/TaxResult.h"
#include "TaxCore/rulebook/RuleBook.h"

#include <optional>

namespace taxcore {

/// What a bill is made out for; amounts in francs, municipality and parish null when there is none.
struct BillBasis {
    const TaxCase& taxCase;
    Decimal taxableIncomeCanton;
    Decimal taxableIncomeFederal;
    Decimal taxableWealth;
    const Municipality* municipality = nullptr;
    const Parish* parish = nullptr;
};

/// Church multiplier of the household in percent: each spouse's own, half and half in a joint
/// household. Without a parish only the Christ Catholic multiplier, the same in the whole canton,
/// applies. StG SG Art. 3 Abs. 1, StV SG Art. 2 Abs. 1
Decimal churchRate(const TaxCase& taxCase, const Parish* parish, const MunicipalityList& list);

/// The bill: simple taxes times the multipliers, each amount rounded plain to 5 Rappen, and the
/// federal tax after the reduction per child. StG SG Art. 50 und 65, DBG Art. 36
template <class Recorder>
TaxBill makeBill(const RuleBook& rules, const BillBasis& basis, Recorder& recorder);

/// The separate tax on the year's capital payments; absent when there are none. The canton's rate
/// times each multiplier is rounded to 5 Rappen; the federal part is a share of the tariff, cut
/// to 5 Rappen, and not levied below the minimum. StG SG Art. 52, DBG Art. 38
template <class Recorder>
std::optional<CapitalPaymentTax> taxCapitalPayments(const RuleBook& rules, const TaxCase& taxCase,
                                                    const TaxBill& bill, Recorder& recorder);

} // namespace taxcore
