#pragma once

#include "Fiscarel_SG/documents/kinds/KindMappers.h"

namespace fiscarel {

/// What managing and keeping securities cost: what a bank states as deductible, else all it states.
void proposeAssetCosts(const KindContext& context, ProposalDraft& draft);

} // namespace fiscarel
