// Lists and tables of records on their pages, by the keyboard.

#include "tests/gui/OpenWindow.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableView>
#include <QTest>

namespace fiscarel {
namespace {

using namespace Qt::Literals::StringLiterals;
using namespace taxcore;

class Records : public ::testing::Test {
  protected:
    testing::OpenWindow program;

    static QString focusName() { return QApplication::focusWidget()->objectName(); }
    void open(TaxCase taxCase, const QString& page) {
        program.openDemo(TaxRegion::stGallen);
        program.show(std::move(taxCase));
        program.click(u"nav:"_s + page);
        program.settle();
    }
    QTableView& table(const QString& path) { return program.find<QTableView>(u"table:"_s + path); }
    /// Puts the keyboard into a cell; those with a text are then being edited.
    void goTo(QTableView& table, int row, int column) {
        table.setFocus(Qt::OtherFocusReason);
        table.setCurrentIndex(table.model()->index(row, column));
        QApplication::processEvents();
    }
};

TaxCase withDebts(const std::vector<std::string>& creditors) {
    TaxCase taxCase{.year = 2025};
    for (const std::string& creditor : creditors) {
        taxCase.debts.emplace_back().creditor = creditor;
    }
    return taxCase;
}

TEST_F(Records, theKeyboardStaysWithTheRecordThatMoves) {
    open(withDebts({"Anna", "Beat", "Cla"}), u"wealth"_s);
    const auto& debts = program.store->current().debts;
    program.click(u"open:debts[0]"_s);
    program.find(u"down:debts[0]"_s).setFocus(Qt::TabFocusReason);
    program.press(Qt::Key_Space);
    EXPECT_EQ(debts[1].creditor, "Anna");
    ASSERT_EQ(focusName(), u"down:debts[1]"_s);
    program.press(Qt::Key_Space);
    EXPECT_EQ(debts[2].creditor, "Anna");
    EXPECT_EQ(focusName(), u"open:debts[2]"_s) << "it goes no further down";

    program.find(u"duplicate:debts[2]"_s).setFocus(Qt::TabFocusReason);
    program.press(Qt::Key_Space);
    EXPECT_EQ(focusName(), u"open:debts[3]"_s);
    program.press(Qt::Key_Space);
    program.find(u"remove:debts[3]"_s).setFocus(Qt::TabFocusReason);
    program.press(Qt::Key_Space);
    EXPECT_EQ(debts.size(), 3U);
    EXPECT_EQ(focusName(), u"open:debts[2]"_s);
}

TEST_F(Records, stayOpenInAnotherAppearance) {
    open(withDebts({"Anna", "Beat"}), u"wealth"_s);
    program.click(u"open:debts[1]"_s);
    ASSERT_TRUE(program.isShown(u"debts[1].creditor"_s));
    program.click(u"nav:account"_s);
    program.choose(u"appearance"_s, u"Dunkel"_s);
    program.settle();
    program.click(u"nav:wealth"_s);
    program.settle();
    EXPECT_TRUE(program.isShown(u"debts[1].creditor"_s));
}

TEST_F(Records, linksLeadToPersonsAndOnToTheNextPage) {
    program.openDemo(TaxRegion::stGallen);
    program.click(u"nav:income"_s);
    program.settle();
    program.click(u"jump:1"_s);
    program.settle();
    EXPECT_TRUE(testing::isInSight(program.find(u"add:income2.salaries"_s)));
    program.click(u"next"_s);
    EXPECT_EQ(program.window->currentPage(), u"work"_s);
}

TEST_F(Records, buttonsSayWhichRecordTheyAreFor) {
    open(withDebts({"Anna", "Beat"}), u"wealth"_s);
    program.click(u"open:debts[1]"_s);
    EXPECT_EQ(program.find(u"remove:debts[1]"_s).accessibleName(), u"Entfernen: Beat"_s);
    program.enter(u"debts[1].creditor"_s, u"Bank"_s);
    EXPECT_EQ(program.find(u"remove:debts[1]"_s).accessibleName(), u"Entfernen: BeatBank"_s);
    EXPECT_EQ(program.find(u"remove:securities"_s).accessibleName(),
              u"Zeile entfernen: Wertschriften und Guthaben"_s);
}

TEST_F(Records, whatASpreadsheetCopiesIsPastedOverCells) {
    open(TaxCase{.year = 2025}, u"other"_s);
    const auto& gifts = program.store->current().householdDeductions.donations;
    QTableView& cells = table(u"householdDeductions.donations"_s);
    goTo(cells, 0, 0);
    ASSERT_NE(QApplication::focusWidget(), &cells) << "the cell is being edited";
    QApplication::clipboard()->setText(
        u"1.2.2025\tRotes Kreuz\t1'200\tnein\r\n\tPartei\t80\tja\n3.4.25\tx\tviel\t\n"_s);
    program.press(Qt::Key_V, Qt::ControlModifier);
    ASSERT_EQ(gifts.size(), 3U);
    EXPECT_EQ(gifts[0].date, Date::of(2025, 2, 1));
    EXPECT_EQ(gifts[0].amount, 1'200);
    EXPECT_FALSE(gifts[0].isPoliticalParty);
    EXPECT_TRUE(gifts[1].isPoliticalParty);
    EXPECT_FALSE(gifts[1].date);
    EXPECT_EQ(gifts[2].amount, 0) << "stays what it was";
    const QString problem = program.find<QLabel>(u"problem:householdDeductions.donations"_s).text();
    EXPECT_TRUE(problem.startsWith(u"Ein Feld ist nicht lesbar. Betrag: «viel»"_s));
    EXPECT_EQ(cells.model()->index(2, 2).data().toString(), u"viel"_s);
    program.press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_TRUE(gifts.empty()) << "undone as one";
}

TEST_F(Records, theTabulatorLeavesATableAtItsEnds) {
    open(TaxCase{.year = 2025}, u"other"_s);
    QTableView& gifts = table(u"householdDeductions.donations"_s);
    const auto isInside = [&] {
        const QWidget* const focused = QApplication::focusWidget();
        return focused == &gifts || gifts.isAncestorOf(focused);
    };
    const int columns = gifts.model()->columnCount();
    goTo(gifts, 0, 0);
    for (int column = 1; column < columns; ++column) {
        program.press(Qt::Key_Tab);
        ASSERT_TRUE(isInside());
        EXPECT_EQ(gifts.currentIndex().column(), column);
    }
    program.press(Qt::Key_Tab);
    EXPECT_FALSE(isInside());
    goTo(gifts, 0, 0);
    program.press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_FALSE(isInside());
    EXPECT_EQ(program.store->current().householdDeductions.donations.size(), 0U);

    // What is typed into the last cell but one makes a record; the empty row comes after it.
    goTo(gifts, 0, 2);
    program.type(u"50"_s);
    for (int i = 0; i < 2; ++i) {
        program.press(Qt::Key_Tab);
    }
    EXPECT_TRUE(isInside());
    EXPECT_EQ(gifts.currentIndex(), gifts.model()->index(1, 0));
}

TEST_F(Records, thePlusBeginsARecord) {
    open(TaxCase{.year = 2025}, u"other"_s);
    QTableView& gifts = table(u"householdDeductions.donations"_s);
    QWidget& plus = *gifts.verticalHeader()->viewport();
    for (const std::size_t record : {0U, 1U}) {
        const int y =
            gifts.verticalHeader()->sectionViewportPosition(static_cast<int>(record)) + 10;
        QTest::mouseClick(&plus, Qt::LeftButton, {}, {plus.width() / 2, y});
        ASSERT_TRUE(gifts.isAncestorOf(QApplication::focusWidget())) << record;
        program.type(u"1.3.2025"_s);
        program.press(Qt::Key_Return);
        EXPECT_EQ(program.store->current().householdDeductions.donations.size(), record + 1);
    }
}

TEST_F(Records, helpTellsOfTheColumnWithTheKeyboard) {
    open(TaxCase{.year = 2025}, u"other"_s);
    const QString name = u"help:householdDeductions.donations"_s;
    goTo(table(u"householdDeductions.donations"_s), 0, 1);
    program.press(Qt::Key_F1);
    EXPECT_EQ(program.find<QLabel>(name).text(),
              u"Empfänger: Name der Organisation oder Partei."_s);
    program.press(Qt::Key_Tab);
    EXPECT_TRUE(program.find<QLabel>(name).text().startsWith(u"Betrag: "_s));
    program.press(Qt::Key_F1);
    EXPECT_FALSE(program.isShown(name));
}

TEST_F(Records, anEmptyRegisterOffersThatOfLastYear) {
    open(TaxCase{.year = 2025}, u"wealth"_s);
    EXPECT_FALSE(program.isShown(u"takeover:securities"_s));
    program.store->setYear(2024);
    TaxCase before{.year = 2024};
    before.securities.emplace_back().institution = "Kantonalbank";
    program.show(before);
    program.store->setYear(2025);
    program.settle();
    program.click(u"takeover:securities"_s);
    const auto& securities = program.store->current().securities;
    ASSERT_EQ(securities.size(), 1U);
    EXPECT_EQ(securities[0].institution, "Kantonalbank");
    EXPECT_FALSE(program.isShown(u"takeover:securities"_s));
}

TEST_F(Records, whatIsRemovedIsOfferedBackByAMessage) {
    open(withDebts({"Anna", "Beat", "Cla"}), u"wealth"_s);
    const auto& debts = program.store->current().debts;
    const auto remove = [&](int index) {
        const QString at = u"debts[%1]"_s.arg(index);
        if (!program.isShown(u"remove:"_s + at)) {
            program.click(u"open:"_s + at);
        }
        program.click(u"remove:"_s + at);
        program.settle();
    };
    remove(0);
    remove(0); // at once, which is a step of its own
    ASSERT_EQ(debts.size(), 1U);
    EXPECT_EQ(program.find<QLabel>(u"toastText"_s).text(), u"«Schuld Beat» entfernt"_s);
    EXPECT_EQ(focusName(), u"open:debts[0]"_s);
    program.press(Qt::Key_Tab);
    ASSERT_EQ(focusName(), u"toastAnswer"_s);
    program.press(Qt::Key_Tab);
    EXPECT_EQ(focusName(), u"add:debts"_s) << "and on from where it was";
    program.press(Qt::Key_Backtab, Qt::ShiftModifier);
    ASSERT_EQ(focusName(), u"toastAnswer"_s);
    program.press(Qt::Key_Space);
    program.settle();
    ASSERT_EQ(debts.size(), 2U);
    EXPECT_EQ(debts[0].creditor, "Beat");
    EXPECT_FALSE(program.isShown(u"toastAnswer"_s)) << "undone, and told so";

    remove(0);
    ASSERT_TRUE(program.isShown(u"toastAnswer"_s));
    program.enter(u"cash"_s, u"5"_s);
    EXPECT_FALSE(program.isShown(u"toastAnswer"_s)) << "it would undo another step";
    remove(0);
    ASSERT_TRUE(program.isShown(u"toastAnswer"_s));
    program.press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(debts.size(), 1U);
    EXPECT_FALSE(program.isShown(u"toastAnswer"_s));
    remove(0);
    program.find(u"toastAnswer"_s).setFocus(Qt::TabFocusReason);
    program.press(Qt::Key_Escape);
    EXPECT_FALSE(program.isShown(u"toast"_s));
    EXPECT_EQ(debts.size(), 0U);
}

TEST_F(Records, aRowTakenOutOfATableIsOfferedBackToo) {
    TaxCase taxCase{.year = 2025};
    for (const char* bank : {"Raiffeisen", "Post"}) {
        taxCase.securities.emplace_back().institution = bank;
    }
    open(taxCase, u"wealth"_s);
    goTo(table(u"securities"_s), 1, 0);
    program.click(u"remove:securities"_s);
    program.settle();
    ASSERT_EQ(program.store->current().securities.size(), 1U);
    EXPECT_EQ(program.find<QLabel>(u"toastText"_s).text(), u"«Eintrag Post» entfernt"_s);
    program.click(u"toastAnswer"_s);
    EXPECT_EQ(program.store->current().securities, taxCase.securities);
}

TEST_F(Records, aTablesChoiceNamesThePersons) {
    TaxCase taxCase{.year = 2025, .civilStatus = CivilStatus::verheiratet};
    taxCase.person1.firstName = "Anna";
    taxCase.person2.firstName = "Anna"; // as her daughter-in-law may be called
    taxCase.securities.emplace_back().owner = Owner::person2;
    open(taxCase, u"wealth"_s);
    QTableView& securities = table(u"securities"_s);
    int column = 0;
    while (securities.model()->headerData(column, Qt::Horizontal).toString() != u"Eigentum"_s) {
        ++column;
    }
    const QModelIndex cell = securities.model()->index(0, column);
    EXPECT_EQ(cell.data().toString(), u"Anna"_s);
    goTo(securities, 0, column);
    auto* const box = qobject_cast<QComboBox*>(QApplication::focusWidget());
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(box->currentIndex(), 1) << "the second of the two";
    EXPECT_EQ(box->itemText(0), u"Anna"_s);
    program.press(Qt::Key_Up);
    program.press(Qt::Key_Down);
    EXPECT_EQ(program.store->current().securities[0].owner, Owner::person2);
    program.store->edit("Vorname", [](TaxCase& changed) { changed.person2.firstName = "Bea"; });
    program.settle();
    EXPECT_EQ(cell.data().toString(), u"Bea"_s);
}

TEST_F(Records, theReasonForACarIsToldInTheWordsOfTheForm) {
    TaxCase taxCase{.year = 2025};
    taxCase.income1.salaries.emplace_back().grossSalary = 90'000;
    taxCase.deductions1.work.carKmOneWay = 20;
    open(std::move(taxCase), u"work"_s);
    const QString path = u"deductions1.work.carJustification"_s;
    EXPECT_FALSE(program.isShown(u"wording:"_s + path));
    program.choose(path, u"Zeit"_s);
    EXPECT_EQ(program.store->current().deductions1.work.carJustification,
              "Zeitersparnis über 60 Minuten pro Tag");
    EXPECT_EQ(program.find<QLabel>(u"wording:"_s + path).text(),
              u"Einsparung über 60 Minuten/Tag durch Motorfahrzeugbenützung"_s);
}

} // namespace
} // namespace fiscarel
