#include "Fiscarel_SG/documents/rows/TurnedTables.h"

#include "Fiscarel_SG/documents/rows/CellRoles.h"
#include "Fiscarel_SG/documents/rows/GridEdges.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace fiscarel {

namespace {

/// A row's last cell where it is words and all others are amounts.
std::optional<LabelPlace> wordsBehind(const Row& row) {
    const auto cells = cellsOf(row);
    if (cells.size() < 2 || lettersIn(row, cells.back()) < 4
        || roleOf(row, cells.back()) != Role::text || hasFirmAmount(row, cells.back())) {
        return std::nullopt;
    }
    const bool areAmounts = std::all_of(cells.begin(), cells.end() - 1, [&](const auto& cell) {
        return roleOf(row, cell) != Role::text;
    });
    return areAmounts && hasFirmAmount(row) ? std::optional(cells.back()) : std::nullopt;
}

bool isAligned(const LabelPlace& one, const LabelPlace& other) {
    return std::abs(one.left - other.left) <= aligned
           || std::abs(one.right - other.right) <= aligned;
}

/// Whether a row without amounts may be a line of a heading.
bool isHeading(const Row& row) { return cellsOf(row).size() >= 3 && !hasFirmAmount(row); }

struct Turned {
    std::size_t first = 0;
    std::size_t end = 0;
    double edge = 0; ///< where the words of the last column begin
};

/// The table whose first amounts stand in a row, with its heading.
std::optional<Turned> turnedAt(const std::vector<Row>& rows, std::size_t at) {
    constexpr std::size_t headings = 3;
    const auto words = wordsBehind(rows[at]);
    if (!words) {
        return std::nullopt;
    }
    Turned table{at, at, words->left};
    std::size_t several = 0; // rows with two amounts
    for (; table.end < rows.size(); ++table.end) {
        const Row& row = rows[table.end];
        const auto own = wordsBehind(row);
        const auto cells = cellsOf(row);
        const bool isLine = cells.size() == 1 && isAligned(cells[0], *words);
        if (!(own && isAligned(*own, *words)) && !isLine && !isHeading(row)) {
            break;
        }
        table.edge = own || isLine ? std::min(table.edge, cells.back().left) : table.edge;
        several += own && row.amounts.size() >= 2 ? 1U : 0U;
    }
    if (several < 2) {
        return std::nullopt;
    }
    while (table.first > 0 && at - table.first < headings && isHeading(rows[table.first - 1])) {
        --table.first;
    }
    return table;
}

void turn(PageRows& page, const Turned& table) {
    double left = page.width;
    double right = table.edge;
    for (std::size_t i = table.first; i < table.end; ++i) {
        left = std::min(left, page.rows[i].words.front().place.left);
        right = std::max(right, page.rows[i].words.back().place.right);
    }
    const double move = left - page.width / 20 - right;
    for (std::size_t i = table.first; i < table.end; ++i) {
        Row& row = page.rows[i];
        const LabelPlace last = cellsOf(row).back();
        if (last.right <= table.edge) {
            continue; // a line of the heading that has nothing over the words
        }
        for (std::size_t word = last.first; word <= last.last; ++word) {
            row.words[word].place.left += move;
            row.words[word].place.right += move;
        }
        std::ranges::rotate(row.words, row.words.begin() + static_cast<std::ptrdiff_t>(last.first));
        row = rowOfWords(std::move(row.words), page.isRecognised);
    }
}

} // namespace

void turnTables(PageRows& page) {
    for (std::size_t at = 0; at < page.rows.size(); ++at) {
        if (const auto table = turnedAt(page.rows, at)) {
            turn(page, *table);
            at = table->end;
        }
    }
}

} // namespace fiscarel
