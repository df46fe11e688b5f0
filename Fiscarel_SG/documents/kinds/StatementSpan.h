#pragma once

#include "Fiscarel_SG/documents/ProposalDraft.h"

namespace fiscarel {

/// What time the head of a bank's statement says that it is for.
enum class StatementSpan {
    year,    ///< or nothing is said
    part,    ///< a month or a quarter before the year's end: its balance is of no use for the return
    lastPart ///< one that ends with the year: the balance is, the interest is not the year's
};

StatementSpan spanOfStatement(const DocumentRows& document);

} // namespace fiscarel
