#pragma once

#ifndef Q_MOC_RUN
#include "Fiscarel_SG/forms/Field.h"
#endif

#include <QString>
#include <QWidget>
#include <functional>

namespace fiscarel::forms {

/// Edits the value of one field. What a user types stays as typed while it cannot be read; the
/// problem is then told in German and the value stays what it was.
class FieldEditor : public QWidget {
    Q_OBJECT

  public:
    explicit FieldEditor(QWidget* parent) : QWidget(parent) {}

    /// Shows a value that came from elsewhere; emits nothing. An equal one leaves alone what is
    /// being typed.
    virtual void setValue(const Value& value) = 0;
    virtual Value value() const = 0;
    /// Last year's value, shown faintly while the field is empty; absent values show nothing.
    virtual void setHint(const Value& lastYear) = 0;
    /// What counts while the field is empty, shown faintly there; absent values show nothing.
    virtual void setComputed(const Value& computed) { Q_UNUSED(computed) }
    /// Why what is typed cannot be read, one German sentence; empty while it can.
    virtual QString problem() const { return {}; }
    /// What is typed and cannot be read, so that the value is the one from before; null while it
    /// can.
    virtual QString unreadText() const { return {}; }
    /// Puts such a text back, with its problem; one that can be read is not taken.
    virtual void showUnread(const QString& text) { Q_UNUSED(text) }
    /// Drops such a text for the value.
    virtual void dropUnread() {}
    /// A gentle word on a value that is kept but probably not meant, one German sentence; empty for
    /// most.
    virtual QString note() const { return {}; }
    /// What the value means at length, in German; empty for most.
    virtual QString wording() const { return {}; }
    /// Another field changed: what is offered from it is made anew. `editedPath` is the field that
    /// the user just edited, and then this field may follow and emit `edited`; it is empty when the
    /// change came from elsewhere (undo, another computer), and then nothing is emitted.
    virtual void refresh(const QString& editedPath = {}) { Q_UNUSED(editedPath) }
    /// The widget that takes the keyboard; it carries the accessible name.
    virtual QWidget* input() = 0;

  Q_SIGNALS:
    /// The user changed the value.
    void edited();
    /// `problem` or `unreadText` changed.
    void problemChanged();
    /// The keyboard went elsewhere: the next edit is another one.
    void left();
};

/// What editors ask of their surroundings.
struct EditorContext {
    PageContext page;
    /// The case being edited; the parish editor asks for its municipality.
    std::function<const TaxCase&()> taxCase;
    std::string pageId; ///< of the page the field stands on
};

/// The editor for a field; owned by `parent`. Its input is named after the field's path.
FieldEditor* makeEditor(const BoundField& field, const EditorContext& context, QWidget* parent);

} // namespace fiscarel::forms
