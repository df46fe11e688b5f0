#include "Fiscarel_SG/pages/documents/PagePreviewSheet.h"

#include "Fiscarel_SG/look/Theme.h"

#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>
#include <algorithm>
#include <utility>

namespace fiscarel::pages {

using namespace Qt::Literals::StringLiterals;
using Confidence = Proposal::Confidence;

namespace {

constexpr double shapeOfA4 = 297.0 / 210.0;
/// Between a value and its mark, of the width of the page: it grows with the page, so that a mark
/// never reaches the line above or below.
constexpr double aroundBox = 3.0 / 794.0;
constexpr int aroundPointer = 3; ///< pixels beside a mark that still hit it

double fractionOf(const Decimal& part) {
    return QString::fromStdString(part.toString()).toDouble();
}

/// Paper is white in every appearance of the window. The line tells the confidence as well as the
/// colour does.
QPen penOf(Confidence confidence, bool emphasised) {
    const look::Theme onPaper = look::Theme::light();
    const QColor colour = confidence == Confidence::high     ? onPaper.good
                          : confidence == Confidence::medium ? onPaper.accent
                                                             : onPaper.warning;
    const Qt::PenStyle style = confidence == Confidence::high     ? Qt::SolidLine
                               : confidence == Confidence::medium ? Qt::DashLine
                                                                  : Qt::DotLine;
    return {colour, emphasised ? 2.2 : 1.4, emphasised ? Qt::SolidLine : style};
}

} // namespace

PagePreviewSheet::PagePreviewSheet(int page, QWidget* parent)
    : QWidget(parent), page_(page), shape_(shapeOfA4) {
    setObjectName(u"sheetPage:%1"_s.arg(page));
    setAccessibleName(u"Seite %1 des Belegs"_s.arg(page));
    setMouseTracking(true);
}

void PagePreviewSheet::setImage(const QImage& image) {
    if (image.isNull()) {
        isUnreadable_ = image_.isNull();
    } else if (image.width() >= image_.width()) {
        image_ = image;
        scaled_ = {};
        isUnreadable_ = false;
        const double shape = static_cast<double>(image.height()) / image.width();
        if (qRound(shape * width()) != height()) {
            shape_ = shape;
            Q_EMIT shapeFound();
        }
    }
    update();
}

void PagePreviewSheet::setShape(double shape) {
    if (image_.isNull()) {
        shape_ = shape;
    }
}

void PagePreviewSheet::setMarks(std::vector<PreviewMark> marks) {
    marks_ = std::move(marks);
    update();
}

void PagePreviewSheet::emphasise(int id) {
    if (id != emphasised_) {
        emphasised_ = id;
        update();
    }
}

void PagePreviewSheet::setPlace(const std::optional<PageBox>& place) {
    place_ = place;
    update();
}

void PagePreviewSheet::setSheetWidth(int width) {
    const QSize size(width, qRound(width * shape_));
    if (size != this->size()) {
        scaled_ = {};
        setFixedSize(size);
    }
}

QRect PagePreviewSheet::placeOf(const PageBox& box) const {
    const int around = std::max(1, qRound(aroundBox * width()));
    return QRectF(fractionOf(box.x) * width(), fractionOf(box.y) * height(),
                  fractionOf(box.width) * width(), fractionOf(box.height) * height())
        .toAlignedRect()
        .adjusted(-around, -around, around, around);
}

const PreviewMark* PagePreviewSheet::markAt(QPoint point) const {
    const auto found = std::ranges::find_if(marks_, [&](const PreviewMark& mark) {
        return placeOf(mark.box)
            .adjusted(-aroundPointer, -aroundPointer, aroundPointer, aroundPointer)
            .contains(point);
    });
    return found != marks_.end() ? &*found : nullptr;
}

void PagePreviewSheet::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), Qt::white);
    if (!image_.isNull()) {
        const QSize wanted = size() * devicePixelRatioF();
        if (scaled_.size() != wanted) {
            scaled_ = image_.scaled(wanted, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        }
        painter.drawImage(rect(), scaled_);
    } else {
        painter.setPen(look::Theme::light().faint);
        painter.drawText(rect().adjusted(20, 20, -20, -20), Qt::AlignCenter | Qt::TextWordWrap,
                         isUnreadable_ ? u"Seite %1 lässt sich nicht anzeigen."_s.arg(page_)
                                       : u"Seite %1 wird geladen …"_s.arg(page_));
    }
    painter.setRenderHint(QPainter::Antialiasing);
    // To the very edge, also where a pixel of the screen is less than one of the window.
    painter.setPen(look::Theme::current().border);
    painter.drawRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5));
    // What is printed stays legible also where a line runs across it.
    painter.setCompositionMode(QPainter::CompositionMode_Multiply);
    const auto draw = [&](const PageBox& box, Confidence confidence, bool emphasised) {
        const QPen pen = penOf(confidence, emphasised);
        QColor ground = pen.color();
        ground.setAlpha(emphasised ? 50 : 22);
        painter.setPen(pen);
        painter.setBrush(ground);
        painter.drawRoundedRect(placeOf(box), 3, 3);
    };
    for (const PreviewMark& mark : marks_) {
        draw(mark.box, mark.confidence, mark.id == emphasised_);
    }
    if (place_) {
        draw(*place_, Confidence::medium, true);
    }
}

void PagePreviewSheet::mousePressEvent(QMouseEvent* event) {
    if (const PreviewMark* const mark = markAt(event->pos())) {
        Q_EMIT markClicked(mark->id);
    } else {
        QWidget::mousePressEvent(event);
    }
}

void PagePreviewSheet::mouseMoveEvent(QMouseEvent* event) {
    setCursor(markAt(event->pos()) != nullptr ? Qt::PointingHandCursor : Qt::ArrowCursor);
}

bool PagePreviewSheet::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip) {
        auto* const help = static_cast<QHelpEvent*>(event);
        const PreviewMark* const mark = markAt(help->pos());
        QToolTip::showText(help->globalPos(), mark != nullptr ? mark->name : QString(), this);
        return true;
    }
    return QWidget::event(event);
}

} // namespace fiscarel::pages
