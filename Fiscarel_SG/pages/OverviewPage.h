#pragma once

#ifndef Q_MOC_RUN
#include "Fiscarel_SG/look/PageFrame.h"
#include "Fiscarel_SG/look/PageWidget.h"
#endif

namespace fiscarel {
class AppStore;
}

namespace fiscarel::pages {

class BillCard;
class ChangeCard;
class CurveCard;
class MessageCard;
class ProgressCard;
class StepsCard;
class TipsCard;
class WhatIfCard;

/// The bill and its parts, what changed against last year, how far one is, the best tips, and what
/// would be if.
class OverviewPage final : public look::PageWidget {
    Q_OBJECT

  public:
    OverviewPage(AppStore& store, QWidget* parent);

    void refresh() override;
    void refreshResult() override;

  private:
    template <class Card>
    Card* add(Card* card);
    void connectCards();
    /// Which cards there is something to say in.
    void showCards();

    AppStore& store_;
    look::PageFrame* frame_;
    MessageCard* untouched_;
    MessageCard* withoutRules_;
    BillCard* bill_;
    StepsCard* steps_;
    ProgressCard* progress_;
    ChangeCard* change_;
    TipsCard* tips_;
    WhatIfCard* whatIf_;
    CurveCard* curve_;
};

} // namespace fiscarel::pages
