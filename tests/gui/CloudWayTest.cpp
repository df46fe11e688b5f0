// The whole way of a household through the encrypted backup, at the windows of two machines and
// with the real server between them.

#include "tests/cloud/CloudMachine.h"
#include "tests/gui/OpenWindow.h"
#include "tests/support/RunningServer.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <QUrl>
#include <algorithm>
#include <chrono>
#include <memory>
#include <string>
#include <utility>

namespace fiscarel {
namespace {

using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;
using Phase = CloudStatus::Phase;
using testing::OpenWindow;

const QString address = u"nora@muster.ch"_s;

/// A machine with somebody at its window.
class Seat {
  public:
    Seat(const std::string& name, const testing::RunningServer& server, testing::FakeClock& clock)
        : machine(name, QUrl(QString::fromStdString(server.base())), clock, 5s), server_(server) {
        machine.start();
        hands.desk = std::make_unique<pages::DocumentDesk>(*machine.store, machine.files,
                                                           machine.outside("gelesen"));
        hands.window = std::make_unique<shell::MainWindow>(*machine.store, machine.settings,
                                                           *hands.desk, machine.sync.get());
        hands.window->show();
        hands.click(u"nav:account"_s);
        rest();
    }

    testing::CloudMachine machine;
    OpenWindow hands;

    Phase phase() const { return machine.status().phase; }
    QString text(const QString& name) const { return hands.find<QLabel>(name).text(); }
    /// Waits for the answer to what was just asked.
    void rest() {
        ASSERT_TRUE(machine.rest());
        hands.settle();
    }
    /// Lets what was entered be saved and exchanged.
    void exchange() {
        ASSERT_TRUE(machine.settle(5s));
        ASSERT_TRUE(machine.check());
        hands.settle();
    }
    void typeInto(const QString& name, const QString& text) {
        hands.click(name);
        hands.find<QLineEdit>(name).selectAll();
        OpenWindow::type(text);
        OpenWindow::press(Qt::Key_Return);
        rest();
    }
    void enterCash(const QString& amount) {
        hands.click(u"nav:wealth"_s);
        hands.click(u"cash"_s);
        hands.find<QLineEdit>(u"cash"_s).selectAll();
        OpenWindow::type(amount);
        OpenWindow::press(Qt::Key_Tab);
    }
    void signIn() {
        hands.click(u"nav:account"_s);
        typeInto(u"cloudAddress"_s, address);
        ASSERT_EQ(phase(), Phase::codeSent) << machine.status().problem.value_or("");
        const std::string code = server_.latestCode(address.toStdString());
        typeInto(u"cloudCode"_s, code == "000000" ? u"111111"_s : u"000000"_s);
        EXPECT_TRUE(text(u"cloudCodeProblem"_s).startsWith(u"Der Code stimmt nicht. Noch "_s));
        typeInto(u"cloudCode"_s, QString::fromStdString(code));
    }
    /// Answers the box that comes up.
    void answer(const QString& button) {
        auto* const waiting = new QTimer(hands.window.get());
        QObject::connect(waiting, &QTimer::timeout, waiting, [waiting, button] {
            if (auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
                waiting->deleteLater();
                const auto buttons = box->buttons();
                const auto named = std::ranges::find(buttons, button, &QAbstractButton::text);
                (named != buttons.end() ? *named : box->defaultButton())->click();
            }
        });
        waiting->start(5ms);
    }

  private:
    const testing::RunningServer& server_;
};

/// Sets the backup up at one seat; the recovery key, as its sheet shows it.
QString setUp(Seat& seat) {
    seat.signIn();
    if (seat.phase() != Phase::confirmsKey) {
        return {};
    }
    const QString key = seat.text(u"cloudKey"_s);
    seat.hands.click(u"cloudKeyNext"_s);
    seat.typeInto(u"cloudTypedKey"_s, key.simplified());
    return key.simplified();
}

TEST(CloudWay, twoMachinesFromTheFirstCodeToTheLastSignOut) {
    testing::RunningServer server;
    testing::FakeClock clock;
    Seat workshop("Werkstatt", server, clock);
    const QString key = setUp(workshop);
    ASSERT_EQ(workshop.phase(), Phase::ready) << workshop.machine.status().problem.value_or("");
    workshop.enterCash(u"1000"_s);
    workshop.exchange();
    EXPECT_TRUE(workshop.text(u"cloudLine"_s).startsWith(u"Cloud: abgeglichen"_s));

    Seat notebook("Notebook", server, clock);
    notebook.signIn();
    ASSERT_EQ(notebook.phase(), Phase::needsRecoveryKey);
    notebook.typeInto(u"cloudRecoveryKey"_s, QString::fromStdString(CloudCrypto::newRecoveryKey()));
    EXPECT_EQ(notebook.text(u"cloudRecoveryKeyProblem"_s),
              u"Dieser Wiederherstellungsschlüssel passt nicht zu Ihrem Cloud-Konto."_s);
    notebook.typeInto(u"cloudRecoveryKey"_s, key.toLower());
    ASSERT_EQ(notebook.phase(), Phase::ready);
    notebook.exchange();
    EXPECT_EQ(notebook.machine.store->current().cash, 1'000);
    EXPECT_TRUE(notebook.text(u"cloudState"_s).startsWith(u"Abgeglichen"_s));

    for (const auto& [seat, amount] :
         {std::pair(&workshop, u"1100"_s), std::pair(&notebook, u"1200"_s)}) {
        seat->enterCash(amount);
    }
    workshop.exchange();
    notebook.exchange();
    EXPECT_EQ(notebook.machine.store->current().cash, 1'200);
    notebook.hands.click(u"cloudLineDoor"_s);
    EXPECT_EQ(notebook.text(u"cloudOurs:0"_s), u"1’200 CHF"_s);
    EXPECT_EQ(notebook.text(u"cloudTheirs:0"_s), u"1’100 CHF"_s);
    notebook.hands.click(u"cloudTake:0"_s);
    EXPECT_EQ(notebook.machine.store->current().cash, 1'100);
    EXPECT_FALSE(notebook.hands.isShown(u"cloudConflicts"_s));
    EXPECT_TRUE(notebook.hands.isShown(u"toastAnswer"_s));
    notebook.exchange();
    workshop.exchange();
    EXPECT_EQ(workshop.machine.store->current().cash, 1'100);
    EXPECT_TRUE(workshop.machine.status().conflicts.empty());
    EXPECT_EQ(workshop.machine.status().devices.size(), 2U);

    notebook.answer(u"Abmelden"_s);
    notebook.hands.click(u"cloudSignOut"_s);
    notebook.rest();
    EXPECT_EQ(notebook.text(u"cloudLine"_s), u"Cloud: abgemeldet"_s);
    EXPECT_EQ(notebook.machine.store->current().cash, 1'100) << "the data stays here";
    EXPECT_EQ(notebook.hands.find<QLineEdit>(u"cloudAddress"_s).text(), address);
    workshop.exchange();
    EXPECT_EQ(workshop.machine.status().devices.size(), 1U);
}

TEST(CloudWay, withoutAServerTheUserIsToldAndGoesOnLater) {
    testing::RunningServer server;
    testing::FakeClock clock;
    Seat seat("Werkstatt", server, clock);
    server.kill();
    seat.typeInto(u"cloudAddress"_s, address);
    EXPECT_TRUE(seat.text(u"cloudAddressProblem"_s).startsWith(u"Keine Verbindung"_s));
    EXPECT_EQ(seat.hands.find<QLineEdit>(u"cloudAddress"_s).text(), address);
    server.start();
    ASSERT_FALSE(setUp(seat).isEmpty());
    ASSERT_EQ(seat.phase(), Phase::ready);
    server.kill();
    seat.enterCash(u"1000"_s);
    seat.exchange();
    EXPECT_EQ(seat.text(u"cloudLine"_s), u"Cloud: offline, wird nachgeholt"_s);
    server.start();
    ASSERT_TRUE(seat.machine.settle(10s));
    seat.hands.settle();
    EXPECT_TRUE(seat.text(u"cloudLine"_s).startsWith(u"Cloud: abgeglichen"_s));
}

} // namespace
} // namespace fiscarel
