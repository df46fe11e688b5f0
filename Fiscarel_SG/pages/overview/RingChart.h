#pragma once

#ifndef Q_MOC_RUN
#include "Fiscarel_SG/pages/overview/BillShares.h"
#endif

#include <QChartView>

class QPieSeries;

namespace fiscarel::pages {

/// The bill as a ring, clockwise from the top in the order of its recipients. Each part bears the
/// number that its row of the legend bears.
class RingChart final : public QChartView {
    Q_OBJECT

  public:
    explicit RingChart(QWidget* parent);

    void setShares(const std::vector<BillShare>& shares);

  private:
    QPieSeries* series_;
    std::vector<BillShare> shown_;
};

} // namespace fiscarel::pages
