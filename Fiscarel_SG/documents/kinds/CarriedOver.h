#pragma once

#include "Fiscarel_SG/documents/ProposalDraft.h"

#include <optional>

namespace fiscarel {

/// A document whose table goes on over several pages with the sums carried from one to the next,
/// without those sums and without what they add up: only the table's end states anything. Where the
/// last page carries on, the table's end is missing and nothing is left of it. A page that goes on
/// without a heading gets that of the page before. Absent for all others.
std::optional<DocumentRows> withoutCarried(const DocumentRows& document);

} // namespace fiscarel
