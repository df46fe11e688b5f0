#include "tests/documents/corpus/layouts/RiverFacts.h"

// Facts of employers, of funds that pay daily allowances and of authorities.

namespace corpus {

void riverWords(Draft& draft, Facts& facts, std::initializer_list<RiverWord> words) {
    for (const RiverWord& word : words) {
        facts.texts[word.name] = draft.t(word.german, word.french, word.italian);
    }
}

Cents riverPart(Cents whole, int permille) { return whole * permille / 1000 / 5 * 5; }

void riverNothing(Draft& draft, const QStringList& alsoKinds, const std::vector<QString>& names) {
    issuedBy(draft, "anderes", names);
    draft.truth.alsoKinds = alsoKinds;
}

namespace {

void employer(Draft& draft) {
    issuedBy(draft, "lohnausweis",
             {draft.t("Gerüstbau Flussau AG", "Parqueterie du Rhône SA", "Falegnameria Brenno SA"),
              draft.t("Kinderheim Lindenufer", "Fondation Rive-Bleue", "Istituto Riva del Sole"),
              draft.t("Auto Weier GmbH", "Boulangerie Morel & Fils", "Trasporti Moncucco Sagl"),
              draft.t("Kantine und Catering Steg AG", "Bureau d'études Aubonne SA",
                      "Grafica Pedemonte SA")});
}

void principality(Draft& draft) {
    draft.family = Family::random(draft.random, draft.language, true);
    employer(draft);
    draft.issuer.name =
        draft.one("Feinblech Möliholz AG|Kellerei Bockwingert GmbH|Rheinau Logistik Anstalt");
    draft.issuer.place = draft.one("9490 Vaduz|9496 Balzers|9494 Schaan|9492 Eschen");
    draft.issuer.phone = "+423 " + draft.random.digits(3) + " " + draft.random.digits(4);
}

TruthRecord& noteSalary(Draft& draft, const Someone& who, const Facts& facts) {
    TruthRecord& record = draft.record("salaryCertificate", who);
    record.birthDate = who.birth;
    return record.amount("grossSalary", facts.amounts.at("gross"))
        .amount("socialContributions", facts.amounts.at("social"))
        .amount("pensionContributions", facts.amounts.at("bvg"))
        .amount("netSalaryOverride", facts.amounts.at("net"));
}

void noteIncome(Draft& draft, const char* field, Cents cents) {
    draft.truth.alsoKinds = QStringList{"versicherung", "pensionskasse", "krankenkasse", "anderes"};
    draft.record("personIncome", draft.family.one).amount(field, cents);
}

/// A month's name without its year.
QString monthName(const Draft& draft, int month) {
    const QString text = draft.longDate(QDate(draft.year, month, 1));
    return text.section(' ', 1, 1);
}

Facts pay(Draft& draft, int low, int high) {
    const Cents month = draft.francs(low, high, 5);
    const Cents overtime = draft.random.chance(55) ? draft.odd(180, 3900) : 0;
    const Cents children = draft.random.chance(50) ? draft.francs(230, 600, 10) * 12 : 0;
    const Cents base = 13 * month + overtime;
    const Cents ahv = riverPart(base, 53);
    const Cents alv = riverPart(base, 11);
    const Cents nbu = riverPart(base, draft.random.between(6, 15));
    const Cents bvg = riverPart(base, draft.random.between(42, 88));
    const Cents gross = base + children;
    Facts facts;
    facts.amounts = {{"month", month},
                     {"year12", 12 * month},
                     {"thirteenth", month},
                     {"overtime", overtime},
                     {"children", children},
                     {"gross", gross},
                     {"avs", ahv},
                     {"alv", alv},
                     {"nbu", nbu},
                     {"social", ahv + alv + nbu},
                     {"bvg", bvg},
                     {"deductions", ahv + alv + nbu + bvg},
                     {"ahvfirm", ahv},
                     {"bvgfirm", riverPart(bvg, 1250)},
                     {"famfirm", riverPart(base, 18)}};
    facts.amounts["net"] = gross - facts.amounts["deductions"];
    facts.amounts["travel"] = draft.odd(60, 1900);
    facts.amounts["payout"] = facts.amounts["net"] + facts.amounts["travel"];
    facts.dates = {{"from", QDate(draft.year, 1, 1)}, {"until", draft.yearEnd()}};
    return facts;
}

} // namespace

Facts riverPayFacts(Draft& draft) {
    employer(draft);
    Facts facts = pay(draft, 3700, 9900);
    noteSalary(draft, draft.family.one, facts);
    return facts;
}

Facts riverSplitPayFacts(Draft& draft) {
    employer(draft);
    Facts facts = pay(draft, 3700, 9900);
    noteSalary(draft, draft.family.one, facts).derived = QStringList{"socialContributions"};
    return facts;
}

Facts riverSecondPayFacts(Draft& draft) {
    employer(draft);
    draft.issuer = randomIssuer(
        draft.random, draft.one("Turnverein Auried|Buchhandlung Seitenweise|Hauswartung Pfister"),
        draft.language);
    Facts facts = pay(draft, 400, 2100);
    noteSalary(draft, draft.family.one, facts);
    return facts;
}

Facts riverMonthsPayFacts(Draft& draft) {
    employer(draft);
    Facts facts;
    const Cents salary = draft.francs(3900, 8900, 5);
    const Cents children = draft.random.chance(60) ? draft.francs(230, 500, 10) : 0;
    for (int month = 1; month <= 12; ++month) {
        const Cents thirteenth = month == 12 ? salary : 0;
        const Cents extra = draft.random.chance(30) ? draft.odd(40, 480) : 0;
        const Cents base = salary + thirteenth + extra;
        const Cents social = riverPart(base, 72);
        const Cents bvg = riverPart(salary, 68);
        const Cents travel = draft.random.chance(50) ? draft.odd(15, 160) : 0;
        const std::map<QString, Cents> month12{{"salary", salary},
                                               {"thirteenth", thirteenth},
                                               {"extra", extra},
                                               {"children", children},
                                               {"gross", base + children},
                                               {"social", social},
                                               {"bvg", bvg},
                                               {"net", base + children - social - bvg},
                                               {"travel", travel},
                                               {"payout", base + children - social - bvg + travel}};
        for (const auto& [name, cents] : month12) {
            facts.amounts[name + QString::number(month)] = cents;
            facts.amounts[name] += cents;
        }
    }
    noteSalary(draft, draft.family.one, facts);
    return facts;
}

Facts riverHomeHelpFacts(Draft& draft) {
    issuedBy(draft, "lohnausweis",
             {"Familie Eberhard-Gut", "Verena und Luzius Hartmann", "Haushalt Wyss-Caviezel"});
    Facts facts;
    const Cents rate = draft.francs(27, 38, 1);
    int all = 0;
    for (int month = 1; month <= 12; ++month) {
        const int hours = month == 7 ? 0 : draft.random.between(9, 34);
        Facts one;
        one.texts = {{"month", monthName(draft, month)}, {"hours", QString::number(hours)}};
        one.amounts["part"] = hours * rate;
        all += hours;
        facts.lists["months"].push_back(one);
    }
    const Cents wage = all * rate;
    const Cents holiday = wage * 833 / 10000 / 5 * 5;
    const Cents gross = wage + holiday;
    facts.texts["hours"] = QString::number(all);
    facts.amounts = {{"rate", rate},
                     {"wage", wage},
                     {"holiday", holiday},
                     {"gross", gross},
                     {"avs", riverPart(gross, 53)},
                     {"alv", riverPart(gross, 11)},
                     {"bvg", 0}};
    facts.amounts["social"] = facts.amounts["avs"] + facts.amounts["alv"];
    facts.amounts["net"] = gross - facts.amounts["social"];
    noteSalary(draft, draft.family.one, facts);
    return facts;
}

Facts riverSimplifiedFacts(Draft& draft) {
    riverNothing(
        draft, {"lohnausweis"},
        {draft.t("AHV-Zweigstelle Untere Au", "Caisse AVS de la Plaine", ""),
         draft.t("Ausgleichskasse Kreis Mittelrhein", "Caisse de compensation des Quais", "")});
    Facts facts;
    const Cents gross = draft.odd(1800, 19500);
    facts.amounts = {
        {"gross", gross}, {"social", riverPart(gross, 64)}, {"tax", riverPart(gross, 50)}};
    facts.amounts["net"] = gross - facts.amounts["social"] - facts.amounts["tax"];
    facts.texts["household"] =
        draft.t("R. und S. Locher|Familie Zünd|A. Gantenbein", "Famille Corboz|M. et L. Rime", "");
    return facts;
}

Facts riverJoblessFacts(Draft& draft) {
    issuedBy(draft, "lohnausweis",
             {draft.t("Arbeitslosenkasse Ufer", "Caisse de chômage du Léman-Est", ""),
              draft.t("Kasse für Stellensuchende Ost", "Caisse chômage Solidarité", "")});
    Facts facts;
    const Cents day = draft.odd(110, 320);
    const int first = draft.random.between(1, 7);
    const int last = first + draft.random.between(3, 5);
    int all = 0;
    for (int month = first; month <= last; ++month) {
        const int days = draft.random.between(11, 23);
        Facts one;
        const Cents gross = days * day;
        one.texts = {{"month", monthName(draft, month)}, {"days", QString::number(days)}};
        one.amounts = {{"gross", gross},
                       {"avs", riverPart(gross, 53)},
                       {"bvg", riverPart(gross, 6)},
                       {"nbu", riverPart(gross, 25)}};
        one.amounts["net"] = gross - one.amounts["avs"] - one.amounts["bvg"] - one.amounts["nbu"];
        for (const auto& [name, cents] : one.amounts) {
            facts.amounts[name] += cents;
        }
        all += days;
        facts.lists["months"].push_back(one);
    }
    facts.amounts["day"] = day;
    facts.amounts["insured"] = riverPart(day * 217 / 10, 1250);
    facts.texts["days"] = QString::number(all);
    riverWords(draft, facts,
               {{"title", "Bescheinigung über bezogene Leistungen|Leistungsbezug",
                 "Attestation des indemnités versées|Récapitulatif des indemnités", ""},
                {"period", "Kontrollperiode|Monat", "Période de contrôle|Mois", ""},
                {"tdays", "Taggelder|Tage", "Indemnités|Jours", ""},
                {"tgross", "Brutto", "Brut", ""},
                {"tahv", "AHV/IV/EO", "AVS/AI/APG", ""},
                {"tbvg", "BVG", "LPP", ""},
                {"tnbu", "NBU", "AANP", ""},
                {"tnet", "Netto", "Net", ""},
                {"tsum", "Jahr|Zusammen", "Année|Ensemble", ""},
                {"told", "In die Steuererklärung gehört der Betrag in der Spalte «Netto».",
                 "Le montant de la colonne «Net» est à reporter dans la déclaration d'impôt.", ""},
                {"tinsured", "Versicherter Verdienst im Monat", "Gain assuré par mois", ""},
                {"tday", "Taggeld brutto", "Indemnité journalière brute", ""}});
    noteIncome(draft, "unemployment", facts.amounts["net"]);
    return facts;
}

Facts riverAccidentDaysFacts(Draft& draft) {
    issuedBy(
        draft, "lohnausweis",
        {"Unfallkasse Gewerbe Ost", "Betriebsunfall Versicherungsverein", "Arbeitsschutz UVG"});
    Facts facts;
    const Cents rate = draft.odd(120, 290);
    QDate day(draft.year, draft.random.between(1, 6), draft.random.between(1, 28));
    facts.dates["accident"] = day.addDays(-3);
    for (const int percent : {100, 50, 25}) {
        const int days = draft.random.between(12, 58);
        Facts one;
        one.texts = {{"days", QString::number(days)}, {"percent", QString::number(percent) + " %"}};
        one.dates = {{"from", day}, {"until", day.addDays(days - 1)}};
        one.amounts = {{"rate", riverPart(rate, percent * 10)}};
        one.amounts["part"] = days * one.amounts["rate"];
        facts.amounts["total"] += one.amounts["part"];
        facts.lists["periods"].push_back(one);
        day = day.addDays(days);
    }
    facts.amounts["rate"] = rate;
    facts.amounts["insured"] = riverPart(rate * 365, 1250);
    facts.amounts["doctor"] = draft.odd(300, 5200);
    facts.texts["case"] = draft.random.digits(2) + "." + draft.random.digits(5);
    noteIncome(draft, "dailyAllowances", facts.amounts["total"]);
    return facts;
}

Facts riverMaternityFacts(Draft& draft) {
    issuedBy(draft, "lohnausweis",
             {draft.t("Ausgleichskasse", "Caisse de compensation des Métiers du Lac",
                      "Cassa di compensazione Artigiani Riuniti"),
              draft.t("Ausgleichskasse", "Caisse AVS Commerce et Industrie Ouest",
                      "Cassa AVS Piccole Imprese")});
    Facts facts;
    const Cents day = draft.odd(70, 190);
    draft.family.one.first = draft.t("Lea", "Maude|Coralie|Zélie", "Marzia|Delia|Ornella");
    QDate on(draft.year, draft.random.between(1, 7), draft.random.between(1, 28));
    facts.dates["birthday"] = on;
    for (const bool direct : {false, true}) {
        const int days = direct ? 98 - 28 : 28;
        Facts one;
        const Cents gross = days * day;
        one.texts = {{"days", QString::number(days)},
                     {"whom", direct
                                  ? draft.t("Sie", "vous-même", "Lei")
                                  : draft.t("Arbeitgeber", "votre employeur", "datore di lavoro")}};
        one.dates = {{"from", on}, {"until", on.addDays(days - 1)}};
        one.amounts = {{"gross", gross}, {"social", riverPart(gross, 64)}};
        one.amounts["net"] = gross - one.amounts["social"];
        facts.lists["periods"].push_back(one);
        if (direct) {
            facts.amounts = one.amounts;
        }
        on = on.addDays(days);
    }
    facts.amounts["day"] = day;
    noteIncome(draft, "dailyAllowances", facts.amounts["net"]);
    return facts;
}

Facts riverCouncilFacts(Draft& draft) {
    issuedBy(draft, "lohnausweis",
             {"Gemeindeverwaltung Auwil", "Schulgemeinde Flussau", "Ortsgemeinde Rheinsteg"});
    Facts facts;
    Cents sittings = 0;
    const int rows = draft.random.between(3, 7);
    for (int i = 0; i < rows; ++i) {
        Facts row;
        for (const QString place : {"1", "2"}) {
            const Cents part = draft.francs(60, 340, 20);
            const int at = 20 + (place == "1" ? 0 : 170) + 22 * i;
            row.dates["on" + place] = QDate(draft.year, 1, 1).addDays(at);
            row.texts["body" + place] =
                draft.one("Rat|Baukommission|GPK|Bürgerversammlung|Finanzkommission|Augenschein");
            row.amounts["a" + place] = part;
            sittings += part;
        }
        facts.lists["rows"].push_back(row);
    }
    const Cents lump = draft.francs(1200, 9600, 100);
    facts.amounts = {{"sittings", sittings},
                     {"lump", lump},
                     {"gross", sittings + lump},
                     {"social", riverPart(sittings + lump, 64)},
                     {"bvg", 0},
                     {"expenses", draft.francs(150, 900, 50)}};
    facts.amounts["net"] = facts.amounts["gross"] - facts.amounts["social"];
    facts.amounts["payout"] = facts.amounts["net"] + facts.amounts["expenses"];
    noteSalary(draft, draft.family.one, facts);
    return facts;
}

Facts riverWageTaxFacts(Draft& draft) {
    principality(draft);
    Facts facts;
    const Cents salary = draft.francs(4200, 9400, 10);
    for (int month = 1; month <= 12; ++month) {
        const Cents gross = salary + (month == 12 ? salary : 0);
        Facts one;
        one.texts["month"] = monthName(draft, month).left(3) + ".";
        one.amounts = {{"gross", gross},
                       {"avs", riverPart(gross, 47)},
                       {"alv", riverPart(gross, 5)},
                       {"nbu", riverPart(gross, 12)},
                       {"bvg", riverPart(gross, 60)},
                       {"wagetax", riverPart(gross, 40)}};
        one.amounts["social"] = one.amounts["avs"] + one.amounts["alv"] + one.amounts["nbu"];
        one.amounts["net"] = gross - one.amounts["social"] - one.amounts["bvg"];
        one.amounts["payout"] = one.amounts["net"] - one.amounts["wagetax"];
        for (const auto& [name, cents] : one.amounts) {
            facts.amounts[name] += cents;
        }
        facts.lists["months"].push_back(one);
    }
    noteSalary(draft, draft.family.one, facts);
    return facts;
}

Facts riverCorrectedPayFacts(Draft& draft) {
    employer(draft);
    Facts facts = pay(draft, 3700, 9900);
    const Cents missed = draft.francs(300, 4200, 10); // a premium that the first sheet forgot
    const std::map<QString, Cents> diff{
        {"gross", missed}, {"social", riverPart(missed, 70)}, {"bvg", riverPart(missed, 55)}};
    for (const char* name : {"gross", "social", "bvg"}) {
        facts.amounts["diff" + QString(name)] = diff.at(name);
        facts.amounts["old" + QString(name)] = facts.amounts[name] - diff.at(name);
    }
    for (const char* which : {"diff", "old"}) {
        const QString w = which;
        facts.amounts[w + "net"] =
            facts.amounts[w + "gross"] - facts.amounts[w + "social"] - facts.amounts[w + "bvg"];
    }
    facts.dates["first"] = QDate(draft.year + 1, 1, draft.random.between(10, 24));
    draft.dated = facts.dates["first"].addDays(draft.random.between(9, 40));
    noteSalary(draft, draft.family.one, facts);
    return facts;
}

} // namespace corpus
