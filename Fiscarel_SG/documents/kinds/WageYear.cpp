#include "Fiscarel_SG/documents/kinds/WageYear.h"

#include "Fiscarel_SG/documents/kinds/TableHeading.h"
#include "Fiscarel_SG/documents/rows/CellRoles.h"
#include "Fiscarel_SG/documents/rows/Vocabulary.h"
#include "Fiscarel_SG/documents/text/FoldedText.h"

#include <algorithm>
#include <array>
#include <set>
#include <string_view>

namespace fiscarel {

namespace {

/// The month of a folded word, by its name or what heads narrow columns; 0 for other words.
int monthOfHeading(std::string_view word) {
    struct Short {
        std::string_view name;
        int month;
    };
    static constexpr std::array names{
        Short{"jan", 1},  Short{"janv", 1}, Short{"gen", 1},  Short{"feb", 2},  Short{"fev", 2},
        Short{"fevr", 2}, Short{"mar", 3},  Short{"mrz", 3},  Short{"apr", 4},  Short{"avr", 4},
        Short{"mag", 5},  Short{"jun", 6},  Short{"giu", 6},  Short{"jul", 7},  Short{"juil", 7},
        Short{"lug", 7},  Short{"aug", 8},  Short{"ago", 8},  Short{"sep", 9},  Short{"sept", 9},
        Short{"set", 9},  Short{"sett", 9}, Short{"okt", 10}, Short{"oct", 10}, Short{"ott", 10},
        Short{"nov", 11}, Short{"dez", 12}, Short{"dec", 12}, Short{"dic", 12},
    };
    if (const int month = monthOf(word)) {
        return month;
    }
    const auto found = std::ranges::find(names, word, &Short::name);
    return found == names.end() ? 0 : found->month;
}

/// The months that words name; "Jan-Dez" is two of them.
std::set<int> monthsOf(const Row& words) {
    std::set<int> months;
    for (const RowWord& word : words.words) {
        for (const std::string& token : foldedTokens(word.text)) {
            months.insert(monthOfHeading(token));
        }
    }
    months.erase(0);
    return months;
}

bool isWholeSpan(const std::set<int>& months) { return months == std::set<int>{1, 12}; }

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

/// Whether words name a year by a word or its number.
bool namesYear(const Row& words) {
    static const Labels years{"Jahr",    "Jahres*", "*jahr",  "Gesamtjahr", "année",
                              "annuel*", "annua*",  "annuo",  "annui",      "anno",
                              "year",    "annual",  "yearly", "20*"};
    return findLabel(words, years, false).has_value();
}

bool namesRunningTotal(const Row& words) {
    return findLabel(words, runningTotals(), false).has_value();
}

enum class Span { none, part, year, running };

Span spanOf(const Row& words) {
    static const Labels former{"Vorjahr*", "précédent*", "precedente", "previous"};
    if (findLabel(words, former, false)) {
        return Span::none;
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
    bool isSure = false; ///< false: "Montant | Total année" may also head what makes up a wage
};

/// An amount where it is printed: rows that begin with theirs have been laid out anew.
RowAmount printedAmount(const RowAmount& amount, const PageRows& page) {
    RowAmount real = amount;
    if (real.place.right > page.width) {
        real.place = real.printed;
    }
    return real;
}

/// Whether a row of words names at least three columns.
bool isHeading(const Row& row) {
    constexpr std::ptrdiff_t fewest = 3;
    return !hasFirmAmount(row) && std::ranges::count_if(cellsOf(row), [&](const LabelPlace& cell) {
                                      return lettersIn(row, cell) > 3;
                                  }) >= fewest;
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

std::optional<YearTable> yearTableIn(const PageRows& page, std::size_t at, bool withNext) {
    YearTable table{.heading = tableHeadingIn(page, at, withNext)};
    const auto& columns = table.heading.columns;
    std::size_t years = 0;
    bool isRunning = false;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const Span span = spanOf(columns[i].cell);
        static const Labels halves{"Halbjahr*", "*halbjahr", "semestre*", "sem."};
        table.areHalves |= findLabel(columns[i].cell, halves, false).has_value();
        table.parts += span == Span::part ? 1U : 0U;
        if (span == Span::running || (span == Span::year && !isRunning)) {
            years = span == Span::running && !isRunning ? 1 : years + 1;
            isRunning |= span == Span::running;
            table.year = i;
        }
    }
    if (columns.size() < 2 || years != 1) {
        return std::nullopt;
    }
    const Row& year = columns[table.year].cell;
    const bool isTotal = namesAny(year, {Concept::total}, false); // may be of anything
    table.isSure = isRunning || table.parts >= 2 || (table.parts == 1 && !isTotal);
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

/// What may be the months a slip is for, by their names or else by days, those of earlier years
/// left out: somebody was born or engaged then.
class SlipMonths {
  public:
    void add(const Row& row) {
        const auto& words = row.words;
        for (std::size_t i = 0; i < words.size(); ++i) {
            if (const auto day = parseDay(words[i].text)) {
                days_.push_back({day->year(), day->month()});
                newest_ = std::max(newest_, day->year());
                continue;
            }
            addNumbers(words[i].text);
            const auto tokens = foldedTokens(words[i].text);
            for (const std::string& token : tokens) {
                if (const int month = monthOf(token)) {
                    named_.push_back({yearIn(words, i + 1), month});
                }
            }
            if (i + 2 < words.size() && words[i + 1].text == "/") {
                addNumbers(words[i].text + '/' + words[i + 2].text);
            }
        }
    }

    bool areNamed() const { return !recent(named_).empty(); }

    bool areOver() const {
        const auto months = recent(named_).empty() ? recent(days_) : recent(named_);
        return months == std::set<int>{12} || isWholeSpan(months);
    }

  private:
    struct Month {
        int year = 0; ///< 0 where it is not told
        int month = 0;
    };

    static int yearIn(const std::vector<RowWord>& words, std::size_t at) {
        const std::string text = at < words.size() ? words[at].text : std::string();
        const bool isYear =
            text.size() >= 4 && text.starts_with("20")
            && std::ranges::all_of(text.substr(0, 4), [](char c) { return c >= '0' && c <= '9'; });
        return isYear ? std::stoi(text.substr(0, 4)) : 0;
    }

    /// "12/2024", "12.2024".
    void addNumbers(const std::string& text) {
        const std::size_t mark = text.find_first_of("./-");
        const bool isForm = (mark == 1 || mark == 2) && text.size() == mark + 5
                            && std::ranges::count_if(text, [](char c) {
                                   return c >= '0' && c <= '9';
                               }) == static_cast<std::ptrdiff_t>(text.size() - 1);
        const int month = isForm ? std::stoi(text.substr(0, mark)) : 0;
        if (month >= 1 && month <= 12) {
            const int year = std::stoi(text.substr(mark + 1));
            named_.push_back({year, month});
            newest_ = std::max(newest_, year);
        }
    }

    std::set<int> recent(const std::vector<Month>& all) const {
        std::set<int> months;
        for (const Month& one : all) {
            if (one.year == 0 || one.year >= newest_) {
                months.insert(one.month);
            }
        }
        return months;
    }

    std::vector<Month> named_;
    std::vector<Month> days_;
    int newest_ = 0;
};

/// Whether the year is over when a table is printed; absent where it is none of a year's parts.
std::optional<bool> overAt(const PageRows& page, const YearTable& table) {
    if (table.parts >= 3 || (table.parts == 2 && table.areHalves)) {
        return true;
    }
    SlipMonths months;
    for (std::size_t at = 0; at <= table.heading.row; ++at) {
        months.add(page.rows[at]);
    }
    return table.isSure || months.areNamed() ? std::optional(months.areOver()) : std::nullopt;
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
            WageYear year{.document = document, .isOver = months.areOver() || own.areOver()};
            auto& kept = year.document.pages[i].rows;
            kept.assign(rows.begin(), first);
            kept.insert(kept.end(), at, rows.end());
            return year;
        }
    }
    return std::nullopt;
}

} // namespace fiscarel
