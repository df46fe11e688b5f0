#pragma once

#include "Fiscarel_SG/documents/kinds/KindMappers.h"

#include <cstddef>
#include <vector>

namespace fiscarel {

/// Municipality, parcel and description of a property, as far as a document names them.
void nameProperty(const DocumentRows& document, int record, ProposalDraft& draft);

/// What a manager or an owners' association accounts for: rents that came in and upkeep that may be
/// deducted. Sure is what the amounts above in its column add up to. False when nothing is found.
bool proposeManagement(const KindContext& context, ProposalDraft& draft);

/// Whether a list of costs has a column with a total for what of them may be deducted: upkeep, as
/// against what adds value (DBG Art. 32 Abs. 2, Art. 34 lit. d).
bool hasDeductibleColumn(const DocumentRows& document);

/// Whether a paper tells, anywhere, one amount of upkeep that may be deducted.
bool tellsDeductibleUpkeep(const DocumentRows& document);

/// What a document tells of each of several parcels, as a document of its own: the columns or rows
/// of a table, or from the number of one to that of the next. Empty when there are not several.
std::vector<DocumentRows> parcelsOf(const DocumentRows& document);

/// Makes what was proposed of several parcels, from that proposal on, sure where the values add up
/// to a total that is printed.
void confirmParcels(const KindContext& context, std::size_t from, ProposalDraft& draft);

} // namespace fiscarel
