#pragma once

#include "Fiscarel_SG/documents/rows/RowLabels.h"

#include <vector>

namespace fiscarel {

/// The whole label that begins in a row of its own and goes on in the next, before amounts; empty
/// where two rows are no such.
std::vector<RowWord> labelOverLines(const Row& above, const Row& below);

/// A row with a label in place of its first cell, its columns staying where they are; a long label
/// begins farther left.
std::vector<RowWord> beforeColumns(std::vector<RowWord> label, const Row& row,
                                   const LabelPlace& first);

} // namespace fiscarel
