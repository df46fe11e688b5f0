#pragma once

#include "Fiscarel_SG/documents/rows/PageRows.h"

namespace fiscarel {

/// Arranges a page so that each amount stands right of its own label, in a row of its own, whatever
/// way the page is set: labels beside each other with their amounts beside or below them, amounts
/// before their labels, labels above their amounts, labels that go on over two lines. What is set
/// so is left as it is, and so are tables headed by words and sentences. Places are moved, also
/// beyond the page's edge; `printed` tells where words really stand.
PageRows arranged(PageRows page);

} // namespace fiscarel
