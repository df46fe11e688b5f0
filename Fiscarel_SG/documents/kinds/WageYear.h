#pragma once

#include "Fiscarel_SG/documents/ProposalDraft.h"

#include <optional>

namespace fiscarel {

/// What a paper says of the whole year of a wage whose parts it states too.
struct WageYear {
    DocumentRows document; ///< with the year's amounts alone
    bool isOver = true;    ///< false for a slip before the year's last: what it adds up goes on
};

/// A document with wages of months, quarters or half-years in columns beside what they come to, or
/// of a month in the row beside it, without them: "Monat | Kumuliert", "Jan … Dez | Jahr". Absent
/// for all others.
std::optional<WageYear> yearBesideParts(const DocumentRows& document);

/// A document whose wage of a month is followed by a block with the year's amounts, without that of
/// the month: "Progressivi gennaio - dicembre". Absent for all others.
std::optional<WageYear> yearBelowPart(const DocumentRows& document);

/// Whether words name a month, a quarter or another part of a year.
bool namesPartOfYear(const Row& words);
/// Whether words name the whole of a year, or what its parts come to.
bool namesWholeYear(const Row& words);

} // namespace fiscarel
