#include "TaxCore/base/Rounding.h"
#include "TaxCore/model/Household.h"
#include "TaxCore/stgallen/Calculation.h"
#include "TaxCore/stgallen/DeductionRules.h"
#include "TaxCore/stgallen/Explanations.h"
#include "TaxCore/stgallen/Law.h"
#include "TaxCore/stgallen/Notices.h"

namespace taxcore {

namespace {

/// How the net salary of one certificate comes about.
template <class Draft>
void explainNetSalary(Draft& why, const SalaryCertificate& certificate, int person, int index) {
    const auto box = [&](std::string_view text, const Decimal& amount, std::string_view field) {
        if (!amount.isZero()) {
            why.input(text, amount, FieldPath("income", "salaries", field).of(person).at(index));
        }
    };
    if (certificate.netSalaryOverride) {
        box("Nettolohn wie eingetragen (Ziffer 11)", *certificate.netSalaryOverride,
            "netSalaryOverride");
        return;
    }
    box("Bruttolohn total (Ziffer 8)", certificate.grossSalary, "grossSalary");
    box("− Beiträge AHV/IV/EO/ALV/NBUV (Ziffer 9)", certificate.socialContributions,
        "socialContributions");
    box("− BVG ordentliche Beiträge (Ziffer 10.1)", certificate.pensionContributions,
        "pensionContributions");
    box("− BVG Beiträge für den Einkauf (Ziffer 10.2)", certificate.pensionBuyIn, "pensionBuyIn");
    why.step("= Nettolohn (Ziffer 11)", both(certificate.netSalary()));
}

template <class R>
void addSalaries(Calculation<R>& c, const Adult& adult) {
    auto main = c.lines.line({"haupterwerb", adult.number, "1.1", "Haupterwerb (Nettolohn)"});
    auto side = c.lines.line({"nebenerwerb", adult.number, "1.2", "Nebenerwerb (Nettolohn)"});
    if constexpr (R::enabled) {
        main.why.law(law::employment, "Einkünfte aus unselbständiger Erwerbstätigkeit");
        side.why.law(law::employment, "Einkünfte aus unselbständiger Erwerbstätigkeit");
        forEachItem(adult.income.salaries, [&](const SalaryCertificate& certificate, int index) {
            auto& line = certificate.isMainEmployment ? main : side;
            explainNetSalary(line.why, certificate, adult.number, index);
        });
    }
    main.income(both(adult.employment.mainNet), c.nameOf(adult));
    side.income(both(adult.employment.sideNet), c.nameOf(adult));
}

template <class R>
void addPersonalEarnings(Calculation<R>& c, const Adult& adult) {
    const int n = adult.number;
    addSalaries(c, adult);
    c.plainIncome({"selbstaendig", n, "2.1", "Selbständige Erwerbstätigkeit"}, law::selfEmployment,
                  adult.income.selfEmployment, adult.incomePath("selfEmployment"), c.nameOf(adult));
    c.plainIncome({"sitzungsgelder", n, "1.3", "Sitzungsgelder, VR-Honorare"}, law::boardFees,
                  adult.income.boardFees, adult.incomePath("boardFees"), c.nameOf(adult));
    c.plainIncome({"gesellschaften", n, "2.3", "Kollektiv-/Kommanditgesellschaften"},
                  law::partnership, adult.income.partnership, adult.incomePath("partnership"),
                  c.nameOf(adult));
}

/// StG SG Art. 35 Abs. 1, DBG Art. 22
template <class R>
void addPensions(Calculation<R>& c, const Adult& adult) {
    auto line =
        c.lines.line({"renten", adult.number, "3.2", "Renten / Pensionen (steuerbarer Teil)"});
    line.why.law(law::pensions, "Renten und Pensionen");
    line.income(both(taxablePensions(line.why, adult.number, adult.income)), c.nameOf(adult));
}

/// StG SG Art. 36, DBG Art. 23 Bst. a
template <class R>
void addReplacementIncome(Calculation<R>& c, const Adult& adult) {
    auto line = c.lines.line({"taggelder", adult.number, "3.3", "Erwerbsausfall / Taggelder"});
    line.why.law(law::replacementIncome, "Ersatzeinkommen");
    line.why.input("Taggelder", adult.income.dailyAllowances, adult.incomePath("dailyAllowances"));
    line.why.input("Arbeitslosentaggelder", adult.income.unemployment,
                   adult.incomePath("unemployment"));
    line.income(both(adult.income.dailyAllowances + adult.income.unemployment), c.nameOf(adult));
}

template <class R>
void addReplacementAndPensions(Calculation<R>& c) {
    for (const Adult& adult : c.adults) {
        c.plainIncome({"ahv", adult.number, "3.1", "AHV/IV-Renten"}, law::pensions,
                      adult.income.ahvPension, adult.incomePath("ahvPension"), c.nameOf(adult));
        addPensions(c, adult);
        addReplacementIncome(c, adult);
    }
    c.plainIncome({"familienzulagen", 0, "3.4", "Direkt ausbezahlte Familienzulagen"},
                  law::familyAllowances, c.input.householdIncome.familyAllowancesDirect,
                  FieldPath("householdIncome", "familyAllowancesDirect"));
}

/// Income of the securities register; holdings of at least 10 % apart, since 30 % of their yield is
/// not taxed. StG SG Art. 33 Abs. 1, DBG Art. 20 Abs. 1 und 1bis
template <class R>
void addSecuritiesIncome(Calculation<R>& c) {
    auto ordinary =
        c.lines.line({"wertschriftenertrag", 0, "4.1", "Erträge aus Wertschriften und Guthaben"});
    auto qualified = c.lines.line(
        {"beteiligungsertrag", 0, "4.2", "Erträge aus Beteiligungen ab 10% (Privatvermögen)"});
    ordinary.why.law(law::securitiesIncome, "Ertrag aus beweglichem Vermögen");
    qualified.why.law(law::participations, "Ertrag aus qualifizierten Beteiligungen");
    Decimal ordinaryIncome;
    Decimal participations = c.input.householdIncome.qualifiedParticipationIncome;
    qualified.why.input("Eingetragener Beteiligungsertrag", participations,
                        FieldPath("householdIncome", "qualifiedParticipationIncome"));
    forEachItem(c.input.securities, [&](const SecurityEntry& entry, int index) {
        if (!isPrivateAsset(entry, c.input) || grossIncome(entry).isZero()) {
            return;
        }
        const bool participation = entry.code == AssetCode::privateParticipation;
        explainGrossIncome((participation ? qualified : ordinary).why, entry, index);
        (participation ? participations : ordinaryIncome) += grossIncome(entry);
    });
    ordinary.income(both(ordinaryIncome));
    qualified.income(both(participations));

    auto relief = c.lines.line(
        {"teilbesteuerung", 0, "4.3", "Abzug Teilbesteuerung Beteiligungserträge (30%)"});
    const Decimal untaxed = participations * Decimal(30) / 100;
    relief.why.law(law::participations, "30 % des Ertrags aus Beteiligungen ab 10 % sind frei");
    relief.why.line("beteiligungsertrag", 0, "Ertrag aus Beteiligungen", both(participations));
    relief.why.step("davon 30 %", both(untaxed));
    relief.deduction(both(untaxed));
    c.investmentYield = ordinaryIncome + participations - untaxed;
}

/// Withholding tax that the household gets back. VStG Art. 13 Abs. 1 Bst. a
template <class R>
void addWithholdingTax(Calculation<R>& c) {
    auto why = c.lines.recorder().draft(Concerns::federal);
    const Decimal subject = sumOf(
        why, "Bruttoertrag mit Verrechnungssteuer", c.input.securities,
        &SecurityEntry::incomeWithWithholding, FieldPath("securities", "incomeWithWithholding"),
        [&](const SecurityEntry& entry) {
            return belongsToHousehold(entry, c.input) && !entry.incomeWithWithholding.isZero();
        });
    const Decimal& rate = c.rules.cantonalExtra.verrechnungssteuerSatz;
    c.result.withholdingIncomeA = subject;
    c.result.withholdingTaxRefund = toRappen(subject * rate);
    why.rule(law::withholdingTax, "Satz der Verrechnungssteuer", "verrechnungssteuerSatz",
             both(rate), Unit::share);
    why.rounding("Auf ganze Rappen");
    c.lines.recorder().keep("withholdingTaxRefund", "Rückerstattung der Verrechnungssteuer",
                            std::move(why), both(c.result.withholdingTaxRefund));
}

template <class R>
void addOtherIncome(Calculation<R>& c) {
    const HouseholdIncome& income = c.input.householdIncome;
    const auto path = [](std::string_view field) { return FieldPath("householdIncome", field); };
    c.plainIncome({"unterhaltSelbst", 0, "6.1", "Unterhaltsbeiträge für sich"},
                  law::maintenanceReceived, income.alimonyReceivedSelf,
                  path("alimonyReceivedSelf"));
    c.plainIncome({"unterhaltKinder", 0, "6.2", "Unterhaltsbeiträge für minderjährige Kinder"},
                  law::maintenanceReceived, income.alimonyReceivedChildren,
                  path("alimonyReceivedChildren"));
    c.plainIncome({"erbschaftsertrag", 0, "6.3", "Ertrag aus unverteilten Erbschaften"},
                  law::undividedEstates, income.undividedEstates, path("undividedEstates"));
    c.plainIncome({"uebrigeEinkuenfte", 0, "6.4", "Übrige Einkünfte"}, law::otherIncome,
                  income.otherIncome, path("otherIncome"));

    auto settled = c.lines.line(
        {"vereinfacht", 0, "8", "Vereinfacht abgerechnete Einkünfte (nur Information)"});
    settled.why.law(law::simplifiedSettlement,
                    "Bereits an der Quelle abgerechnet, zählt nicht mit");
    settled.why.input("Eingetragener Betrag", income.simplifiedSettlementIncome,
                      path("simplifiedSettlementIncome"));
    settled.info(both(income.simplifiedSettlementIncome));
}

} // namespace

template <class R>
void addIncome(Calculation<R>& c) {
    c.lines.section({"Einkommensberechnung", 2});
    for (const Adult& adult : c.adults) {
        addPersonalEarnings(c, adult);
    }
    addReplacementAndPensions(c);
    addSecuritiesIncome(c);
    addWithholdingTax(c);
    addRealEstateIncome(c);
    addOtherIncome(c);

    auto total = c.lines.line({"totalEinkuenfte", 0, "7", "Total der Einkünfte"});
    c.lines.explainSum(total);
    c.totalIncome = c.lines.sum();
    total.subtotal(c.totalIncome);
}

template void addIncome(Calculation<NoRecorder>&);
template void addIncome(Calculation<DerivationRecorder>&);

} // namespace taxcore
