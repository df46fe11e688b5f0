#include "tests/documents/corpus/kit/Symbols.h"
#include "tests/documents/corpus/layouts/Layout.h"

// The electronic tax statement of a bank: landscape pages, a CODE128 on each, the data as a
// sequence of PDF417 on the last ones.

namespace corpus {
namespace {

constexpr double barcodeModule = 0.42;
constexpr qsizetype segmentBytes = 440;

struct Account {
    QString iban;
    QString name;
    Cents value = 0;
    Cents incomeA = 0;
    Cents incomeB = 0;
};

struct Holding {
    QString name;
    QString isin;
    QString valor;
    int quantity = 0;
    Cents value = 0;
    Cents incomeA = 0;
    Cents incomeB = 0;
};

struct Statement {
    std::vector<Account> accounts;
    std::vector<Holding> holdings;
    std::vector<Account> loans; ///< `incomeB`: the interest
    Cents fees = 0;
    QString depot;
    QString client;
    QString version = "22";
    Cents value = 0;
    Cents incomeA = 0;
    Cents incomeB = 0;
};

Holding holding(Draft& draft) {
    static const std::vector<QString> names{
        "Namenaktie Säntis Industrie", "Fonds Alpenblick Equity", "Obligation 1.25% Ostbahn 2029",
        "Anteil Rhein Immofonds",      "ETF Welt Index thes.",    "Aktie Nordmeer Shipping"};
    Random& random = draft.random;
    const bool swiss = random.chance(60);
    Holding made;
    made.name = random.pick(names);
    made.valor = random.digits(random.between(6, 8));
    made.isin = (swiss ? "CH" : random.pick(std::vector<QString>{"US", "IE", "LU"}))
                + made.valor.rightJustified(9, '0') + random.digits(1);
    made.quantity = random.between(3, 900);
    made.value = Cents{made.quantity} * random.between(1500, 40000);
    const Cents income = random.chance(80) ? made.value * random.between(5, 40) / 1000 : 0;
    (swiss ? made.incomeA : made.incomeB) = income;
    return made;
}

Account account(Draft& draft, const char* german, const char* french, const char* italian) {
    Account made;
    made.iban = randomIban(draft.random).remove(' ');
    made.name = draft.t(german, french, italian);
    made.value = draft.odd(300, 90000) + draft.random.between(0, 4);
    const Cents income = draft.odd(1, 700);
    (income > 20000 ? made.incomeA : made.incomeB) = income;
    return made;
}

void note(Draft& draft, const Statement& s) {
    const auto security = [&](const auto& item, const QString& number) -> TruthRecord& {
        return draft.record("security", draft.family.one)
            .text("ibanOrValor", number)
            .text("institution", draft.issuer.name)
            .amount("taxValue", item.value)
            .amount("incomeWithWithholding", item.incomeA)
            .amount("incomeWithoutWithholding", item.incomeB);
    };
    for (const Account& item : s.accounts) {
        security(item, item.iban);
    }
    for (const Holding& item : s.holdings) {
        security(item, item.valor + " | " + item.isin)
            .amount("quantity", Cents{item.quantity} * 100);
    }
    for (const Account& loan : s.loans) {
        draft.record("debt", draft.family.one)
            .text("creditor", draft.issuer.name)
            .amount("amount", loan.value)
            .amount("interest", loan.incomeB);
    }
    if (s.fees != 0) {
        draft.record("householdDeductions").amount("actualAssetManagementCosts", s.fees);
    }
    TruthRecord total;
    total.kind = "security";
    total.year = draft.year;
    total.amount("taxValue", s.value)
        .amount("incomeWithWithholding", s.incomeA)
        .amount("incomeWithoutWithholding", s.incomeB);
    draft.truth.accepted.push_back(total);
}

Statement statement(Draft& draft, bool withLoans) {
    Random& random = draft.random;
    draft.truth.kind = "steuerauszug";
    draft.from({"Regiobank Säntisblick AG", "Sparkasse Thurtal", "Bank Alvier AG"},
               {"Privatbank Gonzen & Cie", "Volksbank Werdenberg", "Neue Speerbank AG"});
    Statement made;
    made.client = random.digits(8);
    made.depot = random.digits(6) + "-" + random.digits(2);
    made.accounts.push_back(account(draft, "Privatkonto", "Compte privé", "Conto privato"));
    if (random.chance(70)) {
        made.accounts.push_back(
            account(draft, "Sparkonto", "Compte d'épargne", "Conto di risparmio"));
    }
    for (int i = random.between(withLoans ? 0 : 1, 4); i > 0; --i) {
        made.holdings.push_back(holding(draft));
    }
    if (withLoans) {
        Account loan = account(draft, "Festhypothek", "Hypothèque fixe", "Ipoteca fissa");
        loan.value = draft.francs(120000, 620000, 5000);
        loan.incomeA = 0;
        loan.incomeB = loan.value * random.between(80, 260) / 10000;
        made.loans.push_back(loan);
        made.fees = draft.odd(40, 480);
    }
    const auto add = [&](const auto& item) {
        made.value += item.value;
        made.incomeA += item.incomeA;
        made.incomeB += item.incomeB;
    };
    for (const Account& item : made.accounts) {
        add(item);
    }
    for (const Holding& item : made.holdings) {
        add(item);
    }
    note(draft, made);
    return made;
}

QString incomes(Cents incomeA, Cents incomeB) {
    return QString(" totalGrossRevenueA=\"%1\" totalGrossRevenueB=\"%2\" "
                   "totalWithHoldingTaxClaim=\"%3\"")
        .arg(machineText(incomeA), machineText(incomeB), machineText(incomeA * 35 / 100));
}

QString payment(Cents incomeA, Cents incomeB, const QString& day) {
    if (incomeA + incomeB == 0) {
        return {};
    }
    return QString("<payment paymentDate=\"%1\" quotationType=\"PIECE\" quantity=\"1\" "
                   "amountCurrency=\"CHF\" amount=\"%2\" grossRevenueA=\"%3\" grossRevenueB=\"%4\" "
                   "withHoldingTaxClaim=\"%5\"/>")
        .arg(day, machineText(incomeA + incomeB), machineText(incomeA), machineText(incomeB),
             machineText(incomeA * 35 / 100));
}

QString taxValue(Cents value, const QString& day, const QString& extra = {}) {
    return QString("<taxValue referenceDate=\"%1\"%2 balanceCurrency=\"CHF\" balance=\"%3\" "
                   "exchangeRate=\"1\" value=\"%3\"/>")
        .arg(day, extra, machineText(value));
}

QString accountXml(const Account& item, const QString& day, const char* element) {
    const bool loan = QString(element) == "liabilityAccount";
    const QString totals =
        loan ? QString(" totalGrossRevenueB=\"%1\"").arg(machineText(item.incomeB))
             : incomes(item.incomeA, item.incomeB);
    const QString paid =
        loan ? QString(
                   "<payment paymentDate=\"%1\" name=\"Zins\" amountCurrency=\"CHF\" amount=\"%2\" "
                   "grossRevenueB=\"%2\"/>")
                   .arg(day, machineText(item.incomeB))
             : payment(item.incomeA, item.incomeB, day)
                   .remove(" quotationType=\"PIECE\" quantity=\"1\"");
    return QString("<%1 iban=\"%2\" bankAccountNumber=\"%2\" bankAccountName=\"%3\" "
                   "bankAccountCountry=\"CH\" bankAccountCurrency=\"CHF\" "
                   "totalTaxValue=\"%4\"%5>%6%7</%1>")
        .arg(element, item.iban, item.name.toHtmlEscaped(), machineText(item.value), totals,
             taxValue(item.value, day), paid);
}

QString holdingXml(const Holding& item, int position, const QString& day) {
    const QString amount = QString(" quotationType=\"PIECE\" quantity=\"%1\"").arg(item.quantity);
    return QString("<security positionId=\"%1\" valorNumber=\"%2\" isin=\"%3\" country=\"%4\" "
                   "currency=\"CHF\" quotationType=\"PIECE\" securityCategory=\"SHARE\" "
                   "securityName=\"%5\">%6%7</security>")
        .arg(position)
        .arg(item.valor, item.isin, item.isin.left(2), item.name.toHtmlEscaped(),
             taxValue(item.value, day, amount), payment(item.incomeA, item.incomeB, day));
}

QString holdingsXml(const Statement& s, const QString& day) {
    if (s.holdings.empty()) {
        return {};
    }
    QString list;
    Cents value = 0;
    Cents incomeA = 0;
    Cents incomeB = 0;
    int position = 0;
    for (const Holding& item : s.holdings) {
        list += holdingXml(item, ++position, day);
        value += item.value;
        incomeA += item.incomeA;
        incomeB += item.incomeB;
    }
    return QString("<listOfSecurities totalTaxValue=\"%1\"%2><depot depotNumber=\"%3\">%4</depot>"
                   "</listOfSecurities>")
        .arg(machineText(value), incomes(incomeA, incomeB), s.depot, list);
}

QByteArray xmlOf(const Draft& draft, const Statement& s) {
    const QString year = QString::number(draft.year);
    const QString day = year + "-12-31";
    QString xml =
        QString("<?xml version=\"1.0\" encoding=\"UTF-8\"?><taxStatement "
                "xmlns=\"http://www.ech.ch/xmlns/eCH-0196/2\" id=\"CH%1X%2\" "
                "creationDate=\"%3-01-18T06:12:00\" taxPeriod=\"%4\" periodFrom=\"%4-01-01\" "
                "periodTo=\"%4-12-31\" country=\"CH\" canton=\"SG\" totalTaxValue=\"%5\"%6 "
                "minorVersion=\"%7\">")
            .arg(s.client, year)
            .arg(draft.year + 1)
            .arg(year, machineText(s.value), incomes(s.incomeA, s.incomeB), s.version);
    xml += QString("<institution name=\"%1\"/><client clientNumber=\"%2\" firstName=\"%3\" "
                   "lastName=\"%4\"/>")
               .arg(draft.issuer.name.toHtmlEscaped(), s.client, draft.family.one.first,
                    draft.family.one.last);
    Account sum;
    QString accounts;
    for (const Account& item : s.accounts) {
        accounts += accountXml(item, day, "bankAccount");
        sum.value += item.value;
        sum.incomeA += item.incomeA;
        sum.incomeB += item.incomeB;
    }
    xml += QString("<listOfBankAccounts totalTaxValue=\"%1\"%2>%3</listOfBankAccounts>")
               .arg(machineText(sum.value), incomes(sum.incomeA, sum.incomeB), accounts);
    for (const Account& loan : s.loans) {
        xml += QString("<listOfLiabilities totalTaxValue=\"%1\" totalGrossRevenueB=\"%2\">%3"
                       "</listOfLiabilities>")
                   .arg(machineText(loan.value), machineText(loan.incomeB),
                        accountXml(loan, day, "liabilityAccount"));
    }
    if (s.fees != 0) {
        xml +=
            QString(
                "<listOfExpenses totalExpenses=\"%1\" totalExpensesDeductible=\"%1\"><expense "
                "referenceDate=\"%2\" name=\"Depotgebühren\" amountCurrency=\"CHF\" amount=\"%1\" "
                "exchangeRate=\"1\" expenses=\"%1\" expensesDeductible=\"%1\" "
                "expenseType=\"22\"/></listOfExpenses>")
                .arg(machineText(s.fees), day);
    }
    return (xml + holdingsXml(s, day) + "</taxStatement>").toUtf8();
}

/// The arrangement of the printed pages.
struct Style {
    bool headRight = true;  ///< client's block on the right
    bool valueFirst = true; ///< tax value before the incomes
    double font = 8.5;
    bool bands = false; ///< shaded heads of tables
};

class Printer {
  public:
    Printer(Draft& draft, const Statement& s, const Style& style)
        : draft_(draft), s_(s), style_(style) {}

    void all() {
        overview();
        accounts();
        holdings();
        loans();
        barcodes();
    }

  private:
    void page(const QString& title, bool barcodePage) {
        Paper& p = draft_.paper;
        p.newPage(true);
        ++page_;
        const QString number = QString("196%1%2%3%4%5%6")
                                   .arg(s_.version, s_.client.left(5))
                                   .arg(page_, 3, 10, QChar('0'))
                                   .arg(barcodePage ? 1 : 0)
                                   .arg(0)
                                   .arg(2);
        code128(number).putTurned(p, 9, 12, 0.28);
        p.put(8, 12 + 0.28 * 130, number, {5.5, false, Align::left, false, Qt::black, {}, -90});
        p.left = 26;
        p.right = 284;
        p.put(26, 16, draft_.issuer.name, {14, true});
        p.put(26, 26,
              draft_.t("Steuerauszug in CHF ", "Relevé fiscal en CHF ", "Estratto fiscale in CHF ")
                  + draft_.date(draft_.yearEnd()),
              {12, true});
        p.put(26, 33, title, {11, true});
        const double x = style_.headRight ? 220 : 150;
        double y = 14;
        const QStringList head{
            draft_.t("Kunde  ", "Client  ", "Cliente  ") + draft_.family.one.name(),
            draft_.t("Kunden-Nr.  ", "N° client  ", "N. cliente  ") + s_.client,
            draft_.t("Periode  ", "Période  ", "Periodo  ") + "01.01."
                + QString::number(draft_.year) + " – " + draft_.date(draft_.yearEnd()),
            draft_.t("Kanton  SG", "Canton  SG", "Cantone  SG")};
        for (const QString& text : head) {
            p.put(x, y, text, {8});
            y += 4;
        }
        draft_.footer(draft_.issuer.name + ", " + draft_.issuer.place);
        p.put(284, 200, draft_.t("Seite ", "Page ", "Pagina ") + QString::number(page_),
              {7, false, Align::right});
        p.y = 42;
    }

    void tableHead(const QStringList& cells, const std::vector<Column>& columns) {
        Paper& p = draft_.paper;
        if (style_.bands) {
            p.fill(p.left - 2, p.y, p.right - p.left + 4, 6, QColor(222, 228, 236));
        }
        p.row(cells, columns, {7.5, true});
        p.rule();
    }

    /// Tax value and incomes in this style's order, after the given cells.
    QStringList amounts(Cents value, Cents incomeA, Cents incomeB) {
        QStringList cells{draft_.m(value), draft_.m(incomeA), draft_.m(incomeB)};
        if (!style_.valueFirst) {
            cells = QStringList{cells[1], cells[2], cells[0]};
        }
        return cells;
    }

    QStringList heads() const {
        const QString value =
            draft_.t("Steuerwert 31.12.", "Valeur fiscale 31.12.", "Valore fiscale 31.12.");
        const QString a = draft_.t("A Ertrag mit VSt.", "A Rendement avec IA", "A Reddito con IP");
        const QString b =
            draft_.t("B Ertrag ohne VSt.", "B Rendement sans IA", "B Reddito senza IP");
        return style_.valueFirst ? QStringList{value, a, b} : QStringList{a, b, value};
    }

    void overview() {
        page(draft_.t("Zusammenfassung", "Récapitulation", "Riepilogo"), false);
        Paper& p = draft_.paper;
        const std::vector<Column> columns{
            {90, Align::right}, {140, Align::right}, {190, Align::right}, {240, Align::right}};
        tableHead(heads()
                      + QStringList{draft_.t("Verrechnungssteueranspruch", "Impôt anticipé",
                                             "Imposta preventiva")},
                  columns);
        p.space(2);
        p.row(amounts(s_.value, s_.incomeA, s_.incomeB)
                  + QStringList{draft_.m(s_.incomeA * 35 / 100)},
              columns, {10, true});
        p.space(14);
        for (const Account& loan : s_.loans) {
            tableHead({draft_.t("Schulden am 31.12.", "Dettes au 31.12.", "Debiti al 31.12."),
                       draft_.t("Schuldzinsen", "Intérêts passifs", "Interessi passivi")},
                      columns);
            p.row({draft_.m(loan.value), draft_.m(loan.incomeB)}, columns, {10, true});
            p.space(10);
            p.paragraph(draft_.t("Abzugsfähige Spesen ", "Frais déductibles ", "Spese deducibili ")
                        + draft_.m(s_.fees));
        }
        p.space(10);
        p.paragraph(draft_.t("Die Werte dieser Aufstellung sind in das Wertschriften- und "
                             "Guthabenverzeichnis zu übertragen.",
                             "Ces valeurs sont à reporter dans l'état des titres.",
                             "Questi valori vanno riportati nell'elenco dei titoli."),
                    {8});
    }

    void accounts() {
        page(draft_.t("Bankkonten", "Comptes bancaires", "Conti bancari"), false);
        Paper& p = draft_.paper;
        const std::vector<Column> columns{{26, Align::left},
                                          {52, Align::left},
                                          {170, Align::right},
                                          {215, Align::right},
                                          {262, Align::right}};
        tableHead(QStringList{draft_.t("Datum", "Date", "Data"),
                              draft_.t("Bezeichnung", "Désignation", "Designazione")}
                      + heads(),
                  columns);
        for (const Account& item : s_.accounts) {
            p.space(2);
            p.row({"", item.name + " " + item.iban}, columns, {style_.font, true});
            p.row(QStringList{draft_.date(draft_.yearEnd()),
                              draft_.t("Steuerwert / Ertrag", "Valeur / rendement",
                                       "Valore / reddito")}
                      + amounts(item.value, item.incomeA, item.incomeB),
                  columns, {style_.font});
        }
    }

    void holdings() {
        if (s_.holdings.empty()) {
            return;
        }
        page(draft_.t("Wertschriften im Depot ", "Titres du dépôt ", "Titoli del deposito ")
                 + s_.depot,
             false);
        Paper& p = draft_.paper;
        const std::vector<Column> columns{{26, Align::left},   {52, Align::left},
                                          {140, Align::right}, {182, Align::right},
                                          {222, Align::right}, {262, Align::right}};
        tableHead(
            QStringList{draft_.t("Valor", "Valeur", "Valore"),
                        draft_.t("Bezeichnung, ISIN", "Désignation, ISIN", "Designazione, ISIN"),
                        draft_.t("Anzahl", "Nombre", "Quantità")}
                + heads(),
            columns);
        for (const Holding& item : s_.holdings) {
            p.space(2);
            p.row({item.valor, item.name + ", " + item.isin}, columns, {style_.font, true});
            p.row(QStringList{"",
                              draft_.t("Bestand / Steuerwert / Ertrag",
                                       "Avoir / valeur / rendement", "Saldo / valore / reddito"),
                              QString::number(item.quantity)}
                      + amounts(item.value, item.incomeA, item.incomeB),
                  columns, {style_.font});
        }
    }

    void loans() {
        if (s_.loans.empty()) {
            return;
        }
        page(draft_.t("Schulden", "Dettes", "Debiti"), false);
        Paper& p = draft_.paper;
        const std::vector<Column> columns{
            {26, Align::left}, {180, Align::right}, {240, Align::right}};
        tableHead({draft_.t("Bezeichnung", "Désignation", "Designazione"),
                   draft_.t("Schuld 31.12.", "Dette 31.12.", "Debito 31.12."),
                   draft_.t("Schuldzinsen", "Intérêts passifs", "Interessi passivi")},
                  columns);
        for (const Account& loan : s_.loans) {
            p.row({loan.name + " " + loan.iban, draft_.m(loan.value), draft_.m(loan.incomeB)},
                  columns, {style_.font});
        }
    }

    void barcodes() {
        constexpr int perPage = 5;
        const QByteArray data = deflated(xmlOf(draft_, s_));
        const int count = static_cast<int>((data.size() + segmentBytes - 1) / segmentBytes);
        const int pages = (count + perPage - 1) / perPage;
        QString sequence;
        for (int i = 0; i < 4; ++i) {
            sequence += QString("%1").arg(draft_.random.between(0, 899), 3, 10, QChar('0'));
        }
        for (int i = 0; i < count; ++i) {
            if (i % perPage == 0) {
                page(QString("Barcode %1 / %2").arg(i / perPage + 1).arg(pages), true);
            }
            const Symbol symbol =
                pdf417(data.mid(i * segmentBytes, segmentBytes), 13, i + 1, count, sequence);
            symbol.putTurned(draft_.paper, 26 + 52 * (i % perPage), 60, barcodeModule);
        }
    }

    Draft& draft_;
    const Statement& s_;
    Style style_;
    int page_ = 0;
};

void print(Draft& draft, bool loans, const Style& style, const char* version) {
    draft.money.fraction = AmountStyle::Fraction::always;
    Statement made = statement(draft, loans);
    made.version = version;
    Printer(draft, made, style).all();
}

void trainPlain(Draft& draft) { print(draft, false, {}, "22"); }

void trainLoans(Draft& draft) { print(draft, true, {}, "22"); }

void heldPlain(Draft& draft) { print(draft, false, {false, false, 9, true}, "21"); }

void heldLoans(Draft& draft) { print(draft, true, {false, true, 8, true}, "20"); }

} // namespace

std::vector<Layout> statementPapers() {
    return {{"statement", "accounts-depot", false, "de,fr", true, trainPlain},
            {"statement", "with-loan", false, "de", true, trainLoans},
            {"statement", "income-first", true, "de,it", true, heldPlain},
            {"statement", "banded-loan", true, "de", true, heldLoans}};
}

} // namespace corpus
