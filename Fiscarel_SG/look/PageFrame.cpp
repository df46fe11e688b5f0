#include "Fiscarel_SG/look/PageFrame.h"

#include "Fiscarel_SG/look/Theme.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QScrollArea>
#include <QScrollBar>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>

namespace fiscarel::look {

namespace {

constexpr int columnWidth = 860;
constexpr int sideMargin = 24;
constexpr int bottomMargin = 24;
constexpr int margin = 80;     ///< around what is shown
constexpr int partMargin = 16; ///< around a part shown whole
constexpr int settling = 150;  ///< milliseconds until a page has its form

} // namespace

PageFrame::PageFrame(const QString& title, const QString& help, QWidget* parent)
    : QWidget(parent), scroll_(new QScrollArea(this)), column_(new QVBoxLayout) {
    auto* const filled = new QVBoxLayout(parent);
    filled->setContentsMargins(0, 0, 0, 0);
    filled->addWidget(this);
    auto* const outer = new QVBoxLayout(this);
    outer->setContentsMargins(0, 0, 0, 0);
    scroll_->setWidgetResizable(true);
    scroll_->setFrameShape(QFrame::NoFrame);
    scroll_->setFocusPolicy(Qt::NoFocus);
    // Always there, so that cards are as wide on every page and never change while typing; one that
    // has nothing to scroll is disabled, and shows nothing.
    scroll_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    QScrollBar* const bar = scroll_->verticalScrollBar();
    const auto showRange = [bar] { bar->setEnabled(bar->maximum() > bar->minimum()); };
    connect(bar, &QAbstractSlider::rangeChanged, this, showRange);
    showRange();
    outer->addWidget(scroll_);

    auto* const inner = new QWidget(scroll_);
    centred_ = new QHBoxLayout(inner);
    centred_->setContentsMargins(sideMargin, 20, sideMargin, bottomMargin);
    auto* const column = new QWidget(inner);
    cards_ = column;
    column->setMaximumWidth(columnWidth);
    column->setLayout(column_);
    column_->setContentsMargins(0, 0, 0, 0);
    column_->setSpacing(cardSpacing);
    centred_->addStretch(1);
    centred_->addWidget(column, 1000);
    centred_->addStretch(1);
    scroll_->setWidget(inner);
    inner->installEventFilter(this);
    connect(scroll_->verticalScrollBar(), &QAbstractSlider::actionTriggered, this,
            [this] { sought_.clear(); });

    auto* const heading = new QLabel(title, column);
    setRole(heading, "title");
    column_->addWidget(heading);
    if (!help.isEmpty()) {
        auto* const line = new QLabel(help, column);
        line->setWordWrap(true);
        setRole(line, "faint");
        column_->addWidget(line);
    }
}

QVBoxLayout& PageFrame::renew(QWidget*& old) {
    if (old != nullptr) {
        old->hide();
        old->deleteLater(); // a click within it may have led here
    }
    old = new QWidget(this);
    auto* const fresh = new QVBoxLayout(old);
    fresh->setContentsMargins(0, 0, 0, 0);
    fresh->setSpacing(cardSpacing);
    column_->addWidget(old);
    return *fresh;
}

/// A page just opened, or a row in it, finds its place in several rounds of the layouts: until the
/// user scrolls or goes elsewhere, what is shown stays in sight.
void PageFrame::show(QWidget* widget) {
    sought_ = widget;
    isWholeSought_ = false;
    scroll_->ensureWidgetVisible(widget, 0, margin);
}

void PageFrame::showTop(QWidget* widget) {
    sought_.clear();
    const int top = widget->mapTo(scroll_->widget(), QPoint(0, 0)).y();
    scroll_->verticalScrollBar()->setValue(top - cardSpacing);
    QWidget* first = nullptr;
    const auto height = [&](const QWidget* of) { return of->mapTo(widget, QPoint(0, 0)).y(); };
    for (QWidget* const within : widget->findChildren<QWidget*>()) {
        const bool takesKeyboard = (within->focusPolicy() & Qt::TabFocus) != 0
                                   && within->isVisible() && within->isEnabled();
        if (takesKeyboard && (first == nullptr || height(within) < height(first))) {
            first = within;
        }
    }
    if (first != nullptr) {
        first->setFocus(Qt::OtherFocusReason);
    }
}

void PageFrame::showWhole(QWidget* part) {
    sought_ = part;
    isWholeSought_ = true;
    bringWholeInSight();
    // What was opened has its height only after the layouts' next round.
    QMetaObject::invokeMethod(this, &PageFrame::keepInSight, Qt::QueuedConnection);
}

void PageFrame::bringWholeInSight() {
    QScrollBar* const bar = scroll_->verticalScrollBar();
    const int top = sought_->mapTo(scroll_->widget(), QPoint()).y() - partMargin;
    const int bottom = top + sought_->height() + 2 * partMargin;
    const int room = scroll_->viewport()->height();
    if (bottom > bar->value() + room) {
        bar->setValue(std::min(top, bottom - room));
    } else if (top < bar->value()) {
        bar->setValue(top);
    }
}

void PageFrame::widen(int width) {
    wished_ = std::max(width, wished_);
    limitWidth();
}

/// Never wider than there is room for: a long word in a card must not push its fields out of sight.
void PageFrame::limitWidth() {
    const int room = scroll_->viewport()->width() - 2 * sideMargin;
    cards_->setMaximumWidth(std::max(columnWidth, std::min(wished_, room)));
}

bool PageFrame::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize) {
        limitWidth(); // what scrolls is as wide as the view, which has its size now
    }
    if (sought_ && (event->type() == QEvent::Resize || event->type() == QEvent::LayoutRequest)) {
        QMetaObject::invokeMethod(this, &PageFrame::keepInSight, Qt::QueuedConnection);
    }
    return QWidget::eventFilter(watched, event);
}

void PageFrame::keepInSight() {
    const QWidget* const focused = window()->focusWidget();
    if (sought_ && isWholeSought_ && sought_->isAncestorOf(focused)) {
        bringWholeInSight();
    } else if (sought_ && sought_ == focused) {
        scroll_->ensureWidgetVisible(sought_, 0, margin);
    } else {
        sought_.clear();
    }
}

void PageFrame::keepFree(int height) {
    QMargins margins = centred_->contentsMargins();
    margins.setBottom(bottomMargin + height);
    centred_->setContentsMargins(margins);
}

int PageFrame::position() const { return scroll_->verticalScrollBar()->value(); }

/// A page just made finds its length in several rounds of the layouts.
void PageFrame::setPosition(int position) {
    QScrollBar* const bar = scroll_->verticalScrollBar();
    auto* const settled = new QTimer(this);
    settled->setSingleShot(true);
    connect(bar, &QScrollBar::rangeChanged, settled, [bar, position] { bar->setValue(position); });
    connect(settled, &QTimer::timeout, settled, &QObject::deleteLater);
    settled->start(settling);
    bar->setValue(position);
}

} // namespace fiscarel::look
