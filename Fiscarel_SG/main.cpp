#include "Fiscarel_SG/AppStore.h"
#include "Fiscarel_SG/cloud/CloudSync.h"
#include "Fiscarel_SG/look/QtText.h"
#include "Fiscarel_SG/look/SwissGerman.h"
#include "Fiscarel_SG/pages/documents/DocumentDesk.h"
#include "Fiscarel_SG/shell/MainWindow.h"
#include "Fiscarel_SG/shell/SingleInstance.h"
#include "Fiscarel_SG/store/FolderLock.h"
#include "Fiscarel_SG/store/PosixFiles.h"
#include "Fiscarel_SG/store/QtServices.h"
#include "Fiscarel_SG/store/WriterThread.h"

#include <fcntl.h>
#include <unistd.h>

#include <QApplication>
#include <QMessageBox>
#include <QSocketNotifier>
#include <QStandardPaths>
#include <QTimer>
#include <array>
#include <csignal>
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

/// The ends of a pipe through which a signal reaches the event loop.
std::array<int, 2> endPipe{-1, -1};

/// Ends the program in order, with what is unsaved saved, when the session ends or somebody asks
/// the process to go.
void endOnSignals(QObject& parent) {
    if (::pipe2(endPipe.data(), O_CLOEXEC | O_NONBLOCK) != 0) {
        return;
    }
    auto* const notifier = new QSocketNotifier(endPipe[0], QSocketNotifier::Read, &parent);
    QObject::connect(notifier, &QSocketNotifier::activated, &parent, [] { QApplication::quit(); });
    struct sigaction action = {};
    action.sa_handler = [](int) {
        const char byte = 0;
        (void)!::write(endPipe[1], &byte, 1);
    };
    for (const int signal : {SIGTERM, SIGHUP, SIGINT}) {
        ::sigaction(signal, &action, nullptr);
    }
}

/// A thread for work, with the main thread's event loop behind it.
struct MainThreadQueue {
    QObject onMainThread;
    WriterThread thread{[this] {
        QMetaObject::invokeMethod(
            &onMainThread, [this] { thread.deliver(); }, Qt::QueuedConnection);
    }};
};

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QApplication::setApplicationName(u"Fiscarel SG"_s);
    QApplication::setApplicationVersion(QStringLiteral(FISCAREL_VERSION));
    QApplication::setDesktopFileName(u"fiscarel-sg"_s);
    look::speakSwissGerman(application);

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
    SystemKeychain keychain;
    MainThreadQueue writer;
    MainThreadQueue cloudWorker; // the keyring may keep it waiting for the user
    endOnSignals(writer.onMainThread);
    AppStore store({persistence.get(), writer.thread, clock, timers, settings}, launch);
    CloudAPI cloudServer(CloudSync::serverOf(settings));
    CloudSync cloud({store, cloudServer, keychain, persistence.get(), files, writer.thread,
                     cloudWorker.thread, timers, clock, &settings});
    pages::DocumentDesk desk(
        store, files,
        utf8(QStandardPaths::writableLocation(QStandardPaths::CacheLocation) + u"/gelesen"_s));
    shell::MainWindow window(store, settings, desk, &cloud);
    window.show();
    QObject::connect(&instance, &shell::SingleInstance::asked, &window, [&] {
        window.setWindowState(window.windowState() & ~Qt::WindowMinimized);
        window.raise();
        window.activateWindow();
    });
    QTimer::singleShot(0, &window, [&] { window.greet(); });
    return QApplication::exec();
}
