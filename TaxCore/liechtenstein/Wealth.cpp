#include "TaxCore/base/MoneyFormat.h"
#include "TaxCore/base/Rounding.h"
#include "TaxCore/liechtenstein/LICalculation.h"
#include "TaxCore/liechtenstein/Law.h"
#include "TaxCore/model/Household.h"

#include <algorithm>
#include <cstdint>

namespace taxcore::li {

namespace {

constexpr std::string_view formA1 = "Hilfsformular A1";

template <class R>
void addRealEstate(Calculation<R>& c) {
    const FieldPath path("realEstate", "taxValue");
    auto home =
        c.lines.line({"700", 0, "1.1", "Grundeigentum in Liechtenstein (Steuerschätzwert)"});
    home.why.law(law::wealth, "Steuerschätzwert am 1. Januar");
    home.income(both(sumOf(home.why, "Steuerschätzwert", c.input.realEstate, &RealEstate::taxValue,
                           path, [&](const RealEstate& property) {
                               return c.extras.useRealEstateFromList && isInLiechtenstein(property);
                           })));
    auto abroad = c.lines.line({"705", 0, "1.2", "Grundeigentum im Ausland", formA1});
    abroad.why.law(law::wealth, "Wert am 1. Januar");
    abroad.income(
        both(sumOf(abroad.why, "Wert im Ausland", c.input.realEstate, &RealEstate::taxValue, path,
                   [](const RealEstate& property) { return !isInLiechtenstein(property); })));
}

/// The entries of the register whose kind belongs to a line.
template <class R, class Line, class Kinds>
Decimal registerValue(Calculation<R>& c, Line& line, const Kinds& belongs) {
    return sumOf(line.why, "Steuerwert", c.input.securities, &SecurityEntry::taxValue,
                 FieldPath("securities", "taxValue"), [&](const SecurityEntry& entry) {
                     return isPrivateAsset(entry, c.input) && belongs(entry.kind);
                 });
}

template <class R>
void addMovables(Calculation<R>& c) {
    auto accounts = c.lines.line({"730", 0, "3.1", "Bank- und Postkontoguthaben, Bargeld", formA1});
    accounts.why.law(law::wealth, "Guthaben am 1. Januar");
    const Decimal balance =
        registerValue(c, accounts, [](AssetKind kind) { return kind == AssetKind::konto; });
    accounts.why.input("Bargeld", c.input.cash, FieldPath("cash"));
    accounts.income(both(balance + c.input.cash));

    auto securities =
        c.lines.line({"735", 0, "3.2", "Wertschriften, Gold und Edelmetalle", formA1});
    securities.why.law(law::wealth, "Wert am 1. Januar");
    securities.income(both(registerValue(c, securities, [](AssetKind kind) {
        return kind != AssetKind::konto && kind != AssetKind::darlehen;
    })));

    auto loans = c.lines.line({"745", 0, "3.4", "Darlehens- und Ausschüttungsguthaben", formA1});
    loans.why.law(law::wealth, "Guthaben am 1. Januar");
    loans.income(
        both(registerValue(c, loans, [](AssetKind kind) { return kind == AssetKind::darlehen; })));

    auto policies = c.lines.line({"755", 0, "3.6", "Rückkaufsfähige Lebensversicherungen", formA1});
    policies.why.law(law::wealth, "Rückkaufswert am 1. Januar");
    policies.income(
        both(sumOf(policies.why, "Rückkaufswert", c.input.insurances,
                   &InsurancePolicy::surrenderValue, FieldPath("insurances", "surrenderValue"))));
    c.plainIncome({"760", 0, "3.7", "Unverteilte Erbschaften, Nutzniessung"}, law::wealth,
                  c.input.undividedEstatesWealth, FieldPath("undividedEstatesWealth"));
}

template <class R>
Decimal addVehicles(Calculation<R>& c) {
    auto line = c.lines.line({"770", 0, "3.82", "Fahrzeuge (35 % Abschreibung pro Jahr)", formA1});
    line.why.law(law::wealth, "Wert am 1. Januar");
    Decimal value;
    forEachItem(c.input.vehicles, [&](const Vehicle& vehicle, int index) {
        const Decimal worth = vehicleValue(vehicle, c.input.year, c.rules);
        value += worth;
        explainVehicle(line.why, vehicle, index, worth, [&] {
            line.why.rule(law::wealth, "Abschreibung pro Jahr vom Restwert",
                          "fahrzeugAbschreibungProzent", both(c.rules.fahrzeugAbschreibungProzent),
                          Unit::percent);
        });
    });
    line.income(both(value));
    return value;
}

/// Household goods and vehicles up to an allowance are not wealth. SteG Art. 10
template <class R>
void addHouseholdGoods(Calculation<R>& c) {
    c.plainIncome({"769", 0, "3.81", "Hausrat"}, law::wealth, c.extras.householdGoods,
                  FieldPath("li", "householdGoods"));
    const Decimal total = c.extras.householdGoods + addVehicles(c);
    auto sum = c.lines.line({"771", 0, "3.83", "Total Hausrat und Fahrzeuge"});
    sum.why.line("769", 0, "Hausrat", both(c.extras.householdGoods));
    sum.why.line("770", 0, "Fahrzeuge", both(total - c.extras.householdGoods));
    sum.subtotal(both(total));

    const bool married = c.kind == LITariffKind::verheiratet;
    const Decimal& allowance = married ? c.rules.hausratFahrzeugFreibetragVerheiratet
                                       : c.rules.hausratFahrzeugFreibetragUebrige;
    auto free = c.lines.line({"772", 0, "3.84", "./. Freibetrag"});
    free.why.fact(label(c.input.civilStatus), FieldPath("civilStatus"));
    free.why.rule(
        law::householdGoods, married ? "Freibetrag für Verheiratete" : "Freibetrag für Übrige",
        married ? "hausratFahrzeugFreibetragVerheiratet" : "hausratFahrzeugFreibetragUebrige",
        both(allowance));
    free.why.line("771", 0, "Höchstens Hausrat und Fahrzeuge", both(total));
    free.deduction(both(std::min(allowance, total)));
}

/// Wealth is not taxed apart: a share of it counts as earned. SteG Art. 5
template <class R>
void addNotionalYield(Calculation<R>& c) {
    const Decimal base = c.netWealth > 0 ? cutToHundred(c.netWealth) : Decimal(0);
    c.notionalYield = toWholeFrancs(base * c.rules.sollertragProzent / 100);
    auto line = c.lines.line({"885", 0, "7.1", {}},
                             "Sollertrag: 4 % von " + MoneyFormat::chf(c.netWealth, 0, true));
    line.why.line("880", 0, "Gesamtvermögen", both(c.netWealth));
    line.why.rounding("Auf ganze 100 Franken abgerundet, nie unter 0");
    line.why.step("Massgebendes Vermögen", both(base));
    line.why.rule(law::notionalYield, "Sollertrag", "sollertragProzent",
                  both(c.rules.sollertragProzent), Unit::percent);
    line.why.rounding("Auf ganze Franken");
    line.info(both(c.notionalYield), "Das Vermögen wird nicht separat besteuert: 4 % davon zählen "
                                     "als Erwerb (Ziffer 14.6).");
}

} // namespace

Decimal vehicleValue(const Vehicle& vehicle, int year, const LIRules& rules) {
    if (vehicle.taxValueOverride) {
        return *vehicle.taxValueOverride;
    }
    // What rounds to nothing stays nothing, however old the vehicle.
    constexpr Decimal leastWorth = 0.5_dec;
    const std::int64_t age = std::int64_t{year} - std::int64_t{vehicle.purchaseYear.value_or(year)};
    Decimal value = vehicle.purchasePrice;
    for (std::int64_t i = 0; i < age && value.abs() >= leastWorth; ++i) {
        value = value * (Decimal(100) - rules.fahrzeugAbschreibungProzent) / 100;
    }
    return toWholeFrancs(value);
}

template <class R>
void addWealth(Calculation<R>& c) {
    c.lines.section({.title = "Vermögen per 1. Januar",
                     .page = 2,
                     .concerns = Concerns::canton,
                     .keepsZeros = true});
    addRealEstate(c);
    c.plainIncome({"710", 0, "2.1", "Aktiven in inländischen Betrieben"}, law::wealth,
                  c.input.businessAssets, FieldPath("businessAssets"));
    addMovables(c);
    addHouseholdGoods(c);
    c.plainIncome({"780", 0, "3.9", "Übrige Vermögenswerte"}, law::wealth, c.input.otherAssets,
                  FieldPath("otherAssets"));
    auto assets = c.lines.line({"800", 0, "4", "Total der Vermögenswerte"});
    c.lines.explainSum(assets);
    assets.subtotal(c.lines.sum());

    auto debts = c.lines.line({"820", 0, "5", "Schulden", formA1});
    debts.why.law(law::wealth, "Das Vermögen zählt nach Abzug der Schulden");
    debts.deduction(both(sumOf(debts.why, "Schuld am 1. Januar", c.input.debts, &Debt::amount,
                               FieldPath("debts", "amount"))));

    auto net = c.lines.line({"880", 0, "6", "Gesamtvermögen"});
    c.lines.explainSum(net);
    c.netWealth = c.lines.sum().canton;
    net.total(c.lines.sum());
    addNotionalYield(c);
}

template void addWealth(Calculation<NoRecorder>&);
template void addWealth(Calculation<DerivationRecorder>&);

} // namespace taxcore::li
