#pragma once

#include "Fiscarel_SG/forms/editors/LineEditor.h"

namespace fiscarel::forms {

/// An account number, grouped in fours while it is typed; the check digits are verified.
class IbanEdit final : public LineEditor {
  public:
    IbanEdit(BoundField field, QWidget* parent);

  protected:
    Reading read(const QString& text) const override;
    QString shown(const Value& value) const override;
    Value emptyValue() const override { return std::string(); }
    QString problemOf(const Value& value) const override;
    bool isComplete(const QString& text) const override;
    void typing() override;
};

} // namespace fiscarel::forms
