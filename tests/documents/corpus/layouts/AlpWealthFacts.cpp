#include "tests/documents/corpus/layouts/AlpFacts.h"
#include "tests/documents/corpus/layouts/TownFacts.h"

// Facts of 3a foundations, of insurers with tied policies and of pension funds.

namespace corpus {
namespace {

/// Retroactive buy-ins into pillar 3a can be made from this year on, for the year before it.
constexpr int firstBuyInYear = 2026;

void foundation(Draft& draft) {
    sentBy(draft, "saeule3a",
           {draft.t("Vorsorgekasse Alpstein 3a", "Fondation Prévoyance Moléson",
                    "Fondazione Previdenza Ritom"),
            draft.t("Stiftung Drittsäule Hirschberg", "Fondation Troisième Âge d'Or",
                    "Fondazione Terza Via"),
            draft.t("Wertschriftenvorsorge Zweig AG", "Prévoyance Titres du Léman",
                    "Previdenza Titoli Brenno")});
}

void insurer(Draft& draft) {
    sentBy(draft, "saeule3a",
           {draft.t("Leben und Vorsorge Hundwil AG", "Vie et Prévoyance Dent-Blanche SA",
                    "Vita e Previdenza Basodino SA"),
            draft.t("Steinbock Lebensversicherung", "Bouquetin Vie SA", "Stambecco Vita SA")});
    draft.truth.alsoKinds = QStringList{"versicherung"};
}

void fund(Draft& draft) {
    sentBy(draft, "pensionskasse",
           {draft.t("Pensionskasse Nebelhorn", "Caisse de pensions du Jorat",
                    "Cassa pensioni Verzasca"),
            draft.t("Sammelstiftung Zukunft Berg", "Fondation collective Avenir Alpes",
                    "Fondazione collettiva Futuro"),
            draft.t("Personalvorsorge Sennhütte", "Prévoyance du personnel Rhodanie",
                    "Previdenza del personale Sole")});
}

TruthRecord& notePillar(Draft& draft, const Someone& person, Cents paid) {
    return draft.record("personDeductions", person).amount("pillar3a", paid);
}

void noteBuyIn(Draft& draft, const Someone& person, Cents paid) {
    draft.record("personDeductions", person).amount("pensionBuyIn", paid);
}

/// What a person with a pension fund may pay into 3a in the year.
Cents limitOf(const Draft& draft) {
    return draft.year < 2023 ? 688300 : draft.year < 2025 ? 705600 : 725800;
}

Facts payments(Draft& draft, int count, int most) {
    Facts facts;
    for (int i = 1; i <= count; ++i) {
        Facts one;
        one.dates["on"] = QDate(draft.year, 12 * i / count, draft.random.between(1, 28));
        one.amounts["part"] = draft.francs(100, most / count, 2);
        facts.amounts["paid"] += one.amounts["part"];
        facts.lists["payments"].push_back(one);
    }
    facts.amounts["limit"] = limitOf(draft);
    facts.texts["number"] = draft.random.digits(2) + "/" + draft.random.digits(7);
    return facts;
}

} // namespace

Facts alpRefusedFacts(Draft& draft) {
    foundation(draft);
    Facts facts = payments(draft, draft.random.between(2, 4), 7258);
    const Cents limit = limitOf(draft);
    // The last payment goes beyond what the law allows; what is too much goes back.
    Facts& last = facts.lists["payments"].back();
    const Cents rest = limit - (facts.amounts["paid"] - last.amounts["part"]);
    const Cents back = draft.francs(50, 1900, 10);
    last.amounts["part"] = rest + back;
    for (Facts& one : facts.lists["payments"]) {
        one.amounts["back"] = 0;
    }
    last.amounts["back"] = back;
    facts.dates["returned"] = draft.yearEnd().addDays(15);
    facts.amounts["got"] = limit + back;
    facts.amounts["back"] = back;
    facts.amounts["paid"] = limit;
    notePillar(draft, draft.family.one, limit);
    return facts;
}

Facts alpGapFacts(Draft& draft) {
    draft.year = firstBuyInYear;
    foundation(draft);
    Facts facts = payments(draft, draft.random.between(1, 3), 7258);
    // Only who paid the year's own contribution in full may fill a gap.
    Facts& last = facts.lists["payments"].back();
    last.amounts["part"] += limitOf(draft) - facts.amounts["paid"];
    facts.amounts["paid"] = limitOf(draft);
    const Cents paidBefore = draft.francs(600, 5200, 20);
    facts.amounts["paidbefore"] = paidBefore;
    facts.amounts["late"] = limitOf(draft) - paidBefore;
    facts.amounts["all"] = facts.amounts["paid"] + facts.amounts["late"];
    facts.dates["lateon"] = QDate(draft.year, 11, draft.random.between(1, 28));
    notePillar(draft, draft.family.one, facts.amounts["paid"])
        .amount("pillar3aBuyIn", facts.amounts["late"]);
    return facts;
}

Facts alpWaiverFacts(Draft& draft) {
    insurer(draft);
    Facts facts;
    const Cents month = draft.odd(140, 570);
    const int waived = draft.random.between(2, 8);
    facts.amounts = {{"month", month},
                     {"premium", 12 * month},
                     {"waived", waived * month},
                     {"paid", (12 - waived) * month},
                     {"surrender", draft.odd(2000, 69000)},
                     {"annuity", draft.francs(6000, 30000, 600)}};
    facts.texts = {{"waivedmonths", QString::number(waived)},
                   {"paidmonths", QString::number(12 - waived)},
                   {"number", draft.random.digits(3) + " " + draft.random.digits(5)}};
    facts.dates["until"] = QDate(draft.year, 1, 1).addMonths(waived).addDays(-1);
    notePillar(draft, draft.family.one, facts.amounts["paid"]);
    return facts;
}

Facts alpTwoPoliciesFacts(Draft& draft) {
    insurer(draft);
    Facts facts;
    for (const char* kind : {"tied", "free"}) {
        Facts policy;
        const Cents risk = draft.odd(90, 900);
        const Cents saving = draft.odd(600, 5200);
        policy.texts["number"] = draft.random.digits(2) + "." + draft.random.digits(6);
        policy.amounts = {{"risk", risk}, {"saving", saving}, {"premium", risk + saving}};
        for (const auto& [name, cents] : policy.amounts) {
            facts.amounts[kind + name] = cents;
            facts.amounts[name] += cents;
        }
        facts.texts[QString(kind) + "number"] = policy.texts["number"];
        facts.lists["policies"].push_back(policy);
    }
    notePillar(draft, draft.family.one, facts.amounts["tiedpremium"]);
    TruthRecord freePremium;
    freePremium.kind = "householdDeductions";
    freePremium.year = draft.year;
    draft.truth.accepted.push_back(
        freePremium.amount("lifeInsurancePremiums", facts.amounts["freepremium"]));
    return facts;
}

Facts alpContractColumnsFacts(Draft& draft) {
    foundation(draft);
    Facts facts;
    for (int q = 1; q <= 4; ++q) {
        Facts row;
        row.dates["on"] = QDate(draft.year, 3 * q, draft.random.between(1, 28));
        for (int k = 1; k <= 3; ++k) {
            const QString place = QString::number(k);
            const Cents part = (q + k) % 3 == 0 ? 0 : draft.francs(60, 780, 4);
            row.amounts["a" + place] = part;
            row.amounts["sum"] += part;
            facts.amounts["t" + place] += part;
            facts.amounts["paid"] += part;
        }
        facts.lists["rows"].push_back(row);
    }
    for (int k = 1; k <= 3; ++k) {
        facts.amounts["worth" + QString::number(k)] = draft.odd(3000, 42000);
    }
    facts.amounts["limit"] = limitOf(draft);
    notePillar(draft, draft.family.one, facts.amounts["paid"]);
    return facts;
}

Facts alpLeftFacts(Draft& draft) {
    foundation(draft);
    Facts facts = payments(draft, draft.random.between(1, 3), 6800);
    const Cents opening = draft.odd(26000, 88000);
    const Cents interest = opening / 150 / 5 * 5;
    facts.amounts["opening"] = opening;
    facts.amounts["interest"] = interest;
    facts.amounts["fee"] = draft.francs(20, 80, 5);
    facts.amounts["moved"] = opening * draft.random.between(20, 70) / 100 / 5 * 5;
    facts.amounts["closing"] =
        opening + facts.amounts["paid"] + interest - facts.amounts["fee"] - facts.amounts["moved"];
    facts.dates["movedon"] = QDate(draft.year, 12, draft.random.between(29, 30));
    notePillar(draft, draft.family.one, facts.amounts["paid"]);
    return facts;
}

Facts alpArrivedFacts(Draft& draft) {
    foundation(draft);
    Facts facts = payments(draft, draft.random.between(2, 4), 6800);
    facts.amounts["moved"] = draft.odd(4000, 52000);
    facts.amounts["gain"] = draft.odd(40, 2100);
    facts.amounts["worth"] = facts.amounts["moved"] + facts.amounts["paid"] + facts.amounts["gain"];
    facts.texts["movedday"] = englishDate(QDate(draft.year, 1, draft.random.between(4, 28)));
    for (Facts& one : facts.lists["payments"]) {
        one.texts["day"] = englishDate(one.dates["on"]);
    }
    notePillar(draft, draft.family.one, facts.amounts["paid"]);
    return facts;
}

Facts alpCoupleContractsFacts(Draft& draft) {
    foundation(draft);
    Facts facts;
    for (const Someone& who : {draft.family.one, draft.family.two}) {
        Facts person;
        person.texts = {{"who", who.name()}, {"number", who.number}};
        for (int i = draft.random.between(2, 3); i > 0; --i) {
            Facts contract;
            contract.texts["no"] = draft.random.digits(4) + "." + draft.random.digits(4);
            contract.amounts = {{"part", draft.francs(200, 2200, 4)},
                                {"worth", draft.odd(3000, 40000)}};
            person.amounts["paid"] += contract.amounts["part"];
            person.lists["contracts"].push_back(contract);
        }
        facts.lists["people"].push_back(person);
        notePillar(draft, who, person.amounts["paid"]);
    }
    return facts;
}

Facts alpPillarFormFacts(Draft& draft) {
    insurer(draft);
    Facts facts;
    facts.amounts["paid"] = draft.francs(600, 6880, 2);
    facts.amounts["worth"] = draft.francs(4000, 78000);
    notePillar(draft, draft.family.one, facts.amounts["paid"]);
    return facts;
}

Facts alpBuyInInterestFacts(Draft& draft) {
    fund(draft);
    Facts facts;
    for (int i = draft.random.between(2, 4); i > 0; --i) {
        Facts one;
        const QDate on(draft.year, 13 - 3 * i, draft.random.between(1, 28));
        const Cents part = draft.francs(2000, 24000, 500);
        const Cents interest = part * on.daysTo(draft.yearEnd()) * 150 / 3650000 / 5 * 5 + 5;
        one.dates["on"] = on;
        one.amounts = {{"part", part}, {"interest", interest}, {"credit", part + interest}};
        for (const auto& [name, cents] : one.amounts) {
            facts.amounts[name] += cents;
        }
        facts.lists["payments"].push_back(one);
    }
    facts.amounts["assets"] = draft.odd(90000, 640000);
    noteBuyIn(draft, draft.family.one, facts.amounts["part"]);
    return facts;
}

Facts alpBuyInSpousesFacts(Draft& draft) {
    fund(draft);
    Facts facts;
    facts.amounts = {{"amount", draft.francs(2000, 38000, 500)},
                     {"amount2", draft.francs(1500, 29500, 500)},
                     {"possible", draft.odd(9000, 80000)},
                     {"possible2", draft.odd(7000, 60000)}};
    facts.dates = {{"when", draft.day()}, {"when2", draft.day()}};
    noteBuyIn(draft, draft.family.one, facts.amounts["amount"]);
    noteBuyIn(draft, draft.family.two, facts.amounts["amount2"]);
    return facts;
}

Facts alpBuyInWageFacts(Draft& draft) {
    fund(draft);
    Facts facts;
    facts.amounts = {{"wage", draft.francs(1200, 9600, 1200)},
                     {"private", draft.francs(2000, 30000, 250)}};
    facts.amounts["all"] = facts.amounts["wage"] + facts.amounts["private"];
    facts.amounts["month"] = facts.amounts["wage"] / 12;
    facts.dates["when"] = draft.day();
    noteBuyIn(draft, draft.family.one, facts.amounts["private"]);
    return facts;
}

Facts alpBuyInPlanFacts(Draft& draft) {
    fund(draft);
    Facts facts;
    const Cents before = draft.francs(5000, 30000, 1000);
    const Cents amount = draft.francs(4000, 25000, 500);
    const Cents rest = draft.francs(6000, 40000, 500);
    facts.amounts = {
        {"before", before}, {"amount", amount}, {"rest", rest}, {"agreed", before + amount + rest}};
    facts.dates["when"] = draft.day();
    facts.texts["day"] = englishDate(facts.dates["when"]);
    noteBuyIn(draft, draft.family.one, amount);
    return facts;
}

Facts alpBuyInFirmFacts(Draft& draft) {
    fund(draft);
    Facts facts;
    facts.amounts = {{"firm", draft.francs(1000, 12000, 500)},
                     {"amount", draft.francs(2500, 28000, 500)},
                     {"possible", draft.odd(10000, 99000)}};
    facts.amounts["all"] = facts.amounts["firm"] + facts.amounts["amount"];
    facts.dates = {{"when", draft.day()}};
    noteBuyIn(draft, draft.family.one, facts.amounts["amount"]);
    return facts;
}

} // namespace corpus
