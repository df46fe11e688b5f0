#pragma once

#include "Fiscarel_SG/outputs/TransferList.h"

#include <string>

namespace fiscarel::cli {

/// The transfer list for reading in a terminal, form by form; amounts as the forms want them.
std::string transferText(const taxcore::TaxCase& taxCase, const outputs::TransferList& list);

} // namespace fiscarel::cli
