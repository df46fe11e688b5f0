#pragma once

#include "Fiscarel_SG/documents/rows/PageRows.h"

#include <cstddef>
#include <vector>

namespace fiscarel {

/// Accounts and loans that stand beside each other.
struct AccountColumns {
    /// Each with its figures in its column and what these are left of all, as a page of its own
    /// that begins with the heading; those of years before the newest are left out. Empty for a
    /// page set otherwise.
    std::vector<PageRows> parts;
    std::size_t end = 0;   ///< row behind the table: of the page's end, or of a loan's title
    bool areLoans = false; ///< told so once for all columns
};

AccountColumns accountColumns(const PageRows& page);

} // namespace fiscarel
