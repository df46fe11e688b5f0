#include "Fiscarel_SG/documents/rows/UngroupedNumbers.h"

#include "Fiscarel_SG/documents/rows/GridEdges.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace fiscarel {

namespace {

constexpr int grouped = 1000; ///< from here on an amount has a mark
constexpr int longest = 10'000;

bool hasNoMark(const RowAmount& amount) {
    return amount.amount.value.abs() >= grouped && !amount.amount.hasMark
           && amount.first == amount.last && !amount.amount.isYearLike();
}

} // namespace

void dropUngroupedNumbers(PageRows& page) {
    constexpr std::size_t fewest = 2; // amounts that tell how the page writes them
    std::vector<double> edges;        // of amounts with marks
    std::size_t without = 0;
    for (const Row& row : page.rows) {
        for (const RowAmount& amount : row.amounts) {
            const bool isLarge = amount.amount.isFirm() && amount.amount.value.abs() >= grouped;
            without += isLarge && hasNoMark(amount) ? 1U : 0U;
            if (isLarge && !hasNoMark(amount)) {
                edges.push_back(amount.place.right);
            }
        }
    }
    if (without == 0 || edges.size() < std::max(fewest, without + 1)) {
        return;
    }
    for (Row& row : page.rows) {
        std::erase_if(row.amounts, [&](const RowAmount& amount) {
            const bool isInColumn = std::ranges::any_of(edges, [&](double edge) {
                return std::abs(edge - amount.place.right) <= 2 * aligned;
            });
            return hasNoMark(amount) && amount.amount.hasDecimals && !amount.amount.hasCurrency
                   && amount.amount.value.abs() >= longest && amount.first > 0 && !isInColumn;
        });
    }
}

} // namespace fiscarel
