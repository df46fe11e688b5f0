#pragma once

#include <QColor>
#include <QIcon>
#include <QString>

namespace fiscarel::look {

/// A drawing of ours in a colour, for any screen density: of a page by its id, or of a tool.
QIcon icon(const QString& id, const QColor& color);

/// The icon of the program.
QIcon programIcon();

} // namespace fiscarel::look
