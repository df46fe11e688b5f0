#include "Fiscarel_SG/documents/kinds/AmountFinder.h"

#include "Fiscarel_SG/documents/kinds/AmountPlaces.h"
#include "Fiscarel_SG/documents/kinds/Prose.h"
#include "Fiscarel_SG/documents/rows/CellRoles.h"
#include "Fiscarel_SG/documents/text/Utf8Letters.h"

#include <algorithm>
#include <utility>

namespace fiscarel {

namespace {

/// Whether the words of a row stand as those of a sentence do. Recognition leaves uneven gaps.
bool runsOn(const Row& row, bool isRecognised) {
    if (!isRecognised) {
        return cellsOf(row).size() == 1;
    }
    for (std::size_t i = 0; i + 1 < row.words.size(); ++i) {
        if (row.words[i + 1].place.left - row.words[i].place.right > 2 * row.height()) {
            return false;
        }
    }
    return true;
}

/// Whether a sentence ends with the row's last amount, "liegt bei Fr. 25'000.–.", or within the row
/// and another one begins before it.
bool hasSentenceEnd(const Row& row) {
    constexpr std::size_t fewest = 3; // words of the one that begins
    const RowAmount& last = row.amounts.back();
    const std::string& text = row.words[last.last].text;
    if (last.amount.hasDecimals && text.size() > 2 && text.ends_with('.')) {
        return true;
    }
    for (std::size_t i = 0; i + fewest < last.first; ++i) {
        const char next = row.words[i + 1].text.front();
        if (endsSentence(row, i) && next >= 'A' && next <= 'Z') {
            return true;
        }
    }
    return false;
}

} // namespace

bool isProse(const Row& row, bool isRecognised) {
    constexpr std::size_t fewest = 6; // words
    const auto firm = std::ranges::count_if(
        row.amounts, [](const RowAmount& amount) { return amount.amount.isFirm(); });
    if (row.words.size() < fewest || firm == 0 || !runsOn(row, isRecognised)) {
        return false;
    }
    std::size_t end = row.words.size();
    while (end > 0 && isFrancs(row.words[end - 1].text)) {
        --end;
    }
    const bool isRest =
        startsSmall(row.words.front().text) && endsSentence(row, row.words.size() - 1);
    return isRest || firm > 1 || hasSentenceEnd(row) || row.amounts.back().last + 1 != end;
}

namespace {

/// Whether the row below holds nothing but an amount for each of two boxes.
bool headsBoxes(const RowRange& range, std::size_t at) {
    return at + 1 < range.end && range.page->number != 0
           && range.page->rows[at + 1].amounts.size() == 2
           && hasOnlyAmounts(range.page->rows[at + 1]);
}

/// The words of a row that tell of the amount of a label: all, but of a heading, which names other
/// columns too, only the own cell. Absent for a label that goes over several headings.
std::optional<Row> wordsAbout(const RowRange& range, std::size_t at, const LabelPlace& place) {
    const Row& row = range.page->rows[at];
    const auto cells = headingCells(range, at);
    const bool isTorn =
        cells.size() == 2 && place.first <= cells[0].last && cells[1].first <= place.last;
    const bool isHeading =
        cells.size() >= 3 || isTorn || (cells.size() == 2 && headsBoxes(range, at));
    if (!isHeading || std::ranges::any_of(row.amounts, isCandidate)) {
        return row;
    }
    for (const LabelPlace& cell : cells) {
        if (cell.first <= place.first && place.last <= cell.last) {
            Row own;
            own.words.assign(row.words.begin() + static_cast<std::ptrdiff_t>(cell.first),
                             row.words.begin() + static_cast<std::ptrdiff_t>(cell.last) + 1);
            return own;
        }
    }
    return std::nullopt;
}

/// Which rows are looked at for labels.
enum class Where { columns, everywhere };

/// Which rows and amounts are looked at.
struct Pass {
    Where where = Where::columns;
    bool firmOnly = true; ///< no amounts that only their digits speak for
    bool isPure = true;   ///< no totals that include what is alien
};

/// The words of a row with the last ones of the line before where a sentence goes on from it: "il
/// valore di | riscatto"; empty where none does.
Row withLineBefore(const RowRange& range, std::size_t at) {
    constexpr std::size_t most = 3; // words of the line before
    const Row& own = range.page->rows[at];
    if (at == range.first || range.page->number == 0 || own.words.empty()
        || !startsSmall(own.words.front().text)) {
        return {};
    }
    Row words = own;
    const Row& before = range.page->rows[at - 1];
    const bool goesOn = !before.words.empty() && words.top - before.bottom < words.height()
                        && cellsOf(words).size() == 1 && cellsOf(before).size() == 1;
    if (!goesOn) {
        return {};
    }
    std::size_t first = before.words.size();
    while (first > 0 && before.words.size() - first < most
           && !endsSentence(before.words[first - 1])) {
        --first;
    }
    words.words.insert(words.words.begin(),
                       before.words.begin() + static_cast<std::ptrdiff_t>(first),
                       before.words.end());
    return words;
}

/// Whether a label counts where it stands: not in a sentence, nor beside words that make the amount
/// something else.
bool counts(const RowRange& range, std::size_t at, const LabelPlace& place, const Wanted& wanted,
            Where where) {
    const Row& row = range.page->rows[at];
    const bool isRecognised = range.page->isRecognised;
    if (where == Where::columns && isProse(row, isRecognised)) {
        return false;
    }
    const auto about = wordsAbout(range, at, place);
    return about && !isBarred(*about, wanted, isRecognised)
           && !namesMeant(*about, wanted.notMeant, isRecognised)
           && (place.first > 0
               || !namesMeant(withLineBefore(range, at), wanted.notMeant, isRecognised));
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
                if (!place || !counts(range, at, *place, wanted, pass.where)) {
                    continue;
                }
                auto amount = amountAt(range, at, *place, wanted);
                if (amount && (!pass.firmOnly || amount->amount.amount.isFirm())
                    && !(pass.isPure && includesAlien(*amount, wanted))) {
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
                if (!place || !counts(range, at, *place, wanted, pass.where)) {
                    continue;
                }
                auto amount = amountAt(range, at, *place, wanted);
                // Small bare numbers are days, pieces, points.
                if (amount
                    && (amount->amount.amount.isFirm()
                        || (!pass.firmOnly && amount->value().abs() >= 100))
                    && !(pass.isPure && includesAlien(*amount, wanted))) {
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

/// Whether a row or the heading over one of its amounts says all of a meaning, each a part of it.
bool saysTogether(const Row& stub, const Row& heading, const Meaning& meaning, bool isRecognised) {
    bool isInStub = false;
    bool isInHeading = false;
    for (const Concept meant : meaning) {
        const bool here = namesAny(stub, {meant}, isRecognised);
        const bool above = !here && namesAny(heading, {meant}, isRecognised);
        if (!here && !above) {
            return false;
        }
        isInStub |= here;
        isInHeading |= above;
    }
    return isInStub && isInHeading;
}

/// The amounts of a grid whose row says one part of a meaning and whose column the other.
std::vector<FoundAmount> findInGrid(const std::vector<RowRange>& ranges, const Wanted& wanted) {
    std::vector<FoundAmount> found;
    const auto look = [&](const RowRange& range, std::size_t at, const Meaning& meaning) {
        const Row& row = range.page->rows[at];
        const bool isRecognised = range.page->isRecognised;
        const auto isMeant = [&](const Row& words) {
            return !isBarred(words, wanted, isRecognised)
                   && !namesAny(words, wanted.notMeant, isRecognised);
        };
        Row stub;
        stub.words.assign(row.words.begin(),
                          row.words.begin() + static_cast<std::ptrdiff_t>(row.amounts[0].first));
        for (const RowAmount& amount : row.amounts) {
            const Row heading = headingOver(*range.page, at, amount);
            if (amount.amount.isFirm() && saysTogether(stub, heading, meaning, isRecognised)
                && isMeant(stub) && isMeant(heading)) {
                FoundAmount hit{.page = range.page,
                                .row = at,
                                .amount = amount,
                                .label = textBetween(stub, 0, stub.words.size())};
                if (!includesAlien(hit, wanted)) {
                    found.push_back(std::move(hit));
                }
            }
        }
    };
    for (const Meaning& meaning : wanted.meanings) {
        for (const RowRange& range : ranges) {
            for (std::size_t at = range.first; at < range.end && meaning.size() > 1; ++at) {
                const Row& row = range.page->rows[at];
                if (range.page->number != 0 && !row.amounts.empty() && row.amounts[0].first > 0
                    && cellsOf(row).size() > 1) {
                    look(range, at, meaning);
                }
            }
        }
        if (!found.empty()) {
            break;
        }
    }
    return found;
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
    for (const bool firmOnly : {true, false}) {
        if (!firmOnly && digits == Digits::firm) {
            break;
        }
        for (const Where where : {Where::columns, Where::everywhere}) {
            const Pass pass{where, firmOnly, !wanted.alien.empty()};
            for (const auto find : {findByLabel, findByMeaning}) {
                if (auto found = find(ranges, wanted, pass); !found.empty()) {
                    return found;
                }
            }
            if (!firmOnly || where != Where::columns) {
                continue; // grids and sentences have been looked at
            }
            if (pass.isPure) {
                if (auto found = findInGrid(ranges, wanted); !found.empty()) {
                    return found;
                }
            }
            if (auto found = findInProse(ranges, wanted); !found.empty()) {
                return found;
            }
        }
    }
    return {};
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

} // namespace fiscarel
