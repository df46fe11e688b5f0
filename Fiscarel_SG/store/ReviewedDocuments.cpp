#include "Fiscarel_SG/store/ReviewedDocuments.h"

namespace fiscarel {

std::vector<taxcore::ReviewedDocument>
reviewedDocuments(const std::vector<StoredDocument>& documents) {
    std::vector<taxcore::ReviewedDocument> reviewed;
    reviewed.reserve(documents.size());
    for (const StoredDocument& document : documents) {
        reviewed.push_back({.title = document.title,
                            .year = document.year,
                            .applied = document.isApplied || !document.amount});
    }
    return reviewed;
}

} // namespace fiscarel
