#include "Fiscarel_SG/forms/QtText.h"

#include <QRegularExpression>

namespace fiscarel {

QString labelText(QString text) {
    // What belongs to the number behind it.
    static const QRegularExpression before(QStringLiteral(
        "\\b(Fr\\.|CHF|Ziffern?|Ziff\\.|Art\\.|Abs\\.|Nr\\.|Feld|Code) (?=[-−+]?\\d)"));
    return text.replace(before, QStringLiteral("\\1\u00A0"));
}

QString labelText(std::string_view text) { return labelText(qs(text)); }

} // namespace fiscarel
