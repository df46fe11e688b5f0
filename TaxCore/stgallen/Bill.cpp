#include "TaxCore/stgallen/Bill.h"

#include "TaxCore/base/Rounding.h"
#include "TaxCore/stgallen/Household.h"
#include "TaxCore/stgallen/Law.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace taxcore {

namespace {

/// Percent of the simple tax, by confession. StG SG Art. 3 Abs. 1
Decimal churchRateOf(Confession confession, const Parish* parish, const MunicipalityList& list) {
    switch (confession) {
    case Confession::roemischKatholisch:
        return parish != nullptr ? parish->kath : Decimal(0);
    case Confession::evangelischReformiert:
        return parish != nullptr ? parish->evang : Decimal(0);
    case Confession::christkatholisch:
        return list.christkatholisch;
    case Confession::keine:
    case Confession::andere:
        break;
    }
    return 0;
}

Decimal multiplied(const Decimal& simpleTax, const Decimal& percent) {
    return toFiveRappen(simpleTax * percent / 100);
}

/// One figure of the bill with its derivation.
template <class Recorder, class Explain>
Decimal figure(Recorder& recorder, std::string_view code, std::string_view label,
               const Decimal& amount, const Explain& explain) {
    if constexpr (Recorder::enabled) {
        auto why = recorder.draft();
        explain(why);
        recorder.keep(std::string(code), std::string(label), std::move(why), both(amount));
    }
    return amount;
}

/// A simple tax times one of the three multipliers.
template <class Recorder>
Decimal share(Recorder& recorder, std::string_view code, std::string_view label, const Law& law,
              std::pair<std::string_view, Decimal> simple, const Decimal& percent) {
    return figure(recorder, code, label, multiplied(simple.second, percent), [&](auto& why) {
        why.line(simple.first, 0, "Einfache Steuer", both(simple.second));
        why.law(law, label);
        why.step("Steuerfuss in Prozent", both(percent));
        why.rounding("auf 5 Rappen");
    });
}

template <class Recorder>
void addSimpleTaxes(TaxBill& bill, const RuleBook& rules, Recorder& recorder) {
    bill.simpleIncomeTax = figure(
        recorder, "simpleIncomeTax", "Einfache Steuer vom Einkommen",
        Tariffs::sgSimpleIncomeTax(bill.taxableIncomeCanton, bill.kind, rules.sgTariff),
        [&](auto& why) {
            why.line("steuerbaresEinkommen", 0, "Steuerbares Einkommen",
                     both(bill.taxableIncomeCanton));
            why.law(law::incomeTariff, bill.kind == TariffKind::joint
                                           ? "Tarif für Verheiratete und Alleinerziehende"
                                           : "Tarif für Alleinstehende");
            why.rounding("Einkommen auf ganze 100 Franken abgerundet");
        });
    bill.simpleIncomeRatePercent =
        Tariffs::sgSimpleIncomeRate(bill.taxableIncomeCanton, bill.kind, rules.sgTariff) * 100;
    const Decimal& promille = rules.municipalities.vermoegenEinfacheSteuerPromille;
    bill.simpleWealthTax =
        figure(recorder, "simpleWealthTax", "Einfache Steuer vom Vermögen",
               Tariffs::sgSimpleWealthTax(bill.taxableWealth, promille), [&](auto& why) {
                   why.line("steuerbaresVermoegen", 0, "Steuerbares Vermögen",
                            both(bill.taxableWealth));
                   why.rule(law::wealthTax, "Satz in Promille", "vermoegenEinfacheSteuerPromille",
                            both(promille));
                   why.rounding("auf ganze Rappen");
               });
}

template <class Recorder>
void addCantonalTaxes(TaxBill& bill, Recorder& recorder) {
    const std::pair<std::string_view, Decimal> income{"simpleIncomeTax", bill.simpleIncomeTax};
    const std::pair<std::string_view, Decimal> wealth{"simpleWealthTax", bill.simpleWealthTax};
    bill.cantonIncome = share(recorder, "cantonIncome", "Kantonssteuer vom Einkommen",
                              law::cantonMultiplier, income, bill.cantonRate);
    bill.municipalityIncome =
        share(recorder, "municipalityIncome", "Gemeindesteuer vom Einkommen",
              law::municipalityMultiplier, income, bill.municipalityRate);
    bill.churchIncome = share(recorder, "churchIncome", "Kirchensteuer vom Einkommen",
                              law::churchMultiplier, income, bill.churchRate);
    bill.cantonWealth = share(recorder, "cantonWealth", "Kantonssteuer vom Vermögen",
                              law::cantonMultiplier, wealth, bill.cantonRate);
    bill.municipalityWealth =
        share(recorder, "municipalityWealth", "Gemeindesteuer vom Vermögen",
              law::municipalityMultiplier, wealth, bill.municipalityRate);
    bill.churchWealth = share(recorder, "churchWealth", "Kirchensteuer vom Vermögen",
                              law::churchMultiplier, wealth, bill.churchRate);
}

template <class Recorder>
void addFederalTax(TaxBill& bill, const RuleBook& rules, int children, Recorder& recorder) {
    const FederalTariff& tariff = rules.federalRules.tarif;
    bill.federalBeforeChildReduction =
        figure(recorder, "federalBeforeChildReduction", "Direkte Bundessteuer nach Tarif",
               Tariffs::federalIncomeTax(bill.taxableIncomeFederal, bill.kind, tariff),
               [&](auto& why) {
                   why.line("steuerbaresEinkommen", 0, "Steuerbares Einkommen Bund",
                            both(bill.taxableIncomeFederal));
                   why.law(law::incomeTariff, bill.kind == TariffKind::joint
                                                  ? "Tarif für Verheiratete und Alleinerziehende"
                                                  : "Tarif für Alleinstehende");
                   why.rounding("Einkommen auf ganze 100 Franken, Steuer auf 5 Rappen abgerundet");
               });
    bill.federalChildReduction =
        figure(recorder, "federalChildReduction", "Abzug vom Steuerbetrag pro Kind",
               tariff.abzugProKind * children, [&](auto& why) {
                   why.rule(law::childReduction, "Abzug pro Kind", "tarif.abzugProKind",
                            both(tariff.abzugProKind));
                   why.step("Kinder mit Abzug", both(Decimal(children)));
               });
    bill.federal = figure(
        recorder, "federal", "Direkte Bundessteuer",
        Tariffs::federalIncomeTaxNet(bill.taxableIncomeFederal, bill.kind, children, tariff),
        [&](auto& why) {
            why.line("federalBeforeChildReduction", 0, "Steuer nach Tarif",
                     both(bill.federalBeforeChildReduction));
            why.line("federalChildReduction", 0, "− Abzug für Kinder",
                     both(bill.federalChildReduction));
            why.rule(law::federalMinimum, "Wird nicht erhoben unter", "tarif.minimum",
                     both(tariff.minimum));
        });
}

/// The sums that head the bill.
template <class Recorder>
void explainTotals(const TaxBill& bill, Recorder& recorder) {
    if constexpr (Recorder::enabled) {
        const auto sum = [&](std::string_view code, std::string_view label, const Decimal& total,
                             std::initializer_list<std::pair<std::string_view, Decimal>> parts) {
            figure(recorder, code, label, total, [&](auto& why) {
                for (const auto& [part, amount] : parts) {
                    why.line(part, 0, "", both(amount));
                }
            });
        };
        sum("cantonTotal", "Kantonssteuer", bill.cantonTotal(),
            {{"cantonIncome", bill.cantonIncome}, {"cantonWealth", bill.cantonWealth}});
        sum("municipalityTotal", "Gemeindesteuer", bill.municipalityTotal(),
            {{"municipalityIncome", bill.municipalityIncome},
             {"municipalityWealth", bill.municipalityWealth}});
        sum("churchTotal", "Kirchensteuer", bill.churchTotal(),
            {{"churchIncome", bill.churchIncome}, {"churchWealth", bill.churchWealth}});
        sum("cantonAndMunicipalityTotal", "Kantons-, Gemeinde- und Kirchensteuer",
            bill.cantonAndMunicipalityTotal(),
            {{"cantonTotal", bill.cantonTotal()},
             {"municipalityTotal", bill.municipalityTotal()},
             {"churchTotal", bill.churchTotal()}});
        sum("total", "Total der Steuern", bill.total(),
            {{"cantonAndMunicipalityTotal", bill.cantonAndMunicipalityTotal()},
             {"federal", bill.federal}});
    }
}

} // namespace

Decimal churchRate(const TaxCase& taxCase, const Parish* parish, const MunicipalityList& list) {
    const Decimal first = churchRateOf(taxCase.person1.confession, parish, list);
    if (!taxCase.isJoint()) {
        return first;
    }
    return (first + churchRateOf(taxCase.person2.confession, parish, list)) / 2;
}

template <class Recorder>
TaxBill makeBill(const RuleBook& rules, const BillBasis& basis, Recorder& recorder) {
    TaxBill bill;
    bill.kind = tariffOf(basis.taxCase);
    bill.taxableIncomeCanton = basis.taxableIncomeCanton;
    bill.taxableIncomeFederal = basis.taxableIncomeFederal;
    bill.taxableWealth = basis.taxableWealth;
    addSimpleTaxes(bill, rules, recorder);
    bill.cantonRate = rules.municipalities.kantonSteuerfuss;
    bill.municipalityRate = basis.municipality != nullptr ? basis.municipality->steuerfuss : 0;
    bill.churchRate = churchRate(basis.taxCase, basis.parish, rules.municipalities);
    addCantonalTaxes(bill, recorder);
    addFederalTax(bill, rules, deductibleChildCount(basis.taxCase), recorder);
    explainTotals(bill, recorder);
    return bill;
}

template <class Recorder>
std::optional<CapitalPaymentTax> taxCapitalPayments(const RuleBook& rules, const TaxCase& taxCase,
                                                    const TaxBill& bill, Recorder& recorder) {
    if (taxCase.capitalPayments.empty()) {
        return std::nullopt;
    }
    Decimal amount;
    for (const CapitalPayment& payment : taxCase.capitalPayments) {
        amount += payment.amount;
    }
    const auto& rates = rules.cantonalExtra.kapitalleistung;
    const bool joint = bill.kind == TariffKind::joint;
    const Decimal& rate = joint ? rates.satzGemeinsam : rates.satzAlleinstehend;
    const Decimal simple = amount * rate;
    const FederalRules& federalRules = rules.federalRules;

    CapitalPaymentTax tax{.amount = amount, .canton = {}, .federal = {}};
    tax.canton = figure(
        recorder, "capitalPaymentTax.canton", "Kantons-, Gemeinde- und Kirchensteuer",
        multiplied(simple, bill.cantonRate) + multiplied(simple, bill.municipalityRate)
            + multiplied(simple, bill.churchRate),
        [&](auto& why) {
            why.line("kapitalleistungen", 0, "Kapitalleistungen des Jahres", both(amount));
            why.rule(law::capitalPayments, "Satz der einfachen Steuer",
                     joint ? "kapitalleistung.satzGemeinsam" : "kapitalleistung.satzAlleinstehend",
                     both(rate));
            why.step("Steuerfüsse von Kanton, Gemeinde und Kirche in Prozent",
                     both(bill.totalRate()));
            why.rounding("je Steuerfuss auf 5 Rappen");
        });
    const Decimal federal = cutToFiveRappen(
        Tariffs::federalIncomeTax(amount, bill.kind, federalRules.tarif)
        * federalRules.kapitalleistungAnteil);
    tax.federal = figure(
        recorder, "capitalPaymentTax.federal", "Direkte Bundessteuer",
        federal < federalRules.tarif.minimum ? Decimal(0) : federal, [&](auto& why) {
            why.line("kapitalleistungen", 0, "Kapitalleistungen des Jahres", both(amount));
            why.rule(law::capitalPayments, "Anteil am ordentlichen Tarif", "kapitalleistungAnteil",
                     both(federalRules.kapitalleistungAnteil));
            why.rounding("auf 5 Rappen abgerundet");
            why.rule(law::federalMinimum, "Wird nicht erhoben unter", "tarif.minimum",
                     both(federalRules.tarif.minimum));
        });
    return tax;
}

template TaxBill makeBill(const RuleBook&, const BillBasis&, NoRecorder&);
template TaxBill makeBill(const RuleBook&, const BillBasis&, DerivationRecorder&);
template std::optional<CapitalPaymentTax> taxCapitalPayments(const RuleBook&, const TaxCase&,
                                                             const TaxBill&, NoRecorder&);
template std::optional<CapitalPaymentTax> taxCapitalPayments(const RuleBook&, const TaxCase&,
                                                             const TaxBill&, DerivationRecorder&);

} // namespace taxcore
