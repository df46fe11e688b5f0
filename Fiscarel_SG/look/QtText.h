#pragma once

#include <QString>
#include <string>
#include <string_view>
#include <vector>

namespace fiscarel {

/// UTF-8 text of the engine as the window library's.
inline QString qs(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// A text of the program for people to read, in a label or a tip: an amount stays on one line with
/// its "Fr." or "CHF", a number with its "Ziffer". Not for texts that are written back.
QString labelText(std::string_view text);
QString labelText(QString text);

/// The same as a tip of a widget: over several lines where it is long, and every letter as it is;
/// empty for an empty text.
QString tipText(const QString& text);

/// And back.
inline std::string utf8(const QString& text) { return text.toStdString(); }

/// What becomes of ä, ö and ü where texts are compared.
enum class Umlauts {
    plain,     ///< "a"
    spelledOut ///< "ae"
};

/// A text as texts are looked for: in small letters without accents.
QString folded(QString text, Umlauts umlauts);
/// The same of a name, besides without blanks, points and hyphens: "St. Gallen" is "St.Gallen".
QString foldedName(const QString& name, Umlauts umlauts);

/// What is looked in: "Säule" is found by "säule", "saule" and "saeule".
std::string searched(std::string_view text);
/// The words somebody looks for, each to be found as it is in what is `searched`.
std::vector<std::string> wordsToSearch(std::string_view query);

} // namespace fiscarel
