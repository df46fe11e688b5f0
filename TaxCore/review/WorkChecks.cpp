#include "TaxCore/base/MoneyFormat.h"
#include "TaxCore/review/CheckParts.h"
#include "TaxCore/stgallen/WorkExpenses.h"

#include <algorithm>

namespace taxcore::review {

namespace {

// A way to work of more than this, one way, is driven by hardly anybody every day: two hours.
constexpr int longestWay = 150;
// To work and back, and home over midday.
constexpr int mostTripsPerDay = 4;
constexpr int monthsOfYear = 12;
// Who stays at the place of work travels home at most once a week.
constexpr int weeksOfYear = 53;

/// One person's professional costs in St.Gallen.
struct Costs {
    const Adult& adult;
    const WorkExpenses& entered;
    const EmploymentFacts facts;
    const BerufskostenParams& rules;   ///< of the canton
    const BerufskostenParams& federal; ///< of the federation

    FieldPath path(std::string_view field) const { return adult.workPath(field); }
    bool drives() const { return entered.carKmOneWay > 0 && entered.carWorkDays > 0; }
    const char* vehicle() const { return entered.carIsMotorbike ? "Motorrad" : "Auto"; }

    /// The part of the costs, as entered, that is larger: the canton's or the federation's.
    Decimal larger(Decimal WorkExpenseBreakdown::*part) const {
        return std::max(workExpenses(facts, entered, rules).*part,
                        workExpenses(facts, entered, federal).*part);
    }
};

void checkWithoutSalary(CheckContext& c, const Costs& it) {
    if (!it.facts.employed && it.entered != WorkExpenses{}) {
        c.warning({it.adult.id("berufskosten-ohne-lohn"), "work", "Berufskosten ohne Lohn",
                   "Für " + it.adult.called()
                       + " sind Berufskosten eingetragen, aber kein Lohnausweis. Sie zählen so "
                         "nicht.",
                   FieldPath("income", "salaries").of(it.adult.number)});
    }
}

void checkJustification(CheckContext& c, const Costs& it) {
    if (it.drives() && !it.facts.freeTransport && !isVehicleJustified(it.entered)) {
        const bool ridesTrain = it.entered.publicTransportCost > 0;
        c.warning({it.adult.id("arbeitsweg-begruendung"), "work",
                   "Begründung für das " + std::string(it.vehicle()) + " fehlt",
                   "Die Fahrten von " + it.adult.called() + " mit dem " + it.vehicle()
                       + " zählen so nicht: Es fehlt die Begründung, weshalb der öffentliche "
                         "Verkehr nicht zumutbar ist. Bitte eintragen"
                       + (ridesTrain ? "."
                                     : " oder an ihrer Stelle die Kosten des öffentlichen Verkehrs "
                                       "erfassen."),
                   it.path("carJustification")});
    }
}

/// Half an entry beside train or bicycle is a leftover rather than a gap.
void checkIncompleteDrive(CheckContext& c, const Costs& it) {
    const bool onlyOne = (it.entered.carKmOneWay > 0) != (it.entered.carWorkDays > 0);
    if (onlyOne && it.entered.publicTransportCost.isZero() && !it.entered.useBicycle
        && !it.facts.freeTransport) {
        const bool kilometresMissing = it.entered.carWorkDays > 0;
        c.warning({it.adult.id("arbeitsweg-unvollstaendig"), "work", "Arbeitsweg unvollständig",
                   std::string("Beim Arbeitsweg von ") + it.adult.called() + " mit dem "
                       + it.vehicle() + " fehlen die "
                       + (kilometresMissing ? "Kilometer" : "Arbeitstage")
                       + ". Ohne sie gibt es keinen Abzug.",
                   it.path(kilometresMissing ? "carKmOneWay" : "carWorkDays")});
    }
}

/// Box F: the employer carries the person to work, so nothing of the way counts.
void checkFreeTransport(CheckContext& c, const Costs& it) {
    if (it.facts.freeTransport
        && (it.entered.publicTransportCost > 0 || it.entered.useBicycle || it.drives())) {
        c.info({it.adult.id("arbeitsweg-feld-f"), "work", "Arbeitsweg mit Feld F",
                "Im Lohnausweis von " + it.adult.called()
                    + " ist Feld F angekreuzt (unentgeltliche Beförderung). Die Fahrkosten zählen "
                      "deshalb nicht.",
                it.path(it.entered.publicTransportCost > 0 ? "publicTransportCost"
                        : it.entered.useBicycle            ? "useBicycle"
                                                           : "carKmOneWay")});
    }
}

void checkMealsWithBoxG(CheckContext& c, const Costs& it) {
    if (it.entered.mealDays > 0 && mealSituation(it.facts, it.entered) != it.entered.meals) {
        c.info({it.adult.id("verpflegung-feld-g"), "work", "Verpflegung mit Feld G",
                "Im Lohnausweis von " + it.adult.called()
                    + " ist Feld G angekreuzt (Kantine, Lunch-Checks). Die Verpflegung zählt "
                      "deshalb nur mit "
                    + MoneyFormat::chf(it.rules.verpflegungVerbilligtProTag, 2, true) + " pro Tag.",
                it.path("meals")});
    }
}

void checkIncompleteMeals(CheckContext& c, const Costs& it) {
    const bool chosen = it.entered.meals != MealSituation::keine;
    if (chosen == (it.entered.mealDays > 0)) {
        return;
    }
    c.warning({it.adult.id("verpflegung-unvollstaendig"), "work", "Verpflegung unvollständig",
               "Bei der Verpflegung von " + it.adult.called()
                   + (chosen ? " fehlt die Zahl der Tage."
                             : " sind Tage eingetragen, aber «Heimkehr möglich» ist gewählt.")
                   + " So gibt es keinen Abzug.",
               it.path(chosen ? "mealDays" : "meals")});
}

void checkLongDrive(CheckContext& c, const Costs& it) {
    if (!it.drives()) {
        return;
    }
    if (it.entered.carKmOneWay > longestWay) {
        c.warning({it.adult.id("arbeitsweg-kilometer"), "work", "Sehr weiter Arbeitsweg",
                   "Der Arbeitsweg von " + it.adult.called() + " misst "
                       + MoneyFormat::number(it.entered.carKmOneWay)
                       + " km in einer Richtung. Bitte prüfen, ob nicht die Kilometer des Tages "
                         "oder der Woche eingetragen sind.",
                   it.path("carKmOneWay")});
    }
    if (it.entered.carTripsPerDay > mostTripsPerDay) {
        c.warning({it.adult.id("arbeitsweg-fahrten"), "work", "Viele Fahrten am Tag",
                   "Beim Arbeitsweg von " + it.adult.called() + " sind "
                       + MoneyFormat::number(it.entered.carTripsPerDay)
                       + " Fahrten am Tag eingetragen. Hin und zurück sind zwei; bitte prüfen.",
                   it.path("carTripsPerDay")});
    }
}

/// Train and car together may be a drive to the station.
void checkTrainAndCar(CheckContext& c, const Costs& it) {
    if (it.entered.publicTransportCost > 0 && it.drives() && isVehicleJustified(it.entered)
        && !it.facts.freeTransport) {
        c.info({it.adult.id("arbeitsweg-oev-und-auto"), "work",
                "Öffentlicher Verkehr und " + std::string(it.vehicle()),
                "Für den Arbeitsweg von " + it.adult.called()
                    + " sind der öffentliche Verkehr und das " + it.vehicle()
                    + " eingetragen. Beide zusammen gelten nur, wenn sie für verschiedene Strecken "
                      "oder Tage gebraucht wurden.",
                it.path("publicTransportCost")});
    }
}

void checkWeeklyStay(CheckContext& c, const Costs& it) {
    const WorkExpenses& work = it.entered;
    if (!work.weeklyStay) {
        return;
    }
    if (work.weeklyStayMonths > monthsOfYear) {
        c.warning({it.adult.id("wochenaufenthalt-monate"), "work", "Mehr als 12 Monate",
                   "Beim Wochenaufenthalt von " + it.adult.called() + " sind "
                       + std::to_string(work.weeklyStayMonths)
                       + " Monate eingetragen; gerechnet wird mit höchstens 12.",
                   it.path("weeklyStayMonths")});
    }
    if (it.drives() && drivesDailyBesideWeeklyStay(work, it.rules)) {
        c.warning({it.adult.id("wochenaufenthalt-arbeitsweg"), "work",
                   "Wochenaufenthalt und täglicher Arbeitsweg",
                   it.adult.called() + " hat ein Zimmer am Arbeitsort und fährt an "
                       + std::to_string(work.carWorkDays)
                       + " Tagen von zu Hause zur Arbeit. Bei Wochenaufenthalt zählt nur die "
                         "wöchentliche Heimkehr; bitte die Tage prüfen.",
                   it.path("carWorkDays")});
    }
    const bool noRoom = work.weeklyStayMonths <= 0 || work.weeklyStayRoomPerMonth <= 0;
    if (noRoom && work.weeklyStayDays <= 0) {
        c.warning(
            {it.adult.id("wochenaufenthalt-leer"), "work", "Wochenaufenthalt unvollständig",
             "Beim Wochenaufenthalt von " + it.adult.called()
                 + " fehlen die Kosten und Monate des Zimmers und die Tage. So gibt es "
                   "keinen Abzug.",
             it.path(work.weeklyStayMonths > 0 ? "weeklyStayRoomPerMonth" : "weeklyStayMonths")});
    }
}

/// What the canton gives instead of actual costs: "mit der Pauschale von Fr. 2’400".
std::string flatRateOf(const Decimal& amount) {
    return amount.isZero() ? std::string("ohne Abzug")
                           : "mit der Pauschale von " + MoneyFormat::fr(amount);
}

/// Costs below a flat rate are rightly left unchosen; between that of the canton and that of the
/// federation only the whole tax tells.
void checkOtherCosts(CheckContext& c, const Costs& it) {
    const WorkExpenses& work = it.entered;
    if (!work.useActualOtherCosts && it.facts.hasMain
        && work.actualOtherCosts > it.larger(&WorkExpenseBreakdown::other)) {
        c.info({it.adult.id("uebrige-kosten-nicht-gewaehlt"), "work",
                "Tatsächliche Kosten nicht gewählt",
                "Für " + it.adult.called() + " sind " + MoneyFormat::fr(work.actualOtherCosts)
                    + " tatsächliche übrige Berufskosten eingetragen. Gerechnet wird beim Kanton "
                    + flatRateOf(workExpenses(it.facts, work, it.rules).other)
                    + "; mit Belegen gelten die tatsächlichen Kosten.",
                it.path("useActualOtherCosts")});
    }
    if (it.facts.flatRateExpenses && !work.useActualOtherCosts) {
        const auto& salaries = it.adult.income.salaries;
        const auto paid = std::ranges::find_if(salaries, [](const SalaryCertificate& certificate) {
            return certificate.isMainEmployment && certificate.flatRateExpenses > 0;
        });
        c.info({it.adult.id("uebrige-kosten-pauschalspesen"), "work", "Pauschalspesen",
                "Der Arbeitgeber von " + it.adult.called() + " zahlt "
                    + MoneyFormat::fr(paid->flatRateExpenses)
                    + " Pauschalspesen. Die Pauschale für übrige Berufskosten entfällt deshalb.",
                FieldPath("income", "salaries", "flatRateExpenses")
                    .of(it.adult.number)
                    .at(static_cast<int>(paid - salaries.begin()))});
    }
}

void checkSideJob(CheckContext& c, const Costs& it) {
    const WorkExpenses& work = it.entered;
    if (work.sideJobActualCosts <= 0) {
        return;
    }
    const std::string told = "Für " + it.adult.called() + " sind "
                             + MoneyFormat::fr(work.sideJobActualCosts)
                             + " tatsächliche Kosten des Nebenerwerbs eingetragen";
    if (!it.facts.hasSide) {
        c.warning({it.adult.id("nebenerwerb-fehlt"), "work", "Kosten ohne Nebenerwerb",
                   told + ", aber kein Lohnausweis eines Nebenerwerbs. Sie zählen so nicht.",
                   it.path("sideJobActualCosts")});
    } else if (!work.sideJobUseActual
               && work.sideJobActualCosts > it.larger(&WorkExpenseBreakdown::sideJob)) {
        c.info({it.adult.id("nebenerwerb-nicht-gewaehlt"), "work",
                "Tatsächliche Kosten nicht gewählt",
                told + ". Gerechnet wird beim Kanton "
                    + flatRateOf(workExpenses(it.facts, work, it.rules).sideJob)
                    + "; mit Belegen gelten die tatsächlichen Kosten.",
                it.path("sideJobUseActual")});
    }
}

void checkWorkInStGallen(CheckContext& c, const RuleBook& rules, const Adult& adult) {
    const Costs it{adult, adult.deductions.work, EmploymentFacts(adult.income.salaries),
                   rules.cantonal.berufskosten, rules.federal.berufskosten};
    checkWithoutSalary(c, it);
    if (!it.facts.employed) {
        return;
    }
    checkJustification(c, it);
    checkIncompleteDrive(c, it);
    checkFreeTransport(c, it);
    checkDays(
        c, adult,
        {"arbeitsweg-tage", "Beim Arbeitsweg", it.path("carWorkDays"), it.entered.carWorkDays},
        it.rules.arbeitstageMax);
    checkLongDrive(c, it);
    checkTrainAndCar(c, it);
    checkMealsWithBoxG(c, it);
    checkIncompleteMeals(c, it);
    checkDays(c, adult,
              {"verpflegung-tage", "Bei der Verpflegung", it.path("mealDays"), it.entered.mealDays},
              it.rules.arbeitstageMax);
    checkOtherCosts(c, it);
    checkWeeklyStay(c, it);
    checkSideJob(c, it);
}

} // namespace

void checkDays(CheckContext& c, const Adult& adult, const WorkDays& days, int most) {
    if (days.entered > most) {
        c.warning({adult.id(days.stem), "work", "Mehr als " + std::to_string(most) + " Tage",
                   std::string(days.where) + " von " + adult.called() + " sind "
                       + std::to_string(days.entered)
                       + " Tage eingetragen; gerechnet wird mit höchstens " + std::to_string(most)
                       + ".",
                   days.path});
    }
}

bool drivesDailyBesideWeeklyStay(const WorkExpenses& work, const BerufskostenParams& rules) {
    // Months without a room at the place of work may be commuted daily.
    const int months = std::clamp(work.weeklyStayMonths, 0, monthsOfYear);
    const int plausible =
        weeksOfYear + rules.arbeitstageMax * (monthsOfYear - months) / monthsOfYear;
    return work.weeklyStay && work.carWorkDays > plausible;
}

void checkWork(CheckContext& c) {
    if (c.liechtenstein != nullptr) {
        checkWorkInLiechtenstein(c, *c.liechtenstein);
        return;
    }
    for (const Adult& adult : c.adults) {
        checkWorkInStGallen(c, *c.stGallen, adult);
    }
}

} // namespace taxcore::review
