#include "Fiscarel_SG/documents/kinds/AmountFinder.h"
#include "Fiscarel_SG/documents/kinds/AmountPlaces.h"
#include "Fiscarel_SG/documents/kinds/SumText.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace fiscarel {

using Confidence = Proposal::Confidence;
using Witness = Proposal::Witness;

namespace {

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

/// An amount that is part of a sum; negative when it is taken off.
struct Part {
    std::size_t row = 0;
    RowAmount amount;
    Decimal value;
};

/// Whether a row speaks of what is given back, so that its amount may be taken off without a sign.
bool mayBeTakenOff(const Row& row, bool isRecognised) {
    using enum Concept;
    return namesAny(row, {refunded, publicShare, reduction}, isRecognised);
}

/// The amounts above a total in its column, from below; what is given back is negative.
std::vector<Part> columnAbove(const FoundAmount& total) {
    constexpr std::size_t farthest = 40; // rows
    std::vector<Part> column;
    const PageRows& page = *total.page;
    for (std::size_t at = total.row; at-- > 0 && total.row - at < farthest && page.number != 0;) {
        const Row& row = page.rows[at]; // lines of text have no columns
        const auto aligned = std::ranges::find_if(row.amounts, [&](const RowAmount& amount) {
            return std::abs(amount.place.right - total.amount.place.right) <= alignment(page)
                   && amount.amount.isFirm();
        });
        if (aligned != row.amounts.end()) {
            const Decimal value = aligned->amount.value;
            column.push_back({at, *aligned, isReduction(row) ? -value.abs() : value});
        }
    }
    return column;
}

/// The amounts of a column directly above a total that add up to it; empty when none do.
std::vector<Part> addingUp(const std::vector<Part>& column, const Decimal& total) {
    Decimal sum;
    std::size_t parts = 0; // nothing adds nothing
    for (std::size_t i = 0; i < column.size(); ++i) {
        sum = sum + column[i].value;
        parts += column[i].value.isZero() ? 0U : 1U;
        if (parts >= 2 && sum == total && column[i].amount.amount.value != total) {
            return {column.begin(), column.begin() + static_cast<std::ptrdiff_t>(i) + 1};
        }
    }
    return {};
}

/// The amounts above a total that add up to it, the nearest of those that may be taken off taken
/// off where that is what makes them add up.
std::vector<Part> partsOf(const FoundAmount& total) {
    std::vector<Part> column = columnAbove(total);
    if (auto parts = addingUp(column, total.value()); !parts.empty()) {
        return parts;
    }
    constexpr std::size_t most = 3; // of them
    std::vector<std::size_t> mayBeOff;
    for (std::size_t i = 0; i < column.size() && mayBeOff.size() < most; ++i) {
        if (column[i].value > 0
            && mayBeTakenOff(total.page->rows[column[i].row], total.page->isRecognised)) {
            mayBeOff.push_back(i);
        }
    }
    for (unsigned turn = 1; turn < 1U << mayBeOff.size(); ++turn) {
        for (std::size_t bit = 0; bit < mayBeOff.size(); ++bit) {
            Part& part = column[mayBeOff[bit]];
            const Decimal value = part.amount.amount.value;
            part.value = (turn >> bit & 1U) != 0 ? -value : value;
        }
        if (auto parts = addingUp(column, total.value()); !parts.empty()) {
            return parts;
        }
    }
    return {};
}

/// Where a column has subtotals, whether two or more of them add up to its total.
std::optional<ProposalCheck> subtotalsCheck(const FoundAmount& total) {
    std::vector<Decimal> parts; // since the last subtotal
    std::vector<Decimal> subtotals;
    Decimal sum;
    const std::vector<Part> column = columnAbove(total);
    for (auto at = column.rbegin(); at != column.rend(); ++at) {
        const Decimal value = at->value;
        Decimal above;
        bool isSubtotal = false;
        for (std::size_t first = parts.size(); first-- > 0 && !isSubtotal;) {
            above = above + parts[first];
            isSubtotal = parts.size() - first >= 2 && above == value;
        }
        parts.push_back(value);
        if (isSubtotal) {
            parts.clear();
            sum = sum + value;
            subtotals.push_back(value);
        }
    }
    return subtotals.size() < 2 || sum != total.value()
               ? std::nullopt
               : std::optional(ProposalCheck{partsText("Zwischentotale", subtotals, sum), true});
}

} // namespace

std::optional<ProposalCheck> columnCheck(const FoundAmount& total) {
    const auto parts = partsOf(total);
    if (parts.empty()) {
        return total.page->number == 0 ? std::nullopt : subtotalsCheck(total);
    }
    std::vector<Decimal> values(parts.size()); // from above, as they are read
    std::ranges::transform(parts, values.rbegin(), &Part::value);
    return ProposalCheck{partsText("Beträge darüber", values, total.value()), true};
}

Decimal alienIn(const FoundAmount& total, const Wanted& wanted) {
    const PageRows& page = *total.page;
    Decimal alien;
    for (const Part& part : partsOf(total)) {
        const Row& row = page.rows[part.row];
        const bool isAlien = part.value >= 1
                             && (isBarred(row, wanted, page.isRecognised)
                                 || namesMeant(row, wanted.alien, page.isRecognised)
                                 || namesAny(headingOver(page, part.row, part.amount), wanted.alien,
                                             page.isRecognised));
        alien = isAlien ? alien + part.value : alien;
    }
    return alien;
}

bool includesAlien(const FoundAmount& total, const Wanted& wanted) {
    return !alienIn(total, wanted).isZero();
}

bool isPartOf(const FoundAmount& total, const FoundAmount& part) {
    return part.page == total.page && std::ranges::any_of(partsOf(total), [&](const Part& one) {
               return one.row == part.row && one.amount.first == part.amount.first;
           });
}

bool takesOff(const FoundAmount& total) {
    return std::ranges::any_of(partsOf(total), [](const Part& part) { return part.value <= -1; });
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

namespace {

/// Whether an amount is one of several like it in a column, each with a day of its own.
bool isInstalment(const FoundAmount& found) {
    const PageRows& page = *found.page;
    const auto namesDay = [](const Row& row) {
        return std::ranges::any_of(
            row.words, [](const RowWord& word) { return parseDay(word.text).has_value(); });
    };
    return namesDay(found.rowOf())
           && std::ranges::count_if(page.rows, [&](const Row& row) {
                  return namesDay(row)
                         && std::ranges::any_of(row.amounts, [&](const RowAmount& one) {
                                return one.amount.isFirm() && one.amount.value == found.value()
                                       && std::abs(one.place.right - found.amount.place.right)
                                              <= alignment(page);
                            });
              }) > 1;
}

} // namespace

std::optional<ProposalCheck> repeatCheck(const std::vector<RowRange>& ranges, const Wanted& wanted,
                                         const FoundAmount& found) {
    // An instalment that is still open does not witness one that was paid.
    static const Labels unpaid{"offen*", "ausstehend*", "fällig*", "due",     "outstanding",
                               "dû",     "en suspens",  "aperto",  "scoperto"};
    const bool isUnpaid = isAnyIn(found.rowOf().folded, unpaid);
    if (isInstalment(found)) {
        return std::nullopt; // one payment does not witness another
    }
    for (const RowRange& range : ranges) {
        const bool isRecognised = range.page->isRecognised;
        for (std::size_t at = range.first; at < range.end; ++at) {
            const Row& row = range.page->rows[at];
            if (row.amounts.empty() || (!isUnpaid && isAnyIn(row.folded, unpaid))
                || (range.page == found.page && at == found.row)
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

namespace {

/// A label as a sentence quotes it: without bullets before it, a colon and the currency behind.
std::string quotable(std::string label) {
    const auto drop = [&](std::string_view mark, bool isEnd) {
        const bool has = isEnd ? label.ends_with(mark) : label.starts_with(mark);
        if (has && label.size() > mark.size()) {
            label.erase(isEnd ? label.size() - mark.size() : 0, mark.size());
        }
        return has && label.size() > mark.size();
    };
    for (bool isDropped = true; isDropped;) {
        isDropped = drop("• ", false) || drop("– ", false) || drop("- ", false)
                    || drop(" CHF", true) || drop(" Fr.", true) || drop(" SFr.", true)
                    || drop(":", true) || drop(" ", true);
    }
    return label;
}

} // namespace

Evidence evidenceOf(const FoundAmount& found, const Wanted& wanted, bool isKindClear,
                    std::vector<ProposalCheck> checks) {
    const PageRows& page = *found.page;
    const bool hasPlaces = page.number != 0;
    const bool isProven = std::ranges::any_of(checks, &ProposalCheck::passed);
    Evidence evidence{.witness = hasPlaces ? Witness::position : Witness::text,
                      .page = page.number,
                      .box = hasPlaces ? pageBox(found.amount.printed, page) : std::nullopt,
                      .checks = std::move(checks)};
    evidence.reason =
        std::string(!hasPlaces      ? "Steht im Text nach "
                    : found.isBelow ? "Steht unter "
                                    : "Steht rechts von ")
        + (found.label.empty() ? "seiner Bezeichnung" : "«" + quotable(found.label) + "»")
        + (page.isRecognised ? " (Texterkennung)." : ".");
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
