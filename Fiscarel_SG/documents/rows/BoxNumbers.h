#pragma once

#include "Fiscarel_SG/documents/rows/PageRows.h"

#include <optional>

namespace fiscarel {

/// The number of one or two digits a row begins with, in a cell of its own: "2   Assicurato".
std::optional<int> boxNumber(const Row& row);

/// Takes the numbers of a form's boxes out of rows that hold nothing else but what was filled in,
/// its label standing above: "7          Fr. 322'500.00". Only where a page numbers at least three
/// boxes one after the other. Rows of such numbers alone, between a label and its value, go as
/// well.
void dropBoxNumbers(PageRows& page);

} // namespace fiscarel
