#include "Fiscarel_SG/look/ElidingButton.h"

#include <QHelpEvent>
#include <QStyleOptionButton>
#include <QStylePainter>
#include <QToolTip>

namespace fiscarel::look {

ElidingButton::ElidingButton(QWidget* parent, const QString& text) : QPushButton(text, parent) {
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

QSize ElidingButton::minimumSizeHint() const {
    constexpr int least = 80;
    const QSize whole = sizeHint();
    return {std::min(least, whole.width()), whole.height()};
}

QString ElidingButton::shownText() const {
    QStyleOptionButton option;
    initStyleOption(&option);
    const int room = style()->subElementRect(QStyle::SE_PushButtonContents, &option, this).width();
    return fontMetrics().elidedText(text(), Qt::ElideRight, room);
}

bool ElidingButton::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip && toolTip().isEmpty() && shownText() != text()) {
        QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), text(), this);
        return true;
    }
    return QPushButton::event(event);
}

void ElidingButton::paintEvent(QPaintEvent*) {
    QStylePainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    option.text = shownText();
    painter.drawControl(QStyle::CE_PushButton, option);
}

} // namespace fiscarel::look
