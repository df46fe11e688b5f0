#pragma once

#include <vector>

class QLayout;
class QWidget;

namespace fiscarel::look {

/// The widgets of a layout that take the keyboard by the tabulator, as they stand there; those of
/// layouts within included, also when they are hidden or disabled.
std::vector<QWidget*> inLayoutOrder(const QLayout& layout);

/// Lets the keyboard go through the widgets of a layout as they stand there, whenever they were
/// made; those of layouts within included.
void orderByLayout(const QLayout& layout);

} // namespace fiscarel::look
