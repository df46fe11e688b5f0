#include "tests/documents/corpus/layouts/Layout.h"
#include "tests/documents/corpus/layouts/Salary.h"

// Certificates of salary that are not the federal form: Liechtenstein's, and print-outs of pay
// offices.

namespace corpus {
namespace {

Salary begin(Draft& draft, bool liechtenstein) {
    if (liechtenstein) {
        draft.family = Family::random(draft.random, draft.language, true);
    }
    employerOf(draft);
    if (liechtenstein) {
        draft.issuer.place =
            draft.random.pick(std::vector<QString>{"9490 Vaduz", "9494 Schaan", "9486 Schaanwald"});
        draft.issuer.phone = "+423 " + draft.random.digits(3) + " " + draft.random.digits(2) + " "
                             + draft.random.digits(2);
    }
    draft.truth.kind = "lohnausweis";
    return randomSalary(draft, false, draft.family.one);
}

/// Liechtenstein again, as columns: amounts first, the label beside.
void heldLiechtenstein(Draft& draft) {
    const Salary s = begin(draft, true);
    Paper& p = draft.paper;
    p.newPage();
    draft.letterHead(1, s.who.name());
    p.lineOf("Lohnbescheinigung für die Landes- und Gemeindesteuern " + QString::number(s.year),
             {12, true});
    p.lineOf("geb. " + draft.date(s.who.birth) + ", tätig vom " + draft.date(s.from) + " bis "
                 + draft.date(s.until),
             {9});
    p.space(5);
    const std::vector<Column> columns{{60, Align::right}, {66}};
    const auto line = [&](Cents amount, const QString& label, bool strong) {
        p.row({amount == 0 ? "–" : draft.m(amount), label}, columns, {10, strong});
        p.space(1.5);
    };
    line(s.base + s.car, "Lohn einschliesslich Naturalleistungen", false);
    line(s.bonus + s.shares + s.other, "besondere Vergütungen", false);
    line(s.gross, "Bruttolohn", true);
    line(s.social, "Arbeitnehmerbeiträge AHV, IV, ALV und NBU", false);
    line(s.regular, "Arbeitnehmerbeiträge an die betriebliche Personalvorsorge", false);
    line(s.buyIn, "Einkäufe in die betriebliche Personalvorsorge", false);
    line(s.net, "Nettolohn", true);
}

/// Two columns, the deductions on the right of the income.
void heldColumns(Draft& draft) {
    const Salary s = begin(draft, false);
    Paper& p = draft.paper;
    p.newPage();
    draft.letterHead(3, s.who.name());
    p.lineOf(draft.t("Lohnausweis ", "Certificat de salaire ", "Certificato di salario ")
                 + QString::number(s.year),
             {15, true});
    p.lineOf(s.who.number + "   " + draft.date(s.who.birth), {9});
    const double top = p.y + 8;
    p.y = top;
    const auto line = [&](double x, const QString& label, Cents amount, bool strong) {
        p.put(x, p.y, label, {8, strong});
        p.put(x + 80, p.y, amount == 0 ? QString() : draft.m(amount), {9, strong, Align::right});
        p.y += 6.5;
    };
    line(22, draft.t("Lohn / Gehalt", "Salaire", "Salario"), s.base, false);
    line(22, draft.t("Fahrzeug privat", "Véhicule privé", "Veicolo privato"), s.car, false);
    line(22, draft.t("Unregelmässige Zahlungen", "Versements irréguliers", "Versamenti irregolari"),
         s.bonus + s.shares + s.other, false);
    line(22, draft.t("Total brutto (Ziffer 8)", "Total brut (chiffre 8)", "Totale lordo (cifra 8)"),
         s.gross, true);
    p.y = top;
    line(110,
         draft.t("AHV/IV/EO/ALV/NBUV (Ziffer 9)", "AVS/AI/APG/AC/AANP (chiffre 9)",
                 "AVS/AI/IPG/AD/AINP (cifra 9)"),
         s.social, false);
    line(110, draft.t("BVG ordentlich (10.1)", "LPP ordinaire (10.1)", "LPP ordinari (10.1)"),
         s.regular, false);
    line(110, draft.t("BVG Einkauf (10.2)", "LPP rachat (10.2)", "LPP riscatto (10.2)"), s.buyIn,
         false);
    line(110, draft.t("Netto (Ziffer 11)", "Net (chiffre 11)", "Netto (cifra 11)"), s.net, true);
    p.space(10);
    p.paragraph(draft.t("Spesenvergütung (13.2.1): ", "Frais (13.2.1): ", "Spese (13.2.1): ")
                    + draft.s(s.expenses),
                {8.5});
}

} // namespace

std::vector<Layout> salaryPapers() {
    return {{"salary", "liechtenstein-list", true, "de", false, heldLiechtenstein},
            {"salary", "two-columns", true, "de,fr,it", false, heldColumns}};
}

} // namespace corpus
