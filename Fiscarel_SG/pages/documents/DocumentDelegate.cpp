#include "Fiscarel_SG/pages/documents/DocumentDelegate.h"

#include "Fiscarel_SG/look/Theme.h"
#include "Fiscarel_SG/pages/documents/DocumentFilter.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>
#include <cmath>

namespace fiscarel::pages {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int margin = 6;
constexpr QSize pictureSize{38, 50};
constexpr int besidePicture = 10;
constexpr int crossSize = 20;
constexpr int barHeight = 4;
constexpr double smaller = 0.9; ///< of the second line

QRect inside(const QStyleOptionViewItem& option) {
    return option.rect.adjusted(margin, 0, -margin, 0);
}

QFont smallFont(const QStyleOptionViewItem& option) {
    QFont font = option.font;
    font.setPointSizeF(font.pointSizeF() * smaller);
    return font;
}

/// Where the two lines of the title stand.
struct TitlePlaces {
    QRect picture;
    QRect title;
    QRect detail;
};

TitlePlaces titlePlaces(const QStyleOptionViewItem& option) {
    const QRect room = inside(option);
    TitlePlaces places;
    places.picture =
        QRect(QPoint(room.left(), room.center().y() - pictureSize.height() / 2), pictureSize);
    const int left = places.picture.right() + besidePicture;
    const int first = option.fontMetrics.height();
    const int second = QFontMetrics(smallFont(option)).height();
    const int top = room.center().y() - (first + second + 2) / 2;
    places.title = QRect(left, top, room.right() - left, first);
    places.detail = QRect(left, top + first + 2, room.right() - left, second);
    return places;
}

} // namespace

QString moveText(int year) { return u"Nach %1 verschieben"_s.arg(year); }

DocumentDelegate::DocumentDelegate(DocumentFilter& filter, QObject* parent)
    : QStyledItemDelegate(parent), filter_(filter) {}

const DocumentModel::Row& DocumentDelegate::rowOf(const QModelIndex& index) const {
    return *filter_.rowAt(index.row());
}

QRect DocumentDelegate::cancelPlace(const QStyleOptionViewItem& option,
                                    const QModelIndex& index) const {
    if (index.column() != DocumentModel::state || !rowOf(index).progress) {
        return {};
    }
    const QRect room = inside(option);
    return {room.right() - crossSize + 1, room.center().y() - crossSize / 2, crossSize, crossSize};
}

QRect DocumentDelegate::movePlace(const QStyleOptionViewItem& option,
                                  const QModelIndex& index) const {
    if (index.column() != DocumentModel::title) {
        return {};
    }
    const DocumentModel::Row& row = rowOf(index);
    if (!row.canMove) {
        return {};
    }
    const QRect line = titlePlaces(option).detail;
    const QFontMetrics metrics(smallFont(option));
    const int before = metrics.horizontalAdvance(row.detail + u"  "_s);
    const int width = metrics.horizontalAdvance(moveText(*row.otherYear));
    return QRect(line.left() + before, line.top(), width, line.height()).intersected(line);
}

void DocumentDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                             const QModelIndex& index) const {
    QStyleOptionViewItem ground = option;
    initStyleOption(&ground, index);
    const look::Theme& theme = look::Theme::current();
    painter->save();
    if ((option.state & QStyle::State_Selected) != 0) {
        painter->fillRect(option.rect, theme.soft);
    }
    painter->setPen(theme.border);
    painter->drawLine(option.rect.bottomLeft(), option.rect.bottomRight());
    painter->setFont(ground.font);
    if (index.column() == DocumentModel::title) {
        paintTitle(*painter, ground, index);
    } else if (index.column() == DocumentModel::state) {
        paintState(*painter, ground, index);
    } else {
        const QRect room = inside(ground);
        painter->setPen(theme.text);
        painter->drawText(room, static_cast<int>(ground.displayAlignment | Qt::TextSingleLine),
                          ground.fontMetrics.elidedText(ground.text, Qt::ElideRight, room.width()));
    }
    painter->restore();
}

void DocumentDelegate::paintTitle(QPainter& painter, const QStyleOptionViewItem& option,
                                  const QModelIndex& index) const {
    const look::Theme& theme = look::Theme::current();
    const DocumentModel::Row& row = rowOf(index);
    const TitlePlaces places = titlePlaces(option);
    paintPicture(painter, places.picture, option, index);
    painter.setPen(theme.text);
    painter.drawText(
        places.title, Qt::AlignVCenter | Qt::TextSingleLine,
        option.fontMetrics.elidedText(row.title, Qt::ElideRight, places.title.width()));
    painter.setFont(smallFont(option));
    const QFontMetrics metrics(painter.font());
    painter.setPen(row.isWarning ? theme.warning : theme.faint);
    painter.drawText(places.detail, Qt::AlignVCenter | Qt::TextSingleLine,
                     metrics.elidedText(row.detail, Qt::ElideRight, places.detail.width()));
    if (const QRect link = movePlace(option, index); !link.isEmpty()) {
        painter.setPen(theme.accent);
        painter.drawText(
            link, Qt::AlignVCenter | Qt::TextSingleLine,
            metrics.elidedText(moveText(*row.otherYear), Qt::ElideRight, link.width()));
    }
}

void DocumentDelegate::paintPicture(QPainter& painter, const QRect& place,
                                    const QStyleOptionViewItem& option,
                                    const QModelIndex& index) const {
    const look::Theme& theme = look::Theme::current();
    const double density = option.widget != nullptr ? option.widget->devicePixelRatioF() : 1.0;
    const int line = filter_.mapToSource(index).row();
    const QImage image =
        filter_.model().picture(line, static_cast<int>(std::ceil(place.width() * density * 2)));
    QRect paper = place;
    if (!image.isNull()) {
        paper.setSize(image.size().scaled(place.size(), Qt::KeepAspectRatio));
        paper.moveCenter(place.center());
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.drawImage(paper, image);
    } else {
        painter.fillRect(paper, theme.window);
    }
    painter.setPen(theme.border);
    painter.drawRect(paper.adjusted(0, 0, -1, -1));
}

void DocumentDelegate::paintState(QPainter& painter, const QStyleOptionViewItem& option,
                                  const QModelIndex& index) const {
    const look::Theme& theme = look::Theme::current();
    const DocumentModel::Row& row = rowOf(index);
    QRect room = inside(option);
    const QRect cross = cancelPlace(option, index);
    if (!cross.isEmpty()) {
        room.setRight(cross.left() - margin);
    }
    QColor color = theme.faint;
    if (row.state == DocumentState::applied) {
        color = theme.good;
    } else if (row.state == DocumentState::open) {
        color = theme.accent;
    } else if (row.state == DocumentState::unreadable || row.state == DocumentState::missing) {
        color = theme.warning;
    }
    painter.setPen(color);
    painter.drawText(room, Qt::AlignVCenter | Qt::TextSingleLine,
                     option.fontMetrics.elidedText(option.text, Qt::ElideRight, room.width()));
    if (!row.progress) {
        return;
    }
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    const QRect bar(room.left(), room.center().y() + option.fontMetrics.height() / 2 + 2,
                    room.width(), barHeight);
    painter.setBrush(theme.border);
    painter.drawRoundedRect(bar, barHeight / 2.0, barHeight / 2.0);
    if (row.progress->pages > 0) {
        QRect done = bar;
        done.setWidth(bar.width() * row.progress->page / row.progress->pages);
        painter.setBrush(theme.accent);
        painter.drawRoundedRect(done, barHeight / 2.0, barHeight / 2.0);
    }
    constexpr int arm = 6; // of the cross, from its edge
    painter.setPen(QPen(theme.text, 1.6, Qt::SolidLine, Qt::RoundCap));
    const QRect lines = cross.adjusted(arm, arm, -arm, -arm);
    painter.drawLine(lines.topLeft(), lines.bottomRight());
    painter.drawLine(lines.topRight(), lines.bottomLeft());
}

bool DocumentDelegate::editorEvent(QEvent* event, QAbstractItemModel* model,
                                   const QStyleOptionViewItem& option, const QModelIndex& index) {
    if (event->type() == QEvent::MouseButtonRelease) {
        auto* const mouse = static_cast<QMouseEvent*>(event);
        const QPoint at = mouse->position().toPoint();
        const Uuid id = rowOf(index).id;
        if (mouse->button() == Qt::LeftButton && cancelPlace(option, index).contains(at)) {
            Q_EMIT cancelWanted(id);
            return true;
        }
        if (mouse->button() == Qt::LeftButton && movePlace(option, index).contains(at)) {
            Q_EMIT moveWanted(id);
            return true;
        }
    }
    return QStyledItemDelegate::editorEvent(event, model, option, index);
}

bool DocumentDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view,
                                 const QStyleOptionViewItem& option, const QModelIndex& index) {
    if (event->type() != QEvent::ToolTip || !index.isValid()) {
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    }
    const DocumentModel::Row& row = rowOf(index);
    QString tip;
    if (index.column() == DocumentModel::title) {
        tip = row.title + u'\n' + row.detail;
    } else if (cancelPlace(option, index).contains(event->pos())) {
        tip = u"Lesen abbrechen"_s;
    } else {
        const QString text = index.data().toString();
        tip =
            view->fontMetrics().horizontalAdvance(text) > inside(option).width() ? text : QString();
    }
    QToolTip::showText(event->globalPos(), tip, view);
    return true;
}

} // namespace fiscarel::pages
