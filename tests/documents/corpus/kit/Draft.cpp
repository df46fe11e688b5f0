#include "tests/documents/corpus/kit/Draft.h"

#include <QLocale>
#include <algorithm>

namespace corpus {

Draft::Draft(Random source, const QString& tongue, bool isHeld, bool hasPayload)
    : random(source), language(tongue), held(isHeld), payload(hasPayload) {
    year = random.between(2022, 2025);
    money = AmountStyle::random(random);
    family = Family::random(random, language, false);
    static const std::vector<QString> families{
        "Liberation Sans", "Liberation Serif", "DejaVu Sans",     "Roboto",
        "Inter",           "Roboto Condensed", "Liberation Sans", "Liberation Sans Narrow"};
    paper.family = random.pick(families);
    truth.language = language;
    truth.payload = payload;
}

QString Draft::t(const char* german, const char* french, const char* italian) {
    return one(language == "fr" ? french : language == "it" ? italian : german);
}

QString Draft::one(const char* wordings) {
    const QStringList all = QString::fromUtf8(wordings).split('|');
    return all.size() == 1 ? all[0] : all[random.between(0, static_cast<int>(all.size()) - 1)];
}

void Draft::from(const std::vector<QString>& training, const std::vector<QString>& heldOut) {
    issuer = randomIssuer(random, random.pick(held ? heldOut : training), language);
}

QString Draft::m(Cents cents) {
    printed_.insert(cents);
    return money.plain(cents);
}

QString Draft::f(Cents cents) {
    printed_.insert(cents);
    return money.full(cents);
}

QString Draft::s(Cents cents) {
    printed_.insert(cents);
    return money.spoken(cents);
}

QString Draft::date(QDate value) const { return value.toString("dd.MM.yyyy"); }

QString Draft::longDate(QDate value) const {
    static const QStringList german{"Januar",    "Februar", "März",     "April",
                                    "Mai",       "Juni",    "Juli",     "August",
                                    "September", "Oktober", "November", "Dezember"};
    static const QStringList french{"janvier",   "février", "mars",     "avril",
                                    "mai",       "juin",    "juillet",  "août",
                                    "septembre", "octobre", "novembre", "décembre"};
    static const QStringList italian{"gennaio",   "febbraio", "marzo",    "aprile",
                                     "maggio",    "giugno",   "luglio",   "agosto",
                                     "settembre", "ottobre",  "novembre", "dicembre"};
    const QStringList& months = language == "fr" ? french : language == "it" ? italian : german;
    return QString("%1%2 %3 %4")
        .arg(value.day())
        .arg(language == "de" ? "." : "")
        .arg(months[value.month() - 1])
        .arg(value.year());
}

QDate Draft::day() { return QDate(year, 1, 1).addDays(random.between(5, 355)); }

TruthRecord& Draft::record(const char* kind) {
    TruthRecord record;
    record.kind = kind;
    record.year = year;
    truth.records.push_back(record);
    return truth.records.back();
}

TruthRecord& Draft::record(const char* kind, const Someone& person) {
    TruthRecord& made = record(kind);
    made.personName = person.name();
    return made;
}

void Draft::finish() {
    truth.pages = paper.pageCount();
    if (!hasFoot && random.chance(60)) {
        footer(QString("%1 | %2 | IBAN %3 | %4 %5")
                   .arg(issuer.name, issuer.phone, randomIban(random),
                        t("MWST-Nr.", "No TVA", "N. IVA"), issuer.uid));
    }
    QSet<Cents> wanted;
    for (const auto* list : {&truth.records, &truth.accepted}) {
        for (const TruthRecord& record : *list) {
            for (auto it = record.values.begin(); it != record.values.end(); ++it) {
                if (const auto cents = centsOf(it.value()); cents && isAmountField(it.key())) {
                    wanted.insert(*cents);
                }
            }
        }
    }
    std::vector<Cents> others;
    for (const Cents cents : printed_) {
        if (cents != 0 && !wanted.contains(cents)) {
            others.push_back(cents);
        }
    }
    std::sort(others.begin(), others.end());
    for (const Cents cents : others) {
        truth.forbidden += machineText(cents);
    }
}

void Draft::numbersBlock(double x) {
    const double keep = paper.y;
    const Type small{8, false, Align::left, false, QColor(70, 70, 70)};
    const QStringList lines{t("Telefon ", "Téléphone ", "Telefono ") + issuer.phone, issuer.mail,
                            t("UID ", "IDE ", "IDI ") + issuer.uid + t(" MWST", " TVA", " IVA"),
                            t("Kunden-Nr. ", "N° client ", "N. cliente ") + random.digits(7)};
    for (const QString& text : lines) {
        paper.y += 3.8;
        paper.put(x, paper.y, text, small);
    }
    paper.y = std::max(keep, paper.y);
}

void Draft::letterHead(int arrangement, const QString& addressee) {
    const QString place = issuer.place.mid(5);
    const QDate early = QDate(year + 1, 1, 1).addDays(random.between(3, 70));
    const QString placeAndDate = place + ", " + longDate(dated.isValid() ? dated : early);
    const bool central = arrangement == 2;
    const double senderX = arrangement == 1 ? 120 : paper.left;
    const double windowX = arrangement == 1 ? paper.left : 118;
    if (arrangement == 3) {
        paper.fill(0, 0, 210, 9, QColor(30, 70 + random.between(0, 90), 120));
    }
    paper.y = 18;
    const Type name{central ? 17.0 : 14.0, true, central ? Align::centre : Align::left};
    paper.put(central ? 105 : senderX, paper.y, issuer.name,
              paper.fitted(issuer.name, name, 205 - senderX));
    const Type small{8, false, central ? Align::centre : Align::left};
    paper.put(central ? 105 : senderX, paper.y + 5, issuer.street + ", " + issuer.place, small);
    paper.y += 7;
    if (central) {
        paper.put(105, paper.y + 2,
                  t("Tel. ", "Tél. ", "Tel. ") + issuer.phone + "  |  " + issuer.uid, small);
    } else {
        numbersBlock(senderX);
    }
    double line = 52;
    for (const QString& text : {addressee, family.street, family.place}) {
        paper.put(windowX, line, text, paper.fitted(text, {10}, 205 - windowX));
        line += 5;
    }
    paper.put(arrangement == 0 ? 118 : paper.left, 78, placeAndDate, {9.5});
    paper.y = 84;
}

void Draft::footer(const QString& text) {
    const int page = paper.pageCount() - 1;
    hasFoot = true;
    const Type type{7, false, Align::left, false, QColor(90, 90, 90)};
    const QSizeF size = paper.pageSize(page);
    paper.put(paper.left, size.height() - 10, text,
              paper.fitted(text, type, size.width() - 4 - paper.left));
}

} // namespace corpus
