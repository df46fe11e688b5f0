#include "Fiscarel_SG/documents/kinds/AmountBelow.h"

#include "Fiscarel_SG/documents/kinds/AmountPlaces.h"
#include "Fiscarel_SG/documents/kinds/RowSums.h"
#include "Fiscarel_SG/documents/rows/CellRoles.h"
#include "Fiscarel_SG/documents/text/Utf8Letters.h"

#include <algorithm>

namespace fiscarel {

namespace {

/// Whether a row consists of an amount, also of a bare number, and its currency.
bool isNumberAlone(const Row& row) {
    std::size_t covered = 0;
    for (const RowAmount& amount : row.amounts) {
        covered += amount.last - amount.first + 1;
    }
    for (const RowWord& word : row.words) {
        covered += isFrancs(word.text) || word.folded.empty() ? 1U : 0U;
    }
    return !row.amounts.empty() && covered >= row.words.size();
}

bool continuesSentence(const Row& row) {
    return !row.words.empty() && startsSmall(row.words.front().text);
}

/// Whether an amount stands in a column of its own, as in a list whose labels begin small.
bool standsApart(const Row& row, const RowAmount& amount) {
    constexpr double widest = 3; // heights; justified lines have narrower gaps
    std::size_t first = amount.first;
    first -= first > 0 && isFrancs(row.words[first - 1].text) ? 1U : 0U;
    return first > 0
           && row.words[first].place.left - row.words[first - 1].place.right
                  > widest * row.height();
}

/// Whether a sentence ends between two words of a row: "pasti. La tassa di CHF 80".
bool endsBetween(const Row& row, std::size_t first, std::size_t end) {
    return std::any_of(row.words.begin() + static_cast<std::ptrdiff_t>(first),
                       row.words.begin() + static_cast<std::ptrdiff_t>(end),
                       [](const RowWord& word) { return endsSentence(word); });
}

/// Whether the first amount of the next line of a paragraph belongs to what the line before it ends
/// with: nothing but a few words of the same clause stand before it.
bool goesOnToAmount(const Row& own, const Row& next) {
    constexpr std::size_t most = 6; // words before the amount
    const auto before =
        next.words.begin() + static_cast<std::ptrdiff_t>(next.amounts.front().first);
    return cellsOf(own).size() == 1 && cellsOf(next).size() == 1
           && next.amounts.front().first <= most
           && std::none_of(next.words.begin(), before, [](const RowWord& word) {
                  return word.text.ends_with(';') || word.text.ends_with(':');
              });
}

/// Whether what goes on up to a word tells of something else than is wanted.
bool saysOther(const Row& row, std::size_t end, const Wanted& wanted, bool isRecognised) {
    Row words;
    words.words.assign(row.words.begin(), row.words.begin() + static_cast<std::ptrdiff_t>(end));
    return endsBetween(row, 0, end) || findLabel(words, wanted.without, isRecognised)
           || namesAny(words, wanted.notMeant, isRecognised);
}

} // namespace

const RowAmount* amountBelow(const RowRange& range, std::size_t at, const LabelPlace& label,
                             const Wanted& wanted) {
    const Row& own = range.page->rows[at];
    if (at + 1 >= range.end) {
        return nullptr;
    }
    const Row& next = range.page->rows[at + 1];
    const double most = range.page->isRecognised ? 2.4 : 1.6; // recognised words have tight boxes
    if (next.amounts.empty() || isPriceOfOne(next, next.amounts.front().last)
        || next.top - own.bottom > most * std::max(own.height(), next.height())) {
        return nullptr;
    }
    const bool breaksOff = cellsOf(own).size() == 1 && isFrancs(own.words.back().text)
                           && next.amounts.front().first == 0;
    const bool goesOn =
        breaksOff
        || (continuesSentence(next) && !standsApart(next, next.amounts.front())
            && next.words.front().place.left < label.right
            && (goesOnToAmount(own, next) || next.amounts.back().place.left > label.left));
    if (goesOn
        && (endsBetween(own, label.last, own.words.size())
            || saysOther(next, next.amounts.front().first, wanted, range.page->isRecognised))) {
        return nullptr;
    }
    if (goesOn && next.amounts.front().amount.isFirm()) {
        return &next.amounts.front(); // further ones belong to what the sentence says next
    }
    if ((isNumberAlone(next) && next.amounts.size() == 1) || goesOn) {
        return isCandidate(next.amounts.back()) ? &next.amounts.back() : nullptr;
    }
    for (const RowAmount& amount : next.amounts) {
        const bool isUnder = amount.place.right > label.left && amount.place.left < label.right;
        if (isUnder && isCandidate(amount) && range.page->number != 0 && isNumberAlone(next)) {
            return &amount;
        }
    }
    return nullptr;
}

} // namespace fiscarel
