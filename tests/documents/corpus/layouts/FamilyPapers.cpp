#include "tests/documents/corpus/kit/QrBill.h"
#include "tests/documents/corpus/layouts/Layout.h"

// Day care of children and courses of adults.

namespace corpus {
namespace {

void beginCare(Draft& draft) {
    draft.truth.kind = "kinderbetreuung";
    draft.from({"Kita Zauberwald", "Tagesfamilien Verein Sitterbogen"},
               {"Kinderkrippe Spatzennest", "Schülerhort Lindenplatz"});
}

void noteCare(Draft& draft, Cents amount) {
    TruthRecord& record = draft.record("child", draft.family.child);
    record.amount("childcareCosts", amount);
}

QString monthName(const Draft& draft, int month) {
    return draft.longDate(QDate(draft.year, month, 1)).mid(3).section(' ', 0, 0);
}

void trainMonths(Draft& draft) {
    beginCare(draft);
    Paper& p = draft.paper;
    p.newPage();
    draft.letterHead(0, draft.family.one.name());
    p.lineOf("Betreuungskosten " + QString::number(draft.year) + " – Bestätigung für die Steuern",
             {12, true});
    p.lineOf("Kind: " + draft.family.child.name() + ", geb. "
             + draft.date(draft.family.child.birth));
    p.space(3);
    const std::vector<Column> columns{{22}, {90, Align::right}, {140, Align::right}};
    p.row({"Monat", "Tage", "Betrag CHF"}, columns, {9, true});
    p.rule();
    Cents total = 0;
    for (int month = 1; month <= 12; ++month) {
        const int days = draft.random.between(4, 13);
        const Cents part = days * 9850;
        total += part;
        p.row({monthName(draft, month), QString::number(days), draft.m(part)}, columns, {9});
    }
    p.rule();
    p.row({draft.one("Total Betreuungskosten|Betreuungskosten total|Total Elternbeiträge"), "",
           draft.m(total)},
          columns, {9.5, true});
    noteCare(draft, total);
}

void trainNet(Draft& draft) {
    beginCare(draft);
    Paper& p = draft.paper;
    p.newPage();
    draft.letterHead(2, draft.family.two.name());
    const Cents full = draft.odd(6000, 24000);
    const Cents subsidy = draft.odd(500, 3000);
    p.lineOf("Bestätigung Kinderbetreuung", {14, true});
    p.space(3);
    p.paragraph("Wir bestätigen, dass " + draft.family.child.name() + " (geb. "
                + draft.date(draft.family.child.birth) + ") im Jahr " + QString::number(draft.year)
                + " unsere Einrichtung an 2 Tagen pro Woche besucht hat.");
    p.space(4);
    p.entry("Kosten nach Tarif", draft.f(full));
    p.entry("Beitrag der Gemeinde", draft.f(subsidy));
    p.rule();
    p.entry(draft.one("Von den Eltern bezahlt|Bezahlte Betreuungskosten|Elternbeitrag bezahlt"),
            draft.f(full - subsidy), {10, true});
    noteCare(draft, full - subsidy);
}

void heldProse(Draft& draft) {
    beginCare(draft);
    Paper& p = draft.paper;
    p.newPage();
    draft.letterHead(1, draft.family.one.name());
    const Cents paid = draft.odd(2000, 19000);
    p.lineOf("Steuerbestätigung", {13, true});
    p.space(4);
    p.paragraph("Für die Betreuung von " + draft.family.child.name() + " haben Sie uns im Jahr "
                    + QString::number(draft.year) + " gesamthaft " + draft.s(paid)
                    + " überwiesen. In diesem Betrag sind Mahlzeiten zu Fr. 9.50 pro Tag "
                      "enthalten. Der Tagesansatz ab August beträgt "
                    + draft.s(11200) + ".",
                {10});
    noteCare(draft, paid);
}

void heldTwoChildren(Draft& draft) {
    beginCare(draft);
    Paper& p = draft.paper;
    p.newPage();
    draft.letterHead(3, draft.family.one.name());
    p.lineOf("Jahreszusammenstellung Elternbeiträge " + QString::number(draft.year), {12, true});
    p.space(4);
    const std::vector<Column> columns{
        {22}, {90, Align::right}, {126, Align::right}, {160, Align::right}};
    p.row({"Kind", "Betreuung", "Mittagstisch", "Elternbeitrag total"}, columns, {9, true});
    p.rule();
    Cents all = 0;
    for (const Someone& child : {draft.family.child, draft.family.secondChild}) {
        const Cents care = draft.odd(1500, 9000);
        const Cents lunch = draft.odd(200, 1200);
        p.row({child.name(), draft.m(care), draft.m(lunch), draft.m(care + lunch)}, columns);
        TruthRecord& record = draft.record("child", child);
        record.amount("childcareCosts", care + lunch);
        all += care + lunch;
    }
    p.rule();
    p.row({"Gesamt", "", "", draft.m(all)}, columns, {9.5, true});
}

void beginCourse(Draft& draft) {
    draft.truth.kind = "weiterbildung";
    draft.from({"Bildungszentrum Ostwind", "Sprachatelier Mosaik"},
               {"Akademie Seerücken", "Fachschule Hochplateau AG"});
    draft.dated = draft.day();
}

void noteCourse(Draft& draft, Cents amount, const Someone& who) {
    draft.record("personDeductions", who).amount("furtherEducation", amount);
}

void trainCourse(Draft& draft) {
    beginCourse(draft);
    Paper& p = draft.paper;
    p.newPage();
    draft.letterHead(0, draft.family.one.name());
    const QString number = "R-" + draft.random.digits(6);
    const Cents fee = draft.odd(300, 6000);
    const Cents material = draft.odd(30, 300);
    p.lineOf("Rechnung " + number + " – Lehrgang", {13, true});
    p.space(3);
    const std::vector<Column> columns{{22}, {130, Align::right}, {190, Align::right}};
    p.row({"Bezeichnung", "Lektionen", "CHF"}, columns, {9, true});
    p.rule();
    p.row({"Kursgeld Führungsausbildung Modul 2", "48", draft.m(fee)}, columns);
    p.row({"Lehrmittel", "", draft.m(material)}, columns);
    p.row({"MWST ausgenommen (Art. 21 MWSTG)", "", "0.00"}, columns);
    p.rule();
    p.row({draft.one("Kurskosten total|Total Kurskosten|Total Rechnung"), "",
           draft.m(fee + material)},
          columns, {10, true});
    noteCourse(draft, fee + material, draft.family.one);
    if (draft.payload) {
        QrBill bill;
        bill.amount = fee + material;
        bill.message = number;
        putQrBill(draft, bill);
    }
}

void trainConfirmation(Draft& draft) {
    beginCourse(draft);
    Paper& p = draft.paper;
    p.newPage();
    draft.letterHead(2, draft.family.two.name());
    const Cents fee = draft.francs(200, 9000, 10);
    p.lineOf("Kursbestätigung", {16, true, Align::centre});
    p.space(6);
    p.entry("Teilnehmerin / Teilnehmer", draft.family.two.name());
    p.entry("Kurs", "Buchhaltung Stufe 3, 12 Abende");
    p.entry("Dauer",
            "15.01." + QString::number(draft.year) + " – 28.06." + QString::number(draft.year));
    p.entry(draft.one("Bezahlte Kurskosten|Kursgeld bezahlt|Kosten der Weiterbildung"),
            draft.f(fee), {10, true});
    p.entry("Präsenz", "94%");
    noteCourse(draft, fee, draft.family.two);
}

void heldRates(Draft& draft) {
    beginCourse(draft);
    Paper& p = draft.paper;
    p.newPage();
    draft.letterHead(1, draft.family.one.name());
    const Cents rate = draft.odd(300, 1900);
    p.lineOf("Zahlungsübersicht Studiengang CAS Projektleitung", {12, true});
    p.space(4);
    for (int i = 1; i <= 3; ++i) {
        p.entry(
            QString("%1. Rate, bezahlt am %2").arg(i).arg(draft.date(QDate(draft.year, 3 * i, 12))),
            draft.f(rate), {9.5}, true);
    }
    p.entry("Summe Ihrer Zahlungen " + QString::number(draft.year), draft.f(3 * rate), {10, true},
            true);
    p.space(4);
    p.paragraph("Die vierte Rate von " + draft.s(rate + 5000) + " wird im Folgejahr fällig.", {9});
    noteCourse(draft, 3 * rate, draft.family.one);
}

void heldCourseBill(Draft& draft) {
    beginCourse(draft);
    Paper& p = draft.paper;
    p.newPage();
    draft.letterHead(3, draft.family.one.name());
    const Cents fee = draft.francs(200, 3800, 5);
    p.lineOf("Anmeldebestätigung und Faktura", {13, true});
    p.space(3);
    p.paragraph("Vielen Dank für Ihre Anmeldung zum Seminar «Verhandeln 360°» (2 Tage, Raum 204). "
                "Die Teilnahmegebühr beträgt "
                    + draft.s(fee) + ". Bei Abmeldung bis 14 Tage vorher verrechnen wir "
                    + draft.s(8000) + ".",
                {10});
    noteCourse(draft, fee, draft.family.one);
    if (draft.payload) {
        QrBill bill;
        bill.amount = fee;
        bill.message = "Seminar 360";
        bill.structured = false;
        putQrBill(draft, bill);
    }
}

} // namespace

std::vector<Layout> childcarePapers() {
    return {{"childcare", "months", false, "de", false, trainMonths},
            {"childcare", "net", false, "de", false, trainNet},
            {"childcare", "prose", true, "de", false, heldProse},
            {"childcare", "two-children", true, "de", false, heldTwoChildren}};
}

std::vector<Layout> coursePapers() {
    return {{"course", "bill-qr", false, "de", true, trainCourse},
            {"course", "bill", false, "de", false, trainCourse},
            {"course", "confirmation", false, "de", false, trainConfirmation},
            {"course", "rates", true, "de", false, heldRates},
            {"course", "invoice-qr", true, "de", true, heldCourseBill},
            {"course", "invoice", true, "de", false, heldCourseBill}};
}

} // namespace corpus
