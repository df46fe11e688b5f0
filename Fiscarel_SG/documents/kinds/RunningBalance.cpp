#include "Fiscarel_SG/documents/kinds/RunningBalance.h"

#include "Fiscarel_SG/documents/kinds/AmountPlaces.h"

#include <algorithm>
#include <cmath>

namespace fiscarel {

namespace {

constexpr std::size_t farthest = 2; ///< rows to the next posting, of which one may go on about it

const RowAmount* lastOf(const Row& row) {
    return row.amounts.empty() || !row.amounts.back().amount.isFirm() ? nullptr
                                                                      : &row.amounts.back();
}

/// Whether the last amount of a row is what an amount above it became by what the row posted.
bool leads(const PageRows& page, const RowAmount& before, const Row& row) {
    const RowAmount* after = lastOf(row);
    if (after == nullptr || row.amounts.size() < 2
        || std::abs(before.place.right - after->place.right) > alignment(page)) {
        return false;
    }
    const Decimal moved = (after->amount.value - before.amount.value).abs();
    return !moved.isZero()
           && std::any_of(row.amounts.begin(), row.amounts.end() - 1, [&](const auto& one) {
                  return one.amount.isFirm() && one.amount.value.abs() == moved;
              });
}

/// Whether the last amount of a row is the running balance of an account.
bool runsOn(const PageRows& page, std::size_t at) {
    const RowAmount* own = lastOf(page.rows[at]);
    for (std::size_t i = 1; i <= farthest && own != nullptr; ++i) {
        const RowAmount* before = i <= at ? lastOf(page.rows[at - i]) : nullptr;
        const Row* after = at + i < page.rows.size() ? &page.rows[at + i] : nullptr;
        if ((before != nullptr && leads(page, *before, page.rows[at]))
            || (after != nullptr && leads(page, *own, *after))) {
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

void followRunningBalance(const RowRange& range, FoundAmount& balance) {
    const PageRows& page = *range.page;
    const RowAmount* own = lastOf(page.rows[balance.row]);
    const bool isRunning = page.number != 0 && own != nullptr
                           && page.rows[balance.row].amounts.size() > 1
                           && own->first == balance.amount.first;
    for (std::size_t at = balance.row + 1; isRunning && at < range.end; ++at) {
        const bool isLater = yearAtStart(page.rows[at]) > yearAtStart(page.rows[balance.row]);
        if (isLater || at - balance.row > farthest) {
            return;
        }
        if (leads(page, balance.amount, page.rows[at])) {
            balance.row = at;
            balance.amount = *lastOf(page.rows[at]);
        }
    }
}

} // namespace fiscarel
