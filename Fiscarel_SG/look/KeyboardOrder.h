#pragma once

class QLayout;

namespace fiscarel::look {

/// Lets the keyboard go through the widgets of a layout as they stand there, whenever they were
/// made; those of layouts within included.
void orderByLayout(const QLayout& layout);

} // namespace fiscarel::look
