#include "tests/documents/reading/DrawnPage.h"

#include <gtest/gtest.h>

#include <array>

namespace fiscarel {
namespace {

using Kind = StoredDocument::Kind;

const std::vector<std::string> wage{"grossSalary=62000 high", "socialContributions=4500 high",
                                    "pensionContributions=3100 high",
                                    "netSalaryOverride=54400 high"};

/// A table of four or more columns whose first holds words.
struct Table {
    const char* title;
    std::vector<double> edges; ///< of the columns of amounts
    std::vector<std::vector<const char*>> heads;
    std::vector<std::vector<const char*>> rows;
    std::vector<const char*> below = {}; ///< label and amount
};

DrawnPage drawn(const Table& table) {
    DrawnPage page(8);
    page.text(60, 60, table.title);
    double y = 100;
    const auto put = [&](const std::vector<const char*>& row) {
        page.text(60, y, row[0]);
        for (std::size_t i = 1; i < row.size(); ++i) {
            page.right(table.edges[i - 1], y, row[i]);
        }
    };
    for (const auto& head : table.heads) {
        put(head);
        y += 10;
    }
    for (const auto& row : table.rows) {
        y += 16;
        put(row);
    }
    if (!table.below.empty()) {
        page.text(60, y + 30, table.below[0]).right(table.edges.back(), y + 30, table.below[1]);
    }
    return page;
}

TEST(Columns, aWageIsReadWhereItsTableHasMoreOrLessThanItsBoxes) {
    const std::vector<double> five{200, 280, 360, 440, 520};
    for (const Table& table : {
             Table{"Crèche Muster: récapitulatif des salaires 2024",
                   {200, 290, 380},
                   {{"Mois", "Salaire", "Cotis.", "Prévoyance"}, {"", "brut", "sociales", "LPP"}},
                   {{"1er semestre", "31’000.00", "2’250.00", "1’550.00"},
                    {"2e semestre", "31’000.00", "2’250.00", "1’550.00"},
                    {"TOTAUX", "62’000.00", "4’500.00", "3’100.00"}},
                   {"Salaire net déterminant", "54’400.00"}},
             Table{
                 "Riepilogo salari 2024 — Anna Muster — 756.1234.5678.97",
                 five,
                 {{"Mese", "Lordo", "Oneri soc.", "LPP", "Imposta", "Versato"},
                  {"", "", "", "", "alla fonte", ""}},
                 {{"Gennaio-giugno", "31’000.00", "2’250.00", "1’550.00", "1’500.00", "25’700.00"},
                  {"Luglio-dicembre", "31’000.00", "2’250.00", "1’550.00", "1’600.00", "25’600.00"},
                  {"Totali", "62’000.00", "4’500.00", "3’100.00", "3’100.00", "51’300.00"}}},
             Table{"Attestation de rémunération 2024",
                   {280, 380, 500},
                   {{"Éléments", "Exercice", "Exercice", "Charge patronale"},
                    {"en francs", "2024", "2023", "2024"}},
                   {{"Rémunération brute", "62’000.00", "60’000.00"},
                    {"Charges sociales du salarié", "4’500.00", "4’400.00", "4’700.00"},
                    {"Caisse de pension", "3’100.00", "3’000.00", "4’000.00"},
                    {"Rémunération nette", "54’400.00", "52’600.00"}}},
             Table{"Lohnbescheinigung 2024",
                   {300, 420},
                   {{"Bezeichnung", "Arbeitgeber", "Arbeitnehmer"}},
                   {{"Bruttolohn", "", "62’000.00"},
                    {"AHV/IV/EO/ALV", "4’700.00", "4’500.00"},
                    {"Pensionskasse", "4’000.00", "3’100.00"},
                    {"Nettolohn", "", "54’400.00"}}},
         }) {
        const ScanResult result = drawn(table).proposed();
        EXPECT_EQ(result.proposedKind, Kind::lohnausweis) << table.title;
        EXPECT_EQ(wageOf(result), wage) << table.title;
    }
}

TEST(Columns, boxesBesideOneAnotherAndHeadingsOfTwoLinesBelongToTheirAmounts) {
    const ScanResult boxes = proposedFrom({{60, 40, "Certificato di salario 2024"},
                                           {60, 100, "8"},
                                           {80, 100, "Salario lordo"},
                                           {230, 100, "9"},
                                           {250, 100, "Contributi AVS/AI/IPG/AD"},
                                           {400, 100, "10.1"},
                                           {430, 100, "LPP ordinari"},
                                           {210, 130, "62 000.00", right},
                                           {380, 130, "4 500.00", right},
                                           {540, 130, "3 100.00", right},
                                           {60, 170, "10.2"},
                                           {85, 170, "LPP riscatto"},
                                           {230, 170, "11"},
                                           {250, 170, "Salario netto"},
                                           {400, 170, "12"},
                                           {430, 170, "Imposta alla fonte"},
                                           {210, 200, "nessuno", right},
                                           {380, 200, "54 400.00", right},
                                           {540, 200, "nessuna", right}});
    EXPECT_EQ(valuesOf(boxes), wage);
    const ScanResult lines = proposedFrom({{60, 40, "Attestazione di stipendio 2024"},
                                           {60, 100, "Stipendio"},
                                           {70, 111, "lordo"},
                                           {180, 100, "Deduzioni"},
                                           {187, 111, "sociali"},
                                           {300, 100, "Quota LPP"},
                                           {297, 111, "dipendente"},
                                           {420, 100, "Importo netto"},
                                           {434, 111, "versato"},
                                           {130, 136, "62’000.00", right},
                                           {245, 136, "4’500.00", right},
                                           {365, 136, "3’100.00", right},
                                           {500, 136, "54’400.00", right}});
    EXPECT_EQ(valuesOf(lines), wage);
}

TEST(Columns, thePolicyTakesTheValueOfTheNewestYear) {
    const Table table{"Valeurs fiscales de vos assurances-vie 2024, Muster Vie SA",
                      {200, 310, 400, 520},
                      {{"Police", "Somme", "Valeur de rachat", "Prime", "Valeur de rachat"},
                       {"", "assurée", "31.12.2023", "payée", "31.12.2024"}},
                      {{"12.345678", "100’000.00", "26’500.00", "2’000.00", "28’300.00"},
                       {"12.345679", "60’000.00", "34’200.00", "1’700.00", "35’800.00"},
                       {"Total", "", "", "3’700.00", "64’100.00"}}};
    const ScanResult result = drawn(table).proposed();
    ASSERT_EQ(result.records.size(), 3U);
    EXPECT_EQ(valueOf(result, "surrenderValue", 1), "28300");
    EXPECT_EQ(valueOf(result, "sumInsured", 1), "100000");
    EXPECT_EQ(valueOf(result, "surrenderValue", 2), "35800");
}

TEST(Columns, theTaxOrItsAbsenceTellsWhatIncomeItIs) {
    for (const char* none : {"néant", "keine", "–", "0.00"}) {
        DrawnPage page(8);
        page.text(60, 40, "Banque Muster: État des titres et revenus 2024");
        double y = 80;
        const auto security = [&](const char* name, const char* isin, const char* count,
                                  const char* price, const char* value, const char* income,
                                  const char* tax) {
            page.text(60, y, name).text(400, y, "ISIN").text(425, y, isin);
            const std::array<double, 5> lefts{60, 140, 250, 350, 460};
            const std::array labels{"Nombre", "Cours 31.12.2024", "Valeur imposable",
                                    "Rendement brut", "Impôt anticipé"};
            const std::array amounts{count, price, value, income, tax};
            for (std::size_t i = 0; i < lefts.size(); ++i) {
                page.text(lefts[i], y + 24, labels[i]).text(lefts[i], y + 40, amounts[i]);
            }
            y += 80;
        };
        security("Act. nom. Muster", "CH0012032048", "100", "50.00", "5’000.00", "200.00", "70.00");
        security("Shs Example", "US0378331005", "10", "40.00", "400.00", "30.00", none);
        const ScanResult result = page.proposed();
        ASSERT_EQ(result.records.size(), 2U) << none;
        EXPECT_EQ(valueOf(result, "incomeWithWithholding", 0), "200") << none;
        EXPECT_EQ(valueOf(result, "incomeWithoutWithholding", 1), "30") << none;
    }
}

} // namespace
} // namespace fiscarel
