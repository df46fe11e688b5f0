#include "TaxCore/base/MoneyFormat.h"
#include "TaxCore/base/Text.h"
#include "TaxCore/model/Household.h"
#include "TaxCore/result/Sums.h"
#include "TaxCore/review/CheckParts.h"

#include <algorithm>

namespace taxcore::review {

namespace {

// Of the first pillar's pensions the earliest of one's own is that for disability: IVG Art. 29
// Abs. 1. Whoever turns 66 has been of reference age for the whole year: AHVG Art. 21 Abs. 1.
constexpr int earliestPensionAge = 18;
constexpr int ageWithPensionAllYear = 66;

/// Whether what the person entered as gainful activity and as income belong together.
void checkEmploymentKind(CheckContext& c, const Adult& adult) {
    const PersonIncome& income = adult.income;
    const FieldPath path = FieldPath("person", "employment").of(adult.number);
    const bool salaried =
        std::ranges::any_of(income.salaries, [](const SalaryCertificate& certificate) {
            return certificate.netSalary() != 0 || certificate.grossSalary != 0;
        });
    switch (adult.person.employment) {
    case EmploymentKind::nichtErwerbstaetig:
        if (salaried) {
            c.info({adult.id("erwerb-nicht-erwerbstaetig"), "income",
                    "Lohn trotz «nicht erwerbstätig»",
                    adult.called()
                        + " ist als nicht erwerbstätig eingetragen und hat doch einen Lohnausweis. "
                          "Nach dem Ende der Arbeit im Lauf des Jahres ist das richtig.",
                    path});
        }
        break;
    case EmploymentKind::unselbstaendig:
        if (income == PersonIncome{}) {
            c.warning({adult.id("erwerb-ohne-lohn"), "income", "Kein Einkommen eingetragen",
                       adult.called()
                           + " ist als unselbständig eingetragen, hat aber keinerlei Einkommen. "
                             "Bitte den Lohnausweis erfassen oder «nicht erwerbstätig» wählen.",
                       path});
        }
        break;
    case EmploymentKind::selbstaendig:
        if (income.selfEmployment.isZero() && income.partnership.isZero()) {
            c.warning({adult.id("erwerb-selbstaendig"), "income",
                       "Selbständig ohne Geschäftsergebnis",
                       adult.called()
                           + " ist als selbständig eingetragen, aber das Ergebnis des Geschäfts "
                             "fehlt. Bitte Gewinn oder Verlust eintragen.",
                       FieldPath("income", "selfEmployment").of(adult.number)});
        }
        break;
    }
}

void checkMainEmployment(CheckContext& c, const Adult& adult) {
    const auto& salaries = adult.income.salaries;
    if (c.stGallen != nullptr && adult.person.employment == EmploymentKind::unselbstaendig
        && !salaries.empty()
        && std::ranges::none_of(salaries, &SalaryCertificate::isMainEmployment)) {
        c.warning({adult.id("haupterwerb-fehlt"), "income", "Nur Nebenerwerb",
                   "Alle Lohnausweise von " + adult.called()
                       + " sind als Nebenerwerb eingetragen. Ohne Haupterwerb entfällt die "
                         "Pauschale für übrige Berufskosten; bitte prüfen.",
                   FieldPath("income", "salaries", "isMainEmployment").of(adult.number).at(0)});
    }
}

void checkPensionPercents(CheckContext& c, const Adult& adult) {
    forEachItem(adult.income.pensions, [&](const PensionIncome& pension, int index) {
        if (pension.taxablePercent < 0 || pension.taxablePercent > 100) {
            c.error(
                {itemId(adult.id("rente-prozent"), index), "income", "Steuerbarer Anteil der Rente",
                 "Der steuerbare Anteil einer Rente von " + adult.called() + " beträgt "
                     + MoneyFormat::number(pension.taxablePercent) + "%. Möglich sind 0 bis 100%.",
                 FieldPath("income", "pensions", "taxablePercent").of(adult.number).at(index)});
        }
    });
}

void checkFirstPillar(CheckContext& c, const Adult& adult) {
    const auto& birth = adult.person.birthDate;
    if (!birth || *birth > c.today) {
        return;
    }
    const int age = TaxCalculator::age(*birth, c.taxCase.year);
    const Decimal& pension = adult.income.ahvPension;
    const FieldPath path = FieldPath("income", "ahvPension").of(adult.number);
    if (pension != 0 && age < earliestPensionAge) {
        c.warning({adult.id("ahv-rente-alter"), "income", "AHV/IV-Rente in jungen Jahren",
                   "Für " + adult.called() + " (" + std::to_string(age) + ") sind "
                       + MoneyFormat::fr(pension)
                       + " AHV/IV-Rente eingetragen. Eine eigene Rente gibt es frühestens mit "
                       + std::to_string(earliestPensionAge) + " Jahren; bitte prüfen.",
                   path});
    }
    const bool namedElsewhere =
        std::ranges::any_of(adult.income.pensions, [](const PensionIncome& other) {
            return other.label.find("AHV") != std::string::npos;
        });
    if (pension.isZero() && !namedElsewhere && age >= ageWithPensionAllYear) {
        c.info({adult.id("ahv-rente-fehlt"), "income", "Keine AHV-Rente eingetragen",
                adult.called() + " ist am Jahresende " + std::to_string(age)
                    + " Jahre alt, aber es ist keine AHV-Rente eingetragen. Wenn der Bezug nicht "
                      "aufgeschoben ist, bitte die Rente ergänzen.",
                path});
    }
}

/// Money for children where none are entered that count.
void checkIncomeForChildren(CheckContext& c) {
    if (std::ranges::any_of(c.taxCase.children,
                            [&](const Child& child) { return isBornBy(child, c.taxCase.year); })) {
        return;
    }
    const HouseholdIncome& income = c.taxCase.householdIncome;
    // In Liechtenstein they are free of tax.
    if (c.stGallen != nullptr && income.familyAllowancesDirect != 0) {
        c.warning({"familienzulagen-ohne-kinder", "income", "Familienzulagen ohne Kinder",
                   "Eingetragen sind " + MoneyFormat::fr(income.familyAllowancesDirect)
                       + " Familienzulagen, aber kein Kind. Bitte die Kinder auf der Seite Familie "
                         "erfassen oder den Betrag prüfen.",
                   FieldPath("householdIncome", "familyAllowancesDirect")});
    }
    if (income.alimonyReceivedChildren != 0) {
        c.warning({"kinderunterhalt-ohne-kinder", "income", "Unterhaltsbeiträge ohne Kinder",
                   "Eingetragen sind " + MoneyFormat::fr(income.alimonyReceivedChildren)
                       + " erhaltene Unterhaltsbeiträge für Kinder, aber kein Kind. Bitte die "
                         "Kinder auf der Seite Familie erfassen oder den Betrag prüfen.",
                   FieldPath("householdIncome", "alimonyReceivedChildren")});
    }
}

void checkOtherIncome(CheckContext& c) {
    const HouseholdIncome& income = c.taxCase.householdIncome;
    if (c.stGallen != nullptr && income.otherIncome != 0
        && isBlank(income.otherIncomeDescription)) {
        c.info({"uebrige-einkuenfte-bezeichnung", "income", "Übrige Einkünfte ohne Bezeichnung",
                "Eingetragen sind " + MoneyFormat::fr(income.otherIncome)
                    + " übrige Einkünfte. Bitte in wenigen Worten angeben, woher sie stammen.",
                FieldPath("householdIncome", "otherIncomeDescription")});
    }
}

} // namespace

void checkIncome(CheckContext& c) {
    for (const Adult& adult : c.adults) {
        checkEmploymentKind(c, adult);
        checkMainEmployment(c, adult);
        checkSalaries(c, adult);
        checkPensionPercents(c, adult);
        checkFirstPillar(c, adult);
    }
    checkRepeatedSalaries(c);
    checkIncomeForChildren(c);
    checkOtherIncome(c);
}

} // namespace taxcore::review
