#include "Fiscarel_SG/forms/editors/TextEdit.h"

#include <utility>

namespace fiscarel::forms {

TextEdit::TextEdit(BoundField field, QWidget* parent) : LineEditor(std::move(field), 0, parent) {}

LineEditor::Reading TextEdit::read(const QString& text) const { return utf8(text); }

QString TextEdit::shown(const Value& value) const {
    const auto* const text = std::get_if<std::string>(&value);
    return text != nullptr ? qs(*text) : QString();
}

} // namespace fiscarel::forms
