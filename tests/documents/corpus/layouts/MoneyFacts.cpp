#include "tests/documents/corpus/layouts/Facts.h"
#include "tests/documents/corpus/layouts/Salary.h"

// Facts of banks, foundations, insurers and pay offices.

namespace corpus {

void issuedBy(Draft& draft, const char* kind, const std::vector<QString>& names) {
    draft.truth.kind = kind;
    draft.from(names, names);
}
namespace {

Facts pillar(Draft& draft, bool late) {
    issuedBy(draft, "saeule3a",
             {draft.t("Freie Vorsorge Calanda", "Prévoyance Chasseron", "Previdenza Campolungo"),
              draft.t("3a-Stiftung Regiobank Thur", "Fondation 3a Orbe", "Fondazione 3a Maggia"),
              draft.t("Hospiz Lebensversicherung AG", "Vie Jaman SA", "Vita Camoghè SA"),
              draft.t("Digital-Vorsorge Kompass AG", "Boussole Prévoyance SA", "Bussola 3a SA")});
    Facts facts;
    const int count = draft.random.between(1, 4);
    Cents paid = 0;
    for (int i = 1; i <= count; ++i) {
        Facts one;
        one.dates["on"] = QDate(draft.year, 3 * i, draft.random.between(1, 28));
        one.amounts["part"] = draft.francs(100, 1760, 4);
        paid += one.amounts["part"];
        facts.lists["payments"].push_back(one);
    }
    const Cents opening = draft.random.chance(5) ? 0 : draft.odd(1500, 88000);
    const Cents interest = opening / 180 / 5 * 5 + 5;
    facts.amounts = {{"paid", paid},
                     {"opening", opening},
                     {"interest", interest},
                     {"closing", opening + paid + interest},
                     {"limit", draft.year < 2023   ? 688300
                               : draft.year < 2025 ? 705600
                                                   : 725800},
                     {"fee", draft.francs(12, 48, 2)}};
    TruthRecord& record = draft.record("personDeductions", draft.family.one);
    record.amount("pillar3a", paid);
    if (late) {
        facts.amounts["late"] = draft.francs(600, 6800, 20);
        record.amount("pillar3aBuyIn", facts.amounts["late"]);
    }
    return facts;
}

void bank(Draft& draft) {
    issuedBy(
        draft, "bankauszug",
        {draft.t("Bergbank Calfeisen AG", "Banque de la Broye SA", "Banca Verbano SA"),
         draft.t("Genossenschaftsbank Neckertal", "Caisse Mutuelle Ajoie", "Cassa Mutua Onsernone"),
         draft.t("Spar- und Leihkasse Werdenberg", "Épargne du Vully", "Risparmio Capriasca"),
         draft.t("Privatbank Seeblick & Cie", "Comptoir Lavaux & Cie", "Credito Gambarogno")});
}

Facts account(Draft& draft, const QString& name, const char* country) {
    Facts facts;
    const Cents balance = draft.odd(90, 120000) + draft.random.between(0, 4);
    const Cents interest = draft.random.chance(10) ? 0 : draft.odd(1, 720);
    const bool withheld = interest > 20000 && QString(country) == "CH";
    const Cents tax = withheld ? interest * 35 / 100 : 0;
    facts.texts = {{"name", name}, {"number", randomIban(draft.random, country)}};
    facts.amounts = {{"balance", balance},
                     {"interest", interest},
                     {"tax", tax},
                     {"net", interest - tax},
                     {"moved", balance + draft.odd(2000, 40000)}};
    draft.record("security", draft.family.one)
        .text("ibanOrValor", QString(facts.texts["number"]).remove(' '))
        .text("institution", draft.issuer.name)
        .amount("taxValue", balance)
        .amount(withheld ? "incomeWithWithholding" : "incomeWithoutWithholding", interest);
    return facts;
}

QString accountName(Draft& draft, int place) {
    switch (place) {
    case 0:
        return draft.t("Lohnkonto|Alltagskonto|Zahlungskonto|Konto privat",
                       "Compte salaire|Compte courant privé|Compte quotidien",
                       "Conto salario|Conto quotidiano|Conto pagamenti");
    case 1:
        return draft.t("Sparkonto|Anlagesparkonto|Sparheft|Bonus-Sparkonto",
                       "Compte d'épargne|Livret d'épargne|Épargne bonus",
                       "Conto di risparmio|Libretto di risparmio|Risparmio bonus");
    default:
        return draft.t("Geschenksparkonto|Eurokonto in CHF|Depotkonto",
                       "Compte dépôt|Compte jeunesse", "Conto deposito|Conto gioventù");
    }
}

Facts accounts(Draft& draft) {
    bank(draft);
    Facts facts;
    const int count = draft.random.between(2, 3);
    for (int i = 0; i < count; ++i) {
        facts.lists["accounts"].push_back(account(draft, accountName(draft, i), "CH"));
        for (const char* name : {"balance", "interest", "tax", "net"}) {
            facts.amounts[name] += facts.lists["accounts"].back().amounts[name];
        }
    }
    return facts;
}

Facts loan(Draft& draft, const QString& name) {
    Facts facts;
    const Cents debt = draft.francs(60000, 820000, 500);
    const int rate = draft.random.between(85, 290);
    const Cents interest = debt * rate / 10000 / 5 * 5;
    facts.texts = {{"name", name},
                   {"number", draft.random.digits(2) + "-" + draft.random.digits(7)},
                   {"rate", QString::number(rate / 100.0, 'f', 2) + " %"}};
    facts.amounts = {{"debt", debt},
                     {"interest", interest},
                     {"redemption", draft.francs(500, 9500, 250)},
                     {"value", debt * 3 / 2 / 100000 * 100000}};
    facts.amounts["before"] = debt + facts.amounts["redemption"];
    const Cents quarter = interest / 4 / 5 * 5;
    for (int i = 1; i <= 4; ++i) {
        Facts part;
        part.dates["on"] = QDate(draft.year, 3 * i, QDate(draft.year, 3 * i, 1).daysInMonth());
        part.amounts["part"] = i < 4 ? quarter : interest - 3 * quarter;
        facts.lists["quarters"].push_back(part);
    }
    draft.record("debt", draft.family.one)
        .text("creditor", draft.issuer.name)
        .amount("amount", debt)
        .amount("interest", interest);
    return facts;
}

void noteSharing(Draft& draft, const Facts& facts) {
    for (const char* name : {"franchise", "retention", "sharing"}) {
        TruthRecord cost;
        cost.kind = "medicalCost";
        cost.year = draft.year;
        draft.truth.accepted.push_back(cost.amount("gross", facts.amounts.at(name)));
    }
}

Facts premiums(Draft& draft) {
    issuedBy(
        draft, "krankenkasse",
        {draft.t("Gesundheitskasse Altmann", "Caisse-maladie Moléson", "Cassa malati Basodino"),
         draft.t("Helvida Krankenversicherung", "Helvida Assurance-maladie",
                 "Helvida Assicurazione malattia"),
         draft.t("Kranken- und Unfallkasse Speer", "Assurance Santé Suchet", "Salus Ticina SA"),
         draft.t("Prima Vita Versicherung AG", "Prima Vita Assurances SA",
                 "Prima Vita Assicurazioni SA")});
    Facts facts;
    const Cents basic = draft.odd(190, 520);
    const Cents extra = draft.odd(9, 140);
    const Cents reduction = draft.random.chance(50) ? draft.odd(240, 2600) : 0;
    const Cents franchise =
        draft.random.pick(std::vector<Cents>{30000, 50000, 100000, 150000, 200000, 250000});
    const Cents retention = draft.odd(5, 700);
    facts.amounts = {{"basicmonth", basic},
                     {"extramonth", extra},
                     {"basic", 12 * basic},
                     {"extra", 12 * extra},
                     {"total", 12 * (basic + extra)},
                     {"reduction", reduction},
                     {"net", 12 * (basic + extra) - reduction},
                     {"franchise", franchise},
                     {"retention", retention},
                     {"sharing", franchise + retention},
                     {"paidout", draft.odd(800, 9000)}};
    noteSharing(draft, facts);
    return facts;
}

Facts policy(Draft& draft, bool premium) {
    issuedBy(draft, "versicherung",
             {"Hospiz Lebensversicherung AG", "Vita Rhenana", "Falknis Leben AG",
              "Helvetische Lebensgenossenschaft Tödi"});
    Facts facts;
    const Cents sum = draft.francs(15000, 300000, 500);
    const Cents surrender =
        sum * draft.random.between(10, 90) / 100 / 5 * 5 + draft.random.between(0, 9);
    facts.texts = {{"number", draft.random.digits(3) + "/" + draft.random.digits(5)}};
    facts.amounts = {{"sum", sum},
                     {"surrender", surrender},
                     {"premium", draft.odd(480, 7200)},
                     {"bonus", draft.odd(40, 1900)},
                     {"death", sum + draft.francs(5000, 40000, 1000)}};
    facts.amounts["bare"] = surrender - facts.amounts["bonus"] / 2 - 35;
    draft.record("insurancePolicy", draft.family.one)
        .text("company", draft.issuer.name)
        .amount("surrenderValue", surrender)
        .amount("sumInsured", sum);
    if (premium) {
        draft.record("householdDeductions", draft.family.one)
            .amount("lifeInsurancePremiums", facts.amounts["premium"]);
    }
    return facts;
}

void fund(Draft& draft) {
    issuedBy(draft, "pensionskasse",
             {"Vorsorgewerk Textil und Papier", "Pensionskasse der Gemeinden am Ricken",
              "Sammeleinrichtung Kurfirst BVG", "Personalstiftung Galvanik Rhein",
              "Autonome Pensionskasse Fürstenau"});
}

Facts salary(Draft& draft) {
    const Salary s = randomSalary(draft, false, draft.family.one);
    draft.truth.kind = "lohnausweis";
    Facts facts;
    facts.dates = {{"from", s.from}, {"until", s.until}};
    facts.amounts = {{"base", s.base + s.car + s.shares + s.other},
                     {"bonus", s.bonus},
                     {"gross", s.gross},
                     {"social", s.social},
                     {"bvg", s.regular},
                     {"bvgbuy", s.buyIn},
                     {"net", s.net},
                     {"deductions", s.social + s.regular + s.buyIn},
                     {"atsource", s.atSource},
                     {"expenses", s.expenses},
                     {"children", draft.francs(200, 500, 10) * 12},
                     {"employer", s.social * 21 / 20 / 5 * 5}};
    facts.amounts["payout"] = s.net + s.expenses + facts.amounts["children"];
    return facts;
}

} // namespace

Facts pillarFacts(Draft& draft) { return pillar(draft, false); }
Facts pillarBuyInFacts(Draft& draft) { return pillar(draft, true); }

Facts pillarCoupleFacts(Draft& draft) {
    Facts facts = pillar(draft, false);
    facts.amounts["paid2"] = draft.francs(400, 7000, 4);
    facts.amounts["both"] = facts.amounts["paid"] + facts.amounts["paid2"];
    draft.record("personDeductions", draft.family.two).amount("pillar3a", facts.amounts["paid2"]);
    return facts;
}

Facts accountFacts(Draft& draft) {
    bank(draft);
    return account(draft, accountName(draft, draft.random.between(0, 2)), "CH");
}

Facts accountsFacts(Draft& draft) { return accounts(draft); }

Facts foreignAccountFacts(Draft& draft) {
    draft.family = Family::random(draft.random, draft.language, true);
    issuedBy(draft, "bankauszug", {"Bank am Dreischwesternweg AG", "Fürstensteig Privatbank AG"});
    draft.issuer.place = "9490 Vaduz";
    draft.issuer.phone = "+423 " + draft.random.digits(3) + " " + draft.random.digits(4);
    return account(draft, accountName(draft, 1), "LI");
}

Facts loanFacts(Draft& draft) {
    bank(draft);
    return loan(draft, draft.one("Festhypothek|SARON-Hypothek|1. Hypothek|Variable Hypothek"));
}

Facts loansFacts(Draft& draft) {
    bank(draft);
    Facts facts;
    const int count = draft.random.between(2, 3);
    for (int i = 0; i < count; ++i) {
        facts.lists["loans"].push_back(
            loan(draft, QStringList{"Festhypothek 5 Jahre", "SARON-Hypothek", "Baukredit"}[i]));
        for (const char* name : {"debt", "interest"}) {
            facts.amounts[name] += facts.lists["loans"].back().amounts[name];
        }
    }
    return facts;
}

Facts bankMixFacts(Draft& draft) {
    Facts facts = accounts(draft);
    facts.lists["loans"].push_back(loan(draft, "Hypothek"));
    return facts;
}

Facts premiumFacts(Draft& draft) {
    const Facts facts = premiums(draft);
    draft.record("householdDeductions", draft.family.one)
        .amount("healthInsurancePremiums", facts.amounts.at("total"))
        .amount("premiumReduction", facts.amounts.at("reduction"));
    return facts;
}

Facts premiumFamilyFacts(Draft& draft) {
    Facts facts = premiums(draft);
    facts.amounts["basic"] = facts.amounts["extra"] = facts.amounts["total"] = 0;
    for (const Someone& who : {draft.family.one, draft.family.two, draft.family.child}) {
        const bool child = who.number == draft.family.child.number;
        Facts one;
        one.texts["who"] = who.name();
        one.amounts["basic"] = 12 * (child ? draft.odd(60, 120) : draft.odd(230, 480));
        one.amounts["extra"] = 12 * (child ? draft.odd(4, 15) : draft.odd(12, 90));
        one.amounts["total"] = one.amounts["basic"] + one.amounts["extra"];
        for (const char* name : {"basic", "extra", "total"}) {
            facts.amounts[name] += one.amounts[name];
        }
        facts.lists["people"].push_back(one);
    }
    facts.amounts["net"] = facts.amounts["total"] - facts.amounts["reduction"];
    draft.record("householdDeductions", draft.family.one)
        .amount("healthInsurancePremiums", facts.amounts["total"])
        .amount("premiumReduction", facts.amounts["reduction"]);
    return facts;
}

Facts policyFacts(Draft& draft) { return policy(draft, false); }
Facts policyPremiumFacts(Draft& draft) { return policy(draft, true); }

Facts buyInFacts(Draft& draft) {
    fund(draft);
    Facts facts;
    const Cents amount = draft.francs(2500, 75000, 250);
    facts.amounts = {{"amount", amount},
                     {"possible", draft.odd(8000, 120000)},
                     {"assets", draft.odd(70000, 800000)},
                     {"salary", draft.francs(48000, 128000, 100)}};
    facts.amounts["before"] = facts.amounts["possible"] + amount;
    facts.dates["when"] = draft.day();
    draft.record("personDeductions", draft.family.one).amount("pensionBuyIn", amount);
    return facts;
}

Facts buyInsFacts(Draft& draft) {
    fund(draft);
    Facts facts;
    for (int i = draft.random.between(2, 3); i > 0; --i) {
        Facts one;
        one.amounts["part"] = draft.francs(1000, 25000, 250);
        one.dates["on"] = QDate(draft.year, 13 - 3 * i, draft.random.between(1, 28));
        facts.amounts["total"] += one.amounts["part"];
        facts.lists["payments"].push_back(one);
    }
    facts.amounts["assets"] = draft.odd(70000, 800000);
    draft.record("personDeductions", draft.family.one)
        .amount("pensionBuyIn", facts.amounts["total"]);
    return facts;
}

Facts pensionFacts(Draft& draft) {
    fund(draft);
    draft.truth.alsoKinds = QStringList{"lohnausweis"};
    const Cents month = draft.odd(450, 5200);
    TruthRecord& record = draft.record("pension", draft.family.one);
    record.birthDate = draft.family.one.birth;
    record.amount("amount", 12 * month);
    Facts facts;
    facts.amounts = {{"month", month},
                     {"amount", 12 * month},
                     {"coming", month + 2500},
                     {"capital", draft.odd(120000, 700000)}};
    return facts;
}

Facts pensionPartsFacts(Draft& draft) {
    fund(draft);
    draft.truth.alsoKinds = QStringList{"lohnausweis"};
    Facts facts;
    for (const char* name : {"Altersrente", "Teuerungszulage", "Überbrückungsrente"}) {
        Facts part;
        part.texts["name"] = name;
        part.amounts["month"] = draft.odd(60, 2400);
        part.amounts["part"] = 12 * part.amounts["month"];
        facts.amounts["amount"] += part.amounts["part"];
        facts.lists["parts"].push_back(part);
    }
    TruthRecord& record = draft.record("pension", draft.family.one);
    record.birthDate = draft.family.one.birth;
    record.amount("amount", facts.amounts["amount"]);
    return facts;
}

Facts salaryFacts(Draft& draft) {
    employerOf(draft);
    draft.issuer.name = draft.random.pick(std::vector<QString>{
        draft.t("Sägerei Hemberg AG", "Scierie du Gros-de-Vaud SA", "Segheria Blenio SA"),
        draft.t("Altersheim Sonnmatt", "EMS Les Peupliers", "Casa di riposo Mimosa"),
        draft.t("Hotel Alpenglühen GmbH", "Hôtel du Belvédère Sàrl", "Albergo Belsito Sagl"),
        draft.t("Elektro Rüthi AG", "Électricité Jorat SA", "Elettro Vedeggio SA")});
    return salary(draft);
}

Facts principalitySalaryFacts(Draft& draft) {
    draft.family = Family::random(draft.random, draft.language, true);
    employerOf(draft);
    draft.issuer.name = draft.one("Präzisionswerk Eschnerberg AG|Treuhand Gutenberg Anstalt|"
                                  "Bauunternehmung Ruggell AG");
    draft.issuer.place = draft.one("9490 Vaduz|9494 Schaan|9487 Gamprin|9491 Ruggell");
    draft.issuer.phone = "+423 " + draft.random.digits(3) + " " + draft.random.digits(4);
    return salary(draft);
}

} // namespace corpus
