#pragma once

#include "Fiscarel_SG/documents/kinds/TableHeading.h"

namespace fiscarel {

/// What heads a table whose columns are told by the amounts below it: each column with the words of
/// one to three lines over it. Words over several columns head each of them, also where they only
/// stand between two that are called alike ("Saldo" over "Dare" and "Avere"). Headings that stand
/// left of the first amounts, or over none, are columns of their own, which hold no amounts. Empty
/// when the row heads no amounts.
TableHeading gridHeadingIn(const PageRows& page, std::size_t at);

/// Whether a cell of a row stands over amounts of the rows below.
bool standsOverAmounts(const PageRows& page, std::size_t at, const LabelPlace& cell);

} // namespace fiscarel
