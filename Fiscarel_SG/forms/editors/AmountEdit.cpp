#include "Fiscarel_SG/forms/editors/AmountEdit.h"

#include "Fiscarel_SG/forms/CellText.h"
#include "Fiscarel_SG/forms/InputText.h"

#include <utility>

namespace fiscarel::forms {

AmountEdit::AmountEdit(BoundField field, QWidget* parent)
    : LineEditor(std::move(field), 24, parent) {
    showFigures();
}

QString AmountEdit::note() const { return noteOn(field(), value()); }

LineEditor::Reading AmountEdit::read(const QString& text) const {
    return parseAmount(utf8(text)).map([](const Decimal& amount) { return Value(amount); });
}

QString AmountEdit::shown(const Value& value) const {
    const auto* const amount = std::get_if<Decimal>(&value);
    return amount != nullptr ? qs(formatAmount(*amount)) : QString();
}

QString AmountEdit::typed(const Value& value) const {
    const auto* const amount = std::get_if<Decimal>(&value);
    return amount != nullptr ? qs(formatPlain(*amount)) : QString();
}

} // namespace fiscarel::forms
