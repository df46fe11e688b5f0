#pragma once

#include <QChartView>
#include <QList>
#include <QPointF>
#include <QString>
#include <optional>
#include <vector>

class QLineSeries;
class QScatterSeries;
class QValueAxis;

namespace fiscarel::pages {

/// A step of the tariff on the axis of the income.
struct CurveStep {
    double income = 0;
    QString text;
};

/// A curve over the taxable income, the household's place on it and, hollow, the place it would
/// have. Under the mouse it tells its figures and the step of the tariff there.
class CurveChart final : public QChartView {
    Q_OBJECT

  public:
    /// `unit`: behind the figure that the mouse is told, "" or "%".
    CurveChart(QString unit, QWidget* parent);

    void setCurve(const QList<QPointF>& points, std::vector<CurveStep> steps);
    void setHere(const QPointF& point);
    void setThere(const std::optional<QPointF>& point);

  protected:
    void resizeEvent(QResizeEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

  private:
    QString textAt(double income) const;

    QString unit_;
    QList<QPointF> points_;
    std::vector<CurveStep> steps_;
    QLineSeries* curve_;
    QLineSeries* upright_; ///< from the axis to the household's place
    QScatterSeries* here_;
    QScatterSeries* there_;
    QValueAxis* incomes_;
    QValueAxis* values_;
};

} // namespace fiscarel::pages
