#pragma once

#include "TaxCore/model/TaxCase.h"
#include "TaxCore/result/TaxResult.h"

#include <string>

namespace fiscarel::cli {

/// The return, the bill and the notices as German text. Its lines have at most 100 columns, however
/// long the texts of the case are, and more only where amounts are wider than their columns;
/// control characters in the texts are made visible.
std::string returnText(const taxcore::TaxCase& taxCase, const taxcore::TaxResult& result);

} // namespace fiscarel::cli
