#pragma once

#include "Fiscarel_SG/forms/editors/EditorBase.h"

class QCheckBox;

namespace fiscarel::forms {

/// Yes or no. The label stands beside the field as with others; the box itself says «Ja».
class CheckEdit final : public EditorBase {
  public:
    CheckEdit(BoundField field, QWidget* parent);

    void setValue(const Value& value) override;
    Value value() const override { return value_; }
    void setHint(const Value&) override {} // a box is never empty

  private:
    QCheckBox* box_;
    Value value_;
};

} // namespace fiscarel::forms
