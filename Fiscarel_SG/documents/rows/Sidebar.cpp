#include "Fiscarel_SG/documents/rows/Sidebar.h"

#include "Fiscarel_SG/documents/rows/CellRoles.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <optional>
#include <utility>
#include <vector>

namespace fiscarel {

namespace {

/// Where what stands beside a narrow left column begins, if nothing crosses the gutter between.
std::optional<double> gutterEnd(const PageRows& page) {
    constexpr double widest = 0.3;   // of the page's width
    constexpr double narrowest = 30; // points of the gutter
    std::vector<std::pair<double, double>> spans;
    for (const Row& row : page.rows) {
        for (const RowWord& word : row.words) {
            spans.emplace_back(word.place.left, word.place.right);
        }
    }
    std::ranges::sort(spans);
    double right = spans.empty() ? 0 : spans.front().second;
    for (const auto& [left, end] : spans) {
        if (left - right >= narrowest) {
            return right <= page.width * widest ? std::optional(left) : std::nullopt;
        }
        right = std::max(right, end);
    }
    return std::nullopt;
}

struct Parts {
    std::vector<RowWord> left;
    std::vector<RowWord> right;
};

Parts partsOf(const Row& row, double edge) {
    Parts parts;
    for (const RowWord& word : row.words) {
        (word.place.left < edge ? parts.left : parts.right).push_back(word);
    }
    return parts;
}

double bottomOf(const std::vector<RowWord>& words) {
    return std::ranges::max_element(words, {},
                                    [](const RowWord& word) { return word.place.bottom; })
        ->place.bottom;
}

/// Whether what stands left of an edge are lines of their own, without amounts.
bool isSidebar(const PageRows& page, double edge) {
    constexpr std::size_t fewestLeft = 5;
    constexpr std::size_t fewestRight = 8;
    constexpr std::size_t share = 4; // of the lines at most one in so many beside another
    constexpr double sameLine = 1.2; // points
    std::size_t left = 0;
    std::size_t right = 0;
    std::size_t beside = 0;
    for (const Row& row : page.rows) {
        Parts parts = partsOf(row, edge);
        left += parts.left.empty() ? 0U : 1U;
        right += parts.right.empty() ? 0U : 1U;
        const bool isBoth = !parts.left.empty() && !parts.right.empty();
        beside +=
            isBoth && std::abs(bottomOf(parts.left) - bottomOf(parts.right)) <= sameLine ? 1U : 0U;
        if (hasFirmAmount(rowOfWords(std::move(parts.left), page.isRecognised))) {
            return false;
        }
    }
    return left >= fewestLeft && right >= fewestRight && beside * share <= left;
}

} // namespace

void partSidebar(PageRows& page) {
    if (page.number == 0 || page.isRecognised || page.rows.empty()) {
        return;
    }
    const auto edge = gutterEnd(page);
    if (!edge || !isSidebar(page, *edge)) {
        return;
    }
    const double height = page.rows.back().bottom - page.rows.front().top;
    std::vector<Row> rows;
    std::vector<Row> aside;
    for (Row& row : page.rows) {
        Parts parts = partsOf(row, *edge);
        const bool isHead = rows.empty(); // the sender's name may stand over the column
        if (!parts.left.empty()) {
            Row left = rowOfWords(std::move(parts.left), false);
            if (!isHead) {
                moveDown(left, height);
            }
            (isHead ? rows : aside).push_back(std::move(left));
        }
        if (!parts.right.empty()) {
            rows.push_back(rowOfWords(std::move(parts.right), false));
        }
    }
    std::ranges::move(aside, std::back_inserter(rows));
    page.rows = std::move(rows);
}

} // namespace fiscarel
