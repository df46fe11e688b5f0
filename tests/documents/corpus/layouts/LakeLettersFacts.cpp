#include "tests/documents/corpus/layouts/LakeFacts.h"

// Facts of letters about money that hold nothing to enter.

namespace corpus {
namespace {

QString percent(int points) { return QString::number(points / 100.0, 'f', 2) + " %"; }

} // namespace

Facts lakeMeetingFacts(Draft& draft) {
    lakeIdle(draft, {"steuerauszug"},
             {draft.t("Bergbahnen Hochgarten AG", "Remontées du Grand-Pré SA", ""),
              draft.t("Regiobank Holding Uferland", "Eaux Minérales Source-Claire SA", "")});
    Facts facts;
    const int count = draft.random.between(10, 900);
    const Cents each = draft.odd(1, 9);
    const Cents gross = each * count;
    facts.amounts = {{"each", each},
                     {"gross", gross},
                     {"tax", gross * 35 / 100},
                     {"net", gross - gross * 35 / 100},
                     {"nominal", 10000},
                     {"profit", draft.francs(4000000, 90000000, 10000)},
                     {"board", draft.francs(300000, 1900000, 10000)}};
    facts.texts = {{"count", QString::number(count)}, {"holder", draft.random.digits(6)}};
    facts.dates = {{"meeting", QDate(draft.year + 1, 4, 24)}, {"due", QDate(draft.year + 1, 5, 2)}};
    return facts;
}

Facts lakeGrantFacts(Draft& draft) {
    lakeIdle(draft, {"lohnausweis"},
             {"Seilerei & Netze AG", "Hydrotechnik Bodan AG", "Optikwerke Rietli AG"});
    Facts facts;
    const int count = draft.random.between(20, 400);
    const Cents price = draft.odd(40, 260);
    facts.amounts = {{"price", price},
                     {"worth", price * count},
                     {"own", price * 3 / 4 / 5 * 5},
                     {"paid", price * 3 / 4 / 5 * 5 * count},
                     {"bonus", draft.francs(2000, 12000, 100)}};
    facts.texts["count"] = QString::number(count);
    facts.dates = {{"grant", QDate(draft.year, 4, 1)}, {"free", QDate(draft.year + 3, 4, 1)}};
    return facts;
}

Facts lakeReminderFacts(Draft& draft) {
    lakeIdle(draft, {"bankauszug"},
             {draft.t("Kartenzentrum Libelle AG", "Prêt Nénuphar SA", "Prestiti Ninfea SA"),
              draft.t("Kreditinstitut Ankerplatz AG", "Institut de crédit La Bouée SA",
                      "Istituto di credito Boa SA")});
    Facts facts;
    facts.amounts = {{"open", draft.odd(180, 3900)},
                     {"late", draft.odd(2, 60)},
                     {"fee", draft.francs(20, 50, 10)},
                     {"rest", draft.odd(5000, 24000)}};
    facts.amounts["total"] = facts.amounts["open"] + facts.amounts["late"] + facts.amounts["fee"];
    facts.dates = {{"billed", draft.day()}, {"due", draft.day()}};
    return facts;
}

Facts lakeOfferFacts(Draft& draft) {
    lakeIdle(
        draft, {},
        {draft.t("Seebank Hafenegg AG", "Banque des Roselières SA", "Banca del Canneto SA"),
         draft.t("Hypothekenlotse GmbH", "Pilote Hypothécaire Sàrl", "Nocchiero Ipoteche Sagl")});
    Facts facts;
    const Cents sum = draft.francs(280000, 900000, 5000);
    for (const QString& name :
         {draft.t("Fest 5 Jahre", "Fixe 5 ans", "Fissa 5 anni"),
          draft.t("Fest 10 Jahre", "Fixe 10 ans", "Fissa 10 anni"), QString("SARON 3M")}) {
        Facts one;
        const int rate = draft.random.between(105, 265);
        const Cents year = sum * rate / 10000 / 5 * 5;
        one.texts = {{"name", name}, {"rate", percent(rate)}};
        one.amounts = {{"loan", sum}, {"year", year}, {"month", year / 12 / 5 * 5}};
        facts.lists["models"].push_back(one);
    }
    facts.amounts = {{"loan", sum},
                     {"price", sum * 5 / 4},
                     {"own", sum / 4},
                     {"upkeep", sum * 5 / 4 / 100},
                     {"redemption", sum / 100}};
    return facts;
}

Facts lakeAdviceFacts(Draft& draft) {
    lakeIdle(draft, {},
             {"Finanzplanung Leuchtturm GmbH", "Vorsorgeberatung Kompass", "Seebank Hafenegg AG"});
    Facts facts;
    facts.amounts = {{"need", draft.francs(60000, 96000, 500)},
                     {"ahv", draft.francs(22000, 44000, 60)},
                     {"fund", draft.francs(14000, 42000, 120)},
                     {"pillar", draft.francs(3000, 7000, 100)},
                     {"buyin", draft.francs(10000, 60000, 5000)},
                     {"saved", draft.francs(2000, 16000, 100)},
                     {"capital", draft.francs(90000, 480000, 1000)},
                     {"interest", draft.francs(100, 900, 10)},
                     {"fee", draft.francs(400, 1900, 50)}};
    facts.amounts["gap"] =
        qAbs(facts.amounts["need"] - facts.amounts["ahv"] - facts.amounts["fund"]);
    return facts;
}

Facts lakeOrderFacts(Draft& draft) {
    lakeIdle(draft, {"bankauszug", "steuerauszug"},
             {draft.t("Seebank Hafenegg AG", "Banque des Roselières SA", "Banca del Canneto SA"),
              draft.t("Bankhaus Möwe & Söhne", "Mouette & Fils, banquiers", "Gabbiano & Figli")});
    Facts facts;
    const int count = draft.random.between(10, 300);
    const Cents price = draft.odd(20, 280);
    const Cents worth = price * count;
    facts.amounts = {{"price", price},
                     {"worth", worth},
                     {"broker", worth * 8 / 1000 / 5 * 5},
                     {"stamp", worth * 75 / 100000 / 5 * 5}};
    facts.amounts["total"] = worth + facts.amounts["broker"] + facts.amounts["stamp"];
    facts.texts = {{"count", QString::number(count)},
                   {"valor", draft.random.digits(7)},
                   {"depot", draft.random.digits(3) + "-" + draft.random.digits(6)}};
    facts.dates = {{"traded", draft.day()}};
    facts.dates["value"] = facts.dates["traded"].addDays(2);
    return facts;
}

Facts lakeHalfYearFacts(Draft& draft) {
    lakeIdle(draft, {"bankauszug"},
             {draft.t("Uferkasse Genossenschaft", "Caisse du Débarcadère", "Cassa Darsena"),
              draft.t("Sparinstitut Schilfried", "Crédit Lacustre SA", "Credito Lacuale SA")});
    Facts facts;
    const Cents opening = draft.odd(4000, 70000);
    facts.amounts = {
        {"opening", opening}, {"interest", opening / 250 / 5 * 5 + 5}, {"fee", draft.odd(6, 36)}};
    facts.amounts["balance"] = opening + facts.amounts["interest"] - facts.amounts["fee"];
    facts.dates["half"] = QDate(draft.year, 6, 30);
    return facts;
}

Facts lakePlanFacts(Draft& draft) {
    lakeIdle(draft, {"bankauszug"},
             {draft.t("Seebank Hafenegg AG", "Banque des Roselières SA", "Banca del Canneto SA"),
              draft.t("Sparinstitut Schilfried", "Crédit Lacustre SA", "Credito Lacuale SA")});
    Facts facts;
    const Cents sum = draft.francs(150000, 640000, 1000);
    const int rate = draft.random.between(120, 240);
    const Cents quarter = sum * rate / 40000 / 5 * 5;
    for (int i = 1; i <= 4; ++i) {
        Facts one;
        const QDate month(draft.year + 1, 3 * i, 1);
        one.dates["on"] = QDate(month.year(), month.month(), month.daysInMonth());
        one.amounts = {{"part", quarter}, {"back", 125000}, {"due", quarter + 125000}};
        facts.lists["payments"].push_back(one);
    }
    facts.amounts["loan"] = sum;
    total(facts, "payments", "part", "year");
    total(facts, "payments", "back", "back");
    total(facts, "payments", "due", "due");
    facts.texts = {{"rate", percent(rate)}, {"number", draft.random.digits(8)}};
    return facts;
}

Facts lakeLeasingFacts(Draft& draft) {
    lakeIdle(draft, {"bankauszug"},
             {draft.t("Fahrleasing Bugwelle AG", "Leasing Proue SA", "Leasing Prua SA"),
              draft.t("Autofinanz Seetal AG", "Autofinance Rivage SA", "Autofinanza Riva SA")});
    Facts facts;
    const Cents month = draft.odd(240, 760);
    facts.amounts = {{"month", month},
                     {"paid", 12 * month},
                     {"share", 12 * month * 11 / 100 / 5 * 5},
                     {"rest", draft.odd(9000, 26000)},
                     {"price", draft.francs(26000, 64000, 100)},
                     {"deposit", draft.francs(1000, 4000, 500)}};
    facts.texts = {{"number", draft.random.digits(7)},
                   {"car", draft.t("Personenwagen Kombi", "voiture de tourisme", "autovettura")}};
    return facts;
}

} // namespace corpus
