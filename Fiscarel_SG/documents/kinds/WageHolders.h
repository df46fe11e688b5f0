#pragma once

#include "Fiscarel_SG/documents/kinds/SalaryForm.h"

namespace fiscarel {

/// Whether a paper on a wage is of the principality of Liechtenstein: its name, its employers'
/// number (PEID) or its law on occupational provision (BPVG) is named.
bool isOfPrincipality(const DocumentRows& document);

/// Takes a day of birth and a social-security number that a row tells.
void readHolder(const Row& row, SalaryForm& form);

/// Whether a page tells the social-security numbers of several people.
bool namesSeveralInsured(const PageRows& page);

/// Reads what stands above a wage, but for what its own rows told: whose it is, and who paid it.
void readAroundWage(const DocumentRows& document, double top, SalaryForm& form);

} // namespace fiscarel
