#include "tests/documents/corpus/layouts/AlpFacts.h"
#include "tests/documents/corpus/layouts/TownFacts.h"

// Facts of charities, parties, parishes and schools.

namespace corpus {
namespace {

void charity(Draft& draft) {
    sentBy(draft, "spende",
           {draft.t("Berghilfe Sämtis", "Secours Alpin Solidaire", "Aiuto Montagna Ticino Alto"),
            draft.t("Stiftung Lebensfaden", "Fondation Fil de Vie", "Fondazione Filo di Vita"),
            draft.t("Hilfswerk Sternenkinder", "Association Enfants du Soleil",
                    "Associazione Bimbi nel Sole")});
}

TruthRecord& noteGift(Draft& draft, Cents amount) {
    return draft.record("donation", draft.family.one)
        .amount("amount", amount)
        .text("recipient", draft.issuer.name);
}

void school(Draft& draft) {
    sentBy(draft, "weiterbildung",
           {draft.t("Akademie Säntisblick", "École supérieure Les Tilleuls",
                    "Scuola specializzata Ceresio"),
            draft.t("Bildungszentrum Thurbogen", "Institut Lémania Formation",
                    "Centro formazione Riva"),
            draft.t("Fachschule Alpenhof", "Centre de perfectionnement Arve",
                    "Istituto di studi Monte Verde")});
}

void noteCourse(Draft& draft, const Someone& person, Cents amount) {
    draft.record("personDeductions", person).amount("furtherEducation", amount);
}

} // namespace

Facts alpPartyFacts(Draft& draft) {
    sentBy(draft, "spende",
           {"Bürgerliche Liste Obertal", "Grüne Mitte Rheintal", "Freie Wähler Toggenberg"});
    Facts facts;
    facts.amounts = {{"member", draft.francs(60, 250, 10)},
                     {"mandate", draft.francs(200, 2400, 50)},
                     {"gift", draft.francs(50, 900, 10)}};
    facts.amounts["amount"] =
        facts.amounts["member"] + facts.amounts["mandate"] + facts.amounts["gift"];
    facts.amounts["limit"] = 2000000;
    noteGift(draft, facts.amounts["amount"]);
    return facts;
}

Facts alpReceiptsFacts(Draft& draft) {
    charity(draft);
    Facts facts;
    TruthRecord sum;
    for (int i = 0; i < 3; ++i) {
        Facts one;
        one.texts["number"] = draft.random.digits(5);
        one.texts["why"] = draft.one("Strassensammlung|Haussammlung|Spende am Schalter|Kondolenz");
        one.dates["on"] = QDate(draft.year, 3 * i + 2, draft.random.between(1, 28));
        one.amounts["part"] = draft.francs(20, 250, 5) + 1000 * i;
        facts.amounts["all"] += one.amounts["part"];
        noteGift(draft, one.amounts["part"]).date("date", one.dates["on"]);
        facts.lists["receipts"].push_back(one);
    }
    sum.kind = "donation";
    sum.year = draft.year;
    draft.truth.accepted.push_back(sum.amount("amount", facts.amounts["all"]));
    return facts;
}

Facts alpGoodsFacts(Draft& draft) {
    charity(draft);
    Facts facts;
    facts.amounts = {{"money", draft.francs(150, 3000, 10)},
                     {"goods", draft.francs(100, 1800, 50)},
                     {"hour", 3000}};
    const int hours = draft.random.between(6, 60);
    facts.amounts["amount"] = facts.amounts["money"] + facts.amounts["goods"];
    facts.amounts["work"] = hours * facts.amounts["hour"];
    facts.texts = {{"hours", QString::number(hours)},
                   {"thing", draft.one("12 Matratzen|ein Lastenvelo|Schulmöbel|"
                                       "drei Notebooks|Winterkleider")}};
    facts.dates = {{"on", QDate(draft.year, 3, draft.random.between(1, 28))},
                   {"given", QDate(draft.year, 10, draft.random.between(1, 28))}};
    noteGift(draft, facts.amounts["amount"]);
    return facts;
}

Facts alpParishFacts(Draft& draft) {
    sentBy(draft, "spende",
           {"Kirchgemeinde Oberhelfen", "Pfarrei Sankt Luzi", "Evangelische Gemeinde Seebleiche"});
    Facts facts;
    facts.amounts = {{"tax", draft.odd(280, 2100)},
                     {"gift", draft.francs(80, 900, 10)},
                     {"mission", draft.francs(50, 600, 10)}};
    facts.amounts["amount"] = facts.amounts["gift"] + facts.amounts["mission"];
    facts.amounts["all"] = facts.amounts["amount"] + facts.amounts["tax"];
    for (int i = 1; i <= 3; ++i) {
        facts.dates["on" + QString::number(i)] =
            QDate(draft.year, 4 * i - 1, draft.random.between(1, 28));
    }
    noteGift(draft, facts.amounts["amount"]);
    return facts;
}

Facts alpChurchTaxFacts(Draft& draft) {
    sentBy(draft, "anderes",
           {"Kirchgemeinde Oberhelfen, Steuerbezug", "Kirchenverwaltung Sankt Luzi"});
    Facts facts;
    const Cents simple = draft.odd(1400, 8200);
    const int rate = draft.random.between(19, 28);
    facts.amounts = {{"simple", simple},
                     {"tax", simple * rate / 100 / 5 * 5},
                     {"equal", simple * 3 / 100 / 5 * 5}};
    facts.amounts["total"] = facts.amounts["tax"] + facts.amounts["equal"];
    facts.amounts["paid"] = facts.amounts["total"] / 2 / 500 * 500;
    facts.amounts["open"] = facts.amounts["total"] - facts.amounts["paid"];
    facts.texts["rate"] = QString::number(rate) + " %";
    facts.dates["due"] = draft.yearEnd().addDays(75);
    return facts;
}

Facts alpSponsorFacts(Draft& draft) {
    charity(draft);
    Facts facts;
    const Cents month = draft.francs(25, 140, 5);
    const Cents extra = draft.francs(20, 200, 10);
    const int when = draft.random.between(3, 12);
    for (int m = 1; m <= 12; ++m) {
        facts.amounts["m" + QString::number(m)] = month + (m == when ? extra : 0);
        facts.texts["d" + QString::number(m)] = englishDate(QDate(draft.year, m, 1)).mid(2, 3);
    }
    facts.amounts["month"] = month;
    facts.amounts["amount"] = 12 * month + extra;
    facts.amounts["extra"] = extra;
    facts.texts["godchild"] = draft.one("Amani, Kenia|Lucía, Bolivien|Thuy, Vietnam");
    noteGift(draft, facts.amounts["amount"]);
    return facts;
}

Facts alpAssociationFacts(Draft& draft) {
    charity(draft);
    Facts facts;
    facts.amounts["fee"] = draft.francs(30, 120, 5);
    for (int i = 1; i <= 3; ++i) {
        const QString place = QString::number(i);
        const Cents gift = draft.francs(25, 700, 5);
        facts.amounts["gift" + place] = gift;
        facts.amounts["amount"] += gift;
        facts.dates["on" + place] = QDate(draft.year, 4 * i - 1, draft.random.between(1, 28));
    }
    facts.amounts["all"] = facts.amounts["amount"] + facts.amounts["fee"];
    facts.dates["feeon"] = QDate(draft.year, 1, draft.random.between(4, 28));
    noteGift(draft, facts.amounts["amount"]);
    return facts;
}

Facts alpCancelledFacts(Draft& draft) {
    school(draft);
    Facts facts;
    const Cents fee = draft.francs(1800, 8400, 20);
    facts.amounts = {{"fee", fee},
                     {"material", draft.odd(60, 420)},
                     {"refund", fee * draft.random.between(15, 55) / 100 / 500 * 500},
                     {"handling", draft.francs(80, 200, 10)}};
    facts.amounts["charged"] = fee + facts.amounts["material"];
    facts.amounts["amount"] =
        facts.amounts["charged"] - facts.amounts["refund"] + facts.amounts["handling"];
    facts.dates = {{"paid", QDate(draft.year, 2, draft.random.between(1, 28))},
                   {"left", QDate(draft.year, 8, draft.random.between(1, 28))},
                   {"back", QDate(draft.year, 9, draft.random.between(1, 28))}};
    facts.texts["course"] = draft.one("Lehrgang Projektleitung|Diplomkurs Ernährungsberatung|"
                                      "Vorbereitung Meisterprüfung Gärtnerei");
    noteCourse(draft, draft.family.one, facts.amounts["amount"]);
    return facts;
}

Facts alpLearnersFacts(Draft& draft) {
    school(draft);
    Facts facts;
    for (const Someone& who : {draft.family.one, draft.family.two}) {
        Facts one;
        one.texts = {{"who", who.name()},
                     {"course", draft.one("Kurs Lohnbuchhaltung|Business Spanisch C1|"
                                          "CAS Pflegeberatung|Refresher Arbeitsrecht|"
                                          "Tabellenkalkulation für Fortgeschrittene")}};
        one.dates["on"] = draft.day();
        one.amounts["part"] = draft.francs(320, 5200, 10);
        facts.amounts["all"] += one.amounts["part"];
        facts.lists["learners"].push_back(one);
        noteCourse(draft, who, one.amounts["part"]);
    }
    return facts;
}

Facts alpSchoolAccountFacts(Draft& draft) {
    school(draft);
    Facts facts;
    Cents balance = 0;
    const auto add = [&](QDate on, const QString& what, Cents debit, Cents credit) {
        Facts line;
        balance += debit - credit;
        line.texts["what"] = what;
        line.dates["on"] = on;
        line.amounts = {{"debit", debit}, {"credit", credit}, {"balance", balance}};
        facts.amounts["charged"] += debit;
        facts.amounts["amount"] += credit;
        facts.lists["lines"].push_back(line);
    };
    const Cents term = draft.francs(1400, 4800, 50);
    const Cents books = draft.odd(80, 460);
    const Cents exam = draft.francs(300, 1600, 50);
    add({draft.year, 1, 14}, "Studiengebühr 1. Semester", term, 0);
    add({draft.year, 2, draft.random.between(1, 25)}, "Zahlung", 0, term);
    add({draft.year, 5, 6}, "Lehrmittel", books, 0);
    add({draft.year, 6, draft.random.between(1, 25)}, "Zahlung", 0, books);
    add({draft.year, 8, 19}, "Studiengebühr 2. Semester", term + 5000, 0);
    add({draft.year, 9, draft.random.between(1, 25)}, "Zahlung", 0, term + 5000);
    add({draft.year, 12, 9}, "Prüfungsgebühr", exam, 0);
    facts.amounts["open"] = balance;
    facts.texts["course"] =
        draft.one("Höhere Berufsbildung Treuhand|Nachdiplomstudium Intensivpflege");
    noteCourse(draft, draft.family.one, facts.amounts["amount"]);
    return facts;
}

Facts alpCreditsFacts(Draft& draft) {
    school(draft);
    Facts facts;
    for (const char* name : {"Diritto del lavoro", "Contabilità II", "Gestione del personale",
                             "Comunicazione", "Lavoro di diploma"}) {
        Facts module;
        const int credits = draft.random.between(2, 8);
        module.texts = {{"name", name}, {"credits", QString::number(credits)}};
        module.amounts["part"] = credits * draft.francs(140, 260, 10);
        facts.amounts["modules"] += module.amounts["part"];
        facts.lists["modules"].push_back(module);
    }
    facts.amounts["exam"] = draft.francs(200, 900, 50);
    facts.amounts["books"] = draft.odd(40, 320);
    facts.amounts["amount"] =
        facts.amounts["modules"] + facts.amounts["exam"] + facts.amounts["books"];
    facts.amounts["reminder"] = 3000;
    noteCourse(draft, draft.family.one, facts.amounts["amount"]);
    return facts;
}

Facts alpFirmShareFacts(Draft& draft) {
    school(draft);
    draft.dated = draft.day();
    Facts facts;
    const Cents price = draft.francs(1800, 12800, 100);
    const Cents firm = price * draft.random.between(20, 60) / 100 / 5000 * 5000;
    facts.amounts = {{"price", price}, {"firm", firm}, {"amount", price - firm}};
    facts.texts = {{"number", "F-" + draft.random.digits(6)},
                   {"course", draft.one("Brevet fédéral en ressources humaines|CAS en "
                                        "gérontologie|Cours de perfectionnement en soudage")},
                   {"company", draft.one("Horlogerie Fontanelle SA|Menuiserie des Bois Sàrl")}};
    facts.dates["due"] = draft.dated.addDays(30);
    noteCourse(draft, draft.family.one, facts.amounts["amount"]);
    return facts;
}

Facts alpTuitionFacts(Draft& draft) {
    sentBy(draft, "weiterbildung",
           {"Lakeside Executive School", "Alpine Institute of Management",
            "International Centre for Professional Studies"});
    Facts facts;
    const Cents part = draft.francs(2400, 7800, 100);
    for (int i = 0; i < 4; ++i) {
        Facts one;
        const QDate on(draft.year + i / 3, i < 3 ? 2 + 4 * i : 2, draft.random.between(1, 28));
        one.texts = {{"day", englishDate(on)},
                     {"no", QString::number(i + 1)},
                     {"state", i < 3 ? "received" : "due"}};
        one.amounts["part"] = part + 10000 * i;
        facts.amounts[i < 3 ? "amount" : "next"] += one.amounts["part"];
        facts.lists["parts"].push_back(one);
    }
    facts.amounts["all"] = facts.amounts["amount"] + facts.amounts["next"];
    facts.texts["course"] = draft.one("Executive MBA|Certificate of Advanced Studies in Data "
                                      "Protection|Diploma in Clinical Research");
    noteCourse(draft, draft.family.one, facts.amounts["amount"]);
    return facts;
}

} // namespace corpus
