#pragma once

#include "Fiscarel_SG/documents/rows/RowLabels.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace fiscarel {

constexpr double aligned = 4; ///< points that edges of one column may differ by

/// The cells of a row of labels, the number of a box as part of its label: "3  Intérêts bruts".
std::vector<LabelPlace> headsOf(const Row& row);
/// Whether a row has amounts and at most other numbers beside them, as a rate of exchange.
bool hasOnlyValues(const Row& row);
/// Left edges of the second label and further ones of a row of pairs "label amount label amount",
/// or of bare numbers; empty for other rows.
std::vector<double> pairEdges(const Row& row, bool areBare = false);
/// Whether a row may be cut at edges: a cell begins at one of them, and none goes across.
bool fitsEdges(const Row& row, const std::vector<double>& edges);
/// Whether a cell of a row goes across one of the edges.
bool crossesEdges(const Row& row, const std::vector<double>& edges);
/// Whether a row that fits edges begins with the same word behind each: "Typ A   Typ B".
bool repeatsAtEdges(const Row& row, const std::vector<double>& edges);
/// Whether all of a row stands left of the second column.
bool isLeftOf(const Row& row, const std::vector<double>& edges);
/// Whether each cell of a row is words, no amount and no sign for none.
bool hasOnlyLabels(const Row& row);
/// Rows above each other, the lower one with amounts, that make a grid of labels and values: index
/// of the label's cell for each cell of the values.
std::optional<std::vector<std::size_t>> gridColumns(const Row& labels, const Row& values);
/// Whether each amount of a row stands between the left edge of its label and that of the next one,
/// as in boxes with the label at the top left and the amount at the bottom right.
bool isGridOfBoxes(const Row& labels, const Row& values);

/// The same for labels of two lines, each second one below its first.
bool isGridOfBoxes(const Row& labels, const Row& lines, const Row& values);

} // namespace fiscarel
