#include "tests/documents/corpus/layouts/RiverFacts.h"

// Facts of health insurers, of practices and of homes.

namespace corpus {

TruthRecord riverCost(const Draft& draft, Cents gross) {
    TruthRecord cost;
    cost.kind = "medicalCost";
    cost.year = draft.year;
    cost.personName = draft.family.one.name();
    return cost.amount("gross", gross).text("provider", draft.issuer.name);
}

namespace {

void insurer(Draft& draft) {
    issuedBy(
        draft, "krankenkasse",
        {draft.t("Krankenkasse Wasserfall", "Caisse-maladie La Cascade", "Cassa malati La Cascata"),
         draft.t("Gesundheitskasse Auenwald", "Santé des Rives", "Salute Rive"),
         draft.t("Eisvogel Gesundheit AG", "Martin-Pêcheur Santé SA", "Airone Salute SA")});
}

void notePremiums(Draft& draft, Cents premiums, Cents reduction) {
    draft.record("householdDeductions", draft.family.one)
        .amount("healthInsurancePremiums", premiums)
        .amount("premiumReduction", reduction);
}

/// What the insured bore may be read as a cost of illness.
void acceptShare(Draft& draft, Cents gross) {
    if (gross != 0) {
        TruthRecord cost;
        cost.kind = "medicalCost";
        cost.year = draft.year;
        draft.truth.accepted.push_back(cost.amount("gross", gross));
    }
}

void practice(Draft& draft, const std::vector<QString>& names) {
    issuedBy(draft, "arztrechnung", names);
    draft.dated = draft.day();
}

TruthRecord& noteCost(Draft& draft, Cents gross) {
    draft.truth.records.push_back(riverCost(draft, gross));
    return draft.truth.records.back();
}

QString quantity(Draft& draft, int low, int high) {
    return QString::number(draft.random.between(low, high));
}

} // namespace

Facts riverPanelFacts(Draft& draft) {
    insurer(draft);
    Facts facts;
    const bool reduced = draft.random.chance(65);
    for (const Someone& who :
         {draft.family.one, draft.family.two, draft.family.child, draft.family.secondChild}) {
        const bool child = who.number == draft.family.child.number
                           || who.number == draft.family.secondChild.number;
        Facts one;
        one.texts = {{"who", who.first}};
        one.amounts = {{"basic", 12 * (child ? draft.odd(70, 130) : draft.odd(240, 480))},
                       {"extra", 12 * (child ? draft.odd(5, 22) : draft.odd(12, 120))},
                       {"sharing", child ? draft.odd(10, 120) : draft.odd(140, 1200)}};
        for (const auto& [name, cents] : one.amounts) {
            facts.amounts[name] += cents;
        }
        acceptShare(draft, one.amounts["sharing"]);
        facts.lists["people"].push_back(one);
    }
    facts.amounts["total"] = facts.amounts["basic"] + facts.amounts["extra"];
    facts.amounts["reduction"] = reduced ? 12 * draft.odd(60, 320) : 0;
    facts.amounts["net"] = facts.amounts["total"] - facts.amounts["reduction"];
    acceptShare(draft, facts.amounts["sharing"]);
    notePremiums(draft, facts.amounts["total"], facts.amounts["reduction"]);
    return facts;
}

Facts riverStepsFacts(Draft& draft) {
    insurer(draft);
    Facts facts;
    int count = 0;
    for (const Someone& who : {draft.family.one, draft.family.two, draft.family.child}) {
        const bool child = who.number == draft.family.child.number;
        Facts one;
        const int months = draft.random.between(3, 9);
        const auto step = [&](const QString& what, int from, int until, Cents month) {
            Facts line;
            line.texts = {
                {"what", what},
                {"span",
                 QString("%1–%2").arg(from, 2, 10, QChar('0')).arg(until, 2, 10, QChar('0'))},
                {"months", QString::number(until - from + 1)}};
            line.amounts = {{"month", month}, {"part", month * (until - from + 1)}};
            one.amounts["total"] += line.amounts["part"];
            one.lists["steps"].push_back(line);
        };
        const Cents basic = child ? draft.odd(70, 130) : draft.odd(250, 460);
        step("Grundversicherung mit Unfall", 1, months, basic);
        step("Grundversicherung ohne Unfall", months + 1, 12, riverPart(basic, 935));
        step("Spitalzusatz", 1, 12, child ? draft.odd(4, 12) : draft.odd(15, 90));
        if (draft.random.chance(60)) {
            step("Zahnpflege", 1, 12, draft.odd(6, 30));
        }
        const QString place = QString::number(++count);
        facts.texts["who" + place] = who.name();
        facts.dates["born" + place] = who.birth;
        facts.amounts["total" + place] = one.amounts["total"];
        facts.amounts["total"] += one.amounts["total"];
        facts.lists["steps" + place] = one.lists["steps"];
    }
    facts.amounts["reduction"] = draft.random.chance(50) ? draft.odd(600, 4200) : 0;
    facts.amounts["net"] = facts.amounts["total"] - facts.amounts["reduction"];
    notePremiums(draft, facts.amounts["total"], facts.amounts["reduction"]);
    return facts;
}

Facts riverInvoicesFacts(Draft& draft) {
    insurer(draft);
    Facts facts;
    const Cents basic = draft.odd(700, 1500);
    const Cents extra = draft.odd(40, 330);
    for (int quarter = 1; quarter <= 4; ++quarter) {
        Facts one;
        one.texts["number"] = draft.random.digits(9);
        one.dates = {{"on", QDate(draft.year, 3 * quarter - 2, draft.random.between(2, 9))},
                     {"paid", QDate(draft.year, 3 * quarter - 1, draft.random.between(1, 28))}};
        one.amounts["part"] = basic + extra;
        facts.lists["invoices"].push_back(one);
    }
    facts.amounts = {{"basic", 4 * basic},  {"accident", riverPart(4 * basic, 65)},
                     {"extra", 4 * extra},  {"total", 4 * (basic + extra)},
                     {"levy", Cents{6460}}, {"before", 4 * (basic + extra) - draft.odd(60, 400)}};
    notePremiums(draft, facts.amounts["total"], 0);
    return facts;
}

Facts riverToldFacts(Draft& draft) {
    insurer(draft);
    Facts facts;
    const Cents basic = 12 * draft.odd(240, 490);
    const Cents extra = 12 * draft.odd(9, 110);
    const Cents franchise = draft.francs(100, 300, 50);
    const Cents quota = draft.odd(8, 640);
    facts.amounts = {{"basic", basic},
                     {"extra", extra},
                     {"total", basic + extra},
                     {"reduction", 12 * draft.odd(25, 180)},
                     {"franchise", franchise},
                     {"quota", quota},
                     {"sharing", franchise + quota}};
    facts.amounts["net"] = facts.amounts["total"] - facts.amounts["reduction"];
    for (const char* name : {"franchise", "quota", "sharing"}) {
        acceptShare(draft, facts.amounts[name]);
    }
    notePremiums(draft, facts.amounts["total"], facts.amounts["reduction"]);
    return facts;
}

Facts riverClaimFacts(Draft& draft) {
    practice(draft, {draft.t("Dr. med. Regula Anderegg", "Dr méd. Aline Besson", ""),
                     draft.t("Frauenpraxis am Wehr", "Centre médical des Quais", ""),
                     draft.t("Hautarztpraxis Stegmatt", "Cabinet de dermatologie Rive 9", "")});
    Facts facts;
    const Cents point = draft.random.between(82, 96);
    for (int i = draft.random.between(4, 8); i > 0; --i) {
        Facts item;
        const int points = draft.random.between(80, 6400); // hundredths
        item.texts = {
            {"what", draft.t("Konsultation, erste 5 Min.|Konsultation, weitere 5 Min.|"
                             "Untersuchung durch den Facharzt|Laboranalyse CRP|"
                             "Verordnung, Wiederholung",
                             "Consultation, première période de 5 min|Examen par le "
                             "spécialiste|Analyse CRP|Consultation, par 5 min en plus",
                             "")},
            {"code", QString("00.%1").arg(draft.random.between(10, 2700), 4, 10, QChar('0'))},
            {"points", QString::number(points / 100.0, 'f', 2)},
            {"point", QString::number(static_cast<double>(point) / 100.0, 'f', 2)}};
        item.dates["on"] = draft.dated.addDays(-3 * i - 4);
        item.amounts["part"] = point * points / 100;
        facts.amounts["tariff"] += item.amounts["part"];
        facts.lists["items"].push_back(item);
    }
    facts.amounts["drugs"] = draft.odd(8, 140);
    facts.amounts["lab"] = draft.odd(12, 190);
    facts.amounts["sum"] = facts.amounts["tariff"] + facts.amounts["drugs"] + facts.amounts["lab"];
    facts.amounts["total"] = (facts.amounts["sum"] + 2) / 5 * 5; // to five centimes
    facts.texts["number"] = draft.random.digits(8);
    facts.texts["gln"] = "760" + draft.random.digits(10);
    riverWords(draft, facts,
               {{"title", "Rückforderungsbeleg|Rechnung Tiers Garant",
                 "Justificatif de remboursement|Facture tiers garant", ""},
                {"patient", "Patient/in", "Patient(e)", ""},
                {"born", "Geburtsdatum", "Date de naissance", ""},
                {"biller", "Rechnungssteller GLN", "Auteur facture GLN", ""},
                {"date", "Rechnungsdatum", "Date de facture", ""},
                {"law", "Gesetz", "Loi", ""},
                {"kvg", "KVG", "LAMal", ""},
                {"tarifftext", "Tarif ambulant", "Tarif ambulatoire", ""},
                {"drugstext", "Medikamente", "Médicaments", ""},
                {"labtext", "Labor", "Laboratoire", ""},
                {"dueamount", "Fälliger Betrag", "Montant dû", ""},
                {"what", "Leistung", "Prestation", ""},
                {"points", "TP", "Pts", ""},
                {"amount", "Betrag", "Montant", ""},
                {"send",
                 "Bitte bezahlen Sie die Rechnung und senden Sie diesen Beleg Ihrer "
                 "Krankenkasse.",
                 "Veuillez régler la facture et remettre ce justificatif à votre assureur.", ""}});
    noteCost(draft, facts.amounts["total"]).date("date", draft.dated);
    return facts;
}

Facts riverInstalmentsFacts(Draft& draft) {
    practice(draft, {"Zahnarztpraxis Uferweg", "Dr. med. dent. Iris Stadelmann",
                     "Kieferorthopädie Brugg & Partner"});
    draft.dated = QDate(draft.year, draft.random.between(2, 8), draft.random.between(1, 28));
    Facts facts;
    const Cents part = draft.odd(140, 1400);
    for (int i = 1; i <= 3; ++i) {
        Facts one;
        one.texts["no"] = QString::number(i) + ". Rate";
        one.dates["due"] = draft.dated.addDays(30 * i);
        one.amounts["rate"] = part;
        facts.lists["rates"].push_back(one);
    }
    const Cents total = 3 * part;
    facts.amounts = {{"total", total},
                     {"rate", part},
                     {"lab", riverPart(total, 320)},
                     {"material", riverPart(total, 45)}};
    facts.amounts["care"] = total - facts.amounts["lab"] - facts.amounts["material"];
    facts.texts["number"] = draft.random.digits(5);
    facts.texts["what"] = draft.one("Keramikkrone Zahn 26|Implantat Zahn 46|Zahnspange, 2. Phase|"
                                    "Brücke 34 bis 36");
    noteCost(draft, total).date("date", draft.dated);
    draft.truth.accepted.push_back(riverCost(draft, part));
    return facts;
}

Facts riverHomeCareFacts(Draft& draft) {
    practice(draft, {"Spitex Flussland", "Hauspflege Untere Au", "Spitex-Verein Wehr und Steg"});
    draft.dated = QDate(draft.dated.year(), draft.dated.month(), draft.dated.daysInMonth());
    Facts facts;
    Cents full = 0;
    for (const char* what :
         {"A Abklärung und Beratung", "B Untersuchung und Behandlung", "C Grundpflege"}) {
        Facts item;
        const int minutes = 5 * draft.random.between(12, 220);
        const Cents rate = what[0] == 'A' ? 7690 : what[0] == 'B' ? 6300 : 5260;
        item.texts = {{"what", what}, {"minutes", QString::number(minutes)}};
        item.amounts = {{"rate", rate}, {"part", rate * minutes / 60 / 5 * 5}};
        full += item.amounts["part"];
        facts.lists["items"].push_back(item);
    }
    const int days = draft.random.between(12, 30);
    const Cents own = days * Cents{1535};
    const Cents rest = riverPart(full, 380);
    const Cents material = draft.odd(9, 120);
    facts.texts = {{"days", QString::number(days)},
                   {"month", draft.longDate(draft.dated).section(' ', 1, 1)},
                   {"number", draft.random.digits(6)}};
    facts.amounts = {
        {"insurer", full},    {"rest", rest},         {"full", full + rest + own}, {"own", own},
        {"day", Cents{1535}}, {"material", material}, {"total", own + material}};
    facts.dates["due"] = draft.dated.addDays(30);
    noteCost(draft, facts.amounts["total"]).date("date", draft.dated);
    draft.truth.accepted.push_back(riverCost(draft, own));
    return facts;
}

Facts riverCareHomeFacts(Draft& draft) {
    practice(draft, {"Seniorenzentrum Flusspark", "Pflegeheim Weidenhof", "Haus zur Au, Pflege"});
    draft.dated = QDate(draft.dated.year(), draft.dated.month(), draft.dated.daysInMonth());
    Facts facts;
    const int days = draft.dated.daysInMonth();
    const Cents board = draft.odd(105, 165);
    const Cents support = draft.odd(22, 48);
    const Cents own = Cents{2300} * days;
    const Cents insurer = draft.francs(48, 96, 1) * days;
    const Cents rest = draft.odd(14, 62) * days;
    const Cents extras = draft.odd(18, 190);
    facts.texts = {{"days", QString::number(days)},
                   {"month", draft.longDate(draft.dated).section(' ', 1)},
                   {"level", QString::number(draft.random.between(5, 11))},
                   {"number", draft.random.digits(6)}};
    facts.amounts = {{"boardday", board},
                     {"board", board * days},
                     {"supportday", support},
                     {"support", support * days},
                     {"care", own + insurer + rest},
                     {"insurer", insurer},
                     {"rest", rest},
                     {"ownday", Cents{2300}},
                     {"own", own},
                     {"extras", extras}};
    facts.amounts["total"] = facts.amounts["board"] + facts.amounts["support"] + own + extras;
    facts.amounts["cost"] = facts.amounts["total"] + insurer + rest;
    // Board is a living cost; whether support is a cost of illness depends on the level of care.
    noteCost(draft, own).date("date", draft.dated);
    for (const Cents other : {own + facts.amounts["support"], facts.amounts["total"]}) {
        draft.truth.accepted.push_back(riverCost(draft, other));
    }
    return facts;
}

Facts riverOpticianFacts(Draft& draft) {
    practice(draft, {draft.t("Sehwerk Brückenkopf", "Optique du Quai", ""),
                     draft.t("Brillen Kohler am Fluss", "Lunetterie des Ponts Sàrl", "")});
    Facts facts;
    Cents sum = 0;
    const QStringList what{draft.t("Fassung «Nora»", "Monture «Nora»", ""),
                           draft.t("Gleitsichtglas rechts", "Verre progressif droit", ""),
                           draft.t("Gleitsichtglas links", "Verre progressif gauche", ""),
                           draft.t("Sehtest und Anpassung", "Examen de vue et adaptation", "")};
    for (const QString& one : what) {
        Facts item;
        item.texts = {{"what", one}, {"code", draft.random.digits(4)}};
        item.amounts["part"] = draft.odd(60, 480);
        sum += item.amounts["part"];
        facts.lists["items"].push_back(item);
    }
    const Cents discount = riverPart(sum, 100);
    const Cents insurer = draft.francs(90, 180, 10);
    facts.texts["number"] = draft.random.digits(6);
    facts.amounts = {{"sum", sum},
                     {"discount", discount},
                     {"full", sum - discount},
                     {"insurer", insurer},
                     {"own", sum - discount - insurer}};
    facts.amounts["vat"] = facts.amounts["full"] * 81 / 1081;
    riverWords(draft, facts,
               {{"title", "Verkaufsbeleg|Rechnung", "Facture|Quittance", ""},
                {"customer", "Kundin/Kunde", "Client(e)", ""},
                {"sumtext", "Zwischensumme", "Sous-total", ""},
                {"discounttext", "Rabatt 10 %", "Rabais 10 %", ""},
                {"fulltext", "Auftragswert inkl. MWST", "Valeur de la commande, TVA comprise", ""},
                {"insurertext", "Direkt mit Ihrer Zusatzversicherung verrechnet",
                 "Pris en charge par votre assurance complémentaire", ""},
                {"owntext", "Von Ihnen bezahlt (Karte)|Bezahlt mit Karte",
                 "Payé par vous (carte)|Montant payé par carte", ""},
                {"vattext", "darin MWST 8.1 %", "dont TVA 8.1 %", ""}});
    noteCost(draft, facts.amounts["own"]).date("date", draft.dated);
    TruthRecord whole = draft.truth.records.back();
    draft.truth.accepted.push_back(
        whole.amount("gross", facts.amounts["full"]).amount("reimbursed", insurer));
    return facts;
}

Facts riverPharmacyFacts(Draft& draft) {
    issuedBy(draft, "arztrechnung",
             {"Farmacia Ponte Nuovo", "Farmacia alla Foce SA", "Farmacia San Rocco"});
    Facts facts;
    for (int month = 1; month <= 6; ++month) {
        Facts row;
        for (const QString side : {"1", "2"}) {
            const int which = month + (side == "1" ? 0 : 6);
            row.texts["month" + side] =
                draft.longDate(QDate(draft.year, which, 1)).section(' ', 1, 1);
            for (const char* name : {"free", "covered"}) {
                const Cents part = draft.random.chance(75) ? draft.odd(6, 140) : 0;
                row.amounts[name + side] = part;
                facts.amounts[name] += part;
            }
        }
        facts.lists["rows"].push_back(row);
    }
    facts.amounts["free"] += 1500; // a fee in January, so that something stands there in any case
    facts.lists["rows"][0].amounts["free1"] += 1500;
    facts.amounts["all"] = facts.amounts["free"] + facts.amounts["covered"];
    facts.texts["card"] = draft.random.digits(7);
    noteCost(draft, facts.amounts["free"]);
    return facts;
}

Facts riverSessionsFacts(Draft& draft) {
    practice(draft, {"Psychotherapie Weidenweg", "Ergotherapie Handwerk", "Physio Wellenbad"});
    Facts facts;
    const Cents rate = draft.odd(52, 190);
    const int rows = draft.random.between(2, 4);
    for (int i = 0; i < rows; ++i) {
        Facts row;
        for (int k = 1; k <= 4; ++k) {
            row.dates["on" + QString::number(k)] =
                draft.dated.addDays(7 * (4 * i + k) - 28 * rows - 9);
        }
        facts.lists["rows"].push_back(row);
    }
    const int missed = draft.random.between(1, 2);
    const int count = 4 * rows;
    facts.texts = {{"count", QString::number(count)},
                   {"minutes", quantity(draft, 30, 60)},
                   {"number", draft.random.digits(5)}};
    facts.amounts = {{"rate", rate},
                     {"sum", rate * count},
                     {"report", draft.odd(20, 60) * missed},
                     {"fee", Cents{2500}}};
    facts.amounts["total"] = facts.amounts["sum"] + facts.amounts["report"];
    facts.dates["due"] = draft.dated.addDays(30);
    noteCost(draft, facts.amounts["total"]).date("date", draft.dated);
    return facts;
}

Facts riverReminderFacts(Draft& draft) {
    practice(draft, {draft.t("Praxis", "Clinique dentaire de l'Écluse", ""),
                     draft.t("Praxis", "Cabinet d'orthodontie Les Berges", "")});
    draft.dated = QDate(draft.year, draft.random.between(6, 12), draft.random.between(1, 28));
    Facts facts;
    const Cents total = draft.odd(300, 3600);
    const Cents paid = riverPart(total, 300);
    facts.texts = {{"number", draft.random.digits(6)}};
    facts.dates = {{"billed", draft.dated.addDays(-75)},
                   {"part", draft.dated.addDays(-40)},
                   {"due", draft.dated.addDays(10)}};
    facts.amounts = {
        {"total", total}, {"paid", paid}, {"fee", draft.francs(10, 40, 5)}, {"left", total - paid}};
    facts.amounts["open"] = total - paid + facts.amounts["fee"];
    noteCost(draft, total).date("date", facts.dates["billed"]);
    draft.truth.accepted.push_back(riverCost(draft, facts.amounts["left"]));
    return facts;
}

} // namespace corpus
