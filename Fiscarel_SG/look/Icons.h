#pragma once

#include <QColor>
#include <QIcon>
#include <QString>

namespace fiscarel::look {

/// The icon of a page in a colour, drawn for any screen density.
QIcon pageIcon(const QString& id, const QColor& color);

/// The icon of the program.
QIcon programIcon();

} // namespace fiscarel::look
