#include "tests/documents/corpus/layouts/facts/Tale.h"

// Pensions, and what funds write that is no income.

namespace corpus {

std::vector<Tale> pensionTales() {
    return {
        {"fund",
         "Vorsorgewerk Textil und Papier|Pensionskasse der Gemeinden am Ricken|"
         "Sammeleinrichtung Kurfirst BVG|Pensionskasse Gallusring|Pensionskasse Flusswerke|"
         "Sammelstiftung Zukunft Berg // Fonds de prévoyance Beauregard|"
         "Caisse de retraite du Haut-Pays|Caisse de pensions du Vieux-Pont|"
         "Fondation LPP Les Tilleuls|Fondation collective Avenir Alpes //"
         "Cassa pensioni Bellavista|Fondo di previdenza Sorgente|Cassa pensioni Ponte Vecchio|"
         "Fondazione LPP Le Betulle|Fondazione collettiva Futuro"},
        {"pensionOffice", "Ausgleichskasse Gewerbe am See|Verbandsausgleichskasse Holz und Bau|"
                          "Sozialversicherungsstelle Talkreis|Ausgleichskasse Untere Au //"
                          "Caisse AVS de la Plaine|Office des assurances sociales Venoge //"
                          "Cassa AVS del Delta|Istituto sociale Tresa"},
        {"byFund", "by pensionskasse @fund; also lohnausweis; retire 65"},
        {"byOffice", "by pensionskasse @pensionOffice; also lohnausweis,anderes; retire 66"},
        {"notePension", "note pension who birth amount=amount"},
        {"pension", R"(
            use byFund; month = odd(450, 5200); amount = 12 * month; coming = month + 2500
            capital = odd(120000, 700000); use notePension)"},
        {"pensionParts", R"(
            use byFund
            list parts of Altersrente|Teuerungszulage|Überbrückungsrente : text name {what}; month = odd(60, 2400); part = 12 * month
            amount = part; use notePension)"},
        {"pensionOfChildren", R"(
            use byFund; count month = odd(1100, 3600)
            list parts of Invalidenrente|Kinderrente {firstchild}|Kinderrente {secondchild} // Rente d'invalidité|Rente d'enfant {firstchild}|Rente d'enfant {secondchild}
                text name {what}; month = if(i = 1, month, part(month, 200)); part = 12 * month
            end
            amount = part; assets = odd(90000, 420000); use notePension)"},
        {"risenPension", R"(
            use byFund; count count1 = int(2, 10); count count2 = 12 - count1; date change = on(count1 + 1, 1)
            first = odd(700, 4200); rise = odd(12, 140); second = first + rise
            sum1 = first * count1; sum2 = second * count2; amount = sum1 + sum2; use notePension)"},
        {"lumpAndPension", R"(
            use byFund; count months = int(2, 11); date since = on(13 - months, 1)
            month = odd(600, 3400); year12 = 12 * month; amount = month * months
            capital = odd(60000, 480000); use notePension)"},
        {"pensionOfBoth", R"(
            use byFund
            list people people one two
                count months = if(chance(60), 12, int(3, 11)); date since = on(13 - months, 1)
                text what Altersrente|Invalidenrente|Überbrückungsrente
                month = odd(380, 3900); part = months * month; spouse = part(month, 600)
                amount = part; use notePension
            end
            both = part)"},
        {"pensionCalendar", R"(
            use byFund; count each = odd(900, 3600); count kids = part(each, 200)
            list months 12 : date on = on(i, 25); part = each + kids
            own = 12 * each; kid = 12 * kids; amount = part; assets = odd(110000, 520000)
            use notePension)"},
        {"withheldPension", R"(
            use byFund; month = odd(1200, 4600); amount = 12 * month; premium = 12 * odd(260, 480)
            union = 12 * francs(4, 18); paid = amount - premium - union; use notePension)"},
        {"pensionInEuros", R"(
            by pensionskasse Versorgungswerk Allgäu und Bodensee|Pensionsinstitut Oberschwaben
            also lohnausweis,anderes; retire 66; first = odd(320, 1900) + 3
            second = first * 1039 / 1000; euros = 6 * (first + second); fixed4 rate = int(9300, 9800)
            francs = (euros * rate + 5000) / 10000; amount = francs; date july = on(7, 1)
            subsidy = odd(15, 90); use notePension)"},
        {"pensionQuarters", R"(
            by pensionskasse Pensionsanstalt Vorarlberger Land|Pensionsversicherung Bregenzerach
            also lohnausweis,anderes; retire 66; month = odd(280, 1700); text number {#4} {#6}
            list quarters 4
                count count = if(i = 2, 4, if(i = 4, 4, 3)); fixed4 rate = int(9250, 9890)
                text quarter {i}. Quartal; euros = month * count; francs = (euros * rate + 5000) / 10000
            end
            amount = francs; use notePension)"},
        {"annuity", R"(
            by versicherung @lifeInsurer; also pensionskasse; retire 67
            year if(year > 2024, 2024, year)
            quarter = odd(700, 4200); guaranteed = 4 * quarter; bonus = 4 * odd(20, 260)
            amount = guaranteed + bonus; taxable = amount * 40 / 100; capital = francs(80000, 400000, 5000)
            text number LR {#6}; text p 40; text q 40.0; text r 40.00
            note pension one birth amount=amount taxablePercent:p+q+r)"},
        {"oldAge", R"(
            use byOffice
            list people people one two : month = francs(1260, 1838); part = 12 * month; note personIncome who ahvPension=part
            both = part; help = francs(245, 613); helpyear = 12 * help; coming = month1 + 4500)"},
        {"supplement", R"(
            use byOffice; month = francs(1260, 2450); pension = 12 * month; el = francs(180, 1450)
            elyear = 12 * el; both = pension + elyear; costs = odd(40, 2600)
            note personIncome one ahvPension=pension)"},
        {"disability", R"(
            by pensionskasse @pensionOffice; also lohnausweis,anderes
            count months = int(4, 12); date since = on(13 - months, 1); own = francs(980, 2300)
            kid = to(own * 4 / 10, 100); ownyear = own * months; kidyear = kid * months
            amount = ownyear + kidyear; arrears = francs(300, 900)
            note personIncome one ahvPension=amount)"},
        {"arrears", R"(
            by pensionskasse @pensionOffice; also lohnausweis,anderes
            before = francs(1100, 2300); now = before + francs(10, 60); count earlier = int(4, 11)
            arrears = before * earlier; offset = to(arrears * 4 / 10, 100); current = 12 * now
            total = arrears + current; paid = total - offset; date from = on(13 - earlier, 1, year - 1)
            date until = on(12, 31, year - 1); date decided = on(3, int(2, 27))
            note personIncome one ahvPension=total)"},
        {"fundStatement", R"(
            by anderes @fund; also pensionskasse
            salary = francs(48000, 132000, 100); insured = salary - francs(25700, 26460, 10)
            own = part(insured, 75); employer = part(insured, 95); assets = odd(40000, 520000)
            exit = assets + odd(0, 900); at58 = part(assets, 1400); at65 = part(assets, 1900)
            pension58 = part(assets, 66); pension65 = part(assets, 102); disability = part(salary, 400)
            spouse = part(salary, 240); orphan = part(salary, 80); possible = odd(5000, 140000)
            home = part(assets, 980))"},
        {"capitalPaid", R"(
            by anderes @fund; also pensionskasse; retire 64; date when = someday(); dated when + 2
            capital = odd(60000, 780000); interest = odd(40, 900); paid = capital + interest)"},
        {"pensionRise", R"(
            by anderes @fund; also pensionskasse; retire 66; dated on(12, int(2, 27))
            before = odd(700, 3900); month = before + odd(8, 90); text account {iban})"},
        {"supplementDecision", R"(
            by anderes EL-Stelle Flussland|Sozialversicherungsamt Flussland, Ergänzungsleistungen
            also pensionskasse; retire 67; dated on(12, int(2, 27), year - 1)
            need = francs(20100, 20670, 10); rent = francs(11000, 17500, 60); premium = francs(5000, 6500, 12)
            costs = need + rent + premium; avs = 12 * francs(1260, 1700); fund = 12 * francs(120, 900)
            interest = francs(20, 400); income = avs + fund + interest; gap = costs - income
            month = to(gap / 12, 100) + 100)"},
    };
}

} // namespace corpus
