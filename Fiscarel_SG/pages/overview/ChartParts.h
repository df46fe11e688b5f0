#pragma once

#include "TaxCore/base/Decimal.h"

#include <QColor>
#include <QFont>

class QChartView;

namespace fiscarel::pages {

// What the charts of the window have in common.

/// Plain on the ground of a card: no frame, no legend, no title, no motion.
void prepare(QChartView& view);

/// Small letters of axes and marks.
QFont chartFont();

/// Black or white, whichever can be read on a colour.
QColor readableOn(const QColor& ground);

/// Near enough for a point on the screen.
double toDouble(const taxcore::Decimal& value);

} // namespace fiscarel::pages
