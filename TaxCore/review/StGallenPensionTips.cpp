#include "TaxCore/result/Sums.h"
#include "TaxCore/review/PensionLimits.h"
#include "TaxCore/review/TipContext.h"
#include "TaxCore/stgallen/Adult.h"
#include "TaxCore/stgallen/Law.h"

#include <algorithm>

namespace taxcore::review {

namespace {

/// Whether all that a person earns comes from employers in Liechtenstein.
bool worksOnlyInLiechtenstein(const Adult& adult) {
    const PersonIncome& income = adult.income;
    return !income.salaries.empty()
           && std::ranges::all_of(income.salaries, &SalaryCertificate::isLiechtensteinEmployer)
           && income.selfEmployment.isZero() && income.partnership.isZero()
           && income.boardFees.isZero() && income.unemployment.isZero();
}

bool isOfAgeForPillar3a(const Adult& adult, int year) {
    return !isTooYoungForPillar3a(adult, year) && !isTooOldForPillar3a(adult, year);
}

/// The canton grants the deduction to those who work in Liechtenstein up to the tax year 2026, as
/// its tax office announced in November 2025. BVV 3 Art. 7 Abs. 1, StB SG 45 Nr. 9 Ziff. 4
void fillPillar3a(TipContext& c, const Adult& adult) {
    const Decimal maximum = pillar3aMaximumOf(adult, c.stGallen()->cantonal.saeule3a).value_or(0);
    const Decimal missing = maximum - adult.deductions.pillar3a;
    if (missing <= 0 || !isOfAgeForPillar3a(adult, c.taxCase().year)) {
        return;
    }
    c.suggest(
        {.id = adult.id("tipp-3a"),
         .area = "pension",
         .title = "Säule 3a ausschöpfen – " + adult.called(),
         .message = "Bis zum Maximum von " + money(maximum) + " fehlen " + money(missing)
                    + ". Einzahlungen zählen bis zum 31. Dezember."
                    + (worksOnlyInLiechtenstein(adult)
                           ? " Wer in Liechtenstein arbeitet, kann sie nach der Praxis des "
                             "Kantons bis und mit Steuerjahr 2026 abziehen; ab 2027 nur noch mit "
                             "AHV/IV-Pflicht in der Schweiz."
                           : ""),
         .law = cited(law::pillar3a),
         .path = adult.deductionPath("pillar3a"),
         .change =
             [&](TaxCase& changed) { deductionsOf(changed, adult.number).pillar3a = maximum; },
         .inTheYear = true});
}

/// Gaps from 2025 on may be closed from 2026 on, once the year's own maximum is paid. BVV 3 Art. 7a
void buyIntoPillar3a(TipContext& c, const Adult& adult) {
    const Saeule3aParams& params = c.stGallen()->cantonal.saeule3a;
    const auto maximum = pillar3aMaximumOf(adult, params);
    const bool maximumPaid = maximum && adult.deductions.pillar3a >= *maximum;
    if (c.taxCase().year < firstYearOfPillar3aBuyIn || !maximumPaid
        || !isOfAgeForPillar3a(adult, c.taxCase().year)
        || mayHaveDrawnPillar3a(adult, c.taxCase(), c.otherYears())) {
        return;
    }
    // What last year left open where it is known, else the most that may be open.
    Decimal gap = params.mitPensionskasse;
    if (const TaxCase* before = caseOf(c.otherYears(), c.taxCase().year - 1)) {
        gap = std::min(gap, pillar3aGapOf(*before, adult.number).value_or(gap));
    }
    if (adult.deductions.pillar3aBuyIn >= gap) {
        return;
    }
    c.suggest(
        {.id = adult.id("tipp-3a-einkauf"),
         .area = "pension",
         .title = "Lücken der Säule 3a schliessen – " + adult.called(),
         .message = "Wer in einem Jahr ab 2025 mit AHV-pflichtigem Erwerb nicht den vollen "
                    "Beitrag einbezahlt hat, darf ihn innert zehn Jahren nachholen, bis "
                    + money(params.mitPensionskasse)
                    + " pro Jahr und solange keine Altersleistung der Säule 3a bezogen "
                      "wurde. Gerechnet ist mit "
                    + money(gap)
                    + ". Jede Lücke lässt sich nur mit einer einzigen Zahlung schliessen; der "
                      "Einkauf ist bei der Vorsorgestiftung zu beantragen.",
         .law = cited(law::pillar3aBuyIn),
         .path = adult.deductionPath("pillar3aBuyIn"),
         .change =
             [&](TaxCase& changed) { deductionsOf(changed, adult.number).pillar3aBuyIn = gap; },
         .inTheYear = true});
}

/// A tenth of the earnings as an example; the room stands on the fund's certificate. BVG Art. 79b
void buyIntoPensionFund(TipContext& c, const Adult& adult) {
    const taxcore::Adult earner(adult);
    const Decimal example = (earner.earned() / 10).roundDown(-3);
    if (!mayBuyIntoPensionFund(adult, c.taxCase().year) || example <= 0
        || drewPensionCapitalLately(c.taxCase(), c.otherYears())) {
        return;
    }
    c.suggest(
        {.id = adult.id("tipp-pk-einkauf"),
         .area = "pension",
         .title = "Einkauf in die Pensionskasse – " + adult.called(),
         .message = "Ein Einkauf von zum Beispiel " + money(example)
                    + " ist voll abziehbar; wie viel möglich ist, steht auf dem "
                      "Vorsorgeausweis. Grössere Summen auf mehrere Jahre verteilt sparen "
                      "meist mehr. Ein Vorbezug für Wohneigentum ist vorher zurückzuzahlen; danach "
                      "ist der Bezug als Kapital drei Jahre gesperrt.",
         .law = cited(law::pillar2) + "; BVG Art. 79b",
         .path = adult.deductionPath("pensionBuyIn"),
         .change =
             [&](TaxCase& changed) { deductionsOf(changed, adult.number).pensionBuyIn += example; },
         .inTheYear = true});
}

/// What two years like this one would save in all if the largest payment of pillar 2 or 3a fell
/// into the other: all payments in one and none in the other, less the rest in one and the largest
/// in the other, each of the four a full calculation. Other payments come when they come.
void staggerCapitalPayments(TipContext& c) {
    const auto& payments = c.taxCase().capitalPayments;
    const auto size = [](const CapitalPayment& payment) {
        return payment.kind == CapitalPayment::Kind::uebrige ? Decimal(0) : payment.amount;
    };
    const auto largest = std::ranges::max_element(payments, {}, size);
    const auto paid =
        std::ranges::count_if(payments, [](const auto& payment) { return payment.amount > 0; });
    if (paid < 2 || size(*largest) <= 0) {
        return;
    }
    const auto index = largest - payments.begin();
    const Decimal none = c.taxWith([](TaxCase& changed) { changed.capitalPayments.clear(); });
    const Decimal rest = c.taxWith([&](TaxCase& changed) {
        changed.capitalPayments.erase(changed.capitalPayments.begin() + index);
    });
    const Decimal alone =
        c.taxWith([&](TaxCase& changed) { changed.capitalPayments = {*largest}; });
    c.suggest({.id = "tipp-kapital-staffeln",
               .area = "pension",
               .title = "Kapitalleistungen auf zwei Jahre verteilen",
               .message = "Kapitalleistungen desselben Jahres werden zusammengezählt, bei "
                          "Ehegatten gemeinsam. Auf zwei Jahre verteilt wäre die Steuer tiefer. "
                          "Gerechnet ist mit "
                          + money(largest->amount) + " im anderen Jahr.",
               .law = cited(law::capitalPayments),
               .path = FieldPath("capitalPayments", "date").at(static_cast<int>(index)),
               .inTheYear = true},
              Advisor::totalTax(c.base()) + none - rest - alone);
}

} // namespace

void suggestPensionInStGallen(TipContext& c) {
    for (const Adult& adult : c.adults()) {
        fillPillar3a(c, adult);
        buyIntoPillar3a(c, adult);
        buyIntoPensionFund(c, adult);
    }
    staggerCapitalPayments(c);
}

} // namespace taxcore::review
