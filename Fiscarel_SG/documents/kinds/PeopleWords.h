#pragma once

#include "Fiscarel_SG/documents/rows/RowLabels.h"

namespace fiscarel {

// Words that stand beside the names of people.

/// Words between a name and a day of birth.
const Labels& births();
/// Those of them that tell of a birth without the others; a payment is "am 3.4.2024", too.
const Labels& plainBirths();
/// Words that are written with a capital too.
const Labels& noNames();
/// Words before the name of whom a sum is of: "Totale Sofia Muster", "Total für Lea Muster".
const Labels& sumsOf();

} // namespace fiscarel
