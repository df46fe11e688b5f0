#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace fiscarel {

/// UTF-8 text of the engine as the window library's.
inline QString qs(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// A text of the program for people to read, in a label or a tip: an amount stays on one line with
/// its "Fr." or "CHF", a number with its "Ziffer". Not for texts that are written back.
QString labelText(std::string_view text);
QString labelText(QString text);

/// And back.
inline std::string utf8(const QString& text) { return text.toStdString(); }

/// As texts are searched: in lower case without accents, so that "Säule" and "saule" meet; "ae"
/// counts as "ä".
std::string folded(std::string_view text);

} // namespace fiscarel
