#pragma once

#include "TaxCore/model/Enumerations.h"
#include "TaxCore/result/Derivation.h"

#include <string>

namespace fiscarel::cli {

/// The derivation of one line or figure as German text, in lines of at most 100 columns unless
/// amounts are wider than their columns. Canton and federation have a column each only where they
/// part.
std::string derivationText(const taxcore::Derivation& derivation, taxcore::TaxRegion region);

} // namespace fiscarel::cli
