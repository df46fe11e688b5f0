#include "TaxCore/stgallen/WorkExpenses.h"

#include "TaxCore/base/Text.h"

#include <algorithm>

namespace taxcore {

namespace {

/// `amount` kept between the bounds; the upper one wins.
Decimal between(const Decimal& least, const Decimal& amount, const Decimal& most) {
    return std::min(std::max(amount, least), most);
}

/// Days × rate, at most the yearly maximum.
Decimal perDay(int days, const Decimal& rate, const Decimal& maximum) {
    return std::min(rate * days, maximum);
}

/// DBG Art. 26 Abs. 1 Bst. a, BKV Art. 5
Decimal commuteCost(const EmploymentFacts& facts, const WorkExpenses& p,
                    const BerufskostenParams& params) {
    if (facts.freeTransport) {
        return 0;
    }
    Decimal cost = p.publicTransportCost;
    if (p.useBicycle) {
        cost += std::min(p.bicycleCost, params.veloMax);
    }
    return cost + privateVehicleCost(p, params);
}

/// DBG Art. 26 Abs. 1 Bst. b, BKV Art. 6
Decimal mealCost(const EmploymentFacts& facts, const WorkExpenses& p,
                 const BerufskostenParams& params) {
    const int days = std::min(p.mealDays, params.arbeitstageMax);
    switch (mealSituation(facts, p)) {
    case MealSituation::keine:
        return 0;
    case MealSituation::auswaerts:
        return perDay(days, params.verpflegungProTag, params.verpflegungMax);
    case MealSituation::verbilligt:
        return perDay(days, params.verpflegungVerbilligtProTag, params.verpflegungVerbilligtMax);
    case MealSituation::schicht:
        return perDay(days, params.schichtProTag, params.schichtMax);
    }
    return 0;
}

/// The flat rate never exceeds the salary it belongs to and falls away with flat-rate expenses of
/// the employer. DBG Art. 26 Abs. 1 Bst. c und Abs. 2, BKV Art. 7
Decimal otherCost(const EmploymentFacts& facts, const WorkExpenses& p,
                  const BerufskostenParams& params) {
    if (!facts.hasMain) {
        return 0;
    }
    if (p.useActualOtherCosts) {
        return p.actualOtherCosts;
    }
    if (facts.flatRateExpenses) {
        return 0;
    }
    const Decimal flat = params.uebrigePauschalBasis + params.uebrigePauschalSatz * facts.mainNet;
    return std::min(between(params.uebrigePauschalMin, flat, params.uebrigePauschalMax),
                    facts.mainNet);
}

/// BKV Art. 9
Decimal weeklyStayCost(const WorkExpenses& p, const BerufskostenParams& params) {
    if (!p.weeklyStay) {
        return 0;
    }
    Decimal cost;
    if (p.weeklyStayRoomPerMonth > 0) {
        cost = between(params.wochenaufenthaltZimmerMinProMonat, p.weeklyStayRoomPerMonth,
                       params.wochenaufenthaltZimmerMaxProMonat)
               * std::min(p.weeklyStayMonths, 12);
    }
    return cost
           + (p.weeklyStayMealsReduced
                  ? perDay(p.weeklyStayDays, params.wochenaufenthaltVerpflegungVerbilligtProTag,
                           params.wochenaufenthaltVerpflegungVerbilligtMax)
                  : perDay(p.weeklyStayDays, params.wochenaufenthaltVerpflegungProTag,
                           params.wochenaufenthaltVerpflegungMax));
}

/// The flat rate never exceeds the side salary. BKV Art. 10
Decimal sideJobCost(const EmploymentFacts& facts, const WorkExpenses& p,
                    const BerufskostenParams& params) {
    if (!facts.hasSide) {
        return 0;
    }
    if (p.sideJobUseActual) {
        return p.sideJobActualCosts;
    }
    return std::min(between(params.nebenerwerbMin, params.nebenerwerbSatz * facts.sideNet,
                            params.nebenerwerbMax),
                    facts.sideNet);
}

} // namespace

EmploymentFacts::EmploymentFacts(const std::vector<SalaryCertificate>& salaries)
    : employed(!salaries.empty()) {
    bool freeTransportAnywhere = false;
    for (const SalaryCertificate& certificate : salaries) {
        freeTransportAnywhere = freeTransportAnywhere || certificate.fieldF;
        if (!certificate.isMainEmployment) {
            hasSide = true;
            sideNet += certificate.netSalary();
            continue;
        }
        hasMain = true;
        mainNet += certificate.netSalary();
        freeTransport = freeTransport || certificate.fieldF;
        subsidisedMeals = subsidisedMeals || certificate.fieldG;
        flatRateExpenses = flatRateExpenses || certificate.flatRateExpenses > 0;
    }
    if (!hasMain) {
        freeTransport = freeTransportAnywhere;
    }
}

MealSituation mealSituation(const EmploymentFacts& facts, const WorkExpenses& p) noexcept {
    return p.meals == MealSituation::auswaerts && facts.subsidisedMeals ? MealSituation::verbilligt
                                                                        : p.meals;
}

bool isVehicleJustified(const WorkExpenses& p) noexcept { return !isBlank(p.carJustification); }

Decimal privateVehicleCost(const WorkExpenses& p, const BerufskostenParams& params) {
    if (!isVehicleJustified(p)) {
        return 0;
    }
    const Decimal kilometres =
        p.carKmOneWay * p.carTripsPerDay * std::min(p.carWorkDays, params.arbeitstageMax);
    return kilometres * (p.carIsMotorbike ? params.motorradProKm : params.autoProKm);
}

WorkExpenseBreakdown workExpenses(const EmploymentFacts& facts, const WorkExpenses& p,
                                  const BerufskostenParams& params) {
    WorkExpenseBreakdown result;
    if (!facts.employed) {
        return result;
    }
    result.commuteUncapped = commuteCost(facts, p, params);
    result.commute = std::min(result.commuteUncapped, params.fahrkostenMax);
    result.meals = mealCost(facts, p, params);
    result.other = otherCost(facts, p, params);
    result.weeklyStay = weeklyStayCost(p, params);
    result.sideJob = sideJobCost(facts, p, params);
    return result;
}

} // namespace taxcore
