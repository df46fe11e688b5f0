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

void trainShares(Draft& draft) {
    begin(draft);
    Paper& p = draft.paper;
    p.newPage();
    draft.letterHead(0, draft.family.one.name());
    p.lineOf("Beiblatt zum Lohnausweis: Mitarbeiterbeteiligung " + QString::number(draft.year),
             {13, true});
    p.paragraph("Angaben zu den Beteiligungsrechten gemäss Ziffer 5 des Lohnausweises", {9});
    p.space(4);
    const std::vector<Column> columns{
        {22}, {74, Align::right}, {110, Align::right}, {150, Align::right}, {190, Align::right}};
    p.row({"Zuteilung", "Anzahl", "Kurs CHF", "Sperrfrist", "Geldwerter Vorteil"}, columns,
          {8.5, true});
    p.rule();
    Cents total = 0;
    for (int i = 1; i <= draft.random.between(2, 4); ++i) {
        const Cents part = draft.odd(300, 4000);
        total += part;
        p.row({draft.date(QDate(draft.year, 2 * i, 15)), QString::number(10 * i),
               draft.m(draft.odd(20, 200)), "3 Jahre", draft.m(part)},
              columns);
    }
    p.rule();
    p.row({"Total, im Bruttolohn enthalten", "", "", "", draft.m(total)}, columns, {9, true});
    p.space(6);
    p.paragraph("Die Arbeitnehmerbeiträge AHV/IV/EO/ALV von " + draft.s(total * 64 / 1000)
                    + " wurden vom Lohn abgezogen. Der Nettolohn ist dem Lohnausweis zu entnehmen.",
                {9});
}

void returnLine(Draft& draft, const QString& code, const QString& label, Cents one, Cents two) {
    Paper& p = draft.paper;
    p.row({code, label, one == 0 ? "" : draft.m(one), two == 0 ? "" : draft.m(two)},
          {{22}, {36}, {150, Align::right}, {190, Align::right}}, {8.5});
    p.space(0.6);
}

void trainReturn(Draft& draft) {
    begin(draft);
    Paper& p = draft.paper;
    draft.money.fraction = AmountStyle::Fraction::onlyWhenNeeded;
    p.newPage();
    p.lineOf("Steuererklärung " + QString::number(draft.year) + " für natürliche Personen",
             {14, true});
    p.lineOf(draft.family.one.name() + ", " + draft.family.street + ", " + draft.family.place
                 + "   PID " + draft.random.digits(8),
             {9});
    p.space(3);
    p.row({"Ziffer", "Einkünfte", "Person 1 CHF", "Person 2 CHF"},
          {{22}, {36}, {150, Align::right}, {190, Align::right}}, {8.5, true});
    p.rule();
    returnLine(draft, "1.1", "Haupterwerb, Nettolohn laut Lohnausweis", draft.francs(40000, 120000),
               draft.francs(20000, 60000));
    returnLine(draft, "1.3", "Nebenerwerb", 0, draft.francs(1000, 6000));
    returnLine(draft, "3.1", "AHV- und IV-Renten", 0, 0);
    returnLine(draft, "4", "Wertschriftenertrag laut Wertschriftenverzeichnis",
               draft.francs(20, 4000), 0);
    returnLine(draft, "5", "Eigenmietwert", draft.francs(9000, 22000), 0);
    p.lineOf("Abzüge", {9, true});
    returnLine(draft, "10", "Berufskosten", draft.francs(2000, 7000), draft.francs(2000, 5000));
    returnLine(draft, "12", "Schuldzinsen", draft.francs(2000, 14000), 0);
    returnLine(draft, "14", "Beiträge Säule 3a", draft.francs(1000, 7056),
               draft.francs(1000, 7056));
    returnLine(draft, "15", "Versicherungsprämien", draft.francs(4000, 8000), 0);
    returnLine(draft, "18", "Krankheits- und Unfallkosten", 0, 0);
    returnLine(draft, "19", "Freiwillige Zuwendungen", draft.francs(100, 2000), 0);
    p.rule();
    returnLine(draft, "25", "Steuerbares Einkommen", draft.francs(60000, 140000), 0);
    returnLine(draft, "40", "Steuerbares Vermögen", draft.francs(20000, 900000, 1000), 0);
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
    return {{"other", "shares-annex", false, "de", false, trainShares},
            {"other", "tax-return", false, "de", false, trainReturn},
            {"other", "receipt", false, "de", false, trainReceipt},
            {"other", "shares-letter", true, "de", false, heldShares},
            {"other", "assessment", true, "de", false, heldReturn},
            {"other", "shop-slip", true, "de", false, heldReceipt}};
}

} // namespace corpus
