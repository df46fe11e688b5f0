#include "Fiscarel_SG/documents/kinds/PensionClauses.h"

#include "Fiscarel_SG/documents/kinds/AmountPlaces.h"
#include "Fiscarel_SG/documents/rows/CellRoles.h"
#include "Fiscarel_SG/documents/text/Digits.h"
#include "Fiscarel_SG/documents/text/Utf8Letters.h"

#include <algorithm>
#include <string>

namespace fiscarel {

namespace {

/// Words of a row as a row of their own.
void append(Row& words, const Row& row, std::size_t first, std::size_t end) {
    for (std::size_t i = first; i < std::min(end, row.words.size()); ++i) {
        words.words.push_back(row.words[i]);
    }
}

bool endsClause(const std::string& text) {
    return text.ends_with(',') || text.ends_with(';') || text.ends_with(')');
}

/// Where the clause of an amount begins in its row: behind the amount before and what goes with it
/// ("al mese,"), or behind the sentence before.
std::size_t clauseStart(const Row& row, std::size_t amount) {
    std::size_t first = amount == 0 ? 0 : row.amounts[amount - 1].last + 1;
    for (std::size_t i = first; amount > 0 && i < std::min(first + 3, row.amounts[amount].first);
         ++i) {
        if (endsClause(row.words[i].text)) {
            first = i + 1;
            break;
        }
    }
    for (std::size_t i = first; i < row.amounts[amount].first; ++i) {
        first = endsSentence(row.words[i]) ? i + 1 : first;
    }
    return first;
}

/// The next two words behind an amount, where no other clause begins: "Fr. 1'542.10 monatlich".
void appendBehind(const PageRows& page, std::size_t at, const RowAmount& amount, Row& words) {
    const Row& row = page.rows[at];
    if (endsClause(row.words[amount.last].text) || endsSentence(row, amount.last)) {
        return;
    }
    for (std::size_t i = amount.last + 1; i < amount.last + 3; ++i) {
        const Row* from = i < row.words.size()        ? &row
                          : at + 1 < page.rows.size() ? &page.rows[at + 1]
                                                      : nullptr;
        const std::size_t word = from == &row ? i : i - row.words.size();
        if (from == nullptr || word >= from->words.size() || from->words[word].text.starts_with('(')
            || (from != &row && !startsSmall(from->words.front().text))) {
            return;
        }
        append(words, *from, word, word + 1);
        if (endsClause(from->words[word].text) || endsSentence(from->words[word])) {
            return;
        }
    }
}

/// "7 mensilità", "12 Monate": what a row above says, but heads no column.
bool tellsMonths(const Row& words) {
    for (std::size_t i = 0; i + 1 < words.words.size(); ++i) {
        if (smallNumber(words.words[i].folded, 2)
            && isAnyIn(words.words[i + 1].folded, countedUnits())) {
            return true;
        }
    }
    return false;
}

} // namespace

const Labels& countedUnits() {
    static const Labels words{"Monat*",      "mois",  "mesi",  "mensilità",
                              "mensualité*", "Tage*", "jours", "giorni"};
    return words;
}

bool runsOn(const Row& row) { return row.words.size() >= 6 && cellsOf(row).size() == 1; }

Row wordsOfClause(const PageRows& page, std::size_t at, std::size_t amount) {
    const Row& row = page.rows[at];
    const RowAmount& own = row.amounts[amount];
    Row words;
    if (!runsOn(row)) {
        append(words, row, 0, row.amounts.front().first);
        append(words, row, row.amounts.back().last + 1, row.words.size());
        const Row heading = headingOver(page, at, own);
        if (!tellsMonths(heading)) {
            append(words, heading, 0, heading.words.size());
        }
        return words;
    }
    const std::size_t first = clauseStart(row, amount);
    if (first == 0 && at > 0 && runsOn(page.rows[at - 1])) { // the clause began a line before
        const Row& before = page.rows[at - 1];
        std::size_t from = before.amounts.empty() ? 0 : before.amounts.back().last + 1;
        for (std::size_t i = from; i < before.words.size(); ++i) {
            from = endsSentence(before.words[i]) ? i + 1 : from;
        }
        append(words, before, from, before.words.size());
    }
    append(words, row, first, own.first);
    appendBehind(page, at, own, words);
    return words;
}

} // namespace fiscarel
