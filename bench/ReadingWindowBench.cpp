// How long the window's thread is busy at a stretch while ten documents are read: the longest
// handler of an event by its own processor time, so that what other processes do beside it does not
// count. Runs without a screen, with the real reading process.

#include "Fiscarel_SG/AppStore.h"
#include "Fiscarel_SG/pages/documents/DocumentDesk.h"
#include "Fiscarel_SG/shell/MainWindow.h"
#include "Fiscarel_SG/store/PosixFiles.h"
#include "Fiscarel_SG/store/QtServices.h"
#include "Fiscarel_SG/store/WriterThread.h"
#include "tests/support/FakeServices.h"
#include "tests/support/TemporaryFolder.h"

#include <benchmark/benchmark.h>
#include <time.h>

#include <QApplication>
#include <QPainter>
#include <QPdfWriter>
#include <QTest>
#include <cstdio>
#include <string>
#include <vector>

namespace {

using namespace Qt::Literals::StringLiterals;
using namespace fiscarel;

/// Processor time of the calling thread, milliseconds.
double busyMilliseconds() {
    timespec now{};
    ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) / 1e6;
}

/// Keeps the longest handler of an event.
class WatchedApplication final : public QApplication {
  public:
    using QApplication::QApplication;

    double longest = 0;
    std::string where;

    bool notify(QObject* receiver, QEvent* event) override {
        if (isWithin_) {
            return QApplication::notify(receiver, event);
        }
        isWithin_ = true;
        // Both may be gone afterwards.
        const std::string name = std::string(receiver->metaObject()->className()) + ", event "
                                 + std::to_string(event->type());
        const double before = busyMilliseconds();
        const bool handled = QApplication::notify(receiver, event);
        const double spent = busyMilliseconds() - before;
        isWithin_ = false;
        if (spent > longest) {
            longest = spent;
            where = name;
        }
        return handled;
    }

  private:
    bool isWithin_ = false;
};

/// Ten papers of three pages, as banks and insurers write them.
std::vector<std::filesystem::path> papers(const std::filesystem::path& folder) {
    std::vector<std::filesystem::path> files;
    for (int paper = 0; paper < 10; ++paper) {
        files.push_back(folder / ("Beleg " + std::to_string(paper) + ".pdf"));
        QPdfWriter writer(QString::fromStdString(files.back().string()));
        writer.setPageSize(QPageSize(QPageSize::A4));
        writer.setResolution(100);
        QPainter painter(&writer);
        for (int page = 0; page < 3; ++page) {
            if (page > 0) {
                writer.newPage();
            }
            painter.drawText(0, 40, u"Zins- und Saldobestätigung per 31.12.2025"_s);
            for (int row = 0; row < 40; ++row) {
                painter.drawText(0, 80 + 22 * row, u"Sparkonto %1 %2"_s.arg(paper).arg(row));
                painter.drawText(480, 80 + 22 * row, u"%1'250.%2"_s.arg(row + 1).arg(10 + row));
            }
        }
    }
    return files;
}

struct Queue {
    QObject onMainThread;
    WriterThread thread{[this] {
        QMetaObject::invokeMethod(
            &onMainThread, [this] { thread.deliver(); }, Qt::QueuedConnection);
    }};
};

void handlersWhileTenDocumentsAreRead(benchmark::State& state) {
    auto& application = dynamic_cast<WatchedApplication&>(*QApplication::instance());
    for (auto _ : state) {
        fiscarel::testing::TemporaryFolder folder;
        PosixFiles files;
        const SystemClock clock;
        QtTimers timers;
        fiscarel::testing::MemorySettings settings;
        settings.setText("defaultRegion", "sg");
        settings.setNumber("selectedYear", 2025);
        Persistence persistence(files, clock, folder.path() / "daten");
        Queue queue;
        AppStore store({&persistence, queue.thread, clock, timers, settings}, {});
        pages::DocumentDesk desk(store, files, folder.path() / "gelesen");
        shell::MainWindow window(store, settings, desk);
        window.show();
        window.showPage(u"documents"_s);
        QTest::qWait(300);
        application.longest = 0;
        desk.intake().take(papers(folder.path()));
        const bool isRead = QTest::qWaitFor(
            [&] {
                return !desk.intake().isBusy() && desk.readings().count() == 0
                       && store.documents().size() == 10;
            },
            120'000);
        QTest::qWait(300);
        if (!isRead) {
            state.SkipWithError("the documents are not read");
        }
    }
    state.counters["longestHandlerMs"] = application.longest;
    state.SetLabel(application.where);
}
BENCHMARK(handlersWhileTenDocumentsAreRead)->Unit(benchmark::kMillisecond)->Iterations(1);

} // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    const WatchedApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
