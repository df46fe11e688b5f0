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

/// One account: lines of label and amount in a letter.
void trainLetter(Draft& draft) {
    begin(draft);
    Paper& p = draft.paper;
    p.newPage();
    draft.letterHead(0, draft.family.one.name());
    const Account a = account(draft, "Privatkonto", "Compte privé", "Conto privato");
    p.lineOf(draft.t("Zins- und Saldobestätigung per |Saldo- und Zinsausweis per "
                     "|Steuerbescheinigung Konto per ",
                     "Attestation d'intérêts et de solde au ",
                     "Attestazione di interessi e saldo al ")
                 + draft.date(draft.yearEnd()),
             {13, true});
    p.space(4);
    p.lineOf(a.name + "   IBAN " + a.iban);
    p.lineOf(draft.t("Lautend auf ", "Au nom de ", "Intestato a ") + draft.family.one.name());
    p.space(6);
    p.entry(draft.t("Saldo per 31.12.|Kontostand am 31.12.|Guthaben per 31.12.|Kapital am 31.12.",
                    "Solde au 31.12.", "Saldo al 31.12.")
                + QString::number(draft.year),
            draft.f(a.balance), {10}, true);
    p.entry(draft.t("Bruttozins |Habenzins brutto |Zinsertrag brutto |Zinsgutschrift brutto ",
                    "Intérêts bruts |Intérêts créanciers bruts ", "Interessi lordi ")
                + QString::number(draft.year),
            draft.f(a.interest), {10}, true);
    p.entry(draft.t("Verrechnungssteuer 35%", "Impôt anticipé 35%", "Imposta preventiva 35%"),
            a.withheld ? draft.f(a.tax) : "0.00", {10}, true);
    p.entry(draft.t("Nettozins", "Intérêts nets", "Interessi netti"), draft.f(a.interest - a.tax),
            {10}, true);
    p.space(8);
    p.paragraph(draft.t("Dieses Dokument dient als Beilage zur Steuererklärung. Zinssatz am "
                        "Jahresende 0.75%. Ohne Unterschrift gültig.",
                        "Ce document est destiné à votre déclaration d'impôt. Taux au 31.12.: "
                        "0.75%. Valable sans signature.",
                        "Documento da allegare alla dichiarazione d'imposta. Tasso al 31.12.: "
                        "0.75%. Valido senza firma."),
                {8.5});
}

/// Several accounts in a table with totals.
void trainTable(Draft& draft) {
    begin(draft);
    Paper& p = draft.paper;
    p.newPage();
    draft.letterHead(1, draft.family.one.name());
    p.lineOf(draft.t("Zinsausweis |Zinsbescheinigung |Steuerverzeichnis Konten ",
                     "Attestation fiscale ", "Certificato interessi ")
                 + QString::number(draft.year),
             {14, true});
    p.space(4);
    const std::vector<Column> columns{
        {22}, {122, Align::right}, {156, Align::right}, {190, Align::right}};
    p.row({draft.t("Konto / IBAN", "Compte / IBAN", "Conto / IBAN"),
           draft.t("Saldo 31.12.|Kapital 31.12.|Steuerwert", "Solde 31.12.", "Saldo 31.12."),
           draft.t("Zinsertrag brutto|Bruttozins|Ertrag", "Intérêts bruts", "Interessi lordi"),
           draft.t("Verr.-Steuer", "Impôt antic.", "Imp. prev.")},
          columns, {8.5, true});
    p.rule();
    Cents balance = 0;
    Cents interest = 0;
    Cents tax = 0;
    for (const Account& a : accounts(draft, draft.random.between(2, 3))) {
        p.row({a.name, draft.m(a.balance), a.interest == 0 ? "" : draft.m(a.interest),
               a.tax == 0 ? "" : draft.m(a.tax)},
              columns);
        p.lineOf(a.iban, {7.5});
        p.space(1.5);
        balance += a.balance;
        interest += a.interest;
        tax += a.tax;
    }
    p.rule();
    p.row({"Total CHF", draft.m(balance), draft.m(interest), draft.m(tax)}, columns, {9.5, true});
    p.space(8);
    p.paragraph(draft.t("Bei Fragen erreichen Sie uns von 08.00 bis 17.30 Uhr.",
                        "Pour toute question: de 08.00 à 17.30.",
                        "Per domande: dalle 08.00 alle 17.30."),
                {8.5});
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

/// A mortgage: quarters and their total.
void trainMortgage(Draft& draft) {
    begin(draft);
    Paper& p = draft.paper;
    p.newPage();
    draft.letterHead(3, draft.family.one.name());
    const Loan made = loan(draft);
    p.lineOf("Zins- und Kapitalbestätigung Hypothek", {13, true});
    p.lineOf("Festhypothek Nr. " + made.number + ", Zinssatz 1.85%, Laufzeit bis 30.06.2029");
    p.space(5);
    const std::vector<Column> columns{{22}, {90, Align::right}, {150, Align::right}};
    p.row({"Fälligkeit", "Tage", "Zins CHF"}, columns, {9, true});
    p.rule();
    const Cents quarter = made.interest / 4 / 5 * 5;
    for (int i = 1; i <= 4; ++i) {
        const QDate due(draft.year, 3 * i, QDate(draft.year, 3 * i, 1).daysInMonth());
        p.row({draft.date(due), "90", draft.m(i < 4 ? quarter : made.interest - 3 * quarter)},
              columns);
    }
    p.rule();
    p.row({draft.one("Bezahlte Schuldzinsen |Total Hypothekarzinsen |Zinsbelastung ")
               + QString::number(draft.year),
           "360", draft.m(made.interest)},
          columns, {9.5, true});
    p.space(6);
    p.entry(draft.one("Schuld per 31.12.|Kapitalschuld am 31.12.|Restschuld per 31.12.")
                + QString::number(draft.year),
            draft.s(made.amount), {10, true});
    p.entry("Amortisation im Jahr " + QString::number(draft.year),
            draft.s(draft.francs(0, 8000, 1000)));
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
        {22}, {84}, {130, Align::right}, {160, Align::right}, {192, Align::right}};
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
    return {{"bank", "letter", false, "de,fr,it", false, trainLetter},
            {"bank", "table", false, "de,fr,it", false, trainTable},
            {"bank", "mortgage", false, "de", false, trainMortgage},
            {"bank", "cards", true, "de,fr,it", false, heldCards},
            {"bank", "mixed-table", true, "de,fr,it", false, heldMixed},
            {"bank", "loan-letter", true, "de", false, heldLoanLetter}};
}

} // namespace corpus
