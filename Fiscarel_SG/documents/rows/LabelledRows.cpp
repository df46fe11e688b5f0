#include "Fiscarel_SG/documents/rows/LabelledRows.h"

#include "Fiscarel_SG/documents/rows/CellRoles.h"
#include "Fiscarel_SG/documents/rows/GridEdges.h"

#include <algorithm>
#include <cmath>

namespace fiscarel {

namespace {

using Cells = std::vector<LabelPlace>;

} // namespace

double LabelledRows::gap(std::size_t at) const {
    constexpr double tightness = 1.5; // of recognised boxes
    const Row& above = page_.rows[at];
    const Row& below = page_.rows[at + 1];
    const double height = std::max(above.height(), below.height());
    const double gap = below.top - above.bottom;
    return height <= 0 ? 0 : page_.isRecognised ? gap / height / tightness : gap / height;
}

bool LabelledRows::isOfList(std::size_t at) const {
    constexpr std::size_t fewest = 4; // rows
    constexpr double pitch = 0.2;     // of which it may differ
    const auto& rows = page_.rows;
    const Cells cells = cellsOf(rows[at + 1]);
    if (cells.size() != 2 || roleOf(rows[at + 1], cells[0]) != Role::text
        || lettersIn(rows[at + 1], cells[0]) < 4) {
        return false;
    }
    const double step = rows[at + 1].top - rows[at].top;
    const auto goesOn = [&](std::size_t above) {
        const Cells own = cellsOf(rows[above + 1]);
        return std::abs(rows[above + 1].top - rows[above].top - step) < pitch * step
               && own.size() == 2 && std::abs(own[0].left - cells[0].left) <= aligned
               && std::abs(own[1].left - cells[1].left) <= aligned;
    };
    std::size_t first = at + 1;
    while (first > 0 && at + 2 - first < fewest && goesOn(first - 1)) {
        --first;
    }
    std::size_t end = at + 1;
    while (end + 1 < rows.size() && end - first + 1 < fewest && goesOn(end)) {
        ++end;
    }
    return first <= at && end - first + 1 >= fewest;
}

bool LabelledRows::mayBeValues(const Row& row) const {
    const Cells cells = cellsOf(row);
    const bool hasLabel = std::ranges::any_of(cells, [&](const LabelPlace& cell) {
        return lettersIn(row, cell) >= 3 && roleOf(row, cell) == Role::text && !saysNone(row, cell);
    });
    return isPanel_ ? !hasLabel && (cells.size() >= 2 || hasFirmAmount(row)) : hasFirmAmount(row);
}

bool LabelledRows::isStack(std::size_t at) const {
    const auto& rows = page_.rows;
    if (at + 1 >= rows.size() || hasFirmAmount(rows[at]) || !hasOnlyAmounts(rows[at + 1])
        || gap(at) > 1) {
        return false;
    }
    const Cells label = cellsOf(rows[at]);
    return label.size() == 1 && cellsOf(rows[at + 1]).size() == 1
           && lettersIn(rows[at], label.front()) >= 4
           && (at + 2 == rows.size() || gap(at) < 0.8 * gap(at + 1));
}

bool LabelledRows::stacks() const {
    constexpr std::size_t fewest = 3;
    std::size_t pairs = 0;
    for (std::size_t at = 0; at < page_.rows.size(); ++at) {
        pairs += isStack(at)
                         && page_.rows[at + 1].words.front().place.left
                                > page_.rows[at].words.back().place.right
                     ? 1U
                     : 0U;
    }
    return pairs >= fewest;
}

bool LabelledRows::isCaptionBelow(std::size_t at) const {
    const auto& rows = page_.rows;
    return at + 2 < rows.size() && hasOnlyAmounts(rows[at + 1]) && !hasFirmAmount(rows[at + 2])
           && gap(at + 1) < 0.7 * gap(at) && gridColumns(rows[at + 2], rows[at + 1]);
}

bool LabelledRows::hasMoreRows(std::size_t at) const {
    const auto& rows = page_.rows;
    const double left = rows[at + 1].words.front().place.left;
    std::size_t next = at + 2;
    // The number of an account may stand below its name and amounts.
    if (next + 1 < rows.size() && !hasFirmAmount(rows[next]) && cellsOf(rows[next]).size() == 1
        && gap(next - 1) <= 1.6 && roleOf(rows[at + 1], cellsOf(rows[at + 1])[0]) == Role::text
        && std::abs(rows[next].words.front().place.left - left) <= aligned) {
        ++next;
    }
    if (next >= rows.size() || !hasFirmAmount(rows[next]) || gap(next - 1) > 1.6) {
        return false;
    }
    const auto role = [&](std::size_t row) { return roleOf(rows[row], cellsOf(rows[row])[0]); };
    return gridColumns(rows[at], rows[next]).has_value()
           || (std::abs(rows[next].words.front().place.left - left) <= aligned
               && (role(at + 1) == Role::text || role(next) != Role::text));
}

} // namespace fiscarel
