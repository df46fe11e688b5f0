#pragma once

#ifndef Q_MOC_RUN
#include "Fiscarel_SG/forms/CardView.h"
#include "Fiscarel_SG/look/PageFrame.h"
#include "Fiscarel_SG/look/PageWidget.h"
#endif

#include <vector>

class QHBoxLayout;
class QLabel;
class QPushButton;

namespace fiscarel::forms {

/// A page that is made of cards.
class FormPage final : public look::PageWidget {
    Q_OBJECT

  public:
    FormPage(Page page, AppStore& store, const PageContext& context, QWidget* parent);

    void refresh() override;
    void refreshResult() override;
    bool reveal(const std::string& path) override;
    QStringList opened() const override;
    void open(const QStringList& records) override;

    const Page& page() const noexcept { return page_; }

  private:
    struct SectionView {
        QWidget* widget = nullptr;
        QLabel* title = nullptr;
        QPushButton* jump = nullptr; ///< at the top of the page; null without a title
        std::vector<CardView*> cards;
    };

    void addSection(const Section& section, const EditorContext& context, QHBoxLayout& jumps);
    void addNext();
    void followKeyboardAndFields();

    const Page page_;
    AppStore& store_;
    look::PageFrame* frame_;
    QWidget* jumps_; ///< links to the sections, while there are several
    std::vector<SectionView> sections_;
};

} // namespace fiscarel::forms
