#include "Fiscarel_SG/documents/kinds/WageYear.h"

#include "Fiscarel_SG/documents/kinds/SlipMonths.h"
#include "Fiscarel_SG/documents/kinds/TableHeading.h"
#include "Fiscarel_SG/documents/rows/CellRoles.h"
#include "Fiscarel_SG/documents/rows/Vocabulary.h"
#include "Fiscarel_SG/documents/text/Digits.h"

#include <algorithm>
#include <set>
#include <string_view>

namespace fiscarel {

namespace {

/// What only running totals are called.
const Labels& runningTotals() {
    static const Labels words{"Kumul*",
                              "kum.",
                              "aufgelaufen*",
                              "seit Jahresbeginn",
                              "bis dato",
                              "*jahreswert",
                              "*jahreswerte",
                              "Jahrestotal*",
                              "Jahressumme*",
                              "cumul*",
                              "depuis le début de l'année",
                              "depuis le 1er janvier",
                              "totaux annuels",
                              "valeurs annuelles",
                              "progressiv*",
                              "dall'inizio dell'anno",
                              "da inizio anno",
                              "totali annui",
                              "totali annuali",
                              "valori annui",
                              "YTD",
                              "year to date"};
    return words;
}

bool namesRunningTotal(const Row& words) {
    return findLabel(words, runningTotals(), false).has_value();
}

/// Whether words are of an earlier year, or of what has changed since.
bool isFormer(const Row& words) {
    static const Labels former{
        "Vorjahr*",    "letztes Jahr", "précédent*", "antérieur*", "passée",      "dernière année",
        "precedente",  "scorso",       "previous",   "Differenz*", "Abweichung*", "Veränderung*",
        "différence*", "écart*",       "variation*", "évolution",  "differenza",  "scostamento",
        "variazion*",  "difference",   "Budget*",    "change"};
    return findLabel(words, former, false).has_value();
}

/// The year that words name by its number.
std::optional<int> yearNumberIn(const Row& words) {
    std::optional<int> year;
    for (const RowWord& word : words.words) {
        const auto day = parseDay(word.text);
        const std::string_view text = word.text; // "01.01.–31.12.2024"
        const auto number =
            day ? std::optional(day->year())
                : yearOf2000s(text.substr(text.size() - std::min<std::size_t>(text.size(), 4)));
        year = number ? number : year;
    }
    return year;
}

enum class Span { none, part, year, running };

Span spanOf(const Row& words) {
    static const Labels present{"laufendes Jahr", "Berichtsjahr",   "Lohnjahr",
                                "année courante", "année en cours", "exercice courant",
                                "anno corrente",  "anno in corso",  "esercizio corrente",
                                "current year"};
    if (isFormer(words)) {
        return Span::none;
    }
    static const Labels wholeYears{"01.01 31.12", "1.1 31.12"};
    if (findLabel(words, present, false) || isAnyIn(words.folded, wholeYears)) {
        return Span::year;
    }
    if (namesRunningTotal(words)) {
        return Span::running;
    }
    return namesWholeYear(words) ? Span::year : namesPartOfYear(words) ? Span::part : Span::none;
}

/// A table with a column of the year beside others.
struct YearTable {
    TableHeading heading;
    std::size_t year = 0;  ///< its column
    std::size_t parts = 0; ///< how many columns are of a part of it
    bool areHalves = false;
    bool hasFormer = false; ///< a column of an earlier year beside it
    bool isSure = false;    ///< false: "Montant | Total année" may also head what makes up a wage
};

/// An amount where it is printed: rows that begin with theirs have been laid out anew.
RowAmount printedAmount(const RowAmount& amount, const PageRows& page) {
    RowAmount real = amount;
    if (real.place.right > page.width) {
        real.place = real.printed;
    }
    return real;
}

/// Whether a row of words heads a table of its own, or tells something else with its value beside.
bool isHeading(const Row& row) {
    const auto cells = cellsOf(row);
    return !hasFirmAmount(row) && cells.size() >= 2 && lettersIn(row, cells.front()) > 3;
}

/// Whether amounts stand in the year's column and in others: what tells the time above a paper
/// heads none.
bool hasColumns(const PageRows& page, const YearTable& table) {
    constexpr std::size_t farthest = 30; // rows
    constexpr int fewest = 3;
    int own = 0;
    int others = 0;
    const std::size_t end = std::min(page.rows.size(), table.heading.row + 1 + farthest);
    for (std::size_t at = table.heading.row + 1; at < end && (own < fewest || others < fewest);
         ++at) {
        bool isOwn = false;
        bool isOther = false;
        if (own + others == 0 && isHeading(page.rows[at])) {
            return false; // the amounts are below that one
        }
        for (const RowAmount& amount : page.rows[at].amounts) {
            const auto column = table.heading.columnOf(printedAmount(amount, page), page);
            isOwn |= column == table.year && amount.amount.isFirm();
            isOther |= column && column != table.year && amount.amount.isFirm();
        }
        own += isOwn ? 1 : 0;
        others += isOther ? 1 : 0;
    }
    return own >= fewest && others >= fewest;
}

/// The column from January to the month that another one is for: "April | Jan.-April".
std::optional<std::size_t> columnUpTo(const std::vector<TableColumn>& columns) {
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const auto months = monthsOf(columns[i].cell);
        const bool isSpan = months.size() == 2 && months.contains(1);
        if (isSpan && std::ranges::any_of(columns, [&](const TableColumn& other) {
                return monthsOf(other.cell) == std::set<int>{*months.rbegin()};
            })) {
            return i;
        }
    }
    return std::nullopt;
}

/// The column of the newest of several years; absent where not each column of a year is of another.
std::optional<std::size_t> newestColumn(const std::vector<TableColumn>& columns) {
    std::optional<std::size_t> newest;
    std::set<int> known;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (spanOf(columns[i].cell) != Span::year) {
            continue;
        }
        const auto year = yearNumberIn(columns[i].cell);
        if (!year || !known.insert(*year).second) {
            return std::nullopt;
        }
        newest = *known.rbegin() == *year ? std::optional(i) : newest;
    }
    return known.size() >= 2 ? newest : std::nullopt;
}

/// Whether amounts stand under a heading; none do under that of the rows' own names: "Monat".
bool headsAmounts(const PageRows& page, const TableHeading& heading, std::size_t column) {
    constexpr std::size_t farthest = 12; // rows
    const std::size_t end = std::min(page.rows.size(), heading.row + 1 + farthest);
    for (std::size_t at = heading.row + 1; at < end; ++at) {
        for (const RowAmount& amount : page.rows[at].amounts) {
            if (amount.amount.isFirm()
                && heading.columnOf(printedAmount(amount, page), page) == column) {
                return true;
            }
        }
    }
    return false;
}

std::optional<YearTable> yearTableIn(const PageRows& page, std::size_t at, bool withNext) {
    YearTable table{.heading = tableHeadingIn(page, at, withNext)};
    const auto& columns = table.heading.columns;
    std::size_t years = 0;
    bool isRunning = false;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const Span span = spanOf(columns[i].cell);
        static const Labels halves{"Halbjahr*", "*halbjahr", "semestre*", "sem."};
        table.areHalves |= findLabel(columns[i].cell, halves, false).has_value();
        const bool isStub = i == 0 && span == Span::part && !headsAmounts(page, table.heading, i);
        table.parts += span == Span::part && !isStub ? 1U : 0U;
        table.hasFormer |= isFormer(columns[i].cell);
        if (span == Span::running || (span == Span::year && !isRunning)) {
            years = span == Span::running && !isRunning ? 1 : years + 1;
            isRunning |= span == Span::running;
            table.year = i;
        }
    }
    if (const auto upTo = years == 0 ? columnUpTo(columns) : std::nullopt) {
        table.year = *upTo;
        isRunning = true;
        years = 1;
    }
    if (const auto newest = years >= 2 && !isRunning ? newestColumn(columns) : std::nullopt) {
        table.year = *newest;
        table.hasFormer = true;
        years = 1;
    }
    if (columns.size() < 2 || years != 1) {
        return std::nullopt;
    }
    const Row& year = columns[table.year].cell;
    const bool isTotal = namesAny(year, {Concept::total}, false); // may be of anything
    table.isSure =
        isRunning || table.hasFormer || table.parts >= 2 || (table.parts == 1 && !isTotal);
    const bool isOne = table.isSure || (isTotal && namesYear(year));
    return isOne && hasColumns(page, table) ? std::optional(std::move(table)) : std::nullopt;
}

/// A row with its words and the year's amount alone; absent where it has other amounts only.
std::optional<Row> ofYear(const PageRows& page, const Row& row, const YearTable& table) {
    const RowAmount* own = nullptr;
    std::vector<bool> isAmount(row.words.size(), false);
    bool hasMoney = false;
    for (const RowAmount& amount : row.amounts) {
        std::fill(isAmount.begin() + static_cast<std::ptrdiff_t>(amount.first),
                  isAmount.begin() + static_cast<std::ptrdiff_t>(amount.last) + 1, true);
        const auto column = table.heading.columnOf(printedAmount(amount, page), page);
        hasMoney |= amount.amount.isFirm();
        if (column == table.year && (own == nullptr || amount.amount.isFirm())) {
            own = &amount;
        }
    }
    if (own == nullptr) {
        return hasMoney ? std::nullopt : std::optional(row);
    }
    std::vector<RowWord> words;
    for (std::size_t i = 0; i < row.words.size(); ++i) {
        if (!isAmount[i] && lettersIn(row, {i, i}) > 0) {
            words.push_back(row.words[i]);
        }
    }
    const double move = 2 * page.width - row.words[own->last].place.right;
    for (std::size_t i = own->first; i <= own->last; ++i) {
        words.push_back(row.words[i]);
        words.back().place.left += move;
        words.back().place.right += move;
    }
    return rowOfWords(std::move(words), page.isRecognised);
}

/// Whether the year is over when a table is printed; absent where it is none of a year's parts.
std::optional<bool> overAt(const PageRows& page, const YearTable& table) {
    if (table.parts >= 3 || (table.parts == 2 && table.areHalves)) {
        return true;
    }
    SlipMonths months;
    for (std::size_t at = 0; at <= table.heading.row; ++at) {
        months.add(page.rows[at]);
    }
    if (table.hasFormer && months.named().empty()) {
        return true; // years, of which nothing says that the last one is not over
    }
    return table.isSure || !months.named().empty() ? std::optional(months.areOver()) : std::nullopt;
}

std::optional<YearTable> tableAt(const PageRows& page, std::size_t at) {
    for (const bool withNext : {false, true}) {
        if (auto table = yearTableIn(page, at, withNext)) {
            return table;
        }
    }
    return std::nullopt;
}

/// A page without the columns of parts; false for one that has none.
bool cutParts(PageRows& page, bool& isYearOver) {
    std::vector<Row> rows;
    std::optional<YearTable> table;
    for (std::size_t at = 0; at < page.rows.size(); ++at) {
        auto next = page.number != 0 ? tableAt(page, at) : std::nullopt;
        if (const auto over = next ? overAt(page, *next) : std::nullopt) {
            isYearOver &= *over;
            rows.insert(rows.end(), page.rows.begin() + static_cast<std::ptrdiff_t>(at),
                        page.rows.begin() + static_cast<std::ptrdiff_t>(next->heading.row) + 1);
            at = next->heading.row;
            table = std::move(next);
        } else if (!table) {
            rows.push_back(page.rows[at]);
        } else if (auto row = ofYear(page, page.rows[at], *table)) {
            rows.push_back(std::move(*row));
        }
    }
    page.rows = std::move(rows);
    return table.has_value();
}

/// The words before the first amount of a row that has several.
std::optional<Row> stubOf(const Row& row) {
    constexpr std::ptrdiff_t fewest = 3;
    const auto isMoney = [](const RowAmount& amount) { return amount.amount.isFirm(); };
    const auto first = std::ranges::find_if(row.amounts, isMoney);
    if (std::ranges::count_if(row.amounts, isMoney) < fewest) {
        return std::nullopt;
    }
    Row stub;
    stub.words.assign(row.words.begin(),
                      row.words.begin() + static_cast<std::ptrdiff_t>(first->first));
    return stub;
}

/// Takes the row of a month out of a page where one beside it tells what the year comes to so far;
/// absent where there is none, else whether the year is over.
std::optional<bool> cutPartRow(PageRows& page) {
    std::optional<std::size_t> part;
    bool hasRunning = false;
    std::size_t parts = 0;
    for (std::size_t at = 0; at < page.rows.size(); ++at) {
        const auto stub = stubOf(page.rows[at]);
        const Span span = stub ? spanOf(*stub) : Span::none;
        hasRunning |= span == Span::running;
        parts += span == Span::part ? 1U : 0U;
        part = span == Span::part ? at : part;
    }
    if (!hasRunning || parts != 1) {
        return std::nullopt;
    }
    SlipMonths months;
    for (std::size_t at = 0; at <= *part; ++at) {
        months.add(page.rows[at]);
    }
    page.rows.erase(page.rows.begin() + static_cast<std::ptrdiff_t>(*part));
    return months.areOver();
}

bool namesGross(const DocumentRows& document) {
    return isAnyIn(document.folded, wordsFor(Concept::gross))
           || isAnyIn(document.folded, wordsFor(Concept::wage));
}

/// Whether the rows of a year's months, or of parts that end with it, stand above what they come
/// to.
template <typename Rows>
bool haveYear(Rows first, Rows last) {
    return std::count_if(first, last,
                         [](const Row& row) {
                             const auto stub = stubOf(row);
                             const auto months = stub ? monthsOf(*stub) : std::set<int>();
                             return !months.empty() && *months.rbegin() == 12;
                         })
           == 1;
}

} // namespace

bool namesPartOfYear(const Row& words) {
    static const Labels parts{
        "Monat*",   "*monat",   "mois",    "mese",      "mensile",   "mensuel*",  "month*",
        "Quartal*", "*quartal", "trim.",   "trimestr*", "Halbjahr*", "*halbjahr", "semestr*",
        "sem.",     "Periode",  "période", "periodo",   "period",    "laufend*",  "courant*",
        "corrente", "quarter",  "Q1",      "Q2",        "Q3",        "Q4"};
    const auto months = monthsOf(words);
    return !isWholeSpan(months) && (!months.empty() || findLabel(words, parts, false));
}

bool namesWholeYear(const Row& words) {
    if (isWholeSpan(monthsOf(words)) || namesRunningTotal(words)) {
        return true;
    }
    return !namesPartOfYear(words)
           && (namesYear(words) || namesAny(words, {Concept::total}, false));
}

std::optional<WageYear> yearBesideParts(const DocumentRows& document) {
    if (!namesGross(document)) {
        return std::nullopt;
    }
    std::optional<WageYear> year;
    for (std::size_t i = 0; i < document.pages.size(); ++i) {
        PageRows page = document.pages[i];
        bool isYearOver = true;
        bool isCut = cutParts(page, isYearOver);
        if (const auto over = isCut ? std::nullopt : cutPartRow(page)) {
            isCut = true;
            isYearOver = *over;
        }
        if (isCut) {
            year = year ? std::move(year) : std::optional(WageYear{document});
            year->document.pages[i] = std::move(page);
            year->isOver &= isYearOver;
        }
    }
    return year;
}

std::optional<WageYear> yearBelowPart(const DocumentRows& document) {
    constexpr std::size_t longest = 8;   // words of a heading
    constexpr std::ptrdiff_t fewest = 3; // rows with amounts above it
    if (!namesGross(document) || !isAnyIn(document.folded, runningTotals())) {
        return std::nullopt;
    }
    for (std::size_t i = 0; i < document.pages.size(); ++i) {
        const auto& rows = document.pages[i].rows;
        const auto isMoney = [](const Row& row) { return hasFirmAmount(row); };
        const auto first = std::ranges::find_if(rows, isMoney);
        for (auto at = first; at != rows.end(); ++at) {
            const auto label = findLabel(*at, runningTotals(), false);
            const bool isTitle =
                label && label->first < 3 && (hasFirmAmount(*at) || at->words.size() <= longest);
            if (!isTitle || std::count_if(first, at, isMoney) < fewest) {
                continue;
            }
            SlipMonths months;
            std::for_each(rows.begin(), first, [&](const Row& row) { months.add(row); });
            SlipMonths own;
            own.add(*at);
            const bool isOver = months.areOver() || own.areOver() || haveYear(first, at);
            WageYear year{.document = document, .isOver = isOver};
            auto& kept = year.document.pages[i].rows;
            kept.assign(rows.begin(), first);
            kept.insert(kept.end(), at, rows.end());
            return year;
        }
    }
    return std::nullopt;
}

} // namespace fiscarel
