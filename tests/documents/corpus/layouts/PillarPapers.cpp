#include "tests/documents/corpus/layouts/Layout.h"

// Certificates of pillar 3a and of buy-ins into a pension fund.

namespace corpus {
namespace {

void beginPillar(Draft& draft) {
    draft.truth.kind = "saeule3a";
    draft.from({draft.t("Vorsorgestiftung Alpstein 3a", "Fondation de prévoyance Jorat 3a",
                        "Fondazione previdenza Brenno 3a"),
                draft.t("Vorsorge Sparkasse Sitter", "Prévoyance Venoge", "Previdenza Ceresio")},
               {draft.t("Pilatus Vorsorge Säule drei", "Prévoyance Salève", "Previdenza Moesa"),
                draft.t("Stiftung Zukunft Walensee", "Fondation Avenir Broye",
                        "Fondazione Futuro Melide")});
}

void beginBuyIn(Draft& draft) {
    draft.truth.kind = "pensionskasse";
    draft.from({"Pensionskasse Ostgewerbe", "Sammelstiftung Rheinbogen"},
               {"Personalvorsorge Linthwerke", "BVG-Stiftung Toggenburg Plus"});
}

/// Box with a small label, the value on the right.
void formLine(Draft& draft, const QString& letter, const QString& label, const QString& value) {
    Paper& p = draft.paper;
    p.box(22, p.y, 168, 9, 0.15);
    p.put(24, p.y + 6, letter, {9, true});
    p.put(34, p.y + 6, label, {8});
    p.put(187, p.y + 6, value, {10, false, Align::right, false, Qt::black, "Liberation Mono"});
    p.y += 9;
}

/// The federal form 21 for contributions; box for the 3a or for the buy-in.
void form21(Draft& draft, bool buyIn) {
    Paper& p = draft.paper;
    p.newPage();
    const Someone& who = draft.family.one;
    p.put(22, 18,
          draft.t("Bescheinigung über Vorsorgebeiträge",
                  "Attestation concernant les cotisations de prévoyance",
                  "Attestazione dei contributi di previdenza"),
          {13, true});
    p.put(22, 24, "Form. 21 EDP dfi", {7});
    p.put(
        22, 36,
        draft.t("Vorsorgeeinrichtung: ", "Institution de prévoyance: ", "Istituto di previdenza: ")
            + draft.issuer.name + ", " + draft.issuer.place);
    p.put(22, 44,
          draft.t("Vorsorgenehmer/in: ", "Preneur de prévoyance: ", "Titolare: ") + who.name());
    p.put(22, 50, draft.family.street + ", " + draft.family.place);
    p.put(22, 58,
          draft.t("AHV-Nr. ", "No AVS ", "N. AVS ") + who.number + "    "
              + draft.t("Geburtsdatum ", "Date de naissance ", "Data di nascita ")
              + draft.date(who.birth));
    p.y = 68;
    const Cents amount = buyIn ? draft.francs(3000, 40000, 500) : draft.francs(600, 7056, 12);
    formLine(draft, "1", draft.t("Bescheinigungsjahr", "Année", "Anno"),
             QString::number(draft.year));
    formLine(draft, "2", draft.t("Vertrags-Nr.", "No de contrat", "N. di contratto"),
             draft.random.digits(3) + "." + draft.random.digits(5));
    formLine(draft, "3",
             draft.t("Anerkannte Vorsorgeform (Säule 3a): einbezahlte Beiträge",
                     "Forme reconnue (pilier 3a): cotisations versées",
                     "Forma riconosciuta (pilastro 3a): contributi versati"),
             buyIn ? "" : draft.m(amount));
    formLine(draft, "4",
             draft.t("2. Säule: ordentliche Beiträge", "2e pilier: cotisations ordinaires",
                     "2o pilastro: contributi ordinari"),
             "");
    formLine(draft, "5",
             draft.t("2. Säule: Beiträge für den Einkauf", "2e pilier: cotisations pour le rachat",
                     "2o pilastro: contributi per il riscatto"),
             buyIn ? draft.m(amount) : "");
    formLine(draft, "6", draft.t("Bemerkungen", "Observations", "Osservazioni"), "");
    p.space(8);
    p.lineOf(draft.t("Für die Richtigkeit: ", "Certifié exact: ", "Certificato esatto: ")
                 + draft.issuer.name + ", " + draft.date(QDate(draft.year + 1, 1, 15)),
             {8});
    TruthRecord& record = draft.record("personDeductions", who);
    record.birthDate = who.birth;
    record.amount(buyIn ? "pensionBuyIn" : "pillar3a", amount);
}

void trainForm(Draft& draft) {
    beginPillar(draft);
    form21(draft, false);
}

/// A bank's foundation: account, contributions, interest, balance.
void trainAccount(Draft& draft) {
    beginPillar(draft);
    Paper& p = draft.paper;
    p.newPage();
    draft.letterHead(0, draft.family.one.name());
    p.lineOf(draft.t("Bescheinigung Vorsorgekonto 3a |Beitragsbescheinigung Säule 3a "
                     "|Vorsorgekonto 3a: Steuerbescheinigung ",
                     "Attestation compte de prévoyance 3a ", "Attestazione conto previdenza 3a ")
                 + QString::number(draft.year),
             {13, true});
    p.lineOf(draft.t("Vorsorgekonto Nr. ", "Compte no ", "Conto n. ") + draft.random.digits(9));
    p.space(5);
    const Cents opening = draft.odd(2000, 60000);
    const Cents paid = draft.random.chance(50) ? 705600 : draft.francs(1200, 7056, 12);
    const Cents interest = opening / 200 / 5 * 5;
    p.entry(draft.t("Saldo per 01.01.", "Solde au 01.01.", "Saldo al 01.01.")
                + QString::number(draft.year),
            draft.f(opening));
    p.entry(draft.t("Einbezahlte Beiträge|Einzahlungen im Jahr|Vorsorgebeiträge Säule "
                    "3a|Abzugsfähige Beiträge",
                    "Cotisations versées", "Contributi versati"),
            draft.f(paid), {9.5, true});
    p.entry(draft.t("Zins", "Intérêts", "Interessi"), draft.f(interest));
    p.rule();
    p.entry(draft.t("Saldo per 31.12.", "Solde au 31.12.", "Saldo al 31.12.")
                + QString::number(draft.year),
            draft.f(opening + paid + interest));
    p.space(8);
    p.paragraph(draft.t("Der Maximalbetrag für Erwerbstätige mit Pensionskasse ist von den "
                        "Beiträgen nicht überschritten. Art. 33 Abs. 1 lit. e DBG.",
                        "Le montant maximal admis n'est pas dépassé. Art. 33 al. 1 let. e LIFD.",
                        "L'importo massimo non è superato. Art. 33 cpv. 1 lett. e LIFD."),
                {8});
    draft.record("personDeductions", draft.family.one).amount("pillar3a", paid);
}

/// An insurer's policy of pillar 3a, told in prose.
void heldPolicy(Draft& draft) {
    beginPillar(draft);
    Paper& p = draft.paper;
    p.newPage();
    draft.letterHead(1, draft.family.two.name());
    const QString year = QString::number(draft.year);
    const Cents paid = draft.odd(1200, 7000);
    p.lineOf(draft.t("Gebundene Vorsorge: Steuerbescheinigung ",
                     "Prévoyance liée: attestation fiscale ", "Previdenza vincolata: attestazione ")
                 + year,
             {12, true});
    p.space(5);
    p.paragraph(draft.t("Police ", "Police ", "Polizza ") + draft.random.digits(8), {9, true});
    p.space(3);
    p.paragraph(
        draft.t("Im Kalenderjahr ", "Durant l'année ", "Nell'anno ") + year
            + draft.t(" haben Sie für Ihre gebundene Vorsorgepolice Prämien von insgesamt ",
                      " vous avez versé pour votre police de prévoyance liée des primes de ",
                      " ha versato per la sua polizza vincolata premi di ")
            + draft.s(paid)
            + draft.t(
                " bezahlt, die Sie vom Einkommen abziehen können. Die versicherte Leistung im "
                "Erlebensfall beträgt ",
                " que vous pouvez déduire du revenu. La prestation assurée en cas de vie est de ",
                " che può dedurre dal reddito. La prestazione in caso di vita è di ")
            + draft.s(draft.francs(40000, 160000, 1000)) + ".",
        {10});
    draft.record("personDeductions", draft.family.two).amount("pillar3a", paid);
}

/// Payments by date with their total; the buy-in for an earlier year stands apart.
void heldPayments(Draft& draft) {
    beginPillar(draft);
    draft.year = 2025;
    Paper& p = draft.paper;
    p.newPage();
    draft.letterHead(2, draft.family.one.name());
    p.lineOf(draft.t("Einzahlungen Säule 3a im Jahr ", "Versements pilier 3a en ",
                     "Versamenti pilastro 3a nel ")
                 + QString::number(draft.year),
             {13, true});
    p.lineOf(draft.t("Geboren am ", "Né(e) le ", "Nato/a il ") + draft.date(draft.family.one.birth)
             + ", " + draft.family.one.number);
    p.space(4);
    const std::vector<Column> columns{{22}, {60}, {180, Align::right}};
    p.row({draft.t("Valuta", "Valeur", "Valuta"), draft.t("Buchungstext", "Libellé", "Testo"),
           draft.t("Betrag CHF", "Montant CHF", "Importo CHF")},
          columns, {9, true});
    p.rule();
    Cents total = 0;
    for (int i = draft.random.between(2, 5); i > 0; --i) {
        const Cents part = draft.francs(200, 1400, 50);
        total += part;
        p.row({draft.date(QDate(draft.year, 13 - 2 * i, 5)),
               draft.t("Gutschrift Beitrag", "Crédit cotisation", "Accredito contributo"),
               draft.m(part)},
              columns);
    }
    p.row({"",
           draft.t("Total ordentliche Beiträge", "Total cotisations ordinaires",
                   "Totale contributi ordinari"),
           draft.m(total)},
          columns, {9.5, true});
    TruthRecord& record = draft.record("personDeductions", draft.family.one);
    record.amount("pillar3a", total);
    if (draft.random.chance(50)) {
        const Cents late = draft.francs(500, 7000, 50);
        p.space(5);
        p.row({"",
               draft.t("Nachträglicher Einkauf für das Jahr 2024",
                       "Rachat rétroactif pour l'année 2024", "Riscatto retroattivo per il 2024"),
               draft.m(late)},
              columns);
        record.amount("pillar3aBuyIn", late);
    }
}

void trainBuyInForm(Draft& draft) {
    beginBuyIn(draft);
    form21(draft, true);
}

void trainBuyInLetter(Draft& draft) {
    beginBuyIn(draft);
    Paper& p = draft.paper;
    p.newPage();
    draft.letterHead(3, draft.family.one.name());
    const Cents amount = draft.francs(5000, 60000, 1000);
    const Cents possible = amount + draft.odd(10000, 90000);
    p.lineOf("Bestätigung Einkauf in die berufliche Vorsorge", {13, true});
    p.space(4);
    p.entry("Versicherte Person",
            draft.family.one.name() + ", " + draft.date(draft.family.one.birth));
    p.entry("Eingang der Zahlung", draft.date(draft.day()));
    p.entry(draft.one("Einkauf Pensionskasse|Einkaufssumme|Freiwilliger Einkauf|Einkauf in die "
                      "Pensionskasse"),
            draft.f(amount), {10, true});
    p.entry("Verbleibende Einkaufsmöglichkeit", draft.f(possible - amount));
    p.entry("Altersguthaben per 31.12." + QString::number(draft.year),
            draft.f(draft.odd(90000, 640000)));
    p.space(6);
    p.paragraph("Leistungen aus Einkäufen dürfen während drei Jahren nicht in Kapitalform bezogen "
                "werden (Art. 79b Abs. 3 BVG).",
                {8.5});
    draft.record("personDeductions", draft.family.one).amount("pensionBuyIn", amount);
}

void heldBuyInProse(Draft& draft) {
    beginBuyIn(draft);
    Paper& p = draft.paper;
    p.newPage();
    draft.letterHead(0, draft.family.two.name());
    const Cents amount = draft.francs(4000, 48000, 250);
    p.lineOf("Ihr freiwilliger Einkauf", {12, true});
    p.space(4);
    p.paragraph("Guten Tag " + draft.family.two.name(), {10});
    p.space(3);
    p.paragraph(
        "Wir danken Ihnen für Ihre Einlage. Am " + draft.longDate(draft.day())
            + " ist bei uns eine Einmaleinlage von " + draft.s(amount)
            + " eingegangen und Ihrem Sparkapital gutgeschrieben worden. Ihr Sparkapital hat damit "
            + draft.s(amount + draft.odd(60000, 400000))
            + " erreicht. Bitte legen Sie dieses Schreiben der Steuererklärung "
            + QString::number(draft.year) + " bei.",
        {10});
    draft.record("personDeductions", draft.family.two).amount("pensionBuyIn", amount);
}

void heldBuyInList(Draft& draft) {
    beginBuyIn(draft);
    Paper& p = draft.paper;
    p.newPage();
    draft.letterHead(1, draft.family.one.name());
    p.lineOf("Steuerbescheinigung " + QString::number(draft.year)
                 + ": persönliche Einlagen 2. Säule",
             {12, true});
    p.space(4);
    const std::vector<Column> columns{{60, Align::right}, {70}, {120}};
    p.row({"Betrag in CHF", "Datum", "Grund"}, columns, {9, true});
    p.rule();
    const Cents first = draft.francs(2000, 20000, 500);
    const Cents second = draft.francs(2000, 20000, 500);
    p.row(
        {draft.m(first), "15.03." + QString::number(draft.year), "Einkauf fehlender Beitragsjahre"},
        columns);
    p.row({draft.m(second), "09.11." + QString::number(draft.year),
           "Einkauf vorzeitige Pensionierung"},
          columns);
    p.rule();
    p.row({draft.m(first + second), "", "Summe der Einkäufe"}, columns, {9.5, true});
    draft.record("personDeductions", draft.family.one).amount("pensionBuyIn", first + second);
}

} // namespace

std::vector<Layout> pillarPapers() {
    return {{"pillar3a", "form", false, "de,fr,it", false, trainForm},
            {"pillar3a", "account", false, "de,fr,it", false, trainAccount},
            {"pillar3a", "policy-prose", true, "de,fr,it", false, heldPolicy},
            {"pillar3a", "payments", true, "de,fr,it", false, heldPayments}};
}

std::vector<Layout> buyInPapers() {
    return {{"buyin", "form", false, "de", false, trainBuyInForm},
            {"buyin", "letter", false, "de", false, trainBuyInLetter},
            {"buyin", "prose", true, "de", false, heldBuyInProse},
            {"buyin", "list", true, "de", false, heldBuyInList}};
}

} // namespace corpus
