#include "Fiscarel_SG/documents/kinds/AccountTable.h"

#include "Fiscarel_SG/documents/kinds/AmountPlaces.h"
#include "Fiscarel_SG/documents/rows/CellRoles.h"

#include <algorithm>
#include <cmath>
#include <tuple>

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

/// Right edges of the amounts in the rows below a heading.
std::vector<double> edgesBelow(const PageRows& page, std::size_t at) {
    std::vector<double> edges;
    const std::size_t end = std::min(page.rows.size(), at + 1 + rowsLookedAt);
    for (std::size_t below = at + 1; below < end; ++below) {
        for (const RowAmount& amount : page.rows[below].amounts) {
            edges.push_back(amount.place.right);
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
        if (isEdge(row.words[i].place.right) && !row.words[i].folded.empty()) {
            parts.back().last = i;
            parts.push_back({i + 1, cell.last});
        }
    }
    return parts;
}

/// Puts the words of a heading's second line under those they go on.
void addLine(std::vector<TableColumn>& columns, std::vector<TableColumn> line) {
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

bool isNamed(const Row& cell, Figure figure, bool isRecognised) {
    const Wanted& wanted = wantedOf(figure);
    const bool isMeant = findLabel(cell, wanted.labels, isRecognised)
                         || std::ranges::any_of(wanted.meanings, [&](const Meaning& meaning) {
                                return findMeaning(cell, meaning, isRecognised).has_value();
                            });
    return isMeant && !findLabel(cell, wanted.without, isRecognised)
           && !namesAny(cell, wanted.notMeant, isRecognised);
}

/// What a cell of a heading says its column is.
std::optional<Figure> figureOf(const Row& cell, bool isRecognised) {
    using enum Figure;
    if (cell.words.size() > 8) {
        return std::nullopt;
    }
    // What a debt's column says may be part of what an account's says, and the net part of the
    // gross.
    for (const Figure figure : {withholding, debtInterest, netInterest, interest, debt, balance}) {
        if (isNamed(cell, figure, isRecognised)) {
            return figure;
        }
    }
    return std::nullopt;
}

/// The year a cell speaks of; 0 when of none.
int yearIn(const Row& cell) {
    int year = 0;
    for (const RowWord& word : cell.words) {
        const auto day = parseDay(word.text);
        const auto number = parseAmount(word.text);
        const auto bare = number && number->isYearLike() ? number->value.toInteger() : std::nullopt;
        year = day ? day->year() : bare ? static_cast<int>(*bare) : year;
    }
    return year;
}

bool hasFrancs(const Row& cell) {
    static const Labels francs{"Franken", "francs", "franchi"};
    return isAnyIn(cell.folded, francs) || std::ranges::any_of(cell.words, [](const RowWord& word) {
               return isFrancs(word.text);
           });
}

/// What columns state that only tell a day, a currency, or that something was paid. They do so
/// beside others only.
void addPlainFigures(AccountHeading& heading, bool isRecognised) {
    static const Labels currency{"CHF", "in CHF", "en CHF", "Franken", "in Franken", "en francs"};
    static const Labels stands{"Stand*", "Bestand", "Betrag*",   "Wert*",     "Kapital*",
                               "état",   "montant", "situation", "capital",   "importo",
                               "stato",  "valore",  "capitale",  "situazione"};
    const bool hasStand = heading.states(Figure::balance) || heading.states(Figure::debt);
    std::optional<Figure> before;
    for (std::size_t i = 0; i < heading.figures.size(); ++i) {
        const Row& cell = heading.table.columns[i].cell;
        auto& figure = heading.figures[i];
        const bool isOther = namesAny(
            cell,
            {Concept::other, Concept::opening, Concept::repayment, Concept::rate, Concept::fee},
            isRecognised);
        if (!figure && !isOther && cell.words.size() <= 5 && namesLastDay(cell)) {
            figure = Figure::balance;
        } else if (!figure && !isOther && namesAny(cell, {Concept::paid}, isRecognised)
                   && cell.words.size() <= 3) {
            figure = Figure::interest;
        } else if (!figure && !isOther && !hasStand && cell.words.size() <= 4
                   && findLabel(cell, stands, isRecognised)) {
            figure = Figure::balance;
        } else if (!figure && before && cell.words.size() <= 2 && hasFrancs(cell)
                   && isAnyIn(cell.folded, currency)) {
            figure = before;
        }
        before = figure ? figure : before;
    }
}

/// Of several columns for one figure only the one that counts keeps it.
void chooseColumns(AccountHeading& heading) {
    static const Labels taxValues{"Steuerwert*", "valeur fiscale", "valore fiscale"};
    const auto rankOf = [&](std::size_t at) {
        const Row& cell = heading.table.columns[at].cell;
        return std::tuple(hasFrancs(cell), isAnyIn(cell.folded, taxValues), yearIn(cell));
    };
    for (std::size_t i = 0; i < heading.figures.size(); ++i) {
        for (std::size_t j = i + 1; j < heading.figures.size() && heading.figures[i]; ++j) {
            if (heading.figures[i] == heading.figures[j]) {
                (rankOf(j) > rankOf(i) ? heading.figures[i] : heading.figures[j]).reset();
            }
        }
    }
}

/// Whether the table lists what is owed: it tells repayments, or stands under such a title.
bool listsLoans(const PageRows& page, std::size_t at, const AccountHeading& heading) {
    static const Labels titles{"Verpflichtung*", "Passiven",    "Kredite",          "Ausleihungen",
                               "Finanzierung*",  "engagement*", "passifs",          "crédits",
                               "passivi",        "impegni",     "crediti ipotecari"};
    static const Labels repaid{"amortis*",   "Amortisation*", "getilgt*",   "zurückbezahlt*",
                               "remboursé*", "ammort*",       "rimborsat*", "Tilgung*"};
    using enum Figure;
    const bool isOwed = heading.states(debt) || heading.states(debtInterest);
    if (isOwed && !heading.states(interest) && !heading.states(withholding)) {
        return true;
    }
    const bool isRepaid = std::ranges::any_of(heading.table.columns, [&](const TableColumn& one) {
        return isAnyIn(one.cell.folded, repaid);
    });
    if (isRepaid || at == 0) {
        return isRepaid;
    }
    const Row& title = page.rows[at - 1];
    return title.words.size() <= 6 && !hasFirmAmount(title)
           && (isAnyIn(title.folded, titles)
               || namesAny(title, {Concept::debt}, page.isRecognised));
}

AccountHeading readHeading(const PageRows& page, TableHeading table) {
    AccountHeading heading{.table = std::move(table)};
    for (const TableColumn& column : heading.table.columns) {
        heading.figures.push_back(figureOf(column.cell, page.isRecognised));
    }
    return heading;
}

/// Whether one of the next rows has amounts under two of the figures.
bool hasRows(const PageRows& page, const AccountHeading& heading) {
    const std::size_t end = std::min(page.rows.size(), heading.row() + 6);
    for (std::size_t at = heading.row() + 1; at < end; ++at) {
        const Figures figures = figuresByColumn(page, at, heading);
        if (std::ranges::count_if(figures, [](const auto& one) { return one.has_value(); }) >= 2) {
            return true;
        }
    }
    return false;
}

/// With what its plain columns state, where the rows below bear it out.
AccountHeading completed(const PageRows& page, std::size_t at, AccountHeading heading) {
    AccountHeading plain = heading;
    addPlainFigures(plain, page.isRecognised);
    if (plain.figures != heading.figures) {
        chooseColumns(plain);
        if (hasRows(page, plain)) {
            for (std::size_t i = 0; i < plain.figures.size(); ++i) {
                plain.isPlain.push_back(plain.figures[i] != heading.figures[i]);
            }
            heading = std::move(plain);
        }
    }
    chooseColumns(heading);
    heading.isOfLoans = listsLoans(page, at, heading);
    return heading;
}

/// How far an amount is from a column: less than 1 where they overlap.
double distanceOf(const RowAmount& amount, const LabelPlace& column) {
    const double byRight = std::abs(amount.place.right - column.right);
    const bool overlaps = amount.place.right > column.left && amount.place.left < column.right;
    return overlaps ? byRight / (byRight + 1) : byRight;
}

} // namespace

bool namesLastDay(const Row& cell) {
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
    }
    return heading;
}

bool AccountHeading::states(Figure figure) const {
    return std::ranges::find(figures, std::optional(figure)) != figures.end();
}

std::size_t AccountHeading::count() const {
    return static_cast<std::size_t>(
        std::ranges::count_if(figures, [](const auto& figure) { return figure.has_value(); }));
}

AccountHeading accountHeadingIn(const PageRows& page, std::size_t at) {
    AccountHeading heading = readHeading(page, tableHeadingIn(page, at, false));
    AccountHeading both = readHeading(page, tableHeadingIn(page, at, true));
    if (!both.figures.empty() && both.count() >= heading.count()) {
        heading = std::move(both);
    }
    return completed(page, at, std::move(heading));
}

Figures figuresByColumn(const PageRows& page, std::size_t at, const AccountHeading& heading) {
    Figures figures;
    std::array<double, figureCount> distances{};
    distances.fill(page.width);
    for (const RowAmount& amount : page.rows[at].amounts) {
        const auto column = heading.table.columnOf(amount, page);
        const auto figure = column ? heading.figures[*column] : std::nullopt;
        const bool isLarge = !amount.amount.isYearLike() && amount.amount.value >= 1000;
        if (!figure || (!amount.amount.isFirm() && !isLarge)) {
            continue;
        }
        const double distance = distanceOf(amount, heading.table.columns[*column].place);
        const auto index = static_cast<std::size_t>(*figure);
        if (distance < distances[index]) {
            figures[index] =
                FoundAmount{.page = &page,
                            .row = at,
                            .amount = amount,
                            .label = heading.table.columns[*column].words(),
                            .isAlone = heading.isPlain.empty() || !heading.isPlain[*column]};
            distances[index] = distance;
        }
    }
    return figures;
}

} // namespace fiscarel
