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

/// Points of the tariff, position by position.
void trainTariff(Draft& draft) {
    begin(draft);
    Paper& p = draft.paper;
    p.newPage();
    draft.letterHead(0, draft.family.one.name());
    const QString number = draft.random.digits(6);
    p.lineOf(draft.t("Rechnung Nr. |Arztrechnung |Rechnung ", "Facture no ", "Fattura n. ")
                 + number,
             {13, true});
    p.lineOf(draft.t("Patient/in: ", "Patient(e): ", "Paziente: ") + draft.family.one.name() + ", "
                 + draft.date(draft.family.one.birth)
                 + draft.t("   Rechnungsdatum: ", "   Date de facture: ", "   Data fattura: ")
                 + draft.date(draft.dated),
             {9});
    p.space(3);
    const std::vector<Column> columns{
        {22}, {44}, {64}, {145, Align::right}, {165, Align::right}, {190, Align::right}};
    p.row({draft.t("Datum", "Date", "Data"), draft.t("Tarif", "Tarif", "Tariffa"),
           draft.t("Leistung", "Prestation", "Prestazione"),
           draft.t("Menge", "Quantité", "Quantità"), draft.t("TP-Wert", "Val. pt", "Val. pt"),
           draft.t("Betrag", "Montant", "Importo")},
          columns, {8, true});
    p.rule();
    static const std::vector<const char*> german{"Konsultation, erste 5 Min.",
                                                 "Konsultation, jede weitere 5 Min.",
                                                 "Blutentnahme", "Labor: Blutbild", "Medikament"};
    static const std::vector<const char*> french{"Consultation, 5 premières min.",
                                                 "Consultation, 5 min. suppl.", "Prise de sang",
                                                 "Labo: formule sanguine", "Médicament"};
    static const std::vector<const char*> italian{"Consultazione, primi 5 min.",
                                                  "Consultazione, altri 5 min.", "Prelievo",
                                                  "Labor.: emocromo", "Medicamento"};
    Cents total = 0;
    for (int i = draft.random.between(3, 7); i > 0; --i) {
        const size_t kind = static_cast<size_t>(draft.random.between(0, 4));
        const Cents part = draft.odd(8, 120);
        total += part;
        p.row({draft.date(draft.dated.addDays(-20 - i)), "00.0" + draft.random.digits(3),
               draft.t(german[kind], french[kind], italian[kind]), "1.00", "0.83", draft.m(part)},
              columns, {8});
    }
    p.rule();
    p.entry(draft.t("Rechnungsbetrag|Gesamttotal|Total Rechnung|Rechnungstotal",
                    "Montant de la facture", "Importo della fattura"),
            draft.s(total), {10, true});
    note(draft, total, draft.family.one);
    payment(draft, total, number);
}

/// A dentist: material, laboratory, a sum with VAT free.
void trainDentist(Draft& draft) {
    begin(draft);
    Paper& p = draft.paper;
    p.newPage();
    draft.letterHead(2, draft.family.one.name());
    const QString number = QString::number(draft.year) + "-" + draft.random.digits(4);
    p.lineOf(draft.t("Honorarrechnung ", "Note d'honoraires ", "Nota d'onorario ") + number
                 + draft.t(" vom ", " du ", " del ") + draft.longDate(draft.dated),
             {12, true});
    p.lineOf(draft.t("Behandlung von ", "Traitement de ", "Trattamento di ")
             + draft.family.two.name());
    p.space(4);
    const Cents work = draft.odd(120, 1600);
    const Cents lab = draft.odd(60, 900);
    const Cents material = draft.odd(10, 90);
    p.entry(draft.t("Zahnärztliche Leistungen (412 Taxpunkte zu 1.05)",
                    "Prestations dentaires (412 points à 1.05)",
                    "Prestazioni dentarie (412 punti a 1.05)"),
            draft.m(work), {9.5}, true);
    p.entry(draft.t("Zahntechnik", "Laboratoire", "Laboratorio"), draft.m(lab), {9.5}, true);
    p.entry(draft.t("Material", "Matériel", "Materiale"), draft.m(material), {9.5}, true);
    p.entry(draft.t("MWST 0%", "TVA 0%", "IVA 0%"), "0.00", {9.5}, true);
    p.rule();
    p.entry(draft.t("Total zu bezahlen|Rechnungsbetrag|Totalbetrag|Honorar total", "Total à payer",
                    "Totale da pagare"),
            draft.s(work + lab + material), {10.5, true});
    note(draft, work + lab + material, draft.family.two);
    payment(draft, work + lab + material, number);
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
               "Tabl. " + draft.random.digits(3) + " mg", "30 Stk"},
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
    return {{"bill", "tariff-qr", false, "de,fr,it", true, trainTariff},
            {"bill", "tariff", false, "de", false, trainTariff},
            {"bill", "dentist-qr", false, "de,fr", true, trainDentist},
            {"bill", "dentist", false, "de,it", false, trainDentist},
            {"bill", "pharmacy-qr", true, "de,it", true, heldPharmacy},
            {"bill", "pharmacy", true, "de,fr", false, heldPharmacy},
            {"bill", "sessions-qr", true, "de,fr", true, heldSessions},
            {"bill", "sessions", true, "de,it", false, heldSessions}};
}

} // namespace corpus
