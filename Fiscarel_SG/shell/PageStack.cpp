#include "Fiscarel_SG/shell/PageStack.h"

#include "Fiscarel_SG/AppStore.h"
#include "Fiscarel_SG/forms/FormPage.h"
#include "Fiscarel_SG/forms/PagePaths.h"
#include "Fiscarel_SG/look/PageFrame.h"
#include "Fiscarel_SG/look/QtText.h"
#include "Fiscarel_SG/pages/AccountPage.h"
#include "Fiscarel_SG/pages/DocumentsPage.h"
#include "Fiscarel_SG/pages/InputPages.h"
#include "Fiscarel_SG/pages/OverviewPage.h"
#include "Fiscarel_SG/pages/ReportPage.h"
#include "Fiscarel_SG/pages/ReviewPage.h"
#include "Fiscarel_SG/pages/TransferPage.h"

#include <algorithm>
#include <utility>

namespace fiscarel::shell {

using namespace Qt::Literals::StringLiterals;

namespace {

bool isLiechtenstein(const AppStore& store) {
    return store.current().taxRegion() == taxcore::TaxRegion::liechtenstein;
}

} // namespace

PageStack::PageStack(AppStore& store, pages::DocumentDesk& desk, CloudService* cloud,
                     look::Appearance appearance, QWidget* parent)
    : QStackedWidget(parent), store_(store), desk_(desk), cloud_(cloud), appearance_(appearance) {
    rebuild();
}

look::PageWidget* PageStack::makePage(const QString& id) {
    const auto form = std::ranges::find(forms_, utf8(id), &forms::Page::id);
    if (form != forms_.end()) {
        return new forms::FormPage(*form, store_, pages::pageContext(store_), this);
    }
    if (id == u"review"_s) {
        return new pages::ReviewPage(store_, this);
    }
    if (id == u"documents"_s) {
        return new pages::DocumentsPage(store_, desk_, this);
    }
    if (id == u"transfer"_s) {
        return new pages::TransferPage(store_, this);
    }
    if (id == u"report"_s) {
        return new pages::ReportPage(store_, this);
    }
    if (id == u"account"_s) {
        auto* const page = new pages::AccountPage(store_, cloud_, appearance_, this);
        connect(page, &pages::AccountPage::appearanceWanted, this, &PageStack::appearanceWanted);
        connect(page, &pages::AccountPage::resetWanted, this, &PageStack::resetWanted);
        return page;
    }
    return new pages::OverviewPage(store_, this);
}

look::PageWidget& PageStack::pageWidget(const QString& id) {
    const auto found = widgets_.find(id);
    look::PageWidget* widget = found != widgets_.end() ? found->second : nullptr;
    if (widget == nullptr) {
        // While it is made the store may speak, and what listens must not find half a page.
        widget = makePage(id);
        widgets_[id] = widget;
        widget->setObjectName(u"page:"_s + id);
        connect(widget, &look::PageWidget::fieldWanted, this, &PageStack::fieldWanted);
        connect(widget, &look::PageWidget::pageWanted, this, &PageStack::pageWanted);
        connect(widget, &look::PageWidget::reasonWanted, this, &PageStack::reasonWanted);
        connect(widget, &look::PageWidget::documentWanted, this, &PageStack::documentWanted);
        connect(widget, &look::PageWidget::undoOffered, this, &PageStack::undoOffered);
        addWidget(widget);
        if (const auto opened = opened_.extract(id)) {
            widget->open(opened.mapped());
        }
    } else if (stale_.contains(id)) {
        widget->refresh();
        widget->refreshResult();
    }
    stale_.erase(id);
    return *widget;
}

void PageStack::showPage(const QString& id) {
    const bool another = id != page_;
    page_ = id;
    setCurrentWidget(&pageWidget(id));
    if (another) {
        Q_EMIT shown(id);
    }
}

void PageStack::rebuild() {
    shownYear_ = store_.year();
    shownLiechtenstein_ = isLiechtenstein(store_);
    forms_ = pages::inputPages(pages::pageContext(store_));
    const auto frame = [this] {
        return currentWidget() != nullptr ? currentWidget()->findChild<look::PageFrame*>()
                                          : nullptr;
    };
    const int position = frame() != nullptr ? frame()->position() : 0;
    for (auto& [id, widget] : widgets_) {
        opened_[id] = widget->opened();
        widget->hide(); // what is being typed is settled before another page shows it
        removeWidget(widget);
        widget->deleteLater();
    }
    widgets_.clear();
    stale_.clear();
    if (const QString again = std::exchange(page_, {}); !again.isEmpty()) {
        showPage(again);
    }
    if (auto* const made = frame()) {
        made->setPosition(position);
    }
}

bool PageStack::entriesChanged() {
    const bool isRebuilt = follow();
    store_.showUnread(
        [this](const std::string& path) { return forms::isShown(forms_, path, store_.current()); });
    return isRebuilt;
}

bool PageStack::follow() {
    if (store_.year() != shownYear_ || isLiechtenstein(store_) != shownLiechtenstein_) {
        rebuild();
        return true;
    }
    for (const auto& [id, widget] : widgets_) {
        stale_.insert(id);
    }
    if (const auto found = widgets_.find(page_); found != widgets_.end()) {
        found->second->refresh();
    }
    return false;
}

void PageStack::resultChanged() {
    for (const auto& [id, widget] : widgets_) {
        if (id != page_) {
            stale_.insert(id);
        }
    }
    if (const auto found = widgets_.find(page_); found != widgets_.end()) {
        found->second->refreshResult();
        stale_.erase(page_);
    }
}

void PageStack::setAppearance(look::Appearance appearance) {
    appearance_ = appearance;
    rebuild();
}

} // namespace fiscarel::shell
