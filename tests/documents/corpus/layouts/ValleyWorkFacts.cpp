#include "tests/documents/corpus/layouts/Facts.h"
#include "tests/documents/corpus/layouts/ValleyFacts.h"

// Facts of employers, pensions, insurers and pension funds.

namespace corpus {
namespace {

void employer(Draft& draft) {
    issuedBy(
        draft, "lohnausweis",
        {draft.t("Holzbau Gonzenblick AG", "Fromagerie des Sapins SA", "Vivai Collina Sagl"),
         draft.t("Pflegezentrum Auenhof", "Garage du Levant Sàrl", "Panificio Tre Valli SA"),
         draft.t("Stickerei Rosenau GmbH", "Imprimerie du Vallon SA", "Carpenteria Morena SA"),
         draft.t("Tobler & Söhne Tiefbau", "Fiduciaire Clairval SA", "Studio Ingegneria Prato")});
}

void principalityEmployer(Draft& draft) {
    draft.family = Family::random(draft.random, draft.language, true);
    employer(draft);
    draft.issuer.name =
        draft.one("Messtechnik Schwabbrünnen AG|Alpinholz Triesenberg GmbH|Dentalwerk Bühl AG");
    draft.issuer.place = draft.one("9487 Bendern|9494 Schaan|9495 Triesen|9493 Mauren");
    draft.issuer.phone = "+423 " + draft.random.digits(3) + " " + draft.random.digits(4);
}

/// A part in thousandths, to five centimes.
Cents part(Cents whole, int permille) { return whole * permille / 1000 / 5 * 5; }

TruthRecord& noteSalary(Draft& draft, const Someone& who, const Facts& facts) {
    TruthRecord& record = draft.record("salaryCertificate", who);
    record.birthDate = who.birth;
    return record.amount("grossSalary", facts.amounts.at("gross"))
        .amount("socialContributions", facts.amounts.at("social"))
        .amount("pensionContributions", facts.amounts.at("bvg"))
        .amount("netSalaryOverride", facts.amounts.at("net"));
}

/// A year of twelve salaries and a thirteenth. What the daily sickness insurance costs is taken
/// off after the net salary, as on the federal form.
Facts yearOfSalary(Draft& draft) {
    const Cents month = draft.francs(3900, 9600, 10);
    const Cents children = draft.random.chance(60) ? draft.francs(230, 280, 10) * 12 : 0;
    const Cents bonus = draft.random.chance(50) ? draft.francs(500, 6000, 100) : 0;
    const Cents base = 13 * month + bonus;
    const Cents ahv = part(base, 53);
    const Cents alv = part(base, 11);
    const Cents nbu = part(base, draft.random.between(7, 14));
    const Cents bvg = part(base, draft.random.between(48, 84));
    const Cents social = ahv + alv + nbu;
    const Cents gross = base + children;
    Facts facts;
    facts.amounts = {{"month", month},
                     {"year12", 12 * month},
                     {"thirteenth", month},
                     {"bonus", bonus},
                     {"children", children},
                     {"gross", gross},
                     {"ahv", ahv},
                     {"alv", alv},
                     {"nbu", nbu},
                     {"social", social},
                     {"bvg", bvg},
                     {"net", gross - social - bvg},
                     {"sick", part(base, 6)},
                     {"expenses", draft.odd(120, 2600)},
                     {"wagetax", part(gross, 40)}};
    facts.amounts["payout"] =
        facts.amounts["net"] - facts.amounts["sick"] + facts.amounts["expenses"];
    facts.dates = {{"from", QDate(draft.year, 1, 1)}, {"until", draft.yearEnd()}};
    return facts;
}

void addUp(Facts& facts, const Facts& one, const std::vector<const char*>& names) {
    for (const char* name : names) {
        facts.amounts[name] += one.amounts.at(name);
    }
}

const std::vector<const char*> salaryColumns{"gross", "social", "bvg", "net", "expenses", "payout"};

/// What a month or a quarter brings, by the names of the columns.
Facts paidIn(Draft& draft, Cents gross) {
    Facts one;
    const Cents social = part(gross, 74);
    const Cents bvg = part(gross, 66);
    const Cents expenses = draft.odd(20, 240);
    one.amounts = {{"gross", gross},       {"social", social},
                   {"bvg", bvg},           {"net", gross - social - bvg},
                   {"expenses", expenses}, {"payout", gross - social - bvg + expenses}};
    return one;
}

void fund(Draft& draft) {
    issuedBy(draft, "pensionskasse",
             {draft.t("Pensionskasse Gallusring", "Fonds de prévoyance Beauregard",
                      "Cassa pensioni Bellavista"),
              draft.t("Vorsorgestiftung Metall Ostland", "Caisse de retraite du Haut-Pays",
                      "Fondo di previdenza Sorgente"),
              draft.t("Gemeinschaftsstiftung Wegweiser BVG", "Prévoyance Artisans Romands",
                      "Previdenza Artigiani Uniti")});
}

void pensionOffice(Draft& draft, const std::vector<QString>& names) {
    issuedBy(draft, "pensionskasse", names);
    draft.truth.alsoKinds = QStringList{"lohnausweis", "anderes"};
}

/// In the years in which old age is paid.
void retire(Draft& draft, int youngest) {
    for (Someone* who : {&draft.family.one, &draft.family.two}) {
        const int year = draft.year - draft.random.between(youngest, youngest + 9);
        who->birth = QDate(year, draft.random.between(1, 12), draft.random.between(1, 28));
    }
}

void notePension(Draft& draft, const Someone& who, Cents amount) {
    draft.truth.alsoKinds = QStringList{"lohnausweis"};
    TruthRecord& record = draft.record("pension", who);
    record.birthDate = who.birth;
    record.amount("amount", amount);
}

/// What the family bore itself may be read as a cost of illness.
void acceptCost(Draft& draft, Cents gross) {
    if (gross == 0) {
        return;
    }
    TruthRecord cost;
    cost.kind = "medicalCost";
    cost.year = draft.year;
    draft.truth.accepted.push_back(cost.amount("gross", gross));
}

} // namespace

Facts valleySalaryFacts(Draft& draft) {
    employer(draft);
    Facts facts = yearOfSalary(draft);
    noteSalary(draft, draft.family.one, facts);
    return facts;
}

Facts valleySplitSalaryFacts(Draft& draft) {
    employer(draft);
    Facts facts = yearOfSalary(draft);
    noteSalary(draft, draft.family.one, facts).derived = QStringList{"socialContributions"};
    return facts;
}

Facts valleyPrincipalitySalaryFacts(Draft& draft) {
    principalityEmployer(draft);
    Facts facts = yearOfSalary(draft);
    noteSalary(draft, draft.family.one, facts);
    return facts;
}

Facts valleyMonthsFacts(Draft& draft) {
    employer(draft);
    Facts facts;
    const Cents salary = draft.francs(4100, 8800, 10);
    for (int month = 1; month <= 12; ++month) {
        const Cents overtime = draft.random.chance(30) ? draft.odd(80, 700) : 0;
        Facts one = paidIn(draft, salary * (month == 11 ? 2 : 1) + overtime);
        one.texts["month"] = draft.longDate(QDate(draft.year, month, 1)).section(' ', 1, 1);
        addUp(facts, one, salaryColumns);
        facts.lists["months"].push_back(one);
    }
    noteSalary(draft, draft.family.one, facts);
    return facts;
}

Facts valleyQuartersFacts(Draft& draft) {
    employer(draft);
    Facts facts;
    const Cents salary = draft.francs(11400, 26000, 30);
    for (const char* quarter : {"1", "2", "3", "4"}) {
        const Cents thirteenth = quarter[0] == '4' ? salary / 3 : 0;
        const Facts one = paidIn(draft, salary + thirteenth + draft.odd(0, 300));
        addUp(facts, one, salaryColumns);
        for (const auto& [name, cents] : one.amounts) {
            facts.amounts[name + quarter] = cents;
        }
    }
    noteSalary(draft, draft.family.one, facts);
    return facts;
}

Facts valleyBoardFacts(Draft& draft) {
    employer(draft);
    Facts facts;
    const Cents fee = draft.francs(8000, 48000, 500);
    const int count = draft.random.between(4, 11);
    const Cents sitting = draft.francs(400, 1500, 50);
    const Cents gross = fee + count * sitting;
    facts.texts["count"] = QString::number(count);
    facts.amounts = {{"fee", fee},
                     {"sitting", sitting},
                     {"sittings", count * sitting},
                     {"gross", gross},
                     {"social", part(gross, 64)},
                     {"bvg", 0},
                     {"travel", draft.odd(60, 1400)}};
    facts.amounts["net"] = gross - facts.amounts["social"];
    facts.amounts["payout"] = facts.amounts["net"] + facts.amounts["travel"];
    noteSalary(draft, draft.family.one, facts);
    return facts;
}

Facts valleyEmployersFacts(Draft& draft) {
    employer(draft);
    draft.issuer.name = draft.one("Treuhandbüro Löwenzahn|Lohnservice Dreispitz GmbH");
    Facts facts;
    const auto job = [&](const Someone& who, const char* firm, int low, int high) {
        Facts one = paidIn(draft, draft.francs(low, high, 10));
        one.texts = {{"who", who.name()}, {"number", who.number}, {"firm", firm}};
        one.dates["born"] = who.birth;
        noteSalary(draft, who, one);
        addUp(facts, one, {"net"});
        facts.lists["jobs"].push_back(one);
    };
    job(draft.family.one, "Gärtnerei Efeuhof AG", 42000, 96000);
    job(draft.family.two, "Praxisgemeinschaft Südhang", 21000, 64000);
    if (draft.random.chance(60)) {
        job(draft.family.two, "Musikschule Oberes Tal", 3200, 14000);
    }
    return facts;
}

Facts valleyRisenPensionFacts(Draft& draft) {
    fund(draft);
    retire(draft, 66);
    Facts facts;
    const int count = draft.random.between(2, 10);
    const Cents first = draft.odd(700, 4200);
    const Cents second = first + draft.odd(12, 140);
    const QDate change(draft.year, count + 1, 1);
    facts.texts = {{"count1", QString::number(count)}, {"count2", QString::number(12 - count)}};
    facts.dates = {{"change", change}};
    facts.amounts = {{"first", first},
                     {"second", second},
                     {"rise", second - first},
                     {"sum1", first * count},
                     {"sum2", second * (12 - count)},
                     {"amount", first * count + second * (12 - count)}};
    notePension(draft, draft.family.one, facts.amounts["amount"]);
    return facts;
}

Facts valleyOldAgeFacts(Draft& draft) {
    pensionOffice(draft, {"Ausgleichskasse Gewerbe am See", "Verbandsausgleichskasse Holz und Bau",
                          "Sozialversicherungsstelle Talkreis"});
    retire(draft, 66);
    Facts facts;
    for (const Someone& who : {draft.family.one, draft.family.two}) {
        Facts one;
        one.texts = {{"who", who.name()}, {"number", who.number}};
        one.amounts["month"] = draft.francs(1260, 1838);
        one.amounts["part"] = 12 * one.amounts["month"];
        facts.amounts["both"] += one.amounts["part"];
        draft.record("personIncome", who).amount("ahvPension", one.amounts["part"]);
        facts.lists["people"].push_back(one);
    }
    facts.amounts["help"] = draft.francs(245, 613); // for the helpless, free of tax
    facts.amounts["helpyear"] = 12 * facts.amounts["help"];
    facts.amounts["coming"] = facts.lists["people"][0].amounts["month"] + 4500;
    return facts;
}

Facts valleyDisabilityFacts(Draft& draft) {
    pensionOffice(draft, {"IV-Rentenstelle Region Mittelland-Ost", "Sozialversicherungsstelle "
                                                                   "Talkreis"});
    Facts facts;
    const int months = draft.random.between(4, 12);
    const Cents own = draft.francs(980, 2300);
    const Cents child = part(own, 400) / 100 * 100;
    facts.texts["months"] = QString::number(months);
    facts.dates["since"] = QDate(draft.year, 13 - months, 1);
    facts.amounts = {{"own", own},
                     {"kid", child},
                     {"ownyear", own * months},
                     {"kidyear", child * months},
                     {"amount", (own + child) * months},
                     {"arrears", draft.francs(300, 900)}};
    draft.record("personIncome", draft.family.one).amount("ahvPension", facts.amounts["amount"]);
    return facts;
}

Facts valleyFundChildrenFacts(Draft& draft) {
    fund(draft);
    Facts facts;
    const QString children = draft.t("Kinderrente ", "Rente d'enfant ", "Rendita per figli ");
    const QString own = draft.t("Invalidenrente", "Rente d'invalidité", "Rendita d'invalidità");
    const Cents month = draft.odd(1100, 3600);
    for (const QString& name :
         {own, children + draft.family.child.first, children + draft.family.secondChild.first}) {
        Facts one;
        one.texts["name"] = name;
        one.amounts["month"] = name == own ? month : part(month, 200);
        one.amounts["part"] = 12 * one.amounts["month"];
        facts.amounts["amount"] += one.amounts["part"];
        facts.lists["parts"].push_back(one);
    }
    facts.amounts["assets"] = draft.odd(90000, 420000);
    notePension(draft, draft.family.one, facts.amounts["amount"]);
    return facts;
}

Facts valleyLumpFacts(Draft& draft) {
    fund(draft);
    retire(draft, 60);
    Facts facts;
    const int months = draft.random.between(2, 11);
    const Cents month = draft.odd(600, 3400);
    facts.texts["months"] = QString::number(months);
    facts.dates["since"] = QDate(draft.year, 13 - months, 1);
    facts.amounts = {{"month", month},
                     {"amount", month * months},
                     {"capital", draft.odd(60000, 480000)},
                     {"year12", 12 * month}};
    notePension(draft, draft.family.one, facts.amounts["amount"]);
    return facts;
}

Facts valleyForeignPensionFacts(Draft& draft) {
    pensionOffice(draft, {"Versorgungswerk Allgäu und Bodensee", "Pensionsinstitut Oberschwaben"});
    retire(draft, 66);
    Facts facts;
    const Cents first = draft.odd(320, 1900) + 3;
    const Cents second = first * 1039 / 1000;
    const int rate = draft.random.between(9300, 9800);
    const Cents euros = 6 * (first + second);
    facts.texts["rate"] = QString::number(rate / 10000.0, 'f', 4);
    facts.dates["july"] = QDate(draft.year, 7, 1);
    facts.amounts = {{"first", first},
                     {"second", second},
                     {"euros", euros},
                     {"francs", (euros * rate + 5000) / 10000},
                     {"subsidy", draft.odd(15, 90)}};
    notePension(draft, draft.family.one, facts.amounts["francs"]);
    draft.truth.alsoKinds += "anderes";
    return facts;
}

Facts valleyPolicyFacts(Draft& draft) {
    issuedBy(draft, "versicherung",
             {"Sonnrain Leben AG", "Vorsorgeversicherung Waldhorn", "Lebenskreis Genossenschaft"});
    Facts facts;
    for (const char* kind : {"freie Vorsorge 3b", "Einmaleinlage 3b", "gebundene Vorsorge 3a"}) {
        const bool tied = QString(kind).contains("3a");
        const Cents sum = draft.francs(20000, 180000, 1000);
        const Cents bare = part(sum, draft.random.between(120, 880));
        const Cents bonus = draft.odd(60, 2400);
        Facts one;
        one.texts = {{"kind", kind},
                     {"number", draft.random.digits(2) + "." + draft.random.digits(6)}};
        one.amounts = {
            {"sum", sum}, {"bare", bare}, {"bonus", bonus}, {"value", tied ? 0 : bare + bonus}};
        facts.amounts["value"] += one.amounts["value"];
        if (!tied) {
            draft.record("insurancePolicy", draft.family.one)
                .text("company", draft.issuer.name)
                .amount("surrenderValue", one.amounts["value"])
                .amount("sumInsured", sum);
        }
        facts.lists["policies"].push_back(one);
    }
    TruthRecord total;
    total.kind = "insurancePolicy";
    total.year = draft.year;
    draft.truth.accepted.push_back(total.amount("surrenderValue", facts.amounts["value"]));
    return facts;
}

Facts valleyPolicyPremiumFacts(Draft& draft) {
    issuedBy(draft, "versicherung", {"Vie Plein-Soleil SA", "Mutuelle Vie Rochebrune"});
    Facts facts;
    const Cents sum = draft.francs(20000, 180000, 1000);
    facts.texts["number"] = draft.random.digits(3) + "-" + draft.random.digits(5);
    facts.dates["expiry"] = QDate(draft.year + draft.random.between(3, 18), 12, 1);
    facts.amounts = {{"sum", sum},
                     {"bare", part(sum, draft.random.between(150, 800))},
                     {"bonus", draft.odd(60, 1900)},
                     {"premium", draft.odd(600, 6400)},
                     {"death", sum + draft.francs(5000, 30000, 1000)}};
    facts.amounts["value"] = facts.amounts["bare"] + facts.amounts["bonus"];
    draft.record("insurancePolicy", draft.family.one)
        .text("company", draft.issuer.name)
        .amount("surrenderValue", facts.amounts["value"])
        .amount("sumInsured", sum);
    draft.record("householdDeductions", draft.family.one)
        .amount("lifeInsurancePremiums", facts.amounts["premium"]);
    return facts;
}

Facts valleyMembersFacts(Draft& draft) {
    issuedBy(
        draft, "krankenkasse",
        {draft.t("Krankenkasse Murmelbach", "Caisse-maladie Bois-Joli", "Cassa malati Valserena"),
         draft.t("Vitalis Ost Versicherungen", "Vitalis Assurances", "Vitalis Assicurazioni"),
         draft.t("Gesundbund Hochtal", "Santé Solidaire du Plateau", "Salute Solidale")});
    Facts facts;
    const bool reduced = draft.random.chance(60);
    int place = 0;
    for (const Someone& who :
         {draft.family.one, draft.family.two, draft.family.child, draft.family.secondChild}) {
        const bool child = place >= 2;
        Facts one;
        one.texts = {{"who", who.name()}, {"first", who.first}};
        one.dates["born"] = who.birth;
        const Cents basic = 12 * (child ? draft.odd(70, 130) : draft.odd(240, 470));
        const Cents extra = 12 * (child ? draft.odd(5, 20) : draft.odd(15, 120));
        const Cents franchise = child ? 0 : draft.francs(60, 300, 20);
        const Cents retention = draft.odd(4, child ? 90 : 420);
        one.amounts = {{"basic", basic},
                       {"extra", extra},
                       {"total", basic + extra},
                       {"reduction", reduced ? 12 * draft.odd(20, child ? 60 : 140) : 0},
                       {"franchise", franchise},
                       {"retention", retention},
                       {"sharing", franchise + retention},
                       {"levy", Cents{6460}},
                       {"uncovered", draft.odd(10, 380)}};
        one.amounts["net"] = basic + extra - one.amounts["reduction"];
        ++place;
        for (const auto& [name, cents] : one.amounts) {
            facts.amounts[name + QString::number(place)] = cents;
            facts.amounts[name] += cents;
        }
        facts.texts["first" + QString::number(place)] = who.first;
        for (const char* name : {"franchise", "retention", "sharing", "uncovered"}) {
            acceptCost(draft, one.amounts[name]);
        }
        facts.lists["people"].push_back(one);
    }
    for (const char* name : {"franchise", "retention", "sharing", "uncovered"}) {
        acceptCost(draft, facts.amounts[name]);
    }
    draft.record("householdDeductions", draft.family.one)
        .amount("healthInsurancePremiums", facts.amounts["total"])
        .amount("premiumReduction", facts.amounts["reduction"]);
    return facts;
}

Facts valleyBuyInFacts(Draft& draft) {
    fund(draft);
    Facts facts;
    const Cents years = draft.francs(3000, 40000, 500);
    const Cents early = draft.francs(2000, 25000, 500);
    facts.amounts = {{"part1", years},
                     {"part2", early},
                     {"amount", years + early},
                     {"repaid", draft.francs(10000, 45000, 1000)}, // of a home, not deductible
                     {"possible", draft.odd(4000, 90000)},
                     {"assets", draft.odd(80000, 700000)}};
    facts.dates = {{"on1", QDate(draft.year, 4, draft.random.between(1, 28))},
                   {"on2", QDate(draft.year, 11, draft.random.between(1, 28))},
                   {"on3", QDate(draft.year, 8, draft.random.between(1, 28))}};
    draft.record("personDeductions", draft.family.one)
        .amount("pensionBuyIn", facts.amounts["amount"]);
    return facts;
}

Facts valleyBuyInYearFacts(Draft& draft) {
    fund(draft);
    Facts facts;
    const Cents opening = draft.odd(60000, 520000);
    const Cents own = draft.odd(2400, 9800);
    const Cents amount = draft.francs(2000, 48000, 500);
    const Cents interest = opening / 80 / 5 * 5;
    facts.amounts = {{"opening", opening},
                     {"own", own},
                     {"employer", part(own, 1200)},
                     {"amount", amount},
                     {"interest", interest}};
    facts.amounts["closing"] = opening + own + facts.amounts["employer"] + amount + interest;
    facts.dates["when"] = draft.day();
    draft.record("personDeductions", draft.family.one).amount("pensionBuyIn", amount);
    return facts;
}

} // namespace corpus
