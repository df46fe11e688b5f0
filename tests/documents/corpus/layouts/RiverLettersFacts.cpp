#include "tests/documents/corpus/layouts/RiverFacts.h"

// Facts of pensions, of life insurers and of letters that yield nothing.

namespace corpus {
namespace {

void fund(Draft& draft) {
    issuedBy(draft, "pensionskasse",
             {draft.t("Pensionskasse Flusswerke", "Caisse de pensions du Vieux-Pont",
                      "Cassa pensioni Ponte Vecchio"),
              draft.t("Vorsorgeeinrichtung Rheinmühle", "Fondation LPP Les Tilleuls",
                      "Fondazione LPP Le Betulle"),
              draft.t("Stiftung Altersvorsorge Bausteg", "Institution de prévoyance Sarine-Sud",
                      "Istituto di previdenza Tresa")});
    draft.truth.alsoKinds = QStringList{"lohnausweis"};
}

void office(Draft& draft) {
    issuedBy(
        draft, "pensionskasse",
        {draft.t("Ausgleichskasse Untere Au", "Caisse AVS de la Plaine", "Cassa AVS del Delta"),
         draft.t("Sozialversicherungsamt Flussland", "Office des assurances sociales Venoge",
                 "Istituto sociale Tresa")});
    draft.truth.alsoKinds = QStringList{"lohnausweis", "anderes"};
}

void lifeInsurer(Draft& draft) {
    issuedBy(draft, "versicherung",
             {draft.t("Flussblick Leben AG", "Rive-Vie Assurances SA", "Riva Vita SA"),
              draft.t("Lebensversicherer Anker und Au", "Mutuelle de la Grève", "Mutua Vita Foce"),
              draft.t("Eisvogel Vorsorge AG", "Martin-Pêcheur Vie SA", "Airone Vita SA")});
}

void retire(Draft& draft, int youngest) {
    for (Someone* who : {&draft.family.one, &draft.family.two}) {
        const int year = draft.year - draft.random.between(youngest, youngest + 10);
        who->birth = QDate(year, draft.random.between(1, 12), draft.random.between(1, 28));
    }
}

void notePension(Draft& draft, const Someone& who, Cents amount) {
    TruthRecord& record = draft.record("pension", who);
    record.birthDate = who.birth;
    record.amount("amount", amount);
}

} // namespace

Facts riverSupplementFacts(Draft& draft) {
    office(draft);
    retire(draft, 66);
    Facts facts;
    const Cents month = draft.francs(1260, 2450);
    const Cents el = draft.francs(180, 1450);
    facts.amounts = {
        {"month", month},    {"pension", 12 * month},     {"el", el},
        {"elyear", 12 * el}, {"both", 12 * (month + el)}, {"costs", draft.odd(40, 2600)}};
    riverWords(
        draft, facts,
        {{"title", "Leistungsbestätigung|Zusammenstellung Ihrer Leistungen",
          "Attestation de prestations|Relevé de vos prestations", ""},
         {"what", "Leistung", "Prestation", ""},
         {"permonth", "pro Monat", "par mois", ""},
         {"peryear", "Jahr", "Année", ""},
         {"taxed", "steuerbar", "imposable", ""},
         {"old", "Altersrente der AHV", "Rente de vieillesse AVS", ""},
         {"eltext", "Ergänzungsleistung zur AHV", "Prestation complémentaire à l'AVS", ""},
         {"coststext", "EL: vergütete Krankheitskosten", "PC: frais de maladie remboursés", ""},
         {"yes", "ja", "oui", ""},
         {"no", "nein", "non", ""},
         {"sum", "Rente und EL", "Rente et PC", ""}});
    draft.record("personIncome", draft.family.one).amount("ahvPension", facts.amounts["pension"]);
    return facts;
}

Facts riverArrearsFacts(Draft& draft) {
    office(draft);
    Facts facts;
    const Cents before = draft.francs(1100, 2300);
    const Cents now = before + draft.francs(10, 60);
    const int earlier = draft.random.between(4, 11);
    const Cents offset = riverPart(before * earlier, 400) / 100 * 100;
    facts.texts = {{"earlier", QString::number(earlier)}};
    facts.dates = {{"from", QDate(draft.year - 1, 13 - earlier, 1)},
                   {"until", QDate(draft.year - 1, 12, 31)},
                   {"decided", QDate(draft.year, 3, draft.random.between(2, 27))}};
    facts.amounts = {{"before", before},
                     {"now", now},
                     {"arrears", before * earlier},
                     {"current", 12 * now},
                     {"total", before * earlier + 12 * now},
                     {"offset", offset}};
    facts.amounts["paid"] = facts.amounts["total"] - offset;
    draft.record("personIncome", draft.family.one).amount("ahvPension", facts.amounts["total"]);
    return facts;
}

Facts riverAnnuityFacts(Draft& draft) {
    draft.year = std::min(draft.year, 2024); // since then another share of it is taxed
    lifeInsurer(draft);
    draft.truth.alsoKinds = QStringList{"pensionskasse"};
    retire(draft, 67);
    Facts facts;
    const Cents quarter = draft.odd(700, 4200);
    const Cents bonus = draft.odd(20, 260);
    const Cents amount = 4 * (quarter + bonus);
    facts.texts = {{"number", "LR " + draft.random.digits(6)}};
    facts.amounts = {
        {"quarter", quarter},           {"guaranteed", 4 * quarter},
        {"bonus", 4 * bonus},           {"amount", amount},
        {"taxable", amount * 40 / 100}, {"capital", draft.francs(80000, 400000, 5000)}};
    riverWords(
        draft, facts,
        {{"title", "Leibrente: Bescheinigung|Ihre private Leibrente",
          "Rente viagère: attestation|Votre rente viagère privée", ""},
         {"guaranteedtext", "Garantierte Rente (4 Zahlungen)", "Rente garantie (4 versements)", ""},
         {"bonustext", "Überschussrente", "Rente excédentaire", ""},
         {"amounttext", "Im Jahr ausbezahlte Leibrente|Ausbezahlte Renten",
          "Rente viagère versée pendant l'année|Rentes versées", ""},
         {"taxabletext", "Davon steuerbar 40 %", "Part imposable 40 %", ""},
         {"capitaltext", "Einmaleinlage bei Abschluss", "Prime unique à la conclusion", ""}});
    notePension(draft, draft.family.one, amount);
    draft.truth.records.back().text("taxablePercent", "40 | 40.0 | 40.00");
    return facts;
}

Facts riverForeignFacts(Draft& draft) {
    issuedBy(draft, "pensionskasse",
             {"Pensionsanstalt Vorarlberger Land", "Pensionsversicherung Bregenzerach"});
    draft.issuer.place = draft.one("6900 Bregenz|6850 Dornbirn|6800 Feldkirch");
    draft.issuer.phone = "+43 5574 " + draft.random.digits(5);
    draft.truth.alsoKinds = QStringList{"lohnausweis", "anderes"};
    retire(draft, 66);
    Facts facts;
    const Cents month = draft.odd(280, 1700) + draft.random.between(0, 4);
    for (const char* quarter : {"1", "2", "3", "4"}) {
        // Fourteen pensions a year: in April and in October one more.
        const int count = quarter[0] == '2' || quarter[0] == '4' ? 4 : 3;
        const int rate = draft.random.between(9250, 9890);
        Facts one;
        one.texts = {{"quarter", QString(quarter) + ". Quartal"},
                     {"count", QString::number(count)},
                     {"rate", QString::number(rate / 10000.0, 'f', 4)}};
        one.amounts = {{"euros", month * count}, {"francs", (month * count * rate + 5000) / 10000}};
        facts.amounts["euros"] += one.amounts["euros"];
        facts.amounts["amount"] += one.amounts["francs"];
        facts.lists["quarters"].push_back(one);
    }
    facts.amounts["month"] = month;
    facts.texts["number"] = draft.random.digits(4) + " " + draft.random.digits(6);
    notePension(draft, draft.family.one, facts.amounts["amount"]);
    return facts;
}

Facts riverCoupleFacts(Draft& draft) {
    fund(draft);
    retire(draft, 65);
    Facts facts;
    for (const Someone& who : {draft.family.one, draft.family.two}) {
        Facts one;
        const int months = draft.random.chance(60) ? 12 : draft.random.between(3, 11);
        one.texts = {{"who", who.name()},
                     {"number", who.number},
                     {"months", QString::number(months)},
                     {"what", draft.one("Altersrente|Invalidenrente|Überbrückungsrente")}};
        one.dates = {{"born", who.birth}, {"since", QDate(draft.year, 13 - months, 1)}};
        one.amounts["month"] = draft.odd(380, 3900);
        one.amounts["part"] = months * one.amounts["month"];
        one.amounts["spouse"] = riverPart(one.amounts["month"], 600);
        facts.amounts["both"] += one.amounts["part"];
        notePension(draft, who, one.amounts["part"]);
        facts.lists["people"].push_back(one);
    }
    return facts;
}

Facts riverCalendarFacts(Draft& draft) {
    fund(draft);
    retire(draft, 60);
    Facts facts;
    const Cents own = draft.odd(900, 3600);
    const Cents kid = riverPart(own, 200);
    for (int month = 1; month <= 12; ++month) {
        Facts one;
        one.dates["on"] = QDate(draft.year, month, 25);
        one.amounts["part"] = own + kid;
        facts.lists["months"].push_back(one);
    }
    facts.amounts = {{"own", 12 * own},
                     {"kid", 12 * kid},
                     {"amount", 12 * (own + kid)},
                     {"assets", draft.odd(110000, 520000)}};
    notePension(draft, draft.family.one, facts.amounts["amount"]);
    return facts;
}

Facts riverWithheldFacts(Draft& draft) {
    fund(draft);
    retire(draft, 66);
    Facts facts;
    const Cents month = draft.odd(1200, 4600);
    const Cents premium = 12 * draft.odd(260, 480);
    const Cents union12 = 12 * draft.francs(4, 18, 1);
    facts.amounts = {{"month", month},
                     {"amount", 12 * month},
                     {"premium", premium},
                     {"union", union12},
                     {"paid", 12 * month - premium - union12}};
    notePension(draft, draft.family.one, 12 * month);
    return facts;
}

Facts riverUnitsFacts(Draft& draft) {
    lifeInsurer(draft);
    Facts facts;
    Cents value = 0;
    for (const char* name :
         {"Strategie Welle 35", "Aktien Nachhaltig Fluss", "Obligationen Ufer"}) {
        Facts one;
        const int units = draft.random.between(12000, 320000); // thousandths
        const Cents price = draft.random.between(8500, 21000);
        one.texts = {{"name", name}, {"units", QString::number(units / 1000.0, 'f', 3)}};
        one.amounts = {{"price", price}, {"value", (price * units + 500) / 1000}};
        value += one.amounts["value"];
        facts.lists["funds"].push_back(one);
    }
    facts.texts["number"] = draft.random.digits(8);
    facts.amounts = {{"value", value},
                     {"cost", riverPart(value, draft.random.between(6, 32))},
                     {"sum", draft.francs(30000, 160000, 1000)},
                     {"death", draft.francs(161000, 240000, 1000)},
                     {"premium", 12 * draft.odd(80, 420)}};
    facts.amounts["surrender"] = value - facts.amounts["cost"];
    draft.record("insurancePolicy", draft.family.one)
        .text("company", draft.issuer.name)
        .amount("surrenderValue", facts.amounts["surrender"])
        .amount("sumInsured", facts.amounts["sum"]);
    draft.record("householdDeductions", draft.family.one)
        .amount("lifeInsurancePremiums", facts.amounts["premium"]);
    return facts;
}

Facts riverAccidentCoverFacts(Draft& draft) {
    issuedBy(draft, "versicherung",
             {draft.t("Unfallschutz Damm AG", "Accidents Rempart SA", ""),
              draft.t("Sicherheitsverein Furt", "Assurance La Digue", "")});
    Facts facts;
    const Cents first = draft.odd(40, 260);
    const Cents second = draft.odd(15, 140);
    facts.texts["number"] = draft.random.digits(2) + "." + draft.random.digits(5);
    facts.amounts = {{"first", first},
                     {"second", second},
                     {"premium", first + second},
                     {"death", draft.francs(20000, 100000, 10000)},
                     {"disability", draft.francs(110000, 300000, 10000)},
                     {"day", draft.francs(20, 90, 5)}};
    riverWords(draft, facts,
               {{"title",
                 "Unfallversicherung: Prämienbestätigung|Bestätigung bezahlter Prämien "
                 "(private Unfallversicherung)",
                 "Assurance-accidents: attestation de primes|Attestation de primes payées "
                 "(assurance-accidents privée)",
                 ""},
                {"person", "Versicherte Person", "Personne assurée", ""},
                {"deathtext", "Todesfallkapital", "Capital en cas de décès", ""},
                {"disabilitytext", "Invaliditätskapital", "Capital en cas d'invalidité", ""},
                {"daytext", "Spitaltaggeld", "Indemnité journalière d'hospitalisation", ""},
                {"premiumtext", "Bezahlte Prämie Unfallversicherung|Unfallprämie im Jahr",
                 "Prime d'assurance-accidents payée|Primes accidents de l'année", ""}});
    draft.record("householdDeductions", draft.family.one)
        .amount("accidentInsurancePremiums", facts.amounts["premium"]);
    return facts;
}

Facts riverPremiumBillFacts(Draft& draft) {
    lifeInsurer(draft);
    draft.dated = QDate(draft.year, draft.random.between(2, 11), draft.random.between(1, 28));
    Facts facts;
    const Cents saving = draft.odd(600, 4800);
    const Cents risk = draft.odd(60, 700);
    facts.texts["number"] = draft.random.digits(3) + "." + draft.random.digits(6);
    facts.dates = {{"due", draft.dated.addDays(30)}, {"expiry", QDate(draft.year + 12, 6, 1)}};
    facts.amounts = {{"saving", saving},
                     {"risk", risk},
                     {"premium", saving + risk},
                     {"sum", draft.francs(20000, 150000, 1000)},
                     {"half", riverPart(saving + risk, 515)}};
    draft.record("householdDeductions", draft.family.one)
        .amount("lifeInsurancePremiums", facts.amounts["premium"]);
    TruthRecord policy;
    policy.kind = "insurancePolicy";
    policy.year = draft.year;
    draft.truth.accepted.push_back(policy.amount("sumInsured", facts.amounts["sum"]));
    return facts;
}

Facts riverFundStatementFacts(Draft& draft) {
    fund(draft);
    draft.truth.kind = "anderes";
    draft.truth.alsoKinds = QStringList{"pensionskasse"};
    Facts facts;
    const Cents salary = draft.francs(48000, 132000, 100);
    const Cents assets = draft.odd(40000, 520000);
    const Cents insured = salary - draft.francs(25700, 26460, 10);
    facts.amounts = {{"salary", salary},
                     {"insured", insured},
                     {"own", riverPart(insured, 75)},
                     {"employer", riverPart(insured, 95)},
                     {"assets", assets},
                     {"exit", assets + draft.odd(0, 900)},
                     {"at58", riverPart(assets, 1400)},
                     {"at65", riverPart(assets, 1900)},
                     {"pension58", riverPart(assets, 66)},
                     {"pension65", riverPart(assets, 102)},
                     {"disability", riverPart(salary, 400)},
                     {"spouse", riverPart(salary, 240)},
                     {"orphan", riverPart(salary, 80)},
                     {"possible", draft.odd(5000, 140000)},
                     {"home", riverPart(assets, 980)}};
    riverWords(draft, facts,
               {{"title", "Persönlicher Ausweis|Vorsorgeausweis",
                 "Certificat personnel de "
                 "prévoyance|Certificat de prévoyance",
                 ""},
                {"l1", "Jahreslohn / versicherter Lohn", "Salaire annuel / assuré", ""},
                {"l2", "Beitrag Arbeitnehmer pro Jahr", "Cotisation annuelle de l'employé", ""},
                {"l3", "Beitrag Arbeitgeber pro Jahr", "Cotisation annuelle de l'employeur", ""},
                {"l4", "Altersguthaben / Austrittsleistung", "Avoir de vieillesse / sortie", ""},
                {"l5", "Invalidenrente pro Jahr", "Rente d'invalidité annuelle", ""},
                {"l6", "Ehegattenrente / Waisenrente pro Jahr",
                 "Rente de conjoint / d'orphelin annuelle", ""},
                {"l7", "Möglicher Einkauf", "Rachat possible", ""},
                {"l8", "Für Wohneigentum verfügbar", "Montant disponible pour le logement", ""},
                {"age", "Pensionierung mit", "Retraite à", ""},
                {"cap", "Kapital", "Capital", ""},
                {"rent", "Rente pro Jahr", "Rente annuelle", ""},
                {"note", "Hochrechnung mit 1.5 % Zins, ohne Gewähr.",
                 "Projection avec intérêt de 1.5 %, sans garantie.", ""}});
    return facts;
}

Facts riverCapitalFacts(Draft& draft) {
    fund(draft);
    draft.truth.kind = "anderes";
    draft.truth.alsoKinds = QStringList{"pensionskasse"};
    retire(draft, 64);
    Facts facts;
    const Cents capital = draft.odd(60000, 780000);
    facts.dates["when"] = draft.day();
    draft.dated = facts.dates["when"].addDays(2);
    facts.amounts = {{"capital", capital}, {"interest", draft.odd(40, 900)}};
    facts.amounts["paid"] = capital + facts.amounts["interest"];
    return facts;
}

Facts riverSupplementDecisionFacts(Draft& draft) {
    riverNothing(draft, {"pensionskasse"},
                 {"EL-Stelle Flussland", "Sozialversicherungsamt Flussland, Ergänzungsleistungen"});
    retire(draft, 67);
    draft.dated = QDate(draft.year - 1, 12, draft.random.between(2, 27));
    Facts facts;
    const Cents need = draft.francs(20100, 20670, 10);
    const Cents rent = draft.francs(11000, 17500, 60);
    const Cents premium = draft.francs(5000, 6500, 12);
    const Cents ahv = 12 * draft.francs(1260, 1700);
    const Cents fund12 = 12 * draft.francs(120, 900);
    const Cents interest = draft.francs(20, 400);
    facts.amounts = {{"need", need},         {"rent", rent},
                     {"premium", premium},   {"costs", need + rent + premium},
                     {"avs", ahv},           {"fund", fund12},
                     {"interest", interest}, {"income", ahv + fund12 + interest}};
    facts.amounts["gap"] = facts.amounts["costs"] - facts.amounts["income"];
    facts.amounts["month"] = facts.amounts["gap"] / 12 / 100 * 100 + 100;
    return facts;
}

Facts riverWageAgreementFacts(Draft& draft) {
    riverNothing(draft, {"lohnausweis"},
                 {"Gerüstbau Flussau AG", "Kinderheim Lindenufer", "Auto Weier GmbH"});
    draft.dated = QDate(draft.year, 12, draft.random.between(2, 27));
    Facts facts;
    const Cents month = draft.francs(4100, 9600, 50);
    facts.amounts = {{"before", month - draft.francs(40, 190, 10)},
                     {"month", month},
                     {"year13", 13 * month},
                     {"bonus", draft.francs(1000, 6000, 500)},
                     {"lump", draft.francs(50, 300, 50)}};
    return facts;
}

Facts riverNextPremiumsFacts(Draft& draft) {
    riverNothing(draft, {"krankenkasse"},
                 {draft.t("Krankenkasse Wasserfall", "Caisse-maladie La Cascade", ""),
                  draft.t("Gesundheitskasse Auenwald", "Santé des Rives", "")});
    draft.dated = QDate(draft.year, 10, draft.random.between(2, 27));
    Facts facts;
    for (const Someone& who : {draft.family.one, draft.family.two, draft.family.child}) {
        const bool child = who.number == draft.family.child.number;
        Facts one;
        one.texts["who"] = who.name();
        one.amounts = {{"old", child ? draft.odd(80, 110) : draft.odd(280, 430)},
                       {"extra", child ? draft.odd(5, 18) : draft.odd(14, 90)}};
        one.amounts["new"] = one.amounts["old"] + draft.odd(4, 38);
        one.amounts["sum"] = one.amounts["new"] + one.amounts["extra"];
        facts.amounts["sum"] += one.amounts["sum"];
        facts.lists["people"].push_back(one);
    }
    riverWords(draft, facts,
               {{"title", "Ihre Prämien im Jahr|Prämienmitteilung für das Jahr",
                 "Vos primes pour|Communication des primes", ""},
                {"who", "Versicherte Person", "Personne assurée", ""},
                {"oldtext", "KVG bisher", "LAMal actuelle", ""},
                {"newtext", "KVG neu", "LAMal nouvelle", ""},
                {"extratext", "VVG", "LCA", ""},
                {"sumtext", "pro Monat neu", "par mois, dès janvier", ""},
                {"note",
                 "Sie können bis 30. November auf Ende Jahr kündigen oder die Franchise "
                 "ändern.",
                 "Vous pouvez résilier ou changer de franchise jusqu'au 30 novembre.", ""}});
    return facts;
}

Facts riverRiseFacts(Draft& draft) {
    riverNothing(draft, {"pensionskasse"},
                 {"Pensionskasse Flusswerke", "Ausgleichskasse Untere Au"});
    retire(draft, 66);
    draft.dated = QDate(draft.year, 12, draft.random.between(2, 27));
    Facts facts;
    const Cents before = draft.odd(700, 3900);
    facts.amounts = {{"before", before}, {"month", before + draft.odd(8, 90)}};
    facts.texts["account"] = randomIban(draft.random);
    return facts;
}

Facts riverContentsFacts(Draft& draft) {
    riverNothing(draft, {"versicherung"},
                 {"Hausrat und Haftpflicht Wehr AG", "Sachversicherung Biberbau"});
    draft.dated = draft.day();
    Facts facts;
    const Cents contents = draft.odd(120, 420);
    const Cents liability = draft.odd(80, 190);
    const Cents glass = draft.odd(20, 60);
    const Cents stamp = riverPart(contents + liability + glass, 50);
    facts.amounts = {{"contents", contents},
                     {"liability", liability},
                     {"glass", glass},
                     {"stamp", stamp},
                     {"total", contents + liability + glass + stamp},
                     {"sum", draft.francs(60000, 210000, 1000)},
                     {"limit", Cents{1000000000}},
                     {"excess", draft.francs(200, 500, 100)}};
    facts.dates["due"] = draft.dated.addDays(30);
    facts.texts["number"] = draft.random.digits(9);
    return facts;
}

Facts riverTaxInstalmentsFacts(Draft& draft) {
    riverNothing(draft, {},
                 {"Office d'impôt du district de la Rive", "Administration communale de "
                                                           "Vieux-Pont, impôts"});
    draft.dated = QDate(draft.year, 2, draft.random.between(2, 27));
    Facts facts;
    const Cents rate = draft.odd(240, 1500);
    for (int i = 1; i <= 10; ++i) {
        Facts one;
        one.texts["no"] = QString::number(i);
        one.dates["due"] = QDate(draft.year, i + 2, 15).addDays(15);
        one.amounts["part"] = rate;
        facts.lists["parts"].push_back(one);
    }
    facts.amounts = {{"income", draft.francs(42000, 160000, 100)},
                     {"fortune", draft.francs(0, 700000, 1000)},
                     {"total", 10 * rate}};
    return facts;
}

Facts riverOfferFacts(Draft& draft) {
    riverNothing(draft, {"versicherung"}, {"Flussblick Leben AG", "Eisvogel Vorsorge AG"});
    draft.dated = draft.day();
    Facts facts;
    const Cents premium = draft.francs(1200, 6800, 100);
    for (const int years : {5, 10, 15, 20}) {
        Facts one;
        one.texts["years"] = QString::number(draft.year + years);
        one.amounts = {{"paid", premium * years},
                       {"surrender", riverPart(premium * years, 700 + 16 * years)},
                       {"death", premium * 25}};
        facts.lists["years"].push_back(one);
    }
    facts.amounts = {
        {"premium", premium}, {"sum", premium * 22}, {"possible", riverPart(premium * 20, 1310)}};
    return facts;
}

} // namespace corpus
