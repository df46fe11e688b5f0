#pragma once

#include "tests/support/CheckRows.h"

#include <vector>

namespace taxcore::testing {

// Every check with a household that triggers it, by page; each defined beside the tests of the
// page.

std::vector<CheckRow> amountRows();
std::vector<CheckRow> familyRows();
std::vector<CheckRow> incomeRows();
std::vector<CheckRow> otherPageRows();
std::vector<CheckRow> pensionRows();
std::vector<CheckRow> scopeRows();
std::vector<CheckRow> wealthRows();
std::vector<CheckRow> workRows();

} // namespace taxcore::testing
