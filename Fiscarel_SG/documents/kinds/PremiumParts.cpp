#include "Fiscarel_SG/documents/kinds/PremiumParts.h"

#include "Fiscarel_SG/documents/kinds/AmountPlaces.h"
#include "Fiscarel_SG/documents/kinds/NamedAmounts.h"
#include "Fiscarel_SG/documents/kinds/PremiumWords.h"
#include "Fiscarel_SG/documents/rows/CellRoles.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace fiscarel {

namespace {

/// The only amount of a row, where it is in the column of another and of a franc or more.
const RowAmount* likeIn(const Row& row, const FoundAmount& other) {
    const bool isAlone = row.amounts.size() == 1 && isWorthy(row.amounts[0]);
    const double offset = isAlone ? row.amounts[0].place.right - other.amount.place.right
                                  : alignment(*other.page) + 1;
    return std::abs(offset) <= alignment(*other.page) ? &row.amounts[0] : nullptr;
}

/// The amount paid out in the rows of a part of the page, between two edges.
std::optional<FoundAmount> paidBelow(const RowRange& rows, double left, double right) {
    using enum Concept;
    const PageRows& page = *rows.page;
    for (std::size_t at = rows.first; at < rows.end; ++at) {
        Row own;
        for (const RowWord& word : page.rows[at].words) {
            if (word.place.left >= left && word.place.right <= right) {
                own.words.push_back(word);
            }
        }
        for (const RowAmount& amount : page.rows[at].amounts) {
            const bool isIn = amount.place.left >= left && amount.place.right <= right;
            if (isIn && isWorthy(amount)
                && namesAny(own, {paid, Concept::amount}, page.isRecognised)
                && !namesAny(own, {premium}, page.isRecognised)
                && !namesAny(own, reductions().notMeant, page.isRecognised)) {
                return FoundAmount{.page = &page, .row = at, .amount = amount, .isBelow = true};
            }
        }
    }
    return std::nullopt;
}

} // namespace

std::vector<FoundAmount> singlePremiumsIn(const std::vector<RowRange>& ranges) {
    std::vector<FoundAmount> singles;
    for (const Wanted& wanted : singlePremiums()) {
        for (FoundAmount& one : findAmounts(ranges, wanted)) {
            const bool isKnown = std::ranges::any_of(
                singles, [&](const FoundAmount& other) { return areSame(one, other); });
            if (!isKnown && one.value() >= 1 && !tellsShare(one)) {
                singles.push_back(std::move(one));
            }
        }
    }
    return singles;
}

std::vector<FoundAmount> withUnnamed(const std::vector<FoundAmount>& singles) {
    std::vector<FoundAmount> all = singles;
    for (const FoundAmount& one : singles) {
        const PageRows& page = *one.page;
        Decimal sum = one.value();
        Decimal known; // all above in the column, told by their words
        for (const FoundAmount& other : singles) {
            const bool isAbove = other.page == &page && other.row <= one.row;
            known = known + (isAbove ? other.value() : Decimal());
        }
        for (std::size_t at = one.row + 1;
             page.number != 0 && !one.isBelow && at < page.rows.size(); ++at) {
            const Row& row = page.rows[at];
            const RowAmount* amount = likeIn(row, one);
            if (amount == nullptr || amount->first == 0 || amount->amount.value == sum
                || amount->amount.value == known
                || namesAny(row, {Concept::premium, Concept::yearly}, page.isRecognised)
                || isNoPremium(row, page.isRecognised)
                || std::ranges::any_of(all, [&](const FoundAmount& other) {
                       return other.page == &page && other.row == at;
                   })) {
                break;
            }
            sum = sum + amount->amount.value;
            known = known + amount->amount.value;
            all.push_back({.page = &page,
                           .row = at,
                           .amount = *amount,
                           .label = textBetween(row, 0, amount->first - 1)});
        }
    }
    return all;
}

std::optional<FoundAmount> reductionInCard(const std::vector<RowRange>& ranges) {
    constexpr std::size_t most = 4;    // rows of a card
    constexpr std::size_t longest = 5; // words of its title
    for (const RowRange& range : ranges) {
        const PageRows& page = *range.page;
        for (std::size_t at = range.first; page.number != 0 && at + 1 < range.end; ++at) {
            const Row& row = page.rows[at];
            const auto place = findLabel(row, reductions().labels, page.isRecognised);
            const auto cells = cellsOf(row);
            for (std::size_t i = 0; place && row.amounts.empty() && i < cells.size(); ++i) {
                const Row own = rowOfWords(wordsOf(row, cells[i]), page.isRecognised);
                const bool isIn = own.words.size() <= longest && cells[i].first <= place->first
                                  && place->last <= cells[i].last
                                  && !findLabel(own, reductions().without, page.isRecognised)
                                  && !namesAny(own, reductions().notMeant, page.isRecognised);
                if (!isIn) {
                    continue;
                }
                const double right = i + 1 < cells.size() ? cells[i + 1].left : page.width;
                auto found = paidBelow({&page, at + 1, std::min(range.end, at + 1 + most)},
                                       cells[i].left - row.height(), right);
                if (found) {
                    found->label = textBetween(row, place->first, place->last);
                    return found;
                }
            }
        }
    }
    return std::nullopt;
}

} // namespace fiscarel
