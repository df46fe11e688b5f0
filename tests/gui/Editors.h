#pragma once

#include "Fiscarel_SG/forms/FieldEditor.h"

#include <gtest/gtest.h>

#include <QLineEdit>
#include <QTest>
#include <QVBoxLayout>
#include <memory>

namespace fiscarel::forms {

/// A window with editors and one more field to go to.
class Editors : public testing::Test {
  protected:
    Editors() : layout_(new QVBoxLayout(&window_)), elsewhere_(new QLineEdit(&window_)) {
        layout_->addWidget(elsewhere_);
        rules_ = taxcore::RuleBook::load(2025, "SG").value_or(nullptr);
        taxCase_.year = 2025;
    }

    FieldEditor& make(Editor kind, bool isOptional = false, const char* path = "income1.field") {
        BoundField field;
        field.path = path;
        field.label = "Bruttolohn";
        field.help = "Ziffer 8 des Lohnausweises.";
        field.editor = kind;
        field.unit = kind == Editor::amount ? "CHF" : kind == Editor::integer ? "Tage" : "";
        field.isOptional = isOptional;
        if (kind == Editor::choice) {
            field.options = {
                {"ledig", "ledig", {}}, {"verheiratet", "verheiratet", {}}, {"w", "verwitwet", {}}};
        }
        const EditorContext context{.page = {.year = 2025, .stGallen = rules_.get()},
                                    .taxCase = [this]() -> const TaxCase& { return taxCase_; }};
        FieldEditor* const editor = makeEditor(field, context, &window_);
        layout_->addWidget(editor);
        return *editor;
    }

    /// Shows the window and puts the keyboard into the field after the one to go to.
    void enter(FieldEditor& editor) {
        window_.show();
        window_.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window_));
        editor.setFocus(Qt::TabFocusReason);
        ASSERT_TRUE(editor.input()->hasFocus());
    }
    void leave() { elsewhere_->setFocus(Qt::TabFocusReason); }

    static QLineEdit& line(FieldEditor& editor) {
        return dynamic_cast<QLineEdit&>(*editor.input());
    }
    static void type(FieldEditor& editor, const QString& text) {
        QTest::keyClicks(editor.input(), text);
    }
    static void retype(FieldEditor& editor, const QString& text) {
        line(editor).selectAll();
        type(editor, text);
    }

    QWidget window_;
    QVBoxLayout* layout_;
    QLineEdit* elsewhere_;
    std::shared_ptr<const taxcore::RuleBook> rules_;
    TaxCase taxCase_;
};

} // namespace fiscarel::forms
