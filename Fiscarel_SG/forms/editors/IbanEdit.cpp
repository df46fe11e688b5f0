#include "Fiscarel_SG/forms/editors/IbanEdit.h"

#include "Fiscarel_SG/forms/InputText.h"
#include "TaxCore/base/Iban.h"

#include <utility>

namespace fiscarel::forms {

IbanEdit::IbanEdit(BoundField field, QWidget* parent) : LineEditor(std::move(field), 36, parent) {
    line()->setSelectsAll(true);
}

LineEditor::Reading IbanEdit::read(const QString& text) const {
    return parseIban(utf8(text)).map([](std::string iban) { return Value(std::move(iban)); });
}

QString IbanEdit::shown(const Value& value) const {
    const auto* const iban = std::get_if<std::string>(&value);
    return iban != nullptr ? qs(groupIban(*iban)) : QString();
}

QString IbanEdit::problemOf(const Value& value) const {
    const auto* const iban = std::get_if<std::string>(&value);
    if (iban == nullptr || iban->empty()) {
        return {};
    }
    const auto read = parseIban(*iban);
    return read ? QString() : qs(read.error());
}

bool IbanEdit::isComplete(const QString& text) const {
    constexpr std::size_t swissLength = 21;
    const std::string iban = taxcore::compactIban(utf8(text));
    return (iban.starts_with("CH") || iban.starts_with("LI")) && iban.size() >= swissLength;
}

void IbanEdit::typing() { line()->regroup(qs(groupIban(utf8(line()->text())))); }

} // namespace fiscarel::forms
