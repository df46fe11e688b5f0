#include "tests/documents/corpus/layouts/facts/Tale.h"

// Letters about money and taxes that hold nothing to enter.

namespace corpus {

std::vector<Tale> letterTales() {
    return {
        {"taxOffice",
         "Steueramt der Gemeinde Oberhelfen|Veranlagungsbehörde Region See|Gemeindekasse "
         "Wartegg // Office d'impôt du district de la Rive|Commune de Vieux-Pont, impôts"},
        {"creditor",
         "Kartenzentrum Libelle AG|Kreditinstitut Ankerplatz AG // Prêt Nénuphar SA|Institut "
         "de crédit La Bouée SA // Prestiti Ninfea SA|Istituto di credito Boa SA"},
        {"assessment", R"(
            by anderes @taxOffice; text register {#3}.{#3}
            list lines of Einkünfte aus unselbständiger Erwerbstätigkeit P1|Einkünfte aus unselbständiger Erwerbstätigkeit P2|Wertschriftenertrag|Eigenmietwert, Ertrag Liegenschaften|Berufskosten|Beiträge Säule 3a|Versicherungsprämien, Sparzinsen|Kinderbetreuungskosten|Krankheits- und Unfallkosten|Freiwillige Zuwendungen (Spenden)
                count no = 9 + i; state = if(i < 5, francs(20000, 98000), francs(900, 7000, 10))
                federal = if(i = 9, 0, state - if(i = 5, 10000, if(i = 7, 80000, 0)))
                less = if(i < 5, 0, state); federalless = if(i < 5, 0, federal)
            end
            state = state - 2 * less; federal = federal - 2 * federalless
            house = francs(300000, 900000, 1000); debts = francs(100000, 280000, 1000); wealth = house - debts)"},
        {"taxBill", R"(
            by anderes @taxOffice; text register {#3}.{#3}; simple = odd(1900, 9800); count of = int(105, 144)
            text rate {of} %; count per = int(20, 27); text churchrate {per} %; canton = five(simple * 105 / 100)
            commune = five(simple * of / 100); church = five(simple * per / 100); fireduty = francs(0, 400, 20)
            land = odd(80, 620); late = odd(1, 60); bonus = odd(1, 45)
            total = canton + commune + church + fireduty + land; provisional = five(total * 9 / 10)
            open = total - provisional + late - bonus; third = five(provisional / 3); date due = on(12, 31) + 120)"},
        {"taxInstalments", R"(
            by anderes @taxOffice; dated on(2, int(2, 27)); count rate = odd(240, 1500)
            list parts 10 : text no {i}; date due = last(i + 2); part = rate
            income = francs(42000, 160000, 100); fortune = francs(0, 700000, 1000); total = part)"},
        {"meeting", R"(
            by anderes Bergbahnen Hochgarten AG|Regiobank Holding Uferland // Remontées du Grand-Pré SA|Eaux Minérales Source-Claire SA
            also steuerauszug; count count = int(10, 900); each = odd(1, 9); gross = each * count
            tax = gross * 35 / 100; net = gross - tax; nominal = 10000; profit = francs(4000000, 90000000, 10000)
            board = francs(300000, 1900000, 10000); text holder {#6}; date meeting = on(4, 24, year + 1)
            date due = on(5, 2, year + 1))"},
        {"shareGrant", R"(
            by anderes Seilerei & Netze AG|Hydrotechnik Bodan AG|Optikwerke Rietli AG; also lohnausweis
            count count = int(20, 400); price = odd(40, 260); worth = price * count; own = part(price, 750)
            paid = own * count; bonus = francs(2000, 12000, 100); date grant = on(4, 1)
            date free = on(4, 1, year + 3))"},
        {"sharesAnnex", R"(
            by anderes @employer; also lohnausweis
            list grants int(2, 4) : date on = on(2 * i, 15); count count = 10 * i; price = odd(20, 200); part = odd(300, 4000)
            social = part * 64 / 1000)"},
        {"creditReminder", R"(
            by anderes @creditor; also bankauszug; open = odd(180, 3900); late = odd(2, 60)
            fee = francs(20, 50, 10); rest = odd(5000, 24000); total = open + late + fee
            date billed = someday(); date due = someday())"},
        {"loanOffer", R"(
            by anderes @bank; count sum = francs(280000, 900000, 5000)
            list models of Fest 5 Jahre|Fest 10 Jahre|SARON 3M // Fixe 5 ans|Fixe 10 ans|SARON 3M
                text name {what}; percent rate = int(105, 265); loan = sum; year = five(loan * rate / 10000)
                month = five(year / 12)
            end
            loan = sum; price = sum * 5 / 4; own = sum / 4; upkeep = price / 100; redemption = sum / 100)"},
        {"advice", R"(
            by anderes Finanzplanung Leuchtturm GmbH|Vorsorgeberatung Kompass|Seebank Hafenegg AG
            need = francs(60000, 96000, 500); ahv = francs(22000, 44000, 60); fund = francs(14000, 42000, 120)
            pillar = francs(3000, 7000, 100); buyin = francs(10000, 60000, 5000); saved = francs(2000, 16000, 100)
            capital = francs(90000, 480000, 1000); interest = francs(100, 900, 10); fee = francs(400, 1900, 50)
            gap = abs(need - ahv - fund))"},
        {"order", R"(
            by anderes @bank; also bankauszug,steuerauszug; count count = int(10, 300); price = odd(20, 280)
            worth = price * count; broker = part(worth, 8); stamp = five(worth * 75 / 100000)
            total = worth + broker + stamp; text valor {#7}; text depot {#3}-{#6}; date traded = someday()
            date value = traded + 2)"},
        {"halfYear", R"(
            by anderes @bank; also bankauszug; opening = odd(4000, 70000); interest = five(opening / 250) + 5
            fee = odd(6, 36); balance = opening + interest - fee; date half = on(6, 30))"},
        {"paymentPlan", R"(
            by anderes @bank; also bankauszug; text number {#8}; count sum = francs(150000, 640000, 1000)
            percent rate = int(120, 240)
            list payments 4 : date on = last(3 * i, year + 1); part = five(sum * rate / 40000); back = 125000; due = part + back
            loan = sum; year = part)"},
        {"leasing", R"(
            by anderes Fahrleasing Bugwelle AG|Autofinanz Seetal AG // Leasing Proue SA|Autofinance Rivage SA
            also bankauszug; text number {#7}; text car Personenwagen Kombi // voiture de tourisme
            month = odd(240, 760); paid = 12 * month; share = five(paid * 11 / 100); rest = odd(9000, 26000)
            price = francs(26000, 64000, 100); deposit = francs(1000, 4000, 500))"},
        {"wageAgreement", R"(
            by anderes @employer; also lohnausweis; dated on(12, int(2, 27)); month = francs(4100, 9600, 50)
            before = month - francs(40, 190, 10); year13 = 13 * month; bonus = francs(1000, 6000, 500)
            lump = francs(50, 300, 50))"},
    };
}

} // namespace corpus
