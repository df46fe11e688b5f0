#pragma once

#include "Fiscarel_SG/forms/Field.h"

#include <tl/expected.hpp>

#include <QString>

namespace fiscarel::forms {

// Values as the cells of a table show and read them.

/// Whether a kind of field stands right aligned, as figures do.
bool isNumber(Editor editor) noexcept;

/// A value as a cell shows it, which `readCell` reads back: amounts and numbers grouped, choices by
/// their label. Nothing for absent values, for 0 and for «no».
QString cellText(const BoundField& field, const Value& value);

/// What stands in a cell of a table or a spreadsheet, as a value of the field; or a German sentence
/// that says why it is none. An empty cell is the absent value, which leaves a choice
/// that must not be absent as it is. Short years are meant near `referenceYear`.
tl::expected<Value, QString> readCell(const BoundField& field, const QString& text,
                                      int referenceYear);

/// A gentle word on a value that is kept but probably not meant: an amount below zero where none
/// is meaningful. Empty for others.
QString noteOn(const BoundField& field, const Value& value);

} // namespace fiscarel::forms
