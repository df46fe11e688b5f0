#pragma once

#include "Fiscarel_SG/forms/editors/LineEditor.h"

namespace fiscarel::forms {

/// One line of text; blanks around it do not count.
class TextEdit final : public LineEditor {
  public:
    TextEdit(BoundField field, QWidget* parent);

  protected:
    Reading read(const QString& text) const override;
    QString shown(const Value& value) const override;
    Value emptyValue() const override { return std::string(); }
};

} // namespace fiscarel::forms
