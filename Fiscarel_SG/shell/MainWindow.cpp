#include "Fiscarel_SG/shell/MainWindow.h"

#include "Fiscarel_SG/AppStore.h"
#include "Fiscarel_SG/cloud/CloudService.h"
#include "Fiscarel_SG/forms/PagePaths.h"
#include "Fiscarel_SG/look/EnterPresses.h"
#include "Fiscarel_SG/look/Icons.h"
#include "Fiscarel_SG/look/KeyboardOrder.h"
#include "Fiscarel_SG/look/QtText.h"
#include "Fiscarel_SG/look/Toast.h"
#include "Fiscarel_SG/pages/documents/DocumentDesk.h"
#include "Fiscarel_SG/pages/documents/DocumentOpener.h"
#include "Fiscarel_SG/shell/PageStack.h"
#include "Fiscarel_SG/shell/ReasonDialog.h"
#include "Fiscarel_SG/shell/SearchDialog.h"
#include "Fiscarel_SG/shell/StartDialog.h"
#include "Fiscarel_SG/shell/TaxBar.h"
#include "Fiscarel_SG/shell/TaxStrip.h"

#include <QApplication>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMessageBox>
#include <QProcess>
#include <QPushButton>
#include <QShortcut>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

namespace fiscarel::shell {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int narrow = 1180; ///< below this width the tax bar gives way

/// Puts the user's appearance in use.
look::Appearance appearanceOf(const Settings& settings) {
    const auto appearance =
        static_cast<look::Appearance>(std::clamp(settings.number("appearance").value_or(0), 0, 2));
    look::Theme::apply(*qobject_cast<QApplication*>(qApp), appearance);
    return appearance;
}

} // namespace

const std::vector<PageEntry>& MainWindow::pages() {
    static const std::vector<PageEntry> entries{
        {u"overview"_s, u"Übersicht"_s,
         u"Steuern Rechnung Vergleich mit dem Vorjahr Spartipps Was wäre, wenn Grenzsteuersatz"_s},
        {u"documents"_s, u"Belege"_s, u"Dokumente PDF Lohnausweis ablegen"_s},
        {u"family"_s, u"Familie"_s, {}},
        {u"income"_s, u"Einkommen"_s, {}},
        {u"work"_s, u"Berufskosten"_s, {}},
        {u"pension"_s, u"Vorsorge"_s, {}},
        {u"other"_s, u"Weitere Abzüge"_s, {}},
        {u"wealth"_s, u"Vermögen"_s, {}},
        {u"review"_s, u"Prüfung"_s, u"Hinweise Fehler Spartipps"_s},
        {u"transfer"_s, u"Übertragen"_s, u"E-Tax SG eTax FL Feld für Feld kopieren abhaken"_s},
        {u"report"_s, u"Bericht"_s, u"PDF drucken Steuererklärung Steuerrechnung"_s},
        {u"account"_s, u"Konto"_s,
         u"Darstellung hell dunkel Sicherung wiederherstellen Export Import Archiv Datenordner "
         "Cloud Abgleich anmelden abmelden Geräte Speicherplatz Wiederherstellungsschlüssel "
         "Konflikte zurücksetzen Lizenzen"_s},
    };
    return entries;
}

MainWindow::MainWindow(AppStore& store, Settings& settings, pages::DocumentDesk& desk,
                       CloudService* cloud, QWidget* parent)
    : QMainWindow(parent), store_(store), settings_(settings), cloud_(cloud),
      appearance_(appearanceOf(settings)), // fonts and colours before the first widget
      sidebar_(new Sidebar(store, cloud, pages(), this)),
      stack_(new PageStack(store, desk, cloud, appearance_, this)), banner_(new QLabel(this)),
      bannerClose_(new QPushButton(u"Verstanden"_s, this)), taxBar_(new TaxBar(store, this)),
      strip_(new TaxStrip(*taxBar_, this)), search_(new SearchDialog(this)),
      reason_(new ReasonDialog(store, this)), toast_(new look::Toast(stack_)),
      opener_(new pages::DocumentOpener(store, desk, this)) {
    setWindowTitle(store.isDemo() ? u"Fiscarel SG – Demohaushalt"_s : u"Fiscarel SG"_s);
    setWindowIcon(look::programIcon());
    setMinimumSize(1000, 640);
    look::setRole(banner_, "banner");
    banner_->setObjectName(u"banner"_s);
    banner_->setWordWrap(true);
    bannerClose_->setObjectName(u"bannerClose"_s);

    auto* const centre = new QWidget(this);
    auto* const line = new QHBoxLayout(centre);
    line->setContentsMargins(0, 0, 0, 0);
    line->setSpacing(0);
    auto* const middle = new QWidget(centre);
    auto* const column = new QVBoxLayout(middle);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    auto* const bannerLine = new QHBoxLayout;
    bannerLine->setContentsMargins(24, 12, 24, 0);
    bannerLine->addWidget(banner_, 1);
    bannerLine->addWidget(bannerClose_);
    column->addLayout(bannerLine);
    column->addWidget(stack_, 1);
    column->addWidget(strip_);
    line->addWidget(sidebar_);
    line->addWidget(middle, 1);
    line->addWidget(taxBar_);
    setCentralWidget(centre);

    connectStore();
    connect(&desk.intake(), &DocumentIntake::replaced, this,
            [this](const QString& former, const QString& now) {
                offerUndo(former == now ? u"«%1» hat jetzt eine andere Datei."_s.arg(now)
                                        : u"«%1» ist durch «%2» ersetzt."_s.arg(former, now));
            });
    addShortcuts();
    restoreWindow();
    showLoadError();
    qApp->installEventFilter(this);
    qApp->installEventFilter(new look::EnterPresses(this));
}

MainWindow::~MainWindow() { qApp->removeEventFilter(this); }

void MainWindow::connectStore() {
    connect(&store_, &AppStore::currentChanged, this, &MainWindow::entriesChanged);
    connect(&store_, &AppStore::documentsChanged, this, &MainWindow::entriesChanged);
    connect(&store_, &AppStore::transferChanged, this, &MainWindow::entriesChanged);
    connect(&store_, &AppStore::unreadChanged, this, &MainWindow::resultChanged);
    connect(&store_, &AppStore::resultChanged, this, &MainWindow::resultChanged);
    connect(&store_, &AppStore::stepTaken, this, &MainWindow::showStep);
    connect(&store_, &AppStore::historyChanged, sidebar_, &Sidebar::refreshHistory);
    connect(&store_, &AppStore::saveStateChanged, sidebar_, &Sidebar::refreshSaveState);
    connect(&store_, &AppStore::loadErrorChanged, this, &MainWindow::showLoadError);
    if (cloud_ != nullptr) {
        connect(cloud_, &CloudService::changed, sidebar_, &Sidebar::refreshCloud);
    }
    connect(bannerClose_, &QPushButton::clicked, this, [this] { store_.dismissLoadError(); });
    connect(sidebar_, &Sidebar::pageWanted, this, &MainWindow::showPage);
    connect(sidebar_, &Sidebar::searchWanted, this, &MainWindow::search);
    connect(sidebar_, &Sidebar::undoWanted, this, &MainWindow::undo);
    connect(sidebar_, &Sidebar::redoWanted, this, &MainWindow::redo);
    connect(sidebar_, &Sidebar::yearWanted, this, &MainWindow::goToYear);
    connect(sidebar_, &Sidebar::regionWanted, this, &MainWindow::moveToRegion);
    connect(stack_, &PageStack::shown, this, &MainWindow::pageShown);
    connect(stack_, &PageStack::fieldWanted, this, &MainWindow::showField);
    connect(stack_, &PageStack::pageWanted, this, &MainWindow::showPage);
    connect(stack_, &PageStack::reasonWanted, this, &MainWindow::showReason);
    connect(stack_, &PageStack::documentWanted, this,
            [this](const QString& id, const QString& path) {
                if (const auto document = taxcore::Uuid::parse(utf8(id))) {
                    opener_->open(*document, utf8(path));
                }
            });
    connect(opener_, &pages::DocumentOpener::told, toast_, &look::Toast::say);
    connect(opener_, &pages::DocumentOpener::fieldWanted, this, &MainWindow::showField);
    connect(opener_, &pages::DocumentOpener::pageWanted, this, &MainWindow::showPage);
    connect(stack_, &PageStack::appearanceWanted, this, &MainWindow::setAppearance);
    connect(stack_, &PageStack::resetWanted, this, &MainWindow::resetYear);
    connect(stack_, &PageStack::undoOffered, this, &MainWindow::offerUndo);
    connect(opener_, &pages::DocumentOpener::undoOffered, this, &MainWindow::offerUndo);
    // It is for the last step: with another one it would undo that.
    connect(&store_, &AppStore::historyChanged, toast_, &look::Toast::withdraw);
    connect(strip_, &TaxStrip::toggled, this, &MainWindow::placeTaxBar);
    connect(taxBar_, &TaxBar::reasonWanted, this, &MainWindow::showReason);
    connect(reason_, &ReasonDialog::fieldWanted, this, &MainWindow::showField);
    connect(search_, &SearchDialog::chosen, this, [this](const SearchEntry& entry) {
        switch (entry.kind) {
        case SearchEntry::Kind::page:
            showPage(qs(entry.target));
            break;
        case SearchEntry::Kind::field:
            showField(qs(entry.target));
            break;
        case SearchEntry::Kind::line:
            showReason(qs(entry.target));
            break;
        case SearchEntry::Kind::document:
            showPage(u"documents"_s);
            break;
        }
    });
}

void MainWindow::addShortcuts() {
    const auto add = [this](const QKeySequence& keys, auto act) {
        auto* const shortcut = new QShortcut(keys, this);
        connect(shortcut, &QShortcut::activated, this, act);
    };
    add(QKeySequence::Undo, [this] { undo(); });
    add(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z), [this] { redo(); });
    add(QKeySequence(Qt::CTRL | Qt::Key_Y), [this] { redo(); });
    add(QKeySequence(Qt::CTRL | Qt::Key_K), [this] { search(); });
    add(QKeySequence::Find, [this] { search(); });
    add(QKeySequence::Quit, [this] { close(); });
    for (QWidget* const widget : std::initializer_list<QWidget*>{taxBar_, strip_}) {
        auto* const shut = new QShortcut(Qt::Key_Escape, widget);
        shut->setContext(Qt::WidgetWithChildrenShortcut);
        connect(shut, &QShortcut::activated, this, [this] { strip_->setChecked(false); });
    }
    for (int i = 0; i < 9; ++i) {
        add(QKeySequence(Qt::CTRL | static_cast<Qt::Key>(Qt::Key_1 + i)),
            [this, i] { showPage(pages()[static_cast<std::size_t>(i)].id); });
    }
}

/// The tax bar follows the room there is; and fields have an undo of their own for what is typed;
/// that of the return goes before it.
bool MainWindow::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize && watched == centralWidget()) {
        placeTaxBar();
    }
    if (event->type() == QEvent::ShortcutOverride && isActiveWindow()) {
        const auto& key = dynamic_cast<QKeyEvent&>(*event);
        if (key.matches(QKeySequence::Undo) || key.matches(QKeySequence::Redo)) {
            event->ignore();
            return true;
        }
    }
    return QMainWindow::eventFilter(watched, event);
}

/// Rows come and go while one types; the keyboard goes through them as they stand now.
bool MainWindow::focusNextPrevChild(bool next) {
    look::orderByLayout(*centralWidget()->layout());
    toast_->joinKeyboardOrder();
    return QMainWindow::focusNextPrevChild(next);
}

const QString& MainWindow::currentPage() const noexcept { return stack_->page(); }

void MainWindow::showPage(const QString& id) {
    const bool known =
        std::ranges::any_of(pages(), [&](const PageEntry& page) { return page.id == id; });
    if (known) {
        stack_->showPage(id);
    }
}

/// What goes with the page on the screen.
void MainWindow::pageShown(const QString& id) {
    sidebar_->setPage(id);
    strip_->setChecked(false);
    taxBar_->beginPage();
    opener_->forget(); // the user went elsewhere
    store_.endMerging();
    if (!store_.isDemo()) {
        settings_.setText("lastPage", utf8(id));
    }
}

bool MainWindow::showField(const QString& path) {
    const forms::Page* const page = forms::pageWithPath(stack_->forms(), utf8(path));
    if (page == nullptr) {
        return false;
    }
    showPage(qs(page->id));
    activateWindow();
    return stack_->reveal(utf8(path));
}

void MainWindow::showReason(const QString& code) {
    if (reason_->explain(utf8(code))) {
        reason_->show();
        reason_->raise();
    }
}

void MainWindow::entriesChanged() {
    if (stack_->entriesChanged()) {
        sidebar_->refresh();
        taxBar_->refresh();
    }
}

void MainWindow::resultChanged() {
    taxBar_->refresh();
    sidebar_->refresh();
    stack_->resultChanged();
}

/// Goes where an undone or repeated edit can be seen; where the page on the screen shows a part of
/// it, that is enough.
void MainWindow::showStep(const std::vector<std::string>& paths) {
    if (paths.empty()) {
        showPage(u"documents"_s);
        return;
    }
    const std::string* best = nullptr;
    for (const std::string& path : paths) {
        const forms::Page* const page = forms::pageWithPath(stack_->forms(), path);
        const bool isHere = page != nullptr && qs(page->id) == currentPage();
        if (isHere || (page != nullptr && best == nullptr)) {
            best = &path;
        }
        if (isHere) {
            break;
        }
    }
    if (best != nullptr) {
        showField(qs(*best));
    }
}

void MainWindow::offerUndo(const QString& sentence) {
    toast_->offer(sentence, u"Rückgängig"_s, [this] { undo(); });
}

void MainWindow::undo() {
    const auto name = store_.undo();
    toast_->say(name ? u"«%1» rückgängig gemacht"_s.arg(qs(*name))
                     : u"Es gibt nichts rückgängig zu machen."_s);
}

void MainWindow::redo() {
    const auto name = store_.redo();
    toast_->say(name ? u"«%1» wiederhergestellt"_s.arg(qs(*name))
                     : u"Es gibt nichts wiederherzustellen."_s);
}

void MainWindow::search() {
    std::vector<forms::Page> all = stack_->forms();
    for (const PageEntry& page : pages()) {
        if (std::ranges::find(stack_->forms(), utf8(page.id), &forms::Page::id)
            == stack_->forms().end()) {
            all.push_back(
                {.id = utf8(page.id), .title = utf8(page.title), .help = utf8(page.words)});
        }
    }
    search_->begin(searchEntries(store_, all));
}

/// A year that begins with the entries of the one before says so: they look like its own.
void MainWindow::goToYear(int year) {
    const bool isCarriedOver = !store_.cases().contains(year) && store_.cases().contains(year - 1);
    store_.setYear(year);
    if (isCarriedOver && store_.cases().contains(year)) {
        toast_->say(u"%1 beginnt mit den Angaben von %2; die Beträge des Jahres sind leer. Spätere "
                    "Änderungen in %2 gehen nicht mehr mit."_s.arg(year)
                        .arg(year - 1));
    }
}

void MainWindow::moveToRegion(bool liechtenstein) {
    const std::string before = store_.current().municipality;
    store_.setRegion(liechtenstein ? taxcore::TaxRegion::liechtenstein
                                   : taxcore::TaxRegion::stGallen);
    if (const std::string& now = store_.current().municipality; now != before) {
        toast_->say(u"Als Gemeinde steht jetzt «%1». Bitte unter «Familie» prüfen."_s.arg(qs(now)));
    }
}

void MainWindow::resetYear() {
    QMessageBox box(QMessageBox::Warning, u"Steuerjahr zurücksetzen"_s,
                    u"Das Steuerjahr %1 zurücksetzen?"_s.arg(store_.year()), QMessageBox::NoButton,
                    this);
    box.setInformativeText(u"Alle Angaben dieses Jahres werden gelöscht. Belege bleiben erhalten. "
                           "Eine Sicherung von heute liegt im Datenordner."_s);
    QPushButton* const reset = box.addButton(u"Zurücksetzen"_s, QMessageBox::DestructiveRole);
    QPushButton* const keep = box.addButton(u"Abbrechen"_s, QMessageBox::RejectRole);
    box.setDefaultButton(keep);
    box.exec();
    if (box.clickedButton() == reset) {
        store_.resetYear();
        toast_->say(u"Zurückgesetzt. Mit Ctrl+Z lässt es sich rückgängig machen."_s);
    }
}

void MainWindow::greet() {
    if (store_.awaitsRecovery()) {
        offerRecovery(store_, this);
    } else if (store_.needsRegionChoice()) {
        auto* const start = new StartDialog(store_, this);
        start->setAttribute(Qt::WA_DeleteOnClose);
        connect(start, &StartDialog::demoWanted, this, [](bool liechtenstein) {
            QStringList arguments{u"-BrennickDemo"_s};
            if (liechtenstein) {
                arguments << u"-BrennickLI"_s;
            }
            QProcess::startDetached(QCoreApplication::applicationFilePath(), arguments);
        });
        connect(start, &StartDialog::begun, this, [this] { showPage(u"family"_s); });
        start->open();
    }
}

void MainWindow::showLoadError() {
    const auto& message = store_.loadError();
    banner_->setVisible(message.has_value());
    bannerClose_->setVisible(message.has_value());
    banner_->setText(message ? qs(*message) : QString());
}

void MainWindow::setAppearance(look::Appearance appearance) {
    appearance_ = appearance;
    settings_.setNumber("appearance", static_cast<int>(appearance));
    applyTheme();
}

void MainWindow::applyTheme() {
    look::Theme::apply(*qobject_cast<QApplication*>(qApp), appearance_);
    sidebar_->refreshTheme();
    taxBar_->refresh();
    stack_->setAppearance(appearance_);
}

void MainWindow::restoreWindow() {
    const int width = settings_.number("windowWidth").value_or(1280);
    const int height = settings_.number("windowHeight").value_or(820);
    resize(std::clamp(width, 1000, 10'000), std::clamp(height, 640, 10'000));
    if (settings_.text("windowMaximized") == "1") {
        setWindowState(Qt::WindowMaximized);
    }
    showPage(qs(settings_.text("lastPage").value_or("")));
    if (currentPage().isEmpty()) {
        showPage(pages().front().id);
    }
}

/// What cannot be read is nowhere but in its field: who leaves now loses it. Whether to leave.
bool MainWindow::leavesUnread() {
    const auto places = store_.unreadPlaces();
    if (store_.isDemo() || places.empty()) {
        return true;
    }
    QMessageBox box(
        QMessageBox::Warning, u"Nicht lesbare Eingaben"_s,
        places.size() == 1
            ? u"Eine Eingabe ist nicht lesbar und wird nicht gespeichert."_s
            : u"%1 Eingaben sind nicht lesbar und werden nicht gespeichert."_s.arg(places.size()),
        QMessageBox::NoButton, this);
    box.setObjectName(u"leavesUnread"_s);
    box.setInformativeText(u"Die bisherigen Werte bleiben gespeichert."_s);
    QPushButton* const leave = box.addButton(u"Trotzdem beenden"_s, QMessageBox::DestructiveRole);
    box.setDefaultButton(box.addButton(u"Zum Feld"_s, QMessageBox::RejectRole));
    box.exec();
    if (box.clickedButton() == leave) {
        return true;
    }
    const auto here = std::ranges::find(places, store_.year(), &UnreadTexts::Place::first);
    const auto& [year, path] = here != places.end() ? *here : places.front();
    store_.setYear(year);
    showField(qs(path));
    return false;
}

void MainWindow::closeEvent(QCloseEvent* event) {
    if (!store_.isDemo()) {
        if (!isMaximized()) {
            settings_.setNumber("windowWidth", width());
            settings_.setNumber("windowHeight", height());
        }
        settings_.setText("windowMaximized", isMaximized() ? "1" : "0");
    }
    const bool isSaved = store_.isDemo() || store_.flush();
    if (!leavesUnread()) {
        event->ignore();
        return;
    }
    if (!isSaved && store_.saveProblem()) {
        QMessageBox box(QMessageBox::Warning, u"Nicht gespeichert"_s, qs(*store_.saveProblem()),
                        QMessageBox::NoButton, this);
        box.setInformativeText(u"Wenn Sie jetzt beenden, gehen die letzten Änderungen verloren."_s);
        QPushButton* const leave =
            box.addButton(u"Trotzdem beenden"_s, QMessageBox::DestructiveRole);
        box.setDefaultButton(box.addButton(u"Zurück"_s, QMessageBox::RejectRole));
        box.exec();
        if (box.clickedButton() != leave) {
            event->ignore();
            return;
        }
    }
    event->accept();
}

/// Who comes back from another program may come from another machine, too. Our own dialogs, which
/// take the window's place for a while, are no going away.
void MainWindow::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() != QEvent::ActivationChange) {
        return;
    }
    if (!isActiveWindow()) {
        isAway_ = QApplication::activeWindow() == nullptr;
    } else if (std::exchange(isAway_, false) && cloud_ != nullptr) {
        cloud_->checkNow();
    }
}

void MainWindow::placeTaxBar() {
    const bool isNarrow = width() < narrow;
    QWidget* const centre = centralWidget();
    strip_->setVisible(isNarrow);
    if (!isNarrow) {
        const QSignalBlocker quiet(strip_);
        strip_->setChecked(false);
        if (centre->layout()->indexOf(taxBar_) < 0) {
            centre->layout()->addWidget(taxBar_);
        }
        taxBar_->show();
        return;
    }
    centre->layout()->removeWidget(taxBar_);
    taxBar_->setVisible(strip_->isChecked());
    taxBar_->setGeometry(centre->width() - taxBar_->width(), 0, taxBar_->width(),
                         centre->height() - strip_->sizeHint().height());
    taxBar_->raise();
}

} // namespace fiscarel::shell
