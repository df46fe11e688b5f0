#include "Fiscarel_SG/pages/overview/FrancsBox.h"

#include "Fiscarel_SG/pages/overview/MoneyText.h"

#include <QWheelEvent>
#include <algorithm>

namespace fiscarel::pages {

namespace {

QString digitsOf(QString text) {
    text.removeIf([](QChar c) { return c == u'’' || c == u'\'' || c.isSpace(); });
    return text;
}

} // namespace

FrancsBox::FrancsBox(QWidget* parent) : QSpinBox(parent) {
    setButtonSymbols(QAbstractSpinBox::NoButtons);
    setAlignment(Qt::AlignRight);
    setFocusPolicy(Qt::StrongFocus);
    setCorrectionMode(QAbstractSpinBox::CorrectToNearestValue);
}

QString FrancsBox::textFromValue(int value) const { return francs(value); }

int FrancsBox::valueFromText(const QString& text) const { return digitsOf(text).toInt(); }

/// Too large a number is cut when the keyboard leaves.
QValidator::State FrancsBox::validate(QString& text, int&) const {
    constexpr int mostDigits = 9;
    const QString digits = digitsOf(text);
    if (digits.isEmpty()) {
        return QValidator::Intermediate;
    }
    const bool isNumber =
        std::ranges::all_of(digits, [](QChar c) { return c >= u'0' && c <= u'9'; });
    if (!isNumber || digits.size() > mostDigits) {
        return QValidator::Invalid;
    }
    const int value = digits.toInt();
    return value >= minimum() && value <= maximum() ? QValidator::Acceptable
                                                    : QValidator::Intermediate;
}

void FrancsBox::wheelEvent(QWheelEvent* event) {
    if (hasFocus()) {
        QSpinBox::wheelEvent(event);
    } else {
        event->ignore();
    }
}

} // namespace fiscarel::pages
