#include "Fiscarel_SG/forms/editors/LineEditor.h"

#include <utility>

namespace fiscarel::forms {

LineEditor::LineEditor(BoundField field, int characters, QWidget* parent)
    : EditorBase(std::move(field), parent), line_(new InputLine(this)) {
    adopt(line_, characters);
    connect(line_, &QLineEdit::textEdited, this, [this] { textEdited(); });
    connect(line_, &QLineEdit::returnPressed, this, [this] {
        settle();
        if (problem().isEmpty()) {
            line_->selectAll();
        }
    });
    line_->entered = [this] {
        if (!isTyped_) {
            show();
        }
    };
    line_->leaving = [this] {
        if (hasPopup()) {
            return;
        }
        settle();
        Q_EMIT left();
    };
    line_->escaped = [this] { return restore(); };
}

/// The line outlives this part of the editor a little and loses the keyboard meanwhile.
LineEditor::~LineEditor() {
    line_->entered = nullptr;
    line_->leaving = nullptr;
    line_->escaped = nullptr;
    line_->listRequested = nullptr;
}

void LineEditor::setValue(const Value& value) {
    if (value == value_) {
        return;
    }
    value_ = value;
    settled_ = value;
    isTyped_ = false;
    show();
    tell(problemOf(value));
}

void LineEditor::setHint(const Value& lastYear) {
    line_->setPlaceholderText(isEmptyValue(lastYear) ? QString() : hintFor(shown(lastYear)));
    line_->slantHint();
}

void LineEditor::setComputed(const Value& computed) {
    line_->setPlaceholderText(isEmptyValue(computed) ? QString()
                                                     : QStringLiteral("= ") + shown(computed));
    line_->slantHint();
}

bool LineEditor::isEmptyValue(const Value& value) const {
    return std::holds_alternative<std::monostate>(value)
           || (!field().isOptional && value == emptyValue()) || value == Value(std::string());
}

void LineEditor::showFigures() {
    line_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    line_->setUnit(qs(field().unit));
    line_->setSelectsAll(true);
}

LineEditor::Reading LineEditor::readLine() const {
    const QString text = line_->text().trimmed();
    if (text.isEmpty()) {
        return field().isOptional ? Value() : emptyValue();
    }
    return read(text);
}

QString LineEditor::unreadText() const {
    return isTyped_ && !problem().isEmpty() && !readLine() ? line_->text() : QString();
}

void LineEditor::showUnread(const QString& text) {
    line_->setText(text);
    if (readLine()) {
        show();
        return;
    }
    isTyped_ = true;
    settle();
    line_->setCursorPosition(0);
}

void LineEditor::textEdited() {
    isTyped_ = true;
    typing();
    const QString text = line_->text().trimmed();
    const Reading reading = readLine();
    if (!reading) {
        if (isComplete(text) || !problem().isEmpty()) {
            tell(qs(reading.error()));
            Q_EMIT problemChanged(); // the text did, even where the problem is the same
        }
        take(settled_);
    } else {
        tell({});
        take(text.isEmpty() || isLive(text) ? *reading : settled_);
    }
}

void LineEditor::settle() {
    if (isTyped_) {
        const Reading reading = readLine();
        if (!reading) {
            tell(qs(reading.error()));
            take(settled_);
            return;
        }
        isTyped_ = false;
        settled_ = *reading;
        tell(problemOf(*reading));
        take(*reading);
    }
    show();
}

void LineEditor::choose(const Value& value) {
    isTyped_ = false;
    settled_ = value;
    tell(problemOf(value));
    take(value);
    show();
}

void LineEditor::dropUnread() {
    if (isTyped_) {
        const Value before = settled_;
        choose(before);
    }
}

bool LineEditor::restore() {
    if (!isTyped_) {
        return false;
    }
    dropUnread();
    line_->selectAll();
    return true;
}

void LineEditor::take(const Value& value) {
    if (!(value == value_)) {
        value_ = value;
        describe();
        Q_EMIT edited();
    }
}

void LineEditor::show() {
    QString text;
    if (!isEmptyValue(value_)) {
        text = line_->hasFocus() ? typed(value_) : shown(value_);
    }
    if (text != line_->text()) {
        line_->setText(text);
    }
    if (!line_->hasFocus()) {
        line_->setCursorPosition(0); // of a long text the beginning is seen
    }
}

void LineEditor::tell(const QString& problem) {
    line_->setMarked(!problem.isEmpty());
    setProblem(problem);
}

} // namespace fiscarel::forms
