#include "tests/documents/reading/AccountPapers.h"

#include <gtest/gtest.h>

namespace fiscarel {
namespace {

TEST(AccountBlocks, AreToldApartHoweverTheyAreSet) {
    expectRead({
        {"tranches that say the same, the totals of all below",
         {{"Attestation de dettes et d'intérêts 2024"},
          {"Avance A – cédule en 1er rang, Orbe, taux fixe 1,35 % jusqu'en 2029"},
          {"Solde au 1er janvier 2024", {{520, "387'000.00"}}},
          {"Solde au 31 décembre 2024", {{520, "383'000.00"}}},
          {"Intérêts payés en 2024", {{520, "4'450.50"}}},
          {"Avance B – cédule en 2e rang, Orbe, taux fixe 2,05 % jusqu'en 2031"},
          {"Solde au 1er janvier 2024", {{520, "320'000.00"}}},
          {"Solde au 31 décembre 2024", {{520, "316'000.00"}}},
          {"Intérêts payés en 2024", {{520, "6'560.00"}}},
          {"Total des dettes", {{520, "699'000.00"}}},
          {"Total des intérêts", {{520, "11'010.50"}}}},
         {{{"amount", "383000"}, {"interest", "4450.5"}},
          {{"amount", "316000"}, {"interest", "6560"}}}},
        {"a rate behind the interest, the whole year beside its name",
         {{"Darlehensauszug 2024, feste Hypothek Nr. 200047"},
          {"Schuldzinsen 01.01.-31.12.2024", {{430, "5'201.90"}, {520, "Zinssatz 1.45 %"}}},
          {"Kapitalschuld per 31.12.2024", {{430, "355'000.00"}}}},
         {{{"amount", "355000"}, {"interest", "5201.9"}}}},
        {"what stands to somebody's credit is no loan, little interest is not taxed",
         {{"Attestazione degli averi 2023"},
          {"Il conto CH93 0076 2011 6238 5295 7 presentava un saldo a Suo credito di fr. "
           "11'167.55."},
          {"Interessi lordi (senza imposta preventiva)", {{520, "22.75"}}}},
         {{{"taxValue", "11167.55"}, {"incomeWithoutWithholding", "22.75"}}}},
        {"a loan in sentences, its number no amount, a rate before a semicolon",
         {{"Prêt de formation n° 1698.90 – justificatif fiscal 2021"},
          {"Le prêt présentait au 31 décembre 2021 un solde dû de 22'290.00 francs. Le taux"},
          {"de 2,25 % est resté inchangé ; les intérêts payés se montent à 501.55 francs."}},
         {{{"amount", "22290"}, {"interest", "501.55"}}}},
        {"what was lent once and what stands today",
         {{"Prestito fra privati, conferma per le imposte 2025"},
          {"Al 31.12.2025 mi doveva ancora fr. 55'000.00 (debito residuo del prestito concesso"},
          {"nel 2019 per fr. 70'000.00). Oggi, alla data della presente, deve fr. 54'000.00."}},
         {{{"amount", "55000"}}}},
        {"names over their numbers, amounts over what they are",
         {{"Riepilogo fiscale 2023"},
          {"Conto Base", {{520, "52'099.45 CHF"}}},
          {"CH93 0076 2011 6238 5295 7", {{520, "saldo al 31 dicembre 2023"}}},
          {"Credito auto", {{520, "–28'300.00 CHF"}}},
          {"Contratto 904390", {{520, "debito residuo al 31 dicembre 2023"}}}},
         {{{"taxValue", "52099.45"}}, {{"amount", "28300"}}}},
    });
}

} // namespace
} // namespace fiscarel
