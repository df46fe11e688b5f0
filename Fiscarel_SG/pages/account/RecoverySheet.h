#pragma once

#include "Fiscarel_SG/paper/PaperDocument.h"
#include "TaxCore/base/Date.h"

#include <string>

namespace fiscarel::pages {

/// A sheet with the recovery key, to be printed and kept: the account's address, the day, the key
/// as it is grouped for reading, and what it is for.
paper::PaperDocument recoverySheet(const std::string& email, const std::string& key,
                                   const taxcore::Date& day);

} // namespace fiscarel::pages
