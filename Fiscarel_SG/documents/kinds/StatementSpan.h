#pragma once

#include "Fiscarel_SG/documents/ProposalDraft.h"

namespace fiscarel {

/// What time the head of a bank's statement says that it is for.
enum class StatementSpan {
    year,    ///< or nothing is said, or all of it that there was of an account opened or closed
    part,    ///< some months before the year's end: their balance is of no use for the return
    lastPart ///< those that end with the year: the balance is, the interest is not the year's
};

/// By the first span of days above the amounts of the first page, "01.06.2024 – 30.06.2024", that
/// is not told to be of something else, as the term of a deposit. Eleven months and more are a
/// year.
StatementSpan spanOfStatement(const DocumentRows& document);

} // namespace fiscarel
