#pragma once

#include <QColor>
#include <algorithm>
#include <cmath>

namespace fiscarel::testing {

/// Contrast of sRGB colours as WCAG 2.1 defines it; on its own, to hold against the window's.
inline double contrast(const QColor& a, const QColor& b) {
    const auto luminance = [](const QColor& color) {
        const auto linear = [](int part) {
            const double value = part / 255.0;
            return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * linear(color.red()) + 0.7152 * linear(color.green())
               + 0.0722 * linear(color.blue());
    };
    const auto [darker, lighter] = std::minmax({luminance(a), luminance(b)});
    return (lighter + 0.05) / (darker + 0.05);
}

} // namespace fiscarel::testing
