#include "Fiscarel_SG/documents/rows/PageMending.h"

#include "Fiscarel_SG/documents/rows/BoxNumbers.h"
#include "Fiscarel_SG/documents/rows/CellRoles.h"
#include "Fiscarel_SG/documents/rows/Centimes.h"
#include "Fiscarel_SG/documents/rows/HeadingLines.h"
#include "Fiscarel_SG/documents/rows/HouseNumbers.h"
#include "Fiscarel_SG/documents/rows/IbanMending.h"
#include "Fiscarel_SG/documents/rows/TaxWords.h"
#include "Fiscarel_SG/documents/text/Digits.h"

#include <algorithm>
#include <cmath>
#include <set>
#include <string>
#include <string_view>
#include <utility>

namespace fiscarel {

namespace {

bool isBehindWord(const Row& row, const RowAmount& amount) {
    return amount.first > 0
           && row.words[amount.first - 1].folded.find_first_of("abcdefghijklmnopqrstuvwxyz")
                  != std::string::npos
           && amount.place.left - row.words[amount.first - 1].place.right < row.height() / 2;
}

/// "Konto 2", "Jan 24   Feb 24   Mrz 24": a small number that belongs to the word before it.
bool countsItsWord(const Row& row, const RowAmount& amount) {
    constexpr std::ptrdiff_t fewest = 3; // months of a heading
    return isBehindWord(row, amount)
           && (amount.amount.value < 10
               || (amount.amount.value < 100
                   && std::ranges::count_if(row.amounts, [&](const RowAmount& other) {
                          return other.amount.value == amount.amount.value
                                 && !other.amount.hasDecimals && isBehindWord(row, other);
                      }) >= fewest));
}

/// "Facture 4179778": a long number without groups that belongs to the word before it.
bool numbersItsWord(const Row& row, const RowAmount& amount) {
    return isBehindWord(row, amount) && amount.amount.value >= 100'000;
}

/// Bare numbers in a column of amounts are amounts: "648" above "648.05".
void firmColumns(PageRows& page) {
    std::vector<double> edges;
    for (const Row& row : page.rows) {
        for (const RowAmount& amount : row.amounts) {
            if (amount.amount.hasDecimals || amount.amount.hasMark) {
                edges.push_back(amount.place.right);
            }
        }
    }
    const double near = page.isRecognised ? 3 : 1.5;
    for (Row& row : page.rows) {
        for (RowAmount& amount : row.amounts) {
            const auto count = std::ranges::count_if(
                edges, [&](double edge) { return std::abs(edge - amount.place.right) <= near; });
            const bool isApart =
                amount.first == 0 || amount.last + 1 == row.words.size()
                || row.words[amount.last + 1].place.left - amount.place.right > row.height();
            if (!amount.amount.isFirm() && !amount.amount.isYearLike() && count >= 2 && isApart
                && !countsItsWord(row, amount) && !numbersItsWord(row, amount)) {
                amount.amount.hasCurrency = true;
            }
        }
    }
}

/// Whether recognition may have lost the point of an amount, or taken it for a colon: "37135",
/// "3:55".
bool mayLackPoint(const std::string& text) {
    constexpr std::size_t fewest = 3;
    constexpr std::size_t most = 9;
    const bool isYear = text.size() == 4 && (text.starts_with("19") || text.starts_with("20"));
    std::string digits = text;
    if (digits.size() > fewest && digits[digits.size() - 3] == ':') {
        digits.erase(digits.size() - 3, 1);
    }
    return digits.size() >= fewest && digits.size() <= most && !isYear && digits[0] != '0'
           && hasOnlyDigits(digits);
}

/// Gives amounts without a point, in a column of amounts with cents, their point back.
void restorePoints(PageRows& page) {
    constexpr double near = 3; // points
    constexpr std::ptrdiff_t fewest = 2;
    std::vector<double> withCents;
    std::vector<double> whole;
    for (const Row& row : page.rows) {
        for (const RowAmount& amount : row.amounts) {
            if (amount.amount.isFirm()) {
                (amount.amount.hasDecimals ? withCents : whole).push_back(amount.place.right);
            }
        }
    }
    // Those of an account or a telephone are no amounts.
    const auto isOpen = [](const Row& row, std::size_t at) {
        return row.words[at].text.find(':') != std::string::npos
               || std::ranges::any_of(row.amounts, [at](const RowAmount& amount) {
                      return amount.first == at && amount.last == at;
                  });
    };
    const auto ending = [](const std::vector<double>& edges, const RowWord& word) {
        return std::ranges::count_if(
            edges, [&](double edge) { return std::abs(edge - word.place.right) <= near; });
    };
    for (Row& row : page.rows) {
        std::set<std::size_t> mended;
        for (std::size_t i = 0; i < row.words.size(); ++i) {
            RowWord& word = row.words[i];
            if (mayLackPoint(word.text) && isOpen(row, i) && ending(withCents, word) >= fewest
                && ending(whole, word) == 0) {
                const std::size_t colon = word.text.find(':');
                word.text.replace(word.text.size() - (colon == std::string::npos ? 2 : 3),
                                  colon == std::string::npos ? 0 : 1, ".");
                mended.insert(i);
            }
        }
        if (mended.empty()) {
            continue;
        }
        row = rowOfWords(std::move(row.words), page.isRecognised);
        for (RowAmount& amount : row.amounts) {
            const auto first = mended.lower_bound(amount.first);
            amount.amount.wasCorrected |= first != mended.end() && *first <= amount.last;
        }
    }
}

/// How far below the middle of a row another one's is, in its heights.
double drop(const Row& row, const Row& other) {
    return std::abs(other.middle() - row.middle()) / std::max({row.height(), other.height(), 1e-6});
}

/// A photographed sheet bends: amounts at its edge stand a little above or below their labels, in a
/// row of their own. They are put back.
void straightenBends(PageRows& page) {
    constexpr double sameLine = 0.9; // heights; lines stand 1.5 apart and more
    std::vector<Row> rows;
    for (Row& row : page.rows) {
        const bool isPair = !rows.empty() && drop(rows.back(), row) < sameLine
                            && hasOnlyAmounts(row) != hasOnlyAmounts(rows.back())
                            && hasFirmAmount(row) != hasFirmAmount(rows.back());
        if (!isPair) {
            rows.push_back(std::move(row));
            continue;
        }
        const bool isLabelFirst = !hasFirmAmount(rows.back());
        Row& label = isLabelFirst ? rows.back() : row;
        Row& amounts = isLabelFirst ? row : rows.back();
        if (label.words.back().place.right >= amounts.words.front().place.left) {
            rows.push_back(std::move(row));
            continue;
        }
        std::vector<RowWord> words = std::move(label.words);
        words.insert(words.end(), amounts.words.begin(), amounts.words.end());
        const double top = label.top;
        const double bottom = label.bottom;
        rows.back() = rowOfWords(std::move(words), page.isRecognised);
        rows.back().top = top;
        rows.back().bottom = bottom;
    }
    page.rows = std::move(rows);
}

bool isGroup(std::string_view text, std::size_t fewest) {
    const auto digits =
        static_cast<std::size_t>(std::ranges::find_if_not(text, isDigit) - text.begin());
    const bool endsSo = digits == text.size() || text[digits] == '.' || text[digits] == ',';
    return digits >= fewest && digits <= 3 && endsSo;
}

/// "CHF 627" at the end of a line and "000.00" at the beginning of the next are one amount, which
/// moves to the next.
void joinOverLines(PageRows& page) {
    for (std::size_t at = 0; at + 1 < page.rows.size(); ++at) {
        Row& row = page.rows[at];
        Row& next = page.rows[at + 1];
        if (row.words.size() < 4 || next.words.empty()) {
            continue;
        }
        const RowWord& last = row.words.back();
        const bool isTorn = isGroup(last.text, 1) && isGroup(next.words.front().text, 3)
                            && last.text.find_first_of(".,") == std::string::npos;
        const bool isMoney = isFrancs(row.words[row.words.size() - 2].text)
                             || (next.words.size() > 1 && isFrancs(next.words[1].text));
        if (!isTorn || !isMoney) {
            continue;
        }
        std::vector<RowWord> joined = next.words;
        RowWord head = last;
        const double width = head.place.width();
        const PagePlace& first = joined.front().place;
        head.place = {first.left - width - 2, first.top, first.left - 2, first.bottom};
        joined.insert(joined.begin(), std::move(head));
        std::vector<RowWord> rest(row.words.begin(), row.words.end() - 1);
        page.rows[at + 1] = rowOfWords(std::move(joined), page.isRecognised);
        page.rows[at] = rowOfWords(std::move(rest), page.isRecognised);
    }
}

/// A day at the end of a line whose month begins the next one is no amount: "al 31" over "dicembre
/// 2024".
void hideTornDays(PageRows& page) {
    for (std::size_t at = 0; at + 1 < page.rows.size(); ++at) {
        Row& row = page.rows[at];
        const Row& next = page.rows[at + 1];
        if (row.amounts.empty() || next.words.empty()) {
            continue;
        }
        const PrintedAmount& last = row.amounts.back().amount;
        if (row.amounts.back().last + 1 == row.words.size() && !last.isFirm() && last.value <= 31
            && monthOf(next.words.front().text) > 0) {
            row.amounts.pop_back();
        }
    }
}

/// Takes out what recognition makes of the lines around boxes and between columns: "|".
void dropLines(PageRows& page) {
    const auto isLine = [](const RowWord& word) {
        return !word.text.empty() && word.text.find_first_not_of("|[]{}!_") == std::string::npos;
    };
    for (Row& row : page.rows) {
        if (std::erase_if(row.words, isLine) > 0) {
            row = rowOfWords(std::move(row.words), page.isRecognised);
        }
    }
    std::erase_if(page.rows, [](const Row& row) { return row.words.empty(); });
}

} // namespace

void mend(PageRows& page) {
    joinCentColumns(page);
    dropBoxNumbers(page);
    if (page.isRecognised) {
        dropLines(page);
        joinTornCents(page);
        straightenBends(page);
    }
    joinPartedWords(page); // before what is marked in rows: they are built anew
    if (page.isRecognised) {
        std::ranges::for_each(page.rows, mendIbans);
        restorePoints(page);
    }
    joinIbans(page);
    joinOverLines(page);
    hideHouseNumbers(page);
    shortenTaxWords(page);
    firmColumns(page);
    joinHeadingLines(page);
    hideTornDays(page);
}

} // namespace fiscarel
