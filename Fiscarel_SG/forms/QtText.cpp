#include "Fiscarel_SG/forms/QtText.h"

#include <QRegularExpression>

namespace fiscarel {

using namespace Qt::Literals::StringLiterals;

QString labelText(QString text) {
    // What belongs to the number behind it.
    static const QRegularExpression before(QStringLiteral(
        "\\b(Fr\\.|CHF|Ziffern?|Ziff\\.|Art\\.|Abs\\.|Nr\\.|Feld|Code) (?=[-−+]?\\d)"));
    return text.replace(before, QStringLiteral("\\1\u00A0"));
}

QString labelText(std::string_view text) { return labelText(qs(text)); }

std::string folded(std::string_view text) {
    QString plain;
    for (const QChar c : qs(text).toLower().normalized(QString::NormalizationForm_D)) {
        if (c.category() != QChar::Mark_NonSpacing) {
            plain += c;
        }
    }
    plain.replace(u"ae"_s, u"a"_s).replace(u"oe"_s, u"o"_s).replace(u"ue"_s, u"u"_s);
    return utf8(plain);
}

} // namespace fiscarel
