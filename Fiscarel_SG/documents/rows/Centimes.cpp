#include "Fiscarel_SG/documents/rows/Centimes.h"

#include "Fiscarel_SG/documents/rows/RowLabels.h"
#include "Fiscarel_SG/documents/text/Digits.h"
#include "Fiscarel_SG/documents/text/FoldedText.h"

#include <algorithm>
#include <cmath>
#include <set>
#include <string_view>
#include <utility>
#include <vector>

namespace fiscarel {

namespace {

constexpr double aligned = 3; ///< points that right edges may differ
constexpr std::size_t fewest = 3;
constexpr std::size_t fewestWithoutHeading = 4;

/// A whole amount with two digits next to it.
struct Pair {
    std::size_t row = 0;
    std::size_t cents = 0; ///< index of the word
    double francsRight = 0;
    PagePlace place; ///< of the centimes
};

bool isTwoDigits(std::string_view text) { return text.size() == 2 && hasOnlyDigits(text); }

/// Puts centimes to the francs before them.
void join(RowWord& francs, std::string_view between, const RowWord& cents) {
    francs.text += between;
    francs.text += cents.text;
    francs.folded = foldWords(francs.text);
    francs.place.right = cents.place.right;
    francs.printed.right = cents.printed.right;
    francs.certainty = std::min(francs.certainty, cents.certainty);
}

std::vector<Pair> pairsOf(const PageRows& page) {
    std::vector<Pair> pairs;
    for (std::size_t at = 0; at < page.rows.size(); ++at) {
        const Row& row = page.rows[at];
        for (const RowAmount& amount : row.amounts) {
            const std::size_t next = amount.last + 1;
            if (next >= row.words.size() || amount.amount.hasDecimals
                || !isTwoDigits(row.words[next].text)) {
                continue;
            }
            const double gap = row.words[next].place.left - amount.place.right;
            if (gap > 0 && gap < 5 * row.height()) {
                pairs.push_back({at, next, amount.place.right, row.words[next].place});
            }
        }
    }
    return pairs;
}

bool hasCentsHeading(const PageRows& page, const Pair& first) {
    static const Labels names{"ct", "cts", "Rp", "Rappen", "centimes", "cent", "centesimi"};
    const std::size_t from = first.row < 6 ? 0 : first.row - 6;
    return std::any_of(page.rows.begin() + static_cast<std::ptrdiff_t>(from),
                       page.rows.begin() + static_cast<std::ptrdiff_t>(first.row),
                       [&](const Row& row) {
                           return std::ranges::any_of(row.words, [&](const RowWord& word) {
                               return isAnyIn(word.folded, names)
                                      && word.place.left < first.place.right + 10
                                      && first.place.left - 10 < word.place.right;
                           });
                       });
}

/// Whether pairs of one column are francs and centimes: a heading says so, or all are of coins. A
/// row has one pair in a column.
bool areCents(const PageRows& page, const std::vector<Pair>& column) {
    std::set<std::size_t> rows;
    for (const Pair& pair : column) {
        if (!rows.insert(pair.row).second) {
            return false;
        }
    }
    const bool areCoins = std::ranges::all_of(column, [&](const Pair& pair) {
        const char last = page.rows[pair.row].words[pair.cents].text.back();
        return last == '0' || last == '5';
    });
    const bool hasMark = std::ranges::any_of(column, [&](const Pair& pair) {
        return std::ranges::any_of(page.rows[pair.row].amounts, [&](const RowAmount& amount) {
            return amount.last + 1 == pair.cents && amount.amount.hasMark;
        });
    });
    return column.size() >= fewest && hasMark
           && (hasCentsHeading(page, column.front())
               || (areCoins && column.size() >= fewestWithoutHeading));
}

/// Whether a word and the next may be francs and centimes that typewriter letters set apart, and no
/// day: "766." and "07".
bool isTornBeforeCents(const RowWord& francs, const RowWord& cents, const RowWord* next) {
    const std::string_view text = francs.text;
    if (text.size() < 2 || (!text.ends_with('.') && !text.ends_with(','))
        || !isDigit(text[text.size() - 2]) || !isDigit(text.front()) || !isTwoDigits(cents.text)) {
        return false;
    }
    const bool mayBeDay = text.size() <= 3 && cents.text <= "12";
    const bool isYearNext = next != nullptr && next->text.size() >= 4
                            && (next->text.starts_with("19") || next->text.starts_with("20"));
    return !mayBeDay && !isYearNext
           && cents.place.left - francs.place.right < 0.7 * cents.place.width();
}

} // namespace

void joinCentColumns(PageRows& page) {
    std::vector<Pair> pairs = pairsOf(page);
    while (pairs.size() >= fewest) {
        const Pair first = pairs.front();
        std::vector<Pair> column;
        std::erase_if(pairs, [&](const Pair& pair) {
            const bool isIn = std::abs(pair.place.right - first.place.right) <= aligned
                              && std::abs(pair.francsRight - first.francsRight) <= aligned;
            if (isIn) {
                column.push_back(pair);
            }
            return isIn;
        });
        if (!areCents(page, column)) {
            continue;
        }
        for (const Pair& pair : column) {
            std::vector<RowWord> words = std::move(page.rows[pair.row].words);
            join(words[pair.cents - 1], ".", words[pair.cents]);
            words.erase(words.begin() + static_cast<std::ptrdiff_t>(pair.cents));
            page.rows[pair.row] = rowOfWords(std::move(words), page.isRecognised);
            for (Pair& other : pairs) { // words behind the joined one move up
                other.cents -= other.row == pair.row && other.cents > pair.cents ? 1 : 0;
            }
        }
    }
}

void joinTornCents(PageRows& page) {
    for (Row& row : page.rows) {
        std::vector<RowWord> words;
        for (std::size_t i = 0; i < row.words.size(); ++i) {
            const RowWord* const next = i + 1 < row.words.size() ? &row.words[i + 1] : nullptr;
            if (words.empty() || !isTornBeforeCents(words.back(), row.words[i], next)) {
                words.push_back(row.words[i]);
                continue;
            }
            join(words.back(), "", row.words[i]);
        }
        if (words.size() < row.words.size()) {
            row = rowOfWords(std::move(words), page.isRecognised);
        }
    }
}

} // namespace fiscarel
