// Takes pictures of what the page of the account shows of the backup, in light and dark:
//   cloud-pictures FOLDER [WIDTH HEIGHT]
// With QT_SCALE_FACTOR set, larger. It tells which are wider than the window.

#include "Fiscarel_SG/look/SwissGerman.h"
#include "Fiscarel_SG/pages/account/RecoverySheet.h"
#include "Fiscarel_SG/pages/documents/DocumentDesk.h"
#include "Fiscarel_SG/shell/MainWindow.h"
#include "Fiscarel_SG/store/PosixFiles.h"
#include "Fiscarel_SG/store/QtServices.h"
#include "tests/support/FakeCloud.h"
#include "tests/support/FakeServices.h"

#include <QApplication>
#include <QDir>
#include <QPainter>
#include <QPixmap>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>
#include <cstdio>

using namespace Qt::Literals::StringLiterals;
using namespace fiscarel;

namespace {

struct Camera {
    shell::MainWindow& window;
    QString folder;
    QString suffix;

    void take(const QString& name) const {
        QTest::qWait(200);
        window.grab().save(u"%1/%2%3.png"_s.arg(folder, name, suffix));
    }
    QScrollArea& scroll() const {
        return *window.findChild<QWidget*>(u"page:account"_s)->findChild<QScrollArea*>();
    }
    /// With the rest one has to scroll for, as far as it is of the backup.
    void takeWhole(const QString& name) const {
        scroll().verticalScrollBar()->setValue(0);
        take(name);
        if (scroll().horizontalScrollBar()->maximum() > 0) {
            std::printf("wider than the window: %s%s\n", qPrintable(name), qPrintable(suffix));
        }
        const int end = window.findChild<QWidget*>(u"cloud"_s)->height();
        QScrollBar& bar = *scroll().verticalScrollBar();
        for (int part = 2; bar.value() + bar.pageStep() < end; ++part) {
            const int before = bar.value();
            bar.setValue(bar.value() + bar.pageStep());
            if (bar.value() == before) {
                break;
            }
            take(u"%1-%2"_s.arg(name).arg(part));
        }
    }
    void click(const char* name) const {
        for (auto* const button : window.findChildren<QPushButton*>(QString::fromLatin1(name))) {
            if (button->isVisible()) {
                button->setFocus();
                button->click();
                return;
            }
        }
        std::printf("not there: %s\n", name);
    }
};

void takeSheet(const QString& folder, const std::string& key) {
    const auto sheet =
        pages::recoverySheet("nora@brennick.example", key, taxcore::Date::of(2026, 11, 21).value());
    QImage page(qRound(paper::pageWidth), qRound(paper::pageHeight), QImage::Format_RGB32);
    page.fill(Qt::white);
    QPainter painter(&page);
    painter.setRenderHint(QPainter::Antialiasing);
    paper::paintPage(painter, sheet.pages.front());
    painter.end();
    page.save(folder + u"/sheet.png"_s);
}

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QApplication::setApplicationVersion(QStringLiteral(FISCAREL_VERSION));
    look::speakSwissGerman(application);
    const QStringList arguments = QApplication::arguments();
    const QString folder = arguments.value(1, u"."_s);
    QDir().mkpath(folder);
    testing::FakeClock clock;
    QtTimers timers;
    testing::InlineQueue queue;
    testing::MemorySettings settings;
    AppStore store({nullptr, queue, clock, timers, settings}, {.demo = true});
    PosixFiles files;
    pages::DocumentDesk desk(store, files, {});
    const int width = arguments.value(2).toInt();
    const int height = arguments.value(3).toInt();
    for (const auto appearance : {look::Appearance::light, look::Appearance::dark}) {
        settings.setNumber("appearance", static_cast<int>(appearance));
        testing::FakeCloud cloud;
        shell::MainWindow window(store, settings, desk, &cloud);
        window.resize(width > 0 ? width : 1280, height > 0 ? height : 820);
        window.show();
        window.showPage(u"account"_s);
        const Camera camera{window, folder,
                            appearance == look::Appearance::light ? u"-light"_s : u"-dark"_s};
        for (const auto& [name, status] : testing::CloudStates(store).all()) {
            cloud.set({}); // each as who comes to it
            cloud.set(status);
            camera.takeWhole(QString::fromStdString(name));
            if (name == "confirms-key") {
                camera.click("cloudKeyCopy");
                camera.take(u"confirms-key-copied"_s);
                camera.click("cloudKeyNext");
                camera.take(u"confirms-key-check"_s);
                camera.click("cloudKeyConfirm");
                camera.take(u"confirms-key-wrong"_s);
            } else if (name == "signed-out-server") {
                camera.click("cloudServerOpen");
                camera.take(u"signed-out-server-open"_s);
            } else if (name == "needs-key") {
                camera.click("cloudKeyLost");
                camera.take(u"needs-key-lost"_s);
            }
        }
        if (appearance == look::Appearance::light) {
            takeSheet(folder, testing::CloudStates(store).key);
        }
    }
    return 0;
}
