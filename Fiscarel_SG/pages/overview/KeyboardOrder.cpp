#include "Fiscarel_SG/pages/overview/KeyboardOrder.h"

#include <QLayout>
#include <QWidget>
#include <vector>

namespace fiscarel::pages {

namespace {

void collect(const QLayout& layout, std::vector<QWidget*>& widgets) {
    for (int i = 0; i < layout.count(); ++i) {
        QLayoutItem* const item = layout.itemAt(i);
        if (const QLayout* const inner = item->layout()) {
            collect(*inner, widgets);
        }
        QWidget* const widget = item->widget();
        if (widget == nullptr) {
            continue;
        }
        if ((widget->focusPolicy() & Qt::TabFocus) != 0) {
            widgets.push_back(widget);
        } else if (const QLayout* const inside = widget->layout()) {
            collect(*inside, widgets);
        }
    }
}

} // namespace

void orderByLayout(const QLayout& layout) {
    std::vector<QWidget*> widgets;
    collect(layout, widgets);
    for (std::size_t i = 1; i < widgets.size(); ++i) {
        QWidget::setTabOrder(widgets[i - 1], widgets[i]);
    }
}

} // namespace fiscarel::pages
