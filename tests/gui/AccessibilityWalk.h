#pragma once

#include "tests/gui/OpenWindow.h"

#include <QRect>
#include <QString>
#include <QWidget>
#include <string>

namespace fiscarel::testing {

// What those need who do not see the window or do not point at it.

/// What a screen reader says of a widget.
QString spokenName(QWidget& widget);
bool takesKeyboard(const QWidget& widget);

/// Where a widget stands: the part of the window, its card there, itself.
struct Stop {
    enum class Part { sidebar, page, taxBar };

    QWidget* widget = nullptr;
    Part part = Part::page;
    QRect card;
    QRect place;
};
Stop stopAt(QWidget& widget, const QWidget& window);
/// Whether one place is read before another: rows from the top, each from the left.
bool isBefore(const QRect& a, const QRect& b);

/// Everything in a window that takes the keyboard has a name. How many there are.
int expectNames(const QWidget& window);
/// The tabulator goes through the program's window as one reads. How many stops there are.
int expectReadingOrder(const OpenWindow& program);

} // namespace fiscarel::testing
