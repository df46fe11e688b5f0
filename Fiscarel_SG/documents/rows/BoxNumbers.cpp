#include "Fiscarel_SG/documents/rows/BoxNumbers.h"

#include "Fiscarel_SG/documents/rows/CellRoles.h"
#include "Fiscarel_SG/documents/rows/GridEdges.h"
#include "Fiscarel_SG/documents/text/Digits.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <string_view>

namespace fiscarel {

namespace {

/// Whether a row of words stands close above another one, right of its first cell.
bool hasLabelAbove(const PageRows& page, std::size_t at) {
    if (at == 0) {
        return false;
    }
    const Row& above = page.rows[at - 1];
    const Row& row = page.rows[at];
    return !above.words.empty() && !hasFirmAmount(above)
           && above.words.front().place.left > row.words.front().place.right
           && row.top - above.bottom < 0.7 * row.height();
}

} // namespace

std::optional<int> boxNumber(const Row& row) {
    if (row.words.size() < 2) {
        return std::nullopt;
    }
    std::string_view text = row.words[0].text;
    if (text.ends_with('.')) {
        text.remove_suffix(1);
    }
    const auto cells = cellsOf(row);
    return cells.size() >= 2 && cells.front().last == 0 ? smallNumber(text, 2) : std::nullopt;
}

namespace {

/// Takes out rows that are nothing but the numbers of boxes, set between a label and its value.
void dropNumbersBetween(PageRows& page) {
    constexpr std::size_t fewest = 4; // boxes
    std::vector<std::size_t> boxes;
    for (std::size_t at = 0; at < page.rows.size(); ++at) {
        const auto& words = page.rows[at].words;
        const auto number = words.size() == 1 ? smallNumber(words[0].text, 2) : std::nullopt;
        if (number && *number == static_cast<int>(boxes.size()) + 1) {
            boxes.push_back(at);
        }
    }
    if (boxes.size() >= fewest) {
        std::ranges::for_each(boxes, [&](std::size_t at) { page.rows[at].words.clear(); });
        std::erase_if(page.rows, [](const Row& row) { return row.words.empty(); });
    }
}

} // namespace

void dropBoxNumbers(PageRows& page) {
    dropNumbersBetween(page);
    constexpr int fewest = 3; // boxes
    std::vector<std::size_t> boxes;
    int last = 0;
    for (std::size_t at = 0; at < page.rows.size(); ++at) {
        const auto number = boxNumber(page.rows[at]);
        const bool isNext = number && *number == last + 1
                            && (boxes.empty()
                                || std::abs(page.rows[boxes.front()].words[0].place.left
                                            - page.rows[at].words[0].place.left)
                                       <= 2 * aligned);
        if (isNext && hasLabelAbove(page, at)) {
            boxes.push_back(at);
            last = *number;
        }
    }
    if (last < fewest) {
        return;
    }
    for (const std::size_t at : boxes) {
        std::vector<RowWord> words(page.rows[at].words.begin() + 1, page.rows[at].words.end());
        Row rest = rowOfWords(std::move(words), page.isRecognised);
        if (hasOnlyAmounts(rest)) {
            page.rows[at] = std::move(rest);
        }
    }
}

} // namespace fiscarel
