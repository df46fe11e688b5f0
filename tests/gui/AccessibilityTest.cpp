#include "Fiscarel_SG/look/Theme.h"
#include "tests/gui/Contrast.h"
#include "tests/gui/OpenWindow.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <algorithm>
#include <map>
#include <set>

namespace fiscarel {
namespace {

using namespace Qt::Literals::StringLiterals;
using look::Theme;
using taxcore::TaxRegion;
using testing::contrast;

class Accessibility : public ::testing::TestWithParam<TaxRegion> {
  protected:
    testing::OpenWindow program;

    /// The n-th record of every list of the page that is seen, opened.
    void openRecords(int n) {
        const QString end = u"[%1]"_s.arg(n);
        for (QPushButton* const head : program.window->findChildren<QPushButton*>()) {
            const QString name = head->objectName();
            if (head->isVisible() && name.startsWith(u"open:"_s) && name.endsWith(end)
                && !head->isChecked()) {
                head->click();
            }
        }
        program.settle();
    }
    template <class Look>
    void onEveryPage(const Look& look) {
        program.openDemo(GetParam());
        for (const auto& page : shell::MainWindow::pages()) {
            SCOPED_TRACE(page.id.toStdString());
            program.window->showPage(page.id);
            program.settle();
            for (const int record : {0, 1}) {
                openRecords(record);
                look();
            }
        }
    }
};

/// What a screen reader says of a widget.
QString spokenName(QWidget& widget) {
    QAccessibleInterface* const spoken = QAccessible::queryAccessibleInterface(&widget);
    return spoken != nullptr ? spoken->text(QAccessible::Name).trimmed() : QString();
}

std::string described(const QWidget& widget) {
    return std::string(widget.metaObject()->className()) + " " + widget.objectName().toStdString();
}

bool takesKeyboard(const QWidget& widget) {
    return widget.focusPolicy() != Qt::NoFocus && widget.focusProxy() == nullptr
           && widget.isVisible() && widget.isEnabled()
           && qobject_cast<const QLabel*>(&widget) == nullptr; // some can be marked with the mouse
}

TEST_P(Accessibility, everyControlHasAName) {
    int controls = 0;
    const auto look = [&] {
        for (QWidget* const widget : program.window->findChildren<QWidget*>()) {
            if (takesKeyboard(*widget)) {
                ++controls;
                EXPECT_FALSE(spokenName(*widget).isEmpty()) << described(*widget);
            }
        }
    };
    onEveryPage(look);
    EXPECT_GT(controls, 500);
    for (const char* const name : {"search", "reason"}) {
        program.window->showReason(u"cantonTotal"_s);
        program.press(Qt::Key_K, Qt::ControlModifier);
        for (QWidget* const widget :
             program.find<QDialog>(QString::fromLatin1(name)).findChildren<QWidget*>()) {
            EXPECT_FALSE(takesKeyboard(*widget) && spokenName(*widget).isEmpty())
                << described(*widget);
        }
    }
}

/// Where a widget stands: the part of the window, its card there, itself.
struct Stop {
    enum class Part { sidebar, page, taxBar };

    QWidget* widget = nullptr;
    Part part = Part::page;
    QRect card;
    QRect place;
};

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
    return stop;
}

/// Whether one place is read before another: rows from the top, each from the left.
bool isBefore(const QRect& a, const QRect& b) {
    const bool sameRow = a.center().y() >= b.top() && a.center().y() <= b.bottom();
    return sameRow ? a.left() < b.left() : a.center().y() < b.center().y();
}

bool isInOrder(const Stop& a, const Stop& b) {
    if (a.part != b.part) {
        return a.part < b.part;
    }
    return a.card == b.card ? isBefore(a.place, b.place) : isBefore(a.card, b.card);
}

TEST_P(Accessibility, theTabulatorGoesAsOneReads) {
    const auto look = [&] {
        QWidget& first = program.find(u"tool:search"_s);
        first.setFocus(Qt::TabFocusReason);
        program.press(Qt::Key_Tab); // puts the window in order
        first.setFocus(Qt::TabFocusReason);
        std::set<const QWidget*> passed;
        Stop last = stopAt(first, *program.window);
        // The next of a chain, as a table keeps the tabulator for its cells.
        for (QWidget* at = first.nextInFocusChain(); at != &first; at = at->nextInFocusChain()) {
            if (!takesKeyboard(*at) || (at->focusPolicy() & Qt::TabFocus) == 0
                || at->window() != program.window.get()) {
                continue;
            }
            ASSERT_TRUE(passed.insert(at).second);
            const Stop next = stopAt(*at, *program.window);
            EXPECT_TRUE(isInOrder(last, next))
                << described(*last.widget) << " before " << described(*at);
            last = next;
        }
        EXPECT_GE(passed.size(), 6U);
    };
    onEveryPage(look);
}

TEST_P(Accessibility, theTabulatorGoesDownTheReason) {
    program.openDemo(GetParam());
    program.window->showReason(u"cantonTotal"_s);
    program.settle();
    auto& dialog = program.find<QDialog>(u"reason"_s);
    std::vector<QPushButton*> doors;
    for (QWidget* at = dialog.nextInFocusChain(); at != &dialog; at = at->nextInFocusChain()) {
        if (auto* const door = qobject_cast<QPushButton*>(at); door && takesKeyboard(*door)) {
            doors.push_back(door);
        }
    }
    ASSERT_GE(doors.size(), 2U);
    for (std::size_t i = 1; i < doors.size(); ++i) {
        EXPECT_TRUE(isBefore(stopAt(*doors[i - 1], dialog).place, stopAt(*doors[i], dialog).place))
            << doors[i - 1]->text().toStdString() << " before " << doors[i]->text().toStdString();
    }
}

INSTANTIATE_TEST_SUITE_P(Demos, Accessibility,
                         ::testing::Values(TaxRegion::stGallen, TaxRegion::liechtenstein),
                         [](const auto& demo) {
                             return demo.param == TaxRegion::stGallen ? "StGallen"
                                                                      : "Liechtenstein";
                         });

TEST(Colours, textsAreReadableAndInputsAreSeen) {
    using Color = QColor Theme::*;
    const std::map<std::string, Color> texts{{"text", &Theme::text},       {"faint", &Theme::faint},
                                             {"accent", &Theme::accent},   {"error", &Theme::error},
                                             {"warning", &Theme::warning}, {"good", &Theme::good}};
    const std::map<std::string, Color> grounds{{"window", &Theme::window},
                                               {"sidebar", &Theme::sidebar},
                                               {"card", &Theme::card},
                                               {"soft", &Theme::soft}};
    EXPECT_NEAR(contrast(Qt::black, Qt::white), 21, 1e-9);
    for (const Theme& theme : {Theme::light(), Theme::dark()}) {
        SCOPED_TRACE(theme.isDark ? "dark" : "light");
        for (const auto& [text, textColor] : texts) {
            for (const auto& [ground, groundColor] : grounds) {
                EXPECT_GE(contrast(theme.*textColor, theme.*groundColor), 4.5)
                    << text << " on " << ground;
            }
        }
        EXPECT_GE(contrast(theme.onAccent, theme.accent), 4.5);
        EXPECT_GE(contrast(theme.strong, theme.card), 3);
        EXPECT_GE(contrast(theme.accent, theme.card), 3) << "the border of what has the keyboard";
        EXPECT_GE(contrast(theme.error, theme.card), 3) << "the border of what cannot be read";
    }
}

} // namespace
} // namespace fiscarel
