#include "tests/documents/corpus/layouts/Layout.h"

// Certificates of interest and balance, of mortgages too.

namespace corpus {
namespace {

struct Account {
    QString name;
    QString iban;
    Cents balance = 0;
    Cents interest = 0;
    bool withheld = false;
    Cents tax = 0;
};

void begin(Draft& draft) {
    draft.truth.kind = "bankauszug";
    draft.from(
        {draft.t("Bank am Alpstein AG", "Banque du Léman Vert SA", "Banca Ceneri SA"),
         draft.t("Raetia Sparkasse", "Caisse d'épargne de la Sarine", "Cassa di risparmio Breno")},
        {draft.t("Churfirsten Bank AG", "Crédit Rural du Nord SA", "Istituto Bancario Riviera SA"),
         draft.t("Handelsbank Lindau & Söhne", "Banque Chasseral & Cie", "Banca del Borgo SA")});
}

Account account(Draft& draft, const char* german, const char* french, const char* italian) {
    Account made;
    made.name = draft.t(german, french, italian);
    made.iban = randomIban(draft.random);
    made.balance = draft.odd(180, 96000) + draft.random.between(0, 4);
    made.interest = draft.random.chance(12) ? 0 : draft.odd(1, 640);
    made.withheld = made.interest > 20000;
    made.tax = made.withheld ? made.interest * 35 / 100 : 0;
    draft.record("security", draft.family.one)
        .text("ibanOrValor", QString(made.iban).remove(' '))
        .text("institution", draft.issuer.name)
        .amount("taxValue", made.balance)
        .amount(made.withheld ? "incomeWithWithholding" : "incomeWithoutWithholding",
                made.interest);
    return made;
}

std::vector<Account> accounts(Draft& draft, int most) {
    std::vector<Account> made{account(draft, "Privatkonto", "Compte privé", "Conto privato")};
    if (most > 1) {
        made.push_back(account(draft, "Sparkonto Plus", "Compte épargne", "Conto risparmio"));
    }
    if (most > 2) {
        made.push_back(account(draft, "Mietkautionskonto", "Compte garantie de loyer",
                               "Conto garanzia affitto"));
    }
    return made;
}

struct Loan {
    QString number;
    Cents amount = 0;
    Cents interest = 0;
};

Loan loan(Draft& draft) {
    Loan made{draft.random.digits(3) + "." + draft.random.digits(6),
              draft.francs(80000, 780000, 2500), 0};
    made.interest = made.amount * draft.random.between(90, 270) / 10000 / 5 * 5;
    draft.record("debt", draft.family.one)
        .text("creditor", draft.issuer.name)
        .amount("amount", made.amount)
        .amount("interest", made.interest);
    return made;
}

/// Label above value, two columns.
void heldCards(Draft& draft) {
    begin(draft);
    Paper& p = draft.paper;
    p.newPage();
    draft.letterHead(2, draft.family.two.name());
    const Account a = account(draft, "Universalkonto", "Compte courant", "Conto corrente");
    draft.truth.records.back().personName = draft.family.two.name();
    p.lineOf(draft.t("Kontoabschluss für die Steuern", "Clôture de compte pour les impôts",
                     "Chiusura conto per le imposte"),
             {13, true});
    const double top = p.y + 10;
    const auto card = [&](double x, double y, const QString& label, const QString& value) {
        p.box(x, y, 80, 16, 0.15);
        p.put(x + 3, y + 5, label, {7.5});
        p.put(x + 3, y + 12, value, {11, true});
    };
    card(22, top, "IBAN", a.iban);
    card(108, top, draft.t("Produkt", "Produit", "Prodotto"), a.name);
    card(22, top + 20,
         draft.t("Gutgeschriebene Zinsen", "Intérêts crédités", "Interessi accreditati"),
         draft.s(a.interest));
    card(108, top + 20,
         draft.t("Vermögen am 31.12.", "Fortune au 31.12.", "Sostanza al 31.12.")
             + QString::number(draft.year),
         draft.s(a.balance));
    card(22, top + 40,
         draft.t("Abgezogene Verrechnungssteuer", "Impôt anticipé déduit",
                 "Imposta preventiva dedotta"),
         draft.s(a.tax));
    card(108, top + 40, draft.t("Spesen", "Frais", "Spese"), draft.s(draft.odd(5, 90)));
    draft.footer(draft.issuer.name + "  |  SWIFT " + "ABCDCH22XXX" + "  |  Clearing "
                 + draft.random.digits(5));
}

/// Accounts and a loan in one table, the balance in the last column.
void heldMixed(Draft& draft) {
    begin(draft);
    Paper& p = draft.paper;
    p.newPage();
    draft.letterHead(0, draft.family.one.name() + draft.t(" und ", " et ", " e ")
                            + draft.family.two.name());
    p.lineOf(draft.t("Jahresbescheinigung ", "Relevé annuel ", "Distinta annuale ")
                 + QString::number(draft.year),
             {14, true});
    p.space(4);
    const std::vector<Column> columns{
        {22}, {72}, {128, Align::right}, {149, Align::right}, {192, Align::right}};
    p.row({"IBAN", draft.t("Art", "Genre", "Genere"),
           draft.t("Habenzins", "Int. créanciers", "Int. attivi"), draft.t("VSt", "IA", "IP"),
           draft.t("Guthaben Jahresende", "Avoir fin d'année", "Avere fine anno")},
          columns, {8, true});
    p.rule(0.5);
    for (const Account& a : accounts(draft, draft.random.between(1, 3))) {
        p.row({a.iban, a.name, draft.m(a.interest), a.tax == 0 ? "–" : draft.m(a.tax),
               draft.m(a.balance)},
              columns, {8});
        p.space(1);
    }
    if (draft.language == "de" && draft.random.chance(60)) {
        p.space(8);
        const Loan made = loan(draft);
        p.row({"Kredit-Nr.", "Art", "Sollzins", "Satz", "Ausstehend Jahresende"}, columns,
              {8, true});
        p.rule(0.5);
        p.row({made.number, "SARON-Hypothek", draft.m(made.interest), "2.1%", draft.m(made.amount)},
              columns, {8});
    }
}

/// A loan told in prose.
void heldLoanLetter(Draft& draft) {
    begin(draft);
    Paper& p = draft.paper;
    p.newPage();
    draft.letterHead(1, draft.family.one.name());
    const Loan made = loan(draft);
    const QString year = QString::number(draft.year);
    p.lineOf("Bescheinigung über Darlehen " + made.number, {12, true});
    p.space(5);
    p.paragraph("Sehr geehrte Damen und Herren", {10});
    p.space(3);
    p.paragraph("Gerne bestätigen wir Ihnen, dass Sie uns am 31. Dezember " + year
                    + " aus dem Darlehen " + made.number + " einen Betrag von "
                    + draft.s(made.amount) + " schuldeten. Im Jahr " + year
                    + " haben Sie uns dafür Zinsen von " + draft.s(made.interest)
                    + " bezahlt. Die nächste Rate von " + draft.s(draft.francs(1500, 4500, 500))
                    + " ist am 31.03." + QString::number(draft.year + 1) + " fällig.",
                {10});
}

} // namespace

std::vector<Layout> bankPapers() {
    return {{"bank", "cards", true, "de,fr,it", false, heldCards},
            {"bank", "mixed-table", true, "de,fr,it", false, heldMixed},
            {"bank", "loan-letter", true, "de", false, heldLoanLetter}};
}

} // namespace corpus
