#include "Fiscarel_SG/AppStore.h"
#include "Fiscarel_SG/forms/QtText.h"
#include "Fiscarel_SG/shell/MainWindow.h"
#include "Fiscarel_SG/shell/SingleInstance.h"
#include "Fiscarel_SG/store/FolderLock.h"
#include "Fiscarel_SG/store/PosixFiles.h"
#include "Fiscarel_SG/store/QtServices.h"
#include "Fiscarel_SG/store/WriterThread.h"

#include <QApplication>
#include <QMessageBox>
#include <QTimer>
#include <memory>

namespace {

using namespace Qt::Literals::StringLiterals;
using namespace fiscarel;

/// The program is open already: its window comes to the front, or the user is told. Nothing is read
/// or written.
int alreadyOpen(const shell::SingleInstance& instance) {
    if (instance.askFirst()) {
        return 0;
    }
    QMessageBox::information(
        nullptr, u"Fiscarel SG"_s,
        u"Fiscarel SG ist bereits geöffnet. Bitte im offenen Fenster weiterarbeiten."_s);
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QApplication::setApplicationName(u"Fiscarel SG"_s);
    QApplication::setApplicationVersion(QStringLiteral(FISCAREL_VERSION));
    QApplication::setDesktopFileName(u"fiscarel-sg"_s);

    std::vector<std::string> arguments;
    for (const QString& argument : QApplication::arguments()) {
        arguments.push_back(utf8(argument));
    }
    const LaunchArguments launch = LaunchArguments::parse(arguments);
    shell::SingleInstance instance(Persistence::defaultRoot());
    std::optional<FolderLock> lock;
    if (!launch.demo) {
        lock = FolderLock::acquire(Persistence::defaultRoot());
        if (!lock) {
            return alreadyOpen(instance);
        }
        instance.listen();
    }
    PosixFiles files;
    const SystemClock clock;
    QtTimers timers;
    QtSettings settings;
    std::unique_ptr<Persistence> persistence;
    if (!launch.demo) {
        persistence = std::make_unique<Persistence>(files, clock);
    }
    QObject onMainThread;
    WriterThread writer([&] {
        QMetaObject::invokeMethod(
            &onMainThread, [&] { writer.deliver(); }, Qt::QueuedConnection);
    });
    AppStore store({persistence.get(), writer, clock, timers, settings}, launch);
    shell::MainWindow window(store, settings);
    window.show();
    QObject::connect(&instance, &shell::SingleInstance::asked, &window, [&] {
        window.setWindowState(window.windowState() & ~Qt::WindowMinimized);
        window.raise();
        window.activateWindow();
    });
    QTimer::singleShot(0, &window, [&] { window.greet(); });
    return QApplication::exec();
}
