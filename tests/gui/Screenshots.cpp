// Takes a picture of every page of the demo household, in light and dark:
//   screenshots FOLDER [WIDTH HEIGHT] [-BrennickLI] [-all]
// With QT_SCALE_FACTOR set, larger. "-all" also takes what one has to scroll or click for: the rest
// of each page, opened rows, help, problems, dialogs, a case without entries, very long texts. It
// tells which pages are wider than the window.

#include "Fiscarel_SG/AppStore.h"
#include "Fiscarel_SG/forms/FieldRow.h"
#include "Fiscarel_SG/look/SwissGerman.h"
#include "Fiscarel_SG/pages/documents/DocumentDesk.h"
#include "Fiscarel_SG/shell/MainWindow.h"
#include "Fiscarel_SG/shell/ReasonDialog.h"
#include "Fiscarel_SG/shell/SearchDialog.h"
#include "Fiscarel_SG/shell/StartDialog.h"
#include "Fiscarel_SG/store/PosixFiles.h"
#include "Fiscarel_SG/store/QtServices.h"
#include "tests/support/FakeServices.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QDir>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPixmap>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>
#include <cstdint>
#include <cstdio>

using namespace Qt::Literals::StringLiterals;
using namespace fiscarel;

namespace {

/// The window and where its pictures go.
struct Camera {
    AppStore& store;
    shell::MainWindow& window;
    QString folder;
    QString suffix; ///< "-light", "-dark-li"

    static void settle() {
        for (int i = 0; i < 5; ++i) {
            QApplication::processEvents();
        }
    }
    void take(const QString& name) const { take(window, name); }
    void take(QWidget& widget, const QString& name) const {
        settle();
        widget.grab().save(u"%1/%2%3.png"_s.arg(folder, name, suffix));
    }
    QScrollArea* scroll() const {
        auto* const page = window.findChild<QWidget*>(u"page:"_s + window.currentPage());
        return page->findChild<QScrollArea*>();
    }
    void show(const QString& page) const {
        window.showPage(page);
        settle();
        if (auto* const save = window.findChild<QPushButton*>(u"saveReport"_s)) {
            (void)QTest::qWaitFor([&] { return !save->isVisible() || save->isEnabled(); });
            settle();
        }
        if (scroll()->horizontalScrollBar()->maximum() > 0) {
            std::printf("wider than the window: %s%s\n", qPrintable(page), qPrintable(suffix));
        }
    }
    void pages(const QString& prefix = {}) const {
        for (const auto& page : shell::MainWindow::pages()) {
            show(page.id);
            take(prefix + page.id);
        }
    }
    void restOfPages() const {
        for (const auto& page : shell::MainWindow::pages()) {
            show(page.id);
            QScrollBar& bar = *scroll()->verticalScrollBar();
            for (int part = 2; bar.value() < bar.maximum(); ++part) {
                bar.setValue(bar.value() + bar.pageStep());
                take(u"%1-%2"_s.arg(page.id).arg(part));
            }
            bar.setValue(0);
        }
    }
    QWidget* find(const QString& name) const {
        for (QWidget* const widget : window.findChildren<QWidget*>(name)) {
            if (widget->isVisible()) {
                return widget;
            }
        }
        std::printf("not there: %s\n", qPrintable(name));
        return nullptr;
    }
    void open(const QString& page, const QString& list) const {
        show(page);
        if (auto* const head = dynamic_cast<QPushButton*>(find(u"open:"_s + list + u"[0]"_s))) {
            head->click();
            settle();
            scroll()->ensureWidgetVisible(head, 0, 0);
            scroll()->verticalScrollBar()->setValue(head->mapTo(scroll()->widget(), QPoint()).y()
                                                    - 60);
            take(page + u"-open"_s);
        }
    }
    /// Types something nobody can read, with the help open.
    void problem(const QString& page, const QString& path, const QString& text) const {
        show(page);
        if (!window.showField(path)) {
            return;
        }
        const taxcore::TaxCase before = store.current();
        auto* const line = dynamic_cast<QLineEdit*>(find(path));
        line->selectAll();
        QTest::keyClicks(line, text);
        QTest::keyClick(line, Qt::Key_Tab);
        for (auto* const row : window.findChildren<forms::FieldRow*>()) {
            row->showHelp(row->isVisible() && row->field().path == path.toStdString());
        }
        take(page + u"-problem"_s);
        while (!(store.current() == before) && store.undo()) { // some take any text
        }
    }
    /// Takes a record away, which a message offers back.
    void removal() const {
        show(u"wealth"_s);
        if (auto* const head = dynamic_cast<QPushButton*>(find(u"open:debts[0]"_s))) {
            head->click();
            settle();
            dynamic_cast<QPushButton*>(find(u"remove:debts[0]"_s))->click();
            take(u"wealth-removed"_s);
            store.undo();
        }
    }
    void dialogs() const {
        for (const QString& code : {u"cantonTotal"_s, u"steuerbaresEinkommen"_s, u"650"_s}) {
            window.showReason(code);
            auto& reason = *window.findChild<shell::ReasonDialog*>();
            if (reason.isVisible()) {
                take(reason, u"reason-"_s + code);
                reason.reject();
            }
        }
        window.activateWindow();
        settle();
        QTest::keyClick(&window, Qt::Key_K, Qt::ControlModifier);
        if (auto& search = *window.findChild<shell::SearchDialog*>(); search.isVisible()) {
            QTest::keyClicks(search.findChild<QLineEdit*>(), u"lohn"_s);
            take(search, u"search"_s);
            search.reject();
        }
        shell::StartDialog start(store, &window);
        start.show();
        take(start, u"start"_s);
    }
    void table() const {
        window.activateWindow();
        show(u"wealth"_s);
        scroll()->verticalScrollBar()->setValue(0);
        settle();
        if (auto* const table = dynamic_cast<QAbstractItemView*>(find(u"table:securities"_s))) {
            const QModelIndex last = table->model()->index(table->model()->rowCount() - 1, 0);
            QTest::mouseClick(table->viewport(), Qt::LeftButton, {},
                              table->visualRect(last).center());
            if (auto* const cell = qobject_cast<QLineEdit*>(QApplication::focusWidget())) {
                QTest::keyClicks(cell, u"Kantonalbank"_s);
                take(u"wealth-cell"_s);
                QTest::keyClick(cell, Qt::Key_Tab);
                take(u"wealth-next-cell"_s);
            }
            scroll()->verticalScrollBar()->setValue(0);
            table->horizontalScrollBar()->setValue(table->horizontalScrollBar()->maximum());
            take(u"wealth-right"_s);
            store.undo();
        }
    }
    /// The page keeps its place when the year changes.
    void otherYear() const {
        const int year = store.year();
        show(u"wealth"_s);
        scroll()->verticalScrollBar()->setValue(400);
        store.setYear(year - 1);
        QTest::qWait(300);
        take(u"wealth-year-before"_s);
        if (scroll()->verticalScrollBar()->value() != 400) {
            std::printf("lost its place: %d\n", scroll()->verticalScrollBar()->value());
        }
        store.setYear(year);
        QTest::qWait(300);
        if (scroll()->verticalScrollBar()->value() != 400) {
            std::printf("lost its place: %d\n", scroll()->verticalScrollBar()->value());
        }
    }
    void narrowBar() const {
        if (auto* const strip = window.findChild<QPushButton*>(u"taxStrip"_s);
            strip != nullptr && strip->isVisible()) {
            show(u"income"_s);
            strip->click();
            take(u"bar-open"_s);
            strip->click();
        }
    }
};

taxcore::TaxCase withLongTexts(taxcore::TaxCase taxCase) {
    const std::string words = "Donaudampfschifffahrtsgesellschaftskapitänswitwenrentenkasse der "
                              "Gemeinnützigen Genossenschaft Oberwerdenberg und Umgebung";
    taxCase.person1.firstName = "Maria-Magdalena Annemarie";
    taxCase.person1.lastName = "von Hohenwerdenberg-Sargans-Vaduz-Obertoggenburg";
    for (auto& salary : taxCase.income1.salaries) {
        salary.employer = words;
    }
    for (auto& security : taxCase.securities) {
        security.institution = words;
    }
    for (auto& child : taxCase.children) {
        child.lastName = words;
    }
    for (auto& debt : taxCase.debts) {
        debt.creditor = words;
    }
    return taxCase;
}

/// Of a new year after one with entries: nothing entered, last year's values as hints.
void emptyYear(const Camera& camera) {
    const taxcore::TaxCase demo = camera.store.current();
    taxcore::TaxCase empty;
    empty.year = demo.year;
    empty.region = demo.region;
    taxcore::TaxCase before = demo;
    before.year = demo.year - 1;
    camera.store.setYear(before.year);
    camera.store.setCurrent(before);
    camera.store.setYear(demo.year);
    camera.store.setCurrent(empty);
    QTest::qWait(300);
    camera.pages(u"empty-"_s);
    camera.show(u"family"_s);
    QTest::keyClick(camera.find(u"civilStatus"_s), Qt::Key_Tab);
    camera.store.setCurrent(withLongTexts(demo));
    QTest::qWait(300);
    camera.pages(u"long-"_s);
    camera.store.setCurrent(demo);
    QTest::qWait(300);
}

void everything(const Camera& camera, bool liechtenstein) {
    camera.restOfPages();
    camera.open(u"income"_s, u"income1.salaries"_s);
    camera.open(u"family"_s, u"children"_s);
    camera.open(u"wealth"_s, u"realEstate"_s);
    camera.problem(u"income"_s, u"income1.selfEmployment"_s, u"tausend Franken"_s);
    camera.problem(u"family"_s, u"municipality"_s, u"Oberwerdenbergshausen"_s);
    camera.dialogs();
    camera.table();
    camera.removal();
    camera.narrowBar();
    camera.otherYear();
    if (!liechtenstein) {
        emptyYear(camera);
    }
}

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QApplication::setApplicationVersion(QStringLiteral(FISCAREL_VERSION));
    look::speakSwissGerman(application);
    const QStringList arguments = QApplication::arguments();
    const QString folder = arguments.value(1, u"."_s);
    QDir().mkpath(folder);
    const bool liechtenstein = arguments.contains(u"-BrennickLI"_s);
    fiscarel::testing::FakeClock clock;
    clock.moment.seconds +=
        std::int64_t{260} * 86'400; // late in the year, when some tips are still open
    QtTimers timers;
    fiscarel::testing::InlineQueue queue;
    fiscarel::testing::MemorySettings settings;
    settings.setNumber("selectedYear", 2026);
    AppStore store({nullptr, queue, clock, timers, settings},
                   {.demo = true, .liechtenstein = liechtenstein});
    const int width = arguments.value(2).toInt();
    const int height = arguments.value(3).toInt();
    PosixFiles files;
    pages::DocumentDesk desk(store, files, {});
    for (const auto appearance : {look::Appearance::light, look::Appearance::dark}) {
        settings.setNumber("appearance", static_cast<int>(appearance));
        shell::MainWindow window(store, settings, desk);
        window.resize(width > 0 ? width : 1280, height > 0 ? height : 820);
        window.show();
        const Camera camera{store, window, folder,
                            (appearance == look::Appearance::light ? u"-light"_s : u"-dark"_s)
                                + (liechtenstein ? u"-li"_s : QString())};
        camera.pages();
        if (arguments.contains(u"-all"_s)) {
            everything(camera, liechtenstein);
        }
    }
    return 0;
}
