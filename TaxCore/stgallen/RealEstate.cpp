#include "TaxCore/base/MoneyFormat.h"
#include "TaxCore/stgallen/Calculation.h"
#include "TaxCore/stgallen/DeductionRules.h"
#include "TaxCore/stgallen/Law.h"
#include "TaxCore/stgallen/Notices.h"

namespace taxcore {

namespace {

using Params = CantonExtraParams::Liegenschaften;

/// Tells rental value and rents of one property, so far as there are any.
template <class Draft>
void explainYield(Draft& why, const RealEstate& property, int index, const Params& params) {
    const auto path = [&](std::string_view field) {
        return FieldPath("realEstate", field).at(index);
    };
    const Decimal rentalValue = taxedRentalValue(property, params);
    if (!rentalValue.isZero()) {
        why.input("Eigenmietwert, amtlich", property.imputedRentalValue,
                  path("imputedRentalValue"));
        if (property.isPrimaryResidence) {
            why.rule(law::imputedRent, "− Reduktion am Wohnsitz",
                     "liegenschaften.eigenmietwertReduktion", both(params.eigenmietwertReduktion),
                     Unit::share);
            if (property.rooms > 0 && property.unusedRooms > 0) {
                why.law(law::unusedRooms, "Kürzung für dauernd ungenutzte Räume (Anteil an den "
                                          "Räumen plus zwei)");
                why.input("Räume", property.rooms, path("rooms"), Unit::number);
                why.input("davon ungenutzt", property.unusedRooms, path("unusedRooms"),
                          Unit::number);
            }
        }
        why.step("Eigenmietwert, steuerbar", both(rentalValue));
    }
    if (!property.rentalIncome.isZero()) {
        why.input("Mietertrag", property.rentalIncome, path("rentalIncome"));
    }
}

} // namespace

template <class R>
void addRealEstateIncome(Calculation<R>& c) {
    const Params& params = c.rules.cantonalExtra.liegenschaften;
    auto line = c.lines.line({"liegenschaftsertrag", 0, "5.1", "Ertrag aus Liegenschaften"});
    line.why.law(law::realEstateIncome, "Ertrag aus unbeweglichem Vermögen");
    Decimal yield;
    bool imputed = false;
    forEachItem(c.input.realEstate, [&](const RealEstate& property, int index) {
        const Decimal rentalValue = taxedRentalValue(property, params);
        imputed = imputed || !rentalValue.isZero();
        if constexpr (R::enabled) {
            explainYield(line.why, property, index, params);
        }
        yield += rentalValue + property.rentalIncome;
    });
    line.income(both(yield));
    c.investmentYield += yield;
    if (imputed) {
        c.notify(notices::imputedRentFederal());
    }
}

template <class R>
void addRealEstateCosts(Calculation<R>& c) {
    const Params& params = c.rules.cantonalExtra.liegenschaften;
    auto line = c.lines.line(
        {"liegenschaftskosten", 0, "15", "Unterhalts- und Verwaltungskosten Liegenschaften"});
    Decimal costs;
    bool flatRate = false;
    forEachItem(c.input.realEstate, [&](const RealEstate& property, int index) {
        const Decimal cost = maintenanceCosts(property, params);
        costs += cost;
        if (!property.useFlatRateMaintenance) {
            line.why.law(law::realEstateCosts, "Tatsächliche Kosten");
            line.why.input("Unterhalt und Verwaltung", property.actualMaintenanceCosts,
                           FieldPath("realEstate", "actualMaintenanceCosts").at(index));
            return;
        }
        if constexpr (R::enabled) {
            if (!cost.isZero()) {
                explainYield(line.why, property, index, params);
                line.why.rule(law::realEstateFlatRate, "Pauschale vom Mietwert und Mietertrag",
                              "liegenschaften.pauschalabzugSatz", both(params.pauschalabzugSatz),
                              Unit::share);
                line.why.step("Pauschale", both(cost));
            }
        }
        flatRate = flatRate || !cost.isZero();
    });
    std::optional<std::string> note;
    if (flatRate) {
        note = "Pauschale " + MoneyFormat::number(params.pauschalabzugSatz * 100)
               + "% des Mietwerts. Beim Bund beträgt sie für Gebäude bis zehn Jahre 10%.";
    }
    line.deduction(both(costs), std::move(note));
}

template void addRealEstateIncome(Calculation<NoRecorder>&);
template void addRealEstateIncome(Calculation<DerivationRecorder>&);
template void addRealEstateCosts(Calculation<NoRecorder>&);
template void addRealEstateCosts(Calculation<DerivationRecorder>&);

} // namespace taxcore
