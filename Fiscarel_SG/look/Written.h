#pragma once

#include <QDate>
#include <QLocale>
#include <QString>
#include <cstdint>

namespace fiscarel::look {

// How dates and sizes are written everywhere in the window.

/// "09.04.2025"
inline QString written(QDate day) { return day.toString(QStringLiteral("dd.MM.yyyy")); }

/// The size of a file in whole kilobytes or megabytes to a tenth, of 1000 each, rounded up so that
/// no file has nothing: "9 kB", "1.2 MB".
inline QString writtenSize(std::uint64_t bytes) {
    constexpr std::uint64_t kilo = 1'000;
    constexpr std::uint64_t mega = kilo * kilo;
    const std::uint64_t kilobytes = (bytes + kilo - 1) / kilo;
    return kilobytes < kilo ? QStringLiteral("%1 kB").arg(kilobytes)
                            : QStringLiteral("%1 MB").arg(
                                QString::number(static_cast<double>(bytes) / mega, 'f', 1));
}

} // namespace fiscarel::look
