#pragma once

#include "Fiscarel_SG/forms/editors/LineEditor.h"

namespace fiscarel::forms {

/// Francs: grouped while the keyboard is elsewhere, plain while typing; sums are computed.
class AmountEdit final : public LineEditor {
  public:
    AmountEdit(BoundField field, QWidget* parent);

    QString note() const override;

  protected:
    Reading read(const QString& text) const override;
    QString shown(const Value& value) const override;
    QString typed(const Value& value) const override;
    Value emptyValue() const override { return Decimal(); }
};

} // namespace fiscarel::forms
