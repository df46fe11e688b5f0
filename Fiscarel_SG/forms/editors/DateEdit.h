#pragma once

#include "Fiscarel_SG/forms/editors/LineEditor.h"

#include <QPointer>

namespace fiscarel::forms {

/// A day, typed in short or in full, or picked from a calendar (button, Alt+Down).
class DateEdit final : public LineEditor {
  public:
    /// `referenceYear`: of the tax return; short years are meant near it.
    DateEdit(BoundField field, int referenceYear, QWidget* parent);

    /// Without last year's value the hint tells how a day is written.
    void setHint(const Value& lastYear) override;

  protected:
    Reading read(const QString& text) const override;
    QString shown(const Value& value) const override;
    Value emptyValue() const override { return Date(); }
    bool isLive(const QString& text) const override;
    bool hasPopup() const override { return calendar_ != nullptr; }

  private:
    bool openCalendar();

    int referenceYear_;
    QPointer<QWidget> calendar_;
};

} // namespace fiscarel::forms
