#include "tests/documents/corpus/layouts/LakeFacts.h"

#include <algorithm>

// Facts of accounts, loans and portfolios.

namespace corpus {
namespace {

void bank(Draft& draft) {
    lakeSender(draft, "bankauszug",
               {draft.t("Seebank Hafenegg AG", "Banque des Roselières SA", "Banca del Canneto SA"),
                draft.t("Uferkasse Genossenschaft", "Caisse du Débarcadère", "Cassa Darsena"),
                draft.t("Sparinstitut Schilfried", "Crédit Lacustre SA", "Credito Lacuale SA"),
                draft.t("Bankhaus Möwe & Söhne", "Mouette & Fils, banquiers", "Gabbiano & Figli")});
}

/// The tax on interest beyond 200 francs a year.
Cents withheld(Cents interest) { return interest > 20000 ? interest * 35 / 100 : 0; }

Facts account(Draft& draft, const Someone& owner, const QString& name, Cents balance,
              Cents interest) {
    const Cents tax = withheld(interest);
    Facts facts;
    facts.texts = {{"name", name}, {"number", randomIban(draft.random)}};
    facts.amounts = {
        {"balance", balance},    {"interest", interest},         {"tax", tax},
        {"net", interest - tax}, {"a", tax != 0 ? interest : 0}, {"b", tax != 0 ? 0 : interest}};
    draft.record("security", owner)
        .text("ibanOrValor", QString(facts.texts["number"]).remove(' '))
        .text("institution", draft.issuer.name)
        .amount("taxValue", balance)
        .amount("incomeWithWithholding", facts.amounts["a"])
        .amount("incomeWithoutWithholding", facts.amounts["b"]);
    return facts;
}

Cents some(Draft& draft, int low, int high) {
    return draft.odd(low, high) + draft.random.between(0, 4);
}

/// So many basis points of a sum, between both ends, in steps of five rappen.
Cents points(Draft& draft, Cents sum, int low, int high) {
    return sum * draft.random.between(low, high) / 10000 / 5 * 5 + 5;
}

Facts everyday(Draft& draft, const Someone& owner) {
    const Cents balance = some(draft, 250, 39000);
    return account(draft, owner,
                   draft.t("Zahlkonto|Girokonto privat|Haushaltkonto",
                           "Compte de paiement|Compte ménage",
                           "Conto pagamenti|Conto economia domestica"),
                   balance, points(draft, balance, 1, 25));
}

Facts savings(Draft& draft, const Someone& owner) {
    const Cents balance = some(draft, 6000, 150000);
    return account(draft, owner,
                   draft.t("Sparkonto|Rücklagenkonto|Ferienkonto|Anlagekonto",
                           "Compte épargne|Compte réserve|Compte vacances",
                           "Conto risparmio|Conto riserva|Conto vacanze"),
                   balance, points(draft, balance, 20, 120));
}

void noteDebt(Draft& draft, Cents amount, Cents interest) {
    draft.record("debt", draft.family.one)
        .text("creditor", draft.issuer.name)
        .amount("amount", amount)
        .amount("interest", interest);
}

Facts loan(Draft& draft, const QString& name, Cents debt) {
    const int rate = draft.random.between(88, 279);
    Facts facts;
    facts.texts = {{"name", name},
                   {"number", draft.random.digits(3) + "." + draft.random.digits(5)},
                   {"rate", QString::number(rate / 100.0, 'f', 2) + " %"}};
    facts.dates["until"] = QDate(draft.year + draft.random.between(1, 8), 9, 30);
    facts.amounts = {{"debt", debt},
                     {"interest", debt * rate / 10000 / 5 * 5},
                     {"redemption", draft.francs(1000, 9000, 500)},
                     {"accrued", debt * rate / 10000 / 8 / 5 * 5}};
    facts.amounts["before"] = debt + facts.amounts["redemption"];
    noteDebt(draft, debt, facts.amounts["interest"]);
    return facts;
}

QString fixedLoan(Draft& draft) {
    return draft.t("Festhypothek|Fixhypothek 8 Jahre", "Hypothèque à taux fixe|Prêt hypothécaire",
                   "Ipoteca fissa|Mutuo ipotecario");
}

QString floatingLoan(Draft& draft) {
    return draft.t("Saron-Hypothek|Rollhypothek", "Hypothèque Saron|Prêt à taux variable",
                   "Ipoteca Saron|Mutuo variabile");
}

/// An item of a grid with every column of it; what it lacks stays empty.
Facts inGrid(Facts item, const QString& kind) {
    for (const char* name : {"balance", "debt", "a", "b", "tax", "owed"}) {
        item.amounts.try_emplace(name, 0);
    }
    if (item.amounts["debt"] != 0) {
        item.amounts["owed"] = item.amounts["interest"];
    }
    item.texts["kind"] = kind;
    return item;
}

Facts depot(Draft& draft) {
    Facts facts;
    const Cents value = some(draft, 18000, 260000);
    const Cents taxed = points(draft, value, 40, 140);
    const Cents free = points(draft, value, 20, 110);
    facts.texts = {{"name", draft.t("Wertschriftendepot|Depot", "Dépôt de titres|Dossier titres",
                                    "Deposito titoli|Dossier titoli")},
                   {"number", draft.random.digits(3) + "-" + draft.random.digits(6)}};
    facts.amounts = {{"balance", value},
                     {"a", taxed},
                     {"b", free},
                     {"interest", taxed + free},
                     {"tax", taxed * 35 / 100}};
    draft.record("security", draft.family.one)
        .text("institution", draft.issuer.name)
        .amount("taxValue", value)
        .amount("incomeWithWithholding", taxed)
        .amount("incomeWithoutWithholding", free);
    return facts;
}

/// An international number of a security, with its check digit.
QString isinOf(const QString& country, const QString& nine) {
    const QString body = country + nine;
    QString digits;
    for (const QChar letter : body) {
        digits +=
            letter.isDigit() ? QString(letter) : QString::number(letter.unicode() - u'A' + 10);
    }
    int sum = 0;
    bool twice = true;
    for (qsizetype i = digits.size() - 1; i >= 0; --i) {
        const int value = digits[i].digitValue() * (twice ? 2 : 1);
        sum += value / 10 + value % 10;
        twice = !twice;
    }
    return body + QString::number((10 - sum % 10) % 10);
}

/// A position with its line of the register; without a value it was sold in the year.
Facts position(Draft& draft, const QString& name, bool swiss, bool sold = false) {
    Facts facts;
    const int count = draft.random.between(8, 480);
    const Cents price = draft.odd(21, 310);
    const Cents value = price * count;
    const Cents income = points(draft, value, 60, 360);
    const QString isin =
        swiss ? isinOf("CH", "00" + draft.random.digits(7)) : isinOf("US", draft.random.digits(9));
    facts.texts = {{"name", name}, {"isin", isin}, {"count", QString::number(count)}};
    facts.amounts = {
        {"price", price},         {"value", sold ? 0 : value},
        {"proceeds", value},      {"cost", value * draft.random.between(70, 130) / 100 / 5 * 5},
        {"income", income},       {"a", swiss ? income : 0},
        {"b", swiss ? 0 : income}};
    facts.dates = {{"moved", draft.day()}, {"paid", draft.day()}};
    TruthRecord& record = draft.record("security", draft.family.one);
    record.text("ibanOrValor", isin).text("institution", draft.issuer.name);
    if (!sold) {
        record.amount("quantity", Cents{100} * count);
    }
    record.amount("taxValue", facts.amounts["value"])
        .amount(swiss ? "incomeWithWithholding" : "incomeWithoutWithholding", income);
    return facts;
}

QString shareOf(Cents part, Cents whole) {
    return QString::number(100.0 * static_cast<double>(part) / static_cast<double>(whole), 'f', 1)
           + " %";
}

/// An account in another currency, in francs by its rate.
Facts foreign(Draft& draft, const char* code, int rate) {
    const Cents sum = some(draft, 1500, 52000);
    const Cents earned = points(draft, sum, 10, 180);
    const auto francs = [rate](Cents cents) { return (cents * rate + 5000) / 10000; };
    Facts facts = account(draft, draft.family.one,
                          draft.t("Fremdwährungskonto", "Compte en devises", "Conto in valuta"),
                          francs(sum), francs(earned));
    facts.texts["code"] = code;
    facts.texts["course"] = QString::number(rate / 10000.0, 'f', 4);
    facts.amounts["foreign"] = sum;
    facts.amounts["foreigninterest"] = earned;
    return facts;
}

} // namespace

Facts lakeMixFacts(Draft& draft) {
    bank(draft);
    Facts facts;
    facts.lists["accounts"] = {everyday(draft, draft.family.one), savings(draft, draft.family.one)};
    facts.lists["loans"] = {loan(draft, fixedLoan(draft), draft.francs(120000, 520000, 1000))};
    if (draft.random.chance(50)) {
        facts.lists["loans"].push_back(
            loan(draft, floatingLoan(draft), draft.francs(40000, 260000, 1000)));
    }
    facts.lists["depots"] = {depot(draft)};
    std::vector<Facts>& rows = facts.lists["rows"];
    for (const auto& [list, kind] : std::vector<std::pair<const char*, QString>>{
             {"accounts", draft.t("Konto", "Compte", "Conto")},
             {"loans", draft.t("Kredit", "Crédit", "Credito")},
             {"depots", draft.t("Depot", "Titres", "Titoli")}}) {
        for (const Facts& item : facts.lists[list]) {
            rows.push_back(inGrid(item, kind));
        }
    }
    const int first = draft.random.between(0, static_cast<int>(rows.size()) - 1);
    std::rotate(rows.begin(), rows.begin() + first, rows.end());
    for (const char* name : {"balance", "debt", "a", "b", "tax", "owed"}) {
        total(facts, "rows", name, name);
    }
    facts.amounts["fee"] = draft.odd(20, 260);
    acceptSums(draft);
    return facts;
}

Facts lakeCardFacts(Draft& draft) {
    bank(draft);
    Facts facts;
    facts.lists["accounts"] = {everyday(draft, draft.family.one), savings(draft, draft.family.one),
                               savings(draft, draft.family.one)};
    facts.lists["accounts"].back().texts["name"] =
        draft.t("Jugendsparkonto|Mietkaution", "Épargne jeunesse|Garantie de loyer",
                "Risparmio gioventù|Garanzia di locazione");
    if (draft.random.chance(60)) {
        facts.lists["loans"] = {loan(draft, fixedLoan(draft), draft.francs(90000, 600000, 1000))};
    }
    acceptSums(draft);
    return facts;
}

Facts lakeClosureFacts(Draft& draft) {
    bank(draft);
    const Cents opening = some(draft, 3000, 90000);
    Facts facts = account(draft, draft.family.one,
                          draft.t("Sparkonto", "Compte épargne placement", "Conto risparmio plus"),
                          0, points(draft, opening, 20, 110));
    facts.amounts["opening"] = opening;
    facts.amounts["charge"] = draft.francs(10, 50, 5);
    facts.amounts["payout"] = opening + facts.amounts["net"] - facts.amounts["charge"];
    facts.amounts["debits"] = facts.amounts["tax"] + facts.amounts["charge"];
    facts.dates["when"] = QDate(draft.year, draft.random.between(2, 11), 20);
    facts.texts["target"] = randomIban(draft.random);
    return facts;
}

Facts lakeQuartersFacts(Draft& draft) {
    bank(draft);
    Facts facts;
    for (const QString& name : {fixedLoan(draft), floatingLoan(draft)}) {
        Facts one = loan(draft, name, draft.francs(70000, 450000, 1000));
        const Cents quarter = one.amounts["interest"] / 4 / 5 * 5;
        for (int i = 1; i <= 4; ++i) {
            Facts part;
            part.dates["on"] = QDate(draft.year, 3 * i, 30 + (i == 1 || i == 4));
            part.amounts["part"] = i < 4 ? quarter : one.amounts["interest"] - 3 * quarter;
            one.lists["quarters"].push_back(part);
        }
        facts.lists["loans"].push_back(one);
    }
    for (const char* name : {"debt", "interest", "before", "redemption", "accrued"}) {
        total(facts, "loans", name, name);
    }
    acceptSums(draft);
    return facts;
}

Facts lakeRenewedFacts(Draft& draft) {
    bank(draft);
    Facts facts;
    const Cents capital = draft.francs(180000, 640000, 5000);
    const Cents redemption = draft.francs(5000, 20000, 1000);
    const Cents first = points(draft, capital, 60, 120);
    const Cents second = points(draft, capital - redemption, 45, 95);
    facts.amounts = {{"capital", capital},
                     {"redemption", redemption},
                     {"debt", capital - redemption},
                     {"first", first},
                     {"second", second},
                     {"interest", first + second},
                     {"charge", draft.francs(100, 400, 50)}};
    facts.texts = {{"old", draft.random.digits(3) + "." + draft.random.digits(5)},
                   {"fresh", draft.random.digits(3) + "." + draft.random.digits(5)}};
    facts.dates["change"] = QDate(draft.year, draft.random.between(5, 8), 30);
    noteDebt(draft, 0, first);
    noteDebt(draft, capital - redemption, second);
    acceptSums(draft);
    return facts;
}

Facts lakeMatrixFacts(Draft& draft) {
    bank(draft);
    Facts facts;
    const QString part = draft.t("Tranche ", "Tranche ", "Quota ");
    for (const char* letter : {"A", "B", "C"}) {
        facts.lists["loans"].push_back(
            loan(draft, part + letter, draft.francs(60000, 320000, 1000)));
    }
    for (const char* name : {"debt", "interest", "before", "redemption", "accrued"}) {
        total(facts, "loans", name, name);
    }
    spread(facts, "loans");
    acceptSums(draft);
    return facts;
}

Facts lakeCreditFacts(Draft& draft) {
    lakeSender(draft, "bankauszug",
               {draft.t("Kreditinstitut Ankerplatz AG", "Institut de crédit La Bouée SA",
                        "Istituto di credito Boa SA"),
                draft.t("Barkredit Seerose AG", "Prêt Nénuphar SA", "Prestiti Ninfea SA")});
    Facts facts;
    const Cents before = some(draft, 9000, 58000);
    const Cents month = before * 27 / 1000 / 5 * 5;
    const Cents interest = before * draft.random.between(560, 940) / 10000 / 5 * 5;
    const Cents cover = month / 3 / 5 * 5;
    const Cents redemption = 12 * month - interest - cover;
    facts.amounts = {{"before", before},
                     {"month", month},
                     {"paid", 12 * month},
                     {"interest", interest},
                     {"cover", cover},
                     {"redemption", redemption},
                     {"debt", before - redemption},
                     {"original", (before / 500000 + 2) * 500000}};
    facts.texts = {
        {"number", draft.random.digits(2) + "/" + draft.random.digits(6)},
        {"rate", QString::number(draft.random.between(650, 995) / 100.0, 'f', 2) + " %"}};
    noteDebt(draft, facts.amounts["debt"], interest);
    return facts;
}

Facts lakePlasticFacts(Draft& draft) {
    lakeSender(draft, "bankauszug", {"Kartenzentrum Libelle AG", "Wellenkarte Services AG"});
    Facts facts;
    const Cents before = some(draft, 200, 3000);
    const Cents spent = some(draft, 8000, 32000);
    const Cents fees = draft.francs(50, 250, 10);
    const Cents interest = draft.odd(40, 690);
    const Cents debt = some(draft, 700, 6900);
    facts.amounts = {{"before", before},
                     {"spent", spent},
                     {"fees", fees},
                     {"interest", interest},
                     {"paid", before + spent + fees + interest - debt},
                     {"debt", debt},
                     {"limit", draft.francs(8000, 15000, 1000)},
                     {"least", debt / 20 / 5 * 5}};
    facts.texts["number"] = "XXXX XXXX XXXX " + draft.random.digits(4);
    noteDebt(draft, debt, interest);
    return facts;
}

Facts lakeRatesFacts(Draft& draft) {
    bank(draft);
    Facts facts;
    facts.lists["accounts"] = {foreign(draft, "EUR", draft.random.between(9200, 9900)),
                               foreign(draft, "USD", draft.random.between(7900, 9300))};
    if (draft.random.chance(50)) {
        facts.lists["accounts"].push_back(
            foreign(draft, "GBP", draft.random.between(10600, 11400)));
    }
    for (const char* name : {"balance", "interest", "tax"}) {
        total(facts, "accounts", name, name);
    }
    acceptSums(draft);
    return facts;
}

Facts lakeJointFacts(Draft& draft) {
    bank(draft);
    Facts facts;
    facts.lists["joint"] = {everyday(draft, draft.family.one), savings(draft, draft.family.one)};
    facts.lists["own"] = {savings(draft, draft.family.two)};
    for (const char* name : {"balance", "interest", "tax"}) {
        const QByteArray all = QByteArray("all") + name;
        total(facts, "joint", name, name);
        total(facts, "joint", name, all);
        total(facts, "own", name, all);
    }
    acceptSums(draft);
    return facts;
}

Facts lakeSignedFacts(Draft& draft) {
    bank(draft);
    Facts facts;
    facts.lists["accounts"] = {savings(draft, draft.family.one), everyday(draft, draft.family.one)};
    const Cents debt = some(draft, 300, 18000);
    facts.amounts = {{"debt", debt},
                     {"owed", points(draft, debt, 600, 1150)},
                     {"limit", (debt / 500000 + 1) * 500000}};
    facts.texts["number"] = randomIban(draft.random);
    noteDebt(draft, debt, facts.amounts["owed"]);
    acceptSums(draft);
    return facts;
}

Facts lakeFeesFacts(Draft& draft) {
    bank(draft);
    Facts facts;
    for (Facts one : {everyday(draft, draft.family.one), savings(draft, draft.family.one)}) {
        one.amounts["keeping"] = draft.francs(12, 72, 6);
        one.amounts["cards"] = draft.francs(30, 120, 10);
        one.amounts["post"] = draft.odd(2, 24);
        one.amounts["fees"] = one.amounts["keeping"] + one.amounts["cards"] + one.amounts["post"];
        facts.lists["accounts"].push_back(one);
    }
    for (const char* name : {"balance", "interest", "tax", "keeping", "cards", "post", "fees"}) {
        total(facts, "accounts", name, name);
    }
    spread(facts, "accounts");
    acceptSums(draft);
    return facts;
}

Facts lakeClassFacts(Draft& draft) {
    bank(draft);
    draft.truth.kind = "steuerauszug";
    draft.truth.alsoKinds = QStringList{"bankauszug"};
    Facts facts;
    facts.lists["accounts"] = {everyday(draft, draft.family.one)};
    facts.lists["shares"] = {position(draft, "Wasserwerke Sitter N", true),
                             position(draft, "Blue Harbor Inc", false)};
    facts.lists["funds"] = {position(draft, "Seerose Immo Schweiz A", true),
                            position(draft, "Seerose World Equity", false)};
    total(facts, "accounts", "balance", "cash");
    for (const char* list : {"shares", "funds"}) {
        total(facts, list, "value", list);
        total(facts, list, "a", "a");
        total(facts, list, "b", "b");
    }
    total(facts, "accounts", "a", "a");
    total(facts, "accounts", "b", "b");
    Cents& all = facts.amounts["all"];
    all = facts.amounts["cash"] + facts.amounts["shares"] + facts.amounts["funds"];
    for (const char* name : {"cash", "shares", "funds"}) {
        facts.texts[QString("of") + name] = shareOf(facts.amounts[name], all);
    }
    for (const char* list : {"shares", "funds"}) {
        for (Facts& one : facts.lists[list]) {
            one.texts["of"] = shareOf(one.amounts["value"], all);
        }
    }
    facts.amounts["start"] = all * draft.random.between(88, 97) / 100 / 5 * 5;
    acceptSums(draft);
    return facts;
}

Facts lakePositionFacts(Draft& draft) {
    bank(draft);
    draft.truth.kind = "steuerauszug";
    draft.truth.alsoKinds = QStringList{"bankauszug"};
    Facts facts;
    facts.lists["held"] = {
        position(draft,
                 draft.t("Segelwerft Arbon Nam.", "Chantier Naval Vully Nom.",
                         "Cantiere Navale Ceresio Nom."),
                 true),
        position(draft, "Northwind Ferries Corp", false),
        position(draft,
                 draft.t("Libellenfonds Obligationen", "Fonds Libellule Obligations",
                         "Fondo Libellula Obbligazioni"),
                 true)};
    facts.lists["sold"] = {position(draft, "Lakeside Robotics Inc", false, true)};
    total(facts, "held", "value", "value");
    for (const char* list : {"held", "sold"}) {
        total(facts, list, "a", "a");
        total(facts, list, "b", "b");
    }
    facts.amounts["tax"] = facts.amounts["a"] * 35 / 100;
    facts.amounts["costs"] = draft.odd(60, 540);
    TruthRecord costs; // deductible instead of the flat rate, as the household decides
    costs.kind = "householdDeductions";
    costs.year = draft.year;
    draft.truth.accepted.push_back(
        costs.amount("actualAssetManagementCosts", facts.amounts["costs"]));
    acceptSums(draft);
    return facts;
}

} // namespace corpus
