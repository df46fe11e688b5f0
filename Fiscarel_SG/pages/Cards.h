#pragma once

#include <QString>

class QFrame;
class QLabel;
class QVBoxLayout;
class QWidget;

namespace fiscarel::pages {

// The parts that pages which are more than a form are put together from.

/// A wrapping label with a role of the style sheet.
QLabel* makeLabel(const QString& text, const char* role, QWidget* parent);
/// A thin line across.
QFrame* makeLine(QWidget* parent);

/// A framed card at the end of a column; its content goes into the layout returned.
QVBoxLayout& addCard(QVBoxLayout& column, const QString& title, const QString& help = {});

/// A wrapping label with a role of the style sheet at the end of a column.
QLabel& addLabel(QVBoxLayout& column, const QString& text, const char* role);

/// A thin line.
void addLine(QVBoxLayout& column);

} // namespace fiscarel::pages
