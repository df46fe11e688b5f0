#include "TaxCore/stgallen/Law.h"
#include "TaxCore/stgallen/WorkExpenses.h"

namespace taxcore {

namespace {

using Params = PerJurisdiction<const DeductionParams*>;
using Parts = PerJurisdiction<WorkExpenseBreakdown>;

/// The explanation of one person's work expenses, part by part. It computes nothing: amounts come
/// from the result, rule values from the rule book.
class Explanation {
  public:
    Explanation(DerivationRecorder::Draft& why, int person, const EmploymentFacts& facts,
                const WorkExpenses& p, const Params& params, const Parts& parts)
        : why_(why), person_(person), facts_(facts), p_(p), params_(params), parts_(parts) {}

    void commute() {
        if (facts_.freeTransport) {
            why_.fact("Feld F im Lohnausweis ist angekreuzt – kein Abzug für den Arbeitsweg.");
            return;
        }
        input("Öffentlicher Verkehr", p_.publicTransportCost, "publicTransportCost");
        if (p_.useBicycle) {
            input("Velo, E-Bike oder Kleinmotorrad", p_.bicycleCost, "bicycleCost");
            rule(law::commute, "Velo höchstens", "berufskosten.veloMax",
                 &BerufskostenParams::veloMax);
        }
        privateVehicle();
        if (!parts_.canton.commuteUncapped.isZero()) {
            step("Arbeitsweg vor der Begrenzung", &WorkExpenseBreakdown::commuteUncapped);
            rule(law::commute, "Fahrkosten höchstens", "berufskosten.fahrkostenMax",
                 &BerufskostenParams::fahrkostenMax);
            step("Arbeitsweg", &WorkExpenseBreakdown::commute);
        }
    }

    void meals() {
        if (p_.meals == MealSituation::keine || p_.mealDays == 0) {
            return;
        }
        const MealSituation situation = mealSituation(facts_, p_);
        if (situation != p_.meals) {
            why_.fact("Feld G im Lohnausweis ist angekreuzt – die Verpflegung ist verbilligt.");
        }
        input("Verpflegungstage", p_.mealDays, "mealDays", Unit::number);
        workingDaysMaximum(law::meals);
        switch (situation) {
        case MealSituation::auswaerts:
            rule(law::meals, "Auswärts essen, pro Tag", "berufskosten.verpflegungProTag",
                 &BerufskostenParams::verpflegungProTag);
            rule(law::meals, "im Jahr höchstens", "berufskosten.verpflegungMax",
                 &BerufskostenParams::verpflegungMax);
            break;
        case MealSituation::verbilligt:
            rule(law::meals, "Verbilligte Verpflegung, pro Tag",
                 "berufskosten.verpflegungVerbilligtProTag",
                 &BerufskostenParams::verpflegungVerbilligtProTag);
            rule(law::meals, "im Jahr höchstens", "berufskosten.verpflegungVerbilligtMax",
                 &BerufskostenParams::verpflegungVerbilligtMax);
            break;
        default:
            rule(law::meals, "Schicht- oder Nachtarbeit, pro Tag", "berufskosten.schichtProTag",
                 &BerufskostenParams::schichtProTag);
            rule(law::meals, "im Jahr höchstens", "berufskosten.schichtMax",
                 &BerufskostenParams::schichtMax);
            break;
        }
        step("Verpflegung", &WorkExpenseBreakdown::meals);
    }

    void other() {
        if (!facts_.hasMain) {
            why_.fact("Ohne Haupterwerb gibt es keine übrigen Berufskosten.");
            return;
        }
        if (p_.useActualOtherCosts) {
            why_.law(law::otherWorkCosts, "Tatsächliche Kosten statt der Pauschale");
            input("Übrige Berufskosten, tatsächlich", p_.actualOtherCosts, "actualOtherCosts");
            return;
        }
        if (facts_.flatRateExpenses) {
            why_.fact("Der Arbeitgeber zahlt Pauschalspesen – die Pauschale für übrige "
                      "Berufskosten entfällt.");
            return;
        }
        why_.line("haupterwerb", person_, "Nettolohn aus Haupterwerb", both(facts_.mainNet));
        rule(law::otherWorkCosts, "Pauschale, Grundbetrag", "berufskosten.uebrigePauschalBasis",
             &BerufskostenParams::uebrigePauschalBasis);
        rule(law::otherWorkCosts, "Pauschale, Anteil am Nettolohn",
             "berufskosten.uebrigePauschalSatz", &BerufskostenParams::uebrigePauschalSatz,
             Unit::share);
        rule(law::otherWorkCosts, "mindestens", "berufskosten.uebrigePauschalMin",
             &BerufskostenParams::uebrigePauschalMin);
        rule(law::otherWorkCosts, "höchstens", "berufskosten.uebrigePauschalMax",
             &BerufskostenParams::uebrigePauschalMax);
        step("Übrige Berufskosten", &WorkExpenseBreakdown::other);
    }

    void weeklyStay() {
        if (!p_.weeklyStay) {
            return;
        }
        input("Wochenaufenthalt: Zimmer pro Monat", p_.weeklyStayRoomPerMonth,
              "weeklyStayRoomPerMonth");
        input("Wochenaufenthalt: Monate (höchstens 12)", p_.weeklyStayMonths, "weeklyStayMonths",
              Unit::number);
        rule(law::weeklyStay, "Zimmer mindestens", "berufskosten.wochenaufenthaltZimmerMinProMonat",
             &BerufskostenParams::wochenaufenthaltZimmerMinProMonat);
        rule(law::weeklyStay, "Zimmer höchstens", "berufskosten.wochenaufenthaltZimmerMaxProMonat",
             &BerufskostenParams::wochenaufenthaltZimmerMaxProMonat);
        input("Wochenaufenthalt: Tage", p_.weeklyStayDays, "weeklyStayDays", Unit::number);
        if (p_.weeklyStayMealsReduced) {
            rule(law::weeklyStay, "Verbilligte Verpflegung, pro Tag",
                 "berufskosten.wochenaufenthaltVerpflegungVerbilligtProTag",
                 &BerufskostenParams::wochenaufenthaltVerpflegungVerbilligtProTag);
            rule(law::weeklyStay, "im Jahr höchstens",
                 "berufskosten.wochenaufenthaltVerpflegungVerbilligtMax",
                 &BerufskostenParams::wochenaufenthaltVerpflegungVerbilligtMax);
        } else {
            rule(law::weeklyStay, "Verpflegung, pro Tag",
                 "berufskosten.wochenaufenthaltVerpflegungProTag",
                 &BerufskostenParams::wochenaufenthaltVerpflegungProTag);
            rule(law::weeklyStay, "im Jahr höchstens",
                 "berufskosten.wochenaufenthaltVerpflegungMax",
                 &BerufskostenParams::wochenaufenthaltVerpflegungMax);
        }
        step("Wochenaufenthalt", &WorkExpenseBreakdown::weeklyStay);
    }

    void sideJob() {
        if (!facts_.hasSide) {
            return;
        }
        if (p_.sideJobUseActual) {
            why_.law(law::sideJob, "Tatsächliche Kosten statt der Pauschale");
            input("Kosten Nebenerwerb, tatsächlich", p_.sideJobActualCosts, "sideJobActualCosts");
            return;
        }
        why_.line("nebenerwerb", person_, "Nettolohn aus Nebenerwerb", both(facts_.sideNet));
        rule(law::sideJob, "Pauschale, Anteil am Nettolohn", "berufskosten.nebenerwerbSatz",
             &BerufskostenParams::nebenerwerbSatz, Unit::share);
        rule(law::sideJob, "mindestens", "berufskosten.nebenerwerbMin",
             &BerufskostenParams::nebenerwerbMin);
        rule(law::sideJob, "höchstens", "berufskosten.nebenerwerbMax",
             &BerufskostenParams::nebenerwerbMax);
        step("Kosten Nebenerwerb", &WorkExpenseBreakdown::sideJob);
    }

  private:
    void privateVehicle() {
        if (p_.carKmOneWay.isZero()) {
            return;
        }
        if (!isVehicleJustified(p_)) {
            why_.fact("Ohne Begründung zählt das private Motorfahrzeug nicht.",
                      path("carJustification"));
            return;
        }
        input("Kilometer pro Weg", p_.carKmOneWay, "carKmOneWay", Unit::number);
        input("Wege pro Arbeitstag", p_.carTripsPerDay, "carTripsPerDay", Unit::number);
        input("Arbeitstage mit dem Motorfahrzeug", p_.carWorkDays, "carWorkDays", Unit::number);
        workingDaysMaximum(law::privateVehicle);
        if (p_.carIsMotorbike) {
            rule(law::privateVehicle, "Motorrad, pro Kilometer", "berufskosten.motorradProKm",
                 &BerufskostenParams::motorradProKm);
        } else {
            rule(law::privateVehicle, "Auto, pro Kilometer", "berufskosten.autoProKm",
                 &BerufskostenParams::autoProKm);
        }
    }

    void workingDaysMaximum(const Law& law) {
        why_.rule(
            law, "Arbeitstage höchstens", "berufskosten.arbeitstageMax",
            each([](const DeductionParams* p) { return Decimal(p->berufskosten.arbeitstageMax); },
                 params_),
            Unit::number);
    }

    FieldPath path(std::string_view field) const {
        return FieldPath("deductions", "work", field).of(person_);
    }
    void input(std::string_view text, const Decimal& amount, std::string_view field,
               Unit unit = Unit::francs) {
        if (!amount.isZero()) {
            why_.input(text, amount, path(field), unit);
        }
    }
    void rule(const Law& law, std::string_view text, std::string_view key,
              Decimal BerufskostenParams::*value, Unit unit = Unit::francs) {
        why_.rule(law, text, key,
                  each([&](const DeductionParams* p) { return p->berufskosten.*value; }, params_),
                  unit);
    }
    void step(std::string_view text, Decimal WorkExpenseBreakdown::*part) {
        why_.step(text, each([&](const WorkExpenseBreakdown& b) { return b.*part; }, parts_));
    }

    DerivationRecorder::Draft& why_;
    int person_;
    const EmploymentFacts& facts_;
    const WorkExpenses& p_;
    const Params& params_;
    const Parts& parts_;
};

} // namespace

void explainWorkExpenses(DerivationRecorder::Draft& why, int person, const EmploymentFacts& facts,
                         const WorkExpenses& p, const Params& params, const Parts& result) {
    if (!facts.employed) {
        why.fact("Berufskosten sind nur bei unselbständiger Erwerbstätigkeit abziehbar.");
        return;
    }
    Explanation explanation(why, person, facts, p, params, result);
    explanation.commute();
    explanation.meals();
    explanation.other();
    explanation.weeklyStay();
    explanation.sideJob();
}

} // namespace taxcore
