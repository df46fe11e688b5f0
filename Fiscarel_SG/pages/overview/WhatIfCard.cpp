#include "Fiscarel_SG/pages/overview/WhatIfCard.h"

#include "Fiscarel_SG/AppStore.h"
#include "Fiscarel_SG/pages/overview/FigureStrip.h"
#include "Fiscarel_SG/pages/overview/LeverRow.h"
#include "Fiscarel_SG/pages/overview/MoneyText.h"

#include <QPushButton>
#include <QVBoxLayout>

namespace fiscarel::pages {

using namespace Qt::Literals::StringLiterals;
using taxcore::Advisor;

WhatIfCard::WhatIfCard(AppStore& store, QWidget* parent)
    : CardFrame(u"Was wäre, wenn …"_s,
                u"Verschieben Sie Werte und sehen Sie, was es ausmacht. An Ihrer Steuererklärung "
                "ändert sich nichts, bis Sie einen Wert übernehmen."_s,
                parent),
      store_(store), figures_(new FigureStrip(3, this)), levers_(new QVBoxLayout) {
    addInset(figures_);
    levers_->setSpacing(0);
    levers_->setContentsMargins(8, 0, 8, 0); // as far from the edge as insets
    column().addLayout(levers_);
    reset_ = new QPushButton(u"Zurücksetzen"_s, this);
    reset_->setObjectName(u"whatIfReset"_s);
    addInset(reset_, Qt::AlignLeft);
    connect(reset_, &QPushButton::clicked, this, [this] {
        scenario_.reset();
        showRows();
        calculateSoon();
    });
}

void WhatIfCard::refresh() {
    const auto* const calculator = store_.result() != nullptr ? store_.calculator() : nullptr;
    if (calculator == nullptr) {
        return;
    }
    scenario_.setLevers(leversOf(store_.current(), *calculator));
    showRows();
    calculate();
}

void WhatIfCard::showRows() {
    const std::vector<Lever>& levers = scenario_.levers();
    while (rows_.size() > levers.size()) {
        rows_.back()->hide();
        rows_.back()->deleteLater();
        rows_.pop_back();
    }
    for (std::size_t i = 0; i < levers.size(); ++i) {
        if (i == rows_.size()) {
            auto* const row = new LeverRow(this);
            connect(row, &LeverRow::moved, this, [this, i](int francs) { move(i, francs); });
            connect(row, &LeverRow::taken, this, [this, i] { take(i); });
            levers_->addWidget(row);
            rows_.push_back(row);
        }
        rows_[i]->show(levers[i], scenario_.value(levers[i]));
    }
    reset_->setEnabled(scenario_.isMoved());
}

void WhatIfCard::move(std::size_t index, int francs) {
    const Lever& lever = scenario_.levers().at(index);
    scenario_.move(lever, francs);
    rows_[index]->show(lever, scenario_.value(lever));
    reset_->setEnabled(scenario_.isMoved());
    calculateSoon();
}

void WhatIfCard::take(std::size_t index) {
    const Lever lever = scenario_.levers().at(index);
    if (!scenario_.isMoved(lever)) {
        return;
    }
    const Decimal value = scenario_.value(lever);
    // Taken before the entries change: what then stands there is where the lever begins.
    scenario_.move(lever, lever.now);
    store_.endMerging();
    store_.edit(lever.label, [&](taxcore::TaxCase& taxCase) { lever.apply(taxCase, value); });
    store_.endMerging();
    refresh();
}

void WhatIfCard::calculateSoon() {
    if (!std::exchange(willCalculate_, true)) {
        QMetaObject::invokeMethod(this, &WhatIfCard::calculate, Qt::QueuedConnection);
    }
}

void WhatIfCard::calculate() {
    willCalculate_ = false;
    const auto* const calculator = store_.result() != nullptr ? store_.calculator() : nullptr;
    if (calculator == nullptr) {
        return;
    }
    // The store's own result follows an edit only after a while.
    const taxcore::TaxCase& taxCase = store_.current();
    const Decimal now = Advisor::totalTax(calculator->calculate(taxCase));
    imagined_.reset();
    if (scenario_.isMoved()) {
        imagined_ = calculator->calculate(scenario_.applied(taxCase));
    }
    const Decimal then = imagined_ ? Advisor::totalTax(*imagined_) : now;
    figures_->set(0, u"Steuern heute"_s, rappen(now));
    figures_->set(1, u"Mit diesen Werten"_s, rappen(then));
    figures_->set(2, u"Unterschied"_s, change(then - now, 2), changeRole(then - now));
    Q_EMIT changed();
}

} // namespace fiscarel::pages
