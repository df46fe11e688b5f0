#include "Fiscarel_SG/look/EnterPresses.h"

#include <QKeyEvent>
#include <QPushButton>
#include <QToolButton>

namespace fiscarel::look {

bool EnterPresses::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress) {
        return false;
    }
    const auto* const key = static_cast<QKeyEvent*>(event);
    if ((key->key() != Qt::Key_Return && key->key() != Qt::Key_Enter)
        || (key->modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier || key->isAutoRepeat()) {
        return false;
    }
    auto* const button = qobject_cast<QAbstractButton*>(watched);
    const auto* const push = qobject_cast<QPushButton*>(watched);
    const bool isMeant = push != nullptr ? !push->autoDefault() && !push->isDefault()
                                         : qobject_cast<QToolButton*>(watched) != nullptr;
    if (!isMeant || !button->isEnabled()) {
        return false;
    }
    button->click();
    return true;
}

} // namespace fiscarel::look
