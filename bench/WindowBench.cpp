// How long a key stroke takes until the new total stands there, and what starting the window costs
// beside an empty one. The quiet time before a recalculation is not counted. Runs without a screen.

#include "Fiscarel_SG/AppStore.h"
#include "Fiscarel_SG/shell/MainWindow.h"
#include "TaxCore/demo/DemoData.h"
#include "tests/support/FakeServices.h"

#include <benchmark/benchmark.h>
#include <unistd.h>

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QTest>
#include <cstdio>
#include <fstream>
#include <memory>

namespace {

using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;
using namespace fiscarel;

/// Physical memory of the process, in MB.
double residentMegabytes() {
    long total = 0;
    long resident = 0;
    std::ifstream("/proc/self/statm") >> total >> resident;
    return static_cast<double>(resident * sysconf(_SC_PAGESIZE)) / 1e6;
}

/// A store of the demo household, and of ten years before when wanted.
struct Household {
    explicit Household(bool tenYears) {
        settings.setNumber("selectedYear", 2026);
        store =
            std::make_unique<AppStore>(AppStore::Services{nullptr, queue, clock, timers, settings},
                                       LaunchArguments{.demo = true});
        if (tenYears) {
            PersistedState state = store->snapshot();
            for (int year = 2017; year <= 2026; ++year) {
                state.cases[year] = taxcore::DemoData::family(year);
            }
            store->applyRemote(std::move(state));
        }
    }

    fiscarel::testing::FakeClock clock;
    fiscarel::testing::FakeTimers timers;
    fiscarel::testing::InlineQueue queue;
    fiscarel::testing::MemorySettings settings;
    std::unique_ptr<AppStore> store;
};

/// Lets everything be laid out and painted.
void paint() {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
}

/// Sees a widget being painted.
class PaintWatch final : public QObject {
  public:
    explicit PaintWatch(QWidget& widget) { widget.installEventFilter(this); }
    bool seen = false;

  protected:
    bool eventFilter(QObject*, QEvent* event) override {
        seen = seen || event->type() == QEvent::Paint;
        return false;
    }
};

void typingADigit(benchmark::State& state) {
    Household household(false);
    shell::MainWindow window(*household.store, household.settings);
    window.show();
    window.activateWindow();
    if (!QTest::qWaitForWindowActive(&window)
        || !window.showField(u"income1.salaries[0].grossSalary"_s)) {
        state.SkipWithError("no field to type in");
        return;
    }
    auto* const line = window.findChild<QLineEdit*>(u"income1.salaries[0].grossSalary"_s);
    auto* const total = window.findChild<QLabel*>(u"total"_s);
    PaintWatch watch(*total);
    QTest::qWait(300);
    line->end(false);
    bool adds = false;
    for (auto _ : state) {
        const QString before = total->text();
        adds = !adds;
        QTest::keyClick(line, adds ? Qt::Key_1 : Qt::Key_Backspace);
        paint();
        household.timers.advance(AppStore::quietBeforeRecalculation);
        if (total->text() == before) {
            state.SkipWithError("the total stays");
            return;
        }
        watch.seen = false;
        while (!watch.seen) {
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        }
        paint();
    }
}
BENCHMARK(typingADigit)->Unit(benchmark::kMillisecond)->UseRealTime();

void startOfAnEmptyWindow(benchmark::State& state) {
    for (auto _ : state) {
        QMainWindow window;
        window.resize(1280, 820);
        window.show();
        paint();
        window.grab();
    }
}
BENCHMARK(startOfAnEmptyWindow)->Unit(benchmark::kMillisecond)->UseRealTime();

/// The store with ten years, its first calculation, the window and its first picture.
void startWithTenYears(benchmark::State& state) {
    for (auto _ : state) {
        Household household(true);
        shell::MainWindow window(*household.store, household.settings);
        window.show();
        paint();
        window.grab();
    }
}
BENCHMARK(startWithTenYears)->Unit(benchmark::kMillisecond)->UseRealTime();

/// What stays in memory while a window is open; measured once each in a fresh process.
void report(bool whole) {
    std::unique_ptr<Household> household;
    std::unique_ptr<QMainWindow> window;
    if (whole) {
        household = std::make_unique<Household>(true);
        window = std::make_unique<shell::MainWindow>(*household->store, household->settings);
    } else {
        window = std::make_unique<QMainWindow>();
        window->resize(1280, 820);
    }
    window->show();
    paint();
    window->grab();
    std::printf("memory with %s: %.1f MB\n", whole ? "ten years" : "an empty window",
                residentMegabytes());
}

} // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    const QApplication application(argc, argv);
    const QString memory = qEnvironmentVariable("FISCAREL_MEMORY"); // "empty" or "whole"
    if (!memory.isEmpty()) {
        report(memory == u"whole"_s);
        return 0;
    }
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
