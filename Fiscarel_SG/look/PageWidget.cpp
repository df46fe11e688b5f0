#include "Fiscarel_SG/look/PageWidget.h"

namespace fiscarel::look {

bool PageWidget::reveal(const std::string&) { return false; }

} // namespace fiscarel::look
