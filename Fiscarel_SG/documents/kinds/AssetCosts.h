#pragma once

#include "Fiscarel_SG/documents/kinds/KindMappers.h"

namespace fiscarel {

/// Whether a row states what managing or keeping securities cost: not the costs of accounts, cards
/// or orders, unless they may be deducted.
bool statesAssetCosts(const PageRows& page, const Row& row);

/// What managing and keeping securities cost (DBG Art. 32 para. 1): what a bank states as
/// deductible, else all it states.
void proposeAssetCosts(const KindContext& context, ProposalDraft& draft);

} // namespace fiscarel
