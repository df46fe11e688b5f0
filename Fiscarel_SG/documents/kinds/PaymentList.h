#pragma once

#include "Fiscarel_SG/documents/kinds/BillSums.h"

#include <optional>
#include <vector>

namespace fiscarel {

/// Payments of one year in rows that each begin with their day.
struct PaymentList {
    RowRange rows;      ///< from the first to the last payment
    SummedAmount whole; ///< their sum; with a check where it is printed, or where a balance beside
                        ///< them goes up by each
};

/// The payments of a year into an account that a document lists, without transfers, interest and
/// what is carried forward; where the year is not known, those of one year alone. Absent for fewer
/// than two, and where it is not clear which column states them.
std::optional<PaymentList> paymentsOf(const DocumentRows& document, std::optional<int> year);

/// What amounts come to that are the price of one, proven where the product is printed: "12 loyers
/// à 1'550.00"; those of which it is not are left out, all others stay.
std::vector<SummedAmount> wholesOf(const DocumentRows& document, std::vector<FoundAmount> found);

} // namespace fiscarel
