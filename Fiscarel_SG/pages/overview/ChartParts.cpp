#include "Fiscarel_SG/pages/overview/ChartParts.h"

#include "Fiscarel_SG/look/Contrast.h"
#include "Fiscarel_SG/look/QtText.h"

#include <QApplication>
#include <QChart>
#include <QChartView>
#include <QLegend>

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
    return look::contrast(Qt::black, ground) > look::contrast(Qt::white, ground) ? Qt::black
                                                                                 : Qt::white;
}

double toDouble(const taxcore::Decimal& value) { return qs(value.toString()).toDouble(); }

} // namespace fiscarel::pages
