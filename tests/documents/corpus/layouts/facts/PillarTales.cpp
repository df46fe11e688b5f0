#include "tests/documents/corpus/layouts/facts/Tale.h"

// Pillar 3a and buy-ins into pension funds.

namespace corpus {

std::vector<Tale> pillarTales() {
    return {
        {"foundation",
         "Freie Vorsorge Calanda|3a-Stiftung Regiobank Thur|Vorsorgestiftung Pizol 3a|"
         "App-Vorsorge Nordlicht|Stiftung Drittsäule Hirschberg //"
         "Prévoyance Chasseron|Fondation 3a Orbe|Fondation Épi 3|Prévoyance Boréale|"
         "Fondation Prévoyance Moléson // Previdenza Campolungo|Fondazione 3a Maggia|"
         "Fondazione Spiga 3|Previdenza Boreale|Fondazione Previdenza Ritom"},
        {"insurer3a",
         "Lebensversicherung Rätikon AG|Vorsorge Morgenstern Leben|Leben und Vorsorge "
         "Hundwil AG // Vie Chasseral SA|Étoile du Matin Vie|Vie et Prévoyance "
         "Dent-Blanche SA // Vita Tamaro SA|Stella Vita|Vita e Previdenza Basodino SA"},
        // What may be paid in the year, with and without a pension fund.
        {"limits", R"(
            limit = if(year < 2023, 688300, if(year < 2025, 705600, 725800)); biglimit = 5 * limit)"},
        {"byFoundation", "by saeule3a @foundation; use limits; text number {#2}/{#7}"},
        {"byInsurer3a",
         "by saeule3a @insurer3a; also versicherung; use limits; text policy {#2}.{#3}.{#3}"},
        {"note3a", "note personDeductions who pillar3a=paid"},
        {"payments", R"(
            count times = int(1, 4)
            list payments times : date on = on(12 * i / times, int(1, 28)); english day = on; part = francs(100, 6800 / times, 2)
            paid = part; opening = odd(1500, 88000); interest = five(opening / 180) + 5
            closing = opening + paid + interest; fee = francs(12, 80, 2))"},
        {"pillar", "use byFoundation; use payments; use note3a"},
        {"pillarOfBoth", R"(
            use pillar; paid2 = francs(400, 6800, 4); both = paid + paid2; worth = closing
            worth2 = odd(3000, 70000); note personDeductions two pillar3a=paid2)"},
        {"pillarWithLate", R"(
            use byFoundation; use payments; late = francs(600, 6800, 20)
            note personDeductions one pillar3a=paid pillar3aBuyIn=late)"},
        {"pillarLeft", R"(
            use pillar; moved = five(opening * int(20, 70) / 100); closing = closing - fee - moved
            date movedon = on(12, int(29, 30)))"},
        {"pillarArrived", R"(
            use pillar; moved = odd(4000, 52000); gain = odd(40, 2100); worth = moved + paid + gain
            english movedday = on(1, int(4, 28)))"},
        // The last payment goes beyond what the law allows; what is too much goes back.
        {"pillarRefused", R"(
            use byFoundation; count excess = francs(50, 1900, 10); count times = int(2, 4)
            list payments times : date on = on(12 * i / times, int(1, 28)); part = if(i < times, francs(100, 1500, 2), limit - payments.part + excess)
            date returned = on(12, 31) + 15; got = part; back = excess; paid = limit; use note3a)"},
        // Only who paid the year's own contribution in full may fill the gap of an earlier one.
        {"pillarGap", R"(
            year 2026; use byFoundation; count times = int(1, 3)
            list payments times : date on = on(12 * i / times, int(1, 28)); part = if(i < times, francs(100, 2200, 2), limit - payments.part)
            paid = limit; paidbefore = francs(600, 5200, 20); late = limit - paidbefore; all = paid + late
            date lateon = on(11, int(1, 28)); note personDeductions one pillar3a=paid pillar3aBuyIn=late)"},
        {"pillarFunds", R"(
            use pillar
            list funds of Aktien Welt ex CH|Obligationen CHF|Aktien Schweiz SPI|Immobilien Schweiz
                text name {what}; fixed3 units = int(9000, 420999); text isin CH00{#8}
                worth = some(4000, 18000); price = odd(85, 260)
            end
            again funds percent weight = worth * 10000 / funds.worth
            moved = odd(1500, 4000); gain = worth / 14; fee = odd(12, 190); gross = paid + moved
            opening = worth - gross - gain + fee; cash = odd(3, 320); date movedon = someday())"},
        {"severalPillars", R"(
            use byFoundation
            list accounts int(2, 5)
                text number {#3}-{#6}-0{i}; paid = if(i = 2, 0, francs(250, 1700, 2)); worth = odd(2100, 38000)
                text plan Konto|Strategie 40|Wachstum|Zinskonto Plus // Compte|Stratégie 40|Croissance // Conto|Strategia 40|Crescita
            end
            use note3a)"},
        {"pillarColumns", R"(
            use byFoundation
            list rows 4
                date on = on(3 * i, int(1, 28)); a1 = francs(60, 780, 4); a2 = if(i = 2, 0, francs(60, 780, 4))
                a3 = if(i = 3, 0, francs(60, 780, 4)); sum = a1 + a2 + a3
            end
            paid = sum; worth1 = odd(3000, 42000); worth2 = odd(3000, 42000); worth3 = odd(3000, 42000)
            use note3a)"},
        {"pillarContracts", R"(
            use byFoundation
            list people people one two
                list contracts int(2, 3) : text no {#4}.{#4}; part = francs(200, 2200, 4); worth = odd(3000, 40000)
                paid = part; use note3a
            end)"},
        {"pillarForm", R"(
            use byInsurer3a; paid = francs(600, 6880, 2); worth = francs(4000, 78000); use note3a)"},
        {"pillarPolicy", R"(
            use byInsurer3a; month = odd(80, 560); paid = 12 * month; risk = five(paid / 7)
            saving = paid - risk; surrender = odd(800, 74000); death = francs(60000, 300000, 5000)
            annuity = francs(12000, 36000, 1200); bonus = odd(12, 640); free = odd(90, 800); use note3a)"},
        {"pillarWaiver", R"(
            use byInsurer3a; month = odd(140, 570); count waivedmonths = int(2, 8)
            count paidmonths = 12 - waivedmonths; premium = 12 * month; waived = waivedmonths * month
            paid = premium - waived; surrender = odd(2000, 69000); annuity = francs(6000, 30000, 600)
            date until = last(waivedmonths); text number {#3} {#5}; use note3a)"},
        // A tied policy and a free one.
        {"twoPolicies", R"(
            use byInsurer3a
            tiedrisk = odd(90, 900); tiedsaving = odd(600, 5200); tiedpremium = tiedrisk + tiedsaving
            freerisk = odd(90, 900); freesaving = odd(600, 5200); freepremium = freerisk + freesaving
            risk = tiedrisk + freerisk; saving = tiedsaving + freesaving; premium = risk + saving
            text tiednumber {#2}.{#6}; text freenumber {#2}.{#6}; paid = tiedpremium; use note3a
            accept householdDeductions - lifeInsurancePremiums=freepremium)"},
        {"byBuyInFund", R"(
            by pensionskasse @fund; possible = odd(8000, 120000); assets = odd(70000, 800000)
            date when = someday(); english day = when)"},
        {"noteBuyIn", "note personDeductions one pensionBuyIn=amount"},
        {"buyIn", R"(
            use byBuyInFund; amount = francs(2500, 75000, 250); before = possible + amount
            salary = francs(48000, 128000, 100); use noteBuyIn)"},
        {"buyIns", R"(
            use byBuyInFund
            list payments int(2, 4)
                date on = on(3 * i, int(1, 28)); part = francs(1000, 25000, 250)
                interest = five(part * (on(12, 31) - on) * 15 / 365000) + 5; credit = part + interest
            end
            amount = part; total = part; use noteBuyIn)"},
        {"buyInsOfBoth", R"(
            use byBuyInFund; amount = francs(2000, 38000, 500); amount2 = francs(1500, 29500, 500)
            possible2 = odd(7000, 60000); date when2 = someday(); use noteBuyIn
            note personDeductions two pensionBuyIn=amount2)"},
        {"buyInByWage", R"(
            use byBuyInFund; month = francs(100, 800, 100); wage = 12 * month
            private = francs(2000, 30000, 250); all = wage + private; amount = private; use noteBuyIn)"},
        {"buyInPlan", R"(
            use byBuyInFund; before = francs(5000, 30000, 1000); amount = francs(4000, 25000, 500)
            rest = francs(6000, 40000, 500); agreed = before + amount + rest; use noteBuyIn)"},
        {"buyInWithFirm", R"(
            use byBuyInFund; firm = francs(1000, 12000, 500); amount = francs(2500, 28000, 500)
            all = firm + amount; use noteBuyIn)"},
        // What repays an advance for a home is not deductible.
        {"buyInPurposes", R"(
            use byBuyInFund; part1 = francs(3000, 40000, 500); part2 = francs(2000, 25000, 500)
            amount = part1 + part2; repaid = francs(10000, 45000, 1000); date on1 = on(4, int(1, 28))
            date on2 = on(11, int(1, 28)); date on3 = on(8, int(1, 28)); use noteBuyIn)"},
        {"buyInYear", R"(
            use byBuyInFund; opening = odd(60000, 520000); own = odd(2400, 9800)
            employer = part(own, 1200); amount = francs(2000, 48000, 500); interest = five(opening / 80)
            closing = opening + own + employer + amount + interest; use noteBuyIn)"},
    };
}

} // namespace corpus
