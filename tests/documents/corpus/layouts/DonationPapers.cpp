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
    return {{"donation", "thanks", true, "de", false, heldThanks},
            {"donation", "year-card", true, "de", false, heldYearCard}};
}

} // namespace corpus
