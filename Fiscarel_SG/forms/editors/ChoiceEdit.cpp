#include "Fiscarel_SG/forms/editors/ChoiceEdit.h"

#include <QWheelEvent>
#include <algorithm>
#include <utility>

namespace fiscarel::forms {

namespace {

constexpr int boxCharacters = 36;

} // namespace

ChoiceBox::ChoiceBox(QWidget* parent) : QComboBox(parent) {
    setFocusPolicy(Qt::StrongFocus); // the wheel gives no focus either
    setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(8);
    setMaxVisibleItems(14);
}

void ChoiceBox::setMarked(bool marked) {
    if (marked != marked_) {
        marked_ = marked;
        update();
    }
}

/// Even with the keyboard in the box: who scrolls the page past it wants to scroll.
void ChoiceBox::wheelEvent(QWheelEvent* event) { event->ignore(); }

void ChoiceBox::paintEvent(QPaintEvent* event) {
    QComboBox::paintEvent(event);
    if (marked_) {
        paintProblem(*this);
    }
}

ChoiceEdit::ChoiceEdit(BoundField field, QWidget* parent)
    : EditorBase(std::move(field), parent), box_(new ChoiceBox(this)) {
    adopt(box_, boxCharacters);
    watchLeaving(box_);
    setOptions(this->field().options);
    connect(box_, &QComboBox::activated, this, [this](int index) {
        const QVariant raw = box_->itemData(index);
        take(raw.isValid() ? Value(utf8(raw.toString())) : Value());
        show(); // «Keine Angabe» leaves the box empty, with its hint
    });
}

void ChoiceEdit::setValue(const Value& value) {
    if (value == value_) {
        return;
    }
    value_ = value;
    show();
    changed();
}

const Option* ChoiceEdit::optionOf(const Value& value) const {
    const auto* const raw = std::get_if<std::string>(&value);
    const auto option =
        raw != nullptr ? std::ranges::find(options_, *raw, &Option::raw) : options_.end();
    return option != options_.end() ? &*option : nullptr;
}

QString ChoiceEdit::wording() const {
    const Option* const chosen = optionOf(value_);
    if (chosen != nullptr) {
        return qs(chosen->wording);
    }
    // What is not offered may be longer than the box.
    const auto* const raw = std::get_if<std::string>(&value_);
    const QString own = raw != nullptr ? qs(*raw) : QString();
    return own.size() > boxCharacters ? own : QString();
}

void ChoiceEdit::setHint(const Value& lastYear) {
    const auto* const raw = std::get_if<std::string>(&lastYear);
    QString hint;
    if (raw != nullptr && !raw->empty()) {
        const Option* const option = optionOf(lastYear);
        hint = hintFor(qs(option != nullptr ? option->label : *raw));
    }
    box_->setPlaceholderText(hint);
}

void ChoiceEdit::setOptions(std::vector<Option> options) {
    options_ = std::move(options);
    box_->clear();
    for (const Option& option : options_) {
        box_->addItem(qs(option.label), qs(option.raw));
        box_->setItemData(box_->count() - 1, qs(option.wording), Qt::ToolTipRole);
    }
    // At the end, so that the down key on an empty box takes the first option.
    if (field().isOptional) {
        box_->addItem(QStringLiteral("Keine Angabe"));
    }
    show();
    changed();
}

void ChoiceEdit::take(const Value& value) {
    if (value == value_) {
        return;
    }
    value_ = value;
    show();
    changed();
    Q_EMIT edited();
}

/// Without a value nothing is chosen, which shows the hint. A value that is not offered is shown
/// behind the options as long as it stands.
void ChoiceEdit::show() {
    const int offered = static_cast<int>(options_.size()) + (field().isOptional ? 1 : 0);
    while (box_->count() > offered) {
        box_->removeItem(box_->count() - 1);
    }
    describe();
    const auto* const raw = std::get_if<std::string>(&value_);
    if (raw == nullptr || raw->empty()) {
        box_->setCurrentIndex(-1);
        return;
    }
    if (box_->findData(qs(*raw)) < 0) {
        box_->addItem(qs(*raw), qs(*raw));
    }
    box_->setCurrentIndex(box_->findData(qs(*raw)));
}

} // namespace fiscarel::forms
