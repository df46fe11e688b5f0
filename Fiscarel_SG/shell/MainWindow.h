#pragma once

#ifndef Q_MOC_RUN
#include "Fiscarel_SG/forms/Page.h"
#include "Fiscarel_SG/look/PageWidget.h"
#include "Fiscarel_SG/look/Theme.h"
#include "Fiscarel_SG/shell/Sidebar.h"
#endif

#include <QMainWindow>
#include <map>
#include <set>
#include <string>
#include <vector>

class QLabel;
class QPushButton;
class QStackedWidget;

namespace fiscarel {
class AppStore;
class Settings;
} // namespace fiscarel

namespace fiscarel::shell {

class ReasonDialog;
class SearchDialog;
class TaxBar;
class TaxStrip;

/// The window: sidebar, one page, tax bar. Makes a page when it is first wanted and keeps it in
/// step with the store.
class MainWindow final : public QMainWindow {
    Q_OBJECT

  public:
    MainWindow(AppStore& store, Settings& settings, QWidget* parent = nullptr);
    ~MainWindow() override;
    MainWindow(const MainWindow&) = delete;
    MainWindow& operator=(const MainWindow&) = delete;
    MainWindow(MainWindow&&) = delete;
    MainWindow& operator=(MainWindow&&) = delete;

    /// The ids of the pages in the order of the sidebar.
    static const std::vector<PageEntry>& pages();

    void showPage(const QString& id);
    const QString& currentPage() const noexcept { return page_; }
    /// Shows the field at a path of the case, on whichever page it stands.
    bool showField(const QString& path);
    void showReason(const QString& code);
    void setAppearance(look::Appearance appearance);
    /// Asks what a first start has to ask, and offers a backup where the data did not load.
    void greet();

  protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    bool focusNextPrevChild(bool next) override;

  private:
    look::PageWidget* makePage(const QString& id);
    look::PageWidget& pageWidget(const QString& id);
    void connectStore();
    void addShortcuts();
    void rebuildPages();
    /// The entries changed: the page that is seen follows now, the others when they are.
    void entriesChanged();
    void resultChanged();
    void undo();
    void redo();
    void search();
    void resetYear();
    void showLoadError();
    void restoreWindow();
    void applyTheme();
    /// Beside the page where there is room, else a strip below it that opens it above the page.
    void placeTaxBar();
    forms::PageContext context() const;

    AppStore& store_;
    Settings& settings_;
    look::Appearance appearance_;
    Sidebar* sidebar_;
    QStackedWidget* stack_;
    QLabel* banner_;
    QPushButton* bannerClose_;
    TaxBar* taxBar_;
    TaxStrip* strip_;
    SearchDialog* search_;
    ReasonDialog* reason_;
    QString page_;
    std::vector<forms::Page> forms_;
    std::map<QString, look::PageWidget*> widgets_;
    std::set<QString> stale_; ///< pages that have not seen the last change
    int shownYear_ = 0;
    bool shownLiechtenstein_ = false;
};

} // namespace fiscarel::shell
