#pragma once

#include "Fiscarel_SG/documents/kinds/AmountFinder.h"

#include <optional>
#include <vector>

namespace fiscarel {

/// The amount of a document that states just one, maybe several times, for kinds whose structure
/// implies one: a letter of thanks for a donation. Amounts in rows with words of `barred` and those
/// that only their digits speak for are not looked at; absent when several differ.
std::optional<FoundAmount> onlyAmount(const std::vector<RowRange>& ranges,
                                      const std::vector<Concept>& barred);
/// The last amount that those above it add up to; absent when none does.
std::optional<FoundAmount> provenSum(const std::vector<RowRange>& ranges,
                                     const std::vector<Concept>& barred);

/// How such an amount is known: never for sure.
Evidence plainEvidence(const FoundAmount& found, bool isKindClear);

} // namespace fiscarel
