#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace fiscarel {

/// UTF-8 text of the engine as the window library's.
inline QString qs(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// And back.
inline std::string utf8(const QString& text) { return text.toStdString(); }

} // namespace fiscarel
