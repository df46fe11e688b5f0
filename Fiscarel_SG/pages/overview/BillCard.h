#pragma once

#ifndef Q_MOC_RUN
#include "Fiscarel_SG/pages/overview/CardFrame.h"
#include "TaxCore/result/TaxResult.h"
#endif

#include <string>
#include <vector>

class QLabel;

namespace fiscarel::pages {

class DoorList;
class RingChart;

/// What is to be paid, to whom and on what.
class BillCard final : public CardFrame {
    Q_OBJECT

  public:
    explicit BillCard(QWidget* parent);

    void refresh(const taxcore::TaxResult& result, taxcore::TaxRegion region);

  Q_SIGNALS:
    void reasonWanted(const QString& code);

  private:
    void showShares(const taxcore::TaxResult& result, taxcore::TaxRegion region);
    void showBases(const taxcore::TaxResult& result, taxcore::TaxRegion region);
    void open(const std::vector<std::string>& codes, int index);

    QLabel* total_;
    QLabel* share_ = nullptr;
    RingChart* ring_;
    DoorList* shares_;
    DoorList* bases_;
    std::vector<std::string> shareCodes_;
    std::vector<std::string> baseCodes_;
};

} // namespace fiscarel::pages
