#include "tests/documents/corpus/layouts/facts/Tale.h"

// Charities, parties and parishes.

namespace corpus {

std::vector<Tale> giftTales() {
    return {
        {"charity", "Stiftung Lichtblick Kinder|Verein Bergwald Zukunft|Tierheim Pfotenglück|"
                    "Hilfsbund Brot und Bildung|Naturfonds Bergwiese|Berghilfe Sämtis //"
                    "Fondation Main Ouverte|Association Petits Pas|Refuge des Hérissons|"
                    "Secours Alpin Solidaire // Aiuto Montagna Ticino Alto|Fondazione Filo di Vita|"
                    "Associazione Bimbi nel Sole"},
        {"noteGift", "note donation one amount=amount recipient:issuer"},
        {"gift", R"(
            by spende @charity; amount = francs(20, 5000, 5); goal = francs(60000, 900000, 10000)
            well = 3500; date when = someday(); note donation one amount=amount recipient:issuer date@when)"},
        {"gifts", R"(
            by spende @charity; before = francs(100, 900, 10); count times = int(2, 8)
            list gifts times
                date on = on(12 * i / times, int(1, 28)); part = francs(15, 480, 5)
                text why Einzelspende|Patenschaft|Lastschrift|Kollekte|Trauerspende
            end
            total = part; amount = total; use noteGift)"},
        {"giftsInTurn", R"(
            fee = francs(30, 120, 5); date feeon = on(1, int(4, 28)); project = francs(40000, 300000, 5000)
            list gifts times : gift = francs(25, 1200, 5); date on = on(4 * i - 1, int(1, 24))
            amount = gift; all = amount + fee; use noteGift)"},
        {"twoGifts", "by spende @charity; count times = 2; use giftsInTurn"},
        {"threeGifts", "by spende @charity; count times = 3; use giftsInTurn"},
        {"membership", R"(
            by spende @charity; fee = francs(30, 120, 10); amount = francs(125, 1500, 5)
            both = fee + amount; use noteGift)"},
        {"patron", R"(
            by spende @charity; amount = francs(120, 2400, 20); lottery = francs(10, 90, 5)
            calendar = francs(28, 46, 2); all = amount + lottery + calendar; use noteGift)"},
        {"party", R"(
            by spende Bürgerliche Liste Obertal|Grüne Mitte Rheintal|Freie Wähler Toggenberg
            member = francs(60, 250, 10); mandate = francs(200, 2400, 50); gift = francs(50, 900, 10)
            amount = member + mandate + gift; limit = 2000000; use noteGift)"},
        {"receipts", R"(
            by spende @charity
            list receipts 3
                text number {#5}; text why Strassensammlung|Haussammlung|Spende am Schalter|Kondolenz
                date on = on(3 * i + 1, int(1, 28)); part = francs(20, 250, 5) + 1000 * i
                note donation one amount=part recipient:issuer date@on
            end
            accept donation - amount=part)"},
        {"goods", R"(
            by spende @charity; money = francs(150, 3000, 10); goods = francs(100, 1800, 50); hour = 3000
            count hours = int(6, 60); amount = money + goods; work = hours * hour
            text thing 12 Matratzen|ein Lastenvelo|Schulmöbel|drei Notebooks|Winterkleider
            date on = on(3, int(1, 28)); date given = on(10, int(1, 28)); use noteGift)"},
        {"parish", R"(
            by spende Kirchgemeinde Oberhelfen|Pfarrei Sankt Luzi|Evangelische Gemeinde Seebleiche
            tax = odd(280, 2100); gift = francs(80, 900, 10); mission = francs(50, 600, 10)
            amount = gift + mission; all = amount + tax; date on1 = on(3, int(1, 28))
            date on2 = on(7, int(1, 28)); date on3 = on(11, int(1, 28)); use noteGift)"},
        {"churchTax", R"(
            by anderes Kirchgemeinde Oberhelfen, Steuerbezug|Kirchenverwaltung Sankt Luzi
            simple = odd(1400, 8200); count per = int(19, 28); text rate {per} %; tax = five(simple * per / 100)
            equal = five(simple * 3 / 100); total = tax + equal; paid = to(total / 2, 500)
            open = total - paid; date due = on(12, 31) + 75)"},
        {"sponsor", R"(
            by spende @charity; month = francs(25, 140, 5); extra = francs(20, 200, 10); count when = int(3, 12)
            list months 12 : m = month + if(i = when, extra, 0)
            amount = m; text godchild Amani, Kenia|Lucía, Bolivien|Thuy, Vietnam; use noteGift)"},
    };
}

} // namespace corpus
