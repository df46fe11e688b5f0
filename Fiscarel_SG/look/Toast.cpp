#include "Fiscarel_SG/look/Toast.h"

#include "Fiscarel_SG/look/PageFrame.h"
#include "Fiscarel_SG/look/Theme.h"

#include <QAccessible>
#include <QEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QStackedWidget>
#include <algorithm>
#include <utility>

namespace fiscarel::look {

namespace {

constexpr int stays = 5'000; ///< milliseconds
constexpr int staysWithOffer = 12'000;
constexpr int fromEdge = 20;
constexpr int widest = 560;

} // namespace

Toast::Toast(QWidget* room)
    : QFrame(room), text_(new QLabel(this)), answer_(new QPushButton(this)) {
    setObjectName(QStringLiteral("toast"));
    setRole(this, "toast");
    setRole(text_, "toast");
    text_->setObjectName(QStringLiteral("toastText"));
    setRole(answer_, "toast");
    answer_->setObjectName(QStringLiteral("toastAnswer"));
    auto* const line = new QHBoxLayout(this);
    line->setContentsMargins(16, 7, 16, 7);
    line->setSpacing(12);
    line->addWidget(text_, 1);
    line->addWidget(answer_);
    hide();
    gone_.setSingleShot(true);
    connect(&gone_, &QTimer::timeout, this, &Toast::timeUp);
    connect(answer_, &QPushButton::clicked, this, &Toast::choose);
    room->installEventFilter(this);
    if (auto* const pages = qobject_cast<QStackedWidget*>(room)) { // which raises the page it shows
        connect(pages, &QStackedWidget::currentChanged, this, &Toast::rise);
    }
}

void Toast::say(const QString& text) {
    leave();
    act_ = nullptr;
    show(text, stays);
}

void Toast::offer(const QString& text, const QString& answer, std::function<void()> act) {
    leave();
    act_ = std::move(act);
    answer_->setText(answer);
    answer_->setAccessibleName(answer + QStringLiteral(": ") + text);
    show(text, staysWithOffer);
}

void Toast::show(const QString& text, int milliseconds) {
    text_->setText(text);
    setAccessibleName(text);
    answer_->setVisible(act_ != nullptr);
    setAttribute(Qt::WA_TransparentForMouseEvents, act_ == nullptr);
    place();
    QFrame::show();
    rise();
    gone_.start(milliseconds);
    QAccessibleEvent alert(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

void Toast::rise() {
    if (isVisible()) {
        raise();
        keepPagesFree(height() + fromEdge);
    }
}

void Toast::keepPagesFree(int height) {
    for (PageFrame* const page : parentWidget()->findChildren<PageFrame*>()) {
        page->keepFree(page->isVisible() ? height : 0);
    }
}

void Toast::hideEvent(QHideEvent* event) {
    keepPagesFree(0);
    QFrame::hideEvent(event);
}

void Toast::withdraw() {
    if (act_) {
        leave();
        act_ = nullptr;
        hide();
    }
}

void Toast::leave() {
    if (answer_->hasFocus() && before_) {
        before_->setFocus(Qt::OtherFocusReason);
    }
    before_.clear();
}

void Toast::choose() {
    if (const auto act = std::exchange(act_, nullptr)) {
        leave();
        hide();
        act();
    }
}

void Toast::timeUp() {
    if (act_ && (answer_->hasFocus() || underMouse())) {
        gone_.start();
    } else {
        withdraw();
        hide();
    }
}

void Toast::joinKeyboardOrder() {
    if (!act_ || !isVisible()) {
        return;
    }
    if (!before_ && !answer_->hasFocus()) {
        before_ = window()->focusWidget();
    }
    if (before_) {
        setTabOrder(before_, answer_);
    }
}

void Toast::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        withdraw();
    } else {
        QFrame::keyPressEvent(event);
    }
}

bool Toast::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize && isVisible()) {
        place();
    }
    return QFrame::eventFilter(watched, event);
}

void Toast::place() {
    const QWidget* const room = parentWidget();
    const int most = std::max(1, std::min(widest, room->width() - 2 * fromEdge));
    text_->setWordWrap(false);
    layout()->activate();
    const int width = std::min(layout()->sizeHint().width(), most);
    text_->setWordWrap(true);
    layout()->activate();
    const int height =
        layout()->hasHeightForWidth() ? layout()->heightForWidth(width) : sizeHint().height();
    resize(width, height);
    move((room->width() - width) / 2, room->height() - height - fromEdge);
}

} // namespace fiscarel::look
