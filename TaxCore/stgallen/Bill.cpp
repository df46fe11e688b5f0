#include "TaxCore/stgallen/Bill.h"

#include "TaxCore/base/Rounding.h"
#include "TaxCore/model/Household.h"
#include "TaxCore/result/Figure.h"
#include "TaxCore/stgallen/Law.h"

#include <algorithm>
#include <array>
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

std::string_view tariffName(TariffKind kind) noexcept {
    return kind == TariffKind::joint ? "Tarif für Verheiratete und Alleinerziehende"
                                     : "Tarif für Alleinstehende";
}

/// A simple tax times one of the three multipliers.
template <class Recorder>
Decimal share(Recorder& recorder, std::string_view code, std::string_view label, const Law& law,
              const FigurePart& simple, const FigurePart& rate) {
    return figure(recorder, {code, label}, multiplied(simple.amount, rate.amount), [&](auto& why) {
        why.line(simple.code, 0, simple.label, both(simple.amount));
        why.line(rate.code, 0, rate.label, both(rate.amount), Unit::percent);
        why.law(law, "Einfache Steuer mal Steuerfuss");
        why.rounding("Auf 5 Rappen");
    });
}

/// The place of an income in the canton's tariff.
void explainSimpleIncomeTax(DerivationRecorder::Draft& why, const TaxBill& bill,
                            const SGTariffTable& table) {
    const TariffPlace place = Tariffs::sgPlace(bill.taxableIncomeCanton, bill.kind, table);
    why.line("steuerbaresEinkommen", 0, "Steuerbares Einkommen", both(bill.taxableIncomeCanton));
    why.rounding("Auf ganze 100 Franken abgerundet");
    why.step("Massgebendes Einkommen", both(place.income));
    why.law(law::incomeTariff, tariffName(bill.kind));
    if (place.row) {
        const auto& rows = Tariffs::rowsOf(table, bill.kind);
        why.rule(law::incomeTariff, "Einfache Steuer laut Tarif",
                 itemKey(bill.kind == TariffKind::joint ? "joint" : "single", *place.row),
                 both(rows[*place.row]));
    } else if (place.flat) {
        why.rule(law::incomeTariff, "Fester Satz vom ganzen Einkommen", "flatRateAbove",
                 both(table.flatRateAbove), Unit::share);
    } else {
        why.fact("Das Einkommen liegt unter dem Beginn des Tarifs.");
    }
}

/// The place of an amount in the federal tariff.
void explainFederalTariff(DerivationRecorder::Draft& why, const Decimal& amount, TariffKind kind,
                          const FederalTariff& tariff) {
    const TariffPlace place = Tariffs::federalPlace(amount, kind, tariff);
    why.rounding("Auf ganze 100 Franken abgerundet");
    why.step("Massgebender Betrag", both(place.income));
    why.law(law::incomeTariff, tariffName(kind));
    if (place.flat) {
        why.rule(law::incomeTariff, "Fester Satz vom ganzen Betrag", "tarif.flatSatz",
                 both(tariff.flatSatz), Unit::share);
    } else if (place.row) {
        const FederalBracket& bracket = Tariffs::bracketsOf(tariff, kind)[*place.row];
        const std::string key = itemKey(
            kind == TariffKind::joint ? "tarif.verheiratet" : "tarif.alleinstehend", *place.row);
        why.rule(law::incomeTariff, "Die Stufe beginnt bei", key + ".ab", both(bracket.ab));
        why.rule(law::incomeTariff, "Steuer an ihrem Beginn", key + ".steuer",
                 both(bracket.steuer));
        why.rule(law::incomeTariff, "Je weitere 100 Franken", key + ".proHundert",
                 both(bracket.proHundert));
    } else {
        why.fact("Der Betrag liegt unter dem Beginn des Tarifs.");
    }
    why.rounding("Steuer auf 5 Rappen abgerundet");
}

template <class Recorder>
void addSimpleTaxes(TaxBill& bill, const RuleBook& rules, Recorder& recorder) {
    bill.simpleIncomeTax =
        figure(recorder, {"simpleIncomeTax", "Einfache Steuer vom Einkommen"},
               Tariffs::sgSimpleIncomeTax(bill.taxableIncomeCanton, bill.kind, rules.sgTariff),
               [&](auto& why) { explainSimpleIncomeTax(why, bill, rules.sgTariff); });
    bill.simpleIncomeRatePercent = figure(
        recorder,
        {"simpleIncomeRatePercent", "Einfache Steuer in Prozent des Einkommens", Concerns::canton,
         Unit::percent},
        Tariffs::sgSimpleIncomeRate(bill.taxableIncomeCanton, bill.kind, rules.sgTariff) * 100,
        [&](auto& why) {
            const TariffPlace place =
                Tariffs::sgPlace(bill.taxableIncomeCanton, bill.kind, rules.sgTariff);
            why.line("simpleIncomeTax", 0, "Einfache Steuer vom Einkommen",
                     both(bill.simpleIncomeTax));
            why.step("Geteilt durch das auf ganze 100 Franken abgerundete Einkommen",
                     both(place.income));
        });
    const Decimal& promille = rules.municipalities.vermoegenEinfacheSteuerPromille;
    bill.simpleWealthTax = figure(
        recorder, {"simpleWealthTax", "Einfache Steuer vom Vermögen"},
        Tariffs::sgSimpleWealthTax(bill.taxableWealth, promille), [&](auto& why) {
            why.line("steuerbaresVermoegen", 0, "Steuerbares Vermögen", both(bill.taxableWealth));
            why.rule(law::wealthTax, "Satz", "vermoegenEinfacheSteuerPromille", both(promille),
                     Unit::perMille);
            why.rounding("Auf ganze Rappen");
        });
}

/// Where the municipality's multiplier comes from.
void explainMunicipalityRate(DerivationRecorder::Draft& why, const BillBasis& basis,
                             const MunicipalityList& list) {
    if (basis.municipality == nullptr) {
        why.fact("Die Gemeinde ist nicht in der Liste – ohne Steuerfuss.",
                 FieldPath("municipality"));
        return;
    }
    why.fact("Gemeinde " + basis.municipality->name, FieldPath("municipality"));
    if (const auto index = positionOf(list.municipalities, basis.municipality->name)) {
        why.rule(law::municipalityMultiplier, "Steuerfuss der Gemeinde",
                 itemKey("municipalities", *index) + ".steuerfuss",
                 both(basis.municipality->steuerfuss), Unit::percent);
    }
}

/// Where the church multiplier of one spouse comes from.
void explainChurchRate(DerivationRecorder::Draft& why, const BillBasis& basis,
                       const MunicipalityList& list, const Person& person, int number) {
    why.fact(label(person.confession), FieldPath("person", "confession").of(number));
    const Decimal rate = churchRateOf(person.confession, basis.parish, list);
    if (person.confession == Confession::christkatholisch) {
        why.rule(law::churchMultiplier, "Steuerfuss der christkatholischen Kirche",
                 "christkatholisch", both(rate), Unit::percent);
        return;
    }
    const bool catholic = person.confession == Confession::roemischKatholisch;
    if (!catholic && person.confession != Confession::evangelischReformiert) {
        why.step("Ohne Kirchensteuer", both(rate), Unit::percent);
        return;
    }
    if (basis.municipality == nullptr || basis.parish == nullptr) {
        why.fact(basis.taxCase.parish
                     ? "Die Kirchgemeinde ist nicht in der Liste – ohne Steuerfuss."
                     : "Keine Kirchgemeinde gewählt – ohne Steuerfuss.",
                 FieldPath("parish"));
        return;
    }
    const auto municipality = positionOf(list.municipalities, basis.municipality->name);
    const auto parish = positionOf(basis.municipality->parishes, basis.parish->name);
    if (municipality && parish) {
        why.rule(law::churchMultiplier, "Steuerfuss der Kirchgemeinde " + basis.parish->name,
                 itemKey(itemKey("municipalities", *municipality) + ".parishes", *parish)
                     + (catholic ? ".kath" : ".evang"),
                 both(rate), Unit::percent);
    }
}

template <class Recorder>
void addMultipliers(TaxBill& bill, const RuleBook& rules, const BillBasis& basis,
                    Recorder& recorder) {
    const MunicipalityList& list = rules.municipalities;
    const TaxCase& taxCase = basis.taxCase;
    const auto rate = [&](std::string_view code, std::string_view label, const Decimal& percent,
                          const auto& explain) {
        return figure(recorder, {code, label, Concerns::canton, Unit::percent}, percent, explain);
    };
    bill.cantonRate =
        rate("cantonRate", "Steuerfuss Kanton", list.kantonSteuerfuss, [&](auto& why) {
            why.rule(law::cantonMultiplier, "Steuerfuss des Kantons", "kantonSteuerfuss",
                     both(list.kantonSteuerfuss), Unit::percent);
        });
    bill.municipalityRate =
        rate("municipalityRate", "Steuerfuss Gemeinde",
             basis.municipality != nullptr ? basis.municipality->steuerfuss : Decimal(0),
             [&](auto& why) { explainMunicipalityRate(why, basis, list); });
    bill.churchRate = rate(
        "churchRate", "Steuerfuss Kirche", churchRate(taxCase, basis.parish, list), [&](auto& why) {
            explainChurchRate(why, basis, list, taxCase.person1, 1);
            if (taxCase.isJoint()) {
                explainChurchRate(why, basis, list, taxCase.person2, 2);
                why.law(law::mixedConfession, "Je zur Hälfte nach der Konfession der Ehegatten");
            }
        });
}

template <class Recorder>
void addCantonalTaxes(TaxBill& bill, Recorder& recorder) {
    const FigurePart income{"simpleIncomeTax", "Einfache Steuer vom Einkommen",
                            bill.simpleIncomeTax};
    const FigurePart wealth{"simpleWealthTax", "Einfache Steuer vom Vermögen",
                            bill.simpleWealthTax};
    const FigurePart canton{"cantonRate", "Steuerfuss Kanton", bill.cantonRate};
    const FigurePart municipality{"municipalityRate", "Steuerfuss Gemeinde", bill.municipalityRate};
    const FigurePart church{"churchRate", "Steuerfuss Kirche", bill.churchRate};
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
    const auto federal = [&](std::string_view code, std::string_view label, const Decimal& amount,
                             const auto& explain) {
        return figure(recorder, {code, label, Concerns::federal}, amount, explain);
    };
    bill.federalBeforeChildReduction = federal(
        "federalBeforeChildReduction", "Direkte Bundessteuer nach Tarif",
        Tariffs::federalIncomeTax(bill.taxableIncomeFederal, bill.kind, tariff), [&](auto& why) {
            why.line("steuerbaresEinkommen", 0, "Steuerbares Einkommen",
                     both(bill.taxableIncomeFederal));
            explainFederalTariff(why, bill.taxableIncomeFederal, bill.kind, tariff);
        });
    bill.federalChildReduction =
        federal("federalChildReduction", "Abzug vom Steuerbetrag pro Kind",
                tariff.abzugProKind * children, [&](auto& why) {
                    why.rule(law::childReduction, "Abzug pro Kind", "tarif.abzugProKind",
                             both(tariff.abzugProKind));
                    why.step("Kinder mit Abzug", both(Decimal(children)), Unit::number);
                });
    bill.federal = federal(
        "federal", "Direkte Bundessteuer",
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
        const auto sum = [&](const FigurePart& total, std::initializer_list<FigurePart> parts,
                             Concerns concerns = Concerns::canton, Unit unit = Unit::francs) {
            figure(recorder, {total.code, total.label, concerns, unit}, total.amount,
                   [&](auto& why) {
                       for (const FigurePart& part : parts) {
                           why.line(part.code, 0, part.label, both(part.amount), unit);
                       }
                   });
        };
        const auto same = [&](const Figure& head, const Decimal& amount, std::string_view line,
                              std::string_view label) {
            figure(recorder, head, amount,
                   [&](auto& why) { why.line(line, 0, label, both(amount)); });
        };
        same({"taxableIncomeCanton", "Steuerbares Einkommen Kanton"}, bill.taxableIncomeCanton,
             "steuerbaresEinkommen", "Steuerbares Einkommen");
        same({"taxableIncomeFederal", "Steuerbares Einkommen Bund", Concerns::federal},
             bill.taxableIncomeFederal, "steuerbaresEinkommen", "Steuerbares Einkommen");
        same({"taxableWealth", "Steuerbares Vermögen"}, bill.taxableWealth, "steuerbaresVermoegen",
             "Steuerbares Vermögen");
        const FigurePart canton{"cantonTotal", "Kantonssteuer", bill.cantonTotal()};
        const FigurePart municipality{"municipalityTotal", "Gemeindesteuer",
                                      bill.municipalityTotal()};
        const FigurePart church{"churchTotal", "Kirchensteuer", bill.churchTotal()};
        const FigurePart office{"cantonAndMunicipalityTotal",
                                "Kantons-, Gemeinde- und Kirchensteuer",
                                bill.cantonAndMunicipalityTotal()};
        const FigurePart federal{"federal", "Direkte Bundessteuer", bill.federal};
        sum(canton, {{"cantonIncome", "vom Einkommen", bill.cantonIncome},
                     {"cantonWealth", "vom Vermögen", bill.cantonWealth}});
        sum(municipality, {{"municipalityIncome", "vom Einkommen", bill.municipalityIncome},
                           {"municipalityWealth", "vom Vermögen", bill.municipalityWealth}});
        sum(church, {{"churchIncome", "vom Einkommen", bill.churchIncome},
                     {"churchWealth", "vom Vermögen", bill.churchWealth}});
        sum(office, {canton, municipality, church});
        sum({"total", "Total der Steuern", bill.total()}, {office, federal}, Concerns::both);
        sum({"totalRate", "Steuerfuss gesamthaft", bill.totalRate()},
            {{"cantonRate", "Kanton", bill.cantonRate},
             {"municipalityRate", "Gemeinde", bill.municipalityRate},
             {"churchRate", "Kirche", bill.churchRate}},
            Concerns::canton, Unit::percent);
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
    const std::array<FigurePart, 3> rateParts{
        {{"cantonRate", "Steuerfuss Kanton", bill.cantonRate},
         {"municipalityRate", "Steuerfuss Gemeinde", bill.municipalityRate},
         {"churchRate", "Steuerfuss Kirche", bill.churchRate}}};
    for (const FigurePart& part : rateParts) {
        tax.canton += multiplied(simple, part.amount);
    }
    figure(recorder,
           {"capitalPaymentTax.canton", "Kantons-, Gemeinde- und Kirchensteuer auf "
                                        "Kapitalleistungen"},
           tax.canton, [&](auto& why) {
               why.line("kapitalleistungen", 0, "Kapitalleistungen des Jahres", both(amount));
               why.rule(law::capitalPayments, "Satz der einfachen Steuer",
                        joint ? "kapitalleistung.satzGemeinsam"
                              : "kapitalleistung.satzAlleinstehend",
                        both(rate), Unit::share);
               why.step("Einfache Steuer", both(simple));
               for (const FigurePart& part : rateParts) {
                   why.line(part.code, 0, part.label, both(part.amount), Unit::percent);
                   why.step("ergibt, auf 5 Rappen gerundet", both(multiplied(simple, part.amount)));
               }
           });
    const Decimal ordinary = Tariffs::federalIncomeTax(amount, bill.kind, federalRules.tarif);
    const Decimal federal = cutToFiveRappen(ordinary * federalRules.kapitalleistungAnteil);
    tax.federal = federal < federalRules.tarif.minimum ? Decimal(0) : federal;
    figure(recorder,
           {"capitalPaymentTax.federal", "Direkte Bundessteuer auf Kapitalleistungen",
            Concerns::federal},
           tax.federal, [&](auto& why) {
               why.line("kapitalleistungen", 0, "Kapitalleistungen des Jahres", both(amount));
               explainFederalTariff(why, amount, bill.kind, federalRules.tarif);
               why.step("Steuer nach ordentlichem Tarif", both(ordinary));
               why.rule(law::capitalPayments, "davon geschuldet", "kapitalleistungAnteil",
                        both(federalRules.kapitalleistungAnteil), Unit::share);
               why.rounding("Auf 5 Rappen abgerundet");
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
