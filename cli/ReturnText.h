#pragma once

#include "TaxCore/model/TaxCase.h"
#include "TaxCore/result/TaxResult.h"

#include <string>

namespace fiscarel::cli {

/// The return, the bill and the notices as German text of at most 100 columns, however
/// long the texts of the case are; control characters in them are made visible.
std::string returnText(const taxcore::TaxCase& taxCase, const taxcore::TaxResult& result);

} // namespace fiscarel::cli
