#pragma once

#ifndef Q_MOC_RUN
#include "Fiscarel_SG/forms/FieldEditor.h"
#endif

#include <QWidget>

class QLabel;
class QToolButton;

namespace fiscarel {
class AppStore;
}

namespace fiscarel::forms {

/// One field on a page: label, editor, help, and the problem of what is typed. Reads from the store
/// and writes to it.
class FieldRow final : public QWidget {
    Q_OBJECT

  public:
    /// Of the labels; figures below fields keep to it.
    static constexpr int labelWidth = 250;

    FieldRow(BoundField field, AppStore& store, const EditorContext& context, QWidget* parent);

    const BoundField& field() const noexcept { return field_; }
    FieldEditor& editor() noexcept { return *editor_; }
    /// Shows what the case holds now.
    void refresh();
    /// Puts the keyboard here.
    void focusField();
    void showHelp(bool shown);
    void toggleHelp();

  Q_SIGNALS:
    /// The user wrote the field.
    void written(const std::string& path);

  private:
    void write();
    void showProblem();

    BoundField field_;
    AppStore& store_;
    FieldEditor* editor_;
    QLabel* problem_;
    QLabel* help_;
    QToolButton* helpButton_;
};

} // namespace fiscarel::forms
