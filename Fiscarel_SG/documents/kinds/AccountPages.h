#pragma once

#include "Fiscarel_SG/documents/kinds/AccountEntries.h"

#include <optional>

namespace fiscarel {

/// The first sound account number of a row, which is the page's `at`th.
std::optional<AccountNumber> ibanIn(const Row& row, std::size_t at);

/// The line at the foot that names the bank's own account beside its telephone number.
bool isContactLine(const PageRows& page, const Row& row);

/// A page without the amounts that no account states for the year in francs: in other currencies,
/// of years before, limits. Words that only mention interest or the net are hidden.
PageRows withoutOthers(PageRows page, std::optional<int> year);

} // namespace fiscarel
