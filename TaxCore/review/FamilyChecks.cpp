#include "TaxCore/base/Text.h"
#include "TaxCore/review/CheckParts.h"
#include "TaxCore/review/CheckText.h"

#include <algorithm>

namespace taxcore::review {

namespace {

// Outside these ages a date is more likely mistyped than true: nobody runs a household of their own
// as a school child, and hardly anybody lives longer.
constexpr int youngestTaxpayer = 16;
constexpr int oldestTaxpayer = 115;

void checkName(CheckContext& c, const Adult& adult) {
    if (isBlank(adult.person.firstName) || isBlank(adult.person.lastName)) {
        c.warning(
            {adult.id("name-fehlt"), "family", "Name fehlt",
             "Bitte Vor- und Nachnamen von Person " + std::to_string(adult.number) + " eintragen.",
             FieldPath("person", isBlank(adult.person.firstName) ? "firstName" : "lastName")
                 .of(adult.number)});
    }
}

void checkBirthDate(CheckContext& c, const Adult& adult) {
    const FieldPath path = FieldPath("person", "birthDate").of(adult.number);
    const auto& birth = adult.person.birthDate;
    if (!birth) {
        c.warning({adult.id("geburtsdatum-fehlt"), "family", "Geburtsdatum fehlt",
                   "Bitte das Geburtsdatum von " + adult.called() + " eintragen.", path});
        return;
    }
    if (*birth > c.today) {
        c.error({adult.id("geburtsdatum-zukunft"), "family", "Geburtsdatum in der Zukunft",
                 "Das Geburtsdatum von " + adult.called()
                     + " liegt in der Zukunft. Bitte das Jahr prüfen.",
                 path});
        return;
    }
    const int age = TaxCalculator::age(*birth, c.taxCase.year);
    if (age < 0) {
        c.warning({adult.id("alter-unplausibel"), "family", "Ungewöhnliches Alter",
                   adult.called()
                       + " ist nach dem Geburtsdatum erst nach dem Steuerjahr geboren. "
                         "Bitte das Datum prüfen.",
                   path});
    } else if (age < youngestTaxpayer || age > oldestTaxpayer) {
        c.warning({adult.id("alter-unplausibel"), "family", "Ungewöhnliches Alter",
                   "Nach dem Geburtsdatum ist " + adult.called() + " am Jahresende "
                       + std::to_string(age) + " Jahre alt. Bitte das Datum prüfen.",
                   path});
    }
}

/// What stands for the second person falls away in a household that is not joint.
void checkUncountedPerson(CheckContext& c) {
    if (c.taxCase.isJoint()
        || (c.taxCase.income2 == PersonIncome{} && c.taxCase.deductions2 == PersonDeductions{})) {
        return;
    }
    c.warning(
        {"person-2-zaehlt-nicht", "family", "Angaben der zweiten Person zählen nicht",
         "Beim Zivilstand «" + std::string(label(c.taxCase.civilStatus))
             + "» bleiben Einkommen und Abzüge der zweiten Person unberücksichtigt. Bitte den "
               "Zivilstand prüfen oder diese Angaben entfernen.",
         FieldPath("civilStatus")});
}

/// Whether the church tax of the confession differs from parish to parish. StV SG Art. 1
bool belongsToParish(Confession confession) {
    return confession == Confession::roemischKatholisch
           || confession == Confession::evangelischReformiert;
}

void checkParish(CheckContext& c) {
    const auto member = std::ranges::find_if(
        c.adults, [](const Adult& adult) { return belongsToParish(adult.person.confession); });
    const auto& municipality = c.result.municipality;
    if (member == c.adults.end() || !municipality || municipality->parishes.empty()) {
        return;
    }
    if (!c.taxCase.parish || isBlank(*c.taxCase.parish)) {
        c.warning({"kirchgemeinde-fehlt", "family", "Kirchgemeinde fehlt",
                   member->called() + " ist " + std::string(label(member->person.confession))
                       + ", aber es ist keine Kirchgemeinde gewählt. Ohne sie fehlt die "
                         "Kirchensteuer in der Rechnung.",
                   FieldPath("parish")});
    } else if (municipality->parish(*c.taxCase.parish) == nullptr) {
        c.warning({"kirchgemeinde-unbekannt", "family", "Kirchgemeinde passt nicht",
                   "Die Kirchgemeinde «" + *c.taxCase.parish + "» gehört nicht zur Gemeinde "
                       + municipality->name
                       + ". Bitte eine ihrer Kirchgemeinden wählen, sonst fehlt die Kirchensteuer "
                         "in der Rechnung.",
                   FieldPath("parish")});
    }
}

/// Liechtenstein levies no church tax, so a parish there is left over from elsewhere.
void checkParishInLiechtenstein(CheckContext& c) {
    if (c.taxCase.parish && !isBlank(*c.taxCase.parish)) {
        c.info({"kirchgemeinde-liechtenstein", "family", "Kirchgemeinde ohne Wirkung",
                "Liechtenstein erhebt keine Kirchensteuer. Konfession und Kirchgemeinde ändern an "
                "der Rechnung nichts.",
                FieldPath("parish")});
    }
}

void checkProvisionalMultipliers(CheckContext& c, const RuleBook& rules) {
    if (rules.municipalities.vorlaeufig.value_or(false)) {
        c.info({"steuerfuss-vorlaeufig", "family", "Steuerfüsse vorläufig",
                "Die Steuerfüsse für " + std::to_string(c.taxCase.year)
                    + " stehen noch nicht fest. Bis dahin wird mit vorläufigen Werten gerechnet.",
                FieldPath("municipality")});
    }
}

/// Only the characters: no check digit of the number is published.
void checkRegisterNumber(CheckContext& c) {
    const std::string& number = c.taxCase.registerNumber;
    if (isBlank(number)) {
        return;
    }
    const bool plausible = number.find_first_not_of("0123456789. ") == std::string::npos
                           && number.find_first_of("0123456789") != std::string::npos;
    if (!plausible) {
        c.warning({"registernummer-zeichen", "family", "Registernummer prüfen",
                   "Die Registernummer «" + number
                       + "» ist keine Nummer aus Ziffern und Punkten. Bitte mit dem amtlichen "
                         "Schreiben vergleichen.",
                   FieldPath("registerNumber")});
    }
}

void checkIban(CheckContext& c) {
    if (isBlank(c.taxCase.iban)) {
        if (c.result.withholdingTaxRefund > 0) {
            c.info({"iban-fehlt", "family", "IBAN fehlt",
                    "Für die Rückerstattung der Verrechnungssteuer braucht die Steuerbehörde eine "
                    "IBAN.",
                    FieldPath("iban")});
        }
        return;
    }
    if (const auto fault = ibanFault(c.taxCase.iban)) {
        c.error({"iban-ungueltig", "family", "IBAN ungültig",
                 sentenceOn(*fault) + " Bitte mit dem Kontoauszug vergleichen.",
                 FieldPath("iban")});
    }
}

} // namespace

void checkFamily(CheckContext& c) {
    for (const Adult& adult : c.adults) {
        checkName(c, adult);
        checkBirthDate(c, adult);
    }
    checkUncountedPerson(c);
    checkChildren(c);
    if (c.stGallen != nullptr) {
        checkParish(c);
        checkProvisionalMultipliers(c, *c.stGallen);
    } else {
        checkParishInLiechtenstein(c);
    }
    checkRegisterNumber(c);
    checkIban(c);
}

} // namespace taxcore::review
