#include "Fiscarel_SG/shell/PageFrame.h"

#include "Fiscarel_SG/shell/Theme.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QScrollArea>
#include <QScrollBar>
#include <QTimer>
#include <QVBoxLayout>

namespace fiscarel::shell {

namespace {

constexpr int columnWidth = 860;
constexpr int margin = 80;    ///< around what is shown
constexpr int settling = 150; ///< milliseconds until a page has its form

} // namespace

PageFrame::PageFrame(const QString& title, const QString& help, QWidget* parent)
    : QWidget(parent), scroll_(new QScrollArea(this)), column_(new QVBoxLayout) {
    auto* const outer = new QVBoxLayout(this);
    outer->setContentsMargins(0, 0, 0, 0);
    scroll_->setWidgetResizable(true);
    scroll_->setFrameShape(QFrame::NoFrame);
    scroll_->setFocusPolicy(Qt::NoFocus);
    outer->addWidget(scroll_);

    auto* const inner = new QWidget(scroll_);
    auto* const centred = new QHBoxLayout(inner);
    // A page that needs no scroll bar leaves its room free: cards are as wide on every page.
    const auto keepRoom = [this, centred](int, int most) {
        const int bar = most > 0 ? 0 : scroll_->verticalScrollBar()->sizeHint().width();
        centred->setContentsMargins(24, 20, 24 + bar, 24);
    };
    keepRoom(0, 0);
    connect(scroll_->verticalScrollBar(), &QScrollBar::rangeChanged, this, keepRoom);
    auto* const column = new QWidget(inner);
    column->setMaximumWidth(columnWidth);
    column->setLayout(column_);
    column_->setContentsMargins(0, 0, 0, 0);
    column_->setSpacing(14);
    centred->addStretch(1);
    centred->addWidget(column, 1000);
    centred->addStretch(1);
    scroll_->setWidget(inner);
    inner->installEventFilter(this);

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

/// A page just opened, or a row in it, finds its place in several rounds of the layouts.
void PageFrame::show(QWidget* widget) {
    sought_ = widget;
    scroll_->ensureWidgetVisible(widget, 0, margin);
    QTimer::singleShot(settling, this, [this] { sought_.clear(); });
}

bool PageFrame::eventFilter(QObject* watched, QEvent* event) {
    if (sought_ && (event->type() == QEvent::Resize || event->type() == QEvent::LayoutRequest)) {
        QTimer::singleShot(0, sought_, [this] {
            if (sought_) {
                scroll_->ensureWidgetVisible(sought_, 0, margin);
            }
        });
    }
    return QWidget::eventFilter(watched, event);
}

int PageFrame::position() const { return scroll_->verticalScrollBar()->value(); }

/// A page just made finds its length in several rounds of the layouts.
void PageFrame::setPosition(int position) {
    QScrollBar* const bar = scroll_->verticalScrollBar();
    auto* const settling = new QTimer(this);
    settling->setSingleShot(true);
    connect(bar, &QScrollBar::rangeChanged, settling, [bar, position] { bar->setValue(position); });
    connect(settling, &QTimer::timeout, settling, &QObject::deleteLater);
    settling->start(settling);
    bar->setValue(position);
}

} // namespace fiscarel::shell
