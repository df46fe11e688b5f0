#pragma once

#include "Fiscarel_SG/AppStore.h"
#include "Fiscarel_SG/cloud/CloudService.h"
#include "Fiscarel_SG/pages/documents/DocumentDesk.h"
#include "Fiscarel_SG/shell/MainWindow.h"
#include "Fiscarel_SG/store/PosixFiles.h"
#include "tests/support/FakeServices.h"
#include "tests/support/TemporaryFolder.h"

#include <QString>
#include <QWidget>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace fiscarel::testing {

/// The window as a user has it, on a data folder of its own, and the user's hands: clicks go to
/// whatever lies at the point clicked, keys to whatever has the keyboard. Time passes when told.
class OpenWindow {
  public:
    OpenWindow() = default;
    ~OpenWindow();
    OpenWindow(const OpenWindow&) = delete;
    OpenWindow& operator=(const OpenWindow&) = delete;

    /// Starts the program; without demo on what lies in the folder.
    void open(LaunchArguments launch = {});
    void openDemo(taxcore::TaxRegion region);
    /// Replaces the case that is seen.
    void show(taxcore::TaxCase taxCase);
    /// Lets what is pending be computed, saved and painted, and what is to be deleted go.
    void settle();

    std::filesystem::path root() const { return folder.path() / "Brennick"; }

    /// The visible widget of a name, in the window or one of its dialogs; throws without one.
    template <class Widget = QWidget>
    Widget& find(const QString& name) const {
        for (Widget* const found : window->findChildren<Widget*>(name)) {
            if (found->isVisible()) {
                return *found;
            }
        }
        throw std::runtime_error("nothing to be seen is called " + name.toStdString());
    }
    bool isShown(const QString& name) const;

    /// Scrolls there and clicks; throws when something else lies there.
    void click(const QString& name) const { click(find(name)); }
    static void click(QWidget& widget);
    /// Keys to what has the keyboard.
    static void type(const QString& text);
    static void key(QWidget& widget, QChar letter);
    static void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    /// Goes to a field, types and leaves it by the tabulator.
    void enter(const QString& path, const QString& text) const;
    /// Chooses what begins with a text, by the keyboard.
    void choose(const QString& path, const QString& beginning) const;

    TemporaryFolder folder;
    PosixFiles files;
    FakeClock clock;
    FakeTimers timers;
    InlineQueue queue;
    MemorySettings settings;
    std::unique_ptr<Persistence> persistence;
    std::unique_ptr<AppStore> store;
    DocumentReadings::Scan scan; ///< how documents are read; empty pages unless set before `open`
    bool readsForReal = false;   ///< with the reading process instead; set before `open`
    std::unique_ptr<pages::DocumentDesk> desk;
    CloudService* cloud = nullptr; ///< of the window; set it before `open`
    std::unique_ptr<shell::MainWindow> window;
};

/// Whether a widget lies within what its scroll areas show.
bool isInSight(const QWidget& widget);

} // namespace fiscarel::testing
