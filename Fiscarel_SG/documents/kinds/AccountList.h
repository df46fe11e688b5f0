#pragma once

#include "Fiscarel_SG/documents/kinds/AccountEntries.h"
#include "Fiscarel_SG/documents/kinds/AccountRows.h"
#include "Fiscarel_SG/documents/kinds/AccountTable.h"

#include <vector>

namespace fiscarel {

/// The accounts and loans of a table up to a row: each row with an amount and either an account
/// number or words; totals are none. Of the course of one account only where it stands at last.
std::vector<AccountEntry> entriesOfTable(const PageRows& page, const AccountHeading& heading,
                                         std::size_t end, const std::vector<AccountNumber>& ibans);

/// Whether the rows below a heading are the days or parts of a year, each with what it heads.
bool headsCourse(const PageRows& page, const AccountHeading& heading);

} // namespace fiscarel
