#include "Fiscarel_SG/pages/OverviewPage.h"

#include "Fiscarel_SG/AppStore.h"
#include "Fiscarel_SG/look/KeyboardOrder.h"
#include "Fiscarel_SG/pages/overview/BillCard.h"
#include "Fiscarel_SG/pages/overview/ChangeCard.h"
#include "Fiscarel_SG/pages/overview/CurveCard.h"
#include "Fiscarel_SG/pages/overview/MessageCard.h"
#include "Fiscarel_SG/pages/overview/Progress.h"
#include "Fiscarel_SG/pages/overview/ProgressCard.h"
#include "Fiscarel_SG/pages/overview/StepsCard.h"
#include "Fiscarel_SG/pages/overview/TipsCard.h"
#include "Fiscarel_SG/pages/overview/WhatIfCard.h"

#include <QPushButton>
#include <QVBoxLayout>

namespace fiscarel::pages {

using namespace Qt::Literals::StringLiterals;

template <class Card>
Card* OverviewPage::add(Card* card) {
    frame_->column().addWidget(card);
    return card;
}

OverviewPage::OverviewPage(AppStore& store, QWidget* parent)
    : PageWidget(parent), store_(store),
      frame_(new look::PageFrame(
          u"Übersicht"_s, u"Was Sie bezahlen, was sich geändert hat und was noch zu tun ist."_s,
          this)),
      untouched_(add(new MessageCard(u"Noch nichts eingetragen"_s, this))),
      withoutRules_(add(new MessageCard(u"Keine Berechnung"_s, this))),
      bill_(add(new BillCard(this))), steps_(add(new StepsCard(this))),
      progress_(add(new ProgressCard(this))), change_(add(new ChangeCard(this))),
      tips_(add(new TipsCard(this))), whatIf_(add(new WhatIfCard(store, this))),
      curve_(add(new CurveCard(this))) {
    frame_->column().addStretch(1);
    connectCards();
    refreshResult();
}

void OverviewPage::connectCards() {
    const auto leadTo = [this](MessageCard* card, const QString& text, const QString& page) {
        connect(card->addButton(text, u"begin:"_s + page), &QPushButton::clicked, this,
                [this, page] { Q_EMIT pageWanted(page); });
    };
    untouched_->setText(u"Beginnen Sie mit der Familie: Zivilstand, Personen und Gemeinde. Oder "
                        "legen Sie zuerst Ihre Belege ab. Die Steuern stehen hier, sobald es "
                        "etwas zu rechnen gibt."_s);
    leadTo(untouched_, u"Mit der Familie beginnen"_s, u"family"_s);
    leadTo(untouched_, u"Belege ablegen"_s, u"documents"_s);
    connect(bill_, &BillCard::reasonWanted, this, &PageWidget::reasonWanted);
    connect(change_, &ChangeCard::reasonWanted, this, &PageWidget::reasonWanted);
    connect(progress_, &ProgressCard::pageWanted, this, &PageWidget::pageWanted);
    connect(steps_, &StepsCard::pageWanted, this, &PageWidget::pageWanted);
    connect(steps_, &StepsCard::fieldWanted, this, &PageWidget::fieldWanted);
    connect(tips_, &TipsCard::pageWanted, this, &PageWidget::pageWanted);
    connect(tips_, &TipsCard::fieldWanted, this, &PageWidget::fieldWanted);
    connect(whatIf_, &WhatIfCard::changed, this,
            [this] { curve_->setImagined(whatIf_->imagined()); });
}

/// Figures follow with the result; only the levers must not begin at what no longer stands there.
void OverviewPage::refresh() {
    if (!isUntouched(store_.current())) {
        whatIf_->refresh();
    }
}

void OverviewPage::refreshResult() {
    showCards();
    const taxcore::TaxCase& taxCase = store_.current();
    if (isUntouched(taxCase)) {
        return;
    }
    const taxcore::Review& review = store_.review();
    progress_->refresh(taxCase, review.notices);
    const taxcore::TaxResult* const result = store_.result();
    const auto* const calculator = result != nullptr ? store_.calculator() : nullptr;
    if (calculator == nullptr) {
        return;
    }
    bill_->refresh(*result, taxCase.taxRegion());
    steps_->refresh(review.notices);
    change_->refresh(*result, review, taxCase.taxRegion());
    tips_->refresh(review.tips, store_.year());
    curve_->refresh(*calculator, taxCase, *result, review.marginalRate);
    whatIf_->refresh();
    look::orderByLayout(frame_->column());
}

void OverviewPage::showCards() {
    const bool untouched = isUntouched(store_.current());
    const bool computed = store_.result() != nullptr;
    withoutRules_->setText(
        u"Für %1 lassen sich die Steuern nicht berechnen, weil die Regeln dieses Jahres fehlen. "
        "Was Sie eintragen, bleibt gespeichert; sobald es Regeln gibt, wird gerechnet."_s.arg(
            store_.year()));
    withoutRules_->setVisible(!computed);
    untouched_->setVisible(untouched && computed);
    progress_->setVisible(!untouched);
    for (QWidget* card :
         std::initializer_list<QWidget*>{bill_, steps_, change_, tips_, whatIf_, curve_}) {
        card->setVisible(computed && !untouched);
    }
}

} // namespace fiscarel::pages
