#include "tests/documents/reading/DrawnPage.h"

#include <gtest/gtest.h>

namespace fiscarel {
namespace {

using Records = std::vector<std::map<std::string, std::string>>;

/// Words from the left, then what ends at the right edges that follow them.
struct TableRow {
    const char* words;
    std::vector<std::pair<double, const char*>> cells = {};
};

/// A paper of accounts, loans or securities, and the amounts each record is to have.
struct Paper {
    const char* what;
    std::vector<TableRow> rows;
    Records amounts;
};

std::vector<Paper> papers() {
    return {
        {"francs count beside a foreign currency",
         {{"Zins- und Kapitalausweis 2024"},
          {"Konto",
           {{240, "Saldo"}, {310, "Kurs"}, {390, "Zins"}, {460, "Zins CHF"}, {540, "Saldo CHF"}}},
          {"Euro-Konto EUR",
           {{240, "10'000.00"},
            {310, "0.9400"},
            {390, "50.00"},
            {460, "47.00"},
            {540, "9'400.00"}}},
          {"Privatkonto CHF",
           {{240, "5'000.00"}, {310, "1.0000"}, {390, "10.00"}, {460, "10.00"}, {540, "5'000.00"}}},
          {"Total", {{460, "57.00"}, {540, "14'400.00"}}}},
         {{{"taxValue", "9400"}, {"incomeWithoutWithholding", "47"}},
          {{"taxValue", "5000"}, {"incomeWithoutWithholding", "10"}}}},
        {"loans by what was paid, not by what they were or what was repaid",
         {{"Hypothek: Zins- und Kapitalausweis 2024"},
          {"", {{200, "1. Januar"}, {300, "amortisiert"}, {400, "bezahlt"}, {520, "31. Dezember"}}},
          {"Tranche 1",
           {{200, "203'000.00"}, {300, "5'000.00"}, {400, "3'088.80"}, {520, "198'000.00"}}},
          {"Tranche 2",
           {{200, "146'000.00"}, {300, "5'000.00"}, {400, "2'072.70"}, {520, "141'000.00"}}},
          {"Alle",
           {{200, "349'000.00"}, {300, "10'000.00"}, {400, "5'161.50"}, {520, "339'000.00"}}},
          {"Aufgelaufener Zins", {{520, "512.65"}}}},
         {{{"amount", "198000"}, {"interest", "3088.8"}},
          {{"amount", "141000"}, {"interest", "2072.7"}}}},
        {"an overdrawn account is a debt",
         {{"Kontoabschluss und Steuerbescheinigung 2024"},
          {"Kontokorrent, IBAN CH93 0076 2011 6238 5295 7"},
          {"Belastete Zinsen", {{520, "1'370.30"}}},
          {"Kreditkommission", {{520, "175.05"}}},
          {"Saldo per 31.12.2024", {{520, "-18'797.65"}}}},
         {{{"amount", "18797.65"}, {"interest", "1370.3"}}}},
        {"number times price tells securities",
         {{"Depot 12-345: Wertschriftenverzeichnis mit Steuerwert 2024"},
          {"Valor",
           {{300, "Anzahl"},
            {360, "Kurs"},
            {430, "Steuerwert"},
            {490, "Ertrag A"},
            {550, "Ertrag B"}}},
          {"7174701 Muster AG",
           {{300, "155"}, {360, "86.05"}, {430, "13'337.75"}, {490, "130.70"}}},
          {"8496194 Nord ASA", {{300, "250"}, {360, "82.30"}, {430, "20'575.00"}, {550, "656.30"}}},
          {"Total", {{430, "33'912.75"}, {490, "130.70"}, {550, "656.30"}}}},
         {{{"quantity", "155"}, {"taxValue", "13337.75"}, {"incomeWithWithholding", "130.7"}},
          {{"quantity", "250"}, {"taxValue", "20575"}, {"incomeWithoutWithholding", "656.3"}}}},
    };
}

Records amountsOf(const ScanResult& result) {
    Records amounts(result.records.size());
    for (const Proposal& proposal : result.proposals) {
        for (const char* field : {"taxValue", "quantity", "incomeWithWithholding",
                                  "incomeWithoutWithholding", "amount", "interest"}) {
            if (proposal.field == field) {
                amounts[static_cast<std::size_t>(proposal.recordIndex)][field] = proposal.value;
            }
        }
    }
    return amounts;
}

TEST(Accounts, AreReadFromTheirTables) {
    for (const Paper& paper : papers()) {
        DrawnPage page;
        page.text(60, 40, "Muster Bank AG");
        double y = 80;
        for (const TableRow& row : paper.rows) {
            page.text(60, y, row.words);
            for (const auto& [edge, words] : row.cells) {
                page.right(edge, y, words);
            }
            y += 16;
        }
        EXPECT_EQ(amountsOf(page.proposed()), paper.amounts) << paper.what;
    }
}

} // namespace
} // namespace fiscarel
