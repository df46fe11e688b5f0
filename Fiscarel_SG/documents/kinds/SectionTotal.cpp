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

/// The year of the first day that a row names.
std::optional<int> yearOfDay(const Row& row) {
    for (const RowWord& word : row.words) {
        if (const auto day = parseDay(word.text)) {
            return day->year();
        }
    }
    return std::nullopt;
}

const RowAmount* firstFirm(const Row& row) {
    const auto found = std::ranges::find_if(
        row.amounts, [](const RowAmount& amount) { return amount.amount.isFirm(); });
    return found == row.amounts.end() ? nullptr : &*found;
}

/// What the payments of one year below a heading come to, each in a row with its day, where that is
/// printed beside them or right below.
std::optional<FoundAmount> sumOfPayments(const RowRange& range, std::size_t at,
                                         const LabelPlace& label) {
    constexpr std::size_t nearby = 3; // rows
    const PageRows& page = *range.page;
    if (page.number == 0 || std::ranges::any_of(page.rows[at].amounts, isCandidate)
        || cellsOf(page.rows[at]).size() > 1) { // a table has columns for other things
        return std::nullopt;
    }
    Decimal sum;
    std::size_t end = at + 1;
    double column = 0;
    const auto year = end < range.end ? yearOfDay(page.rows[end]) : std::nullopt;
    for (; year && end < range.end && yearOfDay(page.rows[end]); ++end) {
        const RowAmount* amount = firstFirm(page.rows[end]);
        if (amount == nullptr || yearOfDay(page.rows[end]) != year
            || (end > at + 1 && std::abs(amount->place.right - column) > alignment(page))) {
            return std::nullopt;
        }
        column = amount->place.right;
        sum = sum + amount->amount.value;
    }
    for (std::size_t row = at + 1; end > at + 2 && row < std::min(range.end, end + nearby); ++row) {
        for (const RowAmount& amount : page.rows[row].amounts) {
            if (amount.amount.isFirm() && amount.amount.value == sum) {
                return FoundAmount{.page = &page,
                                   .row = row,
                                   .amount = amount,
                                   .label = textBetween(page.rows[at], label.first, label.last),
                                   .isBelow = true};
            }
        }
    }
    return std::nullopt;
}

} // namespace

std::optional<FoundAmount> amountOfSection(const RowRange& range, std::size_t at,
                                           const LabelPlace& label) {
    if (!beginsSection(range.page->rows[at])) {
        return sumOfPayments(range, at, label);
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
