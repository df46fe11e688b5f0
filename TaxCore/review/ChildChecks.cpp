#include "TaxCore/base/Text.h"
#include "TaxCore/model/Household.h"
#include "TaxCore/result/Sums.h"
#include "TaxCore/review/CheckParts.h"
#include "TaxCore/review/CheckText.h"

#include <algorithm>

namespace taxcore::review {

namespace {

// A date that makes a parent younger than this is more likely mistyped than true.
constexpr int youngestParent = 12;
// Whoever is older hardly still does the first training that parents pay for.
constexpr int oldestTrainee = 30;
// A grammar school takes pupils in the year they turn twelve, in Liechtenstein after five years of
// primary school.
constexpr int earliestGrammarSchool = 11;

struct Kid {
    const Child& child;
    int index;

    std::string called() const { return review::called(child, index); }
    FieldPath path(std::string_view field) const { return FieldPath("children", field).at(index); }
};

void checkChildName(CheckContext& c, const Kid& kid) {
    if (isBlank(kid.child.firstName) || isBlank(kid.child.lastName)) {
        c.warning(
            {itemId("kind-name-fehlt", kid.index), "family", "Name des Kindes fehlt",
             "Bitte Vor- und Nachnamen von Kind " + std::to_string(kid.index + 1) + " eintragen.",
             kid.path(isBlank(kid.child.firstName) ? "firstName" : "lastName")});
    }
}

void checkMissingBirthDate(CheckContext& c, const Kid& kid) {
    if (!kid.child.birthDate) {
        c.warning({itemId("kind-geburtsdatum-fehlt", kid.index), "family",
                   "Geburtsdatum des Kindes fehlt",
                   "Bitte das Geburtsdatum von " + kid.called()
                       + " eintragen. Mehrere Abzüge hängen vom Alter ab.",
                   kid.path("birthDate")});
    }
}

void checkBirthAhead(CheckContext& c, const Kid& kid, Date birth) {
    if (birth > c.today) {
        c.warning(
            {itemId("kind-geburtsdatum-zukunft", kid.index), "family",
             "Geburtsdatum des Kindes in der Zukunft",
             "Das Geburtsdatum von " + kid.called()
                 + " liegt in der Zukunft. Ein Kind zählt erst ab der Geburt; bitte das Datum "
                   "prüfen.",
             kid.path("birthDate")});
    } else if (birth.year() > c.taxCase.year) {
        c.info({itemId("kind-spaeter-geboren", kid.index), "family", "Kind erst später geboren",
                kid.called() + " ist erst nach dem 31. Dezember " + std::to_string(c.taxCase.year)
                    + " geboren und zählt in diesem Steuerjahr noch nicht.",
                kid.path("birthDate")});
    }
}

/// Whether the stage suits the age, give or take a year: children start late, repeat a year or skip
/// one. From when on a training or none at all is unusual has checks of its own.
bool suitsAge(ChildEducation stage, Date birth, int year) {
    const auto usual = [&](int inYear) { return TaxCalculator::suggestedEducation(birth, inYear); };
    switch (stage) {
    case ChildEducation::vorschule:
        return usual(year - 1) == ChildEducation::vorschule;
    case ChildEducation::schule:
        return usual(year + 1) != ChildEducation::vorschule
               && (usual(year - 1) == ChildEducation::vorschule
                   || usual(year - 1) == ChildEducation::schule);
    case ChildEducation::ausbildung:
        return TaxCalculator::age(birth, year) >= earliestGrammarSchool;
    case ChildEducation::keine:
        break;
    }
    return true;
}

void checkStage(CheckContext& c, const Kid& kid, Date birth) {
    const ChildEducation stage = kid.child.education;
    if (suitsAge(stage, birth, c.taxCase.year)) {
        return;
    }
    const auto usual = TaxCalculator::suggestedEducation(birth, c.taxCase.year);
    c.warning({itemId("kind-stufe", kid.index), "family", "Ausbildungsstufe und Alter",
               kid.called() + " ist am Jahresende "
                   + std::to_string(TaxCalculator::age(birth, c.taxCase.year))
                   + " Jahre alt; dazu passt «" + std::string(label(stage)) + "» kaum. Üblich ist «"
                   + std::string(label(usual)) + "». Bitte Stufe und Geburtsdatum prüfen.",
               kid.path("education")});
}

void checkWithoutEducation(CheckContext& c, const Kid& kid, Date birth) {
    const int age = TaxCalculator::age(birth, c.taxCase.year);
    if (kid.child.education == ChildEducation::keine && age < schoolLeavingAge) {
        c.warning({itemId("kind-ohne-ausbildung", kid.index), "family", "Kind ohne Ausbildung",
                   kid.called() + " ist am Jahresende " + std::to_string(age)
                       + " Jahre alt und steht auf «keine Ausbildung»; so entfällt der "
                         "Kinderabzug. Bitte die Stufe prüfen.",
                   kid.path("education")});
    }
}

void checkOldTrainee(CheckContext& c, const Kid& kid, Date birth) {
    const int age = TaxCalculator::age(birth, c.taxCase.year);
    if (kid.child.education == ChildEducation::ausbildung && age > oldestTrainee) {
        c.warning({itemId("kind-alter-ausbildung", kid.index), "family", "Kind noch in Ausbildung?",
                   kid.called() + " ist am Jahresende " + std::to_string(age)
                       + " Jahre alt und noch in Ausbildung eingetragen. Bitte prüfen, ob die "
                         "Eltern den Unterhalt noch bestreiten.",
                   kid.path("education")});
    }
}

/// A child of one adult may be hardly younger than the other; so all of them must be too young.
void checkAgeOfParents(CheckContext& c, const Kid& kid, Date birth) {
    const bool tooClose = std::ranges::all_of(c.adults, [&](const Adult& adult) {
        const auto& parent = adult.person.birthDate;
        return parent && completedYears(*parent, birth) < youngestParent;
    });
    if (tooClose) {
        c.warning({itemId("kind-alter-eltern", kid.index), "family", "Alter von Kind und Eltern",
                   kid.called()
                       + " wäre fast so alt wie die Eltern oder älter. Bitte die Geburtsdaten "
                         "prüfen.",
                   kid.path("birthDate")});
    }
}

void checkRepeatedChild(CheckContext& c, const Kid& kid) {
    constexpr int most = 100; // more than any family has: a damaged file must not take for ever
    const auto& children = c.taxCase.children;
    const bool repeated = std::any_of(
        children.begin(), children.begin() + std::min(kid.index, most), [&](const Child& earlier) {
            return earlier.birthDate == kid.child.birthDate
                   && earlier.firstName == kid.child.firstName
                   && earlier.lastName == kid.child.lastName;
        });
    if (repeated && !isBlank(kid.child.firstName)) {
        c.warning({itemId("kind-doppelt", kid.index), "family", "Kind zweimal erfasst?",
                   kid.called()
                       + " steht mit gleichem Namen und Geburtsdatum schon in der Liste. "
                         "Bitte eine der beiden Zeilen entfernen.",
                   kid.path("firstName")});
    }
}

/// The tariff of single parents asks for a child in the same household; the calculation takes it
/// with every child that gives a deduction. StG SG Art. 50 Abs. 3, DBG Art. 36 Abs. 2bis, SteG
/// Art. 19 Abs. 1
void checkHouseholdOfSingleParent(CheckContext& c) {
    const auto& children = c.taxCase.children;
    const auto counts = [&](const Child& child) { return isDeductible(child, c.taxCase.year); };
    const auto away = std::ranges::find_if(
        children, [&](const Child& child) { return counts(child) && !child.livesInHousehold; });
    const bool anyAtHome = std::ranges::any_of(
        children, [&](const Child& child) { return counts(child) && child.livesInHousehold; });
    if (c.taxCase.isJoint() || away == children.end() || anyAtHome) {
        return;
    }
    const Kid kid{*away, static_cast<int>(away - children.begin())};
    c.warning({itemId("kind-nicht-im-haushalt", kid.index), "family",
               "Tarif für Alleinerziehende fraglich",
               "Gerechnet wird mit dem Tarif für Alleinerziehende. Er gilt nur, wenn ein Kind im "
               "gleichen Haushalt lebt; "
                   + kid.called() + " ist als auswärts wohnend eingetragen.",
               kid.path("livesInHousehold")});
}

} // namespace

void checkChildren(CheckContext& c) {
    forEachItem(c.taxCase.children, [&](const Child& child, int index) {
        const Kid kid{child, index};
        checkChildName(c, kid);
        checkRepeatedChild(c, kid);
        checkMissingBirthDate(c, kid);
        if (!child.birthDate) {
            return;
        }
        checkBirthAhead(c, kid, *child.birthDate);
        if (isBornBy(child, c.taxCase.year) && *child.birthDate <= c.today) {
            checkStage(c, kid, *child.birthDate);
            checkWithoutEducation(c, kid, *child.birthDate);
            checkOldTrainee(c, kid, *child.birthDate);
            checkAgeOfParents(c, kid, *child.birthDate);
        }
    });
    checkHouseholdOfSingleParent(c);
}

} // namespace taxcore::review
