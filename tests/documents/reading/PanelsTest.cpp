#include "tests/documents/reading/AccountPapers.h"
#include "tests/documents/reading/DrawnPage.h"

#include <gtest/gtest.h>

namespace fiscarel {
namespace {

struct Tiles {
    const char* what;
    std::vector<Put> put;
    Records amounts;
};

TEST(Panels, OfAMenuBesideThePageAreNoPartOfIt) {
    EXPECT_EQ(
        amountsOf(proposedFrom({
            {16, 36, "Muster Banca"},
            {170, 38, "Estratto fiscale 2025"},
            {170, 62, "Giorgio Muster"},
            {16, 66, "E-banking"},
            {170, 74, "Dorfplatz 2, 9443 Widnau"},
            {16, 78, "Documenti"},
            {16, 102, "Emesso il"},
            {170, 107, "Liquidità"},
            {16, 114, "11.01.2026"},
            {16, 138, "Cliente"},
            {178, 141, "Conto d'investimento"},
            {435, 141, "CH93 0076 2011 6238 5295 7"},
            {16, 150, "44 0192 7"},
            {178, 157, "Valore fiscale"},
            {320, 157, "Interesse lordo"},
            {450, 157, "Imp. preventiva"},
            {178, 169, "42'718.05"},
            {320, 169, "311.40"},
            {450, 169, "108.99"},
            {16, 174, "Filiale"},
            {170, 190, "Titoli in custodia"},
            {178, 210, "Muster Strategy Fund (CHF)"},
            {472, 210, "Valore n. 11 844 002"},
            {178, 226, "Quantità"},
            {290, 226, "Valore fiscale"},
            {420, 226, "Reddito con IP"},
            {178, 238, "224 quote"},
            {290, 238, "29'066.24"},
            {420, 238, "371.84"},
            {178, 260, "Muster Chimica SA, azione nominativa"},
            {472, 260, "Valore n. 46 207 719"},
            {178, 276, "Quantità"},
            {290, 276, "Valore fiscale"},
            {420, 276, "Reddito con IP"},
            {178, 288, "75 azioni"},
            {290, 288, "9'742.50"},
            {420, 288, "225.00"},
        })),
        (Records{
            {{"taxValue", "42718.05"}, {"incomeWithWithholding", "311.4"}},
            {{"quantity", "224"}, {"taxValue", "29066.24"}, {"incomeWithWithholding", "371.84"}},
            {{"quantity", "75"}, {"taxValue", "9742.5"}, {"incomeWithWithholding", "225"}}}));
}

TEST(Panels, AreBlocksBesideEachOther) {
    std::vector<Tiles> papers{
        {"heads in the middle, amounts at the other side below their labels, debts in brackets",
         {{120, 100, "CONTO BASE"},
          {330, 100, "IPOTECA FISSA"},
          {100, 116, "CH93 0076 2011 6238 5295 7"},
          {310, 116, "CH88 8679 9196 9279 2381 5"},
          {60, 150, "Saldo"},
          {270, 150, "Saldo"},
          {240, 164, "3'585.24", right},
          {450, 164, "(275'700.00)", right},
          {60, 190, "Interessi a suo favore"},
          {270, 190, "Interessi a suo carico"},
          {240, 204, "5.35", right},
          {450, 204, "(4'532.05)", right},
          {60, 230, "Spese"},
          {270, 230, "Limite"},
          {240, 244, "12.00", right},
          {450, 244, "290'700.00", right}},
         {{{"taxValue", "3585.24"}, {"incomeWithoutWithholding", "5.35"}},
          {{"amount", "275700"}, {"interest", "4532.05"}}}},
        {"amounts over their labels, heads at the left, one tile says that there is none",
         {{60, 100, "Compte privé"},
          {310, 100, "Compte épargne"},
          {60, 120, "CH93 0076 2011 6238 5295 7"},
          {310, 120, "CH15 8886 1223 2498 6376 4"},
          {280, 150, "2 340.64", right},
          {530, 150, "63 540.37", right},
          {280, 161, "avoir au 31.12.2024", right},
          {530, 161, "avoir au 31.12.2024", right},
          {280, 190, "7.10", right},
          {530, 190, "664.95", right},
          {280, 201, "intérêts reçus", right},
          {530, 201, "intérêts reçus", right},
          {280, 230, "néant", right},
          {530, 230, "232.73", right},
          {280, 241, "impôt anticipé retenu", right},
          {530, 241, "impôt anticipé retenu", right}},
         {{{"taxValue", "2340.64"}, {"incomeWithoutWithholding", "7.1"}},
          {{"taxValue", "63540.37"}, {"incomeWithWithholding", "664.95"}}}},
        {"boxes with numbers, each with its label at the top and its value at the bottom",
         {{45, 100, "20"},
          {66, 100, "Konto 1"},
          {305, 100, "21"},
          {326, 100, "Bruttozins Konto 1"},
          {288, 116, "CH93 0076 2011 6238 5295 7", right},
          {548, 116, "1'113.85", right},
          {45, 150, "22"},
          {66, 150, "VSt Konto 1"},
          {305, 150, "23"},
          {326, 150, "Guthaben Konto 1, Ende Jahr"},
          {288, 166, "389.85", right},
          {548, 166, "90'196.90", right}},
         {{{"taxValue", "90196.9"}, {"incomeWithWithholding", "1113.85"}}}},
        {"numbers of boxes between labels and values",
         {{78, 100, "Conto (IBAN)"},
          {45, 107, "1"},
          {545, 114, "CH93 0076 2011 6238 5295 7", right},
          {78, 140, "Interesse lordo"},
          {45, 147, "2"},
          {545, 154, "1'060.65", right},
          {78, 180, "Imposta preventiva 35 % (da 2)"},
          {45, 187, "3"},
          {545, 194, "371.23", right},
          {78, 220, "Saldo creditore alla scadenza"},
          {45, 227, "4"},
          {545, 234, "57'408.20", right}},
         {{{"taxValue", "57408.2"}, {"incomeWithWithholding", "1060.65"}}}},
    };
    papers.push_back(
        {"halves whose blocks are set out from their amounts, one with more lines than the other",
         {{40, 100, "I SUOI AVERI"},
          {310, 100, "I SUOI DEBITI"},
          {40, 114, "Conto privato"},
          {310, 114, "Ipoteca fissa"},
          {40, 127, "CH93 0076 2011 6238 5295 7"},
          {310, 127, "N. 540.211-71"},
          {48, 141, "Saldo a suo favore"},
          {285, 141, "9 874.15", right},
          {318, 141, "Debito residuo al 31.12.2024"},
          {555, 141, "366 000.00", right},
          {48, 154, "Interessi lordi"},
          {285, 154, "0.00", right},
          {318, 154, "Interessi debitori 2024"},
          {555, 154, "5 166.00", right},
          {40, 180, "Conto risparmio"},
          {40, 193, "CH15 8886 1223 2498 6376 4"},
          {310, 196, "Credito di costruzione (chiuso il 30.06.2024)"},
          {48, 206, "Saldo a suo favore"},
          {285, 206, "31 650.00", right},
          {310, 209, "N. 540.211-90"},
          {48, 219, "Interessi lordi"},
          {285, 219, "253.20", right},
          {318, 222, "Debito residuo al 31.12.2024"},
          {555, 222, "0.00", right},
          {48, 232, "imposta preventiva 35 %"},
          {285, 232, "88.62", right},
          {318, 235, "Interessi debitori 2024"},
          {555, 235, "742.55", right}},
         {{{"taxValue", "9874.15"}},
          {{"taxValue", "31650"}, {"incomeWithWithholding", "253.2"}},
          {{"amount", "366000"}, {"interest", "5166"}},
          {{"interest", "742.55"}}}});
    for (const Tiles& paper : papers) {
        std::vector<Put> put{{60, 40, "Banca Muster SA"},
                             {60, 70, "Attestazione per il fisco 2024"}};
        put.insert(put.end(), paper.put.begin(), paper.put.end());
        EXPECT_EQ(amountsOf(proposedFrom(put)), paper.amounts) << paper.what;
    }
}

} // namespace
} // namespace fiscarel
