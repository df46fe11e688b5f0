#include "tests/documents/corpus/layouts/facts/Arithmetic.h"
#include "tests/documents/corpus/layouts/facts/Teller.h"

#include <QRegularExpression>
#include <algorithm>
#include <stdexcept>

// What names, functions and words of a tale stand for.

namespace corpus {
namespace {

/// An international number of a security, with its check digit.
QString randomIsin(Random& random, const QString& country) {
    const QString body = country + (country == "CH" ? "00" + random.digits(7) : random.digits(9));
    QString digits;
    for (const QChar letter : body) {
        digits +=
            letter.isDigit() ? QString(letter) : QString::number(letter.unicode() - u'A' + 10);
    }
    int sum = 0;
    bool twice = true;
    for (qsizetype i = digits.size() - 1; i >= 0; --i) {
        const int value = digits[i].digitValue() * (twice ? 2 : 1);
        sum += value / 10 + value % 10;
        twice = !twice;
    }
    return body + QString::number((10 - sum % 10) % 10);
}

} // namespace

qint64 Teller::number(const QString& sum) {
    return computed(sum, {[this](const QString& name) { return named(name); },
                          [this](const QString& function, const std::vector<qint64>& arguments) {
                              return called(function, arguments);
                          }});
}

qint64 Teller::named(const QString& name) {
    for (auto scope = scopes_.rbegin(); scope != scopes_.rend(); ++scope) {
        if (const auto it = scope->numbers.find(name); it != scope->numbers.end()) {
            return it->second;
        }
        if (const auto it = scope->facts.amounts.find(name); it != scope->facts.amounts.end()) {
            return it->second;
        }
        if (const auto it = scope->facts.dates.find(name); it != scope->facts.dates.end()) {
            return it->second.toJulianDay();
        }
    }
    if (name.contains('.')) { // nothing in the list yet
        return 0;
    }
    if (name == "dated") {
        return draft_.dated.toJulianDay();
    }
    if (name == "year") {
        return draft_.year;
    }
    if (name == "childbirth") {
        return draft_.family.child.birth.toJulianDay();
    }
    throw std::runtime_error("no number " + name.toStdString());
}

std::optional<qint64> Teller::dayCalled(const QString& function, const std::vector<qint64>& a) {
    const auto at = [&](size_t i) { return static_cast<int>(a.at(i)); };
    if (function == "on") {
        return QDate(a.size() > 2 ? at(2) : draft_.year, at(0), at(1)).toJulianDay();
    }
    if (function == "last") {
        const QDate first(a.size() > 1 ? at(1) : draft_.year, at(0), 1);
        return first.addDays(first.daysInMonth() - 1).toJulianDay();
    }
    if (function == "someday") {
        return draft_.day().toJulianDay();
    }
    if (function == "monday") {
        const QDate day = QDate::fromJulianDay(a.at(0));
        return day.addDays(1 - day.dayOfWeek()).toJulianDay();
    }
    return std::nullopt;
}

qint64 Teller::called(const QString& function, const std::vector<qint64>& a) {
    const auto at = [&](size_t i) { return static_cast<int>(a.at(i)); };
    Random& random = draft_.random;
    if (const auto day = dayCalled(function, a)) {
        return *day;
    }
    if (function == "francs") {
        return draft_.francs(at(0), at(1), a.size() > 2 ? at(2) : 1);
    }
    if (function == "odd") {
        return draft_.odd(at(0), at(1));
    }
    if (function == "some") {
        const Cents odd = draft_.odd(at(0), at(1));
        return odd + random.between(0, 4);
    }
    if (function == "int") {
        return random.between(at(0), at(1));
    }
    if (function == "chance") {
        return random.chance(at(0)) ? 1 : 0;
    }
    if (function == "pick") {
        return random.pick(a);
    }
    if (function == "if") {
        return a.at(0) != 0 ? a.at(1) : a.at(2);
    }
    if (function == "five") {
        return a.at(0) / 5 * 5;
    }
    if (function == "part") {
        return a.at(0) * a.at(1) / 1000 / 5 * 5;
    }
    if (function == "to") {
        return a.at(0) / a.at(1) * a.at(1);
    }
    if (function == "max") {
        return *std::max_element(a.begin(), a.end());
    }
    if (function == "abs") {
        return qAbs(a.at(0));
    }
    throw std::runtime_error("no function " + function.toStdString());
}

QStringList Teller::wordsOfLanguage(const QString& all) const {
    const QString text = all.trimmed();
    const QStringList languages =
        (text.startsWith('@') ? taleOf(text.mid(1)) : text).split(QRegularExpression("\\s*//\\s*"));
    const qsizetype at = draft_.language == "fr" ? 1 : draft_.language == "it" ? 2 : 0;
    return languages.value(at < languages.size() ? at : 0).trimmed().split('|');
}

QString Teller::words(const QString& all) {
    if (all.startsWith("@@")) {
        return wording(draft_, all.mid(2), draft_.language);
    }
    const QStringList choices = wordsOfLanguage(all);
    const QString one =
        choices.size() == 1
            ? choices[0]
            : choices[draft_.random.between(0, static_cast<int>(choices.size()) - 1)];
    return expanded(one.simplified());
}

QString Teller::expanded(QString text) {
    static const QRegularExpression place("\\{([^{}]+)\\}");
    for (auto match = place.match(text); match.hasMatch(); match = place.match(text)) {
        text.replace(match.capturedStart(), match.capturedLength(), textNamed(match.captured(1)));
    }
    return text;
}

QString Teller::textNamed(const QString& name) {
    if (name.startsWith('#')) {
        return draft_.random.digits(name.mid(1).toInt());
    }
    if (name.startsWith("iban")) {
        return randomIban(draft_.random, name == "iban" ? "CH" : name.mid(4));
    }
    if (name.startsWith("isin") && name.size() == 6) {
        return randomIsin(draft_.random, name.mid(4));
    }
    for (auto scope = scopes_.rbegin(); scope != scopes_.rend(); ++scope) {
        if (const auto it = scope->facts.texts.find(name); it != scope->facts.texts.end()) {
            return it->second;
        }
    }
    return name == "issuer"        ? draft_.issuer.name
           : name == "street"      ? draft_.family.street
           : name == "firstchild"  ? draft_.family.child.first
           : name == "secondchild" ? draft_.family.secondChild.first
                                   : QString::number(named(name));
}

Someone Teller::person(const QString& name) {
    const Family& family = draft_.family;
    if (name == "third" && !third_) {
        third_ = family.child;
        third_->first = draft_.t("Elin|Mattea|Ronja|Jael", "Zoé|Manon", "Noemi|Alice");
        third_->birth = QDate(draft_.year - draft_.random.between(2, 9),
                              draft_.random.between(1, 12), draft_.random.between(1, 28));
        third_->number = randomSocialNumber(draft_.random);
    }
    return name == "one"      ? family.one
           : name == "two"    ? family.two
           : name == "child"  ? family.child
           : name == "child2" ? family.secondChild
           : name == "third"  ? *third_
                              : here().who.value_or(family.one);
}

void Teller::setSender(const QString& names) {
    draft_.issuer = randomIssuer(draft_.random, words(names), draft_.language);
}

void Teller::inPrincipality() {
    draft_.family = Family::random(draft_.random, draft_.language, true);
    draft_.issuer.place =
        draft_.one("9490 Vaduz|9494 Schaan|9496 Balzers|9487 Bendern|9491 Ruggell|9492 Eschen");
    draft_.issuer.phone = "+423 " + draft_.random.digits(3) + " " + draft_.random.digits(4);
}

} // namespace corpus
