#include "Fiscarel_SG/documents/rows/BoxNumbers.h"

#include "Fiscarel_SG/documents/rows/CellRoles.h"
#include "Fiscarel_SG/documents/rows/GridEdges.h"

#include <cmath>
#include <cstddef>
#include <optional>
#include <string>

namespace fiscarel {

namespace {

/// The number of one or two digits a row begins with, in a cell of its own.
std::optional<int> boxNumber(const Row& row) {
    if (row.words.size() < 2) {
        return std::nullopt;
    }
    const auto cells = cellsOf(row);
    std::string text = row.words[0].text;
    if (text.ends_with('.')) {
        text.pop_back();
    }
    const bool isNumber = !text.empty() && text.size() <= 2
                          && text.find_first_not_of("0123456789") == std::string::npos;
    return isNumber && cells.size() >= 2 && cells.front().last == 0 ? std::optional(std::stoi(text))
                                                                    : std::nullopt;
}

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

void dropBoxNumbers(PageRows& page) {
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
