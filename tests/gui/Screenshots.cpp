// Takes a picture of every page of the demo household:
//   screenshots FOLDER [WIDTH HEIGHT]
// in light and dark; with QT_SCALE_FACTOR set, larger. For docs/screenshots and for looking.

#include "Fiscarel_SG/AppStore.h"
#include "Fiscarel_SG/shell/MainWindow.h"
#include "Fiscarel_SG/store/QtServices.h"
#include "tests/support/FakeServices.h"

#include <QApplication>
#include <QDir>
#include <QPixmap>

using namespace Qt::Literals::StringLiterals;
using namespace fiscarel;

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    const QString folder = arguments.value(1, u"."_s);
    QDir().mkpath(folder);
    const bool liechtenstein = arguments.contains(u"-BrennickLI"_s);
    fiscarel::testing::FakeClock clock;
    clock.moment.seconds += 260 * 86'400; // late in the year, when some tips are still open
    QtTimers timers;
    fiscarel::testing::InlineQueue queue;
    fiscarel::testing::MemorySettings settings;
    settings.setNumber("selectedYear", 2026);
    AppStore store({nullptr, queue, clock, timers, settings},
                   {.demo = true, .liechtenstein = liechtenstein});
    for (const auto appearance : {shell::Appearance::light, shell::Appearance::dark}) {
        settings.setNumber("appearance", static_cast<int>(appearance));
        shell::MainWindow window(store, settings);
        window.resize(arguments.value(2, u"1280"_s).toInt(), arguments.value(3, u"820"_s).toInt());
        window.show();
        for (const auto& page : shell::MainWindow::pages()) {
            window.showPage(page.id);
            QApplication::processEvents();
            QApplication::processEvents();
            window.grab().save(u"%1/%2-%3%4.png"_s.arg(
                folder, page.id, appearance == shell::Appearance::light ? u"light"_s : u"dark"_s,
                liechtenstein ? u"-li"_s : QString()));
        }
    }
    return 0;
}
