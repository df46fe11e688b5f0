#include "Fiscarel_SG/documents/kinds/AmountPlaces.h"

#include "Fiscarel_SG/documents/kinds/AmountBelow.h"
#include "Fiscarel_SG/documents/kinds/BesideAmounts.h"
#include "Fiscarel_SG/documents/kinds/RowSums.h"
#include "Fiscarel_SG/documents/kinds/RunningBalance.h"
#include "Fiscarel_SG/documents/kinds/SectionTotal.h"
#include "Fiscarel_SG/documents/rows/BoxNumbers.h"
#include "Fiscarel_SG/documents/rows/CellRoles.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <string>
#include <string_view>

namespace fiscarel {

namespace {

constexpr int longestBare = 5'000'000; ///< larger numbers without marks are of bills, of clients

/// The right edge most firm amounts of a page share.
double amountColumn(const PageRows& page) {
    std::vector<double> edges;
    for (const Row& row : page.rows) {
        for (const RowAmount& amount : row.amounts) {
            if (amount.amount.isFirm() && std::isfinite(amount.place.right)) {
                edges.push_back(amount.place.right);
            }
        }
    }
    std::ranges::sort(edges);
    double best = page.width;
    std::size_t most = 0;
    std::size_t first = 0; // of those near an edge, up to `end`
    std::size_t end = 0;
    for (const double edge : edges) {
        while (edge - edges[first] > alignment(page)) {
            ++first;
        }
        while (end < edges.size() && edges[end] - edge <= alignment(page)) {
            ++end;
        }
        if (end - first >= most) {
            most = end - first;
            best = edge; // the last of as many
        }
    }
    return best;
}

/// The one of several amounts that stands in the amount column, else the last.
const RowAmount& choose(const std::vector<const RowAmount*>& amounts, const PageRows& page) {
    const double column = amountColumn(page);
    const auto inColumn = std::ranges::find_if(amounts, [&](const RowAmount* amount) {
        return std::abs(amount->place.right - column) <= alignment(page);
    });
    return inColumn == amounts.end() ? *amounts.back() : **inColumn;
}

/// The heading an amount stands under: the one whose edge or middle is nearest to its own.
std::size_t columnOf(const std::vector<LabelPlace>& columns, const RowAmount& amount) {
    const auto distance = [&](const LabelPlace& column) {
        return std::min(
            {std::abs(column.right - amount.place.right), std::abs(column.left - amount.place.left),
             std::abs(column.left + column.right - amount.place.left - amount.place.right) / 2});
    };
    return static_cast<std::size_t>(std::ranges::min_element(columns, {}, distance)
                                    - columns.begin());
}

/// The right edges of the columns that amounts of the next rows stand in, from left to right.
std::vector<double> columnsBelow(const RowRange& range, std::size_t at) {
    std::vector<double> edges;
    std::vector<double> shared;
    for (std::size_t below = at + 1; below < std::min(range.end, at + 10); ++below) {
        for (const RowAmount& amount : range.page->rows[below].amounts) {
            const auto isNear = [&](double edge) {
                return std::abs(edge - amount.place.right) <= alignment(*range.page);
            };
            if (!amount.amount.isFirm() || range.page->number == 0) {
                continue;
            }
            if (std::ranges::any_of(edges, isNear) && std::ranges::none_of(shared, isNear)) {
                shared.push_back(amount.place.right);
            }
            edges.push_back(amount.place.right);
        }
    }
    std::ranges::sort(shared);
    return shared;
}

/// Whether an amount is more than the number of a column: "Konto 1   Konto 2".
bool isMoney(const RowAmount& amount) {
    return amount.amount.isFirm()
           && (amount.amount.hasDecimals || amount.amount.hasMark || amount.amount.value >= 10);
}

/// The columns of a row that heads a table, with the one a label stands in.
struct Heading {
    std::vector<LabelPlace> columns;
    std::size_t wanted = 0;
};

std::optional<Heading> headingAt(const RowRange& range, std::size_t at,
                                 const std::optional<LabelPlace>& place) {
    const Row& row = range.page->rows[at];
    if (!place || range.page->number == 0 || std::ranges::any_of(row.amounts, isMoney)) {
        return std::nullopt;
    }
    Heading heading{headingCells(range, at)};
    while (heading.wanted < heading.columns.size()
           && heading.columns[heading.wanted].last < place->first) {
        ++heading.wanted;
    }
    // "2   Art der Versicherung   mit Jahresprämie" is a line of a form.
    const std::size_t fewest = boxNumber(row) ? 4 : 3;
    const bool isHeading = heading.columns.size() >= fewest
                           && heading.wanted < heading.columns.size()
                           && heading.columns[heading.wanted].first <= place->first;
    return isHeading ? std::optional(std::move(heading)) : std::nullopt;
}

/// The year a row begins with.
std::optional<int> yearOf(const Row& row) {
    return row.words.empty() ? std::nullopt : parseYear(row.words.front().text);
}

/// The amount of a column: that of the newest year, of the total, the sum of the others, or the
/// only one there is.
std::optional<FoundAmount> amountUnder(const RowRange& range, std::size_t at,
                                       const LabelPlace& label) {
    const Labels& totals = wordsFor(Concept::total);
    const auto heading = headingAt(range, at, label);
    std::optional<FoundAmount> found;
    std::optional<FoundAmount> proven;
    bool isOnly = true;
    std::optional<int> newest; // while each row begins with a year
    for (std::size_t below = at + 1; heading && below < std::min(range.end, at + 30); ++below) {
        const Row& row = range.page->rows[below];
        for (const RowAmount& amount : row.amounts) {
            const LabelPlace& column = heading->columns[heading->wanted];
            const bool isUnder =
                row.amounts.size() > 1
                || (amount.place.left < column.right && column.left < amount.place.right);
            if (!isUnder || !amount.amount.isFirm()
                || columnOf(heading->columns, amount) != heading->wanted) {
                continue;
            }
            const auto year = yearOf(row);
            const bool isOfYears = year && (!found || newest);
            if (isOfYears && newest && *year <= *newest) {
                continue;
            }
            const bool isSame = found && isOnly && found->value() == amount.amount.value;
            isOnly = !found.has_value() || isOfYears || isSame;
            newest = isOfYears ? year : std::nullopt;
            found =
                FoundAmount{.page = range.page,
                            .row = below,
                            .amount = amount,
                            .label = textBetween(range.page->rows[at], column.first, column.last),
                            .isBelow = true};
            if (isAnyIn(row.folded, totals)) {
                return found;
            }
            proven = columnCheck(*found) ? found : proven;
        }
    }
    return isOnly ? found : proven;
}

/// Of several amounts in a row the one under a heading that says what is wanted.
const RowAmount* amountByHeading(const RowRange& range, std::size_t at, const Wanted& wanted,
                                 const std::vector<const RowAmount*>& amounts) {
    for (std::size_t above = at; above-- > range.first && at - above < 30;) {
        for (const LabelPlace& place :
             placesIn(range.page->rows[above], wanted, range.page->isRecognised)) {
            if (const auto heading = headingAt(range, above, place)) {
                const RowAmount* found = nullptr; // nearest, where headings stand close
                const auto distance = [&](const RowAmount& amount) {
                    return std::abs(amount.place.right - place.right);
                };
                for (const RowAmount* amount : amounts) {
                    if (columnOf(heading->columns, *amount) == heading->wanted
                        && (found == nullptr || distance(*amount) < distance(*found))) {
                        found = amount;
                    }
                }
                if (found != nullptr) {
                    return found;
                }
            }
        }
    }
    return nullptr;
}

/// How new what a heading's words say is: the year they name, the last of all for "new", the first
/// for what is of another time; absent for other words.
std::optional<int> newness(const Row& heading, const LabelPlace& cell, bool isRecognised) {
    static const Labels present{"neu",       "neuer",    "neue",     "aktuell*",
                                "nouveau",   "nouvelle", "actuel*",  "nuovo",
                                "nuova",     "attuale",  "laufend*", "massgebend*",
                                "ab sofort", "gültig*",  "valable*", "valid*"};
    Row words;
    std::optional<int> year;
    for (std::size_t i = cell.first; i <= cell.last; ++i) {
        words.words.push_back(heading.words[i]);
        const auto day = parseDay(heading.words[i].text);
        const auto bare = parseYear(heading.words[i].text);
        year = day ? std::optional(day->year()) : bare ? bare : year;
    }
    static const Labels old{"alt",     "alter",      "alte",      "bisher*",    "Vorjahr*",
                            "ancien*", "précédent*", "vecchio",   "precedente", "letzte*",
                            "früher*", "vorherig*",  "jusqu'ici", "dernière*",  "finora",
                            "ultima",  "ultimo",     "previous"};
    return findLabel(words, present, isRecognised) ? std::optional(9999)
           : findLabel(words, old, isRecognised)   ? std::optional(0)
                                                   : year;
}

/// Of several amounts under headings that tell a time the one of the newest.
const RowAmount* amountByPeriod(const RowRange& range, std::size_t at,
                                const std::vector<const RowAmount*>& amounts) {
    for (std::size_t above = at; above-- > range.first && at - above < 15;) {
        const Row& heading = range.page->rows[above];
        if (range.page->number == 0
            || std::ranges::any_of(
                heading.amounts, [](const RowAmount& amount) { return amount.amount.isFirm(); })) {
            continue;
        }
        const RowAmount* newest = nullptr;
        std::map<std::size_t, int> told; // by the cell's first word
        for (const RowAmount* amount : amounts) {
            for (const LabelPlace& cell : cellsOf(heading)) {
                const bool isOver = cell.left < amount->place.right + alignment(*range.page)
                                    && amount->place.left < cell.right + alignment(*range.page);
                const auto when =
                    isOver ? newness(heading, cell, range.page->isRecognised) : std::nullopt;
                const auto isBefore = [&](const auto& other) { return other.second < *when; };
                const auto isAsNew = [&](const auto& other) {
                    return other.second == *when && other.first != cell.first;
                };
                if (when && std::ranges::all_of(told, isBefore)) {
                    newest = amount;
                } else if (when && newest != amount && std::ranges::any_of(told, isAsNew)) {
                    newest = nullptr; // halves of one year
                }
                if (when) {
                    told[cell.first] = *when;
                }
            }
        }
        if (told.size() >= 2) {
            return newest;
        }
    }
    return nullptr;
}

/// "CHF 7'056.00 Einbezahlte Beiträge": the row's only amount, before its words.
const RowAmount* amountBefore(const Row& row, const LabelPlace& label) {
    if (row.amounts.size() != 1 || !row.amounts.front().amount.isFirm()
        || row.amounts.front().last >= label.first) {
        return nullptr;
    }
    const RowAmount& amount = row.amounts.front();
    const bool isFirst = amount.first == 0 || (amount.first == 1 && isFrancs(row.words[0].text));
    const std::string& last = row.words[amount.last].text;
    const bool endsSentence =
        last.ends_with('.') || last.ends_with(';'); // "37'734.00. Il riscatto"
    return isFirst && !endsSentence ? &amount : nullptr;
}

/// The first amount behind a label in the same cell, where a sentence goes on behind it.
const RowAmount* amountInCell(const Row& row, const LabelPlace& label,
                              const std::vector<const RowAmount*>& right) {
    const auto cells = cellsOf(row);
    const auto cell =
        std::ranges::find_if(cells, [&](const LabelPlace& one) { return one.last >= label.last; });
    const RowAmount* first = nullptr;
    for (const RowAmount* amount : right) {
        const bool isIn = cell != cells.end() && amount->last <= cell->last;
        if (isIn && (first == nullptr || (!first->amount.isFirm() && amount->amount.isFirm()))) {
            first = amount;
        }
    }
    return first;
}

/// What the amounts of a row come to, under a heading that says so: "Topf 1, Topf 2, Summe".
const RowAmount* totalOfRow(const RowRange& range, std::size_t at) {
    const RowAmount* sum = sumOfRow(range.page->rows[at]);
    const bool isTotal =
        sum != nullptr && range.page->number != 0
        && namesAny(headingOver(*range.page, at, *sum), {Concept::total}, range.page->isRecognised);
    return isTotal ? sum : nullptr;
}

/// Of several amounts right of a label the one that a heading, a time, a sum or the label's own
/// cell speaks for; null when none does.
const RowAmount* speakingOf(const RowRange& range, std::size_t at, const LabelPlace& label,
                            const Wanted& wanted, const std::vector<const RowAmount*>& right) {
    const Row& row = range.page->rows[at];
    if (const RowAmount* headed = amountByHeading(range, at, wanted, right)) {
        const RowAmount* product = productAmong(row, right); // not the price of one
        return product != nullptr && product->amount.value > headed->amount.value ? product
                                                                                  : headed;
    }
    if (const RowAmount* newest = amountByPeriod(range, at, right)) {
        return newest;
    }
    if (const RowAmount* total = totalOfRow(range, at)) {
        return total;
    }
    const RowAmount* product = productAmong(row, right);
    return product != nullptr ? product : amountInCell(row, label, right);
}

/// Whether a sentence ends between two words of one that goes on in the row: what stands behind it
/// is of something else. An abbreviation before its amount ends none.
bool endsBetween(const Row& row, std::size_t first, std::size_t end) {
    constexpr std::size_t fewest = 10; // words
    std::size_t behind = 0;            // words with letters since the last sentence's end
    bool isEnded = false;
    for (std::size_t i = first; i < end && row.words.size() >= fewest; ++i) {
        if (endsSentence(row, i)) {
            isEnded = true;
            behind = 0;
        } else if (isEnded && row.words[i].folded.size() >= 3) {
            ++behind;
        }
    }
    return isEnded && behind >= 2;
}

/// Whether a dash in the last cell of a row, or behind its currency, says that there is no amount.
bool statesNone(const Row& row, const LabelPlace& label) {
    static const std::array<std::string_view, 4> dashes{"-", "–", "—", "--"};
    const std::size_t last = row.words.size() - 1;
    if (last <= label.last || std::ranges::find(dashes, row.words[last].text) == dashes.end()
        || std::ranges::any_of(row.amounts, isMoney)) {
        return false;
    }
    return isFrancs(row.words[last - 1].text) || cellsOf(row).back().first == last;
}

/// The amount that a sentence joins to a label behind it: "davon entfallen CHF 1'027.45 auf
/// Zinsen", "4'739.40 d'intérêts"; null elsewhere.
const RowAmount* joinedBefore(const Row& row, const LabelPlace& label, bool isRecognised) {
    const bool isElided = row.words[label.first].folded.starts_with("d ");
    const bool isJoined = label.first > 0 && joinsLabel(row.words[label.first - 1]);
    const std::size_t behind = isElided ? 1 : 2;
    if ((!isElided && !isJoined) || label.first < behind || !isProse(row, isRecognised)) {
        return nullptr;
    }
    const auto amount = std::ranges::find(row.amounts, label.first - behind, &RowAmount::last);
    return amount != row.amounts.end() && amount->amount.hasDecimals ? &*amount : nullptr;
}

} // namespace

bool isCandidate(const RowAmount& amount) {
    return amount.amount.isFirm()
           || (!amount.amount.isYearLike() && amount.amount.value.abs() >= 10
               && amount.amount.value.abs() < longestBare);
}

std::vector<LabelPlace> headingCells(const RowRange& range, std::size_t at) {
    const Row& heading = range.page->rows[at];
    const std::vector<LabelPlace> cells = cellsOf(heading);
    const std::vector<double> edges = columnsBelow(range, at);
    if (edges.size() < 2 || std::ranges::any_of(heading.amounts, isCandidate)) {
        return cells;
    }
    const auto columnAt = [&](const RowWord& word) {
        return std::ranges::count_if(edges, [&](double edge) {
            return edge + alignment(*range.page) < (word.place.left + word.place.right) / 2;
        });
    };
    std::vector<LabelPlace> parts;
    for (LabelPlace cell : cells) {
        for (std::size_t i = cell.first + 1; i <= cell.last; ++i) {
            if (columnAt(heading.words[i]) != columnAt(heading.words[i - 1])) {
                parts.push_back({cell.first, i - 1, cell.left, heading.words[i - 1].place.right});
                cell.first = i;
                cell.left = heading.words[i].place.left;
            }
        }
        parts.push_back(cell);
    }
    return parts;
}

std::optional<int> yearAtStart(const Row& row) {
    const std::string_view text =
        row.words.empty() ? std::string_view() : std::string_view(row.words.front().text);
    const auto day = parseDay(text);
    return day ? std::optional(day->year()) : parseYear(text);
}

double alignment(const PageRows& page) { return page.isRecognised ? 6.0 : 4.0; }

std::vector<LabelPlace> placesIn(const Row& row, const Wanted& wanted, bool isRecognised) {
    std::vector<LabelPlace> places;
    for (const Label& label : wanted.labels) {
        if (const auto place = findLabel(row, label, isRecognised)) {
            places.push_back(*place);
        }
    }
    for (const Meaning& meaning : wanted.meanings) {
        if (const auto place = findMeaning(row, meaning, isRecognised)) {
            places.push_back(*place);
        }
    }
    return places;
}

Row headingOver(const PageRows& page, std::size_t at, const RowAmount& amount) {
    Row words;
    for (std::size_t above = at; above-- > 0 && at - above < 20;) {
        const Row& row = page.rows[above];
        const auto cells = cellsOf(row);
        if (cells.size() < 2 || std::ranges::any_of(row.amounts, isMoney)) {
            continue;
        }
        for (const LabelPlace& cell : cells) {
            if (cell.left < amount.place.right && amount.place.left < cell.right) {
                words.words.insert(words.words.end(),
                                   row.words.begin() + static_cast<std::ptrdiff_t>(cell.first),
                                   row.words.begin() + static_cast<std::ptrdiff_t>(cell.last) + 1);
            }
        }
        const bool isCurrency = std::ranges::all_of(
            words.words, [](const RowWord& word) { return isFrancs(word.text); });
        if (!isCurrency) {
            break;
        }
        words.words.clear(); // what the amounts are stands above it
    }
    return words;
}

const RowAmount* newestIn(const PageRows& page, std::size_t at) {
    const Row& row = page.rows[at];
    std::vector<const RowAmount*> firm;
    for (const RowAmount& amount : row.amounts) {
        if (amount.amount.isFirm()) {
            firm.push_back(&amount);
        }
    }
    return firm.size() > 1 ? amountByPeriod({&page, 0, page.rows.size()}, at, firm) : nullptr;
}

const RowAmount* lastOrNewest(const PageRows& page, std::size_t at) {
    const Row& row = page.rows[at];
    const RowAmount* newest = newestIn(page, at);
    return newest != nullptr || row.amounts.empty() ? newest : &row.amounts.back();
}

std::optional<FoundAmount> amountFor(const RowRange& range, std::size_t at, const LabelPlace& label,
                                     const Wanted& wanted) {
    const Row& row = range.page->rows[at];
    if (const RowAmount* joined = joinedBefore(row, label, range.page->isRecognised)) {
        return FoundAmount{.page = range.page,
                           .row = at,
                           .amount = *joined,
                           .label = textBetween(row, label.first, label.last),
                           .isBelow = true};
    }
    std::vector<const RowAmount*> right;
    for (const RowAmount& amount : row.amounts) {
        if (amount.first > label.last && isCandidate(amount)
            && !endsBetween(row, label.last, amount.first)) {
            right.push_back(&amount);
        }
    }
    dropRunningBalance(range, at, wanted, right);
    FoundAmount found{
        .page = range.page, .row = at, .label = textBetween(row, label.first, label.last)};
    if (std::ranges::any_of(right, [](const RowAmount* one) { return one->amount.isFirm(); })) {
        std::erase_if(right, [](const RowAmount* one) { return !one->amount.isFirm(); });
    }
    if (const RowAmount* year = amountOfYear(row)) {
        found.amount = *year;
        return found;
    }
    if (!right.empty()) {
        const RowAmount* headed =
            right.size() > 1 ? speakingOf(range, at, label, wanted, right) : nullptr;
        if (headed == nullptr && right.size() > 1 && range.first > 0) {
            const RowAmount* newest = newestIn(*range.page, at); // headed above the range
            headed = std::ranges::find(right, newest) != right.end() ? newest : nullptr;
        }
        found.amount = headed != nullptr ? *headed : choose(right, *range.page);
        found.isAlone = right.size() == 1 || headed != nullptr;
        return found;
    }
    if (const RowAmount* below = amountBelow(range, at, label, wanted)) {
        found.row = at + 1;
        found.amount = *below;
        found.isBelow = true;
        return found;
    }
    if (const RowAmount* before = amountBefore(row, label)) {
        found.amount = *before;
        found.isBelow = true;
        return found;
    }
    return std::nullopt;
}

std::optional<FoundAmount> amountAt(const RowRange& range, std::size_t at, const LabelPlace& place,
                                    const Wanted& wanted) {
    if (range.page->number != 0 && statesNone(range.page->rows[at], place)) {
        return std::nullopt;
    }
    auto found = amountUnder(range, at, place);
    found = found ? std::move(found) : amountFor(range, at, place, wanted);
    return found ? std::move(found) : amountOfSection(range, at, place);
}

} // namespace fiscarel
