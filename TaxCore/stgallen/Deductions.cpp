#include "TaxCore/base/MoneyFormat.h"
#include "TaxCore/base/Text.h"
#include "TaxCore/model/Household.h"
#include "TaxCore/stgallen/Calculation.h"
#include "TaxCore/stgallen/DeductionRules.h"
#include "TaxCore/stgallen/Law.h"
#include "TaxCore/stgallen/Notices.h"

namespace taxcore {

namespace {

/// Private interest counts up to the yield of the assets plus an allowance.
/// StG SG Art. 45 Abs. 1 Bst. a, DBG Art. 33 Abs. 1 Bst. a
template <class R>
void addDebtInterest(Calculation<R>& c) {
    auto line = c.lines.line({"schuldzinsen", 0, "11", "Schuldzinsen"});
    const Decimal interest =
        sumOf(line.why, "Schuldzinsen", c.input.debts, &Debt::interest,
              FieldPath("debts", "interest"), [](const Debt& debt) { return !debt.isBusiness; });
    const Amounts allowance = c.rule(&DeductionParams::privateSchuldzinsenZuschlag);
    const Amounts limit = both(c.investmentYield) + allowance;
    if constexpr (R::enabled) {
        for (const std::string_view code : {"wertschriftenertrag", "beteiligungsertrag",
                                            "teilbesteuerung", "liegenschaftsertrag"}) {
            c.quote(line.why, code);
        }
    }
    line.why.step("Steuerbarer Ertrag aus Wertschriften, Beteiligungen und Liegenschaften",
                  both(c.investmentYield));
    line.why.rule(law::debtInterest, "Zuschlag", "privateSchuldzinsenZuschlag", allowance);
    line.why.cap("Private Schuldzinsen höchstens", limit);
    line.deduction(smaller(both(interest), limit));
    if (interest > limit.canton || interest > limit.federal) {
        c.notify(notices::debtInterestLimit(std::min(interest, limit.canton), allowance.canton));
    }
}

template <class R>
void addMaintenanceAndAnnuities(Calculation<R>& c) {
    const HouseholdDeductions& d = c.input.householdDeductions;
    const auto path = [](std::string_view field) {
        return FieldPath("householdDeductions", field);
    };
    c.plainDeduction({"unterhaltPartner", 0, "12.1", "Unterhaltsbeiträge an Geschiedene/Getrennte"},
                     law::maintenancePaid, d.alimonyPaidPartner, path("alimonyPaidPartner"));
    c.plainDeduction(
        {"unterhaltBezahltKinder", 0, "12.2", "Unterhaltsbeiträge für minderjährige Kinder"},
        law::maintenancePaid, d.alimonyPaidChildren, path("alimonyPaidChildren"));
    c.plainDeduction({"rentenleistungen", 0, "12.3", "Rentenleistungen"}, law::annuities,
                     d.annuityPayments, path("annuityPayments"));
}

/// StG SG Art. 44, DBG Art. 32 Abs. 1
template <class R>
void addAssetManagement(Calculation<R>& c) {
    auto line = c.lines.line({"verwaltungskosten", 0, "16.1", "Verwaltungskosten Wertschriften"});
    if (const auto& actual = c.input.householdDeductions.actualAssetManagementCosts) {
        line.why.law(law::assetManagement, "Tatsächliche Kosten statt der Pauschale");
        line.why.input("Verwaltungskosten", *actual,
                       FieldPath("householdDeductions", "actualAssetManagementCosts"));
        line.deduction(both(*actual));
        return;
    }
    const Decimal managed =
        sumOf(line.why, "Steuerwert, fremdverwaltet", c.input.securities, &SecurityEntry::taxValue,
              FieldPath("securities", "taxValue"), [&](const SecurityEntry& entry) {
                  return entry.managedByThirdParty && isPrivateAsset(entry, c.input);
              });
    line.why.step("Steuerwert der fremdverwalteten Wertschriften", both(managed));
    line.why.rule(law::assetManagement, "Pauschale", "verwaltungskostenPromille",
                  c.rule(&DeductionParams::verwaltungskostenPromille), Unit::perMille);
    line.why.rule(law::assetManagement, "Pauschale höchstens", "verwaltungskostenMax",
                  c.rule(&DeductionParams::verwaltungskostenMax));
    line.deduction(
        each([&](const DeductionParams* p) { return assetManagementFlatRate(managed, *p); },
             c.params),
        "Pauschale " + MoneyFormat::number(c.params.canton->verwaltungskostenPromille)
            + "‰ des fremdverwalteten Wertschriftenvermögens");
}

/// One child's share of the childcare costs, or why there is none.
template <class R>
void explainChildcare(typename R::Draft& why, const Calculation<R>& c, const Child& child,
                      int index, const Amounts& amount) {
    if (child.childcareCosts.isZero()) {
        return;
    }
    const auto path = [&](std::string_view field) {
        return FieldPath("children", field).at(index);
    };
    why.input("Betreuungskosten", child.childcareCosts, path("childcareCosts"));
    if (child.childcareDaysWithMealsIncluded != 0) {
        why.input("Tage mit inbegriffenem Essen", child.childcareDaysWithMealsIncluded,
                  path("childcareDaysWithMealsIncluded"), Unit::number);
    }
    if (!isBornBy(child, c.input.year)) {
        why.fact("Das Kind ist erst nach dem Steuerjahr geboren.", path("birthDate"));
    } else if (!isWithinChildcareAge(child, c.input.year, *c.params.canton)
               || !isWithinChildcareAge(child, c.input.year, *c.params.federal)) {
        why.fact("Das Kind hat die Altersgrenze vor dem Steuerjahr erreicht.", path("birthDate"));
    }
    why.step("Abzug für dieses Kind", amount);
}

/// StG SG Art. 45 Abs. 1 Bst. h, DBG Art. 33 Abs. 3
template <class R>
void addChildcare(Calculation<R>& c) {
    auto line = c.lines.line(
        {"kinderbetreuung", 0, "16.2", "Kinderbetreuungskosten bei Drittbetreuung", "Formular 10"});
    line.why.rule(law::childcare, "Altersgrenze am 1. Januar", "kinderbetreuungAltersgrenze",
                  c.byRule([](const DeductionParams& p) { return p.kinderbetreuungAltersgrenze; }),
                  Unit::number);
    line.why.rule(law::childcare, "Kürzung pro Tag mit Essen",
                  "kinderbetreuungVerpflegungKuerzungProTag",
                  c.rule(&DeductionParams::kinderbetreuungVerpflegungKuerzungProTag));
    line.why.rule(law::childcare, "Höchstbetrag pro Kind", "kinderbetreuungMax",
                  c.rule(&DeductionParams::kinderbetreuungMax));
    Amounts total;
    forEachItem(c.input.children, [&](const Child& child, int index) {
        const Amounts amount =
            c.byRule([&](const DeductionParams& p) { return childcare(child, c.input.year, p); });
        if constexpr (R::enabled) {
            explainChildcare(line.why, c, child, index, amount);
        }
        total += amount;
    });
    line.deduction(total);
}

/// DBG Art. 33 Abs. 1 Bst. j
template <class R>
void addFurtherEducation(Calculation<R>& c, const Adult& adult) {
    const PersonDeductions& d = adult.deductions;
    auto line = c.lines.line(
        {"weiterbildung", adult.number, "16.4", "Berufsorientierte Aus-/Weiterbildung Person "});
    line.why.input("Aus- und Weiterbildungskosten", d.furtherEducation,
                   adult.deductionPath("furtherEducation"));
    if constexpr (R::enabled) {
        const auto flat =
            each([&](const DeductionParams* p) { return usesFurtherEducationFlatRate(d, *p); },
                 c.params);
        if (flat.canton || flat.federal) {
            line.why.rule(law::furtherEducation, "Pauschale statt der Kosten",
                          "weiterbildungPauschal", c.rule(&DeductionParams::weiterbildungPauschal),
                          Unit::francs, concerned(flat));
        }
        if (!flat.canton || !flat.federal) {
            line.why.rule(law::furtherEducation, "Kosten höchstens", "weiterbildungMax",
                          c.rule(&DeductionParams::weiterbildungMax), Unit::francs,
                          concerned({!flat.canton, !flat.federal}));
        }
    }
    line.deduction(c.byRule([&](const DeductionParams& p) { return furtherEducation(d, p); }),
                   c.nameOf(adult));
}

/// DBG Art. 33 Abs. 1 Bst. i
template <class R>
void addPartyGifts(Calculation<R>& c) {
    auto line = c.lines.line({"parteispenden", 0, "16.3", "Parteispenden", "Formular 5"});
    const Decimal gifts =
        sumOf(line.why, "Parteispende", c.input.householdDeductions.donations, &Donation::amount,
              FieldPath("householdDeductions", "donations", "amount"),
              [](const Donation& gift) { return gift.isPoliticalParty; });
    const Amounts maximum =
        c.byRule([&](const DeductionParams& p) { return partyGiftMaximum(c.input, p); });
    line.why.rule(law::partyGifts, "Höchstbetrag",
                  c.input.isJoint() ? "parteispendenGemeinsam" : "parteispendenAlleinstehend",
                  maximum);
    line.deduction(smaller(both(gifts), maximum));
}

template <class R>
void addOtherDeductions(Calculation<R>& c) {
    const HouseholdDeductions& d = c.input.householdDeductions;
    const std::string& described = d.otherDeductionsDescription;
    auto line = c.lines.line({"uebrigeAbzuege", 0, "16.5", {}},
                             isBlank(described) ? "Übrige Abzüge" : described);
    line.why.input("Eingetragener Betrag", d.otherDeductions,
                   FieldPath("householdDeductions", "otherDeductions"));
    line.deduction(both(d.otherDeductions));
}

} // namespace

template <class R>
void addDeductions(Calculation<R>& c) {
    c.lines.section({"Abzüge", 3});
    c.result.work.canton.emplace();
    c.result.work.federal.emplace();
    for (Adult& adult : c.adults) {
        addWorkExpenses(c, adult);
    }
    addDebtInterest(c);
    addMaintenanceAndAnnuities(c);
    for (Adult& adult : c.adults) {
        addPillar3a(c, adult);
    }
    for (Adult& adult : c.adults) {
        addPillar2(c, adult);
    }
    addInsurance(c);
    addRealEstateCosts(c);
    addAssetManagement(c);
    addChildcare(c);
    for (const Adult& adult : c.adults) {
        addFurtherEducation(c, adult);
    }
    addTwoEarners(c);
    addPartyGifts(c);
    addOtherDeductions(c);

    auto total = c.lines.line({"totalAbzuege", 0, "18", "Total der Abzüge"});
    c.lines.explainSum(total);
    const Amounts deductions = Amounts{} - c.lines.sum();
    total.subtotal(deductions);

    auto net = c.lines.line({"nettoeinkommen", 0, "20", "Nettoeinkommen"});
    net.why.line("totalEinkuenfte", 0, "Total der Einkünfte", c.totalIncome);
    net.why.line("totalAbzuege", 0, "− Total der Abzüge", deductions);
    net.why.fact("Nie unter 0.");
    c.netIncome = notBelowZero(c.totalIncome - deductions);
    net.subtotal(c.netIncome);
}

template void addDeductions(Calculation<NoRecorder>&);
template void addDeductions(Calculation<DerivationRecorder>&);

} // namespace taxcore
