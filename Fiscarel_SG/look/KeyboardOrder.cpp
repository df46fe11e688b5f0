#include "Fiscarel_SG/look/KeyboardOrder.h"

#include <QLayout>
#include <QScrollArea>
#include <QStackedWidget>
#include <QWidget>

namespace fiscarel::look {

namespace {

/// The layout of what is seen in a widget.
const QLayout* contentOf(const QWidget& widget) {
    if (const auto* const stack = qobject_cast<const QStackedWidget*>(&widget)) {
        return stack->currentWidget() != nullptr ? stack->currentWidget()->layout() : nullptr;
    }
    if (const auto* const area = qobject_cast<const QScrollArea*>(&widget)) {
        return area->widget() != nullptr ? area->widget()->layout() : nullptr;
    }
    return widget.layout();
}

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
        } else if (const QLayout* const inside = contentOf(*widget)) {
            collect(*inside, widgets);
        }
    }
}

} // namespace

std::vector<QWidget*> inLayoutOrder(const QLayout& layout) {
    std::vector<QWidget*> widgets;
    collect(layout, widgets);
    return widgets;
}

void orderByLayout(const QLayout& layout) {
    const std::vector<QWidget*> widgets = inLayoutOrder(layout);
    for (std::size_t i = 1; i < widgets.size(); ++i) {
        QWidget::setTabOrder(widgets[i - 1], widgets[i]);
    }
}

} // namespace fiscarel::look
