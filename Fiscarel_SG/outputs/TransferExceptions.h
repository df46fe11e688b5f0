#pragma once

#include "TaxCore/model/TaxCase.h"
#include "TaxCore/result/TaxResult.h"

#include <optional>
#include <string>
#include <string_view>

namespace fiscarel::outputs {

/// Why an entry stands on no form of its region, one German sentence; absent when there is no
/// reason and it should stand on one.
std::optional<std::string> reasonNotTransferred(const taxcore::TaxCase& taxCase,
                                                const taxcore::TaxResult& result,
                                                std::string_view path);

} // namespace fiscarel::outputs
