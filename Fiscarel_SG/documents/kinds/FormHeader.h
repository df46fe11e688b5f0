#pragma once

#include "Fiscarel_SG/documents/rows/PageRows.h"

#include <string>
#include <string_view>

namespace fiscarel {

struct SalaryForm;

/// Reads what a certificate says besides its amounts: whose it is, for which time, boxes A, B, F
/// and G, the employer and the remarks. `bodyTop`: where the numbered boxes begin, in points.
void readFormHeader(const PageRows& page, double bodyTop, SalaryForm& form);

/// Three, four, four and two digits with points between.
bool isSocialSecurityNumber(std::string_view text);

/// The social-security number a row prints; empty when it has none.
std::string socialSecurityNumberIn(const Row& row);

} // namespace fiscarel
