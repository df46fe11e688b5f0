#include "tests/documents/corpus/layouts/Layout.h"
#include "tests/documents/corpus/layouts/Salary.h"

// Papers that belong to no kind and must give nothing, though they speak of salaries and amounts.

namespace corpus {
namespace {

void begin(Draft& draft) {
    draft.truth.kind = "anderes";
    employerOf(draft);
    draft.hasFoot = draft.random.chance(50);
}

void trainReceipt(Draft& draft) {
    begin(draft);
    Paper& p = draft.paper;
    p.family = "Liberation Mono";
    p.newPage();
    p.left = 65;
    p.right = 145;
    p.lineOf("DORFLADEN LINDE", {12, true, Align::centre});
    p.lineOf("Hauptgasse 4, 9050 Appenzell", {8, false, Align::centre});
    p.lineOf("Tel. 071 787 00 00   CHE-111.222.333 MWST", {7, false, Align::centre});
    p.space(4);
    Cents total = 0;
    for (const char* goods : {"Brot dunkel", "Milch 1L", "Äpfel Gala kg", "Kaffee 500g",
                              "Waschmittel", "Spende Aufrunden"}) {
        if (draft.random.chance(75)) {
            const Cents part = draft.odd(1, 25);
            total += part;
            p.entry(QString::fromUtf8(goods), draft.m(part), {9});
        }
    }
    p.rule();
    p.entry("TOTAL CHF", draft.m(total), {11, true});
    p.entry("Bar", draft.m((total / 5000 + 1) * 5000), {9});
    p.entry("Rückgeld", draft.m((total / 5000 + 1) * 5000 - total), {9});
    p.entry("MWST 2.6%", draft.m(total * 26 / 1026), {8});
    p.lineOf(draft.date(draft.day()) + " 17:42  Kasse 3  Bon 0" + draft.random.digits(4), {8});
}

void heldShares(Draft& draft) {
    begin(draft);
    Paper& p = draft.paper;
    p.newPage();
    draft.letterHead(1, draft.family.one.name());
    p.lineOf("Mitarbeiteraktien – Information zum Lohnausweis", {12, true});
    p.space(4);
    p.paragraph("Ihnen wurden im Jahr " + QString::number(draft.year) + " "
                    + QString::number(draft.random.between(5, 90))
                    + " gesperrte Aktien zum Vorzugspreis von " + draft.s(draft.odd(20, 90))
                    + " abgegeben. Der Unterschied zum Verkehrswert von "
                    + draft.s(draft.odd(100, 300))
                    + " ist in Ziffer 5 und damit im Bruttolohn (Ziffer 8) des Lohnausweises "
                      "berücksichtigt; der Einschlag beträgt 16.038%. "
                      "Steuerbares Erwerbseinkommen aus Beteiligung: "
                    + draft.s(draft.odd(800, 9000)) + ".",
                {10});
}

void heldReturn(Draft& draft) {
    begin(draft);
    draft.money.fraction = AmountStyle::Fraction::onlyWhenNeeded;
    Paper& p = draft.paper;
    p.newPage();
    p.lineOf("Veranlagungsberechnung – Staats- und Gemeindesteuern " + QString::number(draft.year),
             {13, true});
    p.lineOf("Register-Nr. " + draft.random.digits(7) + "   " + draft.family.one.name() + " und "
                 + draft.family.two.name(),
             {9});
    p.space(4);
    const std::vector<Column> columns{{60, Align::right}, {92, Align::right}, {98}};
    p.row({"deklariert", "veranlagt", "Position"}, columns, {8.5, true});
    p.rule();
    for (const char* label :
         {"Einkünfte unselbständig (Nettolohn)", "Wertschriften und Guthaben",
          "Liegenschaft (Mietwert)", "Schuldzinsen", "Einkauf Pensionskasse", "Säule 3a",
          "Prämien Krankenkasse", "Spenden", "Kinderbetreuung", "Reineinkommen"}) {
        const Cents amount = draft.francs(300, 90000);
        p.row({draft.m(amount), draft.m(amount), QString::fromUtf8(label)}, columns, {9});
        p.space(1);
    }
}

void heldReceipt(Draft& draft) {
    begin(draft);
    Paper& p = draft.paper;
    p.newPage();
    p.left = 60;
    p.right = 150;
    p.lineOf("Apfelbaum Velo & Sport", {14, true});
    p.lineOf("Quittung Nr. " + draft.random.digits(5) + " vom " + draft.date(draft.day()), {9});
    p.space(4);
    const Cents price = draft.odd(40, 1900);
    p.entry("1 × Velohelm / Ersatzteile", draft.s(price));
    p.entry("Rabatt Mitarbeiter 10%", "-" + draft.m(price / 10));
    p.entry("zu zahlen", draft.s(price - price / 10), {11, true});
    p.entry("Kartenzahlung", "**** **** **** 4711");
    p.paragraph("Garantie 24 Monate. Umtausch innert 14 Tagen mit Kassabon.", {8});
}

} // namespace

std::vector<Layout> otherPapers() {
    return {{"other", "receipt", false, "de", false, trainReceipt},
            {"other", "shares-letter", true, "de", false, heldShares},
            {"other", "assessment", true, "de", false, heldReturn},
            {"other", "shop-slip", true, "de", false, heldReceipt}};
}

} // namespace corpus
