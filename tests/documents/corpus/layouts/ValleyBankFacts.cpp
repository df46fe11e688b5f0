#include "tests/documents/corpus/layouts/ValleyFacts.h"

// Facts of banks: accounts, loans and registers.

namespace corpus {
namespace {

void bank(Draft& draft) {
    draft.truth.kind = "bankauszug";
    const std::vector<QString> names{
        draft.t("Talbank Steinachtobel AG", "Banque Vallonnière SA", "Banca Val Fontanella SA"),
        draft.t("Kreditgenossenschaft Hinterberg", "Crédit Mutuel des Combes",
                "Cassa Rurale Tre Ponti"),
        draft.t("Leihkasse Obertoggenthal", "Caisse d'Épargne de la Sauge",
                "Credito Valligiano SA"),
        draft.t("Wirtschaftsbank am Fluss", "Comptoir Bancaire Rive-Gauche", "Banco Riva Alta")};
    draft.from(names, names);
}

void principalityBank(Draft& draft) {
    draft.family = Family::random(draft.random, draft.language, true);
    bank(draft);
    draft.issuer.name = draft.one("Burghalde Privatbank AG|Rheindamm Bank AG|Bank Silum & Partner");
    draft.issuer.place = draft.one("9490 Vaduz|9494 Schaan|9496 Balzers");
    draft.issuer.phone = "+423 " + draft.random.digits(3) + " " + draft.random.digits(4);
}

/// Interest of so many basis points, between both ends.
Cents yielded(Draft& draft, Cents balance, int low, int high) {
    return balance * draft.random.between(low, high) / 10000 / 5 * 5;
}

/// An account with its line of the register. Interest of up to 200 francs a year is paid in full.
Facts account(Draft& draft, const QString& name, Cents balance, Cents interest,
              const char* country = "CH") {
    const bool withheld = interest > 20000 && QString(country) == "CH";
    const Cents tax = withheld ? interest * 35 / 100 : 0;
    Facts facts;
    facts.texts = {{"name", name}, {"number", randomIban(draft.random, country)}};
    facts.amounts = {
        {"balance", balance}, {"interest", interest}, {"tax", tax}, {"net", interest - tax}};
    draft.record("security", draft.family.one)
        .text("ibanOrValor", QString(facts.texts["number"]).remove(' '))
        .text("institution", draft.issuer.name)
        .amount("taxValue", balance)
        .amount(withheld ? "incomeWithWithholding" : "incomeWithoutWithholding", interest);
    return facts;
}

/// An account whose interest is so many basis points of its balance.
Facts earning(Draft& draft, const QString& name, Cents balance, int low, int high) {
    const Cents interest = yielded(draft, balance, low, high);
    return account(draft, name, balance, interest);
}

QString everyday(Draft& draft) {
    return draft.t("Privatkonto Plus|Zahlungskonto Familie|Kontokorrent privat",
                   "Compte privé|Compte de famille", "Conto privato|Conto famiglia");
}

QString saved(Draft& draft) {
    return draft.t("Sparkonto 60+|Zielsparkonto|Vermögenssparen",
                   "Compte épargne placement|Compte épargne 60+",
                   "Conto risparmio investimento|Conto risparmio 60+");
}

/// A loan with its line among the debts.
Facts loan(Draft& draft, const QString& name, const QString& creditor) {
    const Cents debt = draft.francs(90000, 540000, 1000);
    const int rate = draft.random.between(95, 265);
    Facts facts;
    facts.texts = {{"name", name},
                   {"creditor", creditor},
                   {"number", draft.random.digits(4) + "." + draft.random.digits(4) + ".01"},
                   {"rate", QString::number(rate / 100.0, 'f', 2) + " %"}};
    facts.dates["until"] = QDate(draft.year + draft.random.between(1, 7), 6, 30);
    facts.amounts = {{"debt", debt},
                     {"interest", debt * rate / 10000 / 5 * 5},
                     {"redemption", draft.francs(1000, 8000, 500)},
                     {"accrued", debt * rate / 10000 / 24 / 5 * 5}};
    facts.amounts["before"] = debt + facts.amounts["redemption"];
    draft.record("debt", draft.family.one)
        .text("creditor", creditor)
        .amount("amount", debt)
        .amount("interest", facts.amounts["interest"]);
    return facts;
}

void sum(Facts& facts, const char* list, const char* part, const char* total) {
    for (const Facts& item : facts.lists[list]) {
        facts.amounts[total] += item.amounts.at(part);
    }
}

/// The register's total may be given besides its lines.
void acceptTotal(Draft& draft, Cents value, Cents withTax, Cents withoutTax) {
    TruthRecord total;
    total.kind = "security";
    total.year = draft.year;
    draft.truth.accepted.push_back(total.amount("taxValue", value)
                                       .amount("incomeWithWithholding", withTax)
                                       .amount("incomeWithoutWithholding", withoutTax));
}

void acceptDebtTotal(Draft& draft, Cents debt, Cents interest) {
    TruthRecord total;
    total.kind = "debt";
    total.year = draft.year;
    draft.truth.accepted.push_back(total.amount("amount", debt).amount("interest", interest));
}

void acceptAccounts(Draft& draft, const std::vector<Facts>& accounts) {
    Cents value = 0;
    Cents withTax = 0;
    Cents withoutTax = 0;
    for (const Facts& one : accounts) {
        value += one.amounts.at("balance");
        (one.amounts.at("tax") != 0 ? withTax : withoutTax) += one.amounts.at("interest");
    }
    acceptTotal(draft, value, withTax, withoutTax);
    acceptTotal(draft, value, withTax + withoutTax, 0);
    acceptTotal(draft, value, 0, withTax + withoutTax);
}

/// An account in another currency: what it is worth in francs belongs into the register.
Facts currencyAccount(Draft& draft, const QString& name, const char* code, int rate,
                      const char* country) {
    const Cents foreign = draft.odd(1800, 64000) + draft.random.between(0, 4);
    const Cents earned = yielded(draft, foreign, 20, 240);
    const auto inFrancs = [rate](Cents cents) { return (cents * rate + 5000) / 10000; };
    Facts facts = account(draft, name, inFrancs(foreign), inFrancs(earned), country);
    facts.texts["code"] = code;
    facts.texts["rate"] = QString::number(rate / 10000.0, 'f', 4);
    facts.amounts["foreign"] = foreign;
    facts.amounts["foreigninterest"] = earned;
    return facts;
}

Facts currencies(Draft& draft, const char* country) {
    Facts facts;
    std::vector<Facts>& accounts = facts.lists["accounts"];
    accounts.push_back(currencyAccount(draft, everyday(draft), "CHF", 10000, country));
    const int euro = draft.random.between(9200, 9890);
    accounts.push_back(
        currencyAccount(draft, draft.one("Fremdwährungskonto|Eurokonto"), "EUR", euro, country));
    if (draft.random.chance(60)) {
        const int dollar = draft.random.between(7900, 9300);
        accounts.push_back(currencyAccount(draft, "Dollarkonto", "USD", dollar, country));
    }
    for (const char* name : {"balance", "interest", "tax", "net"}) {
        sum(facts, "accounts", name, name);
    }
    facts.amounts["fee"] = draft.odd(24, 180);
    acceptAccounts(draft, accounts);
    return facts;
}

Facts share(Draft& draft, const QString& name, const char* kind, bool swiss) {
    Facts facts;
    const int count = draft.random.between(12, 640);
    const Cents price = draft.odd(18, 240);
    const Cents value = price * count;
    const Cents income = yielded(draft, value, 80, 380);
    facts.texts = {{"name", name},
                   {"kind", kind},
                   {"valor", draft.random.digits(swiss ? 7 : 8)},
                   {"count", QString::number(count)}};
    facts.amounts = {
        {"price", price}, {"value", value}, {"a", swiss ? income : 0}, {"b", swiss ? 0 : income}};
    draft.record("security", draft.family.one)
        .text("ibanOrValor", facts.texts["valor"])
        .text("institution", draft.issuer.name)
        .amount("quantity", Cents{100} * count)
        .amount("taxValue", value)
        .amount(swiss ? "incomeWithWithholding" : "incomeWithoutWithholding", income);
    return facts;
}

} // namespace

Facts valleyRelationFacts(Draft& draft) {
    bank(draft);
    Facts facts;
    const Cents first = draft.odd(300, 48000) + draft.random.between(0, 4);
    const Cents second = draft.odd(9000, 140000) + draft.random.between(0, 4);
    facts.lists["accounts"] = {earning(draft, everyday(draft), first, 0, 25),
                               earning(draft, saved(draft), second, 15, 110)};
    if (draft.random.chance(40)) {
        const Cents rent = draft.francs(2400, 7800, 100);
        facts.lists["accounts"].push_back(earning(
            draft, draft.t("Mietkautionskonto", "Compte garantie loyer", "Conto garanzia affitto"),
            rent, 5, 30));
    }
    facts.lists["loans"] = {
        loan(draft, draft.t("Festhypothek", "Hypothèque fixe", "Ipoteca a tasso fisso"),
             draft.issuer.name),
        loan(draft, draft.t("Geldmarkthypothek", "Hypothèque variable", "Ipoteca variabile"),
             draft.issuer.name)};
    sum(facts, "accounts", "balance", "assets");
    sum(facts, "accounts", "interest", "credit");
    sum(facts, "accounts", "tax", "tax");
    sum(facts, "loans", "debt", "debts");
    sum(facts, "loans", "interest", "paid");
    facts.amounts["rest"] = qAbs(facts.amounts["debts"] - facts.amounts["assets"]);
    facts.amounts["fee"] = draft.francs(24, 96, 12);
    acceptAccounts(draft, facts.lists["accounts"]);
    acceptDebtTotal(draft, facts.amounts["debts"], facts.amounts["paid"]);
    return facts;
}

Facts valleyCurrencyFacts(Draft& draft) {
    bank(draft);
    return currencies(draft, "CH");
}

Facts valleyPrincipalityFacts(Draft& draft) {
    principalityBank(draft);
    return currencies(draft, "LI");
}

Facts valleyOverdrawnFacts(Draft& draft) {
    bank(draft);
    Facts facts;
    const Cents debt = draft.odd(1400, 32000) + draft.random.between(0, 4);
    const Cents owed = yielded(draft, debt, 650, 980);
    facts.texts["number"] = randomIban(draft.random);
    facts.amounts = {{"debt", debt},
                     {"owed", owed},
                     {"commission", draft.odd(20, 190)},
                     {"postage", draft.odd(4, 40)},
                     {"limit", (debt / 1000000 + 1) * 1000000}};
    facts.amounts["charged"] = owed + facts.amounts["commission"] + facts.amounts["postage"];
    draft.record("debt", draft.family.one)
        .text("creditor", draft.issuer.name)
        .amount("amount", debt)
        .amount("interest", owed);
    const Cents balance = draft.odd(600, 90000);
    facts.lists["accounts"] = {earning(draft, saved(draft), balance, 15, 120)};
    return facts;
}

Facts valleyClosedFacts(Draft& draft) {
    bank(draft);
    Facts facts;
    const Cents payout = draft.odd(2000, 60000);
    const Cents last = yielded(draft, payout, 20, 90) + 5;
    Facts closed = account(draft, saved(draft), 0, last);
    closed.amounts["payout"] = payout + closed.amounts["net"];
    closed.amounts["charge"] = draft.francs(10, 60, 5);
    closed.dates["when"] = QDate(draft.year, draft.random.between(3, 10), 15);
    const Cents balance = draft.odd(800, 80000) + draft.random.between(0, 4);
    facts.lists["closed"] = {closed};
    facts.lists["accounts"] = {earning(draft, everyday(draft), balance, 5, 60)};
    return facts;
}

Facts valleyTwoYearFacts(Draft& draft) {
    bank(draft);
    Facts facts;
    for (const QString& name : {everyday(draft), saved(draft)}) {
        const Cents balance = draft.odd(700, 130000) + draft.random.between(0, 4);
        Facts one = earning(draft, name, balance, 8, 95);
        one.amounts["before"] = draft.odd(600, 110000) + draft.random.between(0, 4);
        one.amounts["interestbefore"] = yielded(draft, one.amounts["before"], 5, 60) + 5;
        one.amounts["fee"] = draft.odd(12, 84);
        facts.lists["accounts"].push_back(one);
    }
    sum(facts, "accounts", "balance", "balance");
    sum(facts, "accounts", "interest", "interest");
    sum(facts, "accounts", "tax", "tax");
    sum(facts, "accounts", "before", "before");
    sum(facts, "accounts", "interestbefore", "interestbefore");
    acceptAccounts(draft, facts.lists["accounts"]);
    return facts;
}

Facts valleyFeeFacts(Draft& draft) {
    bank(draft);
    const Cents balance = draft.odd(500, 95000) + draft.random.between(0, 4);
    Facts facts = earning(draft, everyday(draft), balance, 10, 70);
    int month = 3;
    for (const char* what : {"Kontoführung 1. Quartal", "Debitkarte, Jahresgebühr",
                             "Auslandzahlung, Spesen", "Kontoführung 2. Semester"}) {
        Facts one;
        one.texts["what"] = what;
        one.dates["on"] = QDate(draft.year, month, draft.random.between(1, 28));
        one.amounts["part"] = draft.odd(3, 72);
        facts.lists["bookings"].push_back(one);
        month += 3;
    }
    sum(facts, "bookings", "part", "fees");
    return facts;
}

Facts valleyTrancheFacts(Draft& draft) {
    bank(draft);
    Facts facts;
    const int count = draft.random.between(2, 3);
    for (int i = 1; i <= count; ++i) {
        facts.lists["loans"].push_back(
            loan(draft, QString("Tranche %1").arg(i), draft.issuer.name));
    }
    for (const char* name : {"debt", "interest", "before", "redemption", "accrued"}) {
        sum(facts, "loans", name, name);
    }
    facts.amounts["pledge"] = facts.amounts["before"] + draft.francs(50000, 200000, 10000);
    facts.amounts["fee"] = draft.francs(60, 240, 20);
    acceptDebtTotal(draft, facts.amounts["debt"], facts.amounts["interest"]);
    return facts;
}

Facts valleyRegisterFacts(Draft& draft) {
    bank(draft);
    draft.truth.kind = "steuerauszug";
    draft.truth.alsoKinds = QStringList{"bankauszug"};
    Facts facts;
    facts.lists["shares"] = {share(draft, "Kraftwerke Tobelbach AG", "Namenaktie", true),
                             share(draft, "Nordlys Shipping ASA", "Aktie", false)};
    facts.lists["funds"] = {share(draft, "Alpenblick Aktien Welt", "Fonds", false),
                            share(draft, "Alpenblick Immobilien", "Fonds", true)};
    for (const char* list : {"shares", "funds"}) {
        for (const char* name : {"value", "a", "b"}) {
            sum(facts, list, name, name);
        }
    }
    facts.amounts["tax"] = facts.amounts["a"] * 35 / 100;
    facts.amounts["costs"] = draft.odd(60, 620);
    acceptTotal(draft, facts.amounts["value"], facts.amounts["a"], facts.amounts["b"]);
    TruthRecord costs; // deductible instead of the flat rate, as the household decides
    costs.kind = "householdDeductions";
    costs.year = draft.year;
    draft.truth.accepted.push_back(
        costs.amount("actualAssetManagementCosts", facts.amounts["costs"]));
    return facts;
}

Facts valleyDebtRegisterFacts(Draft& draft) {
    bank(draft);
    draft.truth.kind = "bankauszug";
    draft.truth.alsoKinds = QStringList{"steuerauszug"};
    draft.issuer.name = draft.one("Treuhandbüro Löwenzahn|Buchhaltungsstube Weiher GmbH");
    Facts facts;
    facts.lists["loans"] = {loan(draft, "1. Hypothek", "Talbank Steinachtobel AG"),
                            loan(draft, "2. Hypothek", "Leihkasse Obertoggenthal"),
                            loan(draft, "Darlehen", "Erbengemeinschaft Loretan")};
    sum(facts, "loans", "debt", "debt");
    sum(facts, "loans", "interest", "interest");
    facts.amounts["leasing"] = draft.odd(280, 620);
    acceptDebtTotal(draft, facts.amounts["debt"], facts.amounts["interest"]);
    return facts;
}

} // namespace corpus
