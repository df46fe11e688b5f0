#include "Fiscarel_SG/documents/rows/TurnedTables.h"

#include "Fiscarel_SG/documents/rows/CellRoles.h"
#include "Fiscarel_SG/documents/rows/GridEdges.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace fiscarel {

namespace {

/// A row's last cell where it is words and all others are amounts.
std::optional<LabelPlace> wordsBehind(const Row& row, const std::vector<LabelPlace>& cells) {
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

/// What is asked of a row again and again.
struct Line {
    explicit Line(const Row& row)
        : cells(cellsOf(row)), words(wordsBehind(row, cells)), amounts(row.amounts.size()),
          isHeading(cells.size() >= 3 && !hasFirmAmount(row)) {}

    std::vector<LabelPlace> cells;
    std::optional<LabelPlace> words; ///< behind its amounts
    std::size_t amounts = 0;
    bool isHeading = false; ///< has no amounts and may be a line of a heading
};

struct Turned {
    std::size_t first = 0;
    std::size_t end = 0;
    double edge = 0; ///< where the words of the last column begin
};

/// The table whose first amounts stand in a row, with its heading, which stands behind a row that
/// is taken already.
std::optional<Turned> turnedAt(const std::vector<Line>& lines, std::size_t taken, std::size_t at) {
    constexpr std::size_t headings = 3;
    const auto& words = lines[at].words;
    if (!words) {
        return std::nullopt;
    }
    Turned table{at, at, words->left};
    std::size_t several = 0; // rows with two amounts
    for (; table.end < lines.size(); ++table.end) {
        const Line& line = lines[table.end];
        const bool isOwn = line.words && isAligned(*line.words, *words);
        const bool isAlone = line.cells.size() == 1 && isAligned(line.cells[0], *words);
        if (!isOwn && !isAlone && !line.isHeading) {
            break;
        }
        if (isOwn || isAlone) {
            table.edge = std::min(table.edge, line.cells.back().left);
        }
        several += isOwn && line.amounts >= 2 ? 1U : 0U;
    }
    if (several < 2) {
        return std::nullopt;
    }
    while (table.first > taken && at - table.first < headings && lines[table.first - 1].isHeading) {
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
        std::rotate(row.words.begin(), row.words.begin() + static_cast<std::ptrdiff_t>(last.first),
                    row.words.end());
        row = rowOfWords(std::move(row.words), page.isRecognised);
    }
}

} // namespace

void turnTables(PageRows& page) {
    const std::vector<Line> lines(page.rows.begin(), page.rows.end());
    std::size_t taken = 0;
    for (std::size_t at = 0; at < lines.size(); ++at) {
        if (const auto table = turnedAt(lines, taken, at)) {
            turn(page, *table);
            taken = table->end;
            at = table->end - 1;
        }
    }
}

} // namespace fiscarel
