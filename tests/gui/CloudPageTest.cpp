// The encrypted backup on the page of the account, with one that does what it is told.

#include "Fiscarel_SG/pages/account/CloudText.h"
#include "Fiscarel_SG/pages/account/ConflictText.h"
#include "Fiscarel_SG/pages/account/RecoverySheet.h"
#include "tests/gui/AccessibilityWalk.h"
#include "tests/support/FakeCloud.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QFile>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <algorithm>
#include <array>
#include <optional>

namespace fiscarel {
namespace {

using namespace Qt::Literals::StringLiterals;
using Activity = CloudStatus::Activity;
using Phase = CloudStatus::Phase;
using Asked = std::vector<std::string>;
using taxcore::TaxCase;
using taxcore::TaxRegion;
using testing::OpenWindow;

class CloudPage : public ::testing::Test {
  protected:
    testing::FakeCloud cloud;
    OpenWindow program;

    void open(CloudStatus status) {
        program.cloud = &cloud;
        program.openDemo(TaxRegion::stGallen);
        program.window->showPage(u"account"_s);
        cloud.set(std::move(status));
        program.settle();
        cloud.asked.clear();
    }
    testing::CloudStates states() { return testing::CloudStates(*program.store); }
    /// Without the comparisons for which the window asks whenever a box has gone.
    Asked asked() const {
        Asked all = cloud.asked;
        std::erase(all, "checkNow");
        return all;
    }
    QString text(const QString& name) { return program.find<QLabel>(name).text(); }
    static QString keyboard() {
        return QApplication::focusWidget() != nullptr ? QApplication::focusWidget()->objectName()
                                                      : QString();
    }
    /// Answers the box that comes up by the button of this text; none: by the one the Enter key
    /// presses.
    void answer(const QString& button = {}) {
        auto* const waiting = new QTimer(program.window.get());
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
};

TEST_F(CloudPage, everyStateIsSpokenOfAndGoneThroughAsOneReads) {
    open({});
    for (const auto& [name, status] : states().all()) {
        SCOPED_TRACE(name);
        cloud.set({}); // each as who comes to it
        cloud.set(status);
        program.settle();
        EXPECT_GE(testing::expectNames(*program.window), 19);
        EXPECT_GE(testing::expectReadingOrder(program), 19);
        for (const QLabel* const label :
             program.find(u"cloud"_s).findChildren<QLabel*>(Qt::FindChildrenRecursively)) {
            EXPECT_FALSE(label->isVisible() && label->text().contains(u"%"_s))
                << label->text().toStdString();
        }
    }
}

TEST_F(CloudPage, whoSignsInNeedsNoMouse) {
    open({.phase = Phase::signedOut});
    program.find(u"cloudAddress"_s).setFocus(Qt::TabFocusReason);
    for (const QString& wrong : {u""_s, u"nora"_s, u"nora@"_s, u"@brennick"_s}) {
        program.find<QLineEdit>(u"cloudAddress"_s).selectAll();
        program.type(wrong);
        program.press(Qt::Key_Return);
        EXPECT_EQ(text(u"cloudAddressProblem"_s), u"Bitte eine gültige E-Mail-Adresse eingeben."_s);
        EXPECT_EQ(keyboard(), u"cloudAddress"_s);
    }
    EXPECT_EQ(cloud.asked, Asked());
    program.find<QLineEdit>(u"cloudAddress"_s).selectAll();
    cloud.answers = [&] {
        cloud.change([](CloudStatus& now) { now.activity = Activity::working; });
    };
    program.type(u"nora@muster.ch"_s);
    program.press(Qt::Key_Tab);
    EXPECT_EQ(keyboard(), u"cloudRequestCode"_s);
    program.press(Qt::Key_Return);
    EXPECT_EQ(cloud.asked, Asked{"requestCode nora@muster.ch"});
    program.press(Qt::Key_Return);
    EXPECT_EQ(cloud.asked.size(), 1U) << "asked for twice while it is under way";
    EXPECT_EQ(keyboard(), u"cloudAddress"_s);

    cloud.answers = {};
    cloud.change([](CloudStatus& now) {
        now.activity = Activity::resting;
        now.problem = "Keine Verbindung zum Server. Bitte Internetverbindung prüfen.";
    });
    EXPECT_TRUE(text(u"cloudAddressProblem"_s).startsWith(u"Keine Verbindung"_s));
    EXPECT_EQ(program.find<QLineEdit>(u"cloudAddress"_s).text(), u"nora@muster.ch"_s);
    EXPECT_EQ(keyboard(), u"cloudAddress"_s);

    cloud.set({.phase = Phase::codeSent, .email = "nora@muster.ch"});
    EXPECT_EQ(keyboard(), u"cloudCode"_s);
    program.type(u"12"_s);
    program.press(Qt::Key_Return);
    EXPECT_EQ(text(u"cloudCodeProblem"_s), u"Der Code hat sechs Ziffern."_s);
    QApplication::clipboard()->setText(u" 123 456\n"_s);
    program.press(Qt::Key_A, Qt::ControlModifier);
    program.press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(text(u"cloudCodeProblem"_s), QString());
    program.press(Qt::Key_Return);
    EXPECT_EQ(cloud.asked.back(), "verifyCode 123456");
    cloud.change([](CloudStatus& now) { now.problem = "Der Code stimmt nicht. Noch 2 Versuche."; });
    EXPECT_EQ(text(u"cloudCodeProblem"_s), u"Der Code stimmt nicht. Noch 2 Versuche."_s);
    EXPECT_EQ(program.find<QLineEdit>(u"cloudCode"_s).text(), u"123456"_s);
    EXPECT_EQ(keyboard(), u"cloudCode"_s);
    cloud.set(states().ready());
    EXPECT_EQ(keyboard(), u"cloudCheckNow"_s);
}

TEST_F(CloudPage, aCodeIsSentAgainAfterAWhile) {
    open({.phase = Phase::codeSent, .email = "nora@muster.ch"});
    auto& again = program.find<QPushButton>(u"cloudSendAgain"_s);
    EXPECT_FALSE(again.isEnabled());
    auto& pause = *program.window->findChild<QTimer*>(u"cloudPause"_s);
    pause.start(0);
    ASSERT_TRUE(QTest::qWaitFor([&] { return again.isEnabled(); }));
    program.click(again);
    EXPECT_EQ(cloud.asked, Asked{"requestCode nora@muster.ch"});
    EXPECT_FALSE(again.isEnabled());
    program.click(u"cloudBack"_s);
    EXPECT_EQ(cloud.asked.back(), "cancelSignIn");
}

TEST_F(CloudPage, theNewKeyIsTypedBackBeforeItGoesOn) {
    open({});
    const std::string key = CloudCrypto::newRecoveryKey();
    cloud.set({.phase = Phase::confirmsKey, .email = "nora@muster.ch", .recoveryKey = key});
    program.settle();
    QString shown = text(u"cloudKey"_s);
    EXPECT_EQ(shown.remove(u' ').remove(u'\n'), QString::fromStdString(key).remove(u'-'));
    program.click(u"cloudKeyCopy"_s);
    EXPECT_EQ(QApplication::clipboard()->text(), QString::fromStdString(key));
    program.click(u"cloudKeyNext"_s);
    EXPECT_EQ(keyboard(), u"cloudTypedKey"_s);
    EXPECT_FALSE(program.isShown(u"cloudKey"_s)) << "it is to be typed from paper";

    const std::string other = CloudCrypto::newRecoveryKey();
    struct Wrong {
        std::string typed;
        QString told;
    };
    const QString noKey = u"Der Wiederherstellungsschlüssel hat 32 Zeichen"_s;
    for (const auto& [typed, told] : {Wrong{"", noKey}, Wrong{key.substr(0, key.size() - 1), noKey},
                                      Wrong{other, u"Das ist nicht der neue Schlüssel"_s}}) {
        program.press(Qt::Key_A, Qt::ControlModifier);
        program.press(Qt::Key_Delete);
        program.type(QString::fromStdString(typed));
        program.press(Qt::Key_Return);
        EXPECT_TRUE(text(u"cloudTypedKeyProblem"_s).startsWith(told)) << typed;
        EXPECT_EQ(keyboard(), u"cloudTypedKey"_s);
    }
    EXPECT_EQ(cloud.asked, Asked());
    program.press(Qt::Key_A, Qt::ControlModifier);
    program.type(QString::fromStdString(key).toLower().remove(u'-'));
    const QString grouped = QString::fromStdString(key).replace(u'-', u' ');
    EXPECT_EQ(program.find<QLineEdit>(u"cloudTypedKey"_s).text(), grouped);
    program.press(Qt::Key_Return);
    EXPECT_EQ(cloud.asked, Asked{"confirmRecoveryKey " + grouped.toStdString()});
    program.click(u"cloudKeyCancel"_s);
    EXPECT_EQ(cloud.asked.back(), "cancelSignIn");
}

TEST_F(CloudPage, theKeyIsSavedForItsUserAlone) {
    open({});
    cloud.set({.phase = Phase::confirmsKey,
               .email = "nora@muster.ch",
               .recoveryKey = CloudCrypto::newRecoveryKey()});
    program.settle();
    const QString folder = QString::fromStdString(program.folder.path().string());
    auto& save = program.find<QPushButton>(u"cloudKeySave"_s);
    for (const QString& file : {folder + u"/Schlüssel.pdf"_s, folder + u"/fehlt/Schlüssel.pdf"_s}) {
        QTimer::singleShot(0, &save, [&] {
            auto* const dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            dialog->selectFile(file);
            QMetaObject::invokeMethod(dialog, "accept");
        });
        save.click();
        const bool isSaved = !file.contains(u"fehlt"_s);
        EXPECT_TRUE(
            text(u"cloudKeyMessage"_s)
                .startsWith(isSaved ? u"Gespeichert"_s : u"Der Schlüssel ist nicht gespeichert"_s))
            << text(u"cloudKeyMessage"_s).toStdString();
        EXPECT_EQ(QFile::exists(file), isSaved);
    }
    QFile pdf(folder + u"/Schlüssel.pdf"_s);
    ASSERT_TRUE(pdf.open(QIODevice::ReadOnly));
    EXPECT_TRUE(pdf.read(5) == "%PDF-");
    EXPECT_EQ(pdf.permissions() & (QFile::ReadGroup | QFile::ReadOther), QFile::Permissions());
}

TEST_F(CloudPage, aKeyIsCorrectedInItsMiddle) {
    open({.phase = Phase::needsRecoveryKey, .email = "nora@muster.ch"});
    auto& line = program.find<QLineEdit>(u"cloudRecoveryKey"_s);
    line.setFocus(Qt::TabFocusReason);
    program.type(u"abcd efgh"_s);
    EXPECT_EQ(line.text(), u"ABCD EFGH"_s);
    line.setCursorPosition(2);
    program.type(u"x"_s);
    EXPECT_EQ(line.text(), u"ABXC DEFG H"_s);
    EXPECT_EQ(line.cursorPosition(), 3);
    program.press(Qt::Key_Backspace);
    EXPECT_EQ(line.text(), u"ABCD EFGH"_s);
    QApplication::clipboard()->setText(u"-"_s + QString(40, u'7'));
    program.press(Qt::Key_A, Qt::ControlModifier);
    program.press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(line.text().remove(u' ').size(), 32);
}

TEST_F(CloudPage, whoLostTheKeyIsAskedOnceMore) {
    open({.phase = Phase::needsRecoveryKey, .email = "nora@muster.ch"});
    EXPECT_FALSE(program.isShown(u"cloudStartAnew"_s));
    program.click(u"cloudKeyLost"_s);
    program.settle();
    answer();
    program.click(u"cloudStartAnew"_s);
    EXPECT_EQ(asked(), Asked()) << "the Enter key discards nothing";
    answer(u"Kopie verwerfen"_s);
    program.click(u"cloudStartAnew"_s);
    EXPECT_EQ(asked(), Asked{"startAnew"});
    program.settle();
    const std::string key = CloudCrypto::newRecoveryKey();
    program.find(u"cloudRecoveryKey"_s).setFocus(Qt::TabFocusReason);
    program.type(QString::fromStdString(key));
    program.press(Qt::Key_Return);
    EXPECT_TRUE(cloud.asked.back().starts_with("joinByRecoveryKey "));
    EXPECT_EQ(CloudCrypto::parseRecoveryKey(cloud.asked.back().substr(18)),
              CloudCrypto::parseRecoveryKey(key));
}

TEST_F(CloudPage, theReadyCardTellsAndAsks) {
    open({});
    cloud.set(states().ready());
    program.settle();
    EXPECT_EQ(text(u"cloudSpace"_s), u"12.4 MB von 1 GB belegt"_s);
    EXPECT_FALSE(program.isShown(u"cloudDeletion"_s) || program.isShown(u"cloudProblem"_s)
                 || program.isShown(u"cloudLeftOut"_s) || program.isShown(u"cloudDocuments"_s));
    cloud.change([](CloudStatus& now) {
        now.deletionPlanned = "01.03.2027";
        now.problem = "Der Cloud-Speicher (1 GB) ist voll.";
        now.documentsToSend = 1;
        now.documentsToFetch = 3;
        now.leftOut = {{"Film", "Zu gross."}};
    });
    program.settle();
    EXPECT_TRUE(text(u"cloudDeletion"_s).contains(u"01.03.2027"_s));
    EXPECT_EQ(text(u"cloudProblem"_s), u"Der Cloud-Speicher (1 GB) ist voll."_s);
    EXPECT_EQ(text(u"cloudDocuments"_s), u"Noch 1 Beleg hochzuladen und 3 Belege zu holen."_s);
    EXPECT_TRUE(program.isShown(u"cloudLeftOut"_s));
    program.click(u"cloudCheckNow"_s);
    answer();
    program.click(u"cloudSignOut"_s);
    answer();
    program.click(u"cloudNewKey"_s);
    answer(u"Abmelden"_s);
    program.click(u"cloudSignOut"_s);
    answer(u"Neuen Schlüssel erstellen"_s);
    program.click(u"cloudNewKey"_s);
    EXPECT_EQ(asked(), (Asked{"signOut", "makeNewRecoveryKey"}));
}

TEST_F(CloudPage, aGraveLossIsAskedAbout) {
    open({});
    cloud.set(states().ready());
    for (const bool isIncoming : {true, false}) {
        cloud.change([&](CloudStatus& now) {
            now.question = {isIncoming, testing::CloudStates::lossOf({2024}, 132, 5)};
        });
        program.settle();
        EXPECT_TRUE(
            text(u"cloudQuestionText"_s)
                .contains(u"das Steuerjahr 2024, 132 von 140 Angaben und 5 von 6 Belegen"_s));
        EXPECT_EQ(program.find<QPushButton>(u"cloudTakeLoss"_s).text(),
                  isIncoming ? u"Auch hier löschen"_s : u"Auch in der Cloud löschen"_s);
        EXPECT_EQ(program.find<QPushButton>(u"nav:account"_s).accessibleName(),
                  u"Konto, 1 offen in der Cloud"_s);
    }
    program.click(u"cloudKeepAll"_s);
    program.click(u"cloudTakeLoss"_s);
    EXPECT_EQ(cloud.asked, (Asked{"answerQuestion keeps", "answerQuestion takes"}));
    cloud.set(states().ready());
    EXPECT_FALSE(program.isShown(u"cloudQuestion"_s));
    EXPECT_EQ(program.find<QPushButton>(u"nav:account"_s).accessibleName(), u"Konto"_s);
}

TEST_F(CloudPage, conflictsAreReadAsTheFieldsShowThem) {
    open({});
    const int year = program.store->year();
    program.store->setYear(year - 1);
    program.store->setYear(year);
    std::vector<MergeConflict> conflicts = states().conflicts();
    conflicts.push_back(
        {year, "securities[6F9619FF-8B86-D011-B42D-00C04FC964FF].taxValue", "100", "0"});
    conflicts.push_back({year, "li.commute1.kmPerDay", "12.5", "14"});
    conflicts.push_back({year - 1, "person1.firstName", "\"Nora\"", "\"Nora  \\u00e4\\nB.\""});
    conflicts.push_back({1999, "", std::nullopt, "{}"});
    struct Row {
        QString label, where, ours, theirs;
        bool operator==(const Row&) const = default;
    };
    const QString at = u"Steuerjahr %1 · "_s.arg(year);
    const std::array expected{
        Row{u"Bruttolohn"_s, at, u"CHF"_s, u"128’450.75 CHF"_s},
        Row{u"Zivilstand"_s, at + u"Familie"_s, u"verheiratet"_s, u"getrennt"_s},
        Row{u"Geburtsdatum"_s, at + u"Familie · "_s, u"."_s, u"09.07.2015"_s},
        Row{u"Bank / Schuldner"_s, at + u"Vermögen · "_s, {}, u"Gemeinnützige"_s},
        Row{u"Schuld"_s, at + u"Vermögen · "_s, u"gelöscht"_s, u","_s},
        Row{u"Art"_s, u"Belege"_s, u"Spende"_s, u"Lohnausweis"_s},
        Row{u"Steuerwert"_s, at + u"Vermögen · "_s, u"100 CHF"_s, u"leer"_s},
        Row{{}, u"Steuerjahr"_s, u"12.5"_s, u"14"_s},
        Row{u"Vorname"_s, u"Steuerjahr %1 · Familie"_s.arg(year - 1), u"Nora"_s, u"Nora ä B."_s},
        Row{u"Steuerjahr 1999"_s, {}, u"gelöscht"_s, u"vorhanden"_s}};
    const auto texts = pages::describe(*program.store, conflicts);
    ASSERT_EQ(texts.size(), expected.size());
    for (std::size_t i = 0; i < texts.size(); ++i) {
        const auto& [label, where, ours, theirs, path, document, isWhole] = texts[i];
        SCOPED_TRACE(
            (label + u" | "_s + where + u" | "_s + ours + u" | "_s + theirs).toStdString());
        EXPECT_TRUE(label.contains(expected[i].label));
        EXPECT_TRUE(where.startsWith(expected[i].where));
        EXPECT_TRUE(ours.contains(expected[i].ours));
        EXPECT_TRUE(theirs.contains(expected[i].theirs));
        EXPECT_EQ(isWhole, i == 4);
    }
    EXPECT_EQ(texts[0].path, "income1.salaries[0].grossSalary");
    EXPECT_EQ(texts[6].path, "") << "there is no such entry to go to";
}

TEST_F(CloudPage, conflictsAreSettledByTheKeyboard) {
    open({});
    cloud.set(states().ready());
    const auto all = states().conflicts();
    cloud.change([&](CloudStatus& now) { now.conflicts = all; });
    program.settle();
    EXPECT_EQ(program.find<QPushButton>(u"cloudLineDoor"_s).text(), u"Cloud: Konflikte ansehen"_s);
    const auto drop = [&](std::size_t index) {
        cloud.answers = [&, index] {
            cloud.change([&](CloudStatus& now) {
                now.conflicts.erase(now.conflicts.begin() + static_cast<std::ptrdiff_t>(index));
            });
        };
    };
    drop(1);
    program.find(u"cloudTake:1"_s).setFocus(Qt::TabFocusReason);
    program.press(Qt::Key_Return);
    EXPECT_EQ(cloud.asked.back(), "settleConflict 1 other");
    EXPECT_EQ(keyboard(), u"cloudKeep:1"_s);
    EXPECT_FALSE(program.isShown(u"toastAnswer"_s)) << "nothing was done that could be undone";
    cloud.answers = [&, step = cloud.answers] {
        program.store->edit("Geburtsdatum", [](TaxCase& taxCase) { taxCase.cash = 7; });
        cloud.change([&](CloudStatus& now) { now.conflicts.erase(now.conflicts.begin() + 1); });
    };
    program.click(u"cloudTake:1"_s);
    EXPECT_TRUE(program.isShown(u"toastAnswer"_s));
    drop(3);
    program.click(u"cloudKeep:3"_s);
    EXPECT_EQ(cloud.asked.back(), "settleConflict 3 ours");
    EXPECT_EQ(keyboard(), u"cloudKeep:2"_s) << "the last one is gone";
    cloud.answers = [&] { cloud.change([](CloudStatus& now) { now.conflicts.clear(); }); };
    program.click(u"cloudKeepHere"_s);
    EXPECT_EQ(cloud.asked.back(), "settleAllConflicts");
    EXPECT_FALSE(program.isShown(u"cloudConflicts"_s));
    EXPECT_EQ(keyboard(), u"cloudCheckNow"_s);
}

TEST_F(CloudPage, whatWasDeletedHereAndChangedElsewhereStaysUntilOneChooses) {
    open({});
    cloud.set(states().ready());
    const int year = program.store->year();
    const std::size_t before = program.store->current().debts.size();
    const std::string path = "debts[" + program.store->current().debts.front().id.toString() + "]";
    const auto json = taxcore::valueAt(program.store->current(), path);
    cloud.change([&](CloudStatus& now) {
        now.conflicts = {{year, path, std::nullopt, json}, {year, path, json, std::nullopt}};
    });
    program.settle();
    struct Choice {
        const char* name;
        const char* text;
    };
    for (const auto& [name, told] : {Choice{"cloudKeep:0", "Löschen"},
                                     {"cloudTake:0", "Behalten"},
                                     {"cloudKeep:1", "Behalten"},
                                     {"cloudTake:1", "Löschen"}}) {
        EXPECT_EQ(program.find<QPushButton>(QString::fromLatin1(name)).text(),
                  QString::fromUtf8(told));
    }
    program.store->setYear(year - 1);
    program.settle();
    program.click(u"cloudKeep:0"_s);
    EXPECT_EQ(cloud.asked.back(), "settleConflict 0 ours");
    EXPECT_EQ(program.store->year(), year);
    EXPECT_EQ(program.store->current().debts.size(), before - 1);
    program.settle();
    program.click(u"toastAnswer"_s);
    EXPECT_EQ(program.store->current().debts.size(), before);
    program.settle();
    program.window->showPage(u"account"_s);
    program.click(u"cloudTake:0"_s);
    EXPECT_EQ(cloud.asked.back(), "settleConflict 0 other");
    EXPECT_EQ(program.store->current().debts.size(), before);
}

TEST_F(CloudPage, aConflictLeadsToItsField) {
    open({});
    cloud.set(states().ready());
    const int year = program.store->year();
    program.store->setYear(year - 1);
    program.settle();
    cloud.change([&](CloudStatus& now) { now.conflicts = {{year, "cash", "1", "2"}}; });
    program.settle();
    program.click(u"cloudDoor:0"_s);
    program.settle();
    EXPECT_EQ(program.store->year(), year);
    EXPECT_EQ(program.window->currentPage(), u"wealth"_s);
    EXPECT_EQ(keyboard(), u"cash"_s);
    program.click(u"cloudLineDoor"_s);
    EXPECT_EQ(program.window->currentPage(), u"account"_s);
}

TEST(CloudText, theSidebarSaysHowTheBackupStands) {
    const QDateTime now(QDate(2026, 11, 21), QTime(15, 0));
    const auto at = [](int day, int hour) {
        return taxcore::Moment{QDateTime(QDate(2026, 11, day), QTime(hour, 32)).toSecsSinceEpoch()};
    };
    const auto ready = [](const std::function<void(CloudStatus&)>& change) {
        CloudStatus status{.phase = Phase::ready, .email = "nora@muster.ch"};
        change(status);
        return status;
    };
    struct Row {
        CloudStatus status;
        QString line;
        bool asksUser = false;
    };
    const std::array rows{
        Row{{}, {}},
        Row{{.phase = Phase::signedOut}, {}},
        Row{{.phase = Phase::signedOut, .problem = "Keine Verbindung."}, {}},
        Row{{.phase = Phase::signedOut, .email = "n@m.ch"}, u"Cloud: abgemeldet"_s},
        Row{{.phase = Phase::signedOut, .email = "n@m.ch", .problem = "Nicht mehr angemeldet."},
            u"Cloud: bitte neu anmelden"_s,
            true},
        Row{{.phase = Phase::needsRecoveryKey, .email = "n@m.ch"},
            u"Cloud: Schlüssel eingeben"_s,
            true},
        Row{ready([&](auto& s) { s.compared = at(21, 14); }), u"Cloud: abgeglichen 14:32"_s},
        Row{ready([&](auto& s) { s.compared = at(20, 9); }), u"Cloud: abgeglichen 20.11., 09:32"_s},
        Row{ready([&](auto& s) {
                s.activity = Activity::offline;
                s.problem = "Keine Verbindung.";
            }),
            u"Cloud: offline, wird nachgeholt"_s},
        Row{ready([](auto& s) { s.problem = "Voll."; }), u"Cloud: Meldung ansehen"_s, true},
        Row{ready([](auto& s) {
                s.activity = Activity::sending;
                s.documentsToSend = 1;
            }),
            u"Cloud: 1 Beleg hochzuladen"_s},
        Row{ready([](auto& s) {
                s.activity = Activity::offline;
                s.conflicts.resize(2);
            }),
            u"Cloud: Konflikte ansehen"_s, true},
        Row{ready([](auto& s) {
                s.conflicts.resize(2);
                s.question.emplace();
            }),
            u"Cloud: Frage beantworten"_s, true}};
    for (const auto& [status, line, asksUser] : rows) {
        EXPECT_EQ(pages::cloudLine(status, now), (pages::CloudLine{line, asksUser}))
            << line.toStdString();
    }
}

TEST(CloudText, aLossIsToldWithItsFigures) {
    struct Row {
        StateLoss loss;
        QString told;
    };
    const auto loss = [](std::vector<int> years, std::vector<int> halved, std::size_t fields,
                         std::size_t documents, std::size_t documentsBefore) {
        StateLoss made;
        made.years = std::move(years);
        made.halvedYears = std::move(halved);
        made.fields = fields;
        made.fieldsBefore = 140;
        made.documents = documents;
        made.documentsBefore = documentsBefore;
        return made;
    };
    const std::array rows{
        Row{loss({2024}, {}, 0, 0, 9), u"das Steuerjahr 2024"_s},
        Row{loss({2024, 2025}, {}, 0, 1, 1), u"die Steuerjahre 2024, 2025 und der einzige Beleg"_s},
        Row{loss({}, {2025}, 70, 3, 6),
            u"grosse Teile des Steuerjahrs 2025, 70 von 140 Angaben und 3 von 6 Belegen"_s},
        Row{loss({}, {}, 100, 0, 0), u"100 von 140 Angaben"_s}};
    for (const auto& [what, told] : rows) {
        EXPECT_EQ(pages::lossText(what), told) << told.toStdString();
    }
}

TEST(CloudText, theSheetHasTheWholeKeyWithinItsMargins) {
    const std::string key = CloudCrypto::newRecoveryKey();
    const std::string address = std::string(70, 'n') + "@gemeinnuetzige-genossenschaft.example";
    const auto sheet = pages::recoverySheet(address, key, taxcore::Date::of(2026, 11, 21).value());
    ASSERT_EQ(sheet.pages.size(), 1U);
    QString all;
    for (const paper::PaperText& text : sheet.pages.front().texts) {
        all += text.text;
        EXPECT_LE(text.at.x() + paper::widthOf(text.type, text.text),
                  paper::pageWidth - paper::marginRight + 0.5);
        EXPECT_LE(text.at.y(), paper::pageHeight - paper::marginBottom);
    }
    EXPECT_TRUE(all.contains(u"21.11.2026"_s));
    all.remove(u' ');
    EXPECT_TRUE(all.contains(QString::fromStdString(key).remove(u'-')));
    EXPECT_TRUE(all.contains(QString::fromStdString(address)));
}

TEST_F(CloudPage, theWindowChecksWhenItComesBackAndTheSearchKnowsThePage) {
    open({.phase = Phase::signedOut});
    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    EXPECT_EQ(cloud.asked, Asked());
    program.window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(program.window.get()));
    EXPECT_EQ(cloud.asked, Asked{"checkNow"});
    for (const QString& words : {u"cloud"_s, u"wiederherstellungsschluessel"_s}) {
        program.window->showPage(u"income"_s);
        program.settle();
        program.find(u"nav:income"_s).setFocus(Qt::TabFocusReason);
        program.press(Qt::Key_K, Qt::ControlModifier);
        program.type(words);
        program.press(Qt::Key_Return);
        EXPECT_EQ(program.window->currentPage(), u"account"_s) << words.toStdString();
    }
}

TEST_F(CloudPage, withoutAServiceTheCardSaysSo) {
    program.open();
    program.window->showPage(u"account"_s);
    program.settle();
    EXPECT_TRUE(text(u"cloudNote"_s).contains(u"nicht zur Verfügung"_s));
    EXPECT_FALSE(program.isShown(u"cloudLine"_s) || program.isShown(u"cloudLineDoor"_s));
}

} // namespace
} // namespace fiscarel
