#pragma once

#include "Fiscarel_SG/documents/ProposalDraft.h"

namespace fiscarel {

/// A short line at the top that names pillar 3a and not the free one: such accounts and policies
/// are a bank's or an insurer's, whose own words would outweigh it.
bool hasPillarTitle(const DocumentRows& document);

/// A short line at the top that says in whatever words that a wage is certified.
bool hasWageTitle(const DocumentRows& document);

/// A short line at the top that names vested benefits of a pension fund, beside which no other
/// account stands: they are neither wealth nor income until they are paid out. BVG Art. 84
bool hasVestedTitle(const DocumentRows& document);

/// Whether a document speaks of interest, a balance or a debt.
bool namesMoneyAtBank(const DocumentRows& document);

} // namespace fiscarel
