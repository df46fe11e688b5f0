#pragma once

#include <QColor>

namespace fiscarel::look {

/// Relative luminance of an sRGB colour, 0 for black to 1 for white. WCAG 2.1
double luminance(const QColor& color);

/// Contrast of two colours, 1 for the same to 21 for black on white. WCAG 2.1
double contrast(const QColor& a, const QColor& b);

} // namespace fiscarel::look
