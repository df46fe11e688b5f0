#pragma once

#include "Fiscarel_SG/documents/ProposalDraft.h"
#include "Fiscarel_SG/documents/kinds/SalaryForm.h"

namespace fiscarel {

/// Puts the flat expenses of the year, in francs, that a paper on one wage states beside it into
/// its form (Ziffer 13.2 of the certificate of salary). The form stays as it is where the wage does
/// not add up, the paper tells several such amounts, they are of a month, or they were paid out
/// with the net wage.
void readFlatExpenses(const DocumentRows& document, SalaryForm& form);

} // namespace fiscarel
