#include "Fiscarel_SG/documents/kinds/SectionTotal.h"

#include "Fiscarel_SG/documents/kinds/AmountPlaces.h"

#include <algorithm>
#include <cmath>
#include <string_view>

namespace fiscarel {

namespace {

/// Whether a row begins a part of the page: "A. Ordentliche Beiträge".
bool beginsSection(const Row& row) {
    const std::string_view mark = row.words.empty() ? std::string_view() : row.words[0].text;
    return mark.size() >= 2 && mark.size() <= 3 && (mark.back() == '.' || mark.back() == ')')
           && ((mark[0] >= 'A' && mark[0] <= 'Z') || (mark[0] >= '1' && mark[0] <= '9'))
           && row.words.size() > 1 && row.words.size() <= 9
           && std::ranges::none_of(row.amounts, isCandidate);
}

} // namespace

std::optional<FoundAmount> amountOfSection(const RowRange& range, std::size_t at,
                                           const LabelPlace& label) {
    if (!beginsSection(range.page->rows[at])) {
        return std::nullopt;
    }
    Decimal sum;
    double column = 0;
    for (std::size_t below = at + 1; below < std::min(range.end, at + 30); ++below) {
        const Row& row = range.page->rows[below];
        if (beginsSection(row)) {
            break;
        }
        if (row.amounts.empty() || !row.amounts.back().amount.isFirm()) {
            continue;
        }
        const RowAmount& amount = row.amounts.back();
        if (namesAny(row, {Concept::total}, range.page->isRecognised) && sum >= 1
            && amount.amount.value == sum
            && std::abs(amount.place.right - column) <= alignment(*range.page)) {
            return FoundAmount{.page = range.page,
                               .row = below,
                               .amount = amount,
                               .label = textBetween(range.page->rows[at], label.first, label.last)};
        }
        sum = sum + amount.amount.value;
        column = amount.place.right;
    }
    return std::nullopt;
}

} // namespace fiscarel
