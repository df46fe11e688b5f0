#include "tests/documents/corpus/layouts/LakeFacts.h"

// Facts of valuers, managers and insurers of buildings.

namespace corpus {
namespace {

void valuer(Draft& draft) {
    lakeSender(draft, "liegenschaft",
               {draft.t("Schätzungskreis Seeufer", "Office d'estimation du Vallon",
                        "Ufficio stima Val Fontana"),
                draft.t("Gemeinde Uferswil, Bauverwaltung", "Commune de Champ-Roseau",
                        "Comune di Pratocanneto"),
                draft.t("Fachstelle Liegenschaftswerte Ost", "Service des estimations foncières",
                        "Servizio valori fondiari")});
}

void manager(Draft& draft) {
    lakeSender(
        draft, "liegenschaft",
        {draft.t("Hausverwaltung Bootssteg AG", "Régie du Ponton SA", "Amministrazioni Pontile SA"),
         draft.t("Anker Immobilien Treuhand", "Gérance Ancre Sàrl", "Fiduciaria Ancora Sagl"),
         draft.t("Bewirtschaftung Lindenhof GmbH", "Gestion Tilleul SA", "Gestioni Tiglio SA")});
}

QString somePlace(Draft& draft) {
    return draft.t("Mörschwil|Steinach|Degersheim|Rebstein|Oberriet|Mosnang|Bronschhofen|Jona",
                   "Vex|Évolène|Corsier|Bussigny", "Melano|Brissago|Cadro|Gordola");
}

TruthRecord& noteLand(Draft& draft, Cents value, Cents rent, const Facts& facts) {
    return draft.record("realEstate")
        .amount("taxValue", value)
        .amount("imputedRentalValue", rent)
        .text("municipality", facts.texts.at("place"))
        .text("parcelNumber", facts.texts.at("parcel"));
}

void locate(Draft& draft, Facts& facts) {
    facts.texts["place"] = somePlace(draft);
    facts.texts["parcel"] = QString::number(draft.random.between(102, 3990));
    facts.texts["area"] = QString::number(draft.random.between(290, 1500));
}

Cents thousands(Cents cents) { return cents / 100000 * 100000; }

/// What is paid for a building may count as its upkeep, as the household decides.
void acceptUpkeep(Draft& draft, Cents cost, Cents value) {
    TruthRecord record;
    record.kind = "realEstate";
    record.year = draft.year;
    draft.truth.accepted.push_back(
        record.amount("actualMaintenanceCosts", cost).amount("taxValue", value));
}

} // namespace

Facts lakeValuesFacts(Draft& draft) {
    valuer(draft);
    Facts facts;
    locate(draft, facts);
    const Cents value = draft.francs(380000, 1900000, 1000);
    const Cents rent = value * draft.random.between(24, 38) / 1000 / 6000 * 6000;
    facts.amounts = {{"value", value},
                     {"rent", rent},
                     {"new", thousands(value * 96 / 100)},
                     {"now", thousands(value * 71 / 100)},
                     {"land", thousands(value * 38 / 100)},
                     {"real", thousands(value * 109 / 100)},
                     {"yield", thousands(value * 86 / 100)},
                     {"cover", thousands(value * 93 / 100)},
                     {"old", thousands(value * 79 / 100)},
                     {"oldrent", rent * 88 / 100 / 6000 * 6000},
                     {"oldnew", thousands(value * 81 / 100)},
                     {"oldnow", thousands(value * 63 / 100)},
                     {"oldland", thousands(value * 27 / 100)},
                     {"oldreal", thousands(value * 90 / 100)},
                     {"oldyield", thousands(value * 72 / 100)},
                     {"charge", draft.francs(200, 640, 20)}};
    noteLand(draft, value, rent, facts);
    return facts;
}

Facts lakeParcelFacts(Draft& draft) {
    valuer(draft);
    Facts facts;
    locate(draft, facts);
    int place = 0;
    for (const char* what : {"Wohnhaus mit Umschwung", "Tiefgaragenplatz", "Bootshaus"}) {
        Facts one;
        const bool house = place == 0;
        const Cents value =
            house ? draft.francs(510000, 1500000, 1000) : draft.francs(18000, 74000, 500);
        one.texts = {{"what", what},
                     {"place", place == 2 ? somePlace(draft) : facts.texts["place"]},
                     {"parcel", QString::number(500 * place + draft.random.between(110, 590))},
                     {"area", QString::number(house ? draft.random.between(400, 1300)
                                                    : draft.random.between(14, 60))}};
        one.amounts = {
            {"value", value},
            {"rent", house ? draft.francs(16200, 37800, 60) : draft.francs(960, 2100, 60)},
            {"new", value * 4 / 5 / 50000 * 50000},
            {"land", value * 3 / 10 / 50000 * 50000}};
        facts.lists["parcels"].push_back(one);
        noteLand(draft, value, one.amounts["rent"], one);
        ++place;
    }
    for (const char* name : {"value", "rent", "new", "land"}) {
        total(facts, "parcels", name, name);
    }
    spread(facts, "parcels");
    return facts;
}

Facts lakeRentValueFacts(Draft& draft) {
    valuer(draft);
    Facts facts;
    locate(draft, facts);
    const Cents month = draft.francs(1100, 3400, 20);
    facts.amounts = {{"month", month},
                     {"rent", 12 * month},
                     {"reduced", 12 * month * 7 / 10},
                     {"reduction", 12 * month * 3 / 10},
                     {"before", (month - 10000) * 12},
                     {"value", draft.francs(420000, 1400000, 1000)},
                     {"market", draft.francs(1500000, 1900000, 5000)}};
    noteLand(draft, facts.amounts["value"], 12 * month, facts);
    return facts;
}

Facts lakeUpkeepFacts(Draft& draft) {
    manager(draft);
    Facts facts;
    locate(draft, facts);
    int month = 1;
    struct Work {
        const char* firm;
        const char* what;
        int kept; ///< percent of the bill that keeps the value
    };
    for (const Work& work : {Work{"Malerei Pinselstrich", "Fassade gestrichen", 100},
                             Work{"Sanitär Tropf GmbH", "Boiler ersetzt", 100},
                             Work{"Schreinerei Hobel AG", "Küche neu, grösser", 60},
                             Work{"Gartenbau Farn", "Sitzplatz erstellt", 0},
                             Work{"Dachdeckerei Ziegel AG", "Dach repariert", 100}}) {
        Facts one;
        const Cents bill = draft.odd(400, 16000);
        const Cents kept = bill * work.kept / 100 / 5 * 5;
        month += 2;
        one.texts = {{"firm", work.firm}, {"what", work.what}};
        one.dates["on"] = QDate(draft.year, month, draft.random.between(1, 28));
        one.amounts = {{"bill", bill}, {"kept", kept}, {"better", bill - kept}};
        facts.lists["bills"].push_back(one);
    }
    for (const char* name : {"bill", "kept", "better"}) {
        total(facts, "bills", name, name);
    }
    facts.amounts["grant"] = draft.francs(500, 3000, 100);
    draft.record("realEstate").amount("actualMaintenanceCosts", facts.amounts["kept"]);
    return facts;
}

Facts lakeFlatFacts(Draft& draft) {
    manager(draft);
    Facts facts;
    const int quota = draft.random.between(60, 190);
    const auto own = [quota](Cents whole) { return whole * quota / 1000 / 5 * 5; };
    const auto item = [&](const char* list, const QString& what, Cents whole) {
        Facts one;
        one.texts["what"] = what;
        one.amounts = {{"whole", whole}, {"part", own(whole)}};
        facts.lists[list].push_back(one);
    };
    item("running", draft.t("Heizung und Warmwasser", "Chauffage et eau chaude", ""),
         draft.odd(9000, 24000));
    item("running", draft.t("Strom, Wasser, Kehricht", "Électricité, eau, ordures", ""),
         draft.odd(4000, 9000));
    item("running", draft.t("Hauswartung und Reinigung", "Conciergerie et nettoyage", ""),
         draft.odd(6000, 12000));
    item("upkeep", draft.t("Reparaturen und Unterhalt", "Réparations et entretien", ""),
         draft.odd(5000, 34000));
    item("upkeep", draft.t("Gebäudeversicherungen", "Assurances du bâtiment", ""),
         draft.odd(1500, 4200));
    item("upkeep", draft.t("Verwaltungshonorar", "Honoraires d'administration", ""),
         draft.odd(4000, 8000));
    item("upkeep", draft.t("Einlage Erneuerungsfonds", "Versement au fonds de rénovation", ""),
         draft.francs(8000, 24000, 1000));
    for (const char* name : {"whole", "part"}) {
        total(facts, "running", name, name);
        total(facts, "upkeep", name, name);
    }
    total(facts, "upkeep", "part", "amount");
    const Cents fund = draft.odd(60000, 240000);
    facts.amounts["fund"] = fund;
    facts.amounts["share"] = own(fund);
    facts.amounts["earned"] = own(fund / 400);
    facts.amounts["advance"] = facts.amounts["part"] / 10000 * 10000;
    facts.amounts["open"] = facts.amounts["part"] - facts.amounts["advance"];
    facts.texts = {{"quota", QString::number(quota) + "/1000"},
                   {"unit", draft.random.digits(2)},
                   {"street", draft.t("Seestrasse 4|Uferweg 17", "Chemin du Port 9", "")}};
    draft.record("realEstate").amount("actualMaintenanceCosts", facts.amounts["amount"]);
    TruthRecord fundShare; // wealth that some keep among the accounts
    fundShare.kind = "security";
    fundShare.year = draft.year;
    fundShare.amount("taxValue", facts.amounts["share"])
        .amount("incomeWithoutWithholding", facts.amounts["earned"]);
    draft.truth.accepted.push_back(fundShare);
    return facts;
}

Facts lakeRentsFacts(Draft& draft) {
    manager(draft);
    Facts facts;
    int floor = 0;
    for (const char* who : {"Familie Hug", "B. Okafor", "leer seit 1.7.", "Praxis Wyss"}) {
        Facts one;
        one.texts = {{"flat", QStringList{"EG links", "EG rechts", "OG", "Atelier"}[floor]},
                     {"who", who}};
        const int months = floor == 2 ? 6 : 12;
        one.amounts = {{"net", draft.francs(780, 2300, 10) * months},
                       {"side", draft.francs(90, 260, 10) * months}};
        one.amounts["all"] = one.amounts["net"] + one.amounts["side"];
        facts.lists["tenants"].push_back(one);
        ++floor;
    }
    for (const char* what :
         {"Reparaturen", "Serviceverträge", "Gebäudeversicherung", "Verwaltungshonorar 4 %"}) {
        Facts one;
        one.texts["what"] = what;
        one.amounts["part"] = draft.odd(350, 5200);
        facts.lists["costs"].push_back(one);
    }
    total(facts, "tenants", "net", "rent");
    total(facts, "tenants", "side", "side");
    total(facts, "tenants", "all", "all");
    total(facts, "costs", "part", "amount");
    facts.amounts["heating"] = facts.amounts["side"] * 93 / 100 / 5 * 5;
    facts.amounts["payout"] =
        facts.amounts["all"] - facts.amounts["amount"] - facts.amounts["heating"];
    facts.texts["street"] = draft.one("Hafengasse 12|Mühlebachstrasse 31|Im Ried 5");
    draft.record("realEstate")
        .amount("rentalIncome", facts.amounts["rent"])
        .amount("actualMaintenanceCosts", facts.amounts["amount"]);
    return facts;
}

Facts lakeRentMonthsFacts(Draft& draft) {
    manager(draft);
    Facts facts;
    const Cents net = draft.francs(1100, 2900, 10);
    const Cents side = draft.francs(120, 320, 10);
    for (int month = 1; month <= 12; ++month) {
        Facts one;
        one.texts["month"] = draft.longDate(QDate(draft.year, month, 1)).section(' ', 1, 1);
        one.amounts = {{"net", net},
                       {"side", side},
                       {"cost", draft.random.chance(35) ? draft.odd(60, 1900) : 0}};
        facts.lists["months"].push_back(one);
    }
    facts.lists["months"][4].amounts["cost"] = draft.odd(300, 2500);
    for (const char* name : {"net", "side", "cost"}) {
        total(facts, "months", name, name);
    }
    facts.amounts["payout"] = facts.amounts["net"] + facts.amounts["side"] - facts.amounts["cost"];
    facts.amounts["deposit"] = 3 * net;
    facts.texts["street"] =
        draft.t("", "Rue des Pêcheurs 8|Quai du Midi 3", "Via al Lago 14|Contrada dei Pescatori 2");
    draft.record("realEstate")
        .amount("rentalIncome", facts.amounts["net"])
        .amount("actualMaintenanceCosts", facts.amounts["cost"]);
    return facts;
}

Facts lakeCoverFacts(Draft& draft) {
    lakeIdle(draft, {"versicherung", "liegenschaft"},
             {"Brandkasse der Seegemeinden", "Gebäudeschutz Ostufer", "Assekuranz Uferland AG"});
    Facts facts;
    locate(draft, facts);
    for (const char* what : {"Wohnhaus", "Garage", "Gartenhaus"}) {
        Facts one;
        const Cents fresh = one.texts.empty() && facts.lists["buildings"].empty()
                                ? draft.francs(420000, 1300000, 1000)
                                : draft.francs(9000, 64000, 500);
        one.texts = {{"what", what}, {"number", draft.random.digits(4)}};
        one.amounts = {{"new", fresh},
                       {"premium", fresh * 28 / 100000 / 5 * 5},
                       {"guard", fresh * 9 / 100000 / 5 * 5}};
        one.amounts["sum"] = one.amounts["premium"] + one.amounts["guard"];
        facts.lists["buildings"].push_back(one);
    }
    for (const char* name : {"new", "premium", "guard", "sum"}) {
        total(facts, "buildings", name, name);
    }
    facts.amounts["retention"] = 50000;
    facts.dates["due"] = QDate(draft.year, 2, 28);
    acceptUpkeep(draft, facts.amounts["sum"], 0);
    return facts;
}

Facts lakeLandTaxFacts(Draft& draft) {
    lakeIdle(draft, {"liegenschaft"},
             {"Gemeinde Uferswil, Steueramt", "Stadtkasse Hafenegg", "Steuerbezug Seegemeinden"});
    Facts facts;
    locate(draft, facts);
    const Cents value = draft.francs(420000, 1600000, 1000);
    const int rate = draft.random.between(3, 8);
    facts.amounts = {
        {"value", value}, {"tax", value * rate / 10000 / 5 * 5}, {"late", draft.odd(1, 12)}};
    facts.amounts["total"] = facts.amounts["tax"] + facts.amounts["late"];
    facts.texts["rate"] = QString("0,%1 ‰").arg(rate);
    facts.dates["due"] = QDate(draft.year, 9, 30);
    acceptUpkeep(draft, facts.amounts["tax"], value);
    draft.truth.accepted.back()
        .text("municipality", facts.texts["place"])
        .text("parcelNumber", facts.texts["parcel"]);
    return facts;
}

} // namespace corpus
