// How long a key stroke takes until the new total stands there, and what starting the window costs
// beside an empty one. The quiet time before a recalculation is not counted. Runs without a screen.

#include "Fiscarel_SG/AppStore.h"
#include "Fiscarel_SG/pages/documents/DocumentDesk.h"
#include "Fiscarel_SG/shell/MainWindow.h"
#include "Fiscarel_SG/store/FolderLock.h"
#include "Fiscarel_SG/store/PosixFiles.h"
#include "Fiscarel_SG/store/QtServices.h"
#include "TaxCore/demo/DemoData.h"
#include "bench/FirstPicture.h"
#include "bench/TenYears.h"
#include "tests/support/FakeServices.h"

#include <benchmark/benchmark.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QTest>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

namespace {

using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;
using namespace fiscarel;
namespace fs = std::filesystem;

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
        desk = std::make_unique<pages::DocumentDesk>(*store, files, fs::path());
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
    PosixFiles files;
    std::unique_ptr<pages::DocumentDesk> desk;
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
    shell::MainWindow window(*household.store, household.settings, *household.desk);
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

/// A data folder with ten years in it, and settings of a user who has opened the program before.
const fs::path& home() {
    static const fs::path made = [] {
        fs::path path = fs::current_path() / "window-bench.tmp";
        fs::create_directories(path);
        PosixFiles files;
        const SystemClock clock;
        Persistence persistence(files, clock, path / "data" / "Brennick");
        if (!persistence.save(encodeState(bench::tenYears()))) {
            std::fputs("no data folder\n", stderr);
        }
        return path;
    }();
    return made;
}

/// What the program does from its start until its window is there, then the end of the process.
int startTheProgram(int argc, char** argv) {
    const QApplication application(argc, argv);
    PosixFiles files;
    const SystemClock clock;
    QtTimers timers;
    QtSettings settings;
    const auto lock = FolderLock::acquire(Persistence::defaultRoot());
    Persistence persistence(files, clock);
    fiscarel::testing::InlineQueue queue;
    AppStore store({&persistence, queue, clock, timers, settings}, {});
    if (!lock || store.cases().size() != 10) {
        return 1;
    }
    pages::DocumentDesk desk(store, files, {});
    shell::MainWindow window(store, settings, desk);
    bench::leaveWithFirstPicture(window);
    window.show();
    return QApplication::exec();
}

/// From the start of a process to its end with the first picture.
void start(benchmark::State& state, std::string program, const char* role) {
    ::setenv("XDG_DATA_HOME", (home() / "data").c_str(), 1);
    ::setenv("XDG_CONFIG_HOME", (home() / "config").c_str(), 1);
    ::setenv("FISCAREL_ROLE", role, 1);
    for (auto _ : state) {
        std::array<char*, 2> arguments{program.data(), nullptr};
        pid_t child = 0;
        int status = -1;
        if (::posix_spawn(&child, program.c_str(), nullptr, nullptr, arguments.data(), environ) != 0
            || ::waitpid(child, &status, 0) != child || status != 0) {
            state.SkipWithError("the program does not start");
            return;
        }
    }
}

void startOfAnEmptyWindow(benchmark::State& state) { start(state, FISCAREL_EMPTY_WINDOW, ""); }
BENCHMARK(startOfAnEmptyWindow)->Unit(benchmark::kMillisecond)->UseRealTime();

void startWithTenYears(benchmark::State& state) { start(state, "/proc/self/exe", "program"); }
BENCHMARK(startWithTenYears)->Unit(benchmark::kMillisecond)->UseRealTime();

/// The part of it that is neither process nor libraries: store, window and first picture.
void windowWithTenYears(benchmark::State& state) {
    for (auto _ : state) {
        Household household(true);
        shell::MainWindow window(*household.store, household.settings, *household.desk);
        window.show();
        paint();
        window.grab();
    }
}
BENCHMARK(windowWithTenYears)->Unit(benchmark::kMillisecond)->UseRealTime();

/// What stays in memory while a window is open; measured once each in a fresh process.
void report(bool whole) {
    std::unique_ptr<Household> household;
    std::unique_ptr<QMainWindow> window;
    if (whole) {
        household = std::make_unique<Household>(true);
        window = std::make_unique<shell::MainWindow>(*household->store, household->settings,
                                                     *household->desk);
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
    if (qEnvironmentVariable("FISCAREL_ROLE") == u"program"_s) {
        return startTheProgram(argc, argv);
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
