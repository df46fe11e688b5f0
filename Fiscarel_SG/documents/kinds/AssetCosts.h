#pragma once

#include "Fiscarel_SG/documents/kinds/KindMappers.h"

namespace fiscarel {

/// What managing and keeping securities cost, where a bank states it as deductible.
void proposeAssetCosts(const KindContext& context, ProposalDraft& draft);

} // namespace fiscarel
