#include "TaxCore/base/MoneyFormat.h"
#include "TaxCore/stgallen/Calculation.h"
#include "TaxCore/stgallen/DeductionRules.h"
#include "TaxCore/stgallen/Explanations.h"
#include "TaxCore/stgallen/Law.h"

namespace taxcore {

namespace {

/// What a spouse's two-earner deduction is measured on: earned income less the costs of earning it,
/// not below 0. DBG Art. 33 Abs. 2
template <class Draft>
Amounts twoEarnerBase(Draft& why, const Adult& adult) {
    const Amounts base =
        notBelowZero(both(adult.earned()) - adult.workExpenses() - adult.pension());
    explainEarned(why, adult);
    explainEarningCosts(why, adult);
    why.step(adult.number == 1 ? "Erwerb Person 1 nach Berufskosten und Vorsorge"
                               : "Erwerb Person 2 nach Berufskosten und Vorsorge",
             base);
    return base;
}

/// The rules of both sides, each in the kind its law has chosen.
template <class R>
void explainTwoEarnerRules(typename R::Draft& why, const Calculation<R>& c) {
    const auto rule = [&](std::string_view text, std::string_view key,
                          Decimal ZweiverdienerParams::*field, Unit unit, ZweiverdienerArt art) {
        const auto chosen =
            each([&](const DeductionParams* p) { return p->zweiverdiener.art == art; }, c.params);
        if (chosen.canton || chosen.federal) {
            why.rule(law::twoEarners, text, key,
                     c.byRule([&](const DeductionParams& p) { return p.zweiverdiener.*field; }),
                     unit, concerned(chosen));
        }
    };
    using enum ZweiverdienerArt;
    rule("Fester Betrag", "zweiverdiener.betrag", &ZweiverdienerParams::betrag, Unit::francs,
         betrag);
    rule("Anteil am tieferen Einkommen", "zweiverdiener.satz", &ZweiverdienerParams::satz,
         Unit::share, satz);
    rule("mindestens", "zweiverdiener.min", &ZweiverdienerParams::min, Unit::francs, satz);
    rule("höchstens", "zweiverdiener.max", &ZweiverdienerParams::max, Unit::francs, satz);
}

} // namespace

template <class R>
void addWorkExpenses(Calculation<R>& c, Adult& adult) {
    auto line =
        c.lines.line({"berufskosten", adult.number, "10", "Berufskosten Person ", "Formular 4"});
    adult.work = each(
        [&](const DeductionParams* p) {
            return workExpenses(adult.employment, adult.deductions.work, p->berufskosten);
        },
        c.params);
    if constexpr (R::enabled) {
        explainWorkExpenses(line.why, adult.number, adult.employment, adult.deductions.work,
                            c.params, adult.work);
    }
    const auto isCut = [](const WorkExpenseBreakdown& b) { return b.commute < b.commuteUncapped; };
    std::optional<std::string> note = c.nameOf(adult);
    if (isCut(adult.work.canton) || isCut(adult.work.federal)) {
        note = "Begrenzt auf " + MoneyFormat::fr(c.params.canton->berufskosten.fahrkostenMax)
               + " (Kanton). Für die Bundessteuer gilt max. "
               + MoneyFormat::fr(c.params.federal->berufskosten.fahrkostenMax) + ".";
    }
    line.deduction(adult.workExpenses(), std::move(note));
    c.result.work.canton->push_back(adult.work.canton);
    c.result.work.federal->push_back(adult.work.federal);
}

template <class R>
void addTwoEarners(Calculation<R>& c) {
    if (c.adults.size() < 2) {
        return;
    }
    const bool cooperation = c.input.householdDeductions.significantCooperation;
    if (!cooperation && !(c.adults[0].earned() > 0 && c.adults[1].earned() > 0)) {
        return;
    }
    auto line = c.lines.line({"zweiverdiener", 0, "17", "Zweiverdienerabzug"});
    line.why.law(law::twoEarners, "Massgebend ist das tiefere Einkommen");
    const Amounts first = twoEarnerBase(line.why, c.adults[0]);
    const Amounts second = twoEarnerBase(line.why, c.adults[1]);
    Amounts base = smaller(first, second);
    if (cooperation) {
        line.why.fact(
            "Erhebliche Mitarbeit im Betrieb: das gemeinsame Einkommen zählt je zur Hälfte.",
            FieldPath("householdDeductions", "significantCooperation"));
        base = each([](const Decimal& common) { return common / 2; }, first + second);
    }
    line.why.step("Tieferes Einkommen", base);
    if constexpr (R::enabled) {
        explainTwoEarnerRules(line.why, c);
    }
    line.why.cap("Nie mehr als das tiefere Einkommen", base);
    line.deduction(
        each([](const DeductionParams* p,
                const Decimal& lower) { return twoEarnerDeduction(lower, p->zweiverdiener); },
             c.params, base));
}

template void addWorkExpenses(Calculation<NoRecorder>&, Adult&);
template void addWorkExpenses(Calculation<DerivationRecorder>&, Adult&);
template void addTwoEarners(Calculation<NoRecorder>&);
template void addTwoEarners(Calculation<DerivationRecorder>&);

} // namespace taxcore
