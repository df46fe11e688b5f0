#include "Fiscarel_SG/pages/documents/DocumentDelegate.h"

#include "Fiscarel_SG/look/QtText.h"
#include "Fiscarel_SG/look/Theme.h"
#include "Fiscarel_SG/pages/documents/DocumentFilter.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QRegularExpression>
#include <QTextLayout>
#include <QToolTip>
#include <algorithm>
#include <cmath>

namespace fiscarel::pages {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int margin = 6;
constexpr QSize pictureSize{38, 50};
constexpr int besidePicture = 10;
constexpr int crossSize = 20;
constexpr int barHeight = 4;
constexpr double smaller = 0.9; ///< of what stands below the title
constexpr int rounding = 2;     ///< so that what just fits is not cut

QRect inside(const QStyleOptionViewItem& option) {
    return option.rect.adjusted(margin, 0, -margin, 0);
}

QFont smallFont(const QStyleOptionViewItem& option) {
    QFont font = option.font;
    font.setPointSizeF(font.pointSizeF() * smaller);
    return font;
}

/// Where the state stands, and what can be done below it.
struct StatePlaces {
    QRect first;
    QRect second;
};

StatePlaces statePlaces(const QStyleOptionViewItem& option, bool hasSecond) {
    constexpr int between = 4;
    const QRect room = inside(option);
    const int height = option.fontMetrics.height();
    const int all = hasSecond ? 2 * height + between : height;
    const QRect first(room.left(), room.center().y() - all / 2, room.width(), height);
    return {first, first.translated(0, height + between)};
}

/// A text in one line, or in two of which the second may still be too long.
QStringList brokenInTwo(const QString& text, const QFont& font, int width) {
    QTextLayout layout(text, font);
    layout.beginLayout();
    QTextLine line = layout.createLine();
    if (line.isValid()) {
        line.setLineWidth(width);
    }
    layout.endLayout();
    const qsizetype end = line.isValid() ? line.textLength() : text.size();
    return end >= text.size() ? QStringList(text)
                              : QStringList{text.left(end).trimmed(), text.mid(end).trimmed()};
}

/// Draws lines one below the other from the top of `room`, in the painter's font; returns where
/// they end.
int drawLines(QPainter& painter, const QStringList& lines, const QRect& room, Qt::Alignment side) {
    const QFontMetrics metrics(painter.font());
    int top = room.top();
    for (const QString& line : lines) {
        painter.drawText(QRect(room.left(), top, room.width(), metrics.height()),
                         static_cast<int>(side | Qt::AlignVCenter) | Qt::TextSingleLine,
                         metrics.elidedText(line, Qt::ElideRight, room.width()));
        top += metrics.height();
    }
    return top;
}

} // namespace

QString moveText(int year) { return u"Nach %1 verschieben"_s.arg(year); }

DocumentDelegate::DocumentDelegate(DocumentFilter& filter, QObject* parent)
    : QStyledItemDelegate(parent), filter_(filter) {}

const DocumentModel::Row& DocumentDelegate::rowOf(const QModelIndex& index) const {
    return *filter_.rowAt(index.row());
}

DocumentDelegate::Action DocumentDelegate::actionOf(const QModelIndex& index) const {
    const DocumentModel::Row& row = rowOf(index);
    if (row.canMove) {
        return Action::move;
    }
    return row.state == DocumentState::open ? Action::check : Action::none;
}

QString DocumentDelegate::actionText(const QModelIndex& index) const {
    switch (actionOf(index)) {
    case Action::move:
        return u"→ %1"_s.arg(*rowOf(index).otherYear);
    case Action::check:
        return u"Prüfen …"_s;
    case Action::none:
        break;
    }
    return {};
}

QRect DocumentDelegate::cancelPlace(const QStyleOptionViewItem& option,
                                    const QModelIndex& index) const {
    if (index.column() != DocumentModel::state || !rowOf(index).progress) {
        return {};
    }
    const QRect second = statePlaces(option, true).second;
    return {second.right() - crossSize + 1, second.center().y() - crossSize / 2, crossSize,
            crossSize};
}

QRect DocumentDelegate::actionPlace(const QStyleOptionViewItem& option,
                                    const QModelIndex& index) const {
    if (index.column() != DocumentModel::state) {
        return {};
    }
    QRect place = statePlaces(option, true).second;
    place.setWidth(
        std::min(place.width(), option.fontMetrics.horizontalAdvance(actionText(index))));
    return place;
}

int DocumentDelegate::stateWidth(const QFontMetrics& metrics) {
    return metrics.horizontalAdvance(u"Seite 10 von 20"_s) + 2 * margin + rounding;
}

int DocumentDelegate::kindWidth(const QFontMetrics& metrics) {
    int widest = 0; // of the parts a line may be broken into
    for (const auto& row : taxcore::EnumTable<StoredDocument::Kind>::rows) {
        static const QRegularExpression between(u"(?<=[ /-])"_s);
        for (const QString& part : qs(row.label).split(between)) {
            widest = std::max(widest, metrics.horizontalAdvance(part.trimmed()));
        }
    }
    return widest + 2 * margin + rounding;
}

int DocumentDelegate::amountWidth(const QFontMetrics& metrics, const DocumentFilter& rows) {
    int widest = metrics.horizontalAdvance(u"10’000.00"_s);
    for (int line = 0; line < rows.rowCount(); ++line) {
        const QString text = rows.index(line, DocumentModel::amount).data().toString();
        widest = std::max(widest, metrics.horizontalAdvance(text));
    }
    return widest + 2 * margin + rounding;
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
        paintText(*painter, ground, index);
    }
    painter->restore();
}

/// Of a title that is long two lines stand, of a warning two lines of it.
void DocumentDelegate::paintTitle(QPainter& painter, const QStyleOptionViewItem& option,
                                  const QModelIndex& index) const {
    constexpr int between = 2;
    const look::Theme& theme = look::Theme::current();
    const DocumentModel::Row& row = rowOf(index);
    QRect room = inside(option);
    paintPicture(
        painter,
        QRect(QPoint(room.left(), room.center().y() - pictureSize.height() / 2), pictureSize),
        option, index);
    room.setLeft(room.left() + pictureSize.width() + besidePicture);
    const QFont small = smallFont(option);
    const QStringList title =
        row.isWarning ? QStringList(row.title) : brokenInTwo(row.title, option.font, room.width());
    const QStringList detail =
        row.isWarning ? brokenInTwo(row.detail, small, room.width()) : QStringList(row.detail);
    const int height = static_cast<int>(title.size()) * option.fontMetrics.height() + between
                       + static_cast<int>(detail.size()) * QFontMetrics(small).height();
    room.setTop(room.center().y() - height / 2);
    painter.setPen(theme.text);
    room.setTop(drawLines(painter, title, room, Qt::AlignLeft) + between);
    painter.setFont(small);
    painter.setPen(row.isWarning ? theme.warning : theme.faint);
    drawLines(painter, detail, room, Qt::AlignLeft);
}

/// Over two lines where there is need; an amount stands in one.
void DocumentDelegate::paintText(QPainter& painter, const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const {
    const look::Theme& theme = look::Theme::current();
    const bool isFaint = index.column() == DocumentModel::kind && rowOf(index).isKindProposed;
    painter.setPen(isFaint ? theme.faint : theme.text);
    QRect room = inside(option);
    const Qt::Alignment side = option.displayAlignment & Qt::AlignHorizontal_Mask;
    const QStringList lines = index.column() == DocumentModel::amount
                                  ? QStringList(option.text)
                                  : brokenInTwo(option.text, option.font, room.width());
    room.setTop(room.center().y()
                - static_cast<int>(lines.size()) * option.fontMetrics.height() / 2);
    drawLines(painter, lines, room, side);
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
    const QString action = actionText(index);
    const StatePlaces places = statePlaces(option, row.progress || !action.isEmpty());
    QColor color = theme.faint;
    if (row.state == DocumentState::applied) {
        color = theme.good;
    } else if (row.state == DocumentState::open) {
        color = theme.text;
    } else if (row.state == DocumentState::unreadable || row.state == DocumentState::missing) {
        color = theme.warning;
    }
    painter.setPen(color);
    painter.drawText(
        places.first, Qt::AlignVCenter | Qt::TextSingleLine,
        option.fontMetrics.elidedText(option.text, Qt::ElideRight, places.first.width()));
    painter.setPen(theme.accent);
    painter.drawText(places.second, Qt::AlignVCenter | Qt::TextSingleLine, action);
    if (row.progress) {
        paintProgress(painter, option, index);
    }
}

/// A bar and a cross that ends the reading.
void DocumentDelegate::paintProgress(QPainter& painter, const QStyleOptionViewItem& option,
                                     const QModelIndex& index) const {
    const look::Theme& theme = look::Theme::current();
    const DocumentReadings::Progress& progress = *rowOf(index).progress;
    const QRect cross = cancelPlace(option, index);
    const QRect room = inside(option);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    const QRect bar(room.left(), cross.center().y() - barHeight / 2,
                    cross.left() - margin - room.left(), barHeight);
    painter.setBrush(theme.border);
    painter.drawRoundedRect(bar, barHeight / 2.0, barHeight / 2.0);
    if (progress.pages > 0) {
        QRect done = bar;
        done.setWidth(bar.width() * progress.page / progress.pages);
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
        if (mouse->button() == Qt::LeftButton && actionPlace(option, index).contains(at)) {
            if (actionOf(index) == Action::move) {
                Q_EMIT moveWanted(id);
            } else {
                Q_EMIT checkWanted(id);
            }
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
    } else if (actionPlace(option, index).contains(event->pos())) {
        tip = row.canMove ? moveText(*row.otherYear) : u"Prüfen und übernehmen"_s;
    } else if (index.column() == DocumentModel::kind && row.isKindProposed) {
        tip = u"%1: vorgeschlagen, noch nicht bestätigt"_s.arg(index.data().toString());
    } else {
        const QString text = index.data().toString();
        tip =
            view->fontMetrics().horizontalAdvance(text) > inside(option).width() ? text : QString();
    }
    QToolTip::showText(event->globalPos(), tip, view);
    return true;
}

} // namespace fiscarel::pages
