#pragma once

// The larger cards of the page of further deductions.

#include "Fiscarel_SG/forms/Page.h"

namespace fiscarel::pages {

/// What the children cost; they themselves are entered on the family page.
forms::ListCard childrenCard(const forms::PageContext& context);

/// Bills of illness and accident with the threshold.
forms::ListCard medicalCostsCard(const forms::PageContext& context);
/// Flat rates for a diet and for a disability.
forms::FieldsCard disabilityCard(const forms::PageContext& context);

forms::ListCard donationsCard(const forms::PageContext& context);

/// What counts of the interest on private debts.
std::vector<forms::Figure> debtInterestFigures(const taxcore::TaxCase& taxCase,
                                               const taxcore::TaxResult& result);

} // namespace fiscarel::pages
