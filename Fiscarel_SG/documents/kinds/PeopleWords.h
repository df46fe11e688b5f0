#pragma once

#include "Fiscarel_SG/documents/rows/RowLabels.h"

namespace fiscarel {

// Words that stand beside the names of people.

/// Words between a name and a day, as that of a birth: "geb. am".
const Labels& births();
/// Words that tell of a birth alone; a payment is "am 3.4.2024", too.
const Labels& plainBirths();
/// Words that are written with a capital too.
const Labels& noNames();
/// Words before the name of whom a sum is of: "Totale Sofia Muster", "Total für Lea Muster".
const Labels& sumsOf();

} // namespace fiscarel
