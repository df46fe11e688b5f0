#pragma once

#ifndef Q_MOC_RUN
#include "Fiscarel_SG/look/PageFrame.h"
#include "Fiscarel_SG/look/PageWidget.h"
#include "TaxCore/result/TaxResult.h"
#endif

#include <vector>

class QVBoxLayout;

namespace fiscarel {
class AppStore;
}

namespace fiscarel::pages {

/// What is to be looked at, what saves tax, and what is not computed.
class ReviewPage final : public look::PageWidget {
    Q_OBJECT

  public:
    ReviewPage(AppStore& store, QWidget* parent);

    void refresh() override {}
    void refreshResult() override;

  private:
    void addCard(const QString& title, const QString& help,
                 const std::vector<taxcore::Notice>& notices);
    void addNotice(const taxcore::Notice& notice, QVBoxLayout& column);

    AppStore& store_;
    look::PageFrame* frame_;
    QWidget* content_ = nullptr;
    std::vector<taxcore::Notice> shownNotices_;
    std::vector<taxcore::Notice> shownTips_;
};

} // namespace fiscarel::pages
