#pragma once

#include "Fiscarel_SG/documents/rows/PageRows.h"

namespace fiscarel {

struct SalaryForm;

/// Reads what a certificate says besides its amounts: whose it is, for which time, boxes A, B, F
/// and G, the employer and the remarks. `bodyTop`: where the numbered boxes begin, in points.
void readFormHeader(const PageRows& page, double bodyTop, SalaryForm& form);

/// A social-security number as printed: three, four, four and two digits with points; empty when
/// the row has none.
std::string socialSecurityNumberIn(const Row& row);

} // namespace fiscarel
