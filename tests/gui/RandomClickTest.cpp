// A user without any sense: clicks, keys, the wheel, undoing, other pages, years and regions, at
// random. The program must bear it, say nothing to the log and keep what it saved.
//   FISCAREL_RANDOM_EVENTS=10000 FISCAREL_RANDOM_SEED=7 gui-tests --gtest_filter='RandomClicks*'

#include "TaxCore/demo/DemoData.h"
#include "TaxCore/rulebook/RuleBook.h"
#include "tests/gui/OpenWindow.h"

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QAbstractSlider>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QFileDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QTest>
#include <QTimer>
#include <QWheelEvent>
#include <QWindow>
#include <array>
#include <deque>
#include <iostream>
#include <random>
#include <set>
#include <string>
#include <vector>

namespace fiscarel {
namespace {

using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

/// What Qt has to complain of; only the platform without a screen may say what it cannot do.
QStringList& complaints() {
    static QStringList all;
    return all;
}

void listen(QtMsgType type, const QMessageLogContext&, const QString& text) {
    if (type != QtDebugMsg && type != QtInfoMsg
        && !text.startsWith(u"This plugin does not support"_s)) {
        complaints() << text;
    }
}

/// Buttons that open another program, another copy of this one or the dialog of the printers.
bool leadsOutside(const QWidget& widget) {
    static const QStringList names{u"openFolder"_s, u"openDocument"_s, u"startDemo"_s,
                                   u"printReport"_s, u"transferPrint"_s};
    return names.contains(widget.objectName());
}

bool isControl(const QWidget& widget) {
    return qobject_cast<const QAbstractButton*>(&widget) != nullptr
           || qobject_cast<const QLineEdit*>(&widget) != nullptr
           || qobject_cast<const QComboBox*>(&widget) != nullptr
           || qobject_cast<const QPlainTextEdit*>(&widget) != nullptr
           || qobject_cast<const QAbstractItemView*>(&widget) != nullptr
           || qobject_cast<const QAbstractSpinBox*>(&widget) != nullptr
           || qobject_cast<const QAbstractSlider*>(&widget) != nullptr;
}

class RandomClicks : public ::testing::Test {
  protected:
    RandomClicks() { before_ = qInstallMessageHandler(listen); }
    ~RandomClicks() override { qInstallMessageHandler(before_); }

    testing::OpenWindow program;
    std::mt19937_64 draw_;
    std::deque<std::string> done_;  ///< the last events
    std::set<std::string> touched_; ///< controls clicked, with their pages

    /// 0 to `limit` − 1.
    int below(int limit) {
        return static_cast<int>(draw_() % static_cast<std::uint64_t>(std::max(1, limit)));
    }
    template <class List>
    const auto& oneOf(const List& list) {
        return *(std::begin(list) + below(static_cast<int>(list.size())));
    }
    void note(std::string what) {
        done_.push_back(std::move(what));
        if (done_.size() > 30) {
            done_.pop_front();
        }
    }
    std::string lastEvents() const {
        std::string text = "last events:\n";
        for (const std::string& event : done_) {
            text += "  " + event + "\n";
        }
        return text;
    }

    /// What lies on top: a list that is open, a dialog, the window.
    QWidget& top() const {
        if (QWidget* const popup = QApplication::activePopupWidget()) {
            return *popup;
        }
        if (QWidget* const dialog = QApplication::activeModalWidget()) {
            return *dialog;
        }
        QWidget* const active = QApplication::activeWindow();
        return active != nullptr ? *active : *program.window;
    }

    void clickSomewhere() {
        QWidget& inside = top();
        std::vector<QWidget*> controls;
        for (QWidget* const widget : inside.findChildren<QWidget*>()) {
            if (widget->isVisible() && widget->isEnabled() && widget->window() == &inside
                && isControl(*widget) && !leadsOutside(*widget)) {
                controls.push_back(widget);
            }
        }
        QWidget& widget = controls.empty() ? inside : *oneOf(controls);
        for (QWidget* at = widget.parentWidget(); at != nullptr; at = at->parentWidget()) {
            if (auto* const area = qobject_cast<QScrollArea*>(at)) {
                area->ensureWidgetVisible(&widget, 0, 20);
            }
        }
        const QPoint at(below(widget.width()), below(widget.height()));
        const QPoint there = widget.mapTo(&inside, at);
        const QWidget* const hit = inside.childAt(there);
        if (hit != nullptr && leadsOutside(*hit)) {
            return;
        }
        touched_.insert(program.window->currentPage().toStdString() + " "
                        + widget.objectName().toStdString());
        note("click on " + std::string(widget.metaObject()->className()) + " "
             + widget.objectName().toStdString());
        if (!inside.rect().contains(there)) {
            return; // the page was still being laid out when it was scrolled: nobody clicks there
        }
        if (below(12) == 0) {
            QTest::mouseDClick(inside.windowHandle(), Qt::LeftButton, {}, there);
        } else {
            QTest::mouseClick(inside.windowHandle(), Qt::LeftButton, {}, there);
        }
    }

    /// Who has the keyboard; an open list before its field.
    QWidget& listener() const {
        if (QWidget* const popup = QApplication::activePopupWidget()) {
            QWidget* const focused = popup->focusWidget();
            return focused != nullptr ? *focused : *popup;
        }
        QWidget* const focused = QApplication::focusWidget();
        return focused != nullptr ? *focused : top();
    }

    void pressSomething() {
        struct Press {
            Qt::Key key;
            Qt::KeyboardModifiers modifiers = Qt::NoModifier;
        };
        static const std::vector<Press> presses{
            {Qt::Key_Tab},
            {Qt::Key_Tab},
            {Qt::Key_Backtab, Qt::ShiftModifier},
            {Qt::Key_Return},
            {Qt::Key_Escape},
            {Qt::Key_Space},
            {Qt::Key_Backspace},
            {Qt::Key_Delete},
            {Qt::Key_Up},
            {Qt::Key_Down},
            {Qt::Key_Left},
            {Qt::Key_Right},
            {Qt::Key_Home},
            {Qt::Key_End},
            {Qt::Key_PageDown},
            {Qt::Key_F1},
            {Qt::Key_F2},
            {Qt::Key_F4},
            {Qt::Key_Down, Qt::AltModifier},
            {Qt::Key_A, Qt::ControlModifier},
            {Qt::Key_C, Qt::ControlModifier},
            {Qt::Key_V, Qt::ControlModifier},
            {Qt::Key_X, Qt::ControlModifier},
            {Qt::Key_K, Qt::ControlModifier},
        };
        const Press& press = oneOf(presses);
        QWidget& to = listener();
        // A focused button is pressed by these.
        if (leadsOutside(to) && (press.key == Qt::Key_Return || press.key == Qt::Key_Space)) {
            return;
        }
        note("key " + QKeySequence(press.key).toString().toStdString() + " to "
             + to.objectName().toStdString());
        QTest::keyClick(&to, press.key, press.modifiers);
    }

    void typeSomething() {
        static const QStringList texts{u"1"_s,         u"98'000"_s,      u"1e9"_s, u"-5"_s,
                                       u"12+3*4"_s,    u"31.12.2025"_s,  u"0"_s,   u"äöü"_s,
                                       u"Muster"_s,    u"99999999999"_s, u"%"_s,   u"wil"_s,
                                       u"CH9300762"_s, u"1/0"_s,         u"«»’"_s, u"7.005"_s};
        const QString& text = oneOf(texts);
        note("types " + text.toStdString() + " to " + listener().objectName().toStdString());
        for (const QChar letter : text) {
            testing::OpenWindow::key(listener(), letter);
        }
    }

    void turnWheel() {
        QWidget& inside = top();
        const QPoint at(below(inside.width()), below(inside.height()));
        QWidget* const hit = inside.childAt(at);
        QWidget& to = hit != nullptr ? *hit : inside;
        note("wheel");
        QWheelEvent wheel(to.mapFrom(&inside, at), inside.mapToGlobal(at), QPoint(),
                          QPoint(0, below(2) == 0 ? 120 : -120), Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(&to, &wheel);
    }

    void goElsewhere() {
        switch (below(6)) {
        case 0:
            note("another year");
            program.store->setYear(oneOf(std::array{2024, 2025, 2026, 2027}));
            break;
        case 1:
            note("another region");
            program.store->setRegion(below(2) == 0 ? taxcore::TaxRegion::stGallen
                                                   : taxcore::TaxRegion::liechtenstein);
            break;
        default: {
            const QString& page = oneOf(shell::MainWindow::pages()).id;
            note("page " + page.toStdString());
            program.window->showPage(page);
        }
        }
    }

    void closeDialogs() {
        note("closes dialogs");
        while (QWidget* const popup = QApplication::activePopupWidget()) {
            popup->close();
        }
        for (QDialog* const dialog : program.window->findChildren<QDialog*>()) {
            if (dialog->isVisible()) {
                dialog->reject();
            }
        }
        program.window->activateWindow();
    }

    void doSomething() {
        const int chance = below(100);
        if (chance < 44) {
            clickSomewhere();
        } else if (chance < 60) {
            pressSomething();
        } else if (chance < 72) {
            typeSomething();
        } else if (chance < 77) {
            turnWheel();
        } else if (chance < 81) {
            note("undo");
            QTest::keyClick(program.window.get(), Qt::Key_Z, Qt::ControlModifier);
        } else if (chance < 84) {
            note("redo");
            QTest::keyClick(program.window.get(), Qt::Key_Y, Qt::ControlModifier);
        } else if (chance < 92) {
            goElsewhere();
        } else if (chance < 95) {
            closeDialogs();
        } else {
            note("time passes");
            program.timers.advance(std::chrono::milliseconds(below(800)));
        }
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
    }

    void expectAllIsWell() {
        program.settle();
        EXPECT_TRUE(complaints().isEmpty()) << complaints().join(u'\n').toStdString();
        ASSERT_FALSE(program.store->saveProblem()) << *program.store->saveProblem();
        const auto read = decodeState(testing::readFile(program.persistence->stateFile()));
        ASSERT_TRUE(read) << read.error().message;
        EXPECT_TRUE(*read == program.store->snapshot()) << "what is saved is not what there is";
    }

  private:
    QtMessageHandler before_ = nullptr;
};

int setting(const char* name, int otherwise) {
    bool isNumber = false;
    const int value = qEnvironmentVariableIntValue(name, &isNumber);
    return isNumber ? value : otherwise;
}

TEST_F(RandomClicks, areBorne) {
    const int seed = setting("FISCAREL_RANDOM_SEED", 1);
    const int events = setting("FISCAREL_RANDOM_EVENTS", 1'500);
    std::cout << "seed " << seed << ", " << events << " events" << std::endl; // also of a crash
    draw_.seed(static_cast<std::uint64_t>(seed));
    complaints().clear();
    program.open();
    program.store->chooseInitialRegion(taxcore::TaxRegion::stGallen);
    program.show(taxcore::DemoData::family(2025));
    // Questions and menus block until they are answered.
    QTimer answers;
    QObject::connect(&answers, &QTimer::timeout, &answers, [this] {
        if (auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
            note("answers " + box->windowTitle().toStdString());
            oneOf(box->buttons())->click();
        } else if (auto* const files =
                       qobject_cast<QFileDialog*>(QApplication::activeModalWidget())) {
            note("chooses no file");
            files->reject();
        } else if (auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget())) {
            menu->close(); // that of the months
        }
    });
    answers.start(0ms);
    for (int event = 1; event <= events; ++event) {
        doSomething();
        if (event % 100 == 0 || !complaints().isEmpty()) {
            expectAllIsWell();
            ASSERT_FALSE(HasFailure()) << "seed " << seed << ", event " << event << "\n"
                                       << lastEvents();
        }
    }
}

} // namespace
} // namespace fiscarel
