#include "tests/documents/corpus/layouts/TownFacts.h"

#include "tests/documents/corpus/layouts/Facts.h"

// Facts of day care, of practices and of workshops.

namespace corpus {
namespace {

const char* const monthNames[] = {"Januar",    "Februar", "März",     "April",
                                  "Mai",       "Juni",    "Juli",     "August",
                                  "September", "Oktober", "November", "Dezember"};

/// What the Confederation lets deduct per child at the most; printed in many a note.
Cents federalCap(const Draft& draft) {
    return draft.year < 2023 ? 1010000 : draft.year < 2024 ? 2500000 : 2550000;
}

void noteCare(Draft& draft, const Someone& child, Cents paid) {
    draft.record("child", child).amount("childcareCosts", paid);
}

void dayCare(Draft& draft) {
    sentBy(draft, "kinderbetreuung",
           {"Chinderinsle Goldach", "Krippe Sternschnuppe", "Verein Kinderbetreuung am See",
            "Chinderhuus Sunneschii GmbH", "Tagesstrukturen Schule Rosenau"});
}

Facts childFacts(const Someone& child) {
    Facts facts;
    facts.texts = {{"who", child.name()}, {"first", child.first}};
    facts.dates["born"] = child.birth;
    return facts;
}

Facts careTable(Draft& draft, int count) {
    dayCare(draft);
    Facts facts;
    const std::vector<Someone> children = childrenOf(draft, count);
    for (int m = 0; m < 12; ++m) {
        Facts month;
        month.texts["month"] = monthNames[m];
        facts.lists["months"].push_back(month);
    }
    for (size_t k = 0; k < children.size(); ++k) {
        const QString place = QString::number(k + 1);
        Facts child = childFacts(children[k]);
        const Cents rate = draft.odd(42, 98);
        for (size_t m = 0; m < 12; ++m) {
            const Cents part = m == 6 ? 0 : rate * draft.random.between(2, 9);
            child.amounts["m" + QString::number(m + 1)] = part;
            child.amounts["paid"] += part;
            facts.lists["months"][m].amounts["a" + place] = part;
            facts.lists["months"][m].amounts["sum"] += part;
            facts.amounts["all" + QString::number(m + 1)] += part;
        }
        facts.amounts["t" + place] = child.amounts["paid"];
        facts.amounts["total"] += child.amounts["paid"];
        facts.texts["kid" + place] = children[k].name();
        facts.texts["first" + place] = children[k].first;
        facts.dates["born" + place] = children[k].birth;
        noteCare(draft, children[k], child.amounts["paid"]);
        facts.lists["children"].push_back(child);
    }
    facts.amounts["rate"] = draft.odd(88, 130);
    facts.amounts["cap"] = federalCap(draft);
    return facts;
}

TruthRecord& noteCost(Draft& draft, Cents gross) {
    return draft.record("medicalCost", draft.family.one)
        .amount("gross", gross)
        .text("provider", draft.issuer.name);
}

/// Tariff positions of a dentist and the work of the laboratory.
Facts dentist(Draft& draft) {
    sentBy(draft, "arztrechnung",
           {"Dr. med. dent. Livia Tschirky", "Zahnwerk Kreuzbleiche AG", "Zahnärzte am Obertor",
            "Kieferorthopädie Säntispark AG"});
    draft.dated = draft.day();
    Facts facts;
    const Cents point = draft.random.pick(std::vector<Cents>{100, 105, 110, 115, 120});
    for (int i = draft.random.between(3, 7); i > 0; --i) {
        Facts item;
        const int points = draft.random.between(6, 90);
        const int count = draft.random.between(1, 4);
        item.texts = {{"code", "4." + draft.random.digits(4)},
                      {"tooth", QString::number(10 * draft.random.between(1, 4)
                                                + draft.random.between(1, 8))},
                      {"count", QString::number(count)},
                      {"points", QString::number(points)},
                      {"what", draft.one("Befundaufnahme|Anästhesie|Füllung einflächig|"
                                         "Wurzelspitzenaufnahme|Kofferdam|Politur|"
                                         "Zahnsteinentfernung")}};
        item.dates["on"] = draft.dated.addDays(-5 - 6 * i);
        item.amounts["part"] = points * count * point;
        facts.amounts["care"] += item.amounts["part"];
        facts.lists["items"].push_back(item);
    }
    facts.texts = {
        {"number", draft.random.digits(4) + "/" + draft.random.digits(3)},
        {"point", QString("%1.%2").arg(point / 100).arg(point % 100, 2, 10, QChar('0'))}};
    facts.amounts["lab"] = draft.odd(60, 780);
    facts.amounts["total"] = facts.amounts["care"] + facts.amounts["lab"];
    facts.amounts["quote"] = facts.amounts["total"] + draft.odd(30, 200);
    facts.dates["due"] = draft.dated.addDays(30);
    return facts;
}

/// Hours and material of a renovation, with the tax of its year.
Facts workshop(Draft& draft) {
    sentBy(draft, "liegenschaft",
           {draft.t("Schreinerei Gantenbein GmbH", "Menuiserie Bovay Sàrl",
                    "Falegnameria Rezzonico Sagl"),
            draft.t("Malergeschäft Farbton Altstätten", "Peinture Ciel Bleu SA",
                    "Pittura Arcobaleno SA"),
            draft.t("Spenglerei Dachfest AG", "Ferblanterie du Mont SA", "Lattoneria Brè SA")});
    draft.truth.alsoKinds = QStringList{"anderes"};
    draft.dated = draft.day();
    Facts facts;
    const Cents rate = draft.francs(78, 138, 2);
    for (int i = draft.random.between(2, 5); i > 0; --i) {
        Facts item;
        const int hours = draft.random.between(2, 22);
        item.dates["on"] = draft.dated.addDays(-9 - 3 * i);
        item.texts = {{"hours", QString::number(hours) + ".0"},
                      {"what", draft.t("Vorarbeiter|Monteur|Gelernter|Lernende 3. Lehrjahr",
                                       "Contremaître|Ouvrier qualifié|Apprenti 3e année",
                                       "Caposquadra|Operaio|Apprendista")}};
        item.amounts["rate"] = rate;
        item.amounts["part"] = rate * hours;
        facts.amounts["labour"] += item.amounts["part"];
        facts.lists["hours"].push_back(item);
    }
    for (int i = draft.random.between(1, 3); i > 0; --i) {
        Facts item;
        item.texts["what"] = draft.t("Kleinmaterial|Fensterdichtungen|Grundierung und Lack|"
                                     "Kupferblech|Entsorgung|Anfahrt",
                                     "Petit matériel|Joints|Peinture|Tôle de cuivre|Déplacement",
                                     "Materiale minuto|Guarnizioni|Vernice|Trasferta");
        item.amounts["part"] = draft.odd(18, 940);
        facts.amounts["goods"] += item.amounts["part"];
        facts.lists["goods"].push_back(item);
    }
    facts.amounts["sum"] = facts.amounts["labour"] + facts.amounts["goods"];
    facts.texts = {{"number", draft.random.digits(2) + "-" + draft.random.digits(4)},
                   {"object", draft.family.street},
                   {"percent", draft.year < 2024 ? "7.7" : "8.1"}};
    return facts;
}

Cents toFive(Cents amount) { return (amount + 2) / 5 * 5; }

void withTax(Draft& draft, Facts& facts) {
    const Cents net = facts.amounts["net"];
    facts.amounts["vat"] = toFive(net * (draft.year < 2024 ? 77 : 81) / 1000);
    facts.amounts["total"] = net + facts.amounts["vat"];
    draft.record("realEstate").amount("actualMaintenanceCosts", facts.amounts["total"]);
}

} // namespace

std::vector<Someone> childrenOf(Draft& draft, int count) {
    const Family& family = draft.family;
    std::vector<Someone> children{family.child, family.secondChild, family.child};
    children[2].first = draft.t("Elin|Mattea|Ronja|Jael", "Zoé|Manon", "Noemi|Alice");
    children[2].birth = QDate(draft.random.between(2011, 2020), draft.random.between(1, 12),
                              draft.random.between(1, 28));
    children[2].number = randomSocialNumber(draft.random);
    children.resize(static_cast<size_t>(count));
    return children;
}

void sentBy(Draft& draft, const char* kind, const std::vector<QString>& names) {
    issuedBy(draft, kind, names);
    if (draft.random.chance(35)) {
        draft.money.fraction = AmountStyle::Fraction::hyphen;
        draft.money.currency = draft.one("Fr.|CHF|sFr.|Fr");
    }
}

Facts careYearFacts(Draft& draft) { return careTable(draft, 3); }
Facts carePairFacts(Draft& draft) { return careTable(draft, 2); }

Facts careMealsFacts(Draft& draft) {
    dayCare(draft);
    Facts facts;
    const Cents rate = draft.odd(65, 125);
    const Cents meal = draft.odd(7, 14);
    for (int m = 1; m <= 12; ++m) {
        const int days = draft.random.between(4, 13);
        const QString place = QString::number(m);
        facts.amounts["c" + place] = days * rate;
        facts.amounts["v" + place] = days * meal;
        facts.amounts["s" + place] = days * (rate + meal);
        facts.amounts["care"] += days * rate;
        facts.amounts["meals"] += days * meal;
    }
    facts.amounts["total"] = facts.amounts["care"] + facts.amounts["meals"];
    facts.amounts["meal"] = meal;
    facts.amounts["cap"] = federalCap(draft);
    noteCare(draft, draft.family.child, facts.amounts["care"]);
    return facts;
}

Facts dayFamilyFacts(Draft& draft) {
    sentBy(draft, "kinderbetreuung",
           {"Tagesfamilien Linthgebiet", "Verein Tageseltern Fürstenland",
            "Vermittlungsstelle Tagesfamilien Rorschach und Umgebung"});
    Facts facts;
    const Cents rate = draft.odd(7, 13);
    for (int m = 0; m < 12; ++m) {
        Facts month;
        const int hours = draft.random.between(14, 92);
        month.texts = {{"month", monthNames[m]}, {"hours", QString::number(hours)}};
        month.amounts["care"] = hours * rate;
        month.amounts["meals"] = draft.random.between(2, 12) * Cents{850};
        month.amounts["sum"] = month.amounts["care"] + month.amounts["meals"];
        for (const char* name : {"care", "meals"}) {
            facts.amounts[name] += month.amounts[name];
        }
        facts.lists["months"].push_back(month);
    }
    facts.amounts["rate"] = rate;
    facts.amounts["fee"] = draft.francs(40, 120, 10);
    facts.amounts["total"] = facts.amounts["care"] + facts.amounts["meals"] + facts.amounts["fee"];
    noteCare(draft, draft.family.child, facts.amounts["care"]);
    return facts;
}

Facts subsidyFacts(Draft& draft) {
    dayCare(draft);
    Facts facts;
    for (const Someone& child : childrenOf(draft, draft.random.between(1, 3))) {
        Facts one = childFacts(child);
        const int days = draft.random.between(30, 150);
        const Cents full = days * draft.odd(95, 135);
        const Cents canton = full * draft.random.between(4, 16) / 100 / 5 * 5;
        const Cents commune = full * draft.random.between(15, 50) / 100 / 5 * 5;
        one.texts["days"] = QString::number(days);
        one.amounts = {{"full", full},
                       {"canton", canton},
                       {"commune", commune},
                       {"net", full - canton - commune}};
        for (const char* name : {"full", "canton", "commune", "net"}) {
            facts.amounts["all" + QString(name)] += one.amounts[name];
        }
        noteCare(draft, child, one.amounts["net"]);
        facts.lists["children"].push_back(one);
    }
    facts.amounts["income"] = draft.francs(38000, 120000, 100);
    facts.amounts["wealth"] = draft.francs(10000, 290000, 1000);
    facts.amounts["cap"] = federalCap(draft);
    return facts;
}

Facts halfYearFacts(Draft& draft) {
    dayCare(draft);
    Facts facts;
    const bool second = draft.random.chance(50);
    const Cents rate = draft.odd(60, 120);
    for (int m = second ? 6 : 0; m < (second ? 12 : 6); ++m) {
        Facts month;
        const int days = draft.random.between(3, 15);
        month.texts = {{"month", monthNames[m]}, {"days", QString::number(days)}};
        month.amounts["part"] = days * rate;
        facts.amounts["amount"] += month.amounts["part"];
        facts.lists["months"].push_back(month);
    }
    facts.texts["term"] = second ? "2. Halbjahr" : "1. Halbjahr";
    facts.dates["from"] = QDate(draft.year, second ? 7 : 1, 1);
    facts.dates["until"] = second ? QDate(draft.year, 12, 31) : QDate(draft.year, 6, 30);
    facts.amounts["entry"] = draft.francs(50, 250, 50);
    facts.amounts["rate"] = rate;
    facts.amounts["half"] = rate * 7 / 10 / 5 * 5;
    facts.amounts["cap"] = federalCap(draft);
    noteCare(draft, draft.family.child, facts.amounts["amount"]);
    return facts;
}

Facts careInvoicesFacts(Draft& draft) {
    dayCare(draft);
    Facts facts;
    const int number = draft.random.between(20100, 88000);
    const Cents base = draft.odd(300, 1900);
    for (int m = 1; m <= 12; ++m) {
        Facts one;
        const QDate on(draft.year, m, draft.random.between(2, 9));
        one.texts["number"] = QString::number(number + 37 * m);
        one.texts["month"] = monthNames[m - 1];
        one.dates["on"] = on;
        one.amounts["part"] = base + Cents{5} * draft.random.between(0, 2000);
        one.amounts["got"] = m < 12 ? one.amounts["part"] : 0;
        one.amounts["left"] = m < 12 ? 0 : one.amounts["part"];
        facts.amounts["invoiced"] += one.amounts["part"];
        facts.amounts["paid"] += one.amounts["got"];
        facts.amounts["open"] += one.amounts["left"];
        facts.lists["invoices"].push_back(one);
    }
    noteCare(draft, draft.family.child, facts.amounts["paid"]);
    return facts;
}

Facts careModulesFacts(Draft& draft) {
    sentBy(draft, "kinderbetreuung",
           {"Schulverwaltung Thal, Tagesstrukturen", "Stadt Gallusau, Schulergänzende Betreuung",
            "Primarschulgemeinde Rheinau-Dorf, Hort"});
    Facts facts;
    for (const Someone& child : childrenOf(draft, draft.random.between(1, 3))) {
        Facts one = childFacts(child);
        for (const char* name :
             {"Frühmodul 06.45–08.00", "Mittagsmodul 11.45–13.30", "Nachmittag I 13.30–15.20",
              "Nachmittag II 15.20–18.00", "Ferienmodul ganzer Tag"}) {
            if (draft.random.chance(25) && !one.lists["modules"].empty()) {
                continue;
            }
            Facts module;
            const int count = draft.random.between(4, 76);
            module.texts = {{"what", name}, {"count", QString::number(count)}};
            module.amounts["rate"] = draft.odd(4, 24);
            module.amounts["part"] = count * module.amounts["rate"];
            one.amounts["paid"] += module.amounts["part"];
            one.lists["modules"].push_back(module);
        }
        facts.amounts["total"] += one.amounts["paid"];
        noteCare(draft, child, one.amounts["paid"]);
        facts.lists["children"].push_back(one);
    }
    facts.texts["term"] =
        QString("%1/%2").arg(draft.year - 1).arg(draft.year % 100, 2, 10, QChar('0'));
    return facts;
}

Facts foreignCareFacts(Draft& draft) {
    sentBy(draft, "kinderbetreuung",
           {draft.t("Kita", "Crèche Les Coccinelles", "Asilo nido Il Girasole"),
            draft.t("Hort", "Structure d'accueil Le Petit Train", "Nido dell'infanzia Pulcino"),
            draft.t("Hort", "Garderie La Ribambelle", "Famiglie diurne del Piano")});
    Facts facts;
    facts.amounts = {{"paid", draft.odd(1400, 16500)},
                     {"entry", draft.francs(50, 200, 50)},
                     {"aid", draft.odd(300, 4200)},
                     {"meals", draft.odd(220, 1300)}};
    facts.amounts["gross"] = facts.amounts["paid"] + facts.amounts["aid"];
    facts.amounts["withmeals"] = facts.amounts["paid"] + facts.amounts["meals"];
    noteCare(draft, draft.family.child, facts.amounts["paid"]);
    return facts;
}

Facts dentistFacts(Draft& draft) {
    Facts facts = dentist(draft);
    noteCost(draft, facts.amounts["total"]).date("date", draft.dated);
    return facts;
}

Facts correctedFacts(Draft& draft) {
    Facts facts = dentist(draft);
    Facts& wrong = facts.lists["items"].front();
    facts.texts["wrong"] = wrong.texts["code"];
    facts.amounts["before"] = facts.amounts["total"];
    facts.amounts["credit"] = wrong.amounts["part"];
    facts.amounts["total"] -= facts.amounts["credit"];
    facts.dates["first"] = draft.dated.addDays(-21);
    noteCost(draft, facts.amounts["total"]).date("date", draft.dated);
    return facts;
}

Facts hospitalFacts(Draft& draft) {
    sentBy(draft, "arztrechnung",
           {"Klinik Hirschmatt AG", "Spitalverbund Oberrhein", "Rehazentrum Walenblick"});
    draft.dated = draft.day();
    Facts facts;
    const Cents full = draft.odd(1800, 14800);
    const Cents own = full * draft.random.between(5, 14) / 100 / 5 * 5;
    const Cents canton = (full - own) * 55 / 100 / 5 * 5;
    facts.amounts = {
        {"full", full}, {"own", own}, {"canton", canton}, {"insurer", full - own - canton}};
    facts.texts["case"] = draft.random.digits(9);
    facts.dates["in"] = draft.dated.addDays(-32);
    facts.dates["out"] = draft.dated.addDays(-draft.random.between(22, 29));
    noteCost(draft, own).date("date", draft.dated);
    TruthRecord whole = draft.truth.records.back(); // all of it and what others paid says the same
    draft.truth.accepted.push_back(whole.amount("gross", full).amount("reimbursed", full - own));
    return facts;
}

Facts pharmacyYearFacts(Draft& draft) {
    sentBy(draft, "arztrechnung",
           {"Apotheke zum Mörser", "Kronen-Apotheke Flade AG", "Dorfdrogerie und Apotheke Hug"});
    Facts facts;
    const int count = draft.random.between(5, 13);
    for (int i = 0; i < count; ++i) {
        Facts item;
        const Cents full = draft.odd(12, 190);
        const bool covered = draft.random.chance(55);
        item.dates["on"] = QDate(draft.year, 1, 6).addDays(24 * i + draft.random.between(0, 20));
        item.texts["what"] =
            draft.one("Salvaplan Tabl 30 Stk|Dolonex Filmtabl 500 mg|Nasivent Spray 15 ml|"
                      "Cardiol Kaps 98 Stk|Verbandmaterial|Magnova Brause 60 Stk");
        item.amounts = {
            {"full", full}, {"insurer", covered ? full : 0}, {"own", covered ? 0 : full}};
        if (i == 0) { // something of either
            item.amounts["insurer"] = full - full / 10 / 5 * 5;
            item.amounts["own"] = full / 10 / 5 * 5;
        }
        for (const char* name : {"full", "insurer", "own"}) {
            facts.amounts[name] += item.amounts[name];
        }
        facts.lists["items"].push_back(item);
    }
    noteCost(draft, facts.amounts["own"]);
    return facts;
}

Facts reminderFacts(Draft& draft) {
    sentBy(draft, "arztrechnung",
           {"Ärztefaktura Ost AG", "Medkasse Abrechnungsdienste", "Treuhandstelle Heilberufe"});
    draft.dated = QDate(draft.year, draft.random.between(4, 12), draft.random.between(1, 28));
    Facts facts;
    const Cents amount = draft.odd(80, 1900);
    facts.amounts = {{"amount", amount},
                     {"fee", draft.francs(10, 40, 5)},
                     {"interest", Cents{5} * draft.random.between(12, 190)}};
    facts.amounts["total"] = amount + facts.amounts["fee"] + facts.amounts["interest"];
    facts.texts = {{"doctor", draft.one("Dr. med. Fabienne Lutz|Praxis Dr. med. Gion Cathomas|"
                                        "Physio am Bach, Selina Roth")},
                   {"number", draft.random.digits(7)}};
    facts.dates["billed"] = draft.dated.addDays(-64);
    facts.dates["due"] = draft.dated.addDays(10);
    draft.record("medicalCost", draft.family.one)
        .amount("gross", amount)
        .text("provider", facts.texts["doctor"] + " | " + draft.issuer.name)
        .date("date", facts.dates["billed"]);
    return facts;
}

Facts sessionsFacts(Draft& draft) {
    sentBy(draft, "arztrechnung",
           {draft.t("Osteopathie Wyss", "Ostéopathie des Remparts", "Osteopatia Vedeggio"),
            draft.t("Physio Forum", "Physiothérapie du Parc Sàrl", "Fisioterapia Ponte Brolla"),
            draft.t("Logopädie Moser", "Logopédie Perrin", "Logopedia Crivelli")});
    draft.dated = draft.day();
    Facts facts;
    const Cents rate = draft.odd(48, 160);
    const int count = draft.random.between(3, 9);
    for (int i = 0; i < count; ++i) {
        Facts item;
        item.dates["on"] = draft.dated.addDays(-7 * (count - i));
        item.amounts["part"] = rate;
        facts.lists["items"].push_back(item);
    }
    facts.amounts = {{"rate", rate}, {"total", rate * count}};
    facts.texts = {{"count", QString::number(count)}, {"number", "F" + draft.random.digits(5)}};
    noteCost(draft, facts.amounts["total"]).date("date", draft.dated);
    return facts;
}

Facts workshopFacts(Draft& draft) {
    Facts facts = workshop(draft);
    facts.amounts["net"] = facts.amounts["sum"];
    withTax(draft, facts);
    return facts;
}

Facts workshopPaidFacts(Draft& draft) {
    Facts facts = workshop(draft);
    facts.amounts["discount"] = facts.amounts["sum"] * 3 / 100 / 5 * 5;
    facts.amounts["net"] = facts.amounts["sum"] - facts.amounts["discount"];
    withTax(draft, facts);
    facts.amounts["advance"] = facts.amounts["total"] / 2 / 10000 * 10000 + 5000;
    facts.amounts["rest"] = facts.amounts["total"] - facts.amounts["advance"];
    TruthRecord rest;
    rest.kind = "realEstate";
    rest.year = draft.year;
    draft.truth.accepted.push_back(rest.amount("actualMaintenanceCosts", facts.amounts["rest"]));
    return facts;
}

} // namespace corpus
