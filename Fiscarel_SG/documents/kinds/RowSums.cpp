#include "Fiscarel_SG/documents/kinds/RowSums.h"

#include "Fiscarel_SG/documents/rows/RowLabels.h"
#include "Fiscarel_SG/documents/text/Digits.h"

#include <algorithm>
#include <set>
#include <string>

namespace fiscarel {

Products::Products(const Row& row, const std::vector<Decimal>& amounts) {
    std::set<int> known;
    for (const RowWord& word : row.words) {
        const int count = smallNumber(word.text, 3).value_or(0);
        if (count >= 2 && known.insert(count).second) {
            counts_.push_back(count);
        }
    }
    for (std::size_t i = 0; i < amounts.size() && !counts_.empty(); ++i) {
        sorted_.emplace_back(amounts[i], i);
    }
    std::ranges::sort(sorted_);
}

std::optional<std::size_t> Products::of(const Decimal& price) const {
    for (const int count : counts_) {
        const Decimal product = price * count;
        const auto found = std::ranges::lower_bound(sorted_, product, {}, &Amount::first);
        if (found != sorted_.end() && found->first == product) {
            return found->second; // the first of equal ones
        }
    }
    return std::nullopt;
}

const RowAmount* sumOfRow(const Row& row) {
    Decimal sum;
    std::size_t count = 0;
    for (const RowAmount& amount : row.amounts) {
        if (!amount.amount.isFirm()) {
            continue; // years, days
        }
        if (count >= 2 && amount.amount.value == sum && sum.abs() >= 1) {
            return &amount;
        }
        sum = sum + amount.amount.value;
        ++count;
    }
    return nullptr;
}

const RowAmount* totalAtEnd(const Row& row) {
    constexpr std::size_t fewest = 3;
    if (row.amounts.size() <= fewest || !row.amounts.back().amount.isFirm()) {
        return nullptr;
    }
    const RowAmount& last = row.amounts.back();
    Decimal firm;
    Decimal all;
    std::size_t count = 0; // of firm ones
    for (const RowAmount& amount : row.amounts) {
        if (&amount != &last) {
            all = all + amount.amount.value;
            firm = amount.amount.isFirm() ? firm + amount.amount.value : firm;
            count += amount.amount.isFirm() ? 1U : 0U;
        }
    }
    const bool isTotal =
        last.amount.value >= 1
        && (last.amount.value == all || (count >= fewest && last.amount.value == firm));
    return isTotal ? &last : nullptr;
}

const RowAmount* restOfRow(const Row& row) {
    for (std::size_t first = 0; first < row.amounts.size(); ++first) {
        if (!row.amounts[first].amount.isFirm()) {
            continue;
        }
        Decimal rest = row.amounts[first].amount.value;
        for (std::size_t i = first + 1; i + 1 < row.amounts.size(); ++i) {
            rest = rest - row.amounts[i].amount.value.abs();
            const PrintedAmount& next = row.amounts[i + 1].amount;
            if (row.amounts[i].amount.isFirm() && next.isFirm() && rest >= 1
                && next.value == rest) {
                return &row.amounts[i + 1];
            }
        }
    }
    return nullptr;
}

std::optional<int> piecesAt(const Row& row, const RowAmount& price) {
    static const Labels links{"zu", "à", "a", "x", "je", "mal", "per"};
    std::size_t before = price.first;
    while (before > 0 && isFrancs(row.words[before - 1].text)) {
        --before;
    }
    if (before == 0
        || (!isAnyIn(row.words[before - 1].folded, links) && row.words[before - 1].text != "×")) {
        return std::nullopt;
    }
    for (std::size_t i = before - 1; i-- > 0;) {
        const auto count = smallNumber(row.words[i].text, 3);
        if (count && *count >= 2) {
            return count;
        }
    }
    return std::nullopt;
}

const RowAmount* amountOfYear(const Row& row) {
    for (const RowAmount& year : row.amounts) {
        const bool isOfYear = std::ranges::any_of(row.amounts, [&](const RowAmount& month) {
            return month.amount.isFirm() && month.amount.value >= 1
                   && month.amount.value * 12 == year.amount.value;
        });
        if (year.amount.isFirm() && isOfYear) {
            return &year;
        }
    }
    return nullptr;
}

const RowAmount* productAmong(const Row& row, const std::vector<const RowAmount*>& amounts) {
    std::vector<Decimal> values;
    std::ranges::transform(amounts, std::back_inserter(values),
                           [](const RowAmount* amount) { return amount->amount.value; });
    const Products products(row, values);
    for (const Decimal& price : values) {
        if (const auto product = price >= 1 ? products.of(price) : std::nullopt) {
            return amounts[*product];
        }
    }
    return nullptr;
}

bool isPriceOfOne(const Row& row, std::size_t last) {
    static const Labels units{"pro Stunde", "je Stunde",   "die Stunde", "pro Tag",
                              "je Tag",     "pro Halbtag", "par heure",  "de l'heure",
                              "l'heure",    "par jour",    "all'ora",    "l'ora",
                              "al giorno",  "per hour",    "per day",    "an hour"};
    Row words;
    for (std::size_t i = last + 1; i < std::min(row.words.size(), last + 3); ++i) {
        words.words.push_back(row.words[i]);
    }
    const auto place = findLabel(words, units, false);
    return place && place->first == 0;
}

} // namespace fiscarel
