#pragma once

#include "Fiscarel_SG/documents/rows/PageRows.h"

namespace fiscarel {

/// Reads "vor Verrechnungssteuer" as "brutto" and "nach Verrechnungssteuer" as "netto", in all
/// languages: such a row tells an interest, not the tax it names. And "a suo credito" tells of what
/// is the customer's, not of a loan.
void shortenTaxWords(PageRows& page);

} // namespace fiscarel
