#include "TaxCore/base/MoneyFormat.h"
#include "TaxCore/base/Text.h"
#include "TaxCore/liechtenstein/WorkCosts.h"
#include "TaxCore/review/CheckParts.h"

#include <algorithm>

namespace taxcore::review {

namespace {

/// One person's way to work in Liechtenstein.
struct Way {
    const Adult& adult;
    const LICommute commute;
    const LIRules& rules;

    FieldPath path(std::string_view field) const {
        return {"li", adult.number == 1 ? "commute1" : "commute2", field};
    }
    bool isAbroad() const { return commute.mode == LICommute::Mode::ausland; }
    bool hasPlaces() const { return !isBlank(commute.from) || !isBlank(commute.to); }
    bool knows(const std::string& place) const {
        return std::ranges::find(rules.fahrkostenOrte, place) != rules.fahrkostenOrte.end();
    }
};

bool isSalaried(const Adult& adult) {
    return std::ranges::any_of(adult.income.salaries, [](const SalaryCertificate& certificate) {
        return certificate.grossSalary > 0;
    });
}

void checkWithoutSalary(CheckContext& c, const Way& it) {
    if (it.commute != LICommute{}) {
        c.warning({it.adult.id("berufskosten-ohne-lohn"), "work", "Berufskosten ohne Lohn",
                   "Für " + it.adult.called()
                       + " ist ein Arbeitsweg eingetragen, aber kein Lohn. Er zählt so nicht.",
                   FieldPath("income", "salaries").of(it.adult.number)});
    }
}

/// Without any place there is no way to work, or it costs less than the flat rate.
void checkPlaces(CheckContext& c, const Way& it) {
    if (it.isAbroad() || !it.hasPlaces() || li::usesFareTable(it.commute, it.rules)) {
        return;
    }
    const bool startIsKnown = it.knows(it.commute.from);
    const std::string& place = startIsKnown ? it.commute.to : it.commute.from;
    c.warning({it.adult.id("li-ort-unbekannt"), "work", "Strecke nicht in der Tabelle",
               (isBlank(place) ? "Beim Arbeitsweg von " + it.adult.called() + " fehlt der "
                                     + (startIsKnown ? "Arbeitsort" : "Wohnort") + "."
                               : "Der Ort «" + place + "» beim Arbeitsweg von " + it.adult.called()
                                     + " steht nicht in der Tabelle der Fahrkosten.")
                   + " So gibt es keine Fahrkosten; bitte einen Ort der Liste wählen"
                   + (it.knows(it.commute.to) ? "."
                                              : " oder, wenn der Arbeitsort im Ausland liegt, «"
                                                    + std::string(label(LICommute::Mode::ausland))
                                                    + "» mit den Kilometern pro Tag."),
               it.path(startIsKnown ? "to" : "from")});
}

void checkKilometres(CheckContext& c, const Way& it) {
    if (!it.isAbroad()) {
        return;
    }
    if (it.commute.kmPerDay <= 0) {
        c.warning({it.adult.id("li-kilometer-fehlen"), "work", "Kilometer fehlen",
                   "Beim Arbeitsweg von " + it.adult.called()
                       + " ins Ausland fehlen die Kilometer pro Tag. Ohne sie gibt es keine "
                         "Fahrkosten.",
                   it.path("kmPerDay")});
    } else if (it.commute.kmPerDay > it.rules.fahrMaxKmProTag) {
        c.warning({it.adult.id("li-kilometer"), "work", "Sehr weiter Arbeitsweg",
                   "Beim Arbeitsweg von " + it.adult.called() + " sind "
                       + MoneyFormat::number(it.commute.kmPerDay)
                       + " km pro Tag eingetragen; gerechnet wird mit höchstens "
                       + MoneyFormat::number(it.rules.fahrMaxKmProTag) + ".",
                   it.path("kmPerDay")});
    }
}

/// The seat of all employers against the place of work.
void checkPlaceOfWork(CheckContext& c, const Way& it) {
    const auto& salaries = it.adult.income.salaries;
    const auto allSeated = [&](bool inLiechtenstein) {
        return std::ranges::all_of(salaries, [&](const SalaryCertificate& certificate) {
            return certificate.employerInLiechtenstein == inLiechtenstein;
        });
    };
    const bool contradicts = it.isAbroad() ? allSeated(true) : it.hasPlaces() && allSeated(false);
    if (contradicts) {
        c.info({it.adult.id("li-arbeitsort"), "work", "Arbeitsort und Arbeitgeber",
                "Der Arbeitsweg von " + it.adult.called() + " führt "
                    + (it.isAbroad() ? "ins Ausland, der Arbeitgeber hat aber seinen Sitz in "
                                       "Liechtenstein."
                                     : "nach einem Ort in Liechtenstein, der Arbeitgeber hat aber "
                                       "seinen Sitz im Ausland.")
                    + " Bitte beides prüfen.",
                it.path("mode")});
    }
}

/// What the return says of fares from the table.
void checkFareTable(CheckContext& c) {
    const TaxLine* costs = c.result.line("580");
    if (costs == nullptr || !costs->note) {
        return;
    }
    const LIExtras extras = c.taxCase.liExtras();
    const bool first = li::usesFareTable(extras.commute1, *c.liechtenstein);
    c.info({"li-fahrkosten-tabelle", "work", "Fahrkosten aus der Tabelle", *costs->note + ".",
            FieldPath("li", first ? "commute1" : "commute2", "from")});
}

} // namespace

void checkWorkInLiechtenstein(CheckContext& c, const LIRules& rules) {
    const LIExtras extras = c.taxCase.liExtras();
    for (const Adult& adult : c.adults) {
        const Way it{adult, adult.number == 1 ? extras.commute1 : extras.commute2, rules};
        if (!isSalaried(adult)) {
            checkWithoutSalary(c, it);
            continue;
        }
        checkPlaces(c, it);
        checkKilometres(c, it);
        checkDays(c, adult,
                  {"li-arbeitstage", "Beim Arbeitsweg", it.path("workDays"), it.commute.workDays},
                  rules.fahrMaxTage);
        checkDays(c, adult,
                  {"li-verpflegung-tage", "Bei der Verpflegung", it.path("mealDays"),
                   it.commute.mealDays},
                  rules.fahrMaxTage);
        checkPlaceOfWork(c, it);
    }
    checkFareTable(c);
}

} // namespace taxcore::review
