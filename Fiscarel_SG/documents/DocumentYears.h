#pragma once

#include "Fiscarel_SG/documents/ScanResult.h"

#include <optional>
#include <string>
#include <vector>

namespace fiscarel {

/// The tax year a document speaks of, if not of `year`: what most of its records name. Absent when
/// they name none, or one of them names `year`.
std::optional<int> otherYear(const ScanResult& scan, int year);

/// A kind of document of an issuer that there was a year before.
struct MissingDocument {
    StoredDocument::Kind kind = StoredDocument::Kind::anderes;
    std::string issuer; ///< may be empty
    std::string title;  ///< of the document of the year before

    bool operator==(const MissingDocument&) const = default;
};

/// What there was in the year before and is not there in `year`, in the order of the kinds. One
/// document stands for one of the year before: of the same issuer, or of none that is known. Bills
/// and courses, which come from elsewhere every year, count by their kind alone, and documents of
/// no kind not at all. Nothing without documents of the year before.
std::vector<MissingDocument> missingSinceYearBefore(const std::vector<StoredDocument>& documents,
                                                    int year);

} // namespace fiscarel
