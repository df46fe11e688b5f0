#include "Fiscarel_SG/documents/kinds/EmployersShare.h"

#include "Fiscarel_SG/documents/kinds/TableHeading.h"
#include "Fiscarel_SG/documents/rows/CellRoles.h"

#include <algorithm>

namespace fiscarel {

namespace {

const Labels& employers() {
    static const Labels words{"Arbeitgeber*", "AG-Anteil*", "AG-Beitr*", "Firmenanteil*",
                              "employeur",    "patronal*",  "padronal*", "datore",
                              "ditta",        "azienda",    "employer"};
    return words;
}

/// A table with a column of the employer's among others.
struct ShareTable {
    TableHeading heading;
    std::vector<bool> areEmployers; ///< by column

    bool isEmployers(const RowAmount& amount, const PageRows& page) const {
        const auto column = heading.columnOf(amount, page);
        return column && areEmployers[*column];
    }
};

std::optional<ShareTable> tableAt(const PageRows& page, std::size_t at) {
    for (const bool withNext : {true, false}) {
        ShareTable table{.heading = tableHeadingIn(page, at, withNext)};
        bool hasEmployers = false;
        for (const TableColumn& column : table.heading.columns) {
            const bool isFirst = table.areEmployers.empty(); // may name who paid the wages below
            table.areEmployers.push_back(!isFirst
                                         && findLabel(column.cell, employers(), page.isRecognised));
            hasEmployers |= table.areEmployers.back();
        }
        if (hasEmployers && table.heading.columns.size() >= 2) {
            return table;
        }
    }
    return std::nullopt;
}

/// How many rows of a table have amounts in the employer's column and beside it.
bool hasBoth(const PageRows& page, const ShareTable& table) {
    constexpr std::size_t farthest = 20; // rows
    constexpr int fewest = 2;
    int own = 0;
    int others = 0;
    const std::size_t end = std::min(page.rows.size(), table.heading.row + 1 + farthest);
    for (std::size_t at = table.heading.row + 1; at < end; ++at) {
        bool isOwn = false;
        bool isOther = false;
        for (const RowAmount& amount : page.rows[at].amounts) {
            const bool isShare = table.isEmployers(amount, page);
            isOwn |= isShare && amount.amount.isFirm();
            isOther |= !isShare && amount.amount.isFirm();
        }
        own += isOwn ? 1 : 0;
        others += isOther ? 1 : 0;
    }
    return own > 0 && others >= fewest;
}

Row withoutWords(const Row& row, const std::vector<bool>& areDropped, bool isRecognised) {
    std::vector<RowWord> words;
    for (std::size_t i = 0; i < row.words.size(); ++i) {
        if (!areDropped[i]) {
            words.push_back(row.words[i]);
        }
    }
    return rowOfWords(std::move(words), isRecognised);
}

/// The heading's words over the employer's column, and the amounts below.
void cut(PageRows& page, std::size_t at, const ShareTable& table) {
    std::vector<Row> rows;
    for (std::size_t i = 0; i < page.rows.size(); ++i) {
        const Row& row = page.rows[i];
        std::vector<bool> areDropped(row.words.size(), false);
        for (std::size_t column = 0; column < table.areEmployers.size() && i >= at; ++column) {
            const LabelPlace& place = table.heading.columns[column].place;
            for (std::size_t w = 0; i <= table.heading.row && w < row.words.size(); ++w) {
                areDropped[w] =
                    areDropped[w]
                    || (table.areEmployers[column] && row.words[w].place.left >= place.left - 1
                        && row.words[w].place.right <= place.right + 1);
            }
        }
        for (const RowAmount& amount : row.amounts) {
            if (i > table.heading.row && amount.amount.isFirm()
                && table.isEmployers(amount, page)) {
                std::fill(areDropped.begin() + static_cast<std::ptrdiff_t>(amount.first),
                          areDropped.begin() + static_cast<std::ptrdiff_t>(amount.last) + 1, true);
            }
        }
        if (std::ranges::find(areDropped, true) == areDropped.end()) {
            rows.push_back(row);
        } else if (Row rest = withoutWords(row, areDropped, page.isRecognised);
                   !rest.words.empty()) {
            rows.push_back(std::move(rest));
        }
    }
    page.rows = std::move(rows);
}

} // namespace

std::optional<DocumentRows> withoutEmployersShare(const DocumentRows& document) {
    if (!isAnyIn(document.folded, employers())) {
        return std::nullopt;
    }
    std::optional<DocumentRows> rest;
    for (std::size_t i = 0; i < document.pages.size(); ++i) {
        const PageRows& page = document.pages[i];
        for (std::size_t at = 0; at < page.rows.size() && page.number != 0; ++at) {
            const auto table = tableAt(page, at);
            if (table && hasBoth(page, *table)) {
                rest = rest ? std::move(rest) : std::optional(document);
                cut(rest->pages[i], at, *table);
                break;
            }
        }
    }
    return rest;
}

} // namespace fiscarel
