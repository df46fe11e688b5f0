// The encrypted backup on the page of the account, with one that does what it is told.

#include "tests/gui/CloudPage.h"

#include "Fiscarel_SG/CloudCrypto.h"
#include "tests/gui/AccessibilityWalk.h"

#include <QClipboard>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

namespace fiscarel {
namespace {

using namespace Qt::Literals::StringLiterals;
using Activity = CloudStatus::Activity;
using Phase = CloudStatus::Phase;
using Asked = std::vector<std::string>;
using CloudPage = testing::CloudPage;

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
}

TEST_F(CloudPage, aCodeIsTypedOrPasted) {
    open({.phase = Phase::codeSent, .email = "nora@muster.ch"});
    program.find(u"cloudCode"_s).setFocus(Qt::TabFocusReason);
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
    EXPECT_EQ(cloud.asked, Asked()) << "the Enter key discards nothing";
    answer(u"Kopie verwerfen"_s);
    program.click(u"cloudStartAnew"_s);
    EXPECT_EQ(cloud.asked, Asked{"startAnew"});
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
    EXPECT_EQ(cloud.asked, (Asked{"checkNow", "signOut", "makeNewRecoveryKey"}));
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

TEST_F(CloudPage, theWindowChecksWhenItComesBackAndTheSearchKnowsThePage) {
    open({.phase = Phase::signedOut});
    const auto comeBack = [&] {
        program.window->activateWindow();
        return QTest::qWaitForWindowActive(program.window.get());
    };
    {
        QWidget dialog;
        dialog.show();
        dialog.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
    }
    ASSERT_TRUE(comeBack());
    EXPECT_EQ(cloud.asked, Asked()) << "that was a window of ours";
    QApplication::setActiveWindow(nullptr); // as when another program is in front
    ASSERT_FALSE(program.window->isActiveWindow());
    QApplication::setActiveWindow(program.window.get());
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

TEST_F(CloudPage, whoRunsAServerNamesIt) {
    open({.phase = Phase::signedOut});
    EXPECT_FALSE(program.isShown(u"cloudServer"_s));
    EXPECT_EQ(program.find<QPushButton>(u"cloudServerOpen"_s).text(), u"Eigener Server …"_s);
    cloud.answers = [&] {
        cloud.change([&](CloudStatus& now) {
            now.server = cloud.asked.back().substr(std::string("useServer ").size());
        });
    };
    struct Row {
        QString typed;
        const char* asked; ///< null: refused
    };
    for (const auto& [typed, asked] :
         {Row{u"http://cloud.muster.ch"_s, nullptr}, Row{u"ftp://cloud.muster.ch"_s, nullptr},
          Row{u"mein server"_s, nullptr}, Row{u"https://"_s, nullptr},
          Row{u" cloud.muster.ch:8443 "_s, "useServer cloud.muster.ch:8443"},
          Row{u"https://cloud.muster.ch"_s, "useServer https://cloud.muster.ch"},
          Row{u"http://127.0.0.1:8420"_s, "useServer http://127.0.0.1:8420"},
          Row{u""_s, "useServer "}}) {
        SCOPED_TRACE(typed.toStdString());
        cloud.asked.clear();
        program.find(u"cloudServerOpen"_s).setFocus(Qt::TabFocusReason);
        program.press(Qt::Key_Space);
        ASSERT_EQ(keyboard(), u"cloudServer"_s);
        auto& line = program.find<QLineEdit>(u"cloudServer"_s);
        line.selectAll();
        program.press(Qt::Key_Delete);
        program.type(typed);
        program.press(Qt::Key_Return);
        EXPECT_EQ(program.isShown(u"cloudServer"_s), asked == nullptr);
        EXPECT_EQ(cloud.asked, asked == nullptr ? Asked() : Asked{asked});
        EXPECT_EQ(keyboard(), asked == nullptr ? u"cloudServer"_s : u"cloudServerOpen"_s);
        if (asked == nullptr) {
            EXPECT_TRUE(
                text(u"cloudServerProblem"_s).startsWith(u"Mit dieser Adresse geht es nicht."_s));
            program.click(u"cloudServerOpen"_s);
        } else {
            EXPECT_EQ(program.find<QPushButton>(u"cloudServerOpen"_s).text(),
                      typed.isEmpty() ? u"Eigener Server …"_s
                                      : u"Eigener Server: %1 …"_s.arg(typed.trimmed()));
        }
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
