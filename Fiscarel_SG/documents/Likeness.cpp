#include "Fiscarel_SG/documents/Likeness.h"

#include <QString>
#include <QStringList>
#include <algorithm>

namespace fiscarel {

namespace {

using namespace Qt::Literals::StringLiterals;

/// The words of a name without case, marks and punctuation.
QStringList wordsOf(std::string_view name) {
    QString text =
        QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size())).toCaseFolded();
    text.replace(u'ä', u"ae"_s).replace(u'ö', u"oe"_s).replace(u'ü', u"ue"_s);
    QString plain;
    for (const QChar letter : text.normalized(QString::NormalizationForm_KD)) {
        if (letter.isLetterOrNumber()) {
            plain += letter;
        } else if (!letter.isMark()) {
            plain += u' ';
        }
    }
    return plain.split(u' ', Qt::SkipEmptyParts);
}

} // namespace

bool alike(std::string_view first, std::string_view second) {
    const QStringList words = wordsOf(first);
    return !words.isEmpty() && words.join(QString()) == wordsOf(second).join(QString());
}

bool isNamedIn(std::string_view name, std::string_view text) {
    const QStringList words = wordsOf(name);
    const QStringList all = wordsOf(text);
    return !words.isEmpty()
           && std::ranges::all_of(words, [&](const QString& word) { return all.contains(word); });
}

} // namespace fiscarel
