#pragma once

#include "Fiscarel_SG/forms/editors/EditorBase.h"

#include <QPlainTextEdit>

namespace fiscarel::forms {

/// A text box of two to four lines, as high as its text; Tab moves on.
class ParagraphBox final : public QPlainTextEdit {
  public:
    explicit ParagraphBox(QWidget* parent);

  protected:
    bool event(QEvent* event) override;

  private:
    void fitHeight();
};

/// Several lines of text; blanks around them do not count.
class ParagraphEdit final : public EditorBase {
  public:
    ParagraphEdit(BoundField field, QWidget* parent);

    void setValue(const Value& value) override;
    Value value() const override { return value_; }
    void setHint(const Value& lastYear) override;

  private:
    ParagraphBox* box_;
    Value value_;
};

} // namespace fiscarel::forms
