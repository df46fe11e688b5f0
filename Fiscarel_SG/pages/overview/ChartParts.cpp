#include "Fiscarel_SG/pages/overview/ChartParts.h"

#include "Fiscarel_SG/forms/QtText.h"

#include <QApplication>
#include <QChart>
#include <QChartView>
#include <QLegend>
#include <cmath>

namespace fiscarel::pages {

void prepare(QChartView& view) {
    QChart& chart = *view.chart();
    chart.setAnimationOptions(QChart::NoAnimation);
    chart.setBackgroundVisible(false);
    chart.setBackgroundRoundness(0);
    chart.setPlotAreaBackgroundVisible(false);
    chart.setMargins({});
    chart.legend()->hide();
    view.setFrameShape(QFrame::NoFrame);
    view.setBackgroundBrush(Qt::NoBrush);
    view.viewport()->setAutoFillBackground(false);
    view.setRenderHint(QPainter::Antialiasing);
}

QFont chartFont() {
    QFont font = QApplication::font();
    font.setPointSizeF(9);
    return font;
}

QColor readableOn(const QColor& ground) {
    // Relative luminance as WCAG 2.1 defines it; beyond 0.179 black has the higher contrast.
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    const double luminance = 0.2126 * linear(ground.redF()) + 0.7152 * linear(ground.greenF())
                             + 0.0722 * linear(ground.blueF());
    return luminance > 0.179 ? Qt::black : Qt::white;
}

double toDouble(const taxcore::Decimal& value) { return qs(value.toString()).toDouble(); }

} // namespace fiscarel::pages
