#pragma once

#include "Fiscarel_SG/documents/rows/PageRows.h"
#include "Fiscarel_SG/documents/rows/RowLabels.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace fiscarel {

/// Blocks beside each other with a head of its own over each, as tiles and cards are set.
struct Panels {
    std::size_t end = 0;       ///< row behind the last one that they share
    std::vector<double> edges; ///< left edges of the second and further ones; empty for none
};

/// Finds the panels whose heads stand in a row. What sets them apart are the gaps that no row
/// crosses; of several gaps between two heads the one counts behind which the next panel is set as
/// the one before. Each has words and amounts of its own, and what the amounts are called is said
/// in at least two: columns of a table have either words or amounts.
class PanelFinder {
  public:
    explicit PanelFinder(const PageRows& page); ///< the page must outlive this, as it is

    Panels at(std::size_t at);

  private:
    const Panels& from(std::size_t at);
    Panels found(std::size_t at) const;

    const PageRows& page_;
    std::vector<std::vector<LabelPlace>> cells_; ///< of each row
    std::vector<std::optional<Panels>> known_;   ///< those whose heads stand in a row
};

} // namespace fiscarel
