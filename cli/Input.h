#pragma once

#include "TaxCore/model/TaxCase.h"
#include "TaxCore/stgallen/TaxCalculator.h"

#include <tl/expected.hpp>

#include <optional>
#include <string>

namespace fiscarel::cli {

/// One German sentence for the user.
using Fault = std::string;

/// The whole text of a file, or of standard input for "-". Larger inputs than any household's file
/// are refused before they fill the memory.
tl::expected<std::string, Fault> readText(const std::string& file);

/// The case in a text: a single case, or the case of one year of a state file.
tl::expected<taxcore::TaxCase, Fault> readCase(const std::string& text, std::optional<int> year);

/// The calculator for a case; a fault when its region or year cannot be computed.
tl::expected<taxcore::TaxCalculator, Fault> calculatorFor(const taxcore::TaxCase& taxCase);

} // namespace fiscarel::cli
