#include "Fiscarel_SG/forms/SumRow.h"

#include "Fiscarel_SG/forms/RecordTable.h"
#include "Fiscarel_SG/look/Theme.h"

#include <QHeaderView>
#include <QPainter>
#include <QScrollBar>

namespace fiscarel::forms {

SumRow::SumRow(const RecordTable& table, QWidget* parent) : QWidget(parent), table_(table) {
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    QFont strong = font();
    strong.setWeight(QFont::DemiBold);
    setFont(strong);
    const auto repaint = [this] { update(); };
    connect(table.horizontalScrollBar(), &QScrollBar::valueChanged, this, repaint);
    connect(table.horizontalHeader(), &QHeaderView::sectionResized, this, repaint);
    connect(table.horizontalHeader(), &QHeaderView::geometriesChanged, this, repaint);
}

void SumRow::setSums(const QStringList& sums) {
    if (sums == sums_) {
        return;
    }
    sums_ = sums;
    QStringList told;
    for (int i = 0; i < static_cast<int>(sums_.size()); ++i) {
        if (!sums_[i].isEmpty()) {
            const QVariant column = table_.model()->headerData(i, Qt::Horizontal, Qt::DisplayRole);
            told << column.toString() + u' ' + sums_[i];
        }
    }
    setAccessibleName(QStringLiteral("Summe: ") + told.join(QStringLiteral(", ")));
    update();
}

QSize SumRow::sizeHint() const { return {0, RecordTable::rowHeight}; }

void SumRow::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setPen(look::Theme::current().text);
    const int first = table_.leftOfColumns();
    const int frozen = table_.frozenWidth();
    painter.drawText(QRect(RecordTable::cellMargin, 0, first + table_.columnWidth(0), height()),
                     Qt::AlignLeft | Qt::AlignVCenter, QStringLiteral("Summe"));
    painter.setClipRect(first + frozen, 0, table_.viewport()->width() - frozen, height());
    for (int i = 0; i < static_cast<int>(sums_.size()); ++i) {
        paintSum(painter, i);
    }
}

void SumRow::paintSum(QPainter& painter, int column) const {
    const int left = table_.leftOfColumns() + table_.columnViewportPosition(column);
    const QRect cell(left, 0, table_.columnWidth(column), height());
    painter.drawText(cell.adjusted(0, 0, -RecordTable::cellMargin, 0),
                     Qt::AlignRight | Qt::AlignVCenter, sums_[column]);
}

} // namespace fiscarel::forms
