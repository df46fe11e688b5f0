#include "tests/documents/corpus/layouts/facts/Tale.h"

// Valuations of land and buildings, their managers and what is paid for them.

namespace corpus {

std::vector<Tale> propertyTales() {
    return {
        {"valuer",
         "Gemeinde Amden, Grundbuchamt|Kantonale Schätzungskommission Kreis Nord|"
         "Schätzungsamt Region Werdenberg|Fachstelle Grundstückbewertung Kreis Süd|"
         "Stadt Flawil-West, Grundbuch|Schätzungskreis Seeufer //"
         "Office d'estimation du Vallon|Commune de Champ-Roseau|Service des estimations "
         "foncières // Ufficio stima Val Fontana|Comune di Pratocanneto|Servizio valori fondiari"},
        {"manager",
         "Hausverwaltung Bootssteg AG|Anker Immobilien Treuhand|Bewirtschaftung Lindenhof "
         "GmbH // Régie du Ponton SA|Gérance Ancre Sàrl|Gestion Tilleul SA //"
         "Amministrazioni Pontile SA|Fiduciaria Ancora Sagl|Gestioni Tiglio SA"},
        {"place", "Ebnat-Kappel|Kirchberg|Mels|Diepoldsau|Nesslau|Uzwil|Sargans|Balgach|Schmerikon|"
                  "Waldkirch|Goldach|Mörschwil|Steinach|Degersheim|Rebstein|Jona //"
                  "Vex|Évolène|Corsier|Bussigny // Melano|Brissago|Cadro|Gordola"},
        {"located", R"(
            text place @place; count parcel = int(101, 4870); count area = int(290, 1500)
            charge = francs(150, 720, 10); date visited = someday())"},
        {"noteLand", R"(
            note realEstate - taxValue=value imputedRentalValue=rent municipality:place parcelNumber:parcel)"},
        {"valuation", R"(
            by liegenschaft @valuer; use located; value = francs(380000, 1900000, 1000)
            rent = to(value * int(24, 38) / 1000, 12000); month = rent / 12; new = to(value * 96 / 100, 100000)
            now = to(value * 71 / 100, 100000); land = to(value * 38 / 100, 100000); house = value - land
            real = to(value * 109 / 100, 100000); yield = to(value * 86 / 100, 100000)
            cover = to(value * 93 / 100, 100000); old = to(value * 79 / 100, 100000)
            oldrent = to(rent * 88 / 100, 6000); oldnew = to(value * 81 / 100, 100000)
            oldnow = to(value * 63 / 100, 100000); oldland = to(value * 27 / 100, 100000)
            oldreal = to(value * 90 / 100, 100000); oldyield = to(value * 72 / 100, 100000)
            reduced = rent * 7 / 10; reduction = rent * 3 / 10; before = rent - 120000
            market = value + francs(50000, 300000, 5000); text building Vers.-Nr. {#4}
            garage = 4500000; main = value - garage; garagerent = 120000; mainrent = rent - garagerent
            count built = int(1925, 2018); use noteLand)"},
        {"valuedBuildings", R"(
            by liegenschaft @valuer; use located
            list buildings of Wohnhaus|Garage|Schopf
                skip if(i = 3, chance(50), 0); count number = int(110, 4890); count built = int(1931, 2016)
                count volume = if(i = 1, int(520, 1400), int(60, 210))
                new = if(i = 1, francs(380000, 990000, 1000), francs(12000, 58000, 1000))
                now = to(new * int(60, 95) / 100, 100000)
            end
            land = francs(90000, 460000, 1000); real = now + land; rent = francs(14400, 38400, 60)
            month = rent / 12; yield = to(rent * 20, 100000); value = to((2 * real + yield) / 3, 100000)
            old = to(value * 83 / 100, 100000); oldrent = to(rent * 87 / 100, 6000); use noteLand)"},
        {"eachParcel", R"(
            text what Einfamilienhaus, Garten; if i = 2 : text what Autoabstellplatz
            if i = 3 : text what Wiese, Acker
            count parcel = 500 * i + int(10, 490)
            count area = if(i = 1, int(320, 1300), if(i = 2, int(13, 34), int(600, 9000)))
            value = if(i = 1, francs(420000, 1500000, 1000), if(i = 2, francs(15000, 74000, 500), francs(2000, 31000, 100)))
            rent = if(i = 1, francs(15000, 37800, 60), if(i = 2, francs(900, 2100, 60), 0))
            new = to(value * 4 / 5, 50000); land = to(value * 3 / 10, 50000))"},
        {"parcels", R"(
            by liegenschaft @valuer; use located; list parcels 3 : use eachParcel; use noteLand)"},
        {"parcelsElsewhere", R"(
            by liegenschaft @valuer; use located
            list parcels 3 : use eachParcel; text place {place}; if i = 3 : text place @place; use noteLand)"},
        {"unit", R"(
            by liegenschaft @valuer; use located; text parcel S{#5}; text ground {#4}; count share = int(38, 212)
            value = francs(290000, 940000, 1000); rent = francs(11400, 31200, 60); month = rent / 12
            whole = to(value * 1000 / share, 100000); new = to(value * 1100 / share, 100000)
            text share {share}/1000; reserve = odd(1500, 9800); text rooms 3½|4½|5½|2½; use noteLand)"},
        {"principalityLand", R"(
            by liegenschaft Gemeindesteuerkasse Eschnerberg|Amt für Liegenschaftsschätzung Unterland; principality
            use located; text place Mauren|Triesen|Balzers|Planken|Ruggell; ground = francs(18000, 160000, 500)
            house = francs(90000, 470000, 500); value = ground + house; market = to(value * 3, 100000)
            cover = francs(480000, 1300000, 1000); yield = five(value * 4 / 100); rent = 0; use noteLand)"},
        {"upkeepBills", R"(
            by liegenschaft @manager; use located
            list bills of Fassade gestrichen|Boiler ersetzt|Küche neu, grösser|Sitzplatz erstellt|Dach repariert
                text firm Malerei Pinselstrich|Sanitär Tropf GmbH|Schreinerei Hobel AG|Gartenbau Farn
                date on = on(1 + 2 * i, int(1, 28)); bill = odd(400, 16000)
                kept = if(i = 3, five(bill * 6 / 10), if(i = 4, 0, bill)); better = bill - kept
            end
            grant = francs(500, 3000, 100); note realEstate - actualMaintenanceCosts=kept)"},
        {"condominium", R"(
            by liegenschaft @manager; count share = int(60, 190); text quota {share}/1000; text unit {#2}
            text street Seestrasse 4|Uferweg 17 // Chemin du Port 9
            list running of Heizung und Warmwasser|Strom, Wasser, Kehricht|Hauswartung und Reinigung // Chauffage et eau chaude|Électricité, eau, ordures|Conciergerie et nettoyage
                whole = odd(4000, 24000); part = five(whole * share / 1000)
            end
            list upkeep of Reparaturen und Unterhalt|Gebäudeversicherungen|Verwaltungshonorar|Einlage Erneuerungsfonds // Réparations et entretien|Assurances du bâtiment|Honoraires d'administration|Versement au fonds de rénovation
                whole = odd(2500, 24000); part = five(whole * share / 1000)
            end
            amount = upkeep.part; fund = odd(60000, 240000); share = five(fund * share / 1000)
            earned = five(share / 400); advance = to(part, 10000); open = part - advance
            note realEstate - actualMaintenanceCosts=amount
            accept security - taxValue=share incomeWithoutWithholding=earned)"},
        {"rents", R"(
            by liegenschaft @manager; text street Hafengasse 12|Mühlebachstrasse 31|Im Ried 5
            list tenants of Familie Hug|B. Okafor|leer seit 1.7.|Praxis Wyss
                text who {what}; text flat Wohnung {i}; count months = if(i = 3, 6, 12)
                net = francs(780, 2300, 10) * months; side = francs(90, 260, 10) * months; all = net + side
            end
            list costs of Reparaturen|Serviceverträge|Gebäudeversicherung|Verwaltungshonorar 4 % : part = odd(350, 5200)
            rent = net; amount = part; heating = five(side * 93 / 100); payout = all - amount - heating
            note realEstate - rentalIncome=rent actualMaintenanceCosts=amount)"},
        {"rentMonths", R"(
            by liegenschaft @manager; count each = francs(1100, 2900, 10); count costs = francs(120, 320, 10)
            text street Hafengasse 12 // Rue des Pêcheurs 8|Quai du Midi 3 // Via al Lago 14|Contrada dei Pescatori 2
            list months 12 : month month = i; net = each; side = costs; cost = if(i = 5, odd(300, 2500), if(chance(35), odd(60, 1900), 0))
            payout = net + side - cost; deposit = 3 * each
            note realEstate - rentalIncome=net actualMaintenanceCosts=cost)"},
        {"coverBy", R"(
            by anderes Gebäudeversicherung Ostland|Brandkasse der Seegemeinden|Assekuranz Uferland AG
            also versicherung,liegenschaft; use located; date due = on(3, 31))"},
        {"buildingCover", R"(
            use coverBy; new = francs(320000, 1400000, 1000); now = new * 8 / 10; premium = five(new * 32 / 100000)
            fire = five(new * 11 / 100000); stamp = odd(8, 40); total = premium + fire + stamp
            before = to(new * 96 / 100, 100000); count house = int(110, 4890); count volume = int(480, 1600))"},
        // What is paid for a building may count as its upkeep, as the household decides.
        {"coverOfBuildings", R"(
            use coverBy
            list buildings of Wohnhaus|Garage|Gartenhaus
                text number {#4}; new = if(i = 1, francs(420000, 1300000, 1000), francs(9000, 64000, 500))
                premium = five(new * 28 / 100000); guard = five(new * 9 / 100000); sum = premium + guard
            end
            retention = 50000; accept realEstate - actualMaintenanceCosts=sum)"},
        {"landTax", R"(
            by anderes Gemeinde Uferswil, Steueramt|Stadtkasse Hafenegg|Steuerbezug Seegemeinden
            also liegenschaft; use located; value = francs(420000, 1600000, 1000); count mills = int(3, 8)
            text rate 0,{mills} ‰; tax = five(value * mills / 10000); late = odd(1, 12); total = tax + late
            date due = on(9, 30)
            accept realEstate - actualMaintenanceCosts=tax taxValue=value municipality:place parcelNumber:parcel)"},
    };
}

} // namespace corpus
