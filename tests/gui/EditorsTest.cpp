#include "tests/gui/Editors.h"

#include "tests/gui/Contrast.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QPlainTextEdit>
#include <QSignalSpy>
#include <string>

namespace fiscarel::forms {
namespace {

using namespace Qt::Literals::StringLiterals;

Value francs(const char* text) { return *Decimal::parse(text); }

TEST_F(Editors, amountIsPlainWhileTypedAndGroupedOtherwise) {
    FieldEditor& editor = make(Editor::amount);
    editor.setValue(francs("82400.5"));
    EXPECT_EQ(line(editor).text(), u"82’400.50"_s);
    enter(editor);
    EXPECT_EQ(line(editor).text(), u"82400.50"_s);
    EXPECT_EQ(line(editor).selectedText(), u"82400.50"_s);
    type(editor, u"1200*12"_s);
    EXPECT_EQ(editor.value(), francs("14400")) << "live while it can be read";
    EXPECT_EQ(line(editor).text(), u"1200*12"_s);
    QTest::keyClick(editor.input(), Qt::Key_Return);
    EXPECT_EQ(line(editor).text(), u"14400"_s);
    leave();
    EXPECT_EQ(line(editor).text(), u"14’400"_s);
    EXPECT_TRUE(line(editor).alignment().testFlag(Qt::AlignRight));
}

TEST_F(Editors, amountThatCannotBeReadStaysAsTyped) {
    FieldEditor& editor = make(Editor::amount);
    editor.setValue(francs("100"));
    QSignalSpy problems(&editor, &FieldEditor::problemChanged);
    enter(editor);
    type(editor, u"12.3.4"_s);
    EXPECT_EQ(editor.value(), francs("100")) << "not the 12.3 on the way";
    EXPECT_TRUE(editor.problem().isEmpty()) << "nobody is told off while typing";
    leave();
    EXPECT_EQ(line(editor).text(), u"12.3.4"_s);
    EXPECT_EQ(editor.problem(), u"«12.3.4» ist kein Betrag. Beispiel: 1’250.50 oder 12*980."_s);
    EXPECT_TRUE(editor.input()->accessibleDescription().startsWith(editor.problem()));
    EXPECT_EQ(problems.count(), 1);

    editor.setValue(francs("100"));
    EXPECT_EQ(line(editor).text(), u"12.3.4"_s) << "an equal value leaves alone what is typed";

    enter(editor);
    retype(editor, u"12.34"_s);
    EXPECT_TRUE(editor.problem().isEmpty());
    EXPECT_EQ(editor.value(), francs("12.34"));
    EXPECT_EQ(problems.count(), 2);
}

TEST_F(Editors, escapeGoesBackToTheLastGoodValue) {
    FieldEditor& editor = make(Editor::amount);
    editor.setValue(francs("100"));
    enter(editor);
    type(editor, u"250"_s);
    EXPECT_EQ(editor.value(), francs("250"));
    QTest::keyClick(editor.input(), Qt::Key_Escape);
    EXPECT_EQ(editor.value(), francs("100"));
    EXPECT_EQ(line(editor).text(), u"100"_s);

    retype(editor, u"x"_s);
    QTest::keyClick(editor.input(), Qt::Key_Return);
    EXPECT_FALSE(editor.problem().isEmpty());
    QTest::keyClick(editor.input(), Qt::Key_Escape);
    EXPECT_TRUE(editor.problem().isEmpty());
    EXPECT_EQ(line(editor).text(), u"100"_s);

    QTest::keyClick(editor.input(), Qt::Key_Up);
    QTest::keyClick(editor.input(), Qt::Key_Down);
    EXPECT_EQ(editor.value(), francs("100"));
}

TEST_F(Editors, emptyMeansAbsentOrNothing) {
    FieldEditor& mandatory = make(Editor::amount);
    FieldEditor& optional = make(Editor::amount, true);
    FieldEditor& count = make(Editor::integer);
    mandatory.setHint(francs("82400"));
    mandatory.setValue(francs("5"));
    optional.setValue(francs("0"));
    EXPECT_EQ(line(optional).text(), u"0"_s) << "a nought that was entered";
    enter(mandatory);
    QTest::keyClick(mandatory.input(), Qt::Key_Delete);
    enter(optional);
    QTest::keyClick(optional.input(), Qt::Key_Delete);
    leave();
    EXPECT_EQ(mandatory.value(), francs("0"));
    EXPECT_EQ(line(mandatory).text(), QString());
    EXPECT_EQ(line(mandatory).placeholderText(), u"Vorjahr: 82’400"_s);
    EXPECT_EQ(optional.value(), Value());
    EXPECT_EQ(line(count).placeholderText(), QString());
    mandatory.setHint({});
    EXPECT_EQ(line(mandatory).placeholderText(), QString());
}

TEST_F(Editors, onlyTheUserEdits) {
    struct Row {
        Editor kind;
        Value first;
        Value second;
    };
    for (const Row& row : {
             Row{Editor::amount, francs("1"), francs("2")},
             {Editor::decimal, francs("1.5"), francs("2")},
             {Editor::integer, 1, 2},
             {Editor::text, std::string("a"), std::string("b")},
             {Editor::paragraph, std::string("a"), std::string("b\nc")},
             {Editor::check, false, true},
             {Editor::choice, std::string("ledig"), std::string("w")},
             {Editor::date, *Date::of(2024, 2, 29), *Date::of(2025, 1, 1)},
             {Editor::iban, std::string("CH93 0076 2011 6238 5295 7"), std::string("LI21")},
             {Editor::municipality, std::string("Buchs"), std::string("Wil")},
             {Editor::parish, std::string("Buchs"), std::string("Wil")},
         }) {
        FieldEditor& editor = make(row.kind, true);
        QSignalSpy edits(&editor, &FieldEditor::edited);
        for (const Value& value : {row.first, row.second, Value(), row.first}) {
            editor.setValue(value);
            EXPECT_EQ(editor.value(), value);
        }
        editor.setHint(row.second);
        editor.refresh();
        QSignalSpy leavings(&editor, &FieldEditor::left);
        enter(editor);
        leave();
        EXPECT_EQ(leavings.count(), 1) << static_cast<int>(row.kind);
        EXPECT_EQ(edits.count(), 0) << static_cast<int>(row.kind);
        EXPECT_EQ(editor.value(), row.first) << static_cast<int>(row.kind);
        EXPECT_EQ(editor.input()->objectName(), u"income1.field"_s);
        EXPECT_EQ(editor.input()->accessibleName(), u"Bruttolohn"_s);
        EXPECT_TRUE(editor.input()->accessibleDescription().endsWith(u"Lohnausweises."_s));
        EXPECT_EQ(editor.focusProxy(), editor.input());
    }
}

TEST_F(Editors, numbersAndTextsAreTaken) {
    FieldEditor& kilometres = make(Editor::decimal);
    FieldEditor& days = make(Editor::integer);
    FieldEditor& name = make(Editor::text, true);
    enter(kilometres);
    type(kilometres, u"12,5"_s);
    enter(days);
    type(days, u"220 Tage"_s);
    enter(name);
    type(name, u"  Muster AG "_s);
    leave();
    EXPECT_EQ(kilometres.value(), francs("12.5"));
    EXPECT_EQ(line(kilometres).text(), u"12.5"_s);
    EXPECT_EQ(days.value(), Value(220));
    EXPECT_EQ(line(days).text(), u"220"_s);
    EXPECT_EQ(name.value(), Value(std::string("Muster AG")));
    EXPECT_EQ(line(name).text(), u"Muster AG"_s);
    enter(days);
    retype(days, u"12.5"_s);
    leave();
    EXPECT_EQ(days.value(), Value(220));
    EXPECT_TRUE(days.problem().contains(u"ganze Zahl"_s));
}

TEST_F(Editors, aClickSelectsAFigureAndTheNextOnePlacesTheCursor) {
    FieldEditor& editor = make(Editor::amount);
    editor.setValue(francs("1234"));
    enter(editor);
    leave();
    QTest::mouseClick(editor.input(), Qt::LeftButton);
    EXPECT_EQ(line(editor).selectedText(), u"1234"_s);
    QTest::qWait(QApplication::doubleClickInterval() + 50);
    QTest::mouseClick(editor.input(), Qt::LeftButton);
    EXPECT_EQ(line(editor).selectedText(), QString());
}

TEST_F(Editors, undoIsTheReturnsWhenNothingWasTyped) {
    for (const Editor kind : {Editor::amount, Editor::paragraph}) {
        FieldEditor& editor = make(kind);
        editor.setValue(kind == Editor::amount ? francs("100") : Value(std::string("Text")));
        enter(editor);
        const auto keeps = [&] {
            QKeyEvent undo(QEvent::ShortcutOverride, Qt::Key_Z, Qt::ControlModifier);
            undo.ignore();
            QApplication::sendEvent(editor.input(), &undo);
            return undo.isAccepted();
        };
        EXPECT_FALSE(keeps());
        type(editor, u"7"_s);
        EXPECT_TRUE(keeps());
    }
}

TEST_F(Editors, paragraphGrowsToFourLinesAndTabMovesOn) {
    FieldEditor& editor = make(Editor::paragraph);
    FieldEditor& next = make(Editor::text);
    enter(editor);
    auto& box = dynamic_cast<QPlainTextEdit&>(*editor.input());
    const int low = box.height();
    int before = low;
    for (int lines = 2; lines <= 6; ++lines) {
        QTest::keyClick(&box, Qt::Key_Return);
        type(editor, u"a"_s);
        QApplication::processEvents();
        EXPECT_EQ(box.height() > before, lines == 3 || lines == 4) << lines;
        before = box.height();
    }
    EXPECT_EQ(editor.value(), Value(std::string("a\na\na\na\na")));
    QTest::keyClick(&box, Qt::Key_Tab);
    EXPECT_TRUE(next.input()->hasFocus());
}

TEST_F(Editors, dateIsTypedInShortAndTakenWhenItIsClear) {
    FieldEditor& editor = make(Editor::date, true);
    enter(editor);
    type(editor, u"1.3.19"_s);
    EXPECT_EQ(editor.value(), Value()) << "may become 1984";
    type(editor, u"84"_s);
    EXPECT_EQ(editor.value(), Value(*Date::of(1984, 3, 1)));
    leave();
    EXPECT_EQ(line(editor).text(), u"01.03.1984"_s);
    enter(editor);
    type(editor, u"1.3.84"_s);
    QTest::keyClick(editor.input(), Qt::Key_Return);
    EXPECT_EQ(editor.value(), Value(*Date::of(1984, 3, 1)));
    retype(editor, u"30.2.25"_s);
    leave();
    EXPECT_EQ(editor.problem(), u"Den 30. Februar gibt es nicht."_s);
    EXPECT_EQ(line(editor).text(), u"30.2.25"_s);
    EXPECT_EQ(editor.value(), Value(*Date::of(1984, 3, 1)));
}

TEST_F(Editors, accountNumberIsGroupedWhileItIsTypedOrPasted) {
    FieldEditor& editor = make(Editor::iban);
    enter(editor);
    type(editor, u"ch9300762"_s);
    EXPECT_EQ(line(editor).text(), u"CH93 0076 2"_s);
    EXPECT_EQ(line(editor).cursorPosition(), 11);
    EXPECT_TRUE(editor.problem().isEmpty());
    line(editor).setCursorPosition(4);
    type(editor, u"5"_s);
    EXPECT_EQ(line(editor).text(), u"CH93 5007 62"_s);
    EXPECT_EQ(line(editor).cursorPosition(), 6);
    QTest::keyClick(editor.input(), Qt::Key_Backspace);
    EXPECT_EQ(line(editor).text(), u"CH93 0076 2"_s);
    leave();
    EXPECT_TRUE(editor.problem().contains(u"zu wenig"_s));
    EXPECT_EQ(editor.value(), Value());

    enter(editor);
    QApplication::clipboard()->setText(u" CH93 0076 2011 6238 5295 7\n"_s);
    line(editor).selectAll();
    QTest::keyClick(editor.input(), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(editor.value(), Value(std::string("CH93 0076 2011 6238 5295 7")));
    EXPECT_TRUE(editor.problem().isEmpty());

    retype(editor, u"CH930076201162385259"_s);
    EXPECT_TRUE(editor.problem().isEmpty()) << "one more to come";
    type(editor, u"7"_s);
    EXPECT_TRUE(editor.problem().contains(u"Prüfziffern"_s)) << "told at once when complete";

    FieldEditor& stored = make(Editor::iban);
    stored.setValue(std::string("CH93 0076 2011 6238 5295 8"));
    EXPECT_TRUE(stored.problem().contains(u"Prüfziffern"_s)) << "from a file";
}

TEST_F(Editors, anEditorMayGoWhileItHasTheKeyboard) {
    for (const Editor kind : {Editor::amount, Editor::date, Editor::municipality, Editor::check,
                              Editor::choice, Editor::paragraph}) {
        FieldEditor& editor = make(kind);
        enter(editor);
        QTest::keyClick(editor.input(), Qt::Key_3);
        QTest::keyClick(editor.input(), Qt::Key_F4);
        delete &editor;
        QApplication::processEvents();
    }
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
}

TEST_F(Editors, hintsCanBeReadInLightAndDark) {
    for (const QColor& background : {QColor(0xFF, 0xFF, 0xFF), QColor(0x1B, 0x1D, 0x1F)}) {
        QPalette palette(background);
        palette.setColor(QPalette::Base, background);
        for (const Editor kind :
             {Editor::amount, Editor::text, Editor::paragraph, Editor::choice, Editor::date}) {
            FieldEditor& editor = make(kind);
            window_.setPalette(palette);
            const QPalette shown = editor.input()->palette();
            const QColor behind =
                shown.color(kind == Editor::choice ? QPalette::Button : QPalette::Base);
            const QColor hint = shown.color(QPalette::PlaceholderText);
            EXPECT_EQ(hint.alpha(), 255);
            EXPECT_GE(testing::contrast(hint, behind), 4.5) << static_cast<int>(kind);
            EXPECT_LT(testing::contrast(hint, behind),
                      testing::contrast(shown.color(QPalette::Text), behind));
        }
    }
}

} // namespace
} // namespace fiscarel::forms
