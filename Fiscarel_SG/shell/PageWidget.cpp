#include "Fiscarel_SG/shell/PageWidget.h"

namespace fiscarel::shell {

bool PageWidget::reveal(const std::string&) { return false; }

} // namespace fiscarel::shell
