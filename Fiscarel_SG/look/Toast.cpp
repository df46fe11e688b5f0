#include "Fiscarel_SG/look/Toast.h"

#include "Fiscarel_SG/look/Theme.h"

#include <QAccessible>
#include <QEvent>
#include <algorithm>

namespace fiscarel::look {

namespace {

constexpr int stays = 5'000; ///< milliseconds
constexpr int fromEdge = 20;
constexpr int widest = 560;

} // namespace

Toast::Toast(QWidget* room) : QLabel(room) {
    setObjectName(QStringLiteral("toast"));
    setRole(this, "toast");
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setWordWrap(true);
    setAlignment(Qt::AlignCenter);
    hide();
    gone_.setSingleShot(true);
    gone_.setInterval(stays);
    connect(&gone_, &QTimer::timeout, this, &Toast::hide);
    room->installEventFilter(this);
}

void Toast::say(const QString& text) {
    setText(text);
    setAccessibleName(text);
    place();
    show();
    raise();
    gone_.start();
    QAccessibleEvent alert(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

bool Toast::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize && isVisible()) {
        place();
    }
    return QLabel::eventFilter(watched, event);
}

void Toast::place() {
    const QWidget* const room = parentWidget();
    const int most = std::max(1, std::min(widest, room->width() - 2 * fromEdge));
    setWordWrap(false);
    const int width = std::min(sizeHint().width(), most);
    setWordWrap(true);
    resize(width, heightForWidth(width));
    move((room->width() - width) / 2, room->height() - height() - fromEdge);
}

} // namespace fiscarel::look
