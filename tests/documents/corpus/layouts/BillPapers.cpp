#include "tests/documents/corpus/kit/QrBill.h"
#include "tests/documents/corpus/layouts/Layout.h"

// Bills of doctors, dentists, pharmacies and therapists, with and without the part for payment.

namespace corpus {
namespace {

void begin(Draft& draft) {
    draft.truth.kind = "arztrechnung";
    draft.from(
        {draft.t("Praxis Dr. med. Ines Vogler", "Cabinet Dr méd. Alain Besse",
                 "Studio dr. med. Carlo Rusca"),
         draft.t("Zahnarztpraxis am Bach", "Cabinet dentaire du Parc", "Studio dentistico Lido")},
        {draft.t("Gesundheitszentrum Rosengarten", "Centre médical des Tilleuls",
                 "Centro medico Magnolia"),
         draft.t("Physiotherapie Lorbeer GmbH", "Physio Mimosa Sàrl",
                 "Fisioterapia Oleandro Sagl")});
    draft.dated = draft.day();
}

void note(Draft& draft, Cents gross, const Someone& patient) {
    TruthRecord& record = draft.record("medicalCost", patient);
    record.amount("gross", gross).text("provider", draft.issuer.name).date("date", draft.dated);
}

void payment(Draft& draft, Cents amount, const QString& number) {
    if (!draft.payload) {
        draft.paper.space(8);
        draft.paper.paragraph(draft.t("Zahlbar innert 30 Tagen auf Konto ",
                                      "Payable à 30 jours sur le compte ",
                                      "Pagabile entro 30 giorni sul conto ")
                                  + randomIban(draft.random),
                              {8.5});
        return;
    }
    QrBill bill;
    bill.amount = amount;
    bill.message = draft.t("Rechnung ", "Facture ", "Fattura ") + number;
    bill.structured = draft.random.chance(70);
    bill.crLf = draft.random.chance(70);
    if (draft.random.chance(40)) {
        bill.information = "//S1/10/" + number + "/11/" + draft.dated.toString("yyMMdd");
    }
    putQrBill(draft, bill);
}

/// A pharmacy's yearly list.
void heldPharmacy(Draft& draft) {
    begin(draft);
    Paper& p = draft.paper;
    p.newPage();
    draft.letterHead(1, draft.family.one.name());
    const QString number = draft.random.digits(7);
    p.lineOf(draft.t("Bezüge auf Rechnung", "Achats sur facture", "Acquisti su fattura"),
             {12, true});
    p.lineOf(draft.t("Beleg ", "Pièce ", "Giustificativo ") + number
                 + draft.t(", ausgestellt am ", ", établie le ", ", emesso il ")
                 + draft.date(draft.dated),
             {9});
    p.space(3);
    const std::vector<Column> columns{{46, Align::right}, {52}, {78}, {165, Align::right}};
    p.row({"CHF", draft.t("Datum", "Date", "Data"), draft.t("Artikel", "Article", "Articolo"),
           draft.t("Packung", "Emballage", "Confezione")},
          columns, {8.5, true});
    p.rule();
    Cents total = 0;
    for (int i = draft.random.between(2, 6); i > 0; --i) {
        const Cents part = draft.odd(6, 140);
        total += part;
        p.row({draft.m(part), draft.date(draft.dated.addDays(-3 * i)),
               draft.t("Tabl. ", "Compr. ", "Compr. ") + draft.random.digits(3) + " mg",
               draft.t("30 Stk", "30 pces", "30 pz")},
              columns, {8.5});
    }
    p.rule();
    p.row({draft.m(total), "", draft.t("Zahlbetrag", "Somme à régler", "Da saldare")}, columns,
          {9.5, true});
    note(draft, total, draft.family.one);
    payment(draft, total, number);
}

/// Sessions, gross and net of a part already paid by the insurer.
void heldSessions(Draft& draft) {
    begin(draft);
    Paper& p = draft.paper;
    p.newPage();
    draft.letterHead(3, draft.family.one.name());
    const QString number = draft.random.digits(5);
    const int count = draft.random.between(4, 12);
    const Cents each = draft.odd(40, 95);
    const Cents lump = draft.odd(10, 45);
    p.put(120, p.y, draft.t("Datum: ", "Date: ", "Data: ") + draft.date(draft.dated));
    p.lineOf(draft.t("Faktura ", "Décompte ", "Conteggio ") + number, {13, true});
    p.space(5);
    p.paragraph(
        draft.t("Für die Behandlungen von ", "Pour les séances de ", "Per le sedute di ")
        + draft.family.one.name()
        + draft.t(" erlauben wir uns zu verrechnen:", " nous vous facturons:", " le fatturiamo:"));
    p.space(3);
    p.lineOf(QString("%1 × %2 = %3").arg(count).arg(draft.m(each), draft.m(count * each)));
    p.lineOf(draft.t("Zuschlag Erstbehandlung ", "Supplément première séance ",
                     "Supplemento prima seduta ")
             + draft.m(lump));
    p.space(2);
    p.lineOf(draft.t("Gesamtbetrag ", "Montant global ", "Importo complessivo ")
                 + draft.s(count * each + lump),
             {11, true});
    note(draft, count * each + lump, draft.family.one);
    payment(draft, count * each + lump, number);
}

} // namespace

std::vector<Layout> billPapers() {
    return {{"bill", "pharmacy-qr", true, "de,it", true, heldPharmacy},
            {"bill", "pharmacy", true, "de,fr", false, heldPharmacy},
            {"bill", "sessions-qr", true, "de,fr", true, heldSessions},
            {"bill", "sessions", true, "de,it", false, heldSessions}};
}

} // namespace corpus
