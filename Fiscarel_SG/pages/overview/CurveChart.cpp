#include "Fiscarel_SG/pages/overview/CurveChart.h"

#include "Fiscarel_SG/look/Theme.h"
#include "Fiscarel_SG/pages/overview/ChartParts.h"
#include "Fiscarel_SG/pages/overview/MoneyText.h"

#include <QChart>
#include <QLineSeries>
#include <QLocale>
#include <QMouseEvent>
#include <QResizeEvent>
#include <QScatterSeries>
#include <QToolTip>
#include <QValueAxis>
#include <algorithm>
#include <cmath>

namespace fiscarel::pages {

using namespace Qt::Literals::StringLiterals;
using look::Theme;

namespace {

constexpr int chartHeight = 190;
constexpr int left = 62; ///< room for the figures of the upright axis, the same in every chart
constexpr int right = 30;
constexpr int top = 14;
constexpr int bottom = 26;
constexpr qreal dot = 11;

/// A round distance between the marks of an axis that gives at most `most` of them.
double intervalFor(double range, int most) {
    const double least = std::max(range, 1.0) / most;
    const double ten = std::pow(10, std::floor(std::log10(least)));
    for (const double factor : {1.0, 2.0, 5.0}) {
        if (factor * ten >= least) {
            return factor * ten;
        }
    }
    return 10 * ten;
}

/// From 0 to an end, or to just beyond the mark above it, whose figure needs room.
void setRange(QValueAxis& axis, double end, int marks, bool toMark) {
    const double interval = intervalFor(end, marks);
    axis.setTickType(QValueAxis::TicksDynamic);
    axis.setTickAnchor(0);
    axis.setTickInterval(interval);
    const double above = std::max(1.0, std::ceil(end / interval - 1e-9)) * interval;
    axis.setRange(0, toMark ? above + interval / 4 : end);
}

QValueAxis* axisOf(const QString& format) {
    const Theme& theme = Theme::current();
    auto* const axis = new QValueAxis;
    axis->setLabelFormat(format);
    axis->setLabelsFont(chartFont());
    axis->setLabelsColor(theme.faint);
    axis->setGridLineColor(theme.border);
    axis->setLinePenColor(theme.strong);
    return axis;
}

} // namespace

CurveChart::CurveChart(QString unit, QWidget* parent)
    : QChartView(parent), unit_(std::move(unit)), curve_(new QLineSeries),
      upright_(new QLineSeries), here_(new QScatterSeries), there_(new QScatterSeries),
      incomes_(axisOf(u"%.0f"_s)), values_(axisOf(u"%.0f"_s)) {
    prepare(*this);
    const Theme& theme = Theme::current();
    setFixedHeight(chartHeight);
    setFocusPolicy(Qt::NoFocus);
    setMouseTracking(true);
    chart()->setLocale(QLocale(QLocale::German, QLocale::Switzerland));
    chart()->setLocalizeNumbers(true);
    curve_->setPen(QPen(theme.accent, 2));
    upright_->setPen(QPen(theme.strong, 1, Qt::DashLine));
    for (QScatterSeries* mark : {here_, there_}) {
        mark->setMarkerSize(dot);
    }
    here_->setColor(theme.accent);
    here_->setBorderColor(theme.card);
    there_->setColor(theme.card);
    there_->setBorderColor(theme.text);
    there_->setPen(QPen(theme.text, 2));
    chart()->addAxis(incomes_, Qt::AlignBottom);
    chart()->addAxis(values_, Qt::AlignLeft);
    const std::array<QAbstractSeries*, 4> all{upright_, curve_, here_, there_};
    for (QAbstractSeries* series : all) {
        chart()->addSeries(series);
        series->attachAxis(incomes_);
        series->attachAxis(values_);
    }
    values_->setGridLineVisible(true);
    incomes_->setGridLineVisible(false);
}

void CurveChart::setCurve(const QList<QPointF>& points, std::vector<CurveStep> steps) {
    points_ = points;
    steps_ = std::move(steps);
    const auto highest = std::ranges::max_element(points_, {}, &QPointF::y);
    setRange(*incomes_, points_.isEmpty() ? 1 : points_.back().x(), 8, false);
    setRange(*values_, highest != points_.end() ? highest->y() : 1, 4, true);
    curve_->replace(points_);
}

void CurveChart::setHere(const QPointF& point) {
    here_->replace(QList<QPointF>{point});
    upright_->replace(QList<QPointF>{{point.x(), 0}, point});
}

void CurveChart::setThere(const std::optional<QPointF>& point) {
    there_->replace(point ? QList<QPointF>{*point} : QList<QPointF>{});
}

void CurveChart::resizeEvent(QResizeEvent* event) {
    // Before the chart itself: its axes are laid out with that, and not again.
    const QRectF whole(QPointF(), QSizeF(event->size()));
    chart()->setPlotArea(whole.adjusted(left, top, -right, -bottom));
    QChartView::resizeEvent(event);
}

QString CurveChart::textAt(double income) const {
    const auto at = std::ranges::lower_bound(points_, income, {}, &QPointF::x);
    if (at == points_.end()) {
        return {};
    }
    const auto number = [](double value) {
        return francs(static_cast<std::int64_t>(std::llround(value)));
    };
    QString text = u"Einkommen %1: %2%3"_s.arg(number(at->x()), number(at->y()), unit_);
    const double near = incomes_->max() / 100;
    for (const CurveStep& step : steps_) {
        if (std::abs(step.income - income) <= near) {
            text += u"\nab %1 – %2"_s.arg(number(step.income), step.text);
        }
    }
    return text;
}

void CurveChart::mouseMoveEvent(QMouseEvent* event) {
    const QPointF at = event->position();
    const QString text =
        chart()->plotArea().contains(at) ? textAt(chart()->mapToValue(at, curve_).x()) : QString();
    QToolTip::showText(event->globalPosition().toPoint(), text, this);
}

/// The wheel is for the page.
void CurveChart::wheelEvent(QWheelEvent* event) { event->ignore(); }

} // namespace fiscarel::pages
