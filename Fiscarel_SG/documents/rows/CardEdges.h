#pragma once

#include "Fiscarel_SG/documents/rows/PageRows.h"

#include <cstddef>
#include <span>
#include <vector>

namespace fiscarel {

/// Cards are blocks beside each other, each with a head and lines of its own. Their edges are the
/// left edges of all but the first; column 0 is what stands before them.

/// More rows than this have no cards below their heads: a page of the smallest print has as many.
constexpr std::size_t mostCardRows = 150;

/// What of a row stands in each column between edges; a row without words for nothing.
std::vector<Row> columnsOf(const Row& row, const std::vector<double>& edges, bool isRecognised);
/// Left edges of the second and further heads of cards; empty for other rows.
std::vector<double> cardEdges(const Row& row);
/// Whether a row has the number of an account or a contract in two columns between edges, as
/// below its name, and nothing else.
bool hasOnlyNumbers(const Row& row, const std::vector<double>& edges);
/// Whether a column of rows, the heads the first, has lines of text below its head, and amounts:
/// those of a table have only either.
bool isCard(std::span<const Row> rows, const std::vector<double>& edges, std::size_t column);
/// Whether a row has cells in the columns of cards only, one of them in a further card: its lines
/// may stand a little right of their head.
bool fitsCards(const Row& row, const std::vector<double>& edges);

} // namespace fiscarel
