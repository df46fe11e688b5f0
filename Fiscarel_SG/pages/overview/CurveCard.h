#pragma once

#ifndef Q_MOC_RUN
#include "Fiscarel_SG/pages/overview/CardFrame.h"
#include "TaxCore/review/Advisor.h"
#endif

#include <optional>

class QLabel;

namespace fiscarel::pages {

class CurveChart;
class DoorList;

/// How tax and marginal rate grow with the taxable income, and where the household stands.
class CurveCard final : public CardFrame {
    Q_OBJECT

  public:
    explicit CurveCard(QWidget* parent);

    void refresh(const taxcore::CaseCalculator& calculator, const taxcore::TaxCase& taxCase,
                 const taxcore::TaxResult& result, const taxcore::MarginalRate& marginal);
    /// The household's place if it were as imagined.
    void setImagined(const std::optional<taxcore::TaxResult>& imagined);

  private:
    void showSteps(const taxcore::Decimal& income);
    void describe(const taxcore::TaxResult& result, const taxcore::Decimal& marginal);
    CurveChart* addChart(const QString& name, const QString& unit);

    taxcore::IncomeCurve curve_;
    CurveChart* tax_;
    CurveChart* marginal_;
    QLabel* next_;
    QPushButton* more_;
    DoorList* steps_;
};

} // namespace fiscarel::pages
