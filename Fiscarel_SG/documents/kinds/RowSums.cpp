#include "Fiscarel_SG/documents/kinds/RowSums.h"

#include "Fiscarel_SG/documents/rows/RowLabels.h"
#include "Fiscarel_SG/documents/text/Digits.h"

#include <algorithm>
#include <map>
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

std::optional<int> countInWords(std::string_view word) {
    // Folded: "due" and "cinque" lose their e.
    static const std::map<std::string_view, int> counts{
        {"zwei", 2},   {"deux", 2},   {"du", 2},      {"drei", 3},   {"trois", 3}, {"tre", 3},
        {"vier", 4},   {"quatre", 4}, {"quattro", 4}, {"funf", 5},   {"cinq", 5},  {"cinqu", 5},
        {"sechs", 6},  {"six", 6},    {"sei", 6},     {"sieben", 7}, {"sept", 7},  {"sette", 7},
        {"acht", 8},   {"huit", 8},   {"otto", 8},    {"neun", 9},   {"neuf", 9},  {"nove", 9},
        {"zehn", 10},  {"dix", 10},   {"dieci", 10},  {"elf", 11},   {"onze", 11}, {"undici", 11},
        {"zwolf", 12}, {"douze", 12}, {"dodici", 12}, {"two", 2},    {"four", 4},  {"twelve", 12}};
    const auto found = counts.find(word);
    return found == counts.end() ? std::nullopt : std::optional(found->second);
}

std::optional<int> piecesAt(const PageRows& page, std::size_t at, const RowAmount& price) {
    static const Labels links{"zu", "à", "a", "x", "je", "mal", "per"};
    static const Labels weakLinks{"von", "da", "di", "de"}; // say more than that
    constexpr std::size_t nearest = 3;                      // words from a count to such a one
    std::vector<const RowWord*> before;
    const auto take = [&](const Row& row, std::size_t end) {
        for (std::size_t i = 0; i < end; ++i) {
            before.push_back(&row.words[i]);
        }
    };
    const Row& row = page.rows[at];
    const bool isFirst =
        std::all_of(row.words.begin(), row.words.begin() + static_cast<std::ptrdiff_t>(price.first),
                    [](const RowWord& word) { return isFrancs(word.text); });
    if (isFirst && at > 0) {
        take(page.rows[at - 1], page.rows[at - 1].words.size());
    }
    take(row, price.first);
    while (!before.empty() && isFrancs(before.back()->text)) {
        before.pop_back();
    }
    const bool isLinked =
        !before.empty() && (isAnyIn(before.back()->folded, links) || before.back()->text == "×");
    if (before.empty() || (!isLinked && !isAnyIn(before.back()->folded, weakLinks))) {
        return std::nullopt;
    }
    before.pop_back();
    static const Labels others{"*zimmer*", "*stock", "Personen", "Jahre*",    "locali",
                               "stanze",   "pièces", "étage*",   "personnes", "ans",
                               "persone",  "piano",  "anni",     "rooms"}; // what is counted is not
                                                                           // paid
    const RowWord* behind = nullptr;
    for (std::size_t words = 0; !before.empty() && (isLinked || words < nearest); ++words) {
        const auto digits = smallNumber(before.back()->text, 3);
        const auto count = digits ? digits : countInWords(before.back()->folded);
        if (count && *count >= 2 && behind != nullptr && isAnyIn(behind->folded, others)) {
            return std::nullopt;
        }
        if (count && *count >= 2) {
            return count;
        }
        behind = before.back();
        before.pop_back();
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
