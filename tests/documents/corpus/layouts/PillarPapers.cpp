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
    return {{"pillar3a", "policy-prose", true, "de,fr,it", false, heldPolicy},
            {"pillar3a", "payments", true, "de,fr,it", false, heldPayments}};
}

std::vector<Layout> buyInPapers() {
    return {{"buyin", "prose", true, "de", false, heldBuyInProse},
            {"buyin", "list", true, "de", false, heldBuyInList}};
}

} // namespace corpus
