#pragma once

class QLayout;

namespace fiscarel::pages {

/// Lets the keyboard go through the widgets of a layout as they stand there, whenever they were
/// made; those of layouts within included.
void orderByLayout(const QLayout& layout);

} // namespace fiscarel::pages
