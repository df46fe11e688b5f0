#include "Fiscarel_SG/forms/HelpButton.h"

#include "Fiscarel_SG/look/Theme.h"

namespace fiscarel::forms {

using namespace Qt::Literals::StringLiterals;

HelpButton::HelpButton(const QString& toolTip, const QString& of, QWidget* parent)
    : QToolButton(parent) {
    setText(u"?"_s);
    look::setRole(this, "help");
    setToolTip(toolTip + u" (F1)"_s);
    setAccessibleName(u"Hilfe zu "_s + of);
    setCheckable(true);
    setFocusPolicy(Qt::NoFocus);
}

} // namespace fiscarel::forms
