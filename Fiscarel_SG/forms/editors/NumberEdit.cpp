#include "Fiscarel_SG/forms/editors/NumberEdit.h"

#include "Fiscarel_SG/forms/InputText.h"

#include <utility>

namespace fiscarel::forms {

NumberEdit::NumberEdit(BoundField field, QWidget* parent)
    : LineEditor(std::move(field), 24, parent) {
    showFigures();
}

LineEditor::Reading NumberEdit::read(const QString& text) const {
    if (isCount()) {
        return parseInteger(utf8(text), field().unit).map([](int count) { return Value(count); });
    }
    return parseNumber(utf8(text), field().unit).map([](const Decimal& number) {
        return Value(number);
    });
}

QString NumberEdit::shown(const Value& value) const {
    if (const auto* const count = std::get_if<int>(&value)) {
        return QString::number(*count); // ungrouped, as it may be a year
    }
    const auto* const number = std::get_if<Decimal>(&value);
    return number != nullptr ? qs(formatNumber(*number)) : QString();
}

QString NumberEdit::typed(const Value& value) const {
    const auto* const number = std::get_if<Decimal>(&value);
    return number != nullptr ? qs(number->toString()) : shown(value);
}

Value NumberEdit::emptyValue() const { return isCount() ? Value(0) : Value(Decimal()); }

} // namespace fiscarel::forms
