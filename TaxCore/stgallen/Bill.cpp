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

/// A figure of the bill that another one builds on.
struct Part {
    std::string_view code;
    std::string_view label;
    Decimal amount;
};

/// A simple tax times one of the three multipliers.
template <class Recorder>
Decimal share(Recorder& recorder, std::string_view code, std::string_view label, const Law& law,
              const Part& simple, const Part& rate) {
    return figure(recorder, code, label, multiplied(simple.amount, rate.amount), [&](auto& why) {
        why.line(simple.code, 0, simple.label, both(simple.amount));
        why.line(rate.code, 0, rate.label, both(rate.amount));
        why.law(law, "Einfache Steuer mal Steuerfuss");
        why.rounding("auf 5 Rappen");
    });
}

template <class Recorder>
void addSimpleTaxes(TaxBill& bill, const RuleBook& rules, Recorder& recorder) {
    bill.simpleIncomeTax =
        figure(recorder, "simpleIncomeTax", "Einfache Steuer vom Einkommen",
               Tariffs::sgSimpleIncomeTax(bill.taxableIncomeCanton, bill.kind, rules.sgTariff),
               [&](auto& why) {
                   why.line("steuerbaresEinkommen", 0, "Steuerbares Einkommen",
                            both(bill.taxableIncomeCanton));
                   why.law(law::incomeTariff, bill.kind == TariffKind::joint
                                                  ? "Tarif für Verheiratete und Alleinerziehende"
                                                  : "Tarif für Alleinstehende");
                   why.rounding("Einkommen auf ganze 100 Franken abgerundet");
               });
    bill.simpleIncomeRatePercent = figure(
        recorder, "simpleIncomeRatePercent", "Einfache Steuer in Prozent des Einkommens",
        Tariffs::sgSimpleIncomeRate(bill.taxableIncomeCanton, bill.kind, rules.sgTariff) * 100,
        [&](auto& why) {
            why.line("simpleIncomeTax", 0, "Einfache Steuer vom Einkommen",
                     both(bill.simpleIncomeTax));
            why.fact("Geteilt durch das auf ganze 100 Franken abgerundete Einkommen.");
        });
    const Decimal& promille = rules.municipalities.vermoegenEinfacheSteuerPromille;
    bill.simpleWealthTax = figure(
        recorder, "simpleWealthTax", "Einfache Steuer vom Vermögen",
        Tariffs::sgSimpleWealthTax(bill.taxableWealth, promille), [&](auto& why) {
            why.line("steuerbaresVermoegen", 0, "Steuerbares Vermögen", both(bill.taxableWealth));
            why.rule(law::wealthTax, "Satz in Promille", "vermoegenEinfacheSteuerPromille",
                     both(promille));
            why.rounding("auf ganze Rappen");
        });
}

template <class Recorder>
void addMultipliers(TaxBill& bill, const RuleBook& rules, const BillBasis& basis,
                    Recorder& recorder) {
    const MunicipalityList& list = rules.municipalities;
    const TaxCase& taxCase = basis.taxCase;
    bill.cantonRate =
        figure(recorder, "cantonRate", "Steuerfuss Kanton", list.kantonSteuerfuss, [&](auto& why) {
            why.rule(law::cantonMultiplier, "Steuerfuss des Kantons in Prozent", "kantonSteuerfuss",
                     both(list.kantonSteuerfuss));
        });
    bill.municipalityRate =
        figure(recorder, "municipalityRate", "Steuerfuss Gemeinde",
               basis.municipality != nullptr ? basis.municipality->steuerfuss : Decimal(0),
               [&](auto& why) {
                   why.fact(basis.municipality != nullptr
                                ? "Gemeinde " + basis.municipality->name
                                : "Die Gemeinde ist nicht in der Liste – ohne Steuerfuss.",
                            {"municipality"});
                   why.law(law::municipalityMultiplier, "Steuerfuss in Prozent");
               });
    bill.churchRate = figure(
        recorder, "churchRate", "Steuerfuss Kirche", churchRate(taxCase, basis.parish, list),
        [&](auto& why) {
            const auto spouse = [&](const Person& person, int number) {
                why.fact(label(person.confession), {"person", number, {}, -1, "confession"});
                why.step("Kirchensteuerfuss in Prozent",
                         both(churchRateOf(person.confession, basis.parish, list)));
            };
            why.law(law::churchMultiplier, basis.parish != nullptr
                                               ? "Kirchgemeinde " + basis.parish->name
                                               : "Keine Kirchgemeinde gewählt");
            spouse(taxCase.person1, 1);
            if (taxCase.isJoint()) {
                spouse(taxCase.person2, 2);
                why.law(law::mixedConfession, "Je zur Hälfte nach der Konfession der Ehegatten");
            }
        });
}

template <class Recorder>
void addCantonalTaxes(TaxBill& bill, Recorder& recorder) {
    const Part income{"simpleIncomeTax", "Einfache Steuer vom Einkommen", bill.simpleIncomeTax};
    const Part wealth{"simpleWealthTax", "Einfache Steuer vom Vermögen", bill.simpleWealthTax};
    const Part canton{"cantonRate", "Steuerfuss Kanton", bill.cantonRate};
    const Part municipality{"municipalityRate", "Steuerfuss Gemeinde", bill.municipalityRate};
    const Part church{"churchRate", "Steuerfuss Kirche", bill.churchRate};
    bill.cantonIncome = share(recorder, "cantonIncome", "Kantonssteuer vom Einkommen",
                              law::cantonMultiplier, income, canton);
    bill.municipalityIncome = share(recorder, "municipalityIncome", "Gemeindesteuer vom Einkommen",
                                    law::municipalityMultiplier, income, municipality);
    bill.churchIncome = share(recorder, "churchIncome", "Kirchensteuer vom Einkommen",
                              law::churchMultiplier, income, church);
    bill.cantonWealth = share(recorder, "cantonWealth", "Kantonssteuer vom Vermögen",
                              law::cantonMultiplier, wealth, canton);
    bill.municipalityWealth = share(recorder, "municipalityWealth", "Gemeindesteuer vom Vermögen",
                                    law::municipalityMultiplier, wealth, municipality);
    bill.churchWealth = share(recorder, "churchWealth", "Kirchensteuer vom Vermögen",
                              law::churchMultiplier, wealth, church);
}

template <class Recorder>
void addFederalTax(TaxBill& bill, const RuleBook& rules, int children, Recorder& recorder) {
    const FederalTariff& tariff = rules.federalRules.tarif;
    bill.federalBeforeChildReduction = figure(
        recorder, "federalBeforeChildReduction", "Direkte Bundessteuer nach Tarif",
        Tariffs::federalIncomeTax(bill.taxableIncomeFederal, bill.kind, tariff), [&](auto& why) {
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
    bill.federal =
        figure(recorder, "federal", "Direkte Bundessteuer",
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
        const auto sum = [&](const Part& total, std::initializer_list<Part> parts) {
            figure(recorder, total.code, total.label, total.amount, [&](auto& why) {
                for (const Part& part : parts) {
                    why.line(part.code, 0, part.label, both(part.amount));
                }
            });
        };
        const Part canton{"cantonTotal", "Kantonssteuer", bill.cantonTotal()};
        const Part municipality{"municipalityTotal", "Gemeindesteuer", bill.municipalityTotal()};
        const Part church{"churchTotal", "Kirchensteuer", bill.churchTotal()};
        const Part office{"cantonAndMunicipalityTotal", "Kantons-, Gemeinde- und Kirchensteuer",
                          bill.cantonAndMunicipalityTotal()};
        const Part federal{"federal", "Direkte Bundessteuer", bill.federal};
        sum(canton, {{"cantonIncome", "vom Einkommen", bill.cantonIncome},
                     {"cantonWealth", "vom Vermögen", bill.cantonWealth}});
        sum(municipality, {{"municipalityIncome", "vom Einkommen", bill.municipalityIncome},
                           {"municipalityWealth", "vom Vermögen", bill.municipalityWealth}});
        sum(church, {{"churchIncome", "vom Einkommen", bill.churchIncome},
                     {"churchWealth", "vom Vermögen", bill.churchWealth}});
        sum(office, {canton, municipality, church});
        sum({"total", "Total der Steuern", bill.total()}, {office, federal});
        sum({"totalRate", "Steuerfuss gesamthaft", bill.totalRate()},
            {{"cantonRate", "Kanton", bill.cantonRate},
             {"municipalityRate", "Gemeinde", bill.municipalityRate},
             {"churchRate", "Kirche", bill.churchRate}});
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
    addMultipliers(bill, rules, basis, recorder);
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
            why.line("totalRate", 0, "Steuerfüsse von Kanton, Gemeinde und Kirche in Prozent",
                     both(bill.totalRate()));
            why.rounding("je Steuerfuss auf 5 Rappen");
        });
    const Decimal federal =
        cutToFiveRappen(Tariffs::federalIncomeTax(amount, bill.kind, federalRules.tarif)
                        * federalRules.kapitalleistungAnteil);
    tax.federal =
        figure(recorder, "capitalPaymentTax.federal", "Direkte Bundessteuer",
               federal < federalRules.tarif.minimum ? Decimal(0) : federal, [&](auto& why) {
                   why.line("kapitalleistungen", 0, "Kapitalleistungen des Jahres", both(amount));
                   why.rule(law::capitalPayments, "Anteil am ordentlichen Tarif",
                            "kapitalleistungAnteil", both(federalRules.kapitalleistungAnteil));
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
