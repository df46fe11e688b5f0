#include "tests/documents/corpus/kit/AmountStyle.h"

namespace corpus {

AmountStyle AmountStyle::random(Random& random) {
    static const std::vector<QString> marks{
        "’", "’", "'", "'", "'", "`", "´", " ", QString(QChar(0x00a0)), QString(QChar(0x2009)), ""};
    AmountStyle style;
    style.mark = random.pick(marks);
    style.fraction =
        random.pick(std::vector<Fraction>{Fraction::always, Fraction::always, Fraction::always,
                                          Fraction::dash, Fraction::doubleDash});
    style.place =
        random.pick(std::vector<Currency>{Currency::none, Currency::before, Currency::after});
    style.currency = random.pick(std::vector<QString>{"CHF", "CHF", "Fr.", "SFr."});
    return style;
}

QString AmountStyle::plain(Cents cents) const {
    QString whole = QString::number(qAbs(cents) / 100);
    for (qsizetype at = whole.size() - 3; at > 0; at -= 3) {
        whole.insert(at, mark);
    }
    if (cents < 0) {
        whole.prepend('-');
    }
    const Cents rest = qAbs(cents) % 100;
    if (rest == 0 && fraction == Fraction::dash) {
        return whole + ".–";
    }
    if (rest == 0 && fraction == Fraction::doubleDash) {
        return whole + ".--";
    }
    if (rest == 0 && fraction == Fraction::hyphen) {
        return whole + ".-";
    }
    if (rest == 0 && fraction == Fraction::onlyWhenNeeded) {
        return whole;
    }
    return QString("%1.%2").arg(whole).arg(rest, 2, 10, QChar('0'));
}

QString AmountStyle::full(Cents cents) const {
    switch (place) {
    case Currency::before:
        return currency + " " + plain(cents);
    case Currency::after:
        return plain(cents) + " " + currency;
    case Currency::none:
        break;
    }
    return plain(cents);
}

QString AmountStyle::spoken(Cents cents) const {
    return place == Currency::after ? plain(cents) + " " + currency : currency + " " + plain(cents);
}

} // namespace corpus
