#pragma once

#include "Fiscarel_SG/documents/rows/RowLabels.h"

namespace fiscarel {

/// What rates of benefits are counted by: months, days.
const Labels& countedUnits();

/// Whether a row of a paper on benefits runs as a sentence does.
bool runsOn(const Row& row);

/// What is told of the amount at an index of a row: the words of the row and of its column's
/// heading; in a sentence those of its clause, which may begin a line before and end a line after.
Row wordsOfClause(const PageRows& page, std::size_t at, std::size_t amount);

} // namespace fiscarel
