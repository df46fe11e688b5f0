#pragma once

#include "Fiscarel_SG/documents/kinds/AmountFinder.h"
#include "Fiscarel_SG/documents/kinds/KindMappers.h"

#include <optional>
#include <vector>

namespace fiscarel {

/// The amount that counts on a bill or receipt, as its words tell it. Its value is the printed one;
/// only where the costs of a reminder are taken off and what remains is printed nowhere is it the
/// difference.
struct BillTotal {
    FoundAmount found;
    const Wanted* wanted = nullptr;    ///< the words it was looked for by, never null
    std::vector<ProposalCheck> checks; ///< that speak for it or against it; none of a plain one
    bool isPlain = false;              ///< found without any label: the words do not tell of it
    bool isDoubtful = false;   ///< others have the same words, or a home's bill tells no care apart
    bool isUnsettled = false;  ///< a part of others or the costs of a reminder may be left in it
    bool isReminder = false;   ///< the costs of a reminder were taken off
    bool isDeductible = false; ///< the part of a total that the paper calls deductible
    bool isOwnCare = false;    ///< of a home's bill the part for care
};

/// Looks for what a patient bears, what was given, what a course or a child's care cost, what a
/// repair came to. `isShared`: communes or employers may bear a part, which is taken off where it
/// stands below the total. Absent when no words lead to an amount and the paper does not state just
/// one, or a sum.
std::optional<BillTotal> findBillTotal(const KindContext& context, bool isShared);

/// Takes off what a paper says, wherever it does, was given back or borne by others; unsettled
/// where no sum proves what remains.
void settleGivenBack(const DocumentRows& document, BillTotal& total);

/// What only papers of the kind say of their amount; a party's members give as others do.
const Wanted& ownTotalsOf(const KindContext& context);

/// Whether amounts are the same but for the five centimes that bills are rounded to.
bool areSameRounded(const Decimal& one, const Decimal& other);

} // namespace fiscarel
