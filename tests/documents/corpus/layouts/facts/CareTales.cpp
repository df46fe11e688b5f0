#include "tests/documents/corpus/layouts/facts/Tale.h"

// Day care, day families, playgroups and holiday camps.

namespace corpus {

std::vector<Tale> careTales() {
    return {
        {"careHouse",
         "Kinderhaus Regenbogen Mörschwil|Kita Wurzelchind GmbH|Chinderinsle Goldach|"
         "Krippe Sternschnuppe|Kinderhort Zwergenstube|Betreuungsverein Hochmoor //"
         "Crèche Les Coccinelles|Structure d'accueil Le Petit Train|Garderie La Ribambelle|"
         "Crèche Les Marmottes|Espace Enfance du Vallon //"
         "Asilo nido Il Girasole|Nido dell'infanzia Pulcino|Famiglie diurne del Piano|"
         "Asilo nido Le Lucciole|Centro extrascolastico Colle"},
        {"byCareHouse", R"(
            by kinderbetreuung @careHouse; ages 1 8; rate = odd(65, 130); deposit = francs(200, 900, 50)
            cap = if(year < 2023, 1010000, if(year < 2024, 2500000, 2550000)))"},
        {"noteCare", "note child child childcareCosts=paid"},
        {"noteOwnCare", "note child who childcareCosts=paid"},
        {"care", R"(
            use byCareHouse
            list months 12 : month month = i; count days = int(3, 14); part = days * rate
            total = part; paid = total; subsidy = odd(400, 4000); full = total + subsidy
            meals = five(total / 12); half = part1 + part2 + part3 + part4 + part5 + part6
            otherhalf = total - half; use noteCare)"},
        {"careOfTwo", R"(
            use byCareHouse; list children people child child2 : paid = odd(900, 14000); use noteOwnCare
            total = paid)"},
        // Amounts of each child by month, across and down.
        {"careTable", R"(
            use byCareHouse
            list children people child child2 third
                count day = odd(42, 98); m1 = day * int(2, 9); m2 = day * int(2, 9); m3 = day * int(2, 9)
                m4 = day * int(2, 9); m5 = day * int(2, 9); m6 = day * int(2, 9); m7 = 0; m8 = day * int(2, 9)
                m9 = day * int(2, 9); m10 = day * int(2, 9); m11 = day * int(2, 9); m12 = day * int(2, 9)
                paid = m1 + m2 + m3 + m4 + m5 + m6 + m8 + m9 + m10 + m11 + m12; use noteOwnCare
            end
            list months 12 : month month = i; a1 = m$of1; a2 = m$of2; a3 = m$of3; sum = a1 + a2 + a3)"},
        {"careMonths", R"(
            use byCareHouse; rate = odd(7, 22); day = 4 * rate; meal = odd(7, 14)
            list months 12
                month month = i; count days = int(3, 19); count hours = 4 * days
                care = hours * rate; meals = days * meal; sum = care + meals
            end
            paid = care; fee = francs(40, 120, 10); total = sum + fee; use noteCare)"},
        // A child at the full rate and what others bear of it; `sibling`: with a discount.
        {"subsidisedChild", R"(
            count days = int(38, 160); full = days * odd(82, 128)
            discount = if(sibling, if(i = 1, 0, five(full / 10)), 0); commune = five(full * int(8, 30) / 100)
            canton = five(full * int(3, 16) / 100); aid = commune + canton; meals = days * 850
            net = full - discount - aid; all = net + meals; paid = net; use noteOwnCare)"},
        {"subsidised", R"(
            use byCareHouse; count sibling = 0; list children people child child2 : use subsidisedChild
            income = francs(38000, 120000, 100); wealth = francs(10000, 290000, 1000))"},
        {"siblings", R"(
            use byCareHouse; count sibling = 1; list children people child child2 third : use subsidisedChild)"},
        {"twoSiblings", R"(
            use byCareHouse; count sibling = 1; list children people child child2 : use subsidisedChild)"},
        {"costKinds", R"(
            use byCareHouse
            list care of Betreuung Montag bis Freitag|Ferienbetreuung : a1 = odd(900, 5800); a2 = odd(900, 5800); a3 = odd(900, 5800); sum = a1 + a2 + a3
            list extras of Mahlzeiten|Windeln, Ausflüge : a1 = odd(20, 900); a2 = odd(20, 900); a3 = odd(20, 900); sum = a1 + a2 + a3
            list children people child child2 third : aid = odd(90, 800); n = care.a$ - aid; p = n + extras.a$; paid = n; use noteOwnCare
            paid = p)"},
        {"monthsByChild", R"(
            use byCareHouse; count day1 = odd(55, 118); count day2 = odd(40, 96)
            list children people child child2 : count same = 0
            list entries 24
                count k = i - (i - 1) / 2 * 2; text month; if k = 1 : month month = (i + 1) / 2
                text first {first1}; if k = 2 : text first {first2}
                count days = int(2, 14); part = days * if(k = 1, day1, day2)
                t1 = if(k = 1, part, 0); t2 = if(k = 2, part, 0)
            end
            total = part; note child child childcareCosts=t1; note child child2 childcareCosts=t2)"},
        // One month is not the year: its amount may be offered, but the year is not known from it.
        {"careMonthBill", R"(
            use byCareHouse; kind anderes; also kinderbetreuung; count at = int(1, 12)
            dated last(at) + int(1, 6); date due = dated + 20; month monthname = at
            text month {monthname} {year}; text number {#6}; count days = int(5, 17); care = days * rate
            meals = days * 950; before = odd(300, 1500); total = care + meals; budget = int(120, 170) * rate
            accept child - childcareCosts=care; accept child - childcareCosts=total)"},
        {"careRefund", R"(
            use byCareHouse
            list quarters of Januar bis März|April bis Juni|Juli bis September|Oktober bis Dezember : text term {what}; date on = on(3 * i - 2, int(2, 12)); part = odd(900, 4200)
            charged = part; closed = odd(60, 380); ill = odd(30, 240); back = closed + ill
            paid = charged - back; use noteCare)"},
        {"careTotal", R"(
            use byCareHouse; list children people child child2 : count same = 0
            total = odd(2400, 21000); note child - childcareCosts=total)"},
        {"camps", R"(
            by kinderbetreuung Ferienhort Seefeld|Verein Ferienspass Obertal|Tageslager Waldkobel; ages 4 11
            list both people child child2 : count same = 0
            list weeks 8
                skip if(i > 2, chance(40), 0); count k = i - (i - 1) / 2 * 2
                date from = monday(on(if(i < 3, 2, if(i < 5, 4, if(i < 7, 7, 10))), 8)); date until = from + 4
                text first {first1}; if k = 2 : text first {first2}
                text what Waldwoche|Zirkuswoche|Spiel und Sport|Forscherwoche|Musikwoche
                part = francs(190, 460, 5); p1 = if(k = 1, part, 0); p2 = if(k = 2, part, 0)
            end
            list children people child child2 : paid = p$; use noteOwnCare
            total = part; day = francs(60, 110, 5))"},
        {"playgroup", R"(
            by kinderbetreuung Spielgruppe Purzelbaum|Waldspielgruppe Tannzapfen|Verein Spielgruppe Igelnest; ages 2 4
            list quarters 4 : text no {i}; date on = on(3 * i - 1, int(1, 25)); part = francs(380, 1400, 10)
            care = part; paid = care; material = francs(30, 90, 5); fee = francs(20, 60, 5)
            all = care + material + fee; use noteCare)"},
        {"careSimple", R"(
            paid = odd(1400, 19500); entry = francs(50, 400, 50); aid = odd(300, 4200); meals = odd(220, 2200)
            gross = paid + aid; full = gross; employer = aid; month = five(full / 12); all = paid + meals + entry
            text firm Kantonsklinik Hochwacht|Nebelhorn Technik AG|Textilwerk Au; use noteCare)"},
        {"careAlone", "use byCareHouse; use careSimple"},
        {"careInEnglish", R"(
            by kinderbetreuung Little Alps Daycare GmbH|Bilingual Kita Bluebell|Treehouse Early Years AG
            ages 1 6; deposit = francs(1000, 2500, 100); english childbirthday = childbirth; use careSimple)"},
        {"dayMother", R"(
            use byCareHouse
            list children people child child2
                count hours = int(180, 900); rate = odd(6, 12); care = hours * rate; meals = odd(120, 800)
                back = odd(20, 160); paid = care - back; use noteOwnCare
            end
            total = paid)"},
        {"careHalfYear", R"(
            use byCareHouse; count first = if(chance(50), 6, 0); count term = first / 6 + 1
            text term {term}. Halbjahr; date from = on(first + 1, 1); date until = last(first + 6)
            list months 6 : month month = first + i; count days = int(3, 15); part = days * rate
            amount = part; paid = amount; entry = francs(50, 250, 50); half = part(rate, 700); use noteCare)"},
        {"careInvoices", R"(
            use byCareHouse; count base = odd(300, 1900); count first = int(20100, 88000)
            list invoices 12
                count number = first + 37 * i; date on = on(i, int(2, 9)); month month = i
                part = base + 5 * int(0, 2000); got = if(i < 12, part, 0); left = part - got
            end
            invoiced = part; paid = got; open = left; use noteCare)"},
        {"careModules", R"(
            by kinderbetreuung Schulverwaltung Thal, Tagesstrukturen|Stadt Gallusau, Schulergänzende Betreuung|Primarschulgemeinde Rheinau-Dorf, Hort
            ages 5 11; count before = year - 1; text term {before}/{year}
            list children people child child2 third
                skip if(i > 1, chance(40), 0)
                list modules of Frühmodul 06.45–08.00|Mittagsmodul 11.45–13.30|Nachmittag I 13.30–15.20|Nachmittag II 15.20–18.00|Ferienmodul ganzer Tag
                    skip if(i > 1, chance(25), 0); count count = int(4, 76); rate = odd(4, 24); part = count * rate
                end
                paid = part; use noteOwnCare
            end
            total = paid)"},
    };
}

} // namespace corpus
