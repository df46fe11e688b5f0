#include "Fiscarel_SG/documents/rows/CardEdges.h"

#include "Fiscarel_SG/documents/rows/CellRoles.h"
#include "Fiscarel_SG/documents/rows/GridEdges.h"
#include "Fiscarel_SG/documents/text/Digits.h"

#include <algorithm>
#include <iterator>
#include <limits>
#include <utility>

namespace fiscarel {

namespace {

using Cells = std::vector<LabelPlace>;

constexpr double cardIndent = 16; ///< points that a card's lines may stand right of its head

} // namespace

std::vector<Row> columnsOf(const Row& row, const std::vector<double>& edges, bool isRecognised) {
    std::vector<std::vector<RowWord>> words(edges.size() + 1);
    for (const RowWord& word : row.words) {
        const auto own = std::ranges::count_if(
            edges, [&](double edge) { return word.place.left >= edge - aligned; });
        words[static_cast<std::size_t>(own)].push_back(word);
    }
    std::vector<Row> columns;
    columns.reserve(words.size());
    for (std::vector<RowWord>& own : words) {
        columns.push_back(own.empty() ? Row() : rowOfWords(std::move(own), isRecognised));
    }
    return columns;
}

std::vector<double> cardEdges(const Row& row) {
    std::vector<double> edges;
    const Cells cells = cellsOf(row);
    if (cells.size() < 2 || hasFirmAmount(row) || !hasOnlyLabels(row)) {
        return edges;
    }
    std::transform(std::next(cells.begin()), cells.end(), std::back_inserter(edges),
                   [](const LabelPlace& cell) { return cell.left; });
    return edges;
}

bool hasOnlyNumbers(const Row& row, const std::vector<double>& edges) {
    static const Labels numberNames{"IBAN", "Konto*", "compte", "conto", "Nr", "numéro", "numero"};
    if (hasFirmAmount(row)) {
        return false;
    }
    std::size_t numbers = 0;
    for (const Row& part : columnsOf(row, edges, false)) {
        const auto digits = std::ranges::count_if(part.folded, isDigit);
        std::ptrdiff_t letters = 0;
        for (const RowWord& word : part.words) {
            const bool isName =
                findLabel(rowOfWords({word}, false), numberNames, false).has_value();
            letters += isName ? 0 : std::ranges::count_if(word.folded, [](char c) {
                return c >= 'a' && c <= 'z';
            });
        }
        if (!part.words.empty() && (digits < 5 || letters > 4)) {
            return false;
        }
        numbers += part.words.empty() ? 0U : 1U;
    }
    return numbers >= 2;
}

bool isCard(std::span<const Row> rows, const std::vector<double>& edges, std::size_t column) {
    const double left = column == 0 ? cellsOf(rows.front()).front().left : edges[column - 1];
    const double right =
        column < edges.size() ? edges[column] - aligned : std::numeric_limits<double>::max();
    std::size_t lines = 0;
    std::size_t amounts = 0;
    for (const Row& row : rows.subspan(1)) {
        for (const LabelPlace& cell : cellsOf(row)) {
            if (cell.left < left - aligned || cell.left >= right) {
                continue;
            }
            const bool isFirst = cell.left < left + cardIndent;
            const Role role = roleOf(row, cell);
            const bool isLine = isFirst && role == Role::text && lettersIn(row, cell) >= 3;
            lines += isLine ? 1U : 0U;
            amounts += role == Role::amount ? 1U : 0U;
        }
    }
    return lines >= 2 && amounts >= 1;
}

bool fitsCards(const Row& row, const std::vector<double>& edges) {
    return !crossesEdges(row, edges)
           && std::ranges::any_of(cellsOf(row), [&](const LabelPlace& cell) {
                  return std::ranges::any_of(edges, [&](double edge) {
                      return cell.left > edge - aligned && cell.left < edge + cardIndent;
                  });
              });
}

} // namespace fiscarel
