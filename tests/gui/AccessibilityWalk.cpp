#include "tests/gui/AccessibilityWalk.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QLabel>
#include <set>

namespace fiscarel::testing {

using namespace Qt::Literals::StringLiterals;

namespace {

std::string described(const QWidget& widget) {
    return std::string(widget.metaObject()->className()) + " " + widget.objectName().toStdString();
}

bool isInOrder(const Stop& a, const Stop& b) {
    if (a.part != b.part) {
        return a.part < b.part;
    }
    return a.card == b.card ? isBefore(a.place, b.place) : isBefore(a.card, b.card);
}

} // namespace

QString spokenName(QWidget& widget) {
    QAccessibleInterface* const spoken = QAccessible::queryAccessibleInterface(&widget);
    return spoken != nullptr ? spoken->text(QAccessible::Name).trimmed() : QString();
}

bool takesKeyboard(const QWidget& widget) {
    return widget.focusPolicy() != Qt::NoFocus && widget.focusProxy() == nullptr
           && widget.isVisible() && widget.isEnabled()
           && qobject_cast<const QLabel*>(&widget) == nullptr; // some can be marked with the mouse
}

Stop stopAt(QWidget& widget, const QWidget& window) {
    const auto placeOf = [&](const QWidget& of) {
        return QRect(of.mapTo(&window, QPoint()), of.size());
    };
    Stop stop{.widget = &widget, .place = placeOf(widget)};
    for (QWidget* at = widget.parentWidget(); at != nullptr; at = at->parentWidget()) {
        if (at->objectName() == u"sidebar"_s) {
            stop.part = Stop::Part::sidebar;
        } else if (at->objectName() == u"taxBar"_s) {
            stop.part = Stop::Part::taxBar;
        } else if (at->property("role").toString() == u"card"_s && stop.card.isNull()) {
            stop.card = placeOf(*at);
        }
    }
    if (stop.card.isNull()) {
        stop.card = stop.place; // a link between cards
    }
    return stop;
}

bool isBefore(const QRect& a, const QRect& b) {
    const bool sameRow = a.center().y() >= b.top() && a.center().y() <= b.bottom();
    return sameRow ? a.left() < b.left() : a.center().y() < b.center().y();
}

int expectNames(const QWidget& window) {
    int controls = 0;
    for (QWidget* const widget : window.findChildren<QWidget*>()) {
        if (takesKeyboard(*widget)) {
            ++controls;
            EXPECT_FALSE(spokenName(*widget).isEmpty()) << described(*widget);
        }
    }
    return controls;
}

int expectReadingOrder(const OpenWindow& program) {
    QWidget& first = program.find(u"tool:search"_s);
    first.setFocus(Qt::TabFocusReason);
    OpenWindow::press(Qt::Key_Tab); // puts the window in order
    first.setFocus(Qt::TabFocusReason);
    std::set<const QWidget*> passed;
    Stop last = stopAt(first, *program.window);
    // The next of a chain, as a table keeps the tabulator for its cells.
    for (QWidget* at = first.nextInFocusChain(); at != &first; at = at->nextInFocusChain()) {
        if (!takesKeyboard(*at) || (at->focusPolicy() & Qt::TabFocus) == 0
            || at->window() != program.window.get()) {
            continue;
        }
        if (!passed.insert(at).second) {
            ADD_FAILURE() << "goes round at " << described(*at);
            break;
        }
        const Stop next = stopAt(*at, *program.window);
        EXPECT_TRUE(isInOrder(last, next))
            << described(*last.widget) << " before " << described(*at);
        last = next;
    }
    return static_cast<int>(passed.size());
}

} // namespace fiscarel::testing
