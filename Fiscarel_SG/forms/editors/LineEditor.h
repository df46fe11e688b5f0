#pragma once

#include "Fiscarel_SG/forms/editors/EditorBase.h"
#include "Fiscarel_SG/forms/editors/InputLine.h"

#include <tl/expected.hpp>

namespace fiscarel::forms {

/// An editor of one line. What is typed is read with every key; until it can be read the value is
/// the one from before. Enter and leaving settle it: it is shown in its final form, or stays as
/// typed with the problem told. Escape goes back to the last settled value.
class LineEditor : public EditorBase {
  public:
    ~LineEditor() override;

    void setValue(const Value& value) override;
    Value value() const override { return value_; }
    QString unreadText() const override;
    void showUnread(const QString& text) override;
    void dropUnread() override;
    void setHint(const Value& lastYear) override;
    void setComputed(const Value& computed) override;

  protected:
    using Reading = tl::expected<Value, std::string>;

    /// `characters`: about how wide; 0 as wide as there is room.
    LineEditor(BoundField field, int characters, QWidget* parent);

    /// Reads a text that is not blank.
    virtual Reading read(const QString& text) const = 0;
    /// A value as it stands while the keyboard is elsewhere; not asked for empty values.
    virtual QString shown(const Value& value) const = 0;
    /// The same while the keyboard is in the field.
    virtual QString typed(const Value& value) const { return shown(value); }
    /// What an empty line means when the field must not be absent.
    virtual Value emptyValue() const = 0;
    /// What is wrong with a value that could be read, or came from elsewhere.
    virtual QString problemOf(const Value&) const { return {}; }
    /// Whether a text may be taken before it is settled; false while it is probably a beginning.
    virtual bool isLive(const QString&) const { return true; }
    /// Whether a text is as long as it will get, so that its problem is told at once.
    virtual bool isComplete(const QString&) const { return false; }
    /// Whether a popup of the field's own has the keyboard: that is not leaving it.
    virtual bool hasPopup() const { return false; }
    /// The user typed; the text may be brought into shape.
    virtual void typing() {}

    /// Right aligned, with the field's unit.
    void showFigures();

    InputLine* line() const { return line_; }
    bool isEmptyValue(const Value& value) const;
    /// Takes a value that was chosen instead of typed.
    void choose(const Value& value);
    /// Ends an edit: takes what was typed, or tells why it cannot be taken.
    void settle();

  private:
    Reading readLine() const;
    void textEdited();
    bool restore();
    void take(const Value& value);
    void show();
    void tell(const QString& problem);

    InputLine* line_;
    Value value_;
    Value settled_;        ///< of the last settled text; what Escape goes back to
    bool isTyped_ = false; ///< the line holds what the user typed and nobody has settled
};

} // namespace fiscarel::forms
