#include "Fiscarel_SG/forms/editors/CheckEdit.h"

#include <QCheckBox>
#include <utility>

namespace fiscarel::forms {

CheckEdit::CheckEdit(BoundField field, QWidget* parent)
    : EditorBase(std::move(field), parent), box_(new QCheckBox(QStringLiteral("Ja"), this)) {
    adopt(box_, 0);
    watchLeaving(box_);
    // `clicked` is the user's alone, by mouse or by key.
    connect(box_, &QCheckBox::clicked, this, [this](bool checked) {
        value_ = checked;
        Q_EMIT edited();
    });
}

void CheckEdit::setValue(const Value& value) {
    const auto* const checked = std::get_if<bool>(&value);
    value_ = value;
    box_->setChecked(checked != nullptr && *checked);
}

} // namespace fiscarel::forms
