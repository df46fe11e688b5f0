#pragma once

#include "Fiscarel_SG/documents/kinds/AmountFinder.h"
#include "Fiscarel_SG/documents/kinds/People.h"

#include <optional>
#include <vector>

namespace fiscarel {

/// An amount of one of several people.
struct PersonAmount {
    NamedPerson person;
    FoundAmount found;
    std::optional<ProposalCheck> check = std::nullopt; ///< that proves it alone
};

/// Whether an amount is surely one, and of a franc or more.
bool isWorthy(const RowAmount& amount);

/// Whether no person has two of the amounts.
bool areDistinct(const std::vector<PersonAmount>& parts);

/// The amounts of a row that stand under the names of a heading.
std::vector<PersonAmount> amountsUnder(const PageRows& page, const Row& heading,
                                       const std::vector<NamedPerson>& named, std::size_t at);

/// Whose the amounts are that were found for the same words: those of the last one's row, each
/// under a name; those of the column it is headed by, each beside a name; or all, each below the
/// name of another person. Empty where this tells fewer than two people, or two amounts of one.
std::vector<PersonAmount> amountsOfPeople(const DocumentRows& document,
                                          const std::vector<FoundAmount>& all);

} // namespace fiscarel
