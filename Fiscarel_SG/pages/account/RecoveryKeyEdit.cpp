#include "Fiscarel_SG/pages/account/RecoveryKeyEdit.h"

#include <QEvent>
#include <QFontDatabase>

namespace fiscarel::pages {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int groups = 8;
constexpr int groupSize = 4;

} // namespace

QFont codeFont(double points) {
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    font.setPointSizeF(points);
    return font;
}

QString groupedRecoveryKey(const QString& text) {
    QString grouped;
    int count = 0;
    for (const QChar letter : text) {
        if (letter.isLetterOrNumber() && count < groups * groupSize) {
            if (count > 0 && count % groupSize == 0) {
                grouped += u' ';
            }
            grouped += letter.toUpper();
            ++count;
        }
    }
    return grouped;
}

QStringList recoveryKeyLines(const QString& key) {
    const QStringList parts = groupedRecoveryKey(key).split(u' ');
    return {parts.mid(0, groups / 2).join(u"  "_s), parts.mid(groups / 2).join(u"  "_s)};
}

RecoveryKeyEdit::RecoveryKeyEdit(QWidget* parent) : InputLine(parent) {
    setInputMethodHints(Qt::ImhNoPredictiveText | Qt::ImhSensitiveData | Qt::ImhUppercaseOnly);
    setFont(codeFont(11));
    connect(this, &QLineEdit::textEdited, this,
            [this](const QString& text) { regroup(groupedRecoveryKey(text)); });
    fitWidth();
}

void RecoveryKeyEdit::changeEvent(QEvent* event) {
    InputLine::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
        fitWidth();
    }
}

/// As wide as a whole key.
void RecoveryKeyEdit::fitWidth() {
    constexpr int edges = 30;
    const QString widest(groups * (groupSize + 1) - 1, u'W');
    setFixedWidth(fontMetrics().horizontalAdvance(widest) + edges);
}

} // namespace fiscarel::pages
