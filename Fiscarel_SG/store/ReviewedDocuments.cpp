#include "Fiscarel_SG/store/ReviewedDocuments.h"

namespace fiscarel {

std::vector<taxcore::ReviewedDocument>
reviewedDocuments(const std::vector<StoredDocument>& documents, int year) {
    std::vector<taxcore::ReviewedDocument> reviewed;
    for (const StoredDocument& document : documents) {
        if (document.year == year) {
            reviewed.push_back({.title = document.title,
                                .year = year,
                                .applied = document.isApplied || !document.amount});
        }
    }
    return reviewed;
}

} // namespace fiscarel
