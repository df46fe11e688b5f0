#pragma once

#ifndef Q_MOC_RUN
#include "Fiscarel_SG/forms/FieldEditor.h"
#endif

#include <QWidget>

class QLabel;

namespace fiscarel {
class AppStore;
}

namespace fiscarel::forms {

class DocumentClip;
class HelpButton;

/// One field on a page: label, editor, help, the problem of what is typed, and what is
/// chosen at length. Reads from the store
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
    /// Puts the keyboard here; false when the field is not there to be edited.
    bool focusField();
    void showHelp(bool shown);
    void toggleHelp();

  Q_SIGNALS:
    /// The user wrote the field.
    void written(const std::string& path);

  private:
    void write();
    /// The problem, and what is chosen at length or becomes of the entry.
    void showState();
    /// Tells the store what is typed and cannot be read.
    void tellUnread();
    /// Shows what the store kept of that while the field was not there.
    void restoreUnread();
    void showLabel();
    void showUsable();

    BoundField field_;
    const std::string pageId_;
    const int year_;
    QString unread_; ///< what the store was told; null: all can be read
    AppStore& store_;
    QLabel* label_;
    FieldEditor* editor_;
    QLabel* problem_;
    QLabel* wording_;
    QLabel* help_;
    HelpButton* helpButton_;
    DocumentClip* clip_;
};

} // namespace fiscarel::forms
