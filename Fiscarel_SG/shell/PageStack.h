#pragma once

#ifndef Q_MOC_RUN
#include "Fiscarel_SG/forms/Page.h"
#include "Fiscarel_SG/look/PageWidget.h"
#include "Fiscarel_SG/look/Theme.h"
#endif

#include <QStackedWidget>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace fiscarel {
class AppStore;
class CloudService;
namespace pages {
class DocumentDesk;
}
} // namespace fiscarel

namespace fiscarel::shell {

/// The pages, of which one is seen. A page is made when it is first wanted; it follows the store
/// while it is seen, and catches up when it is seen again.
class PageStack final : public QStackedWidget {
    Q_OBJECT

  public:
    /// All must outlive it; `cloud` may be null.
    PageStack(AppStore& store, pages::DocumentDesk& desk, CloudService* cloud,
              look::Appearance appearance, QWidget* parent = nullptr);

    /// The page on the screen; empty before the first.
    const QString& page() const noexcept { return page_; }
    /// Puts a page on the screen. `id` is one of `MainWindow::pages`.
    void showPage(const QString& id);
    /// Shows the field at a path of the case and gives it the keyboard; false when the page on the
    /// screen does not have it.
    bool reveal(const std::string& path) { return pageWidget(page_).reveal(path); }
    /// The input pages as data, of the year and region of the store.
    const std::vector<forms::Page>& forms() const noexcept { return forms_; }

    /// The entries changed. Pages are made for a year and a region: another one makes them anew,
    /// and the answer is whether that was so.
    bool entriesChanged();
    void resultChanged();
    /// Makes every page anew in an appearance: charts and marks take their colours when they are
    /// made.
    void setAppearance(look::Appearance appearance);

  Q_SIGNALS:
    /// Another page is on the screen, or the same one for another year, region or appearance.
    void shown(const QString& id);
    void fieldWanted(const QString& path);
    void pageWanted(const QString& id);
    void reasonWanted(const QString& code);
    void documentWanted(const QString& id, const QString& path);
    void undoOffered(const QString& sentence);
    void appearanceWanted(fiscarel::look::Appearance appearance);
    void resetWanted();

  private:
    look::PageWidget* makePage(const QString& id);
    look::PageWidget& pageWidget(const QString& id);
    void rebuild();
    /// The pages follow the entries; whether they are made anew for it.
    bool follow();

    AppStore& store_;
    pages::DocumentDesk& desk_;
    CloudService* cloud_;
    look::Appearance appearance_;
    QString page_;
    std::vector<forms::Page> forms_;
    std::map<QString, look::PageWidget*> widgets_;
    std::map<QString, QStringList> opened_; ///< records open on pages that are to be made anew
    std::set<QString> stale_;               ///< pages that have not seen the last change
    int shownYear_ = 0;
    bool shownLiechtenstein_ = false;
};

} // namespace fiscarel::shell
