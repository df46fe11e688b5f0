#pragma once

#include "Fiscarel_SG/documents/rows/PageRows.h"

#include <cstddef>
#include <vector>

namespace fiscarel {

/// Blocks beside each other with a head of its own over each, as tiles and cards are set.
struct Panels {
    std::size_t end = 0;       ///< row behind the last one that they share
    std::vector<double> edges; ///< left edges of the second and further ones; empty for none
};

/// The panels whose heads stand in a row. What sets them apart are the gaps that no row crosses;
/// of several gaps between two heads the one counts behind which the next panel is set as the one
/// before. Each has words and amounts of its own, and what the amounts are called is said in at
/// least two: columns of a table have either words or amounts.
Panels panelsAt(const PageRows& page, std::size_t at);

} // namespace fiscarel
