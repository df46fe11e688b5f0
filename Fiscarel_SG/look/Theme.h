#pragma once

#include <QColor>
#include <QString>

class QApplication;
class QWidget;

namespace fiscarel::look {

/// How the window looks: light, dark, or as the system does.
enum class Appearance { system, light, dark };

/// The colours of one appearance; texts on their grounds have a contrast of at least 4.5.
struct Theme {
    QColor window; ///< behind everything
    QColor sidebar;
    QColor card; ///< ground of cards and inputs
    QColor border;
    QColor strong; ///< borders that carry meaning: inputs
    QColor text;
    QColor faint;  ///< secondary text
    QColor accent; ///< the one colour: selection, links, main buttons
    QColor onAccent;
    QColor soft; ///< ground of what is selected
    QColor error;
    QColor warning;
    QColor good;
    bool isDark = false;

    static Theme light();
    static Theme dark();
    /// The one in use.
    static const Theme& current();

    /// Puts fonts, palette and style sheet of an appearance in use.
    static void apply(QApplication& application, Appearance appearance);

    /// The colour of a part of a chart, by its place; after five they begin again.
    QColor chart(int index) const;
};

/// Says what a widget is, for the style sheet: "title", "heading", "faint", "card", "figure",
/// "error", "primary", … The same role again costs nothing.
void setRole(QWidget* widget, const char* role);

} // namespace fiscarel::look
