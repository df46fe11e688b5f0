#pragma once

#include "TaxCore/model/TaxCase.h"

namespace fiscarel {

/// Takes every link to a document out of a case; whether there was one.
bool clearDocumentLinks(taxcore::TaxCase& taxCase, const taxcore::Uuid& document);

} // namespace fiscarel
