#pragma once

#include "Fiscarel_SG/forms/FieldEditor.h"
#include "Fiscarel_SG/look/QtText.h"

#include <QColor>
#include <QPalette>

namespace fiscarel::forms {

/// The colour for hints and units: as faint as a contrast of 4.5 to the background allows (WCAG
/// AA).
QColor faintText(const QPalette& palette);
QColor faintText(const QPalette& palette, const QColor& background);
/// The colour that marks a problem, with the same contrast, in light and in dark.
QColor problemColour(const QPalette& palette);
/// Frames a widget that holds a problem.
void paintProblem(QWidget& widget);

/// What all editors have in common: names for people and for assistive technology, the colour of
/// hints, the problem.
class EditorBase : public FieldEditor {
  public:
    EditorBase(BoundField field, QWidget* parent);

    QString problem() const override { return problem_; }
    QWidget* input() override { return input_; }

  protected:
    const BoundField& field() const { return field_; }

    /// Takes the widget that gets the keyboard: lays it out, no wider than `characters` (0: as wide
    /// as there is room), and names it.
    void adopt(QWidget* input, int characters);

    /// Emits `left` when the keyboard leaves a widget, for its own popups aside.
    void watchLeaving(QWidget* widget);

    /// Tells a problem, or with an empty text that there is none any more.
    void setProblem(const QString& problem);

    /// Tells assistive technology what is wrong, what is chosen and what the field is for.
    void describe();

    /// "Vorjahr: 82’400"; empty for what was empty.
    static QString hintFor(const QString& lastYear);

    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void colourHint();
    void limitWidth();

    BoundField field_;
    QWidget* input_ = nullptr;
    int characters_ = 0;
    QString problem_;
};

} // namespace fiscarel::forms
