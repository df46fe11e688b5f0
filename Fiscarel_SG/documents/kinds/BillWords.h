#pragma once

#include "Fiscarel_SG/documents/kinds/AmountFinder.h"
#include "Fiscarel_SG/store/StoredDocument.h"

namespace fiscarel {

/// Totals as bills and receipts name them, the surest first.
const Wanted& billTotals();
/// The part of a total that a paper calls deductible: care by others without meals and fees (DBG
/// Art. 33 Abs. 3), what of a training somebody bore (DBG Art. 33 Abs. 1 Bst. j).
const Wanted& deductibleParts();
/// What a patient bears, the insurer and the state having paid their parts.
const Wanted& ownShares();
/// What the patient paid, in words that may also mean an advance: only with a sum.
const Wanted& paidShares();
/// What only papers of a kind say of their amount, the surest first. `areFeesGiven`: members' fees
/// count as given, as those of a political party do (DBG Art. 33 Abs. 1 Bst. i).
const Wanted& ownBillTotals(StoredDocument::Kind kind, bool areFeesGiven = false);
/// Words that may head a total and other amounts as well.
const Wanted& plainBillTotals();
/// The value-added tax of a bill.
const Wanted& billTaxes();
/// What a bill comes to without that tax.
const Wanted& billNets();

} // namespace fiscarel
