// Papers that families get: whose an amount is, and which of several is the one of the year.

#include "tests/documents/reading/DrawnPage.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>

namespace fiscarel {
namespace {

struct Paper {
    const char* name;
    std::vector<Put> puts;
    std::vector<std::string> wanted; ///< "who: field=value confidence", of all records
};

/// The amounts of all records with whose they are.
std::vector<std::string> amountsOf(const std::vector<Put>& puts) {
    static const std::vector<std::string> words{"childcareProvider", "provider", "employer",
                                                "company",           "from",     "to"};
    const ScanResult result = proposedFrom(puts);
    std::vector<std::string> amounts;
    for (std::size_t i = 0; i < result.records.size(); ++i) {
        for (const std::string& value : valuesOf(result, i)) {
            if (std::ranges::find(words, value.substr(0, value.find('='))) == words.end()) {
                amounts.push_back(result.records[i].personName + ": " + value);
            }
        }
    }
    return amounts;
}

std::vector<Paper> papersOnChildren() {
    return {
        {"what parents bear of a full price, by child",
         {{60, 40, "Betreuungsverein Muster"},
          {60, 60, "Elternbeitrag nach Tarifreglement 2024"},
          {60, 90, "Lea Muster, 11. März 2018"},
          {60, 104, "140 Betreuungstage zum Vollkostentarif"},
          {540, 104, "12’000.00", right},
          {60, 118, "Anteil Politische Gemeinde"},
          {540, 118, "3’000.00", right},
          {60, 132, "Kantonale Mittel"},
          {540, 132, "1’500.50", right},
          {60, 146, "Von den Eltern getragen"},
          {540, 146, "7’499.50", right},
          {60, 170, "Noah Muster, 28. Februar 2020"},
          {60, 184, "150 Betreuungstage zum Vollkostentarif"},
          {540, 184, "13’000.00", right},
          {60, 198, "Anteil Politische Gemeinde"},
          {540, 198, "3’600.00", right},
          {60, 212, "Kantonale Mittel"},
          {540, 212, "1’800.00", right},
          {60, 226, "Von den Eltern getragen"},
          {540, 226, "7’600.00", right},
          {60, 250, "Beiträge der öffentlichen Hand 2024: Gemeinde CHF 6’600.00, Kanton CHF"},
          {60, 262, "3’300.50. Sie werden direkt mit uns abgerechnet."}},
         {"Lea Muster: childcareCosts=7499.5 high", "Noah Muster: childcareCosts=7600 high"}},
        {"months across, one of them empty, where some come to another",
         {{60, 40, "Kita Muster"},       {60, 60, "Bezahlte Elternbeiträge 2024"},
          {60, 90, "Name des Kindes"},   {210, 90, "Mai", right},
          {270, 90, "Jun", right},       {330, 90, "Jul", right},
          {390, 90, "Aug", right},       {450, 90, "Sep", right},
          {540, 90, "Summe", right},     {60, 104, "Lea Muster"},
          {210, 104, "500.00", right},   {270, 104, "400.00", right},
          {390, 104, "100.00", right},   {450, 104, "300.00", right},
          {540, 104, "1’300.00", right}, {60, 118, "Noah Muster"},
          {210, 118, "200.00", right},   {270, 118, "250.50", right},
          {390, 118, "393", right},      {450, 118, "150.00", right},
          {540, 118, "993.50", right}},
         {"Lea Muster: childcareCosts=1300 medium", "Noah Muster: childcareCosts=993.5 medium"}},
        {"months below each other, the names broken off in the title",
         {{60, 40, "Krippe Muster"},
          {60, 60, "Betreuungsnachweis 2024: Lea Muster, 28.11.2016, und Noah Muster,"},
          {60, 72, "18.10.2021"},
          {60, 90, "Monat"},
          {200, 90, "Kind"},
          {540, 90, "Franken", right},
          {60, 104, "Januar"},
          {200, 104, "Lea"},
          {540, 104, "825.50", right},
          {200, 116, "Noah"},
          {540, 116, "567.–", right},
          {60, 128, "Februar"},
          {200, 128, "Lea"},
          {540, 128, "508.–", right},
          {200, 140, "Noah"},
          {540, 140, "486.–", right},
          {60, 154, "2024"},
          {200, 154, "Lea"},
          {540, 154, "1’333.50", right},
          {60, 166, "2024"},
          {200, 166, "Noah"},
          {540, 166, "1’053.–", right},
          {200, 178, "beide Kinder"},
          {540, 178, "2’386.50", right}},
         {"Lea Muster: childcareCosts=1333.5 high", "Noah Muster: childcareCosts=1053 high"}},
        {"a sentence for each of two children, without their sum",
         {{60, 40, "Kita Muster"},
          {60, 60, "Lina Muster und Beat Muster"},
          {60, 100, "Betreuungskosten 2024"},
          {60, 120,
           "Sie haben uns 2024 CHF 10’504.70 für Lea Muster bezahlt. Die Betreuung von Noah"},
          {60, 132, "Muster kostete Sie CHF 8’713.35."},
          {60, 160, "Ab August 2025 kostet ein Tag neu CHF 82.60; das Depot bleibt gleich."}},
         {"Lea Muster: childcareCosts=10504.7 medium",
          "Noah Muster: childcareCosts=8713.35 medium"}},
        {"the house number below a parent's name",
         {{60, 40, "Crèche Les Mouettes"},
          {330, 90, "Benoît Muster"},
          {330, 104, "Rue du Lac 134"},
          {60, 150, "Frais de garde 2024"},
          {60, 164, "Nous attestons que l'enfant Léa Muster, né(e) le 07.04.2019, a été gardée."},
          {60, 190, "Montant encaissé pour la garde"},
          {540, 190, "12’299.60", right}},
         {"Léa Muster: childcareCosts=12299.6 medium"}},
    };
}

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

std::vector<Paper> papersOnPremiumsAndWages() {
    return {
        {"a total by another word than its parts",
         {{60, 40, "Muster Krankenversicherung"},
          {60, 60, "Ihre Versicherungsprämien 2024"},
          {60, 90, "Grundversicherung (KVG)"},
          {540, 90, "4’667.40", right},
          {60, 104, "Freiwillige Ergänzung"},
          {540, 104, "226.80", right},
          {60, 118, "Prämienaufwand"},
          {540, 118, "4’894.20", right}},
         {": healthInsurancePremiums=4894.2 medium"}},
        {"premiums after no reduction are the same ones",
         {{60, 40, "Caisse-maladie Muster"},
          {60, 60, "Primes de la famille 2024"},
          {60, 90, "Primes LAMal et LCA"},
          {540, 90, "12’197.40", right},
          {60, 104, "Réduction individuelle des primes"},
          {60, 118, "Primes après réduction"},
          {540, 118, "12’197.40", right}},
         {": healthInsurancePremiums=12197.4 medium"}},
        {"costs of illness under the names of several",
         {{60, 40, "Cassa malati Muster"},
          {60, 60, "Riassunto dei premi 2024"},
          {60, 90, "Assicurazione obbligatoria (LAMal)"},
          {540, 90, "11’000.00", right},
          {60, 104, "Assicurazioni complementari (LCA)"},
          {540, 104, "1’500.00", right},
          {60, 118, "Riduzione dei premi del cantone"},
          {540, 118, "-3’000.00", right},
          {60, 132, "Premi pagati netti"},
          {540, 132, "9’500.00", right},
          {320, 180, "Chiara Muster", right},
          {430, 180, "Paolo Muster", right},
          {540, 180, "Elia Muster (2015)", right},
          {60, 194, "Franchigia"},
          {320, 194, "300.00", right},
          {430, 194, "1’186.35", right},
          {540, 194, "0.00", right},
          {60, 208, "Aliquota percentuale 10 %"},
          {320, 208, "214.60", right},
          {430, 208, "95.00", right},
          {540, 208, "41.25", right},
          {60, 222, "A vostro carico"},
          {320, 222, "514.60", right},
          {430, 222, "1’281.35", right},
          {540, 222, "41.25", right}},
         {": healthInsurancePremiums=12500 medium", ": premiumReduction=3000 medium",
          "Chiara Muster: gross=514.6 medium", "Paolo Muster: gross=1281.35 medium",
          "Elia Muster: gross=41.25 medium"}},
        {"a firm's line at the foot is no second policy",
         {{60, 40, "Muster Lebensversicherung AG"},
          {60, 60, "Steuerbescheinigung Police 711/26405"},
          {60, 90, "Steuerbarer Rückkaufswert"},
          {540, 90, "39’622.00", right},
          {60, 104, "Prämien im Jahr 2024"},
          {540, 104, "2’504.10", right},
          {60, 800, "Muster Lebensversicherung AG | 071 503 24 69 | MWST-Nr. CHE-286.275.310"}},
         {": surrenderValue=39622 medium", ": lifeInsurancePremiums=2504.1 medium"}},
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
        {"what an employer bears itself is taken off no wage",
         {{60, 40, "Famiglia Muster"},
          {60, 80, "Attestato di salario 2024 per la collaboratrice domestica"},
          {60, 110,
           "In questo periodo Le abbiamo corrisposto un salario lordo di CHF 10’962.00. Da"},
          {60, 122,
           "tale importo sono stati trattenuti i contributi AVS, AI, IPG e AD per CHF 701.55;"},
          {60, 134,
           "l'assicurazione infortuni è stata a nostro carico (premio CHF 148.00) e non sono"},
          {60, 146, "stati versati contributi alla previdenza professionale."},
          {60, 170, "Il salario netto versato sul Suo conto ammonta quindi a CHF 10’260.45."}},
         {": grossSalary=10962 high", ": socialContributions=701.55 high",
          ": netSalaryOverride=10260.45 high"}},
    };
}

TEST(HouseholdPapers, tellWhoseAnAmountIsAndWhichCounts) {
    std::vector<Paper> all = papersOnChildren();
    std::ranges::move(papersOnPensionsAndCourses(), std::back_inserter(all));
    std::ranges::move(papersOnPremiumsAndWages(), std::back_inserter(all));
    for (const Paper& paper : all) {
        EXPECT_EQ(amountsOf(paper.puts), paper.wanted) << paper.name;
    }
}

} // namespace
} // namespace fiscarel
