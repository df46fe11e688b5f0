#pragma once

#include "Fiscarel_SG/forms/editors/LineEditor.h"

namespace fiscarel::forms {

/// A number with a unit: a decimal one, or a count when the field is an integer.
class NumberEdit final : public LineEditor {
  public:
    NumberEdit(BoundField field, QWidget* parent);

  protected:
    Reading read(const QString& text) const override;
    QString shown(const Value& value) const override;
    QString typed(const Value& value) const override;
    Value emptyValue() const override;

  private:
    bool isCount() const { return field().editor == Editor::integer; }
};

} // namespace fiscarel::forms
