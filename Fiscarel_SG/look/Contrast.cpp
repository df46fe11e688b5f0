#include "Fiscarel_SG/look/Contrast.h"

#include <algorithm>
#include <cmath>

namespace fiscarel::look {

double luminance(const QColor& color) {
    const auto linear = [](float part) {
        const auto value = static_cast<double>(part);
        return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF())
           + 0.0722 * linear(color.blueF());
}

double contrast(const QColor& a, const QColor& b) {
    const double first = luminance(a);
    const double second = luminance(b);
    return (std::max(first, second) + 0.05) / (std::min(first, second) + 0.05);
}

} // namespace fiscarel::look
