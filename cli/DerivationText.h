#pragma once

#include "TaxCore/result/Derivation.h"

#include <string>

namespace fiscarel::cli {

/// The derivation of one line or figure as German text.
std::string derivationText(const taxcore::Derivation& derivation);

} // namespace fiscarel::cli
