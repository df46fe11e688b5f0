#include "Fiscarel_SG/forms/editors/InputLine.h"

#include "Fiscarel_SG/forms/editors/EditorBase.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionFrame>
#include <algorithm>

namespace fiscarel::forms {

namespace {

constexpr int gap = 8; // between the end of the line and what stands there

} // namespace

InputButton::InputButton(Sign sign, const QString& name, QWidget* parent)
    : QToolButton(parent), sign_(sign) {
    setAccessibleName(name);
    setToolTip(name);
    setCursor(Qt::ArrowCursor);
    setFocusPolicy(Qt::NoFocus); // Alt+Down does the same
}

void InputButton::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor colour =
        underMouse() || isDown() ? palette().color(QPalette::Text) : faintText(palette());
    painter.setPen(QPen(colour, 1.4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    const QPointF middle = QRectF(rect()).center();
    const double half = std::min(width(), height()) * 0.26;
    if (sign_ == Sign::list) {
        constexpr double reach = 3.5; // as the arrow of the lists without a line
        painter.drawPolyline(
            QPolygonF({middle + QPointF(-reach, -reach / 2), middle + QPointF(0, reach / 2),
                       middle + QPointF(reach, -reach / 2)}));
        return;
    }
    const QRectF sheet(middle.x() - half, middle.y() - half * 0.85, 2 * half, 1.9 * half);
    painter.drawRoundedRect(sheet, 1.5, 1.5);
    const double head = sheet.top() + sheet.height() * 0.32;
    painter.drawLine(QPointF(sheet.left(), head), QPointF(sheet.right(), head));
    for (const double part : {0.28, 0.72}) {
        const double x = sheet.left() + sheet.width() * part;
        painter.drawLine(QPointF(x, sheet.top() - half * 0.3), QPointF(x, sheet.top()));
    }
}

InputLine::InputLine(QWidget* parent) : QLineEdit(parent) {
    keepRoom();
    connect(this, &QLineEdit::textChanged, this, &InputLine::slantHint);
}

void InputLine::setUnit(const QString& unit) {
    unit_ = unit;
    keepRoom();
}

void InputLine::setUnitRoom(const QString& longest) {
    longestUnit_ = longest;
    keepRoom();
    update();
}

void InputLine::setButton(InputButton* button) {
    button_ = button;
    keepRoom();
}

void InputLine::setMarked(bool marked) {
    if (marked != marked_) {
        marked_ = marked;
        update();
    }
}

void InputLine::slantHint() {
    const bool showsHint = text().isEmpty() && !placeholderText().isEmpty();
    if (font().italic() != showsHint) {
        QFont own = font();
        own.setItalic(showsHint);
        setFont(own);
    }
}

void InputLine::regroup(const QString& grouped) {
    const auto letters = [](const QString& text, qsizetype end) {
        return std::count_if(text.begin(), text.begin() + end,
                             [](QChar letter) { return letter.isLetterOrNumber(); });
    };
    if (grouped == text()) {
        return;
    }
    const auto before = letters(text(), cursorPosition());
    const bool atEnd = cursorPosition() == text().size();
    setText(grouped);
    qsizetype position = 0;
    while (position < grouped.size() && letters(grouped, position) < before) {
        ++position;
    }
    setCursorPosition(static_cast<int>(atEnd ? grouped.size() : position));
}

bool InputLine::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride) {
        // With nothing typed to take back, undo and redo are those of the whole return.
        const auto* const key = static_cast<QKeyEvent*>(event);
        if ((key->matches(QKeySequence::Undo) && !isUndoAvailable())
            || (key->matches(QKeySequence::Redo) && !isRedoAvailable())) {
            event->ignore();
            return false;
        }
    }
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
        keepRoom();
    }
    return QLineEdit::event(event);
}

void InputLine::focusInEvent(QFocusEvent* event) {
    const bool returns =
        event->reason() == Qt::PopupFocusReason || event->reason() == Qt::ActiveWindowFocusReason;
    if (entered && event->reason() != Qt::PopupFocusReason) {
        entered();
    }
    QLineEdit::focusInEvent(event);
    if (selectsAll_ && !returns) {
        selectAll();
        selectsOnRelease_ = event->reason() == Qt::MouseFocusReason;
    }
}

void InputLine::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    selectsOnRelease_ = false;
    if (leaving && event->reason() != Qt::PopupFocusReason) {
        leaving();
    }
}

void InputLine::keyPressEvent(QKeyEvent* event) {
    const bool opensList =
        event->key() == Qt::Key_F4
        || (event->key() == Qt::Key_Down && event->modifiers().testFlag(Qt::AltModifier));
    if (opensList && listRequested && listRequested()) {
        return;
    }
    if (event->key() == Qt::Key_Escape && event->modifiers() == Qt::NoModifier && escaped) {
        if (!escaped()) {
            event->ignore(); // a dialog around may close
        }
        return;
    }
    QLineEdit::keyPressEvent(event);
}

void InputLine::mouseReleaseEvent(QMouseEvent* event) {
    QLineEdit::mouseReleaseEvent(event);
    // The press put the cursor where it was; who dragged has chosen already.
    if (selectsOnRelease_ && !hasSelectedText()) {
        selectAll();
    }
    selectsOnRelease_ = false;
}

void InputLine::paintEvent(QPaintEvent* event) {
    QLineEdit::paintEvent(event);
    if (!hasFocus() && cursorPosition() == 0 && !alignment().testFlag(Qt::AlignRight)) {
        paintCut();
    }
    if (!unit_.isEmpty()) {
        QPainter painter(this);
        painter.setPen(faintText(palette()));
        painter.setFont(unitFont());
        painter.drawText(rect().adjusted(width() - unitWidth() - gap, 0, 0, 0),
                         Qt::AlignLeft | Qt::AlignVCenter, unit_);
    }
    if (marked_) {
        paintProblem(*this);
    }
}

/// Says at its end that a text goes on.
void InputLine::paintCut() {
    constexpr int beside = 2; // as the line itself leaves beside its text
    QStyleOptionFrame option;
    initStyleOption(&option);
    const QRect room = style()
                           ->subElementRect(QStyle::SE_LineEditContents, &option, this)
                           .marginsRemoved(textMargins())
                           .adjusted(beside, 0, -beside, 0);
    const QFontMetrics metrics = fontMetrics();
    if (metrics.horizontalAdvance(text()) <= room.width()) {
        return;
    }
    const QString seen = metrics.elidedText(text(), Qt::ElideRight, room.width()).chopped(1);
    QRect end = room;
    end.setLeft(room.left() + metrics.horizontalAdvance(seen));
    end.setRight(room.right() + beside);
    QPainter painter(this);
    painter.fillRect(end, palette().base());
    painter.setPen(palette().color(QPalette::Text));
    const int top = room.top() + (room.height() - metrics.height() + 1) / 2;
    painter.drawText(QPoint(end.left(), top + metrics.ascent()), QStringLiteral("…"));
}

void InputLine::resizeEvent(QResizeEvent* event) {
    QLineEdit::resizeEvent(event);
    keepRoom();
}

void InputLine::keepRoom() {
    constexpr int beforeText = 2; // as much as choices and paragraphs leave
    int room = 0;
    if (!unit_.isEmpty()) {
        room = unitWidth() + 2 * gap - 2;
    }
    if (button_ != nullptr) {
        const int size = height() - 4;
        button_->setGeometry(width() - size - 3, 2, size, size);
        room = size;
    }
    if (textMargins().right() != room || textMargins().left() != beforeText) {
        setTextMargins(beforeText, 0, room, 0);
    }
}

/// As much as the longest one takes, so that figures stand one below the other.
int InputLine::unitWidth() const {
    const QFontMetrics metrics(unitFont());
    return std::max(metrics.horizontalAdvance(unit_), metrics.horizontalAdvance(longestUnit_));
}

/// That of the form; the line's own is slanted while it shows a hint.
QFont InputLine::unitFont() const {
    QFont own = parentWidget() != nullptr ? parentWidget()->font() : font();
    own.setItalic(false);
    return own;
}

} // namespace fiscarel::forms
