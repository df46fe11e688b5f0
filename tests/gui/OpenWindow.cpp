#include "tests/gui/OpenWindow.h"

#include <QApplication>
#include <QScrollArea>
#include <QTest>

namespace fiscarel::testing {

using namespace std::chrono_literals;

namespace {

/// Draws every page as white paper.
class WhitePages final : public pages::PageImages {
  public:
    void request(const std::filesystem::path&, int, int width,
                 std::function<void(QImage)> done) override {
        QImage page(width, width * 7 / 5, QImage::Format_RGB32);
        page.fill(Qt::white);
        done(page);
    }
};

} // namespace

OpenWindow::~OpenWindow() {
    window.reset();
    desk.reset();
    store.reset();
}

void OpenWindow::open(LaunchArguments launch) {
    window.reset();
    desk.reset();
    store.reset();
    persistence = launch.demo ? nullptr : std::make_unique<Persistence>(files, clock, root());
    store = std::make_unique<AppStore>(
        AppStore::Services{persistence.get(), queue, clock, timers, settings}, launch);
    const auto readNothing = [](const std::filesystem::path&, const ReadingOptions&) {
        return ScanResult{.text = "leer", .pageCount = 1};
    };
    desk = std::make_unique<pages::DocumentDesk>(
        *store, files, folder.path() / "gelesen",
        readsForReal ? pages::DocumentDesk::usual()
                     : pages::DocumentDesk::Means{scan ? scan : readNothing,
                                                  std::make_unique<WhitePages>()});
    window = std::make_unique<shell::MainWindow>(*store, settings, *desk, cloud);
    window->show();
    window->activateWindow();
    if (!QTest::qWaitForWindowActive(window.get())) {
        throw std::runtime_error("the window does not become active");
    }
}

void OpenWindow::openDemo(taxcore::TaxRegion region) {
    open({.demo = true, .liechtenstein = region == taxcore::TaxRegion::liechtenstein});
}

void OpenWindow::show(taxcore::TaxCase taxCase) {
    store->setCurrent(std::move(taxCase));
    settle();
}

void OpenWindow::settle() {
    timers.advance(1s);
    // As the program's own loop does it; without one they would wait.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
    if (QApplication::activeWindow() == nullptr) {
        window->activateWindow(); // as window managers do when a dialog has gone
    }
    QCoreApplication::processEvents();
}

bool OpenWindow::isShown(const QString& name) const {
    for (const QWidget* const found : window->findChildren<QWidget*>(name)) {
        if (found->isVisible()) {
            return true;
        }
    }
    return false;
}

void OpenWindow::click(QWidget& widget) {
    for (QWidget* at = widget.parentWidget(); at != nullptr; at = at->parentWidget()) {
        if (auto* const area = qobject_cast<QScrollArea*>(at)) {
            QCoreApplication::processEvents(); // the layout first
            area->ensureWidgetVisible(&widget, 0, 20);
        }
    }
    QWidget& top = *widget.window();
    if (!top.isActiveWindow()) {
        top.activateWindow(); // as a click does
        QCoreApplication::processEvents();
    }
    const QPoint at = widget.mapTo(&top, widget.rect().center());
    const QWidget* const hit = top.childAt(at);
    if (hit != &widget && !widget.isAncestorOf(hit)) {
        throw std::runtime_error("cannot be clicked: " + widget.objectName().toStdString());
    }
    QTest::mouseClick(top.windowHandle(), Qt::LeftButton, {}, at);
    QCoreApplication::processEvents();
}

void OpenWindow::type(const QString& text) {
    for (const QChar letter : text) {
        key(*QApplication::focusWidget(), letter); // a key may move the keyboard on
    }
}

/// Umlauts too, for which the test library has no keys.
void OpenWindow::key(QWidget& widget, QChar letter) {
    QTest::sendKeyEvent(QTest::Click, &widget, static_cast<Qt::Key>(letter.toUpper().unicode()),
                        QString(letter), Qt::NoModifier);
}

void OpenWindow::press(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    QCoreApplication::processEvents();
}

void OpenWindow::enter(const QString& path, const QString& text) const {
    click(path);
    type(text);
    press(Qt::Key_Tab);
}

void OpenWindow::choose(const QString& path, const QString& beginning) const {
    find(path).setFocus(Qt::TabFocusReason); // a click would open the list
    type(beginning);
    press(Qt::Key_Tab);
}

bool isInSight(const QWidget& widget) {
    if (!widget.isVisible()) {
        return false;
    }
    for (QWidget* at = widget.parentWidget(); at != nullptr; at = at->parentWidget()) {
        if (const auto* const area = qobject_cast<QAbstractScrollArea*>(at)) {
            const QRect seen = area->viewport()->rect();
            const QPoint corner = widget.mapTo(area->viewport(), QPoint());
            if (!seen.intersects(QRect(corner, widget.size()))) {
                return false;
            }
        }
    }
    return true;
}

} // namespace fiscarel::testing
