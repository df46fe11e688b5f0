#pragma once

#ifndef Q_MOC_RUN
#include "Fiscarel_SG/look/Theme.h"
#include "Fiscarel_SG/shell/Sidebar.h"
#endif

#include <QMainWindow>
#include <string>
#include <vector>

class QLabel;
class QPushButton;

namespace fiscarel {
class AppStore;
class CloudService;
class Settings;
namespace look {
class Toast;
}
namespace pages {
class DocumentDesk;
class DocumentOpener;
} // namespace pages
} // namespace fiscarel

namespace fiscarel::shell {

class PageStack;
class ReasonDialog;
class SearchDialog;
class TaxBar;
class TaxStrip;

/// The window: sidebar, one page, tax bar.
class MainWindow final : public QMainWindow {
    Q_OBJECT

  public:
    /// All must outlive it; without `cloud` there is no encrypted backup in this start.
    MainWindow(AppStore& store, Settings& settings, pages::DocumentDesk& desk,
               CloudService* cloud = nullptr, QWidget* parent = nullptr);
    ~MainWindow() override;
    MainWindow(const MainWindow&) = delete;
    MainWindow& operator=(const MainWindow&) = delete;
    MainWindow(MainWindow&&) = delete;
    MainWindow& operator=(MainWindow&&) = delete;

    /// The ids of the pages in the order of the sidebar.
    static const std::vector<PageEntry>& pages();

    void showPage(const QString& id);
    const QString& currentPage() const noexcept;
    /// Shows the field at a path of the case, on whichever page it stands.
    bool showField(const QString& path);
    void showReason(const QString& code);
    void setAppearance(look::Appearance appearance);
    /// Asks what a first start has to ask, and offers a backup where the data did not load.
    void greet();

  protected:
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    bool focusNextPrevChild(bool next) override;

  private:
    void connectStore();
    void addShortcuts();
    void pageShown(const QString& id);
    void entriesChanged();
    void resultChanged();
    void showStep(const std::vector<std::string>& paths);
    void offerUndo(const QString& sentence);
    void undo();
    void redo();
    void search();
    void goToYear(int year);
    void moveToRegion(bool liechtenstein);
    void resetYear();
    void showLoadError();
    bool leavesUnread();
    void restoreWindow();
    void applyTheme();
    /// Beside the page where there is room, else a strip below it that opens it above the page.
    void placeTaxBar();

    AppStore& store_;
    Settings& settings_;
    CloudService* cloud_;
    bool isAway_ = true; ///< no window of the program has the keyboard
    look::Appearance appearance_;
    Sidebar* sidebar_;
    PageStack* stack_;
    QLabel* banner_;
    QPushButton* bannerClose_;
    TaxBar* taxBar_;
    TaxStrip* strip_;
    SearchDialog* search_;
    ReasonDialog* reason_;
    look::Toast* toast_;
    pages::DocumentOpener* opener_;
};

} // namespace fiscarel::shell
