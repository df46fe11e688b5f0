#include "tests/documents/corpus/layouts/TownFacts.h"

// Facts of valuation offices, of tax offices and of 3a providers.

namespace corpus {
namespace {

void valuer(Draft& draft) {
    sentBy(draft, "liegenschaft",
           {"Fachstelle Grundstückbewertung Kreis Süd", "Gemeinderatskanzlei Oberhelfen",
            "Amt für Schätzungen, Zweigstelle Toggenburg", "Stadt Flawil-West, Grundbuch"});
}

QString somePlace(Draft& draft) {
    return draft.one("Nesslau|Uzwil|Sargans|Balgach|Schmerikon|Waldkirch|Goldach|Wattwil");
}

TruthRecord& noteLand(Draft& draft, Cents value, Cents rent, const QString& place,
                      const QString& parcel) {
    return draft.record("realEstate")
        .amount("taxValue", value)
        .amount("imputedRentalValue", rent)
        .text("municipality", place)
        .text("parcelNumber", parcel);
}

/// Nothing of it belongs in the return; it may be taken for one of these kinds.
void nothingToEnter(Draft& draft, const QStringList& alsoKinds, const std::vector<QString>& names) {
    sentBy(draft, "anderes", names);
    draft.truth.alsoKinds = alsoKinds;
}

void pillarProvider(Draft& draft) {
    sentBy(draft, "saeule3a",
           {draft.t("Vorsorgestiftung Pizol 3a", "Fondation de prévoyance Reuchenette",
                    "Fondazione di previdenza Generoso"),
            draft.t("Anlagestiftung Sparblatt", "Fondation Épi 3", "Fondazione Spiga 3"),
            draft.t("App-Vorsorge Nordlicht", "Prévoyance Boréale", "Previdenza Boreale")});
}

void notePillar(Draft& draft, const Someone& person, Cents paid) {
    draft.record("personDeductions", person).amount("pillar3a", paid);
}

/// What may be paid into 3a in the year, with and without a pension fund.
void withLimits(const Draft& draft, Facts& facts) {
    const Cents limit = draft.year < 2023 ? 688300 : draft.year < 2025 ? 705600 : 725800;
    facts.amounts["limit"] = limit;
    facts.amounts["biglimit"] = 5 * limit;
}

QString percent(Cents part, Cents whole) {
    return QString::number(100.0 * static_cast<double>(part) / static_cast<double>(whole), 'f', 2)
           + "%";
}

void line(Facts& facts, const QString& number, const QString& what, Cents state, Cents federal) {
    Facts one;
    one.texts = {{"no", number}, {"what", what}};
    one.amounts = {{"state", state}, {"federal", federal}};
    facts.lists["lines"].push_back(one);
}

} // namespace

Facts valuationFacts(Draft& draft) {
    valuer(draft);
    Facts facts;
    int house = 0;
    for (const char* what : {"Wohnhaus", "Garage", "Schopf"}) {
        if (house == 2 && draft.random.chance(50)) {
            break;
        }
        Facts one;
        one.texts = {{"what", what},
                     {"number", QString::number(draft.random.between(110, 4890))},
                     {"built", QString::number(draft.random.between(1931, 2016))},
                     {"volume", QString::number(house == 0 ? draft.random.between(520, 1400)
                                                           : draft.random.between(60, 210))}};
        const Cents fresh =
            house == 0 ? draft.francs(380000, 990000, 1000) : draft.francs(12000, 58000, 1000);
        one.amounts = {{"new", fresh},
                       {"now", fresh * draft.random.between(60, 95) / 100 / 100000 * 100000}};
        for (const char* name : {"new", "now"}) {
            facts.amounts[name] += one.amounts[name];
        }
        facts.lists["buildings"].push_back(one);
        ++house;
    }
    const Cents land = draft.francs(90000, 460000, 1000);
    const Cents real = facts.amounts["now"] + land;
    const Cents rent = draft.francs(14400, 38400, 60);
    const Cents yield = rent * 100 / 5 / 100000 * 100000;
    facts.amounts["land"] = land;
    facts.amounts["real"] = real;
    facts.amounts["rent"] = rent;
    facts.amounts["month"] = rent / 12;
    facts.amounts["yield"] = yield;
    facts.amounts["value"] = (2 * real + yield) / 3 / 100000 * 100000;
    facts.amounts["old"] = facts.amounts["value"] * 83 / 100 / 100000 * 100000;
    facts.amounts["oldrent"] = rent * 87 / 100 / 6000 * 6000;
    facts.amounts["charge"] = draft.francs(180, 720, 10);
    facts.texts = {{"place", somePlace(draft)},
                   {"parcel", QString::number(draft.random.between(101, 4870))},
                   {"area", QString::number(draft.random.between(310, 1380))}};
    facts.dates["visited"] = draft.day();
    noteLand(draft, facts.amounts["value"], rent, facts.texts["place"], facts.texts["parcel"]);
    return facts;
}

Facts parcelsFacts(Draft& draft) {
    valuer(draft);
    Facts facts;
    const QString place = somePlace(draft);
    facts.texts["place"] = place;
    const int first = draft.random.between(120, 2600);
    int count = 0;
    for (const char* what : {"Einfamilienhaus, Garten", "Autoabstellplatz", "Wiese, Acker"}) {
        Facts one;
        const Cents value = count == 0   ? draft.francs(420000, 1300000, 1000)
                            : count == 1 ? draft.francs(15000, 42000, 500)
                                         : draft.francs(2000, 31000, 100);
        const Cents rent = count == 0   ? draft.francs(15000, 36000, 60)
                           : count == 1 ? draft.francs(900, 1800, 60)
                                        : 0;
        const int area = count == 0   ? draft.random.between(320, 1300)
                         : count == 1 ? draft.random.between(13, 34)
                                      : draft.random.between(600, 9000);
        const QString parcel = QString::number(first + 310 * count + draft.random.between(0, 300));
        one.texts = {{"what", what}, {"parcel", parcel}, {"area", QString::number(area)}};
        one.amounts = {{"value", value}, {"rent", rent}};
        for (const char* name : {"value", "rent"}) {
            facts.amounts[name] += one.amounts[name];
        }
        facts.lists["parcels"].push_back(one);
        noteLand(draft, value, rent, place, parcel);
        ++count;
    }
    facts.dates["visited"] = draft.day();
    facts.amounts["charge"] = draft.francs(180, 720, 10);
    return facts;
}

Facts unitFacts(Draft& draft) {
    valuer(draft);
    Facts facts;
    const int share = draft.random.between(38, 212);
    const Cents value = draft.francs(290000, 940000, 1000);
    const Cents rent = draft.francs(11400, 31200, 60);
    facts.amounts = {{"value", value},
                     {"rent", rent},
                     {"month", rent / 12},
                     {"whole", value * 1000 / share / 100000 * 100000},
                     {"new", value * 1100 / share / 100000 * 100000},
                     {"reserve", draft.odd(1500, 9800)}};
    facts.texts = {{"place", somePlace(draft)},
                   {"parcel", "S" + draft.random.digits(5)},
                   {"ground", draft.random.digits(4)},
                   {"share", QString("%1/1000").arg(share)},
                   {"rooms", draft.one("3½|4½|5½|2½")}};
    facts.dates["visited"] = draft.day();
    noteLand(draft, value, rent, facts.texts["place"], facts.texts["parcel"]);
    return facts;
}

Facts principalityLandFacts(Draft& draft) {
    draft.family = Family::random(draft.random, draft.language, true);
    sentBy(draft, "liegenschaft",
           {"Gemeindesteuerkasse Eschnerberg", "Amt für Liegenschaftsschätzung Unterland"});
    draft.issuer.place = draft.one("9494 Schaan|9490 Vaduz|9492 Eschen");
    draft.issuer.phone = "+423 " + draft.random.digits(3) + " " + draft.random.digits(4);
    Facts facts;
    const Cents ground = draft.francs(18000, 160000, 500);
    const Cents house = draft.francs(90000, 470000, 500);
    facts.amounts = {{"ground", ground},
                     {"house", house},
                     {"value", ground + house},
                     {"market", (ground + house) * 3 / 100000 * 100000},
                     {"cover", draft.francs(480000, 1300000, 1000)},
                     {"yield", (ground + house) * 4 / 100 / 5 * 5}};
    facts.texts = {{"place", draft.one("Mauren|Triesen|Balzers|Planken|Ruggell")},
                   {"parcel", QString::number(draft.random.between(12, 3600))},
                   {"area", QString::number(draft.random.between(410, 1600))}};
    noteLand(draft, facts.amounts["value"], 0, facts.texts["place"], facts.texts["parcel"]);
    return facts;
}

Facts buildingCoverFacts(Draft& draft) {
    nothingToEnter(draft, {"versicherung", "liegenschaft"},
                   {"Gebäudeversicherung Ostland", "Brandassekuranz Rheintal",
                    "Sachversicherung Hausschutz AG"});
    Facts facts;
    const Cents fresh = draft.francs(320000, 1400000, 1000);
    facts.amounts = {{"new", fresh},
                     {"now", fresh * 8 / 10},
                     {"premium", fresh * 32 / 100000 / 5 * 5},
                     {"fire", fresh * 11 / 100000 / 5 * 5},
                     {"stamp", draft.odd(8, 40)},
                     {"before", fresh * 96 / 100 / 100000 * 100000}};
    facts.amounts["total"] =
        facts.amounts["premium"] + facts.amounts["fire"] + facts.amounts["stamp"];
    facts.texts = {{"place", somePlace(draft)},
                   {"house", QString::number(draft.random.between(110, 4890))},
                   {"parcel", QString::number(draft.random.between(101, 4870))},
                   {"volume", QString::number(draft.random.between(480, 1600))}};
    facts.dates["due"] = QDate(draft.year, 3, 31);
    return facts;
}

Facts assessmentFacts(Draft& draft) {
    const bool principality = draft.random.chance(30);
    nothingToEnter(draft, {},
                   principality
                       ? std::vector<QString>{"Steuerbehörde, Abteilung natürliche Personen"}
                       : std::vector<QString>{"Steueramt der Gemeinde Oberhelfen",
                                              "Veranlagungsbehörde Region See",
                                              "Städtisches Steueramt, Veranlagung"});
    Facts facts;
    const Cents salary = draft.francs(52000, 148000);
    const Cents second = draft.francs(8000, 61000);
    const Cents yield = draft.francs(12, 3900);
    const Cents rent = draft.francs(9000, 24000);
    const Cents pillar = draft.francs(1000, 7056);
    const Cents insurance = draft.francs(3200, 7600, 100);
    const Cents care = draft.francs(900, 15000);
    const Cents health = draft.francs(200, 6900);
    const Cents gifts = draft.francs(100, 2400, 10);
    const Cents travel = draft.francs(700, 4400, 10);
    line(facts, "10", "Einkünfte aus unselbständiger Erwerbstätigkeit P1", salary, salary);
    line(facts, "11", "Einkünfte aus unselbständiger Erwerbstätigkeit P2", second, second);
    line(facts, "14", "Wertschriftenertrag", yield, yield);
    line(facts, "16", "Eigenmietwert, Ertrag Liegenschaften", rent, rent);
    line(facts, "20", "Berufskosten", travel, travel - 10000);
    line(facts, "23", "Beiträge Säule 3a", pillar, pillar);
    line(facts, "24", "Versicherungsprämien, Sparzinsen", insurance, insurance - 80000);
    line(facts, "27", "Kinderbetreuungskosten", care, care);
    line(facts, "31", "Krankheits- und Unfallkosten", health, 0);
    line(facts, "32", "Freiwillige Zuwendungen (Spenden)", gifts, gifts);
    const Cents income = salary + second + yield + rent;
    facts.amounts["state"] = income - travel - pillar - insurance - care - health - gifts;
    facts.amounts["federal"] =
        income - (travel - 10000) - pillar - (insurance - 80000) - care - gifts;
    facts.amounts["house"] = draft.francs(300000, 900000, 1000);
    facts.amounts["debts"] = draft.francs(100000, 280000, 1000);
    facts.amounts["wealth"] = facts.amounts["house"] - facts.amounts["debts"];
    facts.texts["register"] = draft.random.digits(3) + "." + draft.random.digits(3);
    return facts;
}

Facts taxBillFacts(Draft& draft) {
    nothingToEnter(draft, {},
                   {"Steuerverwaltung, Inkasso", "Finanzverwaltung Oberhelfen, Steuerbezug",
                    "Gemeindekasse Wartegg"});
    Facts facts;
    const Cents simple = draft.odd(1900, 9800);
    const int rate = draft.random.between(105, 144);
    const int church = draft.random.between(20, 27);
    facts.amounts = {{"simple", simple},
                     {"canton", simple * 105 / 100 / 5 * 5},
                     {"commune", simple * rate / 100 / 5 * 5},
                     {"church", simple * church / 100 / 5 * 5},
                     {"fireduty", draft.francs(0, 400, 20)},
                     {"land", draft.odd(80, 620)},
                     {"late", draft.odd(1, 60)},
                     {"bonus", draft.odd(1, 45)}};
    Cents& total = facts.amounts["total"];
    for (const char* name : {"canton", "commune", "church", "fireduty", "land"}) {
        total += facts.amounts[name];
    }
    facts.amounts["provisional"] = total * 9 / 10 / 5 * 5;
    facts.amounts["open"] =
        total - facts.amounts["provisional"] + facts.amounts["late"] - facts.amounts["bonus"];
    facts.amounts["third"] = facts.amounts["provisional"] / 3 / 5 * 5;
    facts.texts = {{"rate", QString::number(rate) + " %"},
                   {"churchrate", QString::number(church) + " %"},
                   {"register", draft.random.digits(3) + "." + draft.random.digits(3)}};
    facts.dates["due"] = draft.yearEnd().addDays(120);
    return facts;
}

Facts quoteFacts(Draft& draft) {
    nothingToEnter(draft, {"arztrechnung"},
                   {"Dr. med. dent. Ladina Good", "Zahnwerk Kreuzbleiche AG",
                    "Orthopädietechnik Schritt GmbH"});
    Facts facts;
    for (const char* what :
         {"Vorbehandlung", "Kronen und Brücken", "Zahntechnik", "Nachkontrollen"}) {
        Facts one;
        one.texts["what"] = what;
        one.amounts["part"] = draft.odd(120, 1900);
        facts.amounts["total"] += one.amounts["part"];
        facts.lists["items"].push_back(one);
    }
    facts.amounts["low"] = facts.amounts["total"] * 85 / 100 / 5 * 5;
    facts.amounts["high"] = facts.amounts["total"] * 115 / 100 / 5 * 5;
    return facts;
}

Facts fundPillarFacts(Draft& draft) {
    pillarProvider(draft);
    Facts facts;
    for (int i = draft.random.between(1, 5); i > 0; --i) {
        Facts one;
        one.dates["on"] = QDate(draft.year, 12 - 2 * i, draft.random.between(1, 28));
        one.amounts["part"] = draft.francs(200, 1370, 2);
        facts.amounts["paid"] += one.amounts["part"];
        facts.lists["payments"].push_back(one);
    }
    const char* const funds[] = {"Aktien Welt ex CH", "Obligationen CHF", "Aktien Schweiz SPI",
                                 "Immobilien Schweiz"};
    for (const char* name : funds) {
        Facts one;
        one.texts = {
            {"name", name},
            {"units", QString::number(draft.random.between(9, 420)) + "." + draft.random.digits(3)},
            {"isin", "CH00" + draft.random.digits(8)}};
        one.amounts = {{"worth", draft.odd(4000, 18000) + draft.random.between(0, 4)},
                       {"price", draft.odd(85, 260)}};
        facts.amounts["worth"] += one.amounts["worth"];
        facts.lists["funds"].push_back(one);
    }
    for (Facts& one : facts.lists["funds"]) {
        one.texts["weight"] = percent(one.amounts["worth"], facts.amounts["worth"]);
    }
    const Cents paid = facts.amounts["paid"];
    const Cents gain = facts.amounts["worth"] / 14;
    facts.amounts["fee"] = draft.odd(12, 190);
    facts.amounts["gain"] = gain;
    facts.amounts["moved"] = draft.odd(1500, 4000);
    facts.amounts["opening"] =
        facts.amounts["worth"] - paid - facts.amounts["moved"] - gain + facts.amounts["fee"];
    facts.amounts["gross"] = paid + facts.amounts["moved"];
    facts.amounts["cash"] = draft.odd(3, 320);
    facts.dates["movedon"] = draft.day();
    withLimits(draft, facts);
    notePillar(draft, draft.family.one, paid);
    return facts;
}

Facts severalPillarsFacts(Draft& draft) {
    pillarProvider(draft);
    Facts facts;
    withLimits(draft, facts);
    const int count = draft.random.between(2, 5);
    for (int i = 0; i < count; ++i) {
        Facts one;
        one.texts = {
            {"number",
             draft.random.digits(3) + "-" + draft.random.digits(6) + "-0" + QString::number(i + 1)},
            {"plan", draft.t("Konto|Strategie 40|Strategie 80|Wachstum|Zinskonto Plus",
                             "Compte|Stratégie 40|Croissance", "Conto|Strategia 40|Crescita")}};
        // Last year's pot often stays as it is.
        one.amounts = {{"paid", i == 1 ? 0 : draft.francs(250, 1700, 2)},
                       {"worth", draft.odd(2100, 38000)}};
        for (const char* name : {"paid", "worth"}) {
            facts.amounts[name] += one.amounts[name];
        }
        facts.lists["accounts"].push_back(one);
    }
    notePillar(draft, draft.family.one, facts.amounts["paid"]);
    return facts;
}

Facts insuredPillarFacts(Draft& draft) {
    sentBy(draft, "saeule3a",
           {draft.t("Lebensversicherung Rätikon AG", "Vie Chasseral SA", "Vita Tamaro SA"),
            draft.t("Vorsorge Morgenstern Leben", "Étoile du Matin Vie", "Stella Vita")});
    draft.truth.alsoKinds = QStringList{"versicherung"};
    Facts facts;
    const Cents month = draft.odd(80, 560);
    const Cents risk = month * 12 / 7 / 5 * 5;
    facts.amounts = {{"month", month},
                     {"paid", 12 * month},
                     {"risk", risk},
                     {"saving", 12 * month - risk},
                     {"surrender", draft.odd(800, 74000)},
                     {"death", draft.francs(60000, 300000, 5000)},
                     {"annuity", draft.francs(12000, 36000, 1200)},
                     {"bonus", draft.odd(12, 640)},
                     {"free", draft.odd(90, 800)}};
    withLimits(draft, facts);
    facts.amounts["bill"] = facts.amounts["paid"] + facts.amounts["free"];
    facts.texts["policy"] =
        draft.random.digits(2) + "." + draft.random.digits(3) + "." + draft.random.digits(3);
    notePillar(draft, draft.family.one, facts.amounts["paid"]);
    return facts;
}

Facts pillarPairFacts(Draft& draft) {
    pillarProvider(draft);
    Facts facts;
    facts.amounts = {{"paid", draft.francs(600, 7000, 4)},
                     {"paid2", draft.francs(400, 6800, 4)},
                     {"worth", draft.odd(6000, 90000)},
                     {"worth2", draft.odd(3000, 70000)}};
    withLimits(draft, facts);
    facts.amounts["both"] = facts.amounts["paid"] + facts.amounts["paid2"];
    notePillar(draft, draft.family.one, facts.amounts["paid"]);
    notePillar(draft, draft.family.two, facts.amounts["paid2"]);
    return facts;
}

} // namespace corpus
