#include "tests/documents/corpus/layouts/Facts.h"

// Facts of practices, day care, schools, charities and valuation offices.

namespace corpus {
namespace {

TruthRecord costOf(Draft& draft, Cents gross) {
    TruthRecord cost;
    cost.kind = "medicalCost";
    cost.year = draft.year;
    cost.personName = draft.family.one.name();
    return cost.amount("gross", gross)
        .text("provider", draft.issuer.name)
        .date("date", draft.dated);
}

/// Services and their sum; `most` of the services at the most.
Facts services(Draft& draft, int most) {
    issuedBy(
        draft, "arztrechnung",
        {draft.t("Hausarztpraxis Kronbühl", "Cabinet médical du Bourg", "Studio medico Piazza"),
         draft.t("Dr. med. dent. Sabrina Kohli", "Dr méd. dent. Yves Monod",
                 "Dr. med. dent. Aldo Ferrari"),
         draft.t("Augenklinik Seetal AG", "Clinique de l'œil Morges SA",
                 "Clinica oculistica Lario SA"),
         draft.t("Psychotherapie Hofer & Team", "Psychothérapie Perret", "Psicoterapia Galli"),
         draft.t("Optik und Hörakustik Brändle", "Optique Vision Nord", "Ottica Vista Chiara")});
    draft.dated = draft.day();
    Facts facts;
    for (int i = draft.random.between(2, most); i > 0; --i) {
        Facts item;
        item.texts = {{"what", wording(draft, "treatment", draft.language)},
                      {"count", QString::number(draft.random.between(1, 6))},
                      {"code", "0" + draft.random.digits(1) + "." + draft.random.digits(4)}};
        item.dates["on"] = draft.dated.addDays(-8 - 4 * i);
        item.amounts["part"] = draft.odd(9, 260);
        facts.amounts["sum"] += item.amounts["part"];
        facts.lists["items"].push_back(item);
    }
    facts.texts["number"] = draft.random.digits(7);
    facts.dates["due"] = draft.dated.addDays(30);
    facts.amounts["total"] = facts.amounts["sum"];
    facts.amounts["fee"] = 2000;
    facts.amounts["rate"] = draft.odd(90, 180);
    return facts;
}

void months(Draft& draft, Facts& facts) {
    const Cents day = draft.odd(70, 130);
    for (int month = 1; month <= 12; ++month) {
        Facts one;
        const int days = draft.random.between(3, 14);
        one.texts = {{"days", QString::number(days)},
                     {"month", QString("%1/%2").arg(month, 2, 10, QChar('0')).arg(draft.year)}};
        one.amounts["part"] = days * day;
        facts.amounts["total"] += days * day;
        facts.lists["months"].push_back(one);
    }
    facts.amounts["rate"] = day;
}

void care(Draft& draft) {
    issuedBy(draft, "kinderbetreuung",
             {"Kinderhaus Regenbogen Mörschwil", "Kita Wurzelchind GmbH",
              "Verein Tagesbetreuung Appenzellerland", "Mittagstisch und Hort Feldli"});
}

void course(Draft& draft) {
    issuedBy(draft, "weiterbildung",
             {"Höhere Fachschule Bodensee", "Institut für Lernen und Arbeit", "Kaderschule Alpina",
              "Handwerkszentrum Linth", "Fernlehrinstitut Merkur AG"});
    draft.dated = draft.day();
}

void noteCourse(Draft& draft, Cents amount) {
    draft.record("personDeductions", draft.family.one).amount("furtherEducation", amount);
}

void charity(Draft& draft) {
    issuedBy(draft, "spende",
             {"Stiftung Lichtblick Kinder", "Verein Bergwald Zukunft", "Missionshaus Sonnenhof",
              "Tierheim Pfotenglück", "Hilfsbund Brot und Bildung", "Rettungsflug Alpenrand"});
}

} // namespace

Facts billFacts(Draft& draft) {
    Facts facts = services(draft, 7);
    draft.truth.records.push_back(costOf(draft, facts.amounts["total"]));
    return facts;
}

Facts paidBillFacts(Draft& draft) {
    Facts facts = services(draft, 5);
    const Cents total = facts.amounts["total"];
    facts.amounts["advance"] = total / 3 / 500 * 500 + 500;
    facts.amounts["open"] = total - facts.amounts["advance"];
    draft.truth.records.push_back(costOf(draft, total));
    draft.truth.accepted.push_back(costOf(draft, facts.amounts["open"]));
    return facts;
}

Facts creditedBillFacts(Draft& draft) {
    Facts facts = services(draft, 5);
    facts.amounts["credit"] = facts.amounts["sum"] / 10 / 5 * 5 + 5;
    facts.amounts["total"] = facts.amounts["sum"] - facts.amounts["credit"];
    draft.truth.records.push_back(costOf(draft, facts.amounts["total"]));
    return facts;
}

Facts careFacts(Draft& draft) {
    care(draft);
    Facts facts;
    months(draft, facts);
    const Cents total = facts.amounts["total"];
    facts.amounts["subsidy"] = draft.odd(400, 4000);
    facts.amounts["full"] = total + facts.amounts["subsidy"];
    facts.amounts["meals"] = total / 12 / 5 * 5;
    facts.amounts["bare"] = total - facts.amounts["meals"];
    facts.amounts["deposit"] = draft.francs(200, 900, 50);
    facts.amounts["half"] = 0;
    for (size_t i = 0; i < 6; ++i) {
        facts.amounts["half"] += facts.lists["months"][i].amounts["part"];
    }
    facts.amounts["otherhalf"] = total - facts.amounts["half"];
    draft.record("child", draft.family.child).amount("childcareCosts", total);
    return facts;
}

Facts careTwoFacts(Draft& draft) {
    care(draft);
    Facts facts;
    for (const Someone& child : {draft.family.child, draft.family.secondChild}) {
        Facts one;
        one.texts["who"] = child.name();
        one.dates["born"] = child.birth;
        one.amounts["paid"] = draft.odd(900, 14000);
        facts.amounts["total"] += one.amounts["paid"];
        facts.lists["children"].push_back(one);
        draft.record("child", child).amount("childcareCosts", one.amounts["paid"]);
    }
    facts.amounts["rate"] = draft.odd(80, 120);
    return facts;
}

Facts courseFacts(Draft& draft) {
    course(draft);
    Facts facts;
    const Cents fee = draft.francs(250, 7800, 10);
    const Cents books = draft.odd(20, 380);
    const Cents exam = draft.francs(100, 1200, 50);
    facts.texts = {
        {"number", draft.random.digits(6)},
        {"course", draft.one("Eidg. Fachausweis Technischer Kaufmann|Lehrgang "
                             "Immobilienbewirtschaftung|Englisch B2 kompakt|CAS Digitale "
                             "Verwaltung|Schweissfachkurs Stufe 2|Kurs "
                             "Arbeitssicherheit EKAS")}};
    facts.amounts = {{"fee", fee},
                     {"books", books},
                     {"exam", exam},
                     {"total", fee + books + exam},
                     {"instalment", (fee + books + exam) / 4 / 5 * 5},
                     {"penalty", draft.francs(80, 350, 10)}};
    noteCourse(draft, facts.amounts["total"]);
    return facts;
}

Facts instalmentFacts(Draft& draft) {
    course(draft);
    Facts facts;
    const Cents part = draft.odd(250, 2400);
    const int count = draft.random.between(2, 4);
    for (int i = 1; i <= count; ++i) {
        Facts one;
        one.texts["no"] = QString::number(i);
        one.dates["on"] = QDate(draft.year, 1 + 2 * i, draft.random.between(1, 28));
        one.amounts["part"] = part + 1000 * i;
        facts.amounts["total"] += one.amounts["part"];
        facts.lists["parts"].push_back(one);
    }
    facts.amounts["open"] = part + 7500;
    facts.amounts["price"] = facts.amounts["total"] + facts.amounts["open"];
    facts.texts["course"] =
        draft.one("Nachdiplomstudium Pflege|Berufsprüfung Elektroprojektleitung|"
                  "Executive MBA|Diplomlehrgang Coaching");
    noteCourse(draft, facts.amounts["total"]);
    return facts;
}

Facts giftFacts(Draft& draft) {
    charity(draft);
    Facts facts;
    const Cents amount = draft.francs(20, 5000, 5);
    facts.amounts = {
        {"amount", amount}, {"goal", draft.francs(60000, 900000, 10000)}, {"well", 3500}};
    facts.dates["when"] = draft.day();
    draft.record("donation", draft.family.one)
        .amount("amount", amount)
        .text("recipient", draft.issuer.name)
        .date("date", facts.dates["when"]);
    return facts;
}

Facts giftsFacts(Draft& draft) {
    charity(draft);
    Facts facts;
    for (int i = draft.random.between(2, 8); i > 0; --i) {
        Facts one;
        one.dates["on"] = QDate(draft.year, 13 - i, draft.random.between(1, 28));
        one.texts["why"] = draft.one("Einzelspende|Patenschaft|Lastschrift|Kollekte|Trauerspende");
        one.amounts["part"] = draft.francs(15, 480, 5);
        facts.amounts["total"] += one.amounts["part"];
        facts.lists["gifts"].push_back(one);
    }
    draft.record("donation", draft.family.one)
        .amount("amount", facts.amounts["total"])
        .text("recipient", draft.issuer.name);
    return facts;
}

Facts membershipFacts(Draft& draft) {
    charity(draft);
    Facts facts;
    facts.amounts = {{"fee", draft.francs(30, 120, 10)}, {"amount", draft.francs(125, 1500, 5)}};
    facts.amounts["both"] = facts.amounts["fee"] + facts.amounts["amount"];
    facts.dates["when"] = draft.day();
    draft.record("donation", draft.family.one)
        .amount("amount", facts.amounts["amount"])
        .text("recipient", draft.issuer.name);
    return facts;
}

Facts propertyFacts(Draft& draft) {
    issuedBy(draft, "liegenschaft",
             {"Gemeinde Amden, Grundbuchamt", "Kantonale Schätzungskommission Kreis Nord",
              "Stadtverwaltung, Abteilung Grundstücke", "Schätzungsamt Region Werdenberg"});
    Facts facts;
    const Cents value = draft.francs(210000, 2400000, 1000);
    const Cents rent = value * draft.random.between(20, 42) / 1000 / 12000 * 12000;
    facts.amounts = {{"value", value},
                     {"rent", rent},
                     {"month", rent / 12},
                     {"new", value + draft.francs(60000, 400000, 1000)},
                     {"real", value - draft.francs(2000, 70000, 1000)},
                     {"old", value * 4 / 5 / 100000 * 100000},
                     {"oldrent", rent * 4 / 5 / 10000 * 10000},
                     {"charge", draft.francs(150, 600, 10)}};
    const Cents land = value * 3 / 10 / 100000 * 100000;
    facts.amounts["land"] = land;
    facts.amounts["house"] = value - land;
    facts.texts = {{"place", draft.one("Ebnat-Kappel|Kirchberg|Mels|Diepoldsau|Benken|Eichberg")},
                   {"parcel", draft.random.digits(4)},
                   {"building", "Vers.-Nr. " + draft.random.digits(4)},
                   {"area", QString::number(draft.random.between(280, 1400)) + " m²"},
                   {"built", QString::number(draft.random.between(1925, 2018))}};
    draft.record("realEstate")
        .amount("taxValue", value)
        .amount("imputedRentalValue", rent)
        .text("municipality", facts.texts["place"])
        .text("parcelNumber", facts.texts["parcel"]);
    return facts;
}

} // namespace corpus
