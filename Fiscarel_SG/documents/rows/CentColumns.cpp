#include "Fiscarel_SG/documents/rows/CentColumns.h"

#include "Fiscarel_SG/documents/rows/RowLabels.h"

#include <algorithm>
#include <cmath>
#include <string>
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

bool isTwoDigits(const std::string& text) {
    return text.size() == 2 && text.find_first_not_of("0123456789") == std::string::npos;
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

/// Whether pairs of one column are francs and centimes: a heading says so, or all are of coins.
bool areCents(const PageRows& page, const std::vector<Pair>& column) {
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

void join(Row& row, std::size_t cents, bool isRecognised) {
    std::vector<RowWord> words = std::move(row.words);
    RowWord& francs = words[cents - 1];
    francs.text += '.' + words[cents].text;
    francs.folded += ' ' + words[cents].text;
    francs.place.right = words[cents].place.right;
    francs.printed.right = words[cents].printed.right;
    words.erase(words.begin() + static_cast<std::ptrdiff_t>(cents));
    row = rowOfWords(std::move(words), isRecognised);
}

} // namespace

void joinCents(PageRows& page) {
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
            join(page.rows[pair.row], pair.cents, page.isRecognised);
            for (Pair& other : pairs) { // words behind the joined one move up
                other.cents -= other.row == pair.row && other.cents > pair.cents ? 1 : 0;
            }
        }
    }
}

} // namespace fiscarel
