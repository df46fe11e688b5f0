#include "TaxCore/base/MoneyFormat.h"
#include "TaxCore/stgallen/Calculation.h"
#include "TaxCore/stgallen/DeductionRules.h"
#include "TaxCore/stgallen/Household.h"
#include "TaxCore/stgallen/Law.h"

namespace taxcore {

namespace {

template <class R>
void addSecurities(Calculation<R>& c) {
    auto line = c.lines.line({"wertschriften", 0, "30.1", "Wertschriften und Guthaben"});
    line.why.law(law::wealth, "Steuerwert am 31. Dezember");
    Decimal value;
    int index = 0;
    for (const SecurityEntry& entry : c.input.securities) {
        if (isPrivateAsset(entry, c.input)) {
            value += entry.taxValue;
            line.why.input("Steuerwert", entry.taxValue, {"securities", 0, {}, index, "taxValue"});
        }
        ++index;
    }
    line.income(both(value));
}

template <class R>
void addInsurances(Calculation<R>& c) {
    auto line = c.lines.line(
        {"lebensversicherungen", 0, "30.3", "Lebens- und Rentenversicherungen (Rückkaufswert)"});
    line.why.law(law::wealth, "Rückkaufswert am 31. Dezember");
    Decimal value;
    int index = 0;
    for (const InsurancePolicy& policy : c.input.insurances) {
        value += policy.surrenderValue;
        line.why.input("Rückkaufswert", policy.surrenderValue,
                       {"insurances", 0, {}, index, "surrenderValue"});
        ++index;
    }
    line.income(both(value));
}

/// StG SG Art. 54
template <class R>
void addVehicles(Calculation<R>& c) {
    const Decimal& yearly = c.rules.cantonalExtra.fahrzeugAbschreibungProJahr;
    auto line = c.lines.line({"fahrzeuge", 0, "30.4", "Motorfahrzeuge"});
    Decimal value;
    int index = 0;
    for (const Vehicle& vehicle : c.input.vehicles) {
        const Decimal worth = vehicleValue(vehicle, c.input.year, yearly);
        if (vehicle.taxValueOverride) {
            line.why.input("Steuerwert wie eingetragen", worth,
                           {"vehicles", 0, {}, index, "taxValueOverride"});
        } else {
            line.why.input("Kaufpreis", vehicle.purchasePrice,
                           {"vehicles", 0, {}, index, "purchasePrice"});
            if (vehicle.purchaseYear) {
                line.why.input("Kaufjahr", *vehicle.purchaseYear,
                               {"vehicles", 0, {}, index, "purchaseYear"});
            }
            line.why.rule(law::wealth, "Abschreibung pro Jahr", "fahrzeugAbschreibungProJahr",
                          both(yearly));
            line.why.rounding("auf ganze Franken");
            line.why.step("Zeitwert", both(worth));
        }
        value += worth;
        ++index;
    }
    line.income(both(value), "Kaufpreis abzüglich " + MoneyFormat::number(yearly * 100)
                                 + "% pro Jahr seit Erwerb");
}

template <class R>
void addRealEstate(Calculation<R>& c) {
    auto line = c.lines.line({"liegenschaften", 0, "31", "Liegenschaften"});
    line.why.law(law::realEstateValue, "Amtlicher Steuerwert");
    Decimal value;
    int index = 0;
    for (const RealEstate& property : c.input.realEstate) {
        value += property.taxValue;
        line.why.input("Steuerwert", property.taxValue, {"realEstate", 0, {}, index, "taxValue"});
        ++index;
    }
    line.income(both(value));
}

template <class R>
void addDebts(Calculation<R>& c, bool business) {
    auto line = business ? c.lines.line({"geschaeftsschulden", 0, "34.2", "Geschäftsschulden"})
                         : c.lines.line({"privatschulden", 0, "34.1", "Privatschulden"});
    line.why.law(law::wealth, "Besteuert wird das Vermögen nach Abzug der Schulden");
    Decimal amount;
    int index = 0;
    for (const Debt& debt : c.input.debts) {
        if (debt.isBusiness == business) {
            amount += debt.amount;
            line.why.input("Schuld am 31. Dezember", debt.amount,
                           {"debts", 0, {}, index, "amount"});
        }
        ++index;
    }
    line.deduction(both(amount));
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
    line.deduction(both(params.sozialabzugProPerson * (joint ? 2 : 1)));

    int count = 0;
    for (const Child& child : c.input.children) {
        count += hasWealthAllowance(child, c.input.year) ? 1 : 0;
    }
    if (count > 0) {
        auto minors =
            c.lines.line({"vermoegensabzugKinder", 0, "36", {}},
                         "Abzug für minderjährige Kinder (" + std::to_string(count) + ")");
        minors.why.rule(law::wealthAllowance, "Abzug pro minderjähriges Kind",
                        "vermoegen.sozialabzugProKind", both(params.sozialabzugProKind));
        minors.deduction(both(params.sozialabzugProKind * count));
    }
}

} // namespace

template <class R>
void addWealth(Calculation<R>& c) {
    c.lines.section("Vermögensberechnung", 4);
    addSecurities(c);
    c.plainIncome({"bargeld", 0, "30.2", "Bargeld, Gold und Edelmetalle"}, law::wealth,
                  c.input.cash, {"cash"});
    addInsurances(c);
    addVehicles(c);
    c.plainIncome({"erbschaften", 0, "30.5", "Anteile an unverteilten Erbschaften"}, law::wealth,
                  c.input.undividedEstatesWealth, {"undividedEstatesWealth"});
    addRealEstate(c);
    c.plainIncome({"uebrigeVermoegenswerte", 0, "30.6", "Übrige Vermögenswerte"}, law::wealth,
                  c.input.otherAssets, {"otherAssets"});
    c.plainIncome({"betriebsvermoegen", 0, "32", "Betriebsvermögen"}, law::wealth,
                  c.input.businessAssets, {"businessAssets"});

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
