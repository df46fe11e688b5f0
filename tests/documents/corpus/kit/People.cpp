#include "tests/documents/corpus/kit/People.h"

#include <QRegularExpression>

namespace corpus {
namespace {

struct Names {
    std::vector<QString> women;
    std::vector<QString> men;
    std::vector<QString> families;
    std::vector<QString> streets;
    std::vector<QString> places;
};

const Names& namesOf(const QString& language) {
    static const Names german{
        {"Anna", "Claudia", "Sandra", "Petra", "Mirjam", "Lea", "Nadja", "Ursula", "Yvonne"},
        {"Urs", "Beat", "Marco", "Reto", "Thomas", "Jonas", "Patrick", "Roman", "Stefan"},
        {"Ammann", "Bösch", "Eugster", "Frei", "Keller-Hugentobler", "Näf", "Oberholzer", "Rüegg",
         "Schönenberger", "Zürcher", "Büchel", "Inauen"},
        {"Rosenbergstrasse", "Bahnhofstrasse", "Im Grund", "Lindenweg", "Kirchgasse", "Seestrasse"},
        {"9000 St.Gallen", "9500 Wil SG", "9400 Rorschach", "8640 Rapperswil-Jona", "9470 Buchs SG",
         "9200 Gossau SG", "9443 Widnau", "8887 Mels"}};
    static const Names french{
        {"Hélène", "Céline", "Aurélie", "Sylvie", "Chloé"},
        {"Benoît", "Gaël", "Pierre", "Loïc", "François"},
        {"Chappuis", "Favre", "Rochat", "Jaquet-Droz", "Mérinat", "Pittet"},
        {"Rue du Lac", "Chemin des Vignes", "Avenue de la Gare", "Route de Berne"},
        {"1003 Lausanne", "2000 Neuchâtel", "1700 Fribourg", "1920 Martigny"}};
    static const Names italian{
        {"Giulia", "Chiara", "Paola", "Lucia"},
        {"Luca", "Fabio", "Nicolò", "Sergio"},
        {"Bernasconi", "Fontana", "Pedrazzini", "Quadri", "Soldati"},
        {"Via Stazione", "Via al Lago", "Viale Cattori", "Via San Gottardo"},
        {"6500 Bellinzona", "6900 Lugano", "6600 Locarno", "6850 Mendrisio"}};
    return language == "fr" ? french : language == "it" ? italian : german;
}

Someone person(Random& random, const QString& first, const QString& last, int fromYear,
               int untilYear) {
    return {first, last,
            QDate(random.between(fromYear, untilYear), 1, 1).addDays(random.between(0, 364)),
            randomSocialNumber(random)};
}

} // namespace

Family Family::random(Random& random, const QString& language, bool liechtenstein) {
    const Names& names = namesOf(language);
    const QString last = random.pick(names.families);
    Family family;
    family.one = person(random, random.pick(names.men), last, 1955, 1996);
    family.two = person(random, random.pick(names.women), last, 1957, 1996);
    family.child = person(random, random.pick(names.women), last, 2008, 2020);
    family.secondChild = person(random, random.pick(names.men), last, 2008, 2020);
    if (random.chance(40)) {
        std::swap(family.one, family.two);
    }
    family.street = random.pick(names.streets) + " " + QString::number(random.between(1, 148));
    static const std::vector<QString> principality{"9490 Vaduz", "9494 Schaan", "9496 Balzers",
                                                   "9492 Eschen"};
    family.place = random.pick(liechtenstein ? principality : names.places);
    return family;
}

Issuer randomIssuer(Random& random, const QString& name, const QString& language) {
    const Names& names = namesOf(language);
    Issuer issuer;
    issuer.name = name;
    issuer.street = random.pick(names.streets) + " " + QString::number(random.between(1, 99));
    issuer.place = random.pick(names.places);
    const QString area = language == "fr" ? "021" : language == "it" ? "091" : "071";
    issuer.phone =
        QString("%1 %2 %3 %4").arg(area, random.digits(3), random.digits(2), random.digits(2));
    issuer.mail = "info@" + QString(name).toLower().remove(QRegularExpression("[^a-z]")).left(14)
                  + ".example";
    issuer.uid = QString("CHE-%1.%2.%3").arg(random.digits(3), random.digits(3), random.digits(3));
    return issuer;
}

QString randomIban(Random& random, const QString& country) {
    const QString account = random.digits(17);
    const QString numbers = account + QString::number(country[0].unicode() - 'A' + 10)
                            + QString::number(country[1].unicode() - 'A' + 10) + "00";
    int rest = 0;
    for (const QChar digit : numbers) {
        rest = (rest * 10 + digit.digitValue()) % 97;
    }
    QString iban = country + QString("%1").arg(98 - rest, 2, 10, QChar('0')) + account;
    for (qsizetype place = 4; place < iban.size(); place += 5) {
        iban.insert(place, ' ');
    }
    return iban;
}

QString randomSocialNumber(Random& random) {
    const QString body = "756" + random.digits(9);
    int sum = 0;
    for (int i = 0; i < 12; ++i) {
        sum += body[i].digitValue() * (i % 2 == 0 ? 1 : 3);
    }
    const QString all = body + QString::number((10 - sum % 10) % 10);
    return QString("%1.%2.%3.%4").arg(all.left(3), all.mid(3, 4), all.mid(7, 4), all.mid(11));
}

QString randomReference(Random& random) {
    static constexpr int table[] = {0, 9, 4, 6, 8, 2, 7, 1, 3, 5};
    const QString body = random.digits(26);
    int carry = 0;
    for (const QChar digit : body) {
        carry = table[(carry + digit.digitValue()) % 10];
    }
    return body + QString::number((10 - carry) % 10);
}

} // namespace corpus
