#include "tests/documents/corpus/layouts/facts/Tale.h"

// Bills of practices, homes and workshops.

namespace corpus {

std::vector<Tale> billTales() {
    return {
        {"practice", "Hausarztpraxis Kronbühl|Augenklinik Seetal AG|Dr. med. Regula Anderegg|"
                     "Frauenpraxis am Wehr|Psychotherapie Hofer & Team|Hautarztpraxis Stegmatt //"
                     "Cabinet médical du Bourg|Clinique de l'œil Morges SA|Dr méd. Aline Besson|"
                     "Centre médical des Quais|Psychothérapie Perret //"
                     "Studio medico Piazza|Clinica oculistica Lario SA|Psicoterapia Galli"},
        {"dentist", "Dr. med. dent. Livia Tschirky|Zahnwerk Kreuzbleiche AG|Zahnärzte am Obertor|"
                    "Kieferorthopädie Säntispark AG|Zahnarztpraxis Uferweg //"
                    "Clinique dentaire de l'Écluse|Cabinet d'orthodontie Les Berges"},
        {"therapist", "Psychotherapie Weidenweg|Ergotherapie Handwerk|Physio Wellenbad //"
                      "Ostéopathie des Remparts|Physiothérapie du Parc Sàrl|Logopédie Perrin //"
                      "Osteopatia Vedeggio|Fisioterapia Ponte Brolla|Logopedia Crivelli"},
        {"bill", "dated someday(); text number {#7}; date due = dated + 30; fee = 2000; rate = "
                 "odd(90, 180)"},
        {"noteCost", "note medicalCost one gross=total provider:issuer date@dated"},
        {"services", R"(
            by arztrechnung @practice; use bill
            list items int(2, 6)
                text what @@treatment; count count = int(1, 6); text code 0{#1}.{#4}
                date on = dated - 38 + 4 * i; part = odd(9, 260)
            end
            sum = part; total = sum)"},
        {"serviceBill", "use services; use noteCost"},
        {"paidBill", R"(
            use services; advance = to(total / 3, 500) + 500; open = total - advance; use noteCost
            accept medicalCost one gross=open provider:issuer date@dated)"},
        {"creditedBill",
         "use services; credit = five(sum / 10) + 5; total = sum - credit; use noteCost"},
        // Tariff positions and the work of the laboratory.
        {"dental", R"(
            by arztrechnung @dentist; use bill; fixed2 point = pick(100, 105, 110, 115, 120)
            list items int(3, 7)
                text code 4.{#4}; count tooth = 10 * int(1, 4) + int(1, 8); count count = int(1, 4)
                count points = int(6, 90); date on = dated - 47 + 6 * i; part = points * count * point
                text what Befundaufnahme|Anästhesie|Füllung einflächig|Wurzelspitzenaufnahme|Kofferdam|Politur|Zahnsteinentfernung
            end
            care = part; lab = odd(60, 780); total = care + lab; quote = total + odd(30, 200))"},
        {"dentalBill", "use dental; use noteCost"},
        {"correctedBill", R"(
            use dental; text wrong {code1}; before = total; credit = part1; total = before - credit
            date first = dated - 21; use noteCost)"},
        {"instalmentBill", R"(
            by arztrechnung @dentist; dated on(int(2, 8), int(1, 28)); text number {#5}; count each = odd(140, 1400)
            list rates 3 : text no {i}. Rate; date due = dated + 30 * i; rate = each
            total = rate; rate = each; lab = part(total, 320); material = part(total, 45)
            care = total - lab - material
            text what Keramikkrone Zahn 26|Implantat Zahn 46|Zahnspange, 2. Phase|Brücke 34 bis 36
            use noteCost; accept medicalCost one gross=rate provider:issuer)"},
        // All of it and what others paid says the same as the own share.
        {"hospitalBill", R"(
            by arztrechnung Klinik Hirschmatt AG|Spitalverbund Oberrhein|Rehazentrum Walenblick
            use bill; full = odd(1800, 14800); own = five(full * int(5, 14) / 100)
            canton = five((full - own) * 55 / 100); insurer = full - own - canton; total = own
            text case {#9}; date in = dated - 32; date out = dated - int(22, 29); use noteCost
            accept medicalCost one gross=full reimbursed=full-own provider:issuer date@dated)"},
        {"pharmacyYear", R"(
            by arztrechnung Apotheke zum Mörser|Kronen-Apotheke Flade AG|Dorfdrogerie und Apotheke Hug
            list items int(5, 13)
                date on = on(1, 6) + 24 * (i - 1) + int(0, 20); full = odd(12, 190)
                own = if(i = 1, five(full / 10), if(chance(45), full, 0)); insurer = full - own
                text what Salvaplan Tabl 30 Stk|Dolonex Filmtabl 500 mg|Nasivent Spray 15 ml|Cardiol Kaps 98 Stk|Verbandmaterial|Magnova Brause 60 Stk
            end
            note medicalCost one gross=own provider:issuer)"},
        {"pharmacyColumns", R"(
            by arztrechnung Farmacia Ponte Nuovo|Farmacia alla Foce SA|Farmacia San Rocco; text card {#7}
            list rows 6
                month month1 = i; month month2 = i + 6; free1 = if(i = 1, odd(15, 140), if(chance(75), odd(6, 140), 0))
                covered1 = if(chance(75), odd(6, 140), 0); free2 = if(chance(75), odd(6, 140), 0)
                covered2 = if(chance(75), odd(6, 140), 0); free = free1 + free2; covered = covered1 + covered2
            end
            all = free + covered; note medicalCost one gross=free provider:issuer)"},
        {"reminderOfAgency", R"(
            by arztrechnung Ärztefaktura Ost AG|Medkasse Abrechnungsdienste|Treuhandstelle Heilberufe
            dated on(int(4, 12), int(1, 28)); text number {#7}; amount = odd(80, 1900); fee = francs(10, 40, 5)
            interest = 5 * int(12, 190); total = amount + fee + interest
            text doctor Dr. med. Fabienne Lutz|Praxis Dr. med. Gion Cathomas|Physio am Bach, Selina Roth
            date billed = dated - 64; date due = dated + 10
            note medicalCost one gross=amount provider:doctor+issuer date@billed)"},
        {"reminder", R"(
            by arztrechnung @dentist; dated on(int(6, 12), int(1, 28)); text number {#6}
            total = odd(300, 3600); paid = part(total, 300); fee = francs(10, 40, 5); left = total - paid
            open = left + fee; date billed = dated - 75; date part = dated - 40; date due = dated + 10
            note medicalCost one gross=total provider:issuer date@billed
            accept medicalCost one gross=left provider:issuer)"},
        {"sessions", R"(
            by arztrechnung @therapist; use bill; rate = odd(48, 160); count count = int(3, 9)
            list items count : date on = dated - 7 * (count + 1 - i); part = rate
            total = part; use noteCost)"},
        {"sessionDates", R"(
            by arztrechnung @therapist; use bill; rate = odd(52, 190); count rows = int(2, 4)
            list rows rows
                date on1 = dated - 28 * (rows + 1 - i); date on2 = on1 + 7; date on3 = on1 + 14
                date on4 = on1 + 21
            end
            count count = 4 * rows; count minutes = int(30, 60); sum = rate * count
            report = odd(20, 60) * int(1, 2); total = sum + report; use noteCost)"},
        {"claim", R"(
            by arztrechnung @practice; use bill; text gln 760{#10}; count point = int(82, 96)
            list items int(4, 8)
                fixed2 points = int(80, 6400); fixed2 point = point; part = point * points / 100
                text code 00.{#4}; date on = dated - 30 + 3 * i
                text what Konsultation, erste 5 Min.|Konsultation, weitere 5 Min.|Untersuchung durch den Facharzt|Laboranalyse CRP // Consultation, première période de 5 min|Examen par le spécialiste|Analyse CRP
            end
            tariff = part; drugs = odd(8, 140); lab = odd(12, 190); total = five(tariff + drugs + lab + 2)
            use noteCost)"},
        {"homeCare", R"(
            by arztrechnung Spitex Flussland|Hauspflege Untere Au|Spitex-Verein Wehr und Steg
            count at = int(1, 12); dated last(at); month month = at; text number {#6}; date due = dated + 30
            list items of A Abklärung und Beratung|B Untersuchung und Behandlung|C Grundpflege
                count minutes = 5 * int(12, 220); rate = if(i = 1, 7690, if(i = 2, 6300, 5260))
                part = five(rate * minutes / 60)
            end
            count days = int(12, 30); day = 1535; own = days * day; insurer = part; rest = part(insurer, 380)
            full = insurer + rest + own; material = odd(9, 120); total = own + material; use noteCost
            accept medicalCost one gross=own provider:issuer)"},
        // Board is a living cost; whether support is a cost of illness depends on the level of
        // care.
        {"careHome", R"(
            by arztrechnung Seniorenzentrum Flusspark|Pflegeheim Weidenhof|Haus zur Au, Pflege
            count at = int(1, 12); dated last(at); month monthname = at; text month {monthname} {year}
            text number {#6}; count level = int(5, 11); count days = dated - on(at, 1) + 1
            boardday = odd(105, 165); board = boardday * days; supportday = odd(22, 48)
            support = supportday * days; ownday = 2300; own = ownday * days; insurer = francs(48, 96) * days
            rest = odd(14, 62) * days; care = own + insurer + rest; extras = odd(18, 190)
            total = board + support + own + extras; cost = total + insurer + rest
            note medicalCost one gross=own provider:issuer date@dated
            accept medicalCost one gross=own+support; accept medicalCost one gross=total)"},
        {"optician", R"(
            by arztrechnung Sehwerk Brückenkopf|Brillen Kohler am Fluss // Optique du Quai|Lunetterie des Ponts Sàrl
            use bill
            list items of Fassung «Nora»|Gleitsichtglas rechts|Gleitsichtglas links|Sehtest und Anpassung // Monture «Nora»|Verre progressif droit|Verre progressif gauche|Examen de vue et adaptation
                text code {#4}; part = odd(60, 480)
            end
            sum = part; discount = part(sum, 100); insurer = francs(90, 180, 10); full = sum - discount
            own = full - insurer; vat = full * 81 / 1081; total = own; use noteCost
            accept medicalCost one gross=full reimbursed=insurer provider:issuer date@dated)"},
        // Hours and material of a renovation, with the tax of its year.
        {"works", R"(
            by liegenschaft Schreinerei Gantenbein GmbH|Malergeschäft Farbton Altstätten|Spenglerei Dachfest AG // Menuiserie Bovay Sàrl|Peinture Ciel Bleu SA|Ferblanterie du Mont SA // Falegnameria Rezzonico Sagl|Pittura Arcobaleno SA|Lattoneria Brè SA
            also anderes; dated someday(); text number {#2}-{#4}; text object {street}
            count wage = francs(78, 138, 2); count mills = if(year < 2024, 77, 81)
            text percent 8.1; if year < 2024 : text percent 7.7
            list hours int(2, 5)
                count hours = int(2, 22); date on = dated - 27 + 3 * i; rate = wage; part = rate * hours
                text what Vorarbeiter|Monteur|Gelernter // Contremaître|Ouvrier qualifié // Caposquadra|Operaio
            end
            list goods int(1, 3)
                text what Kleinmaterial|Fensterdichtungen|Grundierung und Lack|Kupferblech|Entsorgung // Petit matériel|Joints|Peinture|Tôle de cuivre // Materiale minuto|Guarnizioni|Vernice|Trasferta
                part = odd(18, 940)
            end
            labour = hours.part; goods = goods.part; sum = labour + goods; net = sum)"},
        {"taxed", R"(
            vat = five(net * mills / 1000 + 2); total = net + vat
            note realEstate - actualMaintenanceCosts=total)"},
        {"workshop", "use works; use taxed"},
        {"workshopPaid", R"(
            use works; discount = five(sum * 3 / 100); net = sum - discount; use taxed
            advance = to(total / 2, 10000) + 5000; rest = total - advance
            accept realEstate - actualMaintenanceCosts=rest)"},
        {"quote", R"(
            by anderes @dentist; also arztrechnung
            list items of Vorbehandlung|Kronen und Brücken|Zahntechnik|Nachkontrollen : part = odd(120, 1900)
            total = part; low = five(total * 85 / 100); high = five(total * 115 / 100))"},
    };
}

} // namespace corpus
