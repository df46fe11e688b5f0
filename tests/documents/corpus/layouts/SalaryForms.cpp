#include "tests/documents/corpus/kit/Symbols.h"
#include "tests/documents/corpus/layouts/Layout.h"
#include "tests/documents/corpus/layouts/Salary.h"

// The federal form of the certificate, as pay programs and the free form print it.

namespace corpus {
namespace {

struct Style {
    QString labels = "Liberation Sans";
    QString values = "Liberation Mono";
    double top = 92;    ///< of the first row
    double pitch = 7.4; ///< from row to row
    double amountX = 190;
    bool boxes = false; ///< every amount in a frame, else on a line
    bool signs = true;
    bool oneLine = false; ///< the three languages side by side instead of one below the other
    bool currencyHead = true;
};

struct Row {
    const char* number;
    const char* german;
    const char* french;
    const char* italian;
    const char* sign;
    Cents Salary::*amount = nullptr; ///< none: the line is always empty
    double indent = 0;
};

constexpr Row rows[] = {
    {"1.", "Lohn soweit nicht unter Ziffer 2–7 aufzuführen / Rente",
     "Salaire qui ne concerne pas les chiffres 2 à 7 ci-dessous / Rente",
     "Salario se non da indicare sotto cifre da 2 a 7 più sotto / Rendita", "", &Salary::base},
    {"2.1", "Verpflegung, Unterkunft", "Pension, logement", "Vitto, alloggio", "+", nullptr, 30},
    {"2.2", "Privatanteil Geschäftsfahrzeug", "Part privée voiture de service",
     "Quota privata automobile di servizio", "+", &Salary::car, 30},
    {"2.3", "Andere", "Autres", "Altre", "+", nullptr, 30},
    {"3.", "Unregelmässige Leistungen", "Prestations non périodiques", "Prestazioni aperiodiche",
     "+", &Salary::bonus},
    {"4.", "Kapitalleistungen", "Prestations en capital", "Prestazioni in capitale", "+"},
    {"5.", "Beteiligungsrechte gemäss Beiblatt", "Droits de participation selon annexe",
     "Diritti di partecipazione secondo allegato", "+", &Salary::shares},
    {"6.", "Verwaltungsratsentschädigungen", "Indemnités des membres de l'administration",
     "Indennità dei membri di consigli d'amministrazione", "+"},
    {"7.", "Andere Leistungen", "Autres prestations", "Altre prestazioni", "+", &Salary::other},
    {"8.", "Bruttolohn total / Rente", "Salaire brut total / Rente",
     "Salario lordo totale / Rendita", "=", &Salary::gross},
    {"9.", "Beiträge AHV/IV/EO/ALV/NBUV", "Cotisations AVS/AI/APG/AC/AANP",
     "Contributi AVS/AI/IPG/AD/AINP", "–", &Salary::social},
    {"10.1", "Berufliche Vorsorge: Ordentliche Beiträge",
     "Prévoyance prof.: Cotisations ordinaires", "Previdenza prof.: Contributi ordinari", "–",
     &Salary::regular, 16},
    {"10.2", "2. Säule: Beiträge für den Einkauf", "2e pilier: Cotisations pour le rachat",
     "2o pilastro: Contributi per il riscatto", "–", &Salary::buyIn, 16},
    {"11.", "Nettolohn / Rente", "Salaire net / Rente", "Salario netto / Rendita", "=",
     &Salary::net},
    {"12.", "Quellensteuerabzug", "Retenue de l'impôt à la source", "Ritenuta d'imposta alla fonte",
     "", &Salary::atSource},
    {"13.1.1", "Effektive Spesen: Reise, Verpflegung, Übernachtung", "Voyage, repas, nuitées",
     "Viaggio, vitto, alloggio", "", nullptr, 12},
    {"13.2.1", "Pauschalspesen: Repräsentation", "Représentation", "Rappresentanza", "",
     &Salary::expenses, 12},
    {"13.2.2", "Pauschalspesen: Auto", "Voiture", "Automobile", "", nullptr, 12},
    {"13.3", "Beiträge an die Weiterbildung", "Contributions au perfectionnement",
     "Contributi per il perfezionamento", "", &Salary::education, 12},
    {"14.", "Weitere Gehaltsnebenleistungen", "Autres prestations salariales accessoires",
     "Altre prestazioni accessorie al salario", ""},
};

/// What is typed into a line beside its amount.
QString remarkOf(Draft& draft, const Row& row, Cents amount) {
    if (amount == 0) {
        return {};
    }
    if (row.amount == &Salary::bonus) {
        return draft.t("Bonus, Gratifikation", "Bonus, gratification", "Bonus, gratifica");
    }
    if (row.amount == &Salary::other) {
        return draft.t("Arbeitgeberanteil AHV/IV/EO/ALV", "Part employeur AVS/AI/APG/AC",
                       "Quota datore di lavoro AVS/AI/IPG/AD");
    }
    return {};
}

void head(Draft& draft, const Salary& s, const Style& style) {
    Paper& p = draft.paper;
    const Type title{13, true};
    const Type tiny{5.5};
    const Type value{10, false, Align::left, false, Qt::black, style.values};
    p.put(18, 14, "A", {9});
    p.put(26, 14, s.pension ? "" : "X", {10, true});
    p.put(34, 14, "Lohnausweis – Certificat de salaire – Certificato di salario", title);
    p.put(18, 20, "B", {9});
    p.put(26, 20, s.pension ? "X" : "", {10, true});
    p.put(34, 20, "Rentenbescheinigung – Attestation de rentes – Attestazione delle rendite",
          title);
    p.put(18, 28, "C", {9});
    p.put(26, 28, s.who.number, value);
    p.put(72, 28, draft.date(s.who.birth), value);
    p.put(26, 31, "AHV-Nr. – No AVS – N. AVS", tiny);
    p.put(72, 31, "Geburtsdatum – Date de naissance – Data di nascita", tiny);
    p.put(18, 38, "D", {9});
    p.put(26, 38, QString::number(s.year), value);
    p.put(26, 41, "Jahr – Année – Anno", tiny);
    p.put(54, 38, "E", {9});
    p.put(60, 38, draft.date(s.from), value);
    p.put(88, 38, draft.date(s.until), value);
    p.put(60, 41, "von – du – dal", tiny);
    p.put(88, 41, "bis – au – al", tiny);
    p.put(122, 28, "F", {9});
    p.put(128, 28, s.freeTransport ? "X" : "", {10, true});
    p.box(126.5, 24.5, 4.5, 4.5);
    p.put(134, 26, "Unentgeltliche Beförderung zwischen Wohn- und Arbeitsort", tiny);
    p.put(134, 28.6, "Transport gratuit entre le domicile et le lieu de travail", tiny);
    p.put(122, 38, "G", {9});
    p.put(128, 38, s.canteen ? "X" : "", {10, true});
    p.box(126.5, 34.5, 4.5, 4.5);
    p.put(134, 36, "Kantinenverpflegung / Lunch-Checks", tiny);
    p.put(134, 38.6, "Repas à la cantine / chèques-repas", tiny);
    p.put(18, 50, "H", {9});
    const double addressX = 122;
    double y = 54;
    for (const QString& line : {s.who.name(), draft.family.street, draft.family.place}) {
        p.put(addressX, y, line, {10, false, Align::left, false, Qt::black, style.labels});
        y += 5;
    }
}

/// As many of the three languages as have room.
QString sideBySide(const Paper& paper, const Row& row, const Type& type, double room) {
    QString text = QString::fromUtf8(row.german);
    for (const char* next : {row.french, row.italian}) {
        const QString longer = text + " – " + QString::fromUtf8(next);
        text = paper.width(longer, type) <= room ? longer : text;
    }
    return text;
}

void formRow(Draft& draft, const Style& style, const Row& row, const Salary& s, double y) {
    Paper& p = draft.paper;
    const Cents amount = row.amount == nullptr ? 0 : s.*row.amount;
    const QString remark = remarkOf(draft, row, amount);
    const bool strong = row.number == QString("8.") || row.number == QString("11.");
    const Type label{style.oneLine ? 6.6 : 6.0, strong};
    const double x = 18 + row.indent;
    p.put(x, y, row.number, {8, strong});
    const double labelX = x + (row.indent > 0 ? 10 : 8);
    if (style.oneLine) {
        p.put(labelX, y,
              sideBySide(p, row, label, style.amountX - (remark.isEmpty() ? 32 : 62) - labelX),
              label);
    } else {
        p.put(labelX, y - 2.2, QString::fromUtf8(row.german), label);
        p.put(labelX, y, QString::fromUtf8(row.french), label);
        p.put(labelX, y + 2.2, QString::fromUtf8(row.italian), label);
    }
    p.put(style.amountX - 33, y - 0.4, remark,
          {6.5, false, Align::right, false, Qt::black, style.values});
    if (style.signs) {
        p.put(style.amountX - 30, y, row.sign, {9});
    }
    if (amount != 0) {
        p.put(style.amountX - 1.5, y, draft.m(amount),
              {10, strong, Align::right, false, Qt::black, style.values});
    }
    if (style.boxes) {
        p.box(style.amountX - 28, y - 4, 28, 5.2);
    } else {
        p.line(style.amountX - 26, y + 1, style.amountX, y + 1);
    }
}

void foot(Draft& draft, const Style& style, const Salary& s, double y, const QString& page) {
    Paper& p = draft.paper;
    p.put(18, y, "15.", {8});
    p.put(26, y - 1.5, "Bemerkungen", {6});
    p.put(26, y + 0.8, "Observations", {6});
    const QString remark =
        s.pension ? QString()
                  : draft.t("Kinderzulagen nicht enthalten, Auszahlung durch Ausgleichskasse. "
                            "Spesenreglement genehmigt",
                            "Taux d'activité 80%. Règlement de remboursement agréé le 01.01.2019",
                            "Grado d'occupazione 80%. Regolamento spese approvato il 01.01.2019");
    p.put(52, y, remark, {7.5, false, Align::left, false, Qt::black, style.values});
    y += 10;
    p.put(18, y, "I", {9});
    p.put(24, y, "Ort und Datum – Lieu et date – Luogo e data", {5.5});
    p.put(24, y + 5, draft.issuer.place.mid(5) + ", " + draft.date(QDate(s.year + 1, 1, 24)), {9});
    p.put(96, y, "Die Richtigkeit und Vollständigkeit bestätigt", {5.5});
    p.put(96, y + 2.4, "Certifié exact et complet – Certificato esatto e completo", {5.5});
    double line = y + 5;
    for (const QString& text : {draft.issuer.name, draft.issuer.street, draft.issuer.place,
                                "Tel: " + draft.issuer.phone, "UID: " + draft.issuer.uid}) {
        p.put(150, line, text, {8});
        line += 3.8;
    }
    p.put(18, 290, "Form. 11 dfi 01.21", {6, true});
    p.put(190, 290, page, {6, false, Align::right});
}

/// One certificate; with `parts` barcodes, one on each of so many pages (none: no barcode).
void form(Draft& draft, const Salary& s, const Style& style, int parts) {
    Paper& p = draft.paper;
    p.family = style.labels;
    p.newPage();
    std::vector<QByteArray> symbols;
    if (parts > 0) {
        symbols = salaryParts(zipped(salaryXml(s, draft), "txab"),
                              static_cast<quint32>(draft.random.next()), parts);
        pdf417(symbols[0], parts == 1 ? 17 : 12).put(p, 26, 48, 0.2);
    }
    head(draft, s, style);
    if (style.currencyHead) {
        p.put(style.amountX, style.top - 4, "CHF", {6, false, Align::right});
    }
    double y = style.top;
    for (const Row& row : rows) {
        formRow(draft, style, row, s, y);
        y += style.pitch;
    }
    foot(draft, style, s, y + 1, parts > 1 ? "Seite 1 / 2" : "");
    if (parts > 1) {
        p.newPage();
        head(draft, s, style);
        pdf417(symbols[1], 12).put(p, 26, 48, 0.2);
        p.put(18, 110, "3.", {8});
        p.put(26, 110, "Unregelmässige Leistungen – Prestations non périodiques", {6.5});
        p.put(18, 120, "13.", {8});
        p.put(26, 120, "Spesenvergütungen – Allocations pour frais – Indennità per spese", {6.5});
        foot(draft, style, s, 140, "Seite 2 / 2");
    }
}

void begin(Draft& draft) {
    employerOf(draft);
    draft.hasFoot = true; // the form's own
    draft.truth.kind = "lohnausweis";
    draft.money.place = AmountStyle::Currency::none;
    draft.money.fraction = draft.random.pick(std::vector<AmountStyle::Fraction>{
        AmountStyle::Fraction::always, AmountStyle::Fraction::onlyWhenNeeded});
}

void trainOne(Draft& draft) {
    begin(draft);
    form(draft, randomSalary(draft, false, draft.family.one), {}, draft.payload ? 1 : 0);
}

void trainTwoPages(Draft& draft) {
    begin(draft);
    form(draft, randomSalary(draft, false, draft.family.two), {}, 2);
}

void trainPension(Draft& draft) {
    begin(draft);
    draft.truth.alsoKinds = QStringList{"pensionskasse"};
    form(draft, randomSalary(draft, true, draft.family.one), {}, draft.payload ? 1 : 0);
}

void trainSeveral(Draft& draft) {
    begin(draft);
    form(draft, randomSalary(draft, false, draft.family.one), {}, 1);
    form(draft, randomSalary(draft, false, draft.family.two), {}, 1);
    if (draft.random.chance(50)) {
        form(draft, randomSalary(draft, false, draft.family.one), {}, 1);
    }
}

const Style heldBoxes{"Roboto", "Roboto", 96, 7.2, 182, true, false, true, false};
const Style heldSerif{
    "Liberation Serif", "Liberation Serif", 90, 7.5, 194, false, true, false, true};

/// The barcode of the free form tool, which nothing here reads.
void heldFree(Draft& draft) {
    begin(draft);
    form(draft, randomSalary(draft, false, draft.family.one), heldBoxes, 0);
    QByteArray noise;
    for (int i = 0; i < 600; ++i) {
        noise.append(static_cast<char>(draft.random.between(0, 255)));
    }
    pdf417(noise, 14).put(draft.paper, 26, 50, 0.21);
}

void heldOne(Draft& draft) {
    begin(draft);
    form(draft, randomSalary(draft, false, draft.family.two), heldSerif, draft.payload ? 1 : 0);
}

void heldSeveral(Draft& draft) {
    begin(draft);
    form(draft, randomSalary(draft, false, draft.family.two), heldSerif, 2);
    form(draft, randomSalary(draft, false, draft.family.one), heldSerif, 1);
}

void heldPension(Draft& draft) {
    begin(draft);
    draft.truth.alsoKinds = QStringList{"pensionskasse"};
    form(draft, randomSalary(draft, true, draft.family.two), heldBoxes, draft.payload ? 1 : 0);
}

} // namespace

std::vector<Layout> salaryForms() {
    return {{"salary", "form-barcode", false, "de,fr,it", true, trainOne},
            {"salary", "form-plain", false, "de,fr,it", false, trainOne},
            {"salary", "form-two-pages", false, "de", true, trainTwoPages},
            {"salary", "form-several", false, "de", true, trainSeveral},
            {"pension", "form-barcode", false, "de", true, trainPension},
            {"pension", "form-plain", false, "de,fr", false, trainPension},
            {"salary", "free-form", true, "de,fr,it", false, heldFree},
            {"salary", "serif-barcode", true, "de,fr,it", true, heldOne},
            {"salary", "serif-plain", true, "de,fr,it", false, heldOne},
            {"salary", "serif-several", true, "de", true, heldSeveral},
            {"pension", "boxes-barcode", true, "de", true, heldPension},
            {"pension", "boxes-plain", true, "de,fr", false, heldPension}};
}

} // namespace corpus
