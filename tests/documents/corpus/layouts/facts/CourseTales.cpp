#include "tests/documents/corpus/layouts/facts/Tale.h"

// Further education.

namespace corpus {

std::vector<Tale> courseTales() {
    return {
        {"school",
         "Höhere Fachschule Bodensee|Institut für Lernen und Arbeit|Kaderschule Alpina|"
         "Berufsakademie Ostwind|Bildungszentrum Thurbogen|Fernlehrinstitut Merkur AG //"
         "École-Club du Rivage|Institut de Formation Clairière|Centre d'études Belle-Roche|"
         "École supérieure Les Tilleuls // Scuola specializzata Ceresio|"
         "Centro formazione Riva|Istituto di studi Monte Verde"},
        {"course", "Eidg. Fachausweis Technischer Kaufmann|Lehrgang Immobilienbewirtschaftung|"
                   "CAS Digitale Verwaltung|Kurs Arbeitssicherheit EKAS|Nachdiplomstudium Pflege|"
                   "Diplomlehrgang Coaching // Brevet fédéral en ressources humaines|"
                   "CAS en gérontologie|Cours de perfectionnement en soudage"},
        {"bySchool", R"(
            by weiterbildung @school; dated someday(); date due = dated + 30; date paid = someday()
            text number F-{#6}; text course @course)"},
        {"noteCourse", "note personDeductions one furtherEducation=amount"},
        {"courseCosts", R"(
            use bySchool; fee = francs(250, 7800, 10); books = odd(20, 380); exam = francs(100, 1200, 50)
            total = fee + books + exam; amount = total; instalment = five(total / 4)
            penalty = francs(80, 350, 10); use noteCourse)"},
        {"coursePaid", R"(
            use bySchool; fee = francs(380, 5400, 20); material = odd(30, 240); amount = fee + material
            cancel = francs(100, 300, 50); use noteCourse)"},
        {"courseInstalments", R"(
            use bySchool; count base = odd(250, 2400)
            list parts int(2, 4) : text no {i}; date on = on(1 + 2 * i, int(1, 28)); part = base + 1000 * i
            total = part; amount = total; open = base + 7500; price = total + open; use noteCourse)"},
        {"tuition", R"(
            by weiterbildung Lakeside Executive School|Alpine Institute of Management|International Centre for Professional Studies
            text course Executive MBA|Diploma in Clinical Research; count base = francs(2400, 7800, 100)
            list parts 4
                english day = on(if(i < 4, 4 * i - 2, 2), int(1, 28), year + i / 4); text no {i}
                text state received; if i = 4 : text state due
                part = base + 10000 * i; amount = if(i < 4, part, 0)
            end
            all = part; next = part4; use noteCourse)"},
        {"ownShare", R"(
            use bySchool; price = francs(3200, 16800, 100); employer = to(price / 4, 500)
            grant = to(price / 3, 500); amount = price - employer - grant; lesson = odd(18, 46); use noteCourse)"},
        {"shareOfFirm", R"(
            use bySchool; price = francs(1800, 12800, 100); firm = to(price * int(20, 60) / 100, 5000)
            amount = price - firm; text company Horlogerie Fontanelle SA|Menuiserie des Bois Sàrl
            use noteCourse)"},
        {"coursesInTwoYears", R"(
            use bySchool
            list modules of Grundlagen|Recht|Praxis|Diplomarbeit
                text name Modul {i}; text topic {what}; earlier = if(i = 1, francs(450, 2800, 50), 0)
                part = if(i = 1, 0, francs(450, 2800, 50)); date on = on(if(i = 1, 10, 3 * i - 3), 20, year - if(i = 1, 1, 0))
            end
            amount = part; all = earlier + amount; use noteCourse)"},
        {"credits", R"(
            use bySchool
            list modules of Diritto del lavoro|Contabilità II|Gestione del personale|Comunicazione|Lavoro di diploma
                text name {what}; count credits = int(2, 8); part = credits * francs(140, 260, 10)
            end
            exam = francs(200, 900, 50); books = odd(40, 320); amount = part + exam + books; reminder = 3000
            use noteCourse)"},
        {"withdrawn", R"(
            use bySchool; fee = francs(1800, 8400, 20); material = odd(60, 420); charged = fee + material
            refund = to(fee * int(15, 55) / 100, 500); handling = francs(80, 200, 10)
            amount = charged - refund + handling; date paid = on(2, int(1, 28)); date left = on(8, int(1, 28))
            date back = on(9, int(1, 28)); use noteCourse)"},
        {"learners", R"(
            use bySchool
            list learners people one two
                text course Kurs Lohnbuchhaltung|Business Spanisch C1|CAS Pflegeberatung|Refresher Arbeitsrecht
                date on = someday(); part = francs(320, 5200, 10); amount = part
                note personDeductions who furtherEducation=part
            end
            all = part)"},
        {"schoolAccount", R"(
            use bySchool; count term = francs(1400, 4800, 50); count books = odd(80, 460); count exam = francs(300, 1600, 50)
            list lines of Studiengebühr 1. Semester|Zahlung|Lehrmittel|Zahlung|Studiengebühr 2. Semester|Zahlung|Prüfungsgebühr
                debit = if(i = 1, term, if(i = 3, books, if(i = 5, term + 5000, if(i = 7, exam, 0))))
                credit = if(i = 2, term, if(i = 4, books, if(i = 6, term + 5000, 0)))
                date on = on(i * 12 / 7, int(1, 25)); balance = lines.debit + debit - lines.credit - credit
            end
            charged = debit; amount = credit; open = debit - credit; use noteCourse)"},
    };
}

} // namespace corpus
