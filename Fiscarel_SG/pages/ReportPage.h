#pragma once

#ifndef Q_MOC_RUN
#include "Fiscarel_SG/look/PageFrame.h"
#include "Fiscarel_SG/look/PageWidget.h"
#endif

class QVBoxLayout;

namespace fiscarel {
class AppStore;
}

namespace fiscarel::pages {

/// The whole computation on one page, section by section; every line is a door to its reason.
class ReportPage final : public look::PageWidget {
    Q_OBJECT

  public:
    ReportPage(AppStore& store, QWidget* parent);

    void refresh() override {}
    void refreshResult() override;

  private:
    void addSection(QVBoxLayout& column, const struct ReportSection& rows);
    QWidget* makeDoor(const struct ReportRow& row, QWidget* parent);

    AppStore& store_;
    look::PageFrame* frame_;
    QWidget* content_ = nullptr;
};

} // namespace fiscarel::pages
