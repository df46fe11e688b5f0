#include "tests/documents/corpus/kit/QrBill.h"
#include "tests/documents/corpus/layouts/Layout.h"

// Receipts of donations, single and for a year.

namespace corpus {
namespace {

void begin(Draft& draft) {
    draft.truth.kind = "spende";
    draft.from(
        {"Hilfswerk Bergkind", "Stiftung Offene Hand Ostschweiz", "Verein Igelfreunde Thurgau"},
        {"Stiftung Wasserquelle Weltweit", "Naturschutzverein Rheinaue",
         "Kinderhilfe Morgenstern"});
}

TruthRecord& note(Draft& draft, Cents amount, const Someone& giver) {
    return draft.record("donation", giver)
        .amount("amount", amount)
        .text("recipient", draft.issuer.name);
}

void trainSingle(Draft& draft) {
    begin(draft);
    Paper& p = draft.paper;
    p.newPage();
    draft.letterHead(2, draft.family.one.name());
    const Cents amount = draft.francs(20, 2000, 10);
    const QDate day = draft.day();
    p.lineOf(draft.one("Spendenbescheinigung|Spendenquittung|Bestätigung Ihrer Spende"),
             {15, true});
    p.space(5);
    p.paragraph("Wir bestätigen dankend den Eingang Ihrer Spende für das Projekt «Dach über dem "
                "Kopf 2030».");
    p.space(4);
    p.entry("Spenderin / Spender", draft.family.one.name());
    p.entry("Datum der Gutschrift", draft.date(day));
    p.entry(draft.one("Betrag der Spende|Spendenbetrag|Ihre Spende|Spende CHF"), draft.f(amount),
            {10, true});
    p.space(6);
    p.paragraph("Unsere Organisation ist wegen Gemeinnützigkeit steuerbefreit. Spendenkonto "
                    + randomIban(draft.random),
                {8.5});
    note(draft, amount, draft.family.one).date("date", day);
}

void trainYear(Draft& draft) {
    begin(draft);
    Paper& p = draft.paper;
    p.newPage();
    draft.letterHead(0, draft.family.two.name());
    p.lineOf("Spendenbestätigung für das Jahr " + QString::number(draft.year), {13, true});
    p.lineOf("Mitglieder-Nr. " + draft.random.digits(6), {8.5});
    p.space(4);
    const std::vector<Column> columns{{22}, {60}, {180, Align::right}};
    p.row({"Datum", "Zweck", "Betrag CHF"}, columns, {9, true});
    p.rule();
    Cents total = 0;
    for (int i = draft.random.between(2, 6); i > 0; --i) {
        const Cents part = draft.francs(20, 300, 10);
        total += part;
        p.row({draft.date(QDate(draft.year, 13 - 2 * i, draft.random.between(1, 28))),
               i % 2 == 0 ? "Patenschaft" : "Allgemeine Spende", draft.m(part)},
              columns);
    }
    p.rule();
    p.row({"", draft.one("Total Spenden|Spenden total|Total Ihrer Spenden"), draft.m(total)},
          columns, {10, true});
    note(draft, total, draft.family.two);
}

void heldThanks(Draft& draft) {
    begin(draft);
    Paper& p = draft.paper;
    p.newPage();
    draft.letterHead(1, draft.family.one.name());
    const Cents amount = draft.francs(30, 3000, 5);
    const QDate day = draft.day();
    p.lineOf("Herzlichen Dank!", {16, true});
    p.space(5);
    p.paragraph("Liebe Familie " + draft.family.one.last, {10});
    p.space(3);
    p.paragraph("Mit Ihrer Zuwendung von " + draft.s(amount) + " vom " + draft.longDate(day)
                    + " helfen Sie 250 Menschen in 12 Dörfern. Schon mit Fr. 50 im Monat ist ein "
                      "Brunnen möglich. Dieser Brief gilt als Beleg für die Steuern "
                    + QString::number(draft.year) + ".",
                {10});
    note(draft, amount, draft.family.one).date("date", day);
}

void heldYearCard(Draft& draft) {
    begin(draft);
    Paper& p = draft.paper;
    p.newPage();
    draft.letterHead(3, draft.family.one.name());
    const Cents first = draft.francs(50, 400, 10);
    const Cents second = draft.francs(50, 400, 10);
    p.lineOf("Zuwendungen " + QString::number(draft.year), {14, true});
    p.space(6);
    p.box(22, p.y, 120, 40, 0.3);
    p.put(26, p.y + 8, "Im Jahr " + QString::number(draft.year) + " erhielten wir von Ihnen total",
          {9});
    p.put(26, p.y + 18, draft.s(first + second), {16, true});
    p.put(26, p.y + 27, "davon 1. Halbjahr " + draft.m(first) + ", 2. Halbjahr " + draft.m(second),
          {8});
    p.put(26, p.y + 34,
          "Ausgestellt für " + draft.family.one.name() + " und " + draft.family.two.name(), {8});
    note(draft, first + second, draft.family.one);
    p.y += 50;
    QrBill slip;
    slip.message = "Spende";
    putQrBill(draft, slip); // an empty slip for the next gift: no amount of the year
}

} // namespace

std::vector<Layout> donationPapers() {
    return {{"donation", "single", false, "de", false, trainSingle},
            {"donation", "year", false, "de", false, trainYear},
            {"donation", "thanks", true, "de", false, heldThanks},
            {"donation", "year-card", true, "de", false, heldYearCard}};
}

} // namespace corpus
