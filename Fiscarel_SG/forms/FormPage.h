#pragma once

#ifndef Q_MOC_RUN
#include "Fiscarel_SG/forms/CardView.h"
#include "Fiscarel_SG/look/PageFrame.h"
#include "Fiscarel_SG/look/PageWidget.h"
#endif

#include <vector>

class QLabel;

namespace fiscarel::forms {

/// A page that is made of cards.
class FormPage final : public look::PageWidget {
    Q_OBJECT

  public:
    FormPage(Page page, AppStore& store, const PageContext& context, QWidget* parent);

    void refresh() override;
    void refreshResult() override;
    bool reveal(const std::string& path) override;

    const Page& page() const noexcept { return page_; }

  private:
    struct SectionView {
        QWidget* widget = nullptr;
        QLabel* title = nullptr;
        std::vector<CardView*> cards;
    };

    const Page page_;
    AppStore& store_;
    look::PageFrame* frame_;
    std::vector<SectionView> sections_;
};

} // namespace fiscarel::forms
