#include "Fiscarel_SG/look/QtText.h"

#include <QRegularExpression>
#include <utility>

namespace fiscarel {

QString labelText(QString text) {
    // What belongs to the number behind it.
    static const QRegularExpression before(QStringLiteral(
        "\\b(Fr\\.|CHF|Ziffern?|Ziff\\.|Art\\.|Abs\\.|Nr\\.|Feld|Code) (?=[-−+]?\\d)"));
    return text.replace(before, QStringLiteral("\\1\u00A0"));
}

QString labelText(std::string_view text) { return labelText(qs(text)); }

QString tipText(const QString& text) {
    return text.isEmpty() ? QString() : QStringLiteral("<p>%1</p>").arg(text.toHtmlEscaped());
}

QString folded(QString text, Umlauts umlauts) {
    text = text.toLower();
    if (umlauts == Umlauts::spelledOut) {
        text = text.normalized(QString::NormalizationForm_C);
        for (const auto& [letter, spelled] :
             {std::pair(u'ä', u"ae"), std::pair(u'ö', u"oe"), std::pair(u'ü', u"ue")}) {
            text.replace(letter, QStringView(spelled).toString());
        }
    }
    QString plain;
    for (const QChar letter : text.normalized(QString::NormalizationForm_D)) {
        if (letter.category() != QChar::Mark_NonSpacing) {
            plain += letter;
        }
    }
    return plain;
}

QString foldedName(const QString& name, Umlauts umlauts) {
    return folded(name, umlauts).removeIf([](QChar letter) { return !letter.isLetterOrNumber(); });
}

std::string searched(std::string_view text) {
    return utf8(folded(qs(text), Umlauts::plain) + u'\n' + folded(qs(text), Umlauts::spelledOut));
}

std::vector<std::string> wordsToSearch(std::string_view query) {
    std::vector<std::string> words;
    for (const QString& word :
         folded(qs(query).simplified(), Umlauts::plain).split(u' ', Qt::SkipEmptyParts)) {
        words.push_back(utf8(word));
    }
    return words;
}

} // namespace fiscarel
