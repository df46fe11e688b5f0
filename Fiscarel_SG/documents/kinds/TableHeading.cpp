#include "Fiscarel_SG/documents/kinds/TableHeading.h"

#include "Fiscarel_SG/documents/kinds/AmountPlaces.h"
#include "Fiscarel_SG/documents/rows/CellRoles.h"
#include "Fiscarel_SG/documents/rows/HeadingLines.h"
#include "Fiscarel_SG/documents/rows/Vocabulary.h"

#include <algorithm>
#include <cmath>

namespace fiscarel {

namespace {

constexpr std::size_t rowsLookedAt = 12; ///< below a heading

TableColumn columnFrom(const Row& row, const LabelPlace& place) {
    TableColumn column{.cell = {.top = row.top, .bottom = row.bottom}};
    for (std::size_t i = place.first; i <= place.last; ++i) {
        column.cell.words.push_back(row.words[i]);
        column.cell.folded += row.words[i].folded + ' ';
    }
    column.place = {0, place.last - place.first, row.words[place.first].place.left,
                    row.words[place.last].place.right};
    return column;
}

/// Right edges of the amounts in the rows below a heading; sentences have no columns.
std::vector<double> edgesBelow(const PageRows& page, std::size_t at) {
    std::vector<double> edges;
    const std::size_t end = std::min(page.rows.size(), at + 1 + rowsLookedAt);
    for (std::size_t below = at + 1; below < end; ++below) {
        const Row& row = page.rows[below];
        if (cellsOf(row).size() == 1 && !hasOnlyAmounts(row)) {
            continue;
        }
        for (const RowAmount& amount : row.amounts) {
            if (!amount.amount.isYearLike()) { // of a further heading
                edges.push_back(amount.place.right);
            }
        }
    }
    return edges;
}

/// A cell, in parts where amounts end with one of its words and others stand beyond it.
std::vector<LabelPlace> partsOf(const PageRows& page, const Row& row, const LabelPlace& cell,
                                const std::vector<double>& edges) {
    std::vector<LabelPlace> parts{cell};
    const auto isEdge = [&](double right) {
        return std::ranges::any_of(
            edges, [&](double edge) { return std::abs(edge - right) <= alignment(page) / 2; });
    };
    if (!isEdge(cell.right)) {
        return parts; // set some other way
    }
    for (std::size_t i = cell.first; i < cell.last; ++i) {
        const bool isWord = !row.words[i].folded.empty() || row.words[i].text == "%";
        if (isWord && isEdge(row.words[i].place.right)) {
            parts.back().last = i;
            parts.push_back({i + 1, cell.last});
        }
    }
    return parts;
}

/// Whether a cell names one side of an account's page, beside which the other one stands.
bool isSide(const Row& cell) {
    static const Labels sides{"Soll", "Haben", "débit", "crédit", "dare", "avere"};
    return cell.words.size() == 1 && isAnyIn(cell.folded, sides);
}

/// Puts the words of a heading's second line under those they go on; sides under a heading that
/// spans them are columns of their own, as are the others of a line that has more than the first.
void addLine(std::vector<TableColumn>& columns, std::vector<TableColumn> line) {
    const bool isFuller = line.size() > columns.size(); // its columns need no line above
    for (TableColumn& below : line) {
        const auto above = std::ranges::find_if(columns, [&](const TableColumn& column) {
            return column.place.left < below.place.right && below.place.left < column.place.right;
        });
        if (above != columns.end()) {
            auto& words = above->cell.words;
            words.insert(words.end(), below.cell.words.begin(), below.cell.words.end());
            above->cell.folded += below.cell.folded;
            above->place = {0, words.size() - 1, std::min(above->place.left, below.place.left),
                            std::max(above->place.right, below.place.right)};
        } else if (isFuller || isSide(below.cell)) {
            const auto next = std::ranges::find_if(columns, [&](const TableColumn& column) {
                return column.place.left > below.place.right;
            });
            columns.insert(next, std::move(below));
        }
    }
}

/// Puts the words of a heading's first line, which has fewer than the second, before those below.
void addLineAbove(std::vector<TableColumn>& columns, const std::vector<TableColumn>& line) {
    for (TableColumn& column : columns) {
        const auto above = std::ranges::find_if(line, [&](const TableColumn& one) {
            return column.place.left < one.place.right && one.place.left < column.place.right;
        });
        if (above != line.end()) {
            auto& words = column.cell.words;
            words.insert(words.begin(), above->cell.words.begin(), above->cell.words.end());
            column.cell.folded = above->cell.folded + column.cell.folded;
            column.place = {0, words.size() - 1, std::min(above->place.left, column.place.left),
                            std::max(above->place.right, column.place.right)};
        }
    }
}

std::vector<TableColumn> columnsOf(const PageRows& page, std::size_t at,
                                   const std::vector<double>& edges) {
    std::vector<TableColumn> columns;
    for (const LabelPlace& cell : cellsOf(page.rows[at])) {
        for (const LabelPlace& part : partsOf(page, page.rows[at], cell, edges)) {
            columns.push_back(columnFrom(page.rows[at], part));
        }
    }
    return columns;
}

/// How far an amount is from a column: less than 1 where they overlap.
double distanceOf(const RowAmount& amount, const LabelPlace& column) {
    const double byRight = std::abs(amount.place.right - column.right);
    const bool overlaps = amount.place.right > column.left && amount.place.left < column.right;
    return overlaps ? byRight / (byRight + 1) : byRight;
}

bool hasWord(const Row& cell, std::string_view text) {
    return std::ranges::any_of(cell.words, [&](const RowWord& word) { return word.text == text; });
}

/// The column a cell of words stands in: the one it overlaps most.
std::optional<std::size_t> columnOver(const LabelPlace& cell,
                                      const std::vector<LabelPlace>& columns) {
    std::optional<std::size_t> best;
    double most = 0;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const double shared =
            std::min(cell.right, columns[i].right) - std::max(cell.left, columns[i].left);
        if (shared > most) {
            most = shared;
            best = i;
        }
    }
    return best;
}

} // namespace

bool namesLastDay(const Row& cell) {
    static const Labels ends{"Ende Jahr",      "Jahresende", "Ende des Jahres", "fin d'année",
                             "fin d'exercice", "fine anno",  "fine dell'anno",  "year end",
                             "fine esercizio", "Stichtag",   "Ultimo"};
    if (isAnyIn(cell.folded, ends)) {
        return true;
    }
    const auto& words = cell.words;
    for (std::size_t i = 0; i < words.size(); ++i) {
        const auto day = parseDay(words[i].text);
        if (words[i].folded == "31 12" || (day && day->month() == 12 && day->day() == 31)
            || (words[i].folded == "31" && i + 1 < words.size()
                && monthOf(words[i + 1].folded) == 12)) {
            return true;
        }
    }
    return false;
}

std::optional<std::size_t> TableHeading::columnOf(const RowAmount& amount,
                                                  const PageRows& page) const {
    std::optional<std::size_t> nearest;
    double least = page.width / 10;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (const double distance = distanceOf(amount, columns[i].place); distance < least) {
            least = distance;
            nearest = i;
        }
    }
    return nearest;
}

TableHeading tableHeadingIn(const PageRows& page, std::size_t at, bool withNext) {
    const Row& row = page.rows[at];
    TableHeading heading{.row = withNext ? at + 1 : at};
    if (hasFirmAmount(row) || row.words.empty()) {
        return heading;
    }
    if (!withNext) {
        heading.columns = columnsOf(page, at, edgesBelow(page, at));
        return heading;
    }
    const bool goesOn = at + 1 < page.rows.size() && !hasFirmAmount(page.rows[at + 1])
                        && page.rows[at + 1].top - row.bottom < row.height()
                        && !page.rows[at + 1].words.empty();
    if (!goesOn) {
        return heading;
    }
    const auto edges = edgesBelow(page, at + 1);
    std::vector<TableColumn> columns = columnsOf(page, at, edges);
    std::vector<TableColumn> line = columnsOf(page, at + 1, edges);
    if (columns.size() >= 3 && line.size() >= 2) {
        addLine(columns, std::move(line));
        heading.columns = std::move(columns);
    } else if (columns.size() >= 2 && line.size() >= 3) {
        addLineAbove(line, columns);
        heading.columns = std::move(line);
    }
    return heading;
}

std::vector<const RowAmount*> TableHeading::amountsIn(
    const PageRows& page, std::size_t at,
    const std::function<bool(const RowAmount&, std::size_t column)>& counts) const {
    std::vector<const RowAmount*> amounts(columns.size(), nullptr);
    for (const RowAmount& amount : page.rows[at].amounts) {
        const auto column = columnOf(amount, page);
        if (!column || !counts(amount, *column)) {
            continue;
        }
        const LabelPlace& place = columns[*column].place;
        const RowAmount*& known = amounts[*column];
        if (known == nullptr || distanceOf(amount, place) < distanceOf(*known, place)) {
            known = &amount;
        }
    }
    return amounts;
}

std::vector<PageRows> columnsAsPages(const PageRows& page, std::size_t from,
                                     const std::vector<LabelPlace>& columns) {
    std::vector<PageRows> parts(columns.size(), withoutRows(page));
    double left = page.width;
    for (const LabelPlace& column : columns) {
        left = std::min(left, column.left);
    }
    TableHeading heading;
    for (const LabelPlace& column : columns) {
        heading.columns.push_back({.cell = {}, .place = column});
    }
    for (std::size_t at = from; at < page.rows.size(); ++at) {
        const Row& row = page.rows[at];
        std::vector<RowWord> stub;
        std::vector<std::vector<RowWord>> own(columns.size());
        for (const LabelPlace& cell : cellsOf(row)) {
            const auto words = wordsOf(row, cell);
            if (cell.first == 0 && cell.left < left && roleOf(row, cell) == Role::text) {
                stub = words;
                continue;
            }
            const auto amount = std::ranges::find_if(row.amounts, [&](const RowAmount& one) {
                return one.first >= cell.first && one.last <= cell.last;
            });
            const auto column = amount != row.amounts.end() ? heading.columnOf(*amount, page)
                                                            : columnOver(cell, columns);
            if (column) {
                own[*column].insert(own[*column].end(), words.begin(), words.end());
            }
        }
        for (std::size_t i = 0; i < columns.size(); ++i) {
            if (!own[i].empty()) {
                own[i].insert(own[i].begin(), stub.begin(), stub.end());
                parts[i].rows.push_back(rowOfWords(std::move(own[i]), page.isRecognised));
            }
        }
    }
    return parts;
}

PageRows rowAsPage(const PageRows& page, std::size_t at, const TableHeading& heading) {
    const Row& row = page.rows[at];
    std::vector<LabelPlace> columns;
    for (const TableColumn& column : heading.columns) {
        columns.push_back(column.place);
    }
    std::vector<std::vector<RowWord>> own(columns.size());
    for (const LabelPlace& cell : cellsOf(row)) {
        const auto amount = std::ranges::find_if(row.amounts, [&](const RowAmount& one) {
            return one.first >= cell.first && one.last <= cell.last;
        });
        const auto column = amount != row.amounts.end() ? heading.columnOf(*amount, page)
                                                        : columnOver(cell, columns);
        if (column) {
            const auto words = wordsOf(row, cell);
            own[*column].insert(own[*column].end(), words.begin(), words.end());
        }
    }
    PageRows part = withoutRows(page);
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (own[i].empty()) {
            continue;
        }
        // A label stands left of its amount, in a row of its own.
        const double height = row.height();
        const double move = columns[i].right + height - own[i].front().place.left;
        std::vector<RowWord> words = heading.columns[i].cell.words;
        layInLine(words, columns[i].left, columns[i].right);
        words.insert(words.end(), own[i].begin(), own[i].end());
        for (std::size_t w = 0; w < words.size(); ++w) {
            PagePlace& place = words[w].place;
            if (w >= words.size() - own[i].size()) {
                place.left += move;
                place.right += move;
            }
            place.top = row.top + static_cast<double>(i) * 2 * height;
            place.bottom = place.top + height;
        }
        part.rows.push_back(rowOfWords(std::move(words), page.isRecognised));
    }
    return part;
}

std::optional<bool> taxednessOf(const Row& words, bool areNamed) {
    static const Labels without{
        "ohne",         "o. VSt",       "nicht",       "sans",
        "non soumis*",  "senza",        "non sogg*",   "verrechnungssteuerfrei*",
        "esente da IP", "esenti da IP", "exonéré d'IA"};
    static const Labels with{
        "mit", "m. VSt", "avec", "soumis*", "con", "soggett*", "verrechnungssteuerpfl*"};
    // Words that tell only where they stand beside the tax.
    static const Labels notTaken{"kein*",      "frei",           "befreit*",    "aucun*",
                                 "exonér*",    "exempt*",        "nessun*",     "esent*",
                                 "pas d'imp*", "non assujetti*", "non assogg*", "hors"};
    static const Labels taken{"abgezogen*", "unterliegt*", "unterworfen*", "unterstellt*",
                              "pflichtig*", "belastet*",   "einbehalten*", "déduit*",
                              "retenu*",    "prélevé*",    "assujetti*",   "dedott*",
                              "trattenut*", "prelevat*",   "assoggett*"};
    if (isAnyIn(words.folded, without) || (!areNamed && hasWord(words, "B"))) {
        return false;
    }
    if (isAnyIn(words.folded, with) || (!areNamed && hasWord(words, "A"))) {
        return true;
    }
    const auto tax = findLabel(words, wordsFor(Concept::withholding), false);
    if (!tax) {
        return std::nullopt;
    }
    static const Labels kept{"abgezogen*", "einbehalten*", "déduit*",    "retenu*",
                             "prélevé*",   "dedott*",      "trattenut*", "prelevat*"};
    if (tax->first == 0 && isAnyIn(words.folded, kept)) {
        return std::nullopt; // "VSt 35 % abgezogen" is the tax itself
    }
    return isAnyIn(words.folded, notTaken) ? std::optional(false)
           : isAnyIn(words.folded, taken)  ? std::optional(true)
                                           : std::nullopt;
}

} // namespace fiscarel
