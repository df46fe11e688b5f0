#pragma once

#include "Fiscarel_SG/documents/ProposalDraft.h"
#include "Fiscarel_SG/documents/kinds/SalaryForm.h"

namespace fiscarel {

/// Puts the flat expenses that a paper on one wage states beside it, where the wage is proven.
void readFlatExpenses(const DocumentRows& document, SalaryForm& form);

} // namespace fiscarel
