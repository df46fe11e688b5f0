#include "Fiscarel_SG/pages/PaperSheet.h"

#include "Fiscarel_SG/look/Theme.h"

#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <utility>

namespace fiscarel::pages {

using namespace Qt::Literals::StringLiterals;

namespace {

// Paper is white in every appearance of the window.
constexpr QRgb marked = 0x2214655A; ///< over a line that is pointed at
constexpr QRgb ring = 0xFF14655A;

} // namespace

SheetDoor::SheetDoor(const paper::PaperSpot& spot, QWidget* sheet)
    : QAbstractButton(sheet), place_(spot.rect) {
    setObjectName(u"line:"_s + QString::fromStdString(spot.code));
    setAccessibleName(u"%1, Herkunft zeigen"_s.arg(spot.name));
    setToolTip(u"Woher dieser Betrag kommt"_s);
    setCursor(Qt::PointingHandCursor);
    setFocusPolicy(Qt::TabFocus);
}

void SheetDoor::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    if (underMouse()) {
        painter.fillRect(rect(), QColor::fromRgba(marked));
    }
    if (hasFocus()) {
        painter.setPen(QColor::fromRgba(ring));
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }
}

void SheetDoor::enterEvent(QEnterEvent* event) {
    QAbstractButton::enterEvent(event);
    update();
}

void SheetDoor::leaveEvent(QEvent* event) {
    QAbstractButton::leaveEvent(event);
    update();
}

PaperSheet::PaperSheet(Document document, std::size_t page, QWidget* parent)
    : QWidget(parent), document_(std::move(document)), page_(document_->pages.at(page)) {
    setAccessibleName(u"Seite %1"_s.arg(page + 1));
    setMouseTracking(true);
    for (const paper::PaperSpot& spot : page_.spots) {
        auto* const door = new SheetDoor(spot, this);
        connect(door, &QAbstractButton::clicked, this,
                [this, code = QString::fromStdString(spot.code)] { Q_EMIT lineClicked(code); });
        doors_.push_back(door);
    }
}

void PaperSheet::setScale(double scale) {
    scale_ = scale;
    setFixedSize(qRound(paper::pageWidth * scale), qRound(paper::pageHeight * scale));
    constexpr double beside = 4; // points to the left and right of the line
    for (SheetDoor* const door : doors_) {
        const QRectF place = door->place().adjusted(-beside, 0, beside, 0);
        door->setGeometry(QRectF(place.topLeft() * scale, place.size() * scale).toRect());
    }
    update();
}

void PaperSheet::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), Qt::white);
    painter.setPen(look::Theme::current().border);
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
    painter.setRenderHint(QPainter::Antialiasing); // lines thinner than a pixel are seen, too
    painter.scale(scale_, scale_);
    paper::paintPage(painter, page_);
}

const paper::PaperLink* PaperSheet::linkAt(QPointF point) const {
    const auto found = std::ranges::find_if(page_.links, [&](const paper::PaperLink& link) {
        return link.rect.contains(point / scale_);
    });
    return found == page_.links.end() ? nullptr : &*found;
}

void PaperSheet::mousePressEvent(QMouseEvent* event) {
    if (const auto* const link = linkAt(event->position())) {
        Q_EMIT linkClicked(QString::fromStdString(link->target));
    }
}

void PaperSheet::mouseMoveEvent(QMouseEvent* event) {
    setCursor(linkAt(event->position()) != nullptr ? Qt::PointingHandCursor : Qt::ArrowCursor);
}

} // namespace fiscarel::pages
