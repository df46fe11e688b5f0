#pragma once

#include "TaxCore/model/TaxCase.h"

namespace fiscarel {

/// The case of a new year made from that of an earlier one: who the household is, where it banks
/// and works, what it owns and owes stay; the amounts of the old year start empty. The documents of
/// the old year are not linked.
taxcore::TaxCase carryOver(const taxcore::TaxCase& from, int to);

} // namespace fiscarel
