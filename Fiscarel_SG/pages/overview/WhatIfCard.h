#pragma once

#ifndef Q_MOC_RUN
#include "Fiscarel_SG/pages/overview/CardFrame.h"
#include "Fiscarel_SG/pages/overview/Scenario.h"
#include "TaxCore/result/TaxResult.h"
#endif

#include <optional>
#include <vector>

class QVBoxLayout;

namespace fiscarel {
class AppStore;
}

namespace fiscarel::pages {

class FigureStrip;
class LeverRow;

/// "Was wäre, wenn …": the tax of a copy of the case in which single values were moved. The return
/// itself changes only where a value is taken over.
class WhatIfCard final : public CardFrame {
    Q_OBJECT

  public:
    WhatIfCard(AppStore& store, QWidget* parent);

    /// The entries changed: what they are now is where the levers begin.
    void refresh();

    /// The result with everything that was moved; absent while nothing is.
    const std::optional<taxcore::TaxResult>& imagined() const noexcept { return imagined_; }

  Q_SIGNALS:
    /// `imagined` is another.
    void changed();

  private:
    void move(std::size_t index, int francs);
    void take(std::size_t index);
    /// However many moves there are in one turn of the event loop, one calculation follows.
    void calculateSoon();
    void calculate();
    void showRows();

    AppStore& store_;
    Scenario scenario_;
    std::optional<taxcore::TaxResult> imagined_;
    bool willCalculate_ = false;
    FigureStrip* figures_;
    QVBoxLayout* levers_;
    std::vector<LeverRow*> rows_;
    QPushButton* reset_ = nullptr;
};

} // namespace fiscarel::pages
