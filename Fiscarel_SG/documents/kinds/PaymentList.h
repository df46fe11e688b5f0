#pragma once

#include "Fiscarel_SG/documents/kinds/BillSums.h"

#include <optional>

namespace fiscarel {

/// Payments of one year in rows that each begin with their day.
struct PaymentList {
    RowRange rows;      ///< from the first to the last payment
    SummedAmount whole; ///< their sum; with a check where it is printed, or where a balance beside
                        ///< them goes up by each
};

/// The payments into an account that a document lists, without transfers, interest and what is
/// carried forward. Absent for fewer than two, and where it is not clear which column states them.
std::optional<PaymentList> paymentsOf(const DocumentRows& document);

} // namespace fiscarel
