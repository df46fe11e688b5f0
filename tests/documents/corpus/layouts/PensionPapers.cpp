#include "tests/documents/corpus/layouts/Layout.h"

// Pensions paid by a pension fund.

namespace corpus {
namespace {

Cents begin(Draft& draft) {
    draft.truth.kind = "pensionskasse";
    draft.truth.alsoKinds = QStringList{"lohnausweis"};
    draft.from({"Pensionskasse Ostgewerbe", "Vorsorgeeinrichtung Seeuferwerke"},
               {"Sammelstiftung Rheinbogen", "Personalvorsorge Linthwerke"});
    const Cents month = draft.odd(600, 4600);
    TruthRecord& record = draft.record("pension", draft.family.one);
    record.birthDate = draft.family.one.birth;
    record.amount("amount", 12 * month);
    return month;
}

void heldProse(Draft& draft) {
    const Cents month = begin(draft);
    Paper& p = draft.paper;
    p.newPage();
    draft.letterHead(1, draft.family.one.name());
    p.lineOf("Ihre Rente im Jahr " + QString::number(draft.year), {13, true});
    p.space(4);
    p.paragraph("Wir bescheinigen, dass wir an " + draft.family.one.name() + " ("
                    + draft.date(draft.family.one.birth) + ") in zwölf Monatsbetreffnissen von "
                    + draft.s(month) + " insgesamt " + draft.s(12 * month)
                    + " Altersrente ausgerichtet haben. Ab Januar "
                    + QString::number(draft.year + 1) + " beträgt die Rente monatlich "
                    + draft.s(month + 1500) + ".",
                {10});
}

void heldBoxes(Draft& draft) {
    const Cents month = begin(draft);
    draft.truth.records.back().birthDate = {}; // stands nowhere on the sheet
    Paper& p = draft.paper;
    p.newPage();
    draft.letterHead(3, draft.family.one.name());
    p.lineOf("Rentenausweis", {15, true});
    p.space(5);
    const double top = p.y;
    const auto cell = [&](double x, double y, const QString& label, const QString& value) {
        p.box(x, y, 56, 14, 0.15);
        p.put(x + 2, y + 4.5, label, {7});
        p.put(x + 2, y + 11, value, {10, true});
    };
    cell(22, top, "Kalenderjahr", QString::number(draft.year));
    cell(78, top, "Monatsrente", draft.m(month));
    cell(134, top, "Jahresrente brutto", draft.m(12 * month));
    cell(22, top + 14, "Abzüge", "");
    cell(78, top + 14, "Ausbezahlt", draft.m(12 * month));
    cell(134, top + 14, "Vertrag", draft.random.digits(6));
}

} // namespace

std::vector<Layout> pensionPapers() {
    return {{"pension", "fund-prose", true, "de", false, heldProse},
            {"pension", "fund-boxes", true, "de", false, heldBoxes}};
}

} // namespace corpus
