#include "TaxCore/base/MoneyFormat.h"
#include "TaxCore/model/Household.h"
#include "TaxCore/stgallen/Calculation.h"
#include "TaxCore/stgallen/DeductionRules.h"
#include "TaxCore/stgallen/Law.h"

namespace taxcore {

namespace {

template <class R>
void addSecurities(Calculation<R>& c) {
    auto line = c.lines.line({"wertschriften", 0, "30.1", "Wertschriften und Guthaben"});
    line.why.law(law::wealth, "Steuerwert am 31. Dezember");
    line.income(both(sumOf(line.why, "Steuerwert", c.input.securities, &SecurityEntry::taxValue,
                           FieldPath("securities", "taxValue"), [&](const SecurityEntry& entry) {
                               return isPrivateAsset(entry, c.input);
                           })));
}

template <class R>
void addInsurances(Calculation<R>& c) {
    auto line = c.lines.line(
        {"lebensversicherungen", 0, "30.3", "Lebens- und Rentenversicherungen (Rückkaufswert)"});
    line.why.law(law::wealth, "Rückkaufswert am 31. Dezember");
    line.income(
        both(sumOf(line.why, "Rückkaufswert", c.input.insurances, &InsurancePolicy::surrenderValue,
                   FieldPath("insurances", "surrenderValue"))));
}

/// StG SG Art. 54
template <class R>
void addVehicles(Calculation<R>& c) {
    const Decimal& yearly = c.rules.cantonalExtra.fahrzeugAbschreibungProJahr;
    auto line = c.lines.line({"fahrzeuge", 0, "30.4", "Motorfahrzeuge"});
    Decimal value;
    forEachItem(c.input.vehicles, [&](const Vehicle& vehicle, int index) {
        const Decimal worth = vehicleValue(vehicle, c.input.year, yearly);
        value += worth;
        explainVehicle(line.why, vehicle, index, worth, [&] {
            line.why.rule(law::wealth, "Abschreibung pro Jahr", "fahrzeugAbschreibungProJahr",
                          both(yearly), Unit::share);
        });
    });
    line.income(both(value), "Kaufpreis abzüglich " + MoneyFormat::number(yearly * 100)
                                 + "% pro Jahr seit Erwerb");
}

template <class R>
void addRealEstate(Calculation<R>& c) {
    auto line = c.lines.line({"liegenschaften", 0, "31", "Liegenschaften"});
    line.why.law(law::realEstateValue, "Amtlicher Steuerwert");
    line.income(both(sumOf(line.why, "Steuerwert", c.input.realEstate, &RealEstate::taxValue,
                           FieldPath("realEstate", "taxValue"))));
}

template <class R>
void addDebts(Calculation<R>& c, bool business) {
    auto line = business ? c.lines.line({"geschaeftsschulden", 0, "34.2", "Geschäftsschulden"})
                         : c.lines.line({"privatschulden", 0, "34.1", "Privatschulden"});
    line.why.law(law::wealth, "Besteuert wird das Vermögen nach Abzug der Schulden");
    line.deduction(both(sumOf(line.why, "Schuld am 31. Dezember", c.input.debts, &Debt::amount,
                              FieldPath("debts", "amount"),
                              [&](const Debt& debt) { return debt.isBusiness == business; })));
}

/// StG SG Art. 64
template <class R>
void addAllowances(Calculation<R>& c) {
    const auto& params = c.rules.cantonalExtra.vermoegen;
    const bool joint = c.input.isJoint();
    auto line = c.lines.line({"vermoegensabzug", 0, "36",
                              joint ? "Abzug für gemeinsam steuerpflichtige Ehegatten"
                                    : "Abzug für alleinstehende Steuerpflichtige"});
    line.why.rule(law::wealthAllowance, "Abzug pro steuerpflichtige Person",
                  "vermoegen.sozialabzugProPerson", both(params.sozialabzugProPerson));
    line.why.fact(joint ? "Für beide Ehegatten" : "Für eine Person", FieldPath("civilStatus"));
    line.deduction(both(params.sozialabzugProPerson * (joint ? 2 : 1)));

    const auto counts = [&](const Child& child) { return hasWealthAllowance(child, c.input.year); };
    const auto count = std::ranges::count_if(c.input.children, counts);
    if (count > 0) {
        auto minors =
            c.lines.line({"vermoegensabzugKinder", 0, "36", {}},
                         "Abzug für minderjährige Kinder (" + std::to_string(count) + ")");
        if constexpr (R::enabled) {
            forEachItem(c.input.children, [&](const Child& child, int index) {
                if (counts(child)) {
                    minors.why.fact(
                        childLabel(child),
                        FieldPath("children", child.birthDate ? "birthDate" : "education")
                            .at(index));
                }
            });
        }
        minors.why.rule(law::wealthAllowance, "Abzug pro minderjähriges Kind",
                        "vermoegen.sozialabzugProKind", both(params.sozialabzugProKind));
        minors.deduction(both(params.sozialabzugProKind * static_cast<int>(count)));
    }
}

} // namespace

template <class R>
void addWealth(Calculation<R>& c) {
    c.lines.section({"Vermögensberechnung", 4, Concerns::canton});
    addSecurities(c);
    c.plainIncome({"bargeld", 0, "30.2", "Bargeld, Gold und Edelmetalle"}, law::wealth,
                  c.input.cash, FieldPath("cash"));
    addInsurances(c);
    addVehicles(c);
    c.plainIncome({"erbschaften", 0, "30.5", "Anteile an unverteilten Erbschaften"}, law::wealth,
                  c.input.undividedEstatesWealth, FieldPath("undividedEstatesWealth"));
    addRealEstate(c);
    c.plainIncome({"uebrigeVermoegenswerte", 0, "30.6", "Übrige Vermögenswerte"}, law::wealth,
                  c.input.otherAssets, FieldPath("otherAssets"));
    c.plainIncome({"betriebsvermoegen", 0, "32", "Betriebsvermögen"}, law::wealth,
                  c.input.businessAssets, FieldPath("businessAssets"));

    auto assets = c.lines.line({"totalVermoegen", 0, "33", "Total der Vermögenswerte"});
    c.lines.explainSum(assets);
    assets.subtotal(c.lines.sum());

    addDebts(c, false);
    addDebts(c, true);
    addAllowances(c);

    auto taxable = c.lines.line({"steuerbaresVermoegen", 0, "37", "Steuerbares Vermögen"});
    c.lines.explainSum(taxable);
    taxable.why.fact("Nie unter 0.");
    c.taxableWealth = notBelowZero(c.lines.sum().canton);
    taxable.total(both(c.taxableWealth));
}

template void addWealth(Calculation<NoRecorder>&);
template void addWealth(Calculation<DerivationRecorder>&);

} // namespace taxcore
