#include "tests/gui/Editors.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCalendarWidget>
#include <QComboBox>
#include <QCompleter>
#include <QSignalSpy>
#include <QWheelEvent>
#include <algorithm>
#include <string>

namespace fiscarel::forms {
namespace {

using namespace Qt::Literals::StringLiterals;

TEST_F(Editors, checkAndChoiceFollowTheKeyboard) {
    FieldEditor& check = make(Editor::check);
    check.setValue(false);
    QSignalSpy checks(&check, &FieldEditor::edited);
    enter(check);
    QTest::keyClick(check.input(), Qt::Key_Space);
    EXPECT_EQ(check.value(), Value(true));
    EXPECT_EQ(checks.count(), 1);

    FieldEditor& choice = make(Editor::choice, true);
    choice.setHint(std::string("w"));
    auto& box = dynamic_cast<QComboBox&>(*choice.input());
    EXPECT_EQ(box.placeholderText(), u"Vorjahr: verwitwet"_s);
    EXPECT_EQ(box.currentIndex(), -1);
    QSignalSpy choices(&choice, &FieldEditor::edited);
    enter(choice);
    QTest::keyClick(&box, Qt::Key_Down);
    EXPECT_EQ(choice.value(), Value(std::string("ledig")));
    type(choice, u"verw"_s);
    EXPECT_EQ(choice.value(), Value(std::string("w"))) << "searched by its beginning";
    QTest::keyClick(&box, Qt::Key_End);
    EXPECT_EQ(choice.value(), Value()) << "«Keine Angabe»";
    EXPECT_EQ(box.currentIndex(), -1);
    EXPECT_GE(choices.count(), 3);
}

TEST_F(Editors, theWheelChangesNoChoice) {
    FieldEditor& choice = make(Editor::choice);
    choice.setValue(std::string("verheiratet"));
    enter(choice);
    for (const bool hasFocus : {true, false}) {
        if (!hasFocus) {
            leave();
        }
        const QPointF middle = QRectF(choice.input()->rect()).center();
        QWheelEvent wheel(middle, choice.input()->mapToGlobal(middle), QPoint(), QPoint(0, -120),
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(choice.input(), &wheel);
        EXPECT_FALSE(wheel.isAccepted()) << "the page scrolls";
        EXPECT_EQ(choice.value(), Value(std::string("verheiratet")));
        EXPECT_EQ(choice.input()->hasFocus(), hasFocus);
    }
}

TEST_F(Editors, dateIsPickedFromACalendar) {
    FieldEditor& editor = make(Editor::date);
    editor.setValue(*Date::of(1984, 3, 1));
    enter(editor);
    QSignalSpy leavings(&editor, &FieldEditor::left);
    QSignalSpy edits(&editor, &FieldEditor::edited);
    QTest::keyClick(editor.input(), Qt::Key_Down, Qt::AltModifier);
    QWidget* popup = QApplication::activePopupWidget();
    ASSERT_NE(popup, nullptr);
    auto* const calendar = popup->findChild<QCalendarWidget*>();
    ASSERT_NE(calendar, nullptr);
    EXPECT_EQ(calendar->selectedDate(), QDate(1984, 3, 1));
    QWidget* const days = calendar->findChild<QAbstractItemView*>();
    QTest::keyClick(days, Qt::Key_Right);
    QTest::keyClick(days, Qt::Key_Return);
    EXPECT_TRUE(QTest::qWaitFor([&] { return editor.input()->hasFocus(); }));
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    EXPECT_EQ(editor.value(), Value(*Date::of(1984, 3, 2)));
    EXPECT_EQ(edits.count(), 1);
    EXPECT_EQ(leavings.count(), 0) << "the calendar belongs to the field";

    QTest::keyClick(editor.input(), Qt::Key_F4);
    popup = QApplication::activePopupWidget();
    ASSERT_NE(popup, nullptr);
    QTest::keyClick(popup, Qt::Key_Escape);
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    EXPECT_EQ(edits.count(), 1);
}

TEST_F(Editors, municipalityIsFoundByAnyPartOfItsName) {
    FieldEditor& editor = make(Editor::municipality, false, "municipality");
    editor.setValue(std::string("Sevelen"));
    QSignalSpy edits(&editor, &FieldEditor::edited);
    struct Row {
        QString typed;
        QString found;
    };
    for (const Row& row :
         {Row{u"altstae"_s, u"Altstätten"_s}, Row{u"ALTSTÄ"_s, u"Altstätten"_s},
          Row{u"st. gal"_s, u"St.Gallen"_s}, Row{u"jona"_s, u"Rapperswil-Jona"_s}}) {
        enter(editor);
        retype(editor, row.typed);
        QCompleter* const completer = line(editor).completer();
        ASSERT_EQ(completer->completionCount(), 1) << row.typed.toStdString();
        EXPECT_EQ(editor.value(), Value(std::string("Sevelen"))) << "not yet chosen";
        QTest::keyClick(completer->popup(), Qt::Key_Down);
        QTest::keyClick(completer->popup(), Qt::Key_Return);
        EXPECT_EQ(editor.value(), Value(row.found.toStdString()));
        EXPECT_EQ(line(editor).text(), row.found);
        leave();
        editor.setValue(std::string("Sevelen"));
    }
    EXPECT_EQ(edits.count(), 4);
}

TEST_F(Editors, municipalityThatIsTypedStandsFirst) {
    FieldEditor& editor = make(Editor::municipality, false, "municipality");
    enter(editor);
    retype(editor, u"Wil"_s);
    const QAbstractItemModel& found = *line(editor).completer()->completionModel();
    ASSERT_GT(found.rowCount(), 2);
    EXPECT_EQ(found.index(0, 0).data().toString(), u"Wil"_s);
    EXPECT_TRUE(found.index(1, 0).data().toString().startsWith(u"Wil"_s)) << "Wildhaus";
    line(editor).completer()->popup()->hide();
}

TEST_F(Editors, municipalityTypedInFullNeedsNoList) {
    FieldEditor& editor = make(Editor::municipality, false, "municipality");
    enter(editor);
    type(editor, u"altstaetten"_s);
    line(editor).completer()->popup()->hide();
    leave();
    EXPECT_EQ(editor.value(), Value(std::string("Altstätten")));
    EXPECT_TRUE(editor.problem().isEmpty());

    enter(editor);
    retype(editor, u"Sevlen"_s);
    leave();
    EXPECT_EQ(editor.value(), Value(std::string("Sevlen"))) << "kept";
    EXPECT_TRUE(editor.problem().contains(u"«Sevlen» steht nicht in der Liste"_s));

    FieldEditor& property = make(Editor::municipality, false, "wealth.realEstate[0].municipality");
    property.setValue(std::string("Bellinzona"));
    EXPECT_TRUE(property.problem().isEmpty()) << "a house may stand anywhere";

    QTest::keyClick(editor.input(), Qt::Key_Down, Qt::AltModifier);
    EXPECT_TRUE(line(editor).completer()->popup()->isVisible());
    EXPECT_EQ(line(editor).completer()->completionCount(),
              static_cast<int>(rules_->municipalities.municipalities.size()));
    line(editor).completer()->popup()->hide();
}

TEST_F(Editors, parishFollowsTheMunicipalityThatTheUserChose) {
    taxCase_.municipality = "Buchs";
    FieldEditor& editor = make(Editor::parish, true, "parish");
    const auto& box = dynamic_cast<QComboBox&>(*editor.input());
    QSignalSpy edits(&editor, &FieldEditor::edited);
    EXPECT_EQ(box.itemText(0), u"Buchs"_s);
    EXPECT_EQ(editor.value(), Value());

    taxCase_.municipality = "Sevelen";
    editor.refresh(u"municipality"_s);
    EXPECT_EQ(editor.value(), Value(std::string("Sevelen")));
    EXPECT_EQ(edits.count(), 1);

    editor.setValue({}); // cleared
    editor.refresh(u"iban"_s);
    editor.refresh(u"municipality"_s);
    EXPECT_EQ(editor.value(), Value()) << "the same municipality again";

    taxCase_.municipality = "Buchs"; // undone
    editor.refresh();
    EXPECT_EQ(editor.value(), Value());
    EXPECT_EQ(edits.count(), 1);
    EXPECT_EQ(box.itemText(0), u"Buchs"_s);

    taxCase_.municipality = "Sevelen";
    editor.refresh(); // as the page does first
    editor.refresh(u"municipality"_s);
    EXPECT_EQ(editor.value(), Value(std::string("Sevelen"))) << "chosen again after the undoing";
    EXPECT_EQ(edits.count(), 2);
    taxCase_.municipality = "Buchs"; // undone again
    editor.refresh();
    editor.setValue({});

    editor.setValue(std::string("Sevelen"));
    EXPECT_TRUE(editor.problem().contains(u"«Sevelen» gehört nicht zu Buchs"_s));
    EXPECT_EQ(box.currentText(), u"Sevelen"_s) << "told, not dropped";

    const auto& all = rules_->municipalities.municipalities;
    const auto several = std::find_if(all.begin(), all.end(),
                                      [](const auto& one) { return one.parishes.size() > 1; });
    ASSERT_NE(several, all.end());
    taxCase_.municipality = several->name;
    editor.refresh(u"municipality"_s);
    EXPECT_EQ(editor.value(), Value()) << "the user chooses among several";
    EXPECT_TRUE(editor.problem().isEmpty());
}

} // namespace
} // namespace fiscarel::forms
