#pragma once

#include "Fiscarel_SG/documents/kinds/AmountFinder.h"
#include "Fiscarel_SG/documents/kinds/KindMappers.h"

namespace fiscarel {

/// Proposes a donation for each row of a list that adds up to a total, where each row names the
/// institution it went to, as letters of joint collections do; false where they do not. Each is a
/// donation of its own, which the institution must be exempt for (DBG Art. 33a).
bool proposeRecipients(const KindContext& context, const FoundAmount& total, const Wanted& wanted,
                       ProposalDraft& draft);

} // namespace fiscarel
