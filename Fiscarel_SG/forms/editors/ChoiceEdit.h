#pragma once

#include "Fiscarel_SG/forms/editors/EditorBase.h"

#include <QComboBox>

namespace fiscarel::forms {

/// A combo box that leaves the wheel to the page around it.
class ChoiceBox final : public QComboBox {
  public:
    explicit ChoiceBox(QWidget* parent);

    /// Marks that the choice is a problem.
    void setMarked(bool marked);

  protected:
    void wheelEvent(QWheelEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    bool marked_ = false;
};

/// One of the field's options; an optional field also offers «Keine Angabe».
class ChoiceEdit : public EditorBase {
  public:
    ChoiceEdit(BoundField field, QWidget* parent);

    void setValue(const Value& value) override;
    Value value() const override { return value_; }
    void setHint(const Value& lastYear) override;
    QString wording() const override;

  protected:
    /// Offers these; the value stays what it is.
    void setOptions(std::vector<Option> options);
    const std::vector<Option>& options() const { return options_; }
    ChoiceBox* box() const { return box_; }
    /// Takes a value as if the user had chosen it.
    void take(const Value& value);
    /// The value is another one, or the options are.
    virtual void changed() {}

  private:
    void show();
    /// The option with the text of a value; null when none is offered.
    const Option* optionOf(const Value& value) const;

    ChoiceBox* box_;
    std::vector<Option> options_;
    Value value_;
};

} // namespace fiscarel::forms
