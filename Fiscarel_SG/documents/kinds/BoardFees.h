#pragma once

#include "Fiscarel_SG/documents/kinds/KindMappers.h"

namespace fiscarel {

/// Whether a paper's head says that it is about fees for sitting on a company's board, and is no
/// certificate of wages.
bool isBoardPaper(const DocumentRows& document);

/// Proposes the fees: the last amount that those above it prove, before expenses are added. Does
/// nothing where none does. With contributions taken off they are a wage as any other.
/// They are income from employment (DBG Art. 17 Abs. 1); expenses are none of it.
void proposeBoardFees(const KindContext& context, ProposalDraft& draft);

} // namespace fiscarel
