#pragma once

#include <QColor>
#include <QFont>
#include <QString>
#include <QStringList>
#include <string_view>

namespace fiscarel::paper {

// The letters of the report: sizes in points, distances between lines, colours. Widths are those of
// the font itself, without the grid of any screen, so that a page is the same everywhere. Any
// thread may call.

enum class Type {
    body,
    note,   ///< under a text
    head,   ///< of a column
    strong, ///< sums
    group,  ///< begins a group of details
    detail,
    detailNote,
    title, ///< of a chapter
    section,
    part,
    kicker,
    display,
    lead,
    largeFigure,
    figure,
    figureLabel,
    running, ///< head and foot of the page
    code,    ///< letters and digits to be typed, all as wide as each other
};

/// From line to line, points.
double leading(Type type);
QFont fontOf(Type type);
QColor inkOf(Type type);
/// From the top of a line to the foot of its letters, points.
double baseline(Type type);

/// Fonts are made this many times larger than they are shown, so that their size may be broken.
inline constexpr int finePerPoint = 20;

/// Width of one line, points.
double widthOf(Type type, const QString& text);
/// The text in lines of at most `width` points, broken between words, else within one; line feeds
/// are kept. An empty text has no line.
QStringList wrapped(Type type, const QString& text, double width);

/// UTF-8 of unknown origin as text to be set: control and format characters, which could turn the
/// direction of writing, become blanks; line feeds stay.
QString paperText(std::string_view utf8);

} // namespace fiscarel::paper
