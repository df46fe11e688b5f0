#pragma once

#include "Fiscarel_SG/store/StoredDocument.h"
#include "TaxCore/review/Checks.h"

#include <vector>

namespace fiscarel {

/// What the review of a case is told of the documents.
std::vector<taxcore::ReviewedDocument>
reviewedDocuments(const std::vector<StoredDocument>& documents);

} // namespace fiscarel
