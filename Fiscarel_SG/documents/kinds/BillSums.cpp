#include "Fiscarel_SG/documents/kinds/BillSums.h"

#include "Fiscarel_SG/documents/kinds/AmountPlaces.h"
#include "Fiscarel_SG/documents/kinds/SumText.h"
#include "Fiscarel_SG/documents/rows/CellRoles.h"
#include "Fiscarel_SG/documents/text/Digits.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <set>
#include <string>
#include <utility>

namespace fiscarel {

namespace {

const RowAmount* lastFirm(const Row& row) {
    const bool isFirm = !row.amounts.empty() && row.amounts.back().amount.isFirm();
    return isFirm ? &row.amounts.back() : nullptr;
}

FoundAmount foundIn(const PageRows& page, std::size_t at, const RowAmount& amount) {
    return {.page = &page,
            .row = at,
            .amount = amount,
            .label = textBetween(page.rows[at], 0, amount.first == 0 ? 0 : amount.first - 1)};
}

bool isAligned(const FoundAmount& one, const RowAmount& other) {
    return std::abs(one.amount.place.right - other.place.right) <= alignment(*one.page);
}

bool namesTax(const Row& row) {
    static const Labels words{"MWST*", "MwSt*", "Mehrwertsteuer*", "TVA", "IVA"};
    return isAnyIn(row.folded, words);
}

constexpr std::size_t nearby = 4; ///< rows from the tax to the net amount, and to the total

/// The total below some rows of tax that a net amount above them leads to.
std::optional<SummedAmount> totalAround(const PageRows& page, std::size_t first, std::size_t end,
                                        const Decimal& tax) {
    for (std::size_t below = end; below < std::min(page.rows.size(), end + nearby); ++below) {
        const RowAmount* total = lastFirm(page.rows[below]);
        for (std::size_t above = first;
             total != nullptr && above-- > 0 && first - above <= nearby;) {
            const RowAmount* net = lastFirm(page.rows[above]);
            if (net == nullptr || net->amount.value <= tax * 8) { // rates go up to 8.1 per cent
                continue;
            }
            const Decimal sum = net->amount.value + tax;
            if ((sum - total->amount.value).abs() <= Decimal(5) / 100) {
                return SummedAmount{foundIn(page, below, *total),
                                    ProposalCheck{sumText({net->amount.value, tax}, sum)
                                                      + ", der Betrag mit Mehrwertsteuer",
                                                  true}};
            }
        }
    }
    return std::nullopt;
}

/// The total that rows of tax from a row on lead to, one for each rate.
std::optional<SummedAmount> totalFrom(const PageRows& page, std::size_t first) {
    Decimal tax;
    for (std::size_t at = first; at < std::min(page.rows.size(), first + nearby); ++at) {
        const RowAmount* amount = lastFirm(page.rows[at]);
        if (amount == nullptr || !namesTax(page.rows[at])) {
            break;
        }
        tax = tax + amount->amount.value;
        if (tax <= 0) { // proves nothing
            continue;
        }
        if (auto total = totalAround(page, first, at + 1, tax)) {
            return total;
        }
    }
    return std::nullopt;
}

} // namespace

std::optional<FoundAmount> foundPrinted(const DocumentRows& document, const Decimal& value) {
    const auto place = findSum(document, value);
    if (!place) {
        return std::nullopt;
    }
    const auto isWithin = [&](const Row& row) {
        return std::ranges::any_of(
            row.amounts, [&](const RowAmount& amount) { return &amount == place->amount; });
    };
    const auto& rows = place->page->rows;
    const auto row = std::ranges::find_if(rows, isWithin) - rows.begin();
    return foundIn(*place->page, static_cast<std::size_t>(row), *place->amount);
}

namespace {

/// The amounts of rows that tell of something given back or borne by others, each and all together,
/// the sum first.
std::vector<Decimal> givenBack(const DocumentRows& document, const FoundAmount& found,
                               const Labels& credits) {
    std::vector<Decimal> given;
    Decimal sum;
    for (const PageRows& page : document.pages) {
        for (const Row& row : page.rows) {
            const RowAmount* amount = lastFirm(row);
            if (amount == nullptr || amount->amount.value.abs() < 1
                || amount->amount.value == found.value() || isAnyIn(row.folded, credits)
                || !namesAny(row, {Concept::refunded, Concept::publicShare}, page.isRecognised)) {
                continue;
            }
            given.push_back(amount->amount.value.abs());
            sum = sum + given.back();
        }
    }
    if (given.size() > 1) {
        given.insert(given.begin(), sum);
    }
    return given;
}

bool isAdvance(const Row& row, bool isRecognised) {
    static const Labels words{"Anzahlung*",   "Akonto*",        "*akontozahlung*",
                              "Teilzahlung*", "Vorauszahlung*", "acompte*",
                              "avance*",      "acconto",        "anticipo"};
    return namesAny(row, {Concept::paid}, isRecognised) || isAnyIn(row.folded, words);
}

/// Costs of having been reminded, and interest for being late.
bool isOfReminder(const Row& row) {
    static const Labels words{
        "*mahngebühr*",          "Mahnspesen",          "Mahnkosten",         "Mahnung*",
        "Verzugszins*",          "Umtriebs*",           "Inkassospesen",      "Inkassogebühr*",
        "Betreibungskosten",     "Verzugsschaden",      "frais de rappel",    "frais de sommation",
        "frais de relance",      "intérêts moratoires", "intérêt moratoire",  "intérêts de retard",
        "frais de recouvrement", "spese di richiamo",   "spese di sollecito", "tassa di sollecito",
        "tassa di richiamo",     "interessi di mora",   "interesse di mora",  "spese di diffida"};
    return isAnyIn(row.folded, words);
}

/// What takes off again what was billed by mistake; what an insurer pays is none of it.
bool isCorrection(const Row& row) {
    static const Labels words{"Gutschrift*",     "Storno",      "Stornier*",  "Korrektur*",
                              "note de crédit",  "correction*", "extourne*",  "annulation",
                              "nota di credito", "rettifica*",  "credit note"};
    static const Labels insurers{"*kasse",  "*versicher*", "assurance*", "assureur*",
                                 "caisse*", "cassa",       "assicura*"};
    return isAnyIn(row.folded, words) && !isAnyIn(row.folded, insurers);
}

/// A total without a part of it that is something else.
SummedAmount less(FoundAmount total, const Decimal& others) {
    const Decimal whole = total.value();
    total.amount.amount.value = whole - others;
    ProposalCheck check{sumText({whole, -others}, total.value()) + ", ohne was keine Spende ist",
                        true};
    return {std::move(total), std::move(check)};
}

/// What a list comes to without the others in it, where its total is printed with them.
std::optional<SummedAmount> restOfList(const DocumentRows& document,
                                       const std::vector<FoundAmount>& list,
                                       const Decimal& others) {
    Decimal sum;
    for (const FoundAmount& one : list) {
        sum = sum + one.value();
    }
    if (list.empty() || sum < 1 || !findSum(document, sum + others)) {
        return std::nullopt;
    }
    FoundAmount whole = list.back();
    whole.amount.amount.value = sum + others;
    return less(std::move(whole), others);
}

/// Whether some rows of a list name donations and others do not, nor does their total.
bool areMixed(const std::vector<FoundAmount>& list, const FoundAmount& total) {
    const auto isGift = [](const FoundAmount& one) {
        return namesAny(one.rowOf(), {Concept::donation}, one.page->isRecognised);
    };
    const auto gifts = std::ranges::count_if(list, isGift);
    return gifts > 0 && gifts < std::ssize(list) && !isGift(total);
}

} // namespace

std::optional<SummedAmount> wholeOfParts(const DocumentRows& document,
                                         const std::vector<FoundAmount>& found) {
    Decimal sum;
    for (const FoundAmount& one : found) {
        sum = sum + one.value();
    }
    const auto parts =
        std::ranges::count_if(found, [](const FoundAmount& one) { return !one.value().isZero(); });
    auto whole = parts < 2 ? std::nullopt : foundPrinted(document, sum);
    // The last of them may be their total, or by chance as much as the others.
    const bool endsInSum = !whole && found.size() > 2 && found.back().value() * 2 == sum;
    if (endsInSum) {
        sum = found.back().value();
    }
    std::vector<Decimal> values(found.size() - (endsInSum ? 1 : 0));
    std::transform(found.begin(), found.begin() + std::ssize(values), values.begin(),
                   [](const FoundAmount& one) { return one.value(); });
    ProposalCheck check{partsText("einzelnen Beträge", values, sum), true};
    whole = endsInSum ? foundPrinted(document, sum) : std::move(whole);
    if (!whole) {
        return std::nullopt;
    }
    whole->label = found.front().label;
    return SummedAmount{std::move(*whole), std::move(check)};
}

bool haveOneLabel(const std::vector<FoundAmount>& found) {
    const auto words = [](const FoundAmount& one) { // but for days and numbers
        std::string letters;
        std::ranges::copy_if(one.label, std::back_inserter(letters),
                             [](char c) { return !isDigit(c); });
        return letters;
    };
    return std::ranges::all_of(
        found, [&](const FoundAmount& one) { return words(one) == words(found.front()); });
}

std::optional<SummedAmount> wholeOfList(const DocumentRows& document, const FoundAmount& part,
                                        const Wanted& wanted) {
    const PageRows& page = *part.page;
    std::vector<FoundAmount> list;
    Decimal others; // what the list names that is no part of it
    const auto goesOn = [&](std::size_t at) {
        const Row& row = page.rows[at];
        const RowAmount* amount = lastFirm(row);
        if (amount == nullptr || !isAligned(part, *amount)
            || namesAny(row, {Concept::total}, page.isRecognised)) {
            return false;
        }
        if (isBarred(row, wanted, page.isRecognised)
            || namesAny(row, wanted.alien, page.isRecognised)
            || namesAny(row, {Concept::notDeductible}, page.isRecognised)) {
            others = others + amount->amount.value;
        } else {
            list.push_back(foundIn(page, at, *amount));
        }
        return true;
    };
    std::size_t first = part.row;
    while (page.number != 0 && first > 0 && goesOn(first - 1)) {
        --first;
    }
    for (std::size_t at = part.row; page.number != 0 && at < page.rows.size() && goesOn(at); ++at) {
    }
    auto whole = wholeOfParts(document, list);
    if (whole && areMixed(list, whole->found)) {
        whole->check.reset(); // the others may have bought something
    }
    return whole || others.isZero() ? std::move(whole) : restOfList(document, list, others);
}

std::optional<SummedAmount> withoutAlien(const FoundAmount& total, const Wanted& wanted) {
    const Decimal alien = alienIn(total, wanted);
    const bool isPart = alien >= 1 && total.value() - alien >= 1;
    return isPart ? std::optional(less(total, alien)) : std::nullopt;
}

std::optional<SummedAmount> withoutPart(const DocumentRows& document, const FoundAmount& total,
                                        const Decimal& part) {
    const Decimal rest = total.value() - part;
    auto found = part >= 1 && rest >= 1 ? foundPrinted(document, rest) : std::nullopt;
    if (!found) {
        return std::nullopt;
    }
    return SummedAmount{std::move(*found),
                        ProposalCheck{sumText({total.value(), -part}, rest)
                                          + ", das Total ohne anderes, das darin steht",
                                      true}};
}

Settled afterGivenBack(const DocumentRows& document, const FoundAmount& found,
                       const Labels& credits) {
    const auto given = givenBack(document, found, credits);
    Settled settled{.isTold = !given.empty()};
    for (const bool isRest : {true, false}) {
        for (const Decimal& taken : given) {
            const Decimal other = isRest ? found.value() + taken : found.value() - taken;
            auto printed = other >= 1 ? foundPrinted(document, other) : std::nullopt;
            if (!printed) {
                continue;
            }
            const Decimal rest = isRest ? found.value() : other;
            ProposalCheck check{sumText({rest + taken, -taken}, rest)
                                    + ", was nach der Rückerstattung bleibt",
                                true};
            settled.rest = SummedAmount{isRest ? found : std::move(*printed), std::move(check)};
            return settled;
        }
    }
    return settled;
}

std::vector<taxcore::Date> daysBelow(const std::vector<FoundAmount>& all) {
    std::vector<taxcore::Date> days;
    for (std::size_t i = 0; i < all.size(); ++i) {
        const PageRows& page = *all[i].page;
        const bool isLast = i + 1 == all.size() || all[i + 1].page != all[i].page;
        const std::size_t end = isLast ? page.rows.size() : all[i + 1].row;
        std::set<taxcore::Date> own;
        for (std::size_t at = all[i].row; at < end; ++at) {
            for (const RowWord& word : page.rows[at].words) {
                if (const auto day = parseDay(word.text)) {
                    own.insert(*day);
                }
            }
        }
        if (own.size() != 1 || (!isLast && end < all[i].row + 3)) {
            return {};
        }
        days.push_back(*own.begin());
    }
    return days;
}

std::optional<SummedAmount> totalWithTax(const std::vector<RowRange>& ranges) {
    for (const RowRange& range : ranges) {
        for (std::size_t at = range.first; at < range.end; ++at) {
            if (auto total = totalFrom(*range.page, at)) {
                return total;
            }
        }
    }
    return std::nullopt;
}

std::optional<SummedAmount> afterCorrection(const FoundAmount& total) {
    const PageRows& page = *total.page;
    Decimal rest = total.value();
    for (std::size_t at = total.row + 1; at < page.rows.size(); ++at) {
        const RowAmount* amount = lastFirm(page.rows[at]);
        if (amount == nullptr || !isAligned(total, *amount)) {
            continue;
        }
        if (isCorrection(page.rows[at])) {
            rest = rest - amount->amount.value.abs();
        } else if (rest < total.value() && amount->amount.value == rest && rest >= 1) {
            return SummedAmount{foundIn(page, at, *amount),
                                ProposalCheck{sumText({total.value(), rest - total.value()}, rest)
                                                  + ", was nach der Gutschrift bleibt",
                                              true}};
        }
    }
    return std::nullopt;
}

FoundAmount beforeAdvance(const FoundAmount& open) {
    const PageRows& page = *open.page;
    Decimal paidBefore;
    for (std::size_t at = open.row; at-- > 0 && open.row - at < 6;) {
        const RowAmount* amount = lastFirm(page.rows[at]);
        if (amount == nullptr) {
            continue;
        }
        if (isAdvance(page.rows[at], page.isRecognised)) {
            paidBefore = paidBefore + amount->amount.value.abs();
        } else if (paidBefore >= 1 && amount->amount.value - paidBefore == open.value()) {
            return foundIn(page, at, *amount);
        }
    }
    return open;
}

bool isAfterAdvance(const FoundAmount& open) {
    const PageRows& page = *open.page;
    const std::size_t first = open.row - std::min<std::size_t>(open.row, 6);
    return std::any_of(page.rows.begin() + static_cast<std::ptrdiff_t>(first),
                       page.rows.begin() + static_cast<std::ptrdiff_t>(open.row),
                       [&](const Row& row) {
                           const RowAmount* amount = lastFirm(row);
                           return amount != nullptr && isAligned(open, *amount)
                                  && isAdvance(row, page.isRecognised);
                       });
}

std::optional<SummedAmount> withoutReminder(const FoundAmount& total) {
    const PageRows& page = *total.page;
    const std::size_t first = total.row - std::min<std::size_t>(total.row, 12);
    Decimal rest = total.value();
    for (std::size_t at = first; at < total.row; ++at) {
        const RowAmount* amount = lastFirm(page.rows[at]);
        if (amount != nullptr && isOfReminder(page.rows[at]) && isAligned(total, *amount)) {
            rest = rest - amount->amount.value;
        }
    }
    if (rest == total.value() || rest < 1) {
        return std::nullopt;
    }
    for (std::size_t at = first; at < total.row; ++at) {
        const RowAmount* amount = lastFirm(page.rows[at]);
        if (amount != nullptr && amount->amount.value == rest) {
            return SummedAmount{foundIn(page, at, *amount),
                                ProposalCheck{sumText({total.value(), rest - total.value()}, rest)
                                                  + ", das Total ohne Mahnspesen und Zins",
                                              true}};
        }
    }
    SummedAmount several{total, std::nullopt};
    several.found.amount.amount.value = rest;
    return several;
}

std::optional<ProposalCheck> remainderCheck(const FoundAmount& rest) {
    Decimal sum = rest.value();
    std::vector<Decimal> taken;
    for (std::size_t at = rest.row; at-- > 0 && rest.row - at < 12;) {
        const RowAmount* amount = lastFirm(rest.page->rows[at]);
        if (amount == nullptr || !isAligned(rest, *amount)) {
            continue;
        }
        const Decimal value = amount->amount.value;
        if (!taken.empty() && value == sum) {
            taken.push_back(value);
            std::ranges::reverse(taken);
            return ProposalCheck{sumText(taken, rest.value()) + ", was nach den Abzügen bleibt",
                                 true};
        }
        sum = sum + value.abs();
        taken.push_back(-value.abs());
    }
    return std::nullopt;
}

std::optional<ProposalCheck> sharesCheck(const std::vector<RowRange>& ranges,
                                         const FoundAmount& share) {
    static const Labels payers{"*kasse",  "*versicherer*", "*versicherung", "Gemeinde*",
                               "Kanton*", "caisse*",       "assureur*",     "assurance*",
                               "commune", "canton",        "cassa",         "assicurat*",
                               "comune",  "cantone",       "insurer",       "insurance"};
    const auto isPrinted = [&](const Decimal& value) {
        return std::ranges::any_of(ranges, [&](const RowRange& range) {
            return std::ranges::any_of(range.page->rows, [&](const Row& row) {
                const RowAmount* amount = lastFirm(row);
                return amount != nullptr && amount->amount.value == value
                       && namesAny(row, {Concept::total}, range.page->isRecognised)
                       && !namesAny(row, {Concept::payable}, range.page->isRecognised);
            });
        });
    };
    const auto& rows = share.page->rows;
    const std::size_t first = share.row - std::min<std::size_t>(share.row, 2);
    for (std::size_t at = first; at < std::min(rows.size(), share.row + 3); ++at) {
        const RowAmount* other = at == share.row ? nullptr : lastFirm(rows[at]);
        if (other == nullptr || other->amount.value < 1 || !isAligned(share, *other)
            || !isAnyIn(rows[at].folded, payers)) {
            continue;
        }
        const Decimal sum = share.value() + other->amount.value;
        if (isPrinted(sum)) {
            return ProposalCheck{sumText({share.value(), other->amount.value}, sum) + ", das Total",
                                 true};
        }
    }
    return std::nullopt;
}

std::optional<Instalments> instalmentsOf(const std::vector<RowRange>& ranges, const Decimal& total,
                                         const Decimal& part) {
    static const Labels words{"Rate",       "Raten",    "*ratenzahlung*", "*ratenvereinbarung*",
                              "*rate",      "tranche*", "mensualité*",    "versement échelonné*",
                              "échelonn*",  "rata",     "rateale",        "rateizzat*",
                              "instalment*"};
    Instalments found;
    for (int count = 2; count <= 36 && found.count == 0; ++count) {
        const bool isMultiple = (part * count - total).abs() * 20 <= Decimal(count); // cents
        found.count = isMultiple ? count : 0;
    }
    bool isNamed = false;
    std::optional<int> year;
    for (const RowRange& range : ranges) {
        for (std::size_t at = range.first; at < range.end; ++at) {
            const Row& row = range.page->rows[at];
            if (!isAnyIn(row.folded, words)) {
                continue;
            }
            isNamed = true;
            for (std::size_t i = 0; i < row.words.size() && hasFirmAmount(row); ++i) {
                std::string text = row.words[i].text;
                while (!text.empty() && (text.back() == ':' || text.back() == ',')) {
                    text.pop_back();
                }
                if (const auto day = parseDay(text)) {
                    found.areOfOneYear &= !year || *year == day->year();
                    year = day->year();
                }
            }
        }
    }
    return isNamed && found.count > 0 ? std::optional(found) : std::nullopt;
}

} // namespace fiscarel
