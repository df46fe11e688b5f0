#include "tests/documents/corpus/layouts/facts/Tale.h"

// Wages and the deductions from them.

namespace corpus {

std::vector<Tale> wageTales() {
    return {
        {"employer", "Sägerei Hemberg AG|Altersheim Sonnmatt|Holzbau Gonzenblick AG|"
                     "Pflegezentrum Auenhof|Stickerei Rosenau GmbH|Gerüstbau Flussau AG|"
                     "Auto Weier GmbH // Scierie du Gros-de-Vaud SA|EMS Les Peupliers|"
                     "Fromagerie des Sapins SA|Garage du Levant Sàrl|Fondation Rive-Bleue|"
                     "Bureau d'études Aubonne SA // Segheria Blenio SA|Casa di riposo Mimosa|"
                     "Vivai Collina Sagl|Panificio Tre Valli SA|Istituto Riva del Sole"},
        {"principalityEmployer", "Präzisionswerk Eschnerberg AG|Messtechnik Schwabbrünnen AG|"
                                 "Alpinholz Triesenberg GmbH|Kellerei Bockwingert GmbH|"
                                 "Rheinau Logistik Anstalt"},
        {"noteWage", R"(
            note salaryCertificate who birth grossSalary=gross socialContributions=social pensionContributions=bvg netSalaryOverride=net)"},
        // A year of twelve wages and a thirteenth. What the insurance of sickness costs is taken
        // off after the net wage, as on the federal form.
        {"year", R"(
            month = francs(3700, 9900, 5); year12 = 12 * month; thirteenth = month
            bonus = if(chance(55), odd(180, 5900), 0); overtime = bonus
            children = if(chance(50), francs(230, 600, 10) * 12, 0); earned = 13 * month + bonus
            gross = earned + children; base = gross - bonus
            avs = part(earned, 53); alv = part(earned, 11)
            nbu = part(earned, int(6, 15)); social = avs + alv + nbu; bvg = part(earned, int(42, 88))
            bvgbuy = 0; deductions = social + bvg; net = gross - deductions
            sick = part(earned, 6); expenses = odd(60, 2600); travel = expenses
            wagetax = part(gross, 40); atsource = wagetax
            payout = net - sick + expenses; paidout = net + travel
            ahvfirm = avs; bvgfirm = part(bvg, 1250); famfirm = part(earned, 18)
            employer = ahvfirm + bvgfirm; date from = on(1, 1); date until = on(12, 31))"},
        {"wage", "by lohnausweis @employer; use year; use noteWage"},
        {"wageWithBuyIn", R"(
            by lohnausweis @employer; use year; date from = on(int(1, 4), 1)
            if chance(40) : bvgbuy = francs(500, 9000, 100)
            deductions = deductions + bvgbuy; net = net - bvgbuy; outside = francs(200, 500, 10) * 12
            paidout = net + expenses + outside
            note salaryCertificate who birth grossSalary=gross socialContributions=social pensionContributions=bvg pensionBuyIn=bvgbuy netSalaryOverride=net)"},
        {"wageSocialSplit", R"(
            by lohnausweis @employer; use year
            note salaryCertificate who birth grossSalary=gross socialContributions=social pensionContributions=bvg netSalaryOverride=net derived:socialContributions)"},
        {"principalityWage", R"(
            by lohnausweis @principalityEmployer; principality; use year; use noteWage)"},
        {"secondWage", R"(
            by lohnausweis Turnverein Auried|Buchhandlung Seitenweise|Hauswartung Pfister
            month = francs(400, 2100, 5); gross = 13 * month; social = part(gross, 73)
            bvg = part(gross, int(42, 88)); net = gross - social - bvg; use noteWage)"},
        {"correctedWage", R"(
            by lohnausweis @employer; use year; diffgross = francs(300, 4200, 10)
            diffsocial = part(diffgross, 70); diffbvg = part(diffgross, 55)
            oldgross = gross - diffgross; oldsocial = social - diffsocial; oldbvg = bvg - diffbvg
            diffnet = diffgross - diffsocial - diffbvg; oldnet = oldgross - oldsocial - oldbvg
            date first = on(1, int(10, 24), year + 1); dated first + int(9, 40); use noteWage)"},
        // A month or a quarter, by the names of the columns.
        {"paidIn", R"(
            avs = part(gross, 53); alv = part(gross, 11); nbu = part(gross, 10)
            social = avs + alv + nbu; bvg = part(gross, 66); net = gross - social - bvg
            wagetax = part(gross, 40); expenses = odd(20, 240); payout = net + expenses)"},
        {"wageMonths", R"(
            by lohnausweis @employer; count month = francs(4100, 8800, 10)
            list months 12
                gross = month * if(i = 11, 2, 1) + if(chance(30), odd(80, 700), 0)
                use paidIn; month month = i
            end
            use noteWage)"},
        {"wageTaxMonths", R"(
            by lohnausweis @principalityEmployer; principality; count month = francs(4200, 9400, 10)
            list months 12 : gross = month * if(i = 12, 2, 1); use paidIn; month month = i; payout = net - wagetax
            use noteWage)"},
        {"wageQuarters", R"(
            by lohnausweis @employer; count quarter = francs(11400, 26000, 30)
            list quarters 4 : gross = quarter + if(i = 4, quarter / 3, 0) + odd(0, 300); use paidIn
            use noteWage)"},
        {"wageMonthsAcross", R"(
            by lohnausweis @employer; count wage = francs(3900, 8900, 5)
            count family = if(chance(60), francs(230, 500, 10), 0)
            list months 12
                salary = wage; thirteenth = if(i = 12, wage, 0); children = family
                extra = if(chance(30), odd(40, 480), 0); gross = salary + thirteenth + extra + children
                social = part(gross - children, 72); bvg = part(salary, 68); net = gross - social - bvg
                travel = if(chance(50), odd(15, 160), 0); payout = net + travel
            end
            use noteWage)"},
        {"wagesOfBoth", R"(
            by lohnausweis Treuhandbüro Löwenzahn|Lohnservice Dreispitz GmbH
            list jobs people one two two
                text firm Gärtnerei Efeuhof AG; if i = 2 : text firm Praxisgemeinschaft Südhang
                if i = 3 : text firm Musikschule Oberes Tal
                gross = francs(21000, 96000, 10) / if(i = 3, 8, 1); use paidIn; use noteWage
            end)"},
        {"board", R"(
            by lohnausweis @employer; fee = francs(8000, 48000, 500); count count = int(4, 11)
            sitting = francs(400, 1500, 50); sittings = count * sitting; gross = fee + sittings
            social = part(gross, 64); bvg = 0; net = gross - social; travel = odd(60, 1400)
            payout = net + travel; use noteWage)"},
        {"council", R"(
            by lohnausweis Gemeindeverwaltung Auwil|Schulgemeinde Flussau|Ortsgemeinde Rheinsteg
            list rows int(3, 7)
                a1 = francs(60, 340, 20); a2 = francs(60, 340, 20); both = a1 + a2
                date on1 = on(1, 20) + 22 * i; date on2 = on1 + 160
                text body1 Rat|Baukommission|GPK|Bürgerversammlung|Augenschein
                text body2 Rat|Baukommission|GPK|Bürgerversammlung|Finanzkommission
            end
            sittings = both; lump = francs(1200, 9600, 100); gross = sittings + lump
            social = part(gross, 64); bvg = 0; net = gross - social
            expenses = francs(150, 900, 50); payout = net + expenses; use noteWage)"},
        {"homeHelp", R"(
            by lohnausweis Familie Eberhard-Gut|Verena und Luzius Hartmann|Haushalt Wyss-Caviezel
            rate = francs(27, 38)
            list months 12 : month month = i; count hours = if(i = 7, 0, int(9, 34)); part = hours * rate
            wage = part; count hours = wage / rate; holiday = five(wage * 833 / 10000)
            gross = wage + holiday; avs = part(gross, 53); alv = part(gross, 11); bvg = 0
            social = avs + alv; net = gross - social; use noteWage)"},
        {"simplifiedWage", R"(
            by anderes AHV-Zweigstelle Untere Au|Ausgleichskasse Kreis Mittelrhein // Caisse AVS de la Plaine|Caisse de compensation des Quais
            also lohnausweis; gross = odd(1800, 19500); social = part(gross, 64); tax = part(gross, 50)
            net = gross - social - tax
            text household R. und S. Locher|Familie Zünd|A. Gantenbein // Famille Corboz|M. et L. Rime)"},
    };
}

} // namespace corpus
