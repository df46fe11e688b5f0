#include "Fiscarel_SG/pages/overview/RingChart.h"

#include "Fiscarel_SG/look/QtText.h"
#include "Fiscarel_SG/look/Theme.h"
#include "Fiscarel_SG/pages/overview/ChartParts.h"
#include "TaxCore/base/MoneyFormat.h"

#include <QChart>
#include <QLegend>
#include <QPieSeries>
#include <QPieSlice>
#include <QStringList>

namespace fiscarel::pages {

using namespace Qt::Literals::StringLiterals;
using look::Theme;
using taxcore::MoneyFormat;

namespace {

constexpr int side = 208;
constexpr qreal leastNumbered = 3; ///< percent below which a part has no room for its number

} // namespace

RingChart::RingChart(QWidget* parent) : QChartView(parent), series_(new QPieSeries) {
    prepare(*this);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    setFixedSize(side, side);
    setAccessibleName(u"Ringdiagramm: an wen die Steuern gehen"_s);
    series_->setPieSize(0.96);
    series_->setHoleSize(0.6);
    chart()->addSeries(series_);
}

void RingChart::setShares(const std::vector<BillShare>& shares) {
    if (shares == shown_ && !series_->isEmpty()) {
        return;
    }
    shown_ = shares;
    series_->clear();
    const Theme& theme = Theme::current();
    QStringList words;
    int index = 0;
    for (const BillShare& share : shares) {
        const QColor color = theme.chart(index);
        ++index;
        words << u"%1 %2 Franken, %3 Prozent"_s.arg(qs(share.name),
                                                    qs(MoneyFormat::chf(share.amount, 2, false)),
                                                    qs(MoneyFormat::number(share.percent)));
        if (share.amount <= 0) {
            continue;
        }
        auto* const slice = series_->append(QString::number(index), toDouble(share.amount));
        slice->setBrush(color);
        slice->setPen(QPen(theme.card, 2));
        slice->setLabelVisible(toDouble(share.percent) >= leastNumbered);
        slice->setLabelColor(readableOn(color));
        slice->setLabelPosition(QPieSlice::LabelInsideHorizontal);
        slice->setLabelFont(chartFont());
    }
    if (series_->isEmpty()) {
        auto* const nothing = series_->append(QString(), 1);
        nothing->setBrush(theme.border);
        nothing->setPen(Qt::NoPen);
    }
    setAccessibleDescription(words.join(u"; "_s));
}

} // namespace fiscarel::pages
