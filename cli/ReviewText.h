#pragma once

#include "TaxCore/model/TaxCase.h"
#include "TaxCore/review/Review.h"

#include <string>

namespace fiscarel::cli {

/// Notices, savings tips and the marginal rate as German text of at most 100 columns.
std::string reviewText(const taxcore::TaxCase& taxCase, const taxcore::Review& review);

} // namespace fiscarel::cli
