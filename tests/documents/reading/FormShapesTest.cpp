#include "tests/documents/reading/DrawnPage.h"

#include <gtest/gtest.h>

namespace fiscarel {
namespace {

/// A wage or pension certificate in a shape of its own, and the amounts of all its records.
struct Shape {
    const char* name;
    std::vector<Put> puts;
    std::vector<std::string> wanted; ///< "field=value confidence"
};

const std::vector<std::string> wage{"grossSalary=68000 high", "socialContributions=4352 high",
                                    "pensionContributions=3648 high",
                                    "netSalaryOverride=60000 high"};

/// A head in one row, with crosses, above the same boxes in whole francs.
std::vector<Put> crossed(const char* first, const char* second) {
    return {{60, 40, first},
            {320, 40, second},
            {60, 70, "C 756.1111.2222.33 16.03.1975"},
            {60, 85, "D 2024"},
            {60, 200, "8. Salaire brut total / Rente"},
            {540, 200, "68’000", right},
            {60, 215, "9. Cotisations AVS/AI/APG/AC/AANP"},
            {540, 215, "4’352", right},
            {60, 230, "10.1 Cotisations ordinaires"},
            {540, 230, "3’648", right},
            {60, 245, "11. Salaire net / Rente"},
            {540, 245, "60’000", right}};
}

/// A pension on the same form, its contributions left empty or nought.
std::vector<Put> pension(const char* first, const char* second, const char* contributions) {
    return {{60, 40, first},
            {320, 40, second},
            {60, 70, "C 756.1111.2222.33 16.03.1945"},
            {60, 85, "D 2024"},
            {60, 200, "8. Bruttolohn total / Rente"},
            {540, 200, "24’000", right},
            {60, 215, "9. Beiträge AHV/IV/EO/ALV/NBUV"},
            {540, 215, contributions, right},
            {60, 230, "11. Nettolohn / Rente"},
            {540, 230, "24’000", right}};
}

std::vector<Shape> wageShapes() {
    return {
        {"crosses before two titles", crossed("X Certificat de salaire", "Attestation de rentes"),
         wage},
        {"crosses behind two titles",
         crossed("(A) Certificat de salaire [X]", "(B) Attestation de rentes [ ]"), wage},
        {"signs for crosses", crossed("☒ Certificat de salaire", "☐ Attestation de rentes"), wage},
        {"numbers in brackets behind labels",
         {{60, 40, "CERTIFICATO DI SALARIO 2024"},
          {60, 120, "Prestazioni aperiodiche [3]"},
          {540, 120, "2’000.00", right},
          {60, 140, "Salario lordo totale [8]"},
          {540, 140, "68’000.00", right},
          {60, 160, "Contributi AVS/AI/IPG/AD/AINP [9]"},
          {540, 160, "4’352.00", right},
          {60, 180, "Previdenza, contributi ordinari [10.1]"},
          {540, 180, "3’648.00", right},
          {60, 200, "Salario netto [11]"},
          {540, 200, "60’000.00", right}},
         wage},
        {"labels on two lines, amounts on the second",
         {{60, 40, "Certificat de salaire 2024"},
          {60, 140, "8"},
          {90, 140, "Salaire brut"},
          {90, 151, "total / Rente"},
          {540, 151, "68’000", right},
          {60, 175, "9"},
          {90, 175, "Cotisations AVS/AI/APG/"},
          {90, 186, "AC/AANP"},
          {540, 186, "4’352", right},
          {60, 210, "10.1"},
          {90, 210, "Prévoyance professionnelle"},
          {90, 221, "cotisations ordinaires"},
          {540, 221, "3’648", right},
          {60, 245, "11"},
          {90, 245, "Salaire net / Rente"},
          {90, 256, "à reporter sur la déclaration"},
          {540, 256, "60’000", right}},
         wage},
        {"centimes in a column of their own",
         {{60, 40, "Certificato di salario 2024"},
          {500, 120, "Fr.", right},
          {540, 120, "ct.", right},
          {60, 140, "8. Salario lordo totale"},
          {500, 140, "68’000", right},
          {540, 140, "50", right},
          {60, 160, "9. Contributi AVS/AI/IPG/AD/AINP"},
          {500, 160, "4’352", right},
          {540, 160, "05", right},
          {60, 180, "10.1 Contributi ordinari"},
          {500, 180, "3’648", right},
          {540, 180, "45", right},
          {60, 200, "11. Salario netto"},
          {500, 200, "60’000", right},
          {540, 200, "00", right}},
         {"grossSalary=68000.5 high", "socialContributions=4352.05 high",
          "pensionContributions=3648.45 high", "netSalaryOverride=60000 high"}},
        {"what the employee proposed is no offer",
         {{60, 40, "Lohnausweis"},
          {540, 40, "Blatt 1 von 2", right},
          {60, 140, "Prämie Verbesserungsvorschlag"},
          {540, 140, "300.00", right},
          {60, 160, "8. Bruttolohn total"},
          {540, 160, "68’000.00", right},
          {60, 180, "9. Beiträge AHV/IV/EO/ALV/NBUV"},
          {540, 180, "4’352.00", right},
          {60, 200, "10.1 Ordentliche Beiträge"},
          {540, 200, "3’648.00", right},
          {60, 220, "11. Nettolohn"},
          {540, 220, "60’000.00", right}},
         wage},
    };
}

std::vector<Shape> pensionShapes() {
    return {
        {"a pension by its cross",
         pension("Lohnausweis", "X Rentenbescheinigung", ""),
         {"amount=24000 high"}},
        {"a pension without a cross, contributions nought",
         pension("Lohnausweis / Rentenbescheinigung", "", "0.00"),
         {"amount=24000 medium"}},
        {"a couple in columns by their first names, and a sum of both",
         {{60, 40, "AHV-Ausgleichskasse Muster"},
          {60, 100, "Aldo und Bice Muster"},
          {60, 160, "Rentenausweis 2024"},
          {60, 200, "Versicherte Person"},
          {330, 200, "Aldo", right},
          {430, 200, "Bice", right},
          {530, 200, "Total", right},
          {60, 220, "Betreffnis im Monat"},
          {330, 220, "1’932.00", right},
          {430, 220, "1’848.00", right},
          {530, 220, "3’780.00", right},
          {60, 240, "Jahresbetrag 2024"},
          {330, 240, "23’184.00", right},
          {430, 240, "22’176.00", right},
          {530, 240, "45’360.00", right}},
         {"ahvPension=23184 high", "ahvPension=22176 high"}},
        {"a couple in blocks under their names, without days of birth",
         {{60, 40, "Cassa cantonale di compensazione Muster"},
          {60, 100, "Aldo e Bice Muster"},
          {60, 160, "Attestazione fiscale 2024: rendite AVS"},
          {60, 200, "Aldo Muster (756.1111.2222.33)"},
          {60, 215, "Rendita di vecchiaia, 12 mensilità da"},
          {420, 215, "1’932.00", right},
          {540, 215, "23’184.00", right},
          {60, 240, "Bice Muster (756.4444.5555.66)"},
          {60, 255, "Rendita di vecchiaia, 12 mensilità da"},
          {420, 255, "1’848.00", right},
          {540, 255, "22’176.00", right},
          {60, 280, "Totale coniugi"},
          {540, 280, "45’360.00", right}},
         {"ahvPension=23184 high", "ahvPension=22176 high"}},
        {"last year's column before the year's",
         {{60, 40, "Cassa pensioni Muster"},
          {60, 100, "Conferma delle rendite LPP pagate"},
          {330, 200, "2023", right},
          {430, 200, "2024", right},
          {60, 220, "Rendita d’invalidità"},
          {330, 220, "23’937.60", right},
          {430, 220, "24’108.00", right},
          {60, 240, "Rendita per figlio"},
          {330, 240, "4’787.40", right},
          {430, 240, "4’821.60", right},
          {60, 260, "Somma imponibile"},
          {330, 260, "28’725.00", right},
          {430, 260, "28’929.60", right}},
         {"amount=28929.6 high"}},
        {"months told in the row above are no heading",
         {{60, 40, "Cassa di compensazione Muster"},
          {60, 100, "Attestazione delle rendite 2024"},
          {60, 200, "Rendita di vecchiaia, importo mensile"},
          {540, 200, "2’300.00", right},
          {60, 220, "Versata"},
          {540, 220, "6.2024 – 12.2024, 7 mensilità", right},
          {60, 240, "Rendite AVS versate nel 2024"},
          {540, 240, "16’100.00", right}},
         {"ahvPension=16100 high"}},
    };
}

TEST(FormShapes, giveWhatTheyStateAndNothingElse) {
    for (const auto& shapes : {wageShapes(), pensionShapes()}) {
        for (const Shape& shape : shapes) {
            EXPECT_EQ(allValuesOf(proposedFrom(shape.puts), {"label", "employer"}), shape.wanted)
                << shape.name;
        }
    }
}

TEST(FormShapes, aCertificateOnTwoSheetsIsOne) {
    DrawnPage first;
    first.line("Certificat de salaire 2024").line("N° AVS 756.1111.2222.33");
    first.line("8 Salaire brut total", "68’000.00").line("9 Cotisations AVS/AI/APG/AC", "4’352.00");
    DrawnPage second;
    second.number(2).line("Certificat de salaire, suite");
    second.line("10.1 Cotisations ordinaires LPP", "3’648.00").line("11 Salaire net", "60’000.00");
    ScanResult result;
    propose({.pages = {first.page(), second.page()}, .pageCount = 2}, result);
    ASSERT_EQ(result.records.size(), 1U);
    EXPECT_EQ(valuesOf(result), wage);
    EXPECT_EQ(proposalOf(result, "grossSalary")->page, 1);
    EXPECT_EQ(proposalOf(result, "netSalaryOverride")->page, 2);
}

} // namespace
} // namespace fiscarel
