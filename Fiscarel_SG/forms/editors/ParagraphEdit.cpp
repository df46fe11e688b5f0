#include "Fiscarel_SG/forms/editors/ParagraphEdit.h"

#include <QAbstractTextDocumentLayout>
#include <QKeyEvent>
#include <algorithm>
#include <cmath>
#include <utility>

namespace fiscarel::forms {

ParagraphBox::ParagraphBox(QWidget* parent) : QPlainTextEdit(parent) {
    setTabChangesFocus(true);
    setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    connect(document()->documentLayout(), &QAbstractTextDocumentLayout::documentSizeChanged, this,
            [this] { fitHeight(); });
    fitHeight();
}

bool ParagraphBox::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride) {
        // With nothing typed to take back, undo and redo are those of the whole return.
        const auto* const key = static_cast<QKeyEvent*>(event);
        if ((key->matches(QKeySequence::Undo) && !document()->isUndoAvailable())
            || (key->matches(QKeySequence::Redo) && !document()->isRedoAvailable())) {
            event->ignore();
            return false;
        }
    }
    const bool handled = QPlainTextEdit::event(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
        fitHeight();
    }
    return handled;
}

void ParagraphBox::fitHeight() {
    // The layout of plain text measures in lines.
    const double lines = std::clamp(document()->size().height(), 2.0, 4.0);
    const double margins = 2 * (document()->documentMargin() + frameWidth());
    const QMargins inside = contentsMargins();
    setFixedHeight(static_cast<int>(std::ceil(lines * fontMetrics().lineSpacing() + margins))
                   + inside.top() + inside.bottom());
}

ParagraphEdit::ParagraphEdit(BoundField field, QWidget* parent)
    : EditorBase(std::move(field), parent), box_(new ParagraphBox(this)) {
    adopt(box_, 0);
    watchLeaving(box_);
    connect(box_, &QPlainTextEdit::textChanged, this, [this] {
        const QString text = box_->toPlainText().trimmed();
        const Value typed =
            text.isEmpty() && this->field().isOptional ? Value() : Value(utf8(text));
        if (!(typed == value_)) {
            value_ = typed;
            Q_EMIT edited();
        }
    });
}

void ParagraphEdit::setValue(const Value& value) {
    if (value == value_) {
        return;
    }
    value_ = value;
    const auto* const text = std::get_if<std::string>(&value);
    const QSignalBlocker quiet(box_);
    box_->setPlainText(text != nullptr ? qs(*text) : QString());
}

void ParagraphEdit::setHint(const Value& lastYear) {
    const auto* const text = std::get_if<std::string>(&lastYear);
    box_->setPlaceholderText(text != nullptr ? hintFor(qs(*text)) : QString());
}

} // namespace fiscarel::forms
