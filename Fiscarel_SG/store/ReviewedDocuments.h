#pragma once

#include "Fiscarel_SG/store/StoredDocument.h"
#include "TaxCore/review/Checks.h"

#include <vector>

namespace fiscarel {

/// What the review of a year's case is told of the documents: those filed under that year.
std::vector<taxcore::ReviewedDocument>
reviewedDocuments(const std::vector<StoredDocument>& documents, int year);

} // namespace fiscarel
