#pragma once

#ifndef Q_MOC_RUN
#include "Fiscarel_SG/shell/PageFrame.h"
#include "Fiscarel_SG/shell/PageWidget.h"
#endif

namespace fiscarel {
class AppStore;
}

namespace fiscarel::pages {

/// The bill and its parts, what changed against last year, how far one is, the best tips, and what
/// would be if.
class OverviewPage final : public shell::PageWidget {
    Q_OBJECT

  public:
    OverviewPage(AppStore& store, QWidget* parent);

    void refresh() override;
    void refreshResult() override;

  private:
    AppStore& store_;
    shell::PageFrame* frame_;
};

} // namespace fiscarel::pages
