#include "Fiscarel_SG/documents/kinds/AccountFigures.h"

#include "Fiscarel_SG/documents/kinds/AccountTable.h"
#include "Fiscarel_SG/documents/kinds/AmountPlaces.h"
#include "Fiscarel_SG/documents/kinds/RunningBalance.h"
#include "Fiscarel_SG/documents/kinds/SumText.h"
#include "Fiscarel_SG/documents/kinds/WithholdingTax.h"

#include <algorithm>
#include <cmath>

namespace fiscarel {

namespace {

/// Interest as the part of what was paid back on a debt: "davon Zins".
std::optional<FoundAmount> interestWithin(const RowRange& range) {
    static const Wanted wanted{{"davon Zins*", "davon Kreditzins*", "davon Schuldzins*",
                                "davon Sollzins*", "davon Darlehenszins*", "dont intérêts",
                                "dont intérêt", "di cui interessi"},
                               {"Zinssatz", "Marge"}};
    return findFirst({range}, wanted);
}

/// The day a posting's row begins with.
std::optional<taxcore::Date> dayOf(const FoundAmount& posting) {
    const Row& row = posting.rowOf();
    return row.words.empty() ? std::nullopt : parseDay(row.words.front().text);
}

/// Whether a row says that it is of a part of the year: "Zins 1. Halbjahr".
bool isOfPart(const FoundAmount& posting) {
    static const Labels parts{"*Halbjahr*", "*semester", "Semester*",  "*Quartal*",
                              "semestr*",   "trimestr*", "half-year*", "quarter*"};
    return findLabel(posting.rowOf(), parts, posting.page->isRecognised).has_value();
}

/// What an account's list credits or takes off on several days of its year, or for parts of it, as
/// interest by quarters is: all of them together.
void sumPostings(const RowRange& range, Figure figure, std::optional<FoundAmount>& found) {
    const bool areDated = found && dayOf(*found);
    if (!found || (!areDated && !isOfPart(*found) && figure != Figure::withholding)) {
        return;
    }
    const auto all = findAmounts({range}, wantedOf(figure), Digits::firm);
    Decimal sum;
    const FoundAmount* before = nullptr;
    for (const FoundAmount& one : all) {
        const bool isAligned =
            std::abs(one.amount.place.right - found->amount.place.right) <= alignment(*range.page);
        const auto day = dayOf(one);
        const auto last = before != nullptr ? dayOf(*before) : std::nullopt;
        const bool isNext =
            !areDated || (day && (!last || (*last < *day && last->year() == day->year())));
        const bool isPart = areDated || figure == Figure::withholding || isOfPart(one);
        if (!isNext || !isPart || !isAligned || (before != nullptr && before->row == one.row)) {
            return; // a balance, or the same once more
        }
        before = &one;
        sum = sum + one.value();
    }
    if (all.size() >= 2) {
        found->amount.amount.value = sum;
    }
}

/// The tax goes with the interest: both are of the whole year, or neither.
void sumAllPostings(const RowRange& range, Figures& figures) {
    sumPostings(range, Figure::debtInterest, at(figures, Figure::debtInterest));
    auto interest = at(figures, Figure::interest);
    auto tax = at(figures, Figure::withholding);
    sumPostings(range, Figure::interest, interest);
    if (!interest || interest->value() == at(figures, Figure::interest)->value()) {
        return;
    }
    sumPostings(range, Figure::withholding, tax);
    at(figures, Figure::interest) = std::move(interest);
    at(figures, Figure::withholding) = std::move(tax);
}

/// Interest by what it is, which is surer than its label in recognised text: an amount above one of
/// 35 per cent of it, with what remains below.
void findInterestByTax(const RowRange& range, Figures& figures) {
    std::vector<FoundAmount> lasts;
    for (std::size_t at = range.first; at < range.end; ++at) {
        const RowAmount* last = lastOrNewest(*range.page, at);
        if (last != nullptr && last->amount.isFirm()) {
            lasts.push_back({.page = range.page,
                             .row = at,
                             .amount = *last,
                             .label = "Zins",
                             .isAlone = false});
        }
    }
    for (std::size_t i = 0; i + 2 < lasts.size(); ++i) {
        const Decimal gross = lasts[i].value();
        const Decimal tax = lasts[i + 1].value();
        if (gross >= 1 && isWithholdingOf(tax, gross) && gross - tax == lasts[i + 2].value()) {
            const auto put = [&](Figure figure, const FoundAmount& amount) {
                auto& known = figures[static_cast<std::size_t>(figure)];
                if (!known || (range.page->isRecognised && known->value() != amount.value())) {
                    known = amount;
                }
            };
            put(Figure::interest, lasts[i]);
            put(Figure::withholding, lasts[i + 1]);
            put(Figure::netInterest, lasts[i + 2]);
            return;
        }
    }
}

/// Interest by the tax on it alone: the one amount above the tax, or beside it, that it is 35 per
/// cent of, where what the labels told does not fit.
void mendInterestByTax(const RowRange& range, Figures& figures) {
    constexpr std::size_t farthest = 4; // rows above the tax
    const auto& tax = at(figures, Figure::withholding);
    auto& gross = at(figures, Figure::interest);
    if (!tax || tax->value().abs() < 35
        || (gross && isWithholdingOf(tax->value(), gross->value()))) {
        return;
    }
    std::optional<FoundAmount> fitting;
    for (std::size_t row = tax->row; row + farthest >= tax->row && row >= range.first; --row) {
        for (const RowAmount& amount : range.page->rows[row].amounts) {
            if (amount.amount.isFirm() && isWithholdingOf(tax->value(), amount.amount.value)) {
                if (fitting) {
                    return;
                }
                fitting = FoundAmount{.page = range.page,
                                      .row = row,
                                      .amount = amount,
                                      .label = "Zins",
                                      .isAlone = false};
            }
        }
        if (row == 0) {
            break;
        }
    }
    gross = fitting ? std::move(fitting) : std::move(gross);
}

/// Income by labels that tell of the tax: "Bruttoertrag mit Verrechnungssteuer   316.41", each of
/// the two where it is told first. The tax itself stands in another row, if at all.
void findIncomeByTaxedness(const RowRange& range, Figures& figures) {
    for (std::size_t at = range.first; at < range.end; ++at) {
        const PageRows& page = *range.page;
        const RowAmount* last = lastOrNewest(page, at);
        if (last == nullptr || !last->amount.isFirm() || last->first == 0) {
            continue;
        }
        const auto& words = page.rows[at].words;
        const Row label =
            rowOfWords({words.begin(), words.begin() + static_cast<std::ptrdiff_t>(last->first)},
                       page.isRecognised);
        const auto figure = figureOf(label, page.isRecognised);
        const bool isTold = figure == Figure::taxedInterest || figure == Figure::untaxedInterest;
        const auto tax = findLabel(label, wordsFor(Concept::withholding), page.isRecognised);
        if (!isTold || (tax && tax->first == 0)
            || !namesAny(label, {Concept::interest, Concept::gross}, page.isRecognised)
            || namesAny(label, {Concept::total}, page.isRecognised)) {
            continue;
        }
        auto& known = figures[static_cast<std::size_t>(*figure)];
        if (!known) {
            known = FoundAmount{.page = &page,
                                .row = at,
                                .amount = *last,
                                .label = textBetween(page.rows[at], 0, last->first - 1)};
        }
        auto& withheld = figures[static_cast<std::size_t>(Figure::withholding)];
        if (withheld && withheld->row == at) {
            const RowRange below{range.page, at + 1, range.end};
            withheld = findFirst({below}, wantedOf(Figure::withholding));
        }
    }
}

} // namespace

Figures figuresByLabel(const RowRange& range) {
    Figures figures;
    for (std::size_t i = 0; i < labelledFigures; ++i) {
        figures[i] = findFirst({range}, wantedOf(static_cast<Figure>(i)));
    }
    sumAllPostings(range, figures);
    if (auto& balance = figures[static_cast<std::size_t>(Figure::balance)]) {
        followRunningBalance(range, *balance);
    }
    findInterestByTax(range, figures);
    auto& owed = at(figures, Figure::debtInterest);
    if (at(figures, Figure::debt) && !owed && !at(figures, Figure::interest)) {
        owed = interestWithin(range);
    }
    mendInterestByTax(range, figures);
    const auto& gross = at(figures, Figure::interest);
    if (!gross) {
        findIncomeByTaxedness(range, figures);
    }
    // "Solde au 31.12. (sans intérêts)   3'077.45"
    const auto& left = at(figures, Figure::balance);
    auto& earned = at(figures, Figure::interest);
    if (left && earned && areSame(*left, *earned)) {
        earned.reset();
    }
    // What was paid on a debt is no income: "gli interessi da voi pagati".
    const auto& paid = at(figures, Figure::debtInterest);
    if (paid && earned && areSame(*paid, *earned)) {
        earned.reset();
    }
    auto& tax = at(figures, Figure::withholding);
    const auto& income = gross ? gross : at(figures, Figure::taxedInterest);
    const bool fits = income && tax && isWithholdingOf(tax->value(), income->value());
    constexpr std::size_t longest = 7; // words of a label with its amount
    if (income && tax && !fits && (tax->isBelow || tax->rowOf().words.size() > longest)) {
        tax.reset(); // its own row is empty, the amount is of the next one or the limit of the law
    }
    return figures;
}

std::optional<ProposalCheck> movementCheck(const RowRange& range, const FoundAmount& closing) {
    static const Wanted opening{{"Anfangssaldo", "Eröffnungssaldo", "Saldovortrag",
                                 "Saldo per 01.01.*", "Saldo am 01.01*", "Solde initial",
                                 "Solde d'ouverture", "Saldo iniziale", "Saldo di apertura"},
                                {}};
    static const Wanted credits{
        {"Total Gutschriften", "Gutschriften", "Eingänge", "Crédits", "Accrediti"}, {}};
    static const Wanted debits{
        {"Total Belastungen", "Belastungen", "Ausgänge", "Débits", "Addebiti"}, {}};
    const auto first = findFirst({range}, opening);
    const auto in = findFirst({range}, credits);
    const auto out = findFirst({range}, debits);
    if (!first || !in || !out) {
        return std::nullopt;
    }
    const Decimal computed = first->value() + in->value().abs() - out->value().abs();
    const bool holds = computed == closing.value();
    return ProposalCheck{sumText({first->value(), in->value().abs(), -out->value().abs()}, computed)
                             + (holds ? ", Anfangssaldo und Bewegungen zusammen"
                                      : ", als Schlusssaldo steht aber " + shown(closing.value())),
                         holds};
}

std::vector<ProposalCheck> interestChecks(const Figures& figures) {
    std::vector<ProposalCheck> checks;
    const auto& gross = at(figures, Figure::interest);
    const auto& tax = at(figures, Figure::withholding);
    const auto& net = at(figures, Figure::netInterest);
    if (gross && tax && !tax->value().isZero()) {
        const Decimal computed = withholdingOn(gross->value()).roundPlain(2);
        const bool holds = isWithholdingOf(tax->value(), gross->value());
        checks.push_back({withheldText(gross->value(), computed)
                              + (holds ? "" : "; gedruckt steht aber " + shown(tax->value().abs())),
                          holds});
    }
    if (gross && net) {
        const Decimal withheld = tax ? tax->value().abs() : Decimal();
        const Decimal computed = gross->value() - withheld;
        const bool holds = computed == net->value();
        const std::string sum = withheld.isZero() ? "Brutto " + shown(computed) + " ohne Abzug"
                                                  : sumText({gross->value(), -withheld}, computed);
        checks.push_back(
            {sum + (holds ? ", was netto bleibt" : ", netto steht aber " + shown(net->value())),
             holds});
    }
    return checks;
}

} // namespace fiscarel
