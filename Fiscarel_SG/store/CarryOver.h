#pragma once

#include "TaxCore/model/TaxCase.h"

namespace fiscarel {

/// The case of a new year made from that of an earlier one. Who the household is, its children,
/// employers, professional costs, properties, insurances and debts stay, and what its register of
/// securities names; the amounts of the old year start empty, and so do vehicles, cash and all
/// other deductions. Documents of the old year are not linked.
taxcore::TaxCase carryOver(const taxcore::TaxCase& from, int to);

} // namespace fiscarel
