#pragma once

#include "Fiscarel_SG/documents/ProposalDraft.h"
#include "Fiscarel_SG/documents/kinds/PageRuns.h"

#include <optional>
#include <string>
#include <vector>

namespace fiscarel {

/// What a document tells besides its amounts.
struct DocumentFacts {
    std::optional<int> year; ///< the year it speaks of, by the clearest mention
    std::optional<taxcore::Date> birthDate;
    std::optional<taxcore::Date> issued; ///< the document's own date
    std::string socialSecurityNumber;
    PlacedText issuer; ///< company, institution or practice at its top
    PlacedText person; ///< whom it concerns
};

DocumentFacts readFacts(const DocumentRows& document);

/// The year that the rows of a page above a height speak of by the clearest mention: one named as
/// the year before one of a title, that before the end of a year, that before any other day.
std::optional<int> yearTold(const PageRows& page, double bottom);

/// That the issuer is whose name stands at the head of the document: medium, with its place.
Evidence issuerEvidence(const DocumentFacts& facts);

/// A record of a kind with what the facts tell of it.
ProposedRecord recordWith(const DocumentFacts& facts, ProposedRecord::Kind kind, std::string title,
                          int page);

} // namespace fiscarel
