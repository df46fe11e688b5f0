#pragma once

#include "Fiscarel_SG/documents/kinds/AmountFinder.h"
#include "Fiscarel_SG/documents/kinds/People.h"

#include <optional>
#include <string>
#include <vector>

namespace fiscarel {

/// An amount of one of several people.
struct PersonAmount {
    NamedPerson person;
    FoundAmount found;
    std::optional<ProposalCheck> check = std::nullopt; ///< that proves it alone
};

/// The amounts of a document that states one for each of several people: children, spouses. They
/// are named by the row of the amount, by the heading of its column, by the sentence, or by a line
/// above it that goes for all that follows. Of several ways to read it the one counts whose amounts
/// add up to a total that is printed. Empty when fewer than two people have one.
std::vector<PersonAmount> findPersonAmounts(const DocumentRows& document, const Wanted& wanted);

/// The amounts of the row of one, each under the name of another person; empty unless all are.
std::vector<PersonAmount> amountsUnderNames(const DocumentRows& document, const FoundAmount& one);

/// That the amounts of all add up to one that is printed; absent when they do not.
std::optional<ProposalCheck> togetherCheck(const DocumentRows& document,
                                           const std::vector<PersonAmount>& parts);

} // namespace fiscarel
