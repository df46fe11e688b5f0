#include "Fiscarel_SG/documents/kinds/AmountFinder.h"

#include "Fiscarel_SG/documents/kinds/Prose.h"

#include <algorithm>
#include <cmath>
#include <map>

namespace fiscarel {

using Confidence = Proposal::Confidence;
using Witness = Proposal::Witness;

namespace {

constexpr int longestBare = 5'000'000; ///< larger numbers without marks are of bills, of clients

/// What may be an amount beside a label. A bare whole number only counts when it is no year.
bool isCandidate(const RowAmount& amount) {
    return amount.amount.isFirm()
           || (!amount.amount.isYearLike() && amount.amount.value.abs() >= 10
               && amount.amount.value.abs() < longestBare);
}

double alignment(const PageRows& page) { return page.isRecognised ? 6.0 : 4.0; }

/// The right edge most firm amounts of a page share.
double amountColumn(const PageRows& page) {
    std::vector<double> edges;
    for (const Row& row : page.rows) {
        for (const RowAmount& amount : row.amounts) {
            if (amount.amount.isFirm()) {
                edges.push_back(amount.place.right);
            }
        }
    }
    double best = page.width;
    std::ptrdiff_t most = 0;
    for (const double edge : edges) {
        const auto count = std::ranges::count_if(
            edges, [&](double other) { return std::abs(other - edge) <= alignment(page); });
        if (count > most || (count == most && edge > best)) {
            most = count;
            best = edge;
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

/// Whether a row consists of an amount and its currency.
bool hasOnlyAmounts(const Row& row) {
    std::size_t covered = 0;
    for (const RowAmount& amount : row.amounts) {
        covered += amount.last - amount.first + 1;
    }
    for (const RowWord& word : row.words) {
        covered += isFrancs(word.text) || word.folded.empty() ? 1U : 0U;
    }
    return !row.amounts.empty() && covered >= row.words.size();
}

bool continuesSentence(const Row& row) {
    const char first =
        row.words.empty() || row.words.front().text.empty() ? 'A' : row.words.front().text.front();
    return first >= 'a' && first <= 'z';
}

/// The amount of a label whose own row has none: in the row below, if that only goes on with the
/// label's words or holds nothing but the amount, or heads a column with it.
const RowAmount* amountBelow(const RowRange& range, std::size_t at, const LabelPlace& label) {
    const Row& own = range.page->rows[at];
    if (at + 1 >= range.end) {
        return nullptr;
    }
    const Row& next = range.page->rows[at + 1];
    const double most = range.page->isRecognised ? 2.4 : 1.6; // recognised words have tight boxes
    if (next.amounts.empty() || next.top - own.bottom > most * own.height()) {
        return nullptr;
    }
    const bool goesOn = continuesSentence(next) && next.words.front().place.left < label.right
                        && next.amounts.back().place.left > label.left;
    if (goesOn && next.amounts.front().amount.isFirm()) {
        return &next.amounts.front(); // further ones belong to what the sentence says next
    }
    if ((hasOnlyAmounts(next) && next.amounts.size() == 1) || goesOn) {
        return isCandidate(next.amounts.back()) ? &next.amounts.back() : nullptr;
    }
    for (const RowAmount& amount : next.amounts) {
        const bool isUnder = amount.place.right > label.left && amount.place.left < label.right;
        if (isUnder && isCandidate(amount) && range.page->number != 0 && hasOnlyAmounts(next)) {
            return &amount;
        }
    }
    return nullptr;
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

/// The columns of a row that heads a table, with the one a label stands in.
struct Heading {
    std::vector<LabelPlace> columns;
    std::size_t wanted = 0;
};

std::optional<Heading> headingAt(const RowRange& range, std::size_t at,
                                 const std::optional<LabelPlace>& place) {
    const Row& row = range.page->rows[at];
    const bool hasAmounts = std::ranges::any_of(
        row.amounts, [](const RowAmount& amount) { return amount.amount.isFirm(); });
    if (!place || range.page->number == 0 || hasAmounts) {
        return std::nullopt;
    }
    Heading heading{cellsOf(row)};
    while (heading.wanted < heading.columns.size()
           && heading.columns[heading.wanted].last < place->first) {
        ++heading.wanted;
    }
    const bool isHeading = heading.columns.size() >= 3 && heading.wanted < heading.columns.size()
                           && heading.columns[heading.wanted].first == place->first;
    return isHeading ? std::optional(std::move(heading)) : std::nullopt;
}

/// The amount of a column: that of the total, or the only one there is.
std::optional<FoundAmount> amountUnder(const RowRange& range, std::size_t at,
                                       const LabelPlace& label) {
    const Labels& totals = wordsFor(Concept::total);
    const auto heading = headingAt(range, at, label);
    std::optional<FoundAmount> found;
    bool isOnly = true;
    for (std::size_t below = at + 1; heading && below < std::min(range.end, at + 30); ++below) {
        const Row& row = range.page->rows[below];
        for (const RowAmount& amount : row.amounts) {
            if (row.amounts.size() < 2 || !amount.amount.isFirm()
                || columnOf(heading->columns, amount) != heading->wanted) {
                continue;
            }
            isOnly = !found.has_value();
            const LabelPlace& column = heading->columns[heading->wanted];
            found =
                FoundAmount{.page = range.page,
                            .row = below,
                            .amount = amount,
                            .label = textBetween(range.page->rows[at], column.first, column.last),
                            .isBelow = true};
            if (isAnyIn(row.folded, totals)) {
                return found;
            }
        }
    }
    return isOnly ? found : std::nullopt;
}

/// Where a row says what is wanted, by one of the labels or all meanings; those words of a row that
/// make it something else are not looked at.
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

/// Of several amounts in a row the one under a heading that says what is wanted.
const RowAmount* amountByHeading(const RowRange& range, std::size_t at, const Wanted& wanted,
                                 const std::vector<const RowAmount*>& amounts) {
    for (std::size_t above = at; above-- > range.first && at - above < 30;) {
        for (const LabelPlace& place :
             placesIn(range.page->rows[above], wanted, range.page->isRecognised)) {
            if (const auto heading = headingAt(range, above, place)) {
                const auto found = std::ranges::find_if(amounts, [&](const RowAmount* amount) {
                    return columnOf(heading->columns, *amount) == heading->wanted;
                });
                return found == amounts.end() ? nullptr : *found;
            }
        }
    }
    return nullptr;
}

/// How new what a heading's words say is: the year they name, the last of all for "new", the first
/// for what is of another time; absent for other words.
std::optional<int> newness(const Row& heading, const LabelPlace& cell, bool isRecognised) {
    static const Labels present{"neu",     "neuer", "neue",  "aktuell*", "nouveau", "nouvelle",
                                "actuel*", "nuovo", "nuova", "attuale",  "laufend*"};
    Row words;
    std::optional<int> year;
    for (std::size_t i = cell.first; i <= cell.last; ++i) {
        words.words.push_back(heading.words[i]);
        const auto day = parseDay(heading.words[i].text);
        const auto number = parseAmount(heading.words[i].text);
        year = day                              ? std::optional(day->year())
               : number && number->isYearLike() ? std::optional(std::stoi(heading.words[i].text))
                                                : year;
    }
    static const Labels old{"alt",     "alter",      "alte",    "bisher*",   "Vorjahr*",
                            "ancien*", "précédent*", "vecchio", "precedente"};
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
                const bool isNewest = when && std::ranges::all_of(told, [&](const auto& other) {
                                          return other.second < *when;
                                      });
                newest = isNewest ? amount : newest;
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
    return isFirst ? &amount : nullptr;
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

std::optional<FoundAmount> amountFor(const RowRange& range, std::size_t at, const LabelPlace& label,
                                     const Wanted& wanted) {
    const Row& row = range.page->rows[at];
    std::vector<const RowAmount*> right;
    for (const RowAmount& amount : row.amounts) {
        if (amount.first > label.last && isCandidate(amount)) {
            right.push_back(&amount);
        }
    }
    FoundAmount found{
        .page = range.page, .row = at, .label = textBetween(row, label.first, label.last)};
    if (std::ranges::any_of(right, [](const RowAmount* one) { return one->amount.isFirm(); })) {
        std::erase_if(right, [](const RowAmount* one) { return !one->amount.isFirm(); });
    }
    if (!right.empty()) {
        const RowAmount* headed =
            right.size() > 1 ? amountByHeading(range, at, wanted, right) : nullptr;
        headed = headed == nullptr && right.size() > 1 ? amountByPeriod(range, at, right) : headed;
        headed = headed == nullptr && right.size() > 1 ? amountInCell(row, label, right) : headed;
        found.amount = headed != nullptr ? *headed : choose(right, *range.page);
        found.isAlone = right.size() == 1 || headed != nullptr;
        return found;
    }
    if (const RowAmount* below = amountBelow(range, at, label)) {
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

/// The amount of a label or meaning in its row or the column it heads.
std::optional<FoundAmount> amountAt(const RowRange& range, std::size_t at, const LabelPlace& place,
                                    const Wanted& wanted) {
    auto found = amountFor(range, at, place, wanted);
    return found ? std::move(found) : amountUnder(range, at, place);
}

/// Whether a row speaks of the first day of a year and not of its last.
bool isOfYearsBeginning(const Row& row) {
    const auto text = [&](std::size_t at) -> std::string_view {
        return at < row.words.size() ? std::string_view(row.words[at].text) : std::string_view();
    };
    bool isFirst = false;
    for (std::size_t i = 0; i < row.words.size(); ++i) {
        auto day = parseDay(text(i));
        day = day ? day : parseDay(text(i), text(i + 1), text(i + 2));
        isFirst |= day && day->month() == 1 && day->day() == 1;
        if (day && day->month() == 12) {
            return false;
        }
    }
    return isFirst;
}

bool isBarred(const Row& row, const Wanted& wanted, bool isRecognised) {
    const bool isNotOpening =
        std::ranges::find(wanted.notMeant, Concept::opening) != wanted.notMeant.end();
    return findLabel(row, wanted.without, isRecognised).has_value()
           || (isNotOpening && isOfYearsBeginning(row));
}

/// Whether a row is part of a sentence with amounts, which says before each what it is.
bool isProse(const Row& row) {
    constexpr std::size_t fewest = 6; // words
    const auto firm = std::ranges::count_if(
        row.amounts, [](const RowAmount& amount) { return amount.amount.isFirm(); });
    if (row.words.size() < fewest || firm == 0 || cellsOf(row).size() != 1) {
        return false;
    }
    std::size_t end = row.words.size();
    while (end > 0 && isFrancs(row.words[end - 1].text)) {
        --end;
    }
    return firm > 1 || row.amounts.back().last + 1 != end;
}

/// Whether a row says that its amount is something else. Of a heading, which names other columns
/// too, only the own cells tell.
bool isOther(const Row& row, const LabelPlace& place, const Wanted& wanted, bool isRecognised) {
    const auto cells = cellsOf(row);
    if (cells.size() < 3 || std::ranges::any_of(row.amounts, isCandidate)) {
        return namesAny(row, wanted.notMeant, isRecognised);
    }
    Row own;
    for (const LabelPlace& cell : cells) {
        for (std::size_t i = cell.first; i <= cell.last; ++i) {
            if (cell.last >= place.first && cell.first <= place.last) {
                own.words.push_back(row.words[i]);
            }
        }
    }
    return namesAny(own, wanted.notMeant, isRecognised);
}

/// Which rows are looked at for labels.
enum class Where { columns, everywhere };

/// Which rows and amounts are looked at.
struct Pass {
    Where where = Where::columns;
    bool firmOnly = true; ///< no amounts that only their digits speak for
};

bool isLookedAt(const Row& row, const Wanted& wanted, bool isRecognised, Where where) {
    return (where == Where::everywhere || !isProse(row)) && !isBarred(row, wanted, isRecognised);
}

std::vector<FoundAmount> findByLabel(const std::vector<RowRange>& ranges, const Wanted& wanted,
                                     Pass pass) {
    std::vector<FoundAmount> found;
    for (const Label& label : wanted.labels) {
        for (const RowRange& range : ranges) {
            for (std::size_t at = range.first; at < range.end; ++at) {
                const Row& row = range.page->rows[at];
                const bool isRecognised = range.page->isRecognised;
                const auto place = findLabel(row, label, isRecognised);
                if (!place || !isLookedAt(row, wanted, isRecognised, pass.where)
                    || isOther(row, *place, wanted, isRecognised)) {
                    continue;
                }
                auto amount = amountAt(range, at, *place, wanted);
                if (amount && (!pass.firmOnly || amount->amount.amount.isFirm())) {
                    found.push_back(std::move(*amount));
                }
            }
        }
        if (!found.empty()) {
            break;
        }
    }
    return found;
}

std::vector<FoundAmount> findByMeaning(const std::vector<RowRange>& ranges, const Wanted& wanted,
                                       Pass pass) {
    std::vector<FoundAmount> found;
    for (const Meaning& meaning : wanted.meanings) {
        for (const RowRange& range : ranges) {
            const bool isRecognised = range.page->isRecognised;
            for (std::size_t at = range.first; at < range.end; ++at) {
                const Row& row = range.page->rows[at];
                const auto place = findMeaning(row, meaning, isRecognised);
                if (!place || !isLookedAt(row, wanted, isRecognised, pass.where)
                    || isOther(row, *place, wanted, isRecognised)) {
                    continue;
                }
                auto amount = amountAt(range, at, *place, wanted);
                // Small bare numbers are days, pieces, points.
                if (amount
                    && (amount->amount.amount.isFirm()
                        || (!pass.firmOnly && amount->value().abs() >= 100))) {
                    found.push_back(std::move(*amount));
                }
            }
        }
        if (!found.empty()) {
            break;
        }
    }
    return found;
}

bool isReduction(const Row& row) {
    static const Labels words{"Verbilligung*", "Prämienverbilligung*",
                              "Abzug",         "abzüglich",
                              "Rabatt",        "Skonto",
                              "Ermässigung",   "Réduction*",
                              "Riduzione*",    "Rabais",
                              "Sconto",        "Subvention*",
                              "Sussidio",      "Belastungen",
                              "Ausgänge",      "Débits",
                              "Addebiti",      "Minus"};
    return isAnyIn(row.folded, words);
}

} // namespace

std::vector<RowRange> wholeDocument(const DocumentRows& document) {
    std::vector<RowRange> ranges;
    for (const PageRows& page : document.pages) {
        ranges.push_back({&page, 0, page.rows.size()});
    }
    return ranges;
}

std::vector<FoundAmount> findAmounts(const std::vector<RowRange>& ranges, const Wanted& wanted,
                                     Digits digits) {
    std::vector<FoundAmount> found;
    for (const bool firmOnly : {true, false}) {
        if (!firmOnly && digits == Digits::firm) {
            break;
        }
        for (const Where where : {Where::columns, Where::everywhere}) {
            const Pass pass{where, firmOnly};
            for (const auto find : {findByLabel, findByMeaning}) {
                if (found = find(ranges, wanted, pass); !found.empty()) {
                    return found;
                }
            }
            if (found = findInProse(ranges, wanted); !found.empty()) {
                return found;
            }
        }
    }
    return found;
}

std::optional<FoundAmount> findLast(const std::vector<RowRange>& ranges, const Wanted& wanted,
                                    Digits digits) {
    auto found = findAmounts(ranges, wanted, digits);
    return found.empty() ? std::nullopt : std::optional(std::move(found.back()));
}

std::optional<FoundAmount> findFirst(const std::vector<RowRange>& ranges, const Wanted& wanted) {
    auto found = findAmounts(ranges, wanted);
    return found.empty() ? std::nullopt : std::optional(std::move(found.front()));
}

std::optional<ProposalCheck> columnCheck(const FoundAmount& total) {
    if (total.page->number == 0) {
        return std::nullopt; // lines of text have no columns
    }
    Decimal sum;
    Decimal last;
    int count = 0;
    for (std::size_t at = total.row; at-- > 0 && total.row - at < 40;) {
        const Row& row = total.page->rows[at];
        const auto aligned = std::ranges::find_if(row.amounts, [&](const RowAmount& amount) {
            return std::abs(amount.place.right - total.amount.place.right) <= alignment(*total.page)
                   && amount.amount.isFirm();
        });
        if (aligned == row.amounts.end()) {
            continue;
        }
        const Decimal value = aligned->amount.value;
        sum = sum + (isReduction(row) ? -value.abs() : value);
        ++count;
        if (count >= 2 && sum == total.value() && value != total.value()) {
            return ProposalCheck{"Die " + std::to_string(count)
                                     + " Beträge darüber ergeben zusammen " + shown(sum),
                                 true};
        }
    }
    return std::nullopt;
}

std::optional<FoundAmount> totalBelow(const FoundAmount& part) {
    const PageRows& page = *part.page;
    for (std::size_t at = part.row + 1; at < std::min(page.rows.size(), part.row + 15); ++at) {
        const Row& row = page.rows[at];
        const auto aligned = std::ranges::find_if(row.amounts, [&](const RowAmount& amount) {
            return std::abs(amount.place.right - part.amount.place.right) <= alignment(page);
        });
        if (aligned == row.amounts.end()) {
            continue;
        }
        const std::size_t last = aligned->first == 0 ? 0 : aligned->first - 1;
        FoundAmount total{
            .page = part.page, .row = at, .amount = *aligned, .label = textBetween(row, 0, last)};
        if (columnCheck(total)) {
            return total;
        }
    }
    return std::nullopt;
}

std::optional<ProposalCheck> repeatCheck(const std::vector<RowRange>& ranges, const Wanted& wanted,
                                         const FoundAmount& found) {
    for (const RowRange& range : ranges) {
        const bool isRecognised = range.page->isRecognised;
        for (std::size_t at = range.first; at < range.end; ++at) {
            const Row& row = range.page->rows[at];
            if (row.amounts.empty() || (range.page == found.page && at == found.row)
                || isBarred(row, wanted, isRecognised)
                || namesAny(row, wanted.notMeant, isRecognised)) {
                continue;
            }
            for (const LabelPlace& place : placesIn(row, wanted, isRecognised)) {
                const auto other = amountFor(range, at, place, wanted);
                if (other && other->row == at && other->value() == found.value()
                    && other->amount.amount.isFirm()) {
                    return ProposalCheck{"Derselbe Betrag steht auch bei «" + other->label + "»",
                                         true};
                }
            }
        }
    }
    return std::nullopt;
}

std::vector<ProposalCheck> witnessChecks(const std::vector<RowRange>& ranges, const Wanted& wanted,
                                         const FoundAmount& found) {
    std::vector<ProposalCheck> checks;
    if (auto check = columnCheck(found)) {
        checks.push_back(std::move(*check));
    }
    if (auto check = repeatCheck(ranges, wanted, found)) {
        checks.push_back(std::move(*check));
    }
    return checks;
}

Evidence evidenceOf(const FoundAmount& found, const Wanted& wanted, bool isKindClear,
                    std::vector<ProposalCheck> checks) {
    const PageRows& page = *found.page;
    const bool hasPlaces = page.number != 0;
    const bool isProven = std::ranges::any_of(checks, &ProposalCheck::passed);
    Evidence evidence{.witness = hasPlaces ? Witness::position : Witness::text,
                      .page = page.number,
                      .box = hasPlaces ? pageBox(found.amount.printed, page) : std::nullopt,
                      .checks = std::move(checks)};
    evidence.reason = std::string(!hasPlaces      ? "Steht im Text nach «"
                                  : found.isBelow ? "Steht unter «"
                                                  : "Steht rechts von «")
                      + found.label + "»" + (page.isRecognised ? " (Texterkennung)." : ".");
    const bool isFirm = found.amount.amount.isFirm() && !found.amount.amount.wasCorrected;
    const bool isPlain = found.isAlone && !found.isBelow && isFirm && wanted.isSpecific;
    if (!hasPlaces) {
        evidence.confidence = isPlain && isKindClear ? Confidence::medium : Confidence::low;
    } else if (!found.isAlone && page.isRecognised) {
        evidence.confidence = Confidence::low; // which column counts is a guess
    } else if (isProven && isFirm && isKindClear && found.isAlone && wanted.isSpecific) {
        evidence.confidence = Confidence::high;
    } else {
        const bool isDoubtful = !isFirm || (page.isRecognised && found.amount.certainty < 0.6);
        evidence.confidence = isDoubtful || (!isKindClear && !wanted.isSpecific)
                                  ? Confidence::low
                                  : Confidence::medium;
    }
    return evidence;
}

} // namespace fiscarel
