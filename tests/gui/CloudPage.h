#pragma once

#include "tests/gui/OpenWindow.h"
#include "tests/support/FakeCloud.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <algorithm>
#include <string>
#include <utility>
#include <vector>

namespace fiscarel::testing {

/// Answers the box that comes up over a window by the button of this text; none: by the one the
/// Enter key presses.
inline void answerBox(QWidget& window, const QString& button = {}) {
    auto* const waiting = new QTimer(&window);
    QObject::connect(waiting, &QTimer::timeout, waiting, [waiting, button] {
        auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (box == nullptr) {
            return; // the click goes there first
        }
        waiting->stop();
        waiting->deleteLater();
        const auto buttons = box->buttons();
        const auto named = std::ranges::find(buttons, button, &QAbstractButton::text);
        (named != buttons.end() ? *named : box->defaultButton())->click();
    });
    waiting->start(5);
}

/// The page of the account of the demo household, with a backup that does what it is told.
class CloudPage : public ::testing::Test {
  protected:
    FakeCloud cloud;
    OpenWindow program;

    void open(CloudStatus status) {
        program.cloud = &cloud;
        program.openDemo(taxcore::TaxRegion::stGallen);
        program.window->showPage(QStringLiteral("account"));
        cloud.set(std::move(status));
        program.settle();
        cloud.asked.clear();
    }
    CloudStates states() { return CloudStates(*program.store); }
    QString text(const QString& name) { return program.find<QLabel>(name).text(); }
    static QString keyboard() {
        return QApplication::focusWidget() != nullptr ? QApplication::focusWidget()->objectName()
                                                      : QString();
    }
    void answer(const QString& button = {}) { answerBox(*program.window, button); }
};

} // namespace fiscarel::testing
