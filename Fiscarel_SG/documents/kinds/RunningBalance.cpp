#include "Fiscarel_SG/documents/kinds/RunningBalance.h"

#include "Fiscarel_SG/documents/kinds/AmountPlaces.h"

#include <algorithm>
#include <cmath>

namespace fiscarel {

namespace {

/// Whether the last amount of a row is what a neighbour's last one became by what the row posted,
/// or what the next row goes on from: the running balance of an account.
bool runsOn(const PageRows& page, std::size_t at) {
    constexpr std::size_t farthest = 2; // rows, of which one may go on about the posting
    const auto lastOf = [](const Row& row) -> const RowAmount* {
        return row.amounts.empty() || !row.amounts.back().amount.isFirm() ? nullptr
                                                                          : &row.amounts.back();
    };
    const auto leads = [&](const RowAmount& before, const Row& row) {
        const RowAmount* after = lastOf(row);
        return after != nullptr && row.amounts.size() >= 2
               && std::abs(before.place.right - after->place.right) <= alignment(page)
               && std::any_of(row.amounts.begin(), row.amounts.end() - 1, [&](const auto& one) {
                      const Decimal moved = after->amount.value - before.amount.value;
                      return one.amount.isFirm() && !moved.isZero()
                             && one.amount.value.abs() == moved.abs();
                  });
    };
    const RowAmount* own = lastOf(page.rows[at]);
    for (std::size_t i = 1; i <= farthest && own != nullptr; ++i) {
        const RowAmount* before = i <= at ? lastOf(page.rows[at - i]) : nullptr;
        const Row* after = at + i < page.rows.size() ? &page.rows[at + i] : nullptr;
        if ((before != nullptr && leads(*before, page.rows[at]))
            || (after != nullptr && leads(*own, *after))) {
            return true;
        }
    }
    return false;
}

} // namespace

void dropRunningBalance(const RowRange& range, std::size_t at, const Wanted& wanted,
                        std::vector<const RowAmount*>& amounts) {
    static const Labels balances{"Saldo", "solde", "Kontostand", "balance"};
    static const Labels postings{"Belastung*", "Gutschrift*", "addebit*", "accredit*", "débit*",
                                 "crédit*",    "Soll",        "Haben",    "dare",      "avere",
                                 "debit",      "credit",      "Betrag",   "montant",   "importo"};
    const bool isBalance = std::ranges::any_of(wanted.meanings, [](const Meaning& meaning) {
        return std::ranges::find(meaning, Concept::balance) != meaning.end()
               || std::ranges::find(meaning, Concept::debt) != meaning.end();
    });
    const auto isUnder = [&](const RowAmount& amount, const Labels& labels) {
        const Row heading = headingOver(*range.page, at, amount);
        return heading.words.size() == 1 && isAnyIn(heading.words[0].folded, labels);
    };
    const auto isHeaded = [&] {
        return isUnder(*amounts.back(), balances) && isUnder(*amounts.front(), postings);
    };
    if (!isBalance && amounts.size() == 2
        && (isHeaded() || (range.page->number != 0 && runsOn(*range.page, at)))) {
        amounts.pop_back();
    }
}

} // namespace fiscarel
