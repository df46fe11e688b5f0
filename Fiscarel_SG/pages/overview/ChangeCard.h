#pragma once

#ifndef Q_MOC_RUN
#include "Fiscarel_SG/pages/overview/CardFrame.h"
#include "TaxCore/result/TaxResult.h"
#include "TaxCore/review/Review.h"
#endif

#include <string>
#include <vector>

class QLabel;

namespace fiscarel::pages {

class DoorList;
class FigureStrip;

/// What changed against the year before, and why.
class ChangeCard final : public CardFrame {
    Q_OBJECT

  public:
    explicit ChangeCard(QWidget* parent);

    void refresh(const taxcore::TaxResult& result, const taxcore::Review& review,
                 taxcore::TaxRegion region);

  Q_SIGNALS:
    void reasonWanted(const QString& code);

  private:
    void showCauses(const taxcore::YearComparison& change, taxcore::TaxRegion region);
    void showLines();

    std::vector<taxcore::LineChange> all_;     ///< in the order of the return
    std::vector<taxcore::LineChange> largest_; ///< of entries, without sums
    std::vector<std::string> present_;         ///< codes of lines that have a derivation
    std::vector<std::string> codes_;           ///< of the rows shown
    int year_ = 0;
    bool showsAll_ = false;
    QLabel* missing_;
    FigureStrip* totals_;
    DoorList* causes_;
    DoorList* lines_;
    QPushButton* more_ = nullptr;
};

} // namespace fiscarel::pages
