#pragma once

#include "Fiscarel_SG/documents/ProposalDraft.h"

namespace fiscarel {

/// A paper on a wage without the columns of what the employer pays beside it; absent where it has
/// none.
std::optional<DocumentRows> withoutEmployersShare(const DocumentRows& document);

} // namespace fiscarel
