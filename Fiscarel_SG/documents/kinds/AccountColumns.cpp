#include "Fiscarel_SG/documents/kinds/AccountColumns.h"

#include "Fiscarel_SG/documents/kinds/AccountTable.h"
#include "Fiscarel_SG/documents/kinds/AmountPlaces.h"
#include "Fiscarel_SG/documents/kinds/GridHeading.h"
#include "Fiscarel_SG/documents/kinds/TableHeading.h"
#include "Fiscarel_SG/documents/rows/CellRoles.h"
#include "Fiscarel_SG/documents/text/Digits.h"

#include <algorithm>
#include <optional>
#include <set>

namespace fiscarel {

namespace {

/// Whether the first of several cells stands over no amounts, where the others do.
bool isOverWords(const PageRows& page, std::size_t at, const std::vector<LabelPlace>& cells) {
    return !standsOverAmounts(page, at, cells[0])
           && std::all_of(cells.begin() + 1, cells.end(), [&](const LabelPlace& cell) {
                  return standsOverAmounts(page, at, cell);
              });
}

/// Whether the first cell of a row of headings stands over what is said left of the columns, as a
/// currency, a word for any account, or what the figures below are of.
bool isOverLabels(const PageRows& page, std::size_t at, const Row& own, bool isOfFigures) {
    static const Labels anything{"Konto",    "Bezeichnung", "Position",    "Produkt",   "Angaben",
                                 "Produkte", "libellé",     "désignation", "produit",   "rubrique",
                                 "compte",   "descrizione", "prodotto",    "conto",     "relazione",
                                 "rapporto", "Beträge in",  "montants en", "importi in"};
    if (at + 1 >= page.rows.size() || page.rows[at + 1].words.empty()
        || own.words.front().place.left
               > page.rows[at + 1].words.front().place.left + alignment(page)) {
        return false;
    }
    const bool isCurrency =
        own.words.size() <= 3
        && std::ranges::any_of(own.words, [](const RowWord& word) { return isFrancs(word.text); });
    return isOfFigures || isCurrency || (own.words.size() <= 3 && findLabel(own, anything, false));
}

/// Whether a cell heads amounts in a currency or at its rate of exchange: "EUR", "Gegenwert CHF".
bool isOfExchange(const Row& cell) {
    static const Labels values{"contre-valeur*", "controvalore*", "Gegenwert*"};
    return findLabel(cell, exchangeRates(), false) || findLabel(cell, values, false)
           || std::ranges::all_of(cell.words, [](const RowWord& word) {
                  return isFrancs(word.text) || isForeignCurrency(word.text) || word.folded == "in";
              });
}

/// Whether a cell is the number of an account or loan: "3.044.118-01", "CH93 0076 2011 6238 5295
/// 7".
bool isNumber(const Row& row, const LabelPlace& cell) {
    constexpr std::size_t fewest = 5; // digits
    std::size_t digits = 0;
    for (const RowWord& word : wordsOf(row, cell)) {
        digits += countDigits(word.text);
        if (parseDay(word.text) || parseYear(word.text)) {
            return false;
        }
    }
    return digits >= fewest && !hasFirmAmount(row, cell);
}

/// The headings of a row that name no figures, without that of the total.
std::vector<LabelPlace> accountCells(const PageRows& page, std::size_t at) {
    const Row& row = page.rows[at];
    std::vector<LabelPlace> cells;
    if (hasFirmAmount(row)) {
        return cells;
    }
    const auto all = headingCells({&page, 0, page.rows.size()}, at);
    for (const LabelPlace& cell : all) {
        Row own;
        own.words = wordsOf(row, cell);
        // "Ipoteca a tasso fisso" is a loan's name.
        const bool isRate = namesAny(own, {Concept::rate}, page.isRecognised)
                            && !namesAny(own, {Concept::debt}, page.isRecognised);
        const bool isOther = isRate
                             || namesAny(own,
                                         {Concept::interest, Concept::balance, Concept::withholding,
                                          Concept::paid, Concept::opening},
                                         page.isRecognised)
                             || isOfExchange(own);
        if (cell.first == 0 && all.size() >= 3
            && ((isOverLabels(page, at, own, isOther) && !standsOverAmounts(page, at, cell))
                || isOverWords(page, at, all))) {
            continue;
        }
        if (isOther || (lettersIn(row, cell) < 3 && !isNumber(row, cell))) {
            return {};
        }
        if (!namesAny(own, {Concept::total}, page.isRecognised)) {
            cells.push_back(cell);
        }
    }
    return cells;
}

/// The year a row is about, where nothing else stands in it but words left of a column.
std::optional<int> yearOfRow(const Row& row) {
    const bool isBare = !row.words.empty() && !hasFirmAmount(row);
    return isBare ? parseYear(row.words.back().text) : std::nullopt;
}

/// Leaves only the columns of the newest year where each is headed by one.
void keepNewest(std::vector<PageRows>& parts) {
    constexpr std::size_t heading = 1; // row below the names
    int newest = 0;
    for (const PageRows& part : parts) {
        const auto year = part.rows.size() > heading ? yearOfRow(part.rows[heading]) : std::nullopt;
        if (!year) {
            return;
        }
        newest = std::max(newest, *year);
    }
    std::erase_if(parts,
                  [&](const PageRows& part) { return yearOfRow(part.rows[heading]) != newest; });
}

/// Whether each column has one amount in a row at most: two are of columns not told apart.
bool areApart(const std::vector<PageRows>& parts) {
    return std::ranges::none_of(parts, [](const PageRows& part) {
        return std::ranges::any_of(part.rows, [](const Row& row) {
            return std::ranges::count_if(
                       cellsOf(row),
                       [&](const LabelPlace& cell) { return roleOf(row, cell) == Role::amount; })
                   > 1;
        });
    });
}

/// Where a table of columns ends: at the title of a loan that stands below, alone or with its
/// number or years.
std::size_t endOfColumns(const PageRows& page, std::size_t at, double left) {
    for (std::size_t below = at + 1; below < page.rows.size(); ++below) {
        const Row& row = page.rows[below];
        const auto cells = cellsOf(row);
        const bool isTitle =
            !hasFirmAmount(row) && !cells.empty() && cells.front().left < left
            && cells.front().last <= 3
            && std::all_of(cells.begin() + 1, cells.end(), [&](const LabelPlace& cell) {
                   const auto amount = parseAmount(row.words[cell.first].text);
                   return lettersIn(row, cell) == 0 && !(amount && amount->isFirm())
                          && row.words[cell.first].text.find_first_of("0123456789")
                                 != std::string::npos;
               });
        Row own;
        if (isTitle) {
            own.words = wordsOf(row, cells.front());
        }
        if (isTitle && namesAny(own, {Concept::debt}, page.isRecognised)
            && !namesAny(own, {Concept::interest, Concept::debtInterest}, page.isRecognised)
            && !namesLastDay(own)) {
            return below;
        }
    }
    return page.rows.size();
}

/// Where the figures of columns end: at a line of words and amounts that runs under them.
std::size_t endOfFigures(const PageRows& page, std::size_t at, double left) {
    for (std::size_t below = at + 1; below < page.rows.size(); ++below) {
        const Row& row = page.rows[below];
        const auto cells = cellsOf(row);
        if (cells.size() == 1 && row.words.size() > 1 && cells[0].left < left - alignment(page)
            && cells[0].right > left && hasFirmAmount(row)) {
            return below;
        }
    }
    return page.rows.size();
}

/// What the first cells of a page's rows call the amounts beside them, each found out once.
class RowFigures {
  public:
    explicit RowFigures(const PageRows& page) : page_(page), lines_(page.rows.size()) {}

    /// Whether rows below say left of a column what their amounts are: at least two figures.
    bool areStated(std::size_t at, double left) {
        constexpr std::size_t farthest = 3; // rows from the headings to the first figure
        std::set<Figure> stated;
        for (std::size_t below = at + 1; below < page_.rows.size() && stated.size() < 2; ++below) {
            const Row& row = page_.rows[below];
            const auto inColumns = std::ranges::count_if(row.amounts, [&](const RowAmount& amount) {
                return amount.place.right > left - alignment(page_);
            });
            if (inColumns < 2 || lineAt(below).left >= left - alignment(page_)) {
                if (stated.empty() && below > at + farthest) {
                    return false; // that row stood far above, in the letter's head
                }
                continue;
            }
            if (const auto figure = lineAt(below).figure) {
                stated.insert(*figure);
            }
        }
        return stated.size() >= 2;
    }

  private:
    struct Line {
        double left = 0; ///< where the row begins
        std::optional<Figure> figure;
    };

    const Line& lineAt(std::size_t at) {
        if (!lines_[at]) {
            const LabelPlace cell = cellsOf(page_.rows[at]).front();
            Row label;
            label.words = wordsOf(page_.rows[at], cell);
            for (const RowWord& word : label.words) {
                label.folded += word.folded + ' ';
            }
            lines_[at] = Line{cell.left, figureOf(label, page_.isRecognised)};
        }
        return *lines_[at];
    }

    const PageRows& page_;
    std::vector<std::optional<Line>> lines_;
};

/// Whether columns are of loans: what heads their numbers says so, or the page's title where they
/// are headed by numbers alone.
bool areOfLoans(const PageRows& page, std::size_t at, const std::vector<LabelPlace>& cells) {
    static const Labels titles{"Schulden*",    "Schuldzins*", "Hypothek*", "Kredit*", "Darlehens*",
                               "hypothécair*", "ipotecari*",  "crédits",   "crediti"};
    constexpr std::size_t tallest = 3; // rows of a heading
    for (std::size_t row = at + 1; row-- > 0 && at - row < tallest;) {
        const auto heads = cellsOf(page.rows[row]);
        Row first;
        first.words = heads.empty() ? std::vector<RowWord>() : wordsOf(page.rows[row], heads[0]);
        const bool isOverAll = heads.size() > cells.size() && heads[0].left < cells[0].left;
        if (isOverAll && namesAny(first, {Concept::debt}, page.isRecognised)
            && !namesAny(first, {Concept::account}, page.isRecognised)) {
            return true;
        }
    }
    const bool areNumbers = std::ranges::all_of(
        cells, [&](const LabelPlace& cell) { return isNumber(page.rows[at], cell); });
    bool isTitled = false;
    for (std::size_t row = 0; row <= at && areNumbers; ++row) {
        if (namesAny(page.rows[row], {Concept::account}, page.isRecognised)) {
            return false;
        }
        isTitled |= namesAny(page.rows[row], {Concept::debt}, page.isRecognised)
                    || isAnyIn(page.rows[row].folded, titles);
    }
    return isTitled;
}

} // namespace

AccountColumns accountColumns(const PageRows& page) {
    RowFigures figures(page);
    for (std::size_t at = 0; at < page.rows.size() && page.number != 0; ++at) {
        const auto cells = accountCells(page, at);
        if (cells.size() < 2 || !figures.areStated(at, cells.front().left)) {
            continue;
        }
        PageRows table = page;
        const std::size_t end = endOfColumns(page, at, cells.front().left);
        table.rows.resize(std::min(end, endOfFigures(page, at, cells.front().left)));
        AccountColumns columns{columnsAsPages(table, at, cells), end, areOfLoans(page, at, cells)};
        for (std::size_t i = 0; i < cells.size() && i < columns.parts.size(); ++i) {
            auto& rows = columns.parts[i].rows; // what stands left of the names heads the labels
            if (!rows.empty() && rows.front().top == page.rows[at].top) {
                rows.front() = rowOfWords(wordsOf(page.rows[at], cells[i]), page.isRecognised);
            }
        }
        keepNewest(columns.parts);
        return areApart(columns.parts) ? columns : AccountColumns();
    }
    return {};
}

} // namespace fiscarel
