// Papers on what a household pays beside its insurers: purchases of pension, courses, a house, a
// dentist.

#include "tests/documents/reading/HouseholdPaper.h"

#include <gtest/gtest.h>

namespace fiscarel {
namespace {

using Paper = HouseholdPaper;

std::vector<Paper> papersOnPensionsAndCourses() {
    return {
        {"words of two columns are no couple",
         {{60, 40, "Vorsorgewerk Textil und Papier"},
          {310, 40, "Beat Muster"},
          {60, 54, "Seestrasse 98"},
          {310, 54, "Dorfstrasse 59"},
          {60, 90, "Nachweis der Einkäufe 2024"},
          {60, 104, "Beat Muster, 756.1234.5678.97"},
          {370, 130, "über den Lohn", right},
          {540, 130, "privat überwiesen", right},
          {60, 144, "Monatlicher Lohnabzug, 12 mal 300.00"},
          {370, 144, "3’600.00", right},
          {60, 158, "Einmalige Zahlung vom 26. Februar 2024"},
          {540, 158, "4’250.00", right},
          {60, 172, "Einkäufe"},
          {370, 172, "3’600.00", right},
          {540, 172, "4’250.00", right},
          {60, 200,
           "Was über den Lohn lief, ist schon berücksichtigt. Zusätzlich abziehen können Sie"},
          {60, 212, "CHF 4’250.00."}},
         {"Beat Muster: pensionBuyIn=4250 medium"}},
        {"the most that may still be paid in",
         {{60, 40, "Sammelstiftung Muster BVG"},
          {60, 80, "Freiwilliger Einkauf in die Pensionskasse 2024"},
          {60, 100,
           "Gerne bestätigen wir den Eingang von CHF 34’500.00 als Einkauf in die Leistungen."},
          {60, 120, "Weitere Einkäufe sind bis CHF 70’432.55 möglich."}},
         {": pensionBuyIn=34500 medium"}},
        {"spouses in a sentence, a name torn apart by the line",
         {{60, 40, "Sammelstiftung Muster"},
          {60, 60, "Beat Muster und Lina Muster"},
          {60, 90, "Einkäufe 2024 für beide Ehegatten"},
          {60, 110,
           "Sie sind beide versichert und haben Einkäufe geleistet: Beat Muster am 29.01.24 CHF "
           "5’500.00, Lina"},
          {60, 122, "Muster am 21.03.24 CHF 2’500.00."},
          {60, 150, "Die Lücken betragen danach CHF 35’143.40 und CHF 52’712.90."}},
         {"Beat Muster: pensionBuyIn=5500 medium", "Lina Muster: pensionBuyIn=2500 medium"}},
        {"what is still open was not paid",
         {{60, 40, "Fachschule Muster"},
          {60, 80, "Steuerbescheinigung Weiterbildung 2024"},
          {60, 100, "Ausbildungskosten 2024"},
          {60, 112, "CHF 1’372.40"},
          {60, 132, "Offen per 31. Dezember 2024"},
          {60, 144, "CHF 746.20"}},
         {": furtherEducation=1372.4 medium"}},
        {"payments to a school that count",
         {{60, 40, "Fachschule Muster"},
          {60, 80, "Kontoauszug 2024 Nachdiplomstudium"},
          {60, 100, "Datum"},
          {160, 100, "Text"},
          {340, 100, "Soll", right},
          {440, 100, "Haben", right},
          {540, 100, "Saldo", right},
          {60, 114, "11.08.2024"},
          {160, 114, "Studiengebühr"},
          {340, 114, "2’600.00", right},
          {540, 114, "2’600.00", right},
          {60, 128, "02.10.2024"},
          {160, 128, "Zahlung"},
          {440, 128, "2’550.00", right},
          {540, 128, "50.00", right},
          {60, 160,
           "Für den Abzug der Weiterbildungskosten 2024 zählen Ihre Zahlungen: CHF 2’550.00."}},
         {": furtherEducation=2550 medium"}},
    };
}

std::vector<Paper> papersOnHouseAndDentist() {
    return {
        {"the rent of a month beside what twelve come to",
         {{60, 40, "Régie Muster Sàrl"},
          {60, 60, "Décompte de gérance 2024, commune de Sierre, parcelle n° 4417"},
          {60, 90, "RECETTES"},
          {60, 104, "12 loyers nets à 1’550.00"},
          {60, 118, "Loyers encaissés (sans charges)"},
          {540, 118, "18’600.00", right},
          {60, 132, "Acomptes de chauffage et charges"},
          {540, 132, "2’160.00", right},
          {60, 160, "DÉPENSES"},
          {60, 174, "Frais d'entretien déductibles"},
          {540, 174, "3’075.80", right}},
         {": rentalIncome=18600 medium", ": actualMaintenanceCosts=3075.8 medium",
          ": parcelNumber=4417 medium"}},
        {"two faces of a filling are no debt",
         {{60, 40, "Studio dentistico Dr. med. dent. Muster"},
          {60, 60, "Nota d'onorario n. 2024-1093 del 19.11.2024"},
          {60, 90, "Esame diagnostico"},
          {540, 90, "251.70", right},
          {60, 104, "Otturazione in composito, due superfici"},
          {540, 104, "168.30", right},
          {60, 118, "Totale prestazioni"},
          {540, 118, "420.00", right},
          {60, 132, "./. acconto del 22.10.2024"},
          {540, 132, "-50.00", right},
          {60, 150, "Saldo a nostro favore, pagabile entro 30 giorni"},
          {540, 150, "CHF 370.00", right}},
         {": gross=420 high"}},
    };
}

TEST(HouseholdPapers, tellWhoseAnAmountIsAndWhichCounts) {
    for (const auto& papers : {papersOnPensionsAndCourses(), papersOnHouseAndDentist()}) {
        for (const Paper& paper : papers) {
            EXPECT_EQ(amountsOf(paper.puts), paper.wanted) << paper.name;
        }
    }
}

} // namespace
} // namespace fiscarel
