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
        {22}, {90, Align::right}, {122, Align::right}, {160, Align::right}};
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

void heldRates(Draft& draft) {
    beginCourse(draft);
    // After the last of the payments it confirms.
    draft.dated = QDate(draft.year, 9, 15).addDays(draft.random.between(0, 100));
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
    return {{"childcare", "prose", true, "de", false, heldProse},
            {"childcare", "two-children", true, "de", false, heldTwoChildren}};
}

std::vector<Layout> coursePapers() {
    return {{"course", "rates", true, "de", false, heldRates},
            {"course", "invoice-qr", true, "de", true, heldCourseBill},
            {"course", "invoice", true, "de", false, heldCourseBill}};
}

} // namespace corpus
