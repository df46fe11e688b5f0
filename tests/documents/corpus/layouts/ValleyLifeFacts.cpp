#include "tests/documents/corpus/layouts/ValleyFacts.h"

// Facts of charities and schools.

namespace corpus {
namespace {

void charity(Draft& draft) {
    draft.truth.kind = "spende";
    const std::vector<QString> names{
        draft.t("Stiftung Wasser für Dörfer", "Fondation Main Ouverte", ""),
        draft.t("Verein Kinderzirkus Morgenstern", "Association Petits Pas", ""),
        draft.t("Hilfswerk Brückenschlag", "Œuvre d'entraide Horizon Clair", ""),
        draft.t("Naturfonds Bergwiese", "Refuge des Hérissons", "")};
    draft.from(names, names);
}

void noteGift(Draft& draft, Cents amount) {
    draft.record("donation", draft.family.one)
        .amount("amount", amount)
        .text("recipient", draft.issuer.name);
}

void school(Draft& draft) {
    draft.truth.kind = "weiterbildung";
    const std::vector<QString> names{
        draft.t("Berufsakademie Ostwind", "École-Club du Rivage", ""),
        draft.t("Bildungshaus Steinegg", "Institut de Formation Clairière", ""),
        draft.t("Fachschule für Pflege und Betreuung Nord", "Centre d'études Belle-Roche", "")};
    draft.from(names, names);
}

void noteCourse(Draft& draft, Cents amount) {
    draft.record("personDeductions", draft.family.one).amount("furtherEducation", amount);
}

} // namespace

Facts valleyGiftsFacts(Draft& draft) {
    charity(draft);
    Facts facts;
    facts.amounts = {{"gift1", draft.francs(30, 600, 10)},
                     {"gift2", draft.francs(40, 1200, 20)},
                     {"project", draft.francs(40000, 300000, 5000)}};
    facts.amounts["amount"] = facts.amounts["gift1"] + facts.amounts["gift2"];
    facts.dates = {{"on1", QDate(draft.year, 3, draft.random.between(1, 28))},
                   {"on2", QDate(draft.year, 12, draft.random.between(1, 24))}};
    noteGift(draft, facts.amounts["amount"]);
    return facts;
}

Facts valleyPatronFacts(Draft& draft) {
    charity(draft);
    Facts facts;
    facts.amounts = {{"amount", draft.francs(120, 2400, 20)},
                     {"lottery", draft.francs(10, 90, 5)},
                     {"calendar", draft.francs(28, 46, 2)}};
    facts.amounts["all"] =
        facts.amounts["amount"] + facts.amounts["lottery"] + facts.amounts["calendar"];
    noteGift(draft, facts.amounts["amount"]);
    return facts;
}

Facts valleyGiftListFacts(Draft& draft) {
    charity(draft);
    Facts facts;
    const int count = draft.random.between(2, 6);
    for (int i = 1; i <= count; ++i) {
        Facts one;
        one.dates["on"] = QDate(draft.year, 2 * i, draft.random.between(1, 28));
        one.amounts["part"] = draft.francs(20, 350, 10);
        facts.amounts["amount"] += one.amounts["part"];
        facts.lists["gifts"].push_back(one);
    }
    facts.amounts["before"] = draft.francs(100, 900, 10);
    noteGift(draft, facts.amounts["amount"]);
    return facts;
}

Facts valleyOwnShareFacts(Draft& draft) {
    school(draft);
    Facts facts;
    const Cents price = draft.francs(3200, 16800, 100);
    const Cents employer = price / 4 / 500 * 500;
    const Cents grant = price / 3 / 500 * 500;
    facts.texts["course"] = draft.one("Vorbereitungskurs Berufsprüfung HR|Lehrgang Bauleitung "
                                      "Hochbau|Vorkurs Eidg. Diplom Wirtschaftsinformatik");
    facts.amounts = {{"price", price},
                     {"employer", employer},
                     {"grant", grant},
                     {"amount", price - employer - grant},
                     {"lesson", draft.odd(18, 46)}};
    noteCourse(draft, facts.amounts["amount"]);
    return facts;
}

Facts valleyModulesFacts(Draft& draft) {
    school(draft);
    Facts facts;
    for (int i = 1; i <= 4; ++i) {
        const bool earlier = i == 1;
        Facts one;
        one.texts = {
            {"name", QString("Modul %1").arg(i)},
            {"topic", QStringList{"Grundlagen", "Recht", "Praxis", "Diplomarbeit"}[i - 1]}};
        one.dates["on"] = QDate(draft.year - (earlier ? 1 : 0), earlier ? 10 : 3 * (i - 1), 20);
        const Cents price = draft.francs(450, 2800, 50);
        one.amounts = {{"earlier", earlier ? price : 0}, {"part", earlier ? 0 : price}};
        facts.amounts["earlier"] += one.amounts["earlier"];
        facts.amounts["amount"] += one.amounts["part"];
        facts.lists["modules"].push_back(one);
    }
    facts.amounts["all"] = facts.amounts["earlier"] + facts.amounts["amount"];
    noteCourse(draft, facts.amounts["amount"]);
    return facts;
}

Facts valleyCourseFacts(Draft& draft) {
    school(draft);
    Facts facts;
    facts.amounts = {{"fee", draft.francs(380, 5400, 20)},
                     {"material", draft.odd(30, 240)},
                     {"cancel", draft.francs(100, 300, 50)}};
    facts.amounts["amount"] = facts.amounts["fee"] + facts.amounts["material"];
    facts.dates["paid"] = draft.day();
    noteCourse(draft, facts.amounts["amount"]);
    return facts;
}

} // namespace corpus
