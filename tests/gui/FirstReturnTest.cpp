#include "TaxCore/base/MoneyFormat.h"
#include "TaxCore/regions/CaseCalculator.h"
#include "TaxCore/review/Advisor.h"
#include "tests/gui/OpenWindow.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QCompleter>
#include <QLabel>
#include <QLineEdit>
#include <QTableView>
#include <QTest>

namespace fiscarel {
namespace {

using namespace Qt::Literals::StringLiterals;
using namespace taxcore;

/// The household that is typed below, in code.
TaxCase expectedHousehold() {
    TaxCase taxCase{.year = 2025, .municipality = "Altstätten"};
    const auto describe = [](Person& person, const char* firstName, int year) {
        person.firstName = firstName;
        person.lastName = "Muster";
        person.birthDate = Date::of(year, 3, 1).value();
    };
    describe(taxCase.person1, "Anna", 1984);
    taxCase.person1.confession = Confession::roemischKatholisch;
    describe(taxCase.person2, "Beat", 1982);
    taxCase.person2.confession = Confession::evangelischReformiert;
    for (const auto& [name, year] : {std::pair("Cla", 2012), std::pair("Dora", 2021)}) {
        Child& child = taxCase.children.emplace_back();
        child.lastName = "Muster"; // the parents'
        child.firstName = name;
        child.birthDate = Date::of(year, 5, 17).value();
    }
    taxCase.children[1].education = ChildEducation::vorschule;
    const auto employ = [](PersonIncome& income, const char* employer, const Decimal& gross,
                           const Decimal& social, const Decimal& pension) {
        SalaryCertificate& salary = income.salaries.emplace_back();
        salary.employer = employer;
        salary.grossSalary = gross;
        salary.socialContributions = social;
        salary.pensionContributions = pension;
    };
    employ(taxCase.income1, "Werk AG", Decimal::parse("98412.35").value(), 6'298,
           Decimal::parse("5120.40").value());
    employ(taxCase.income2, "Praxis Rhein", 41'200, 2'636, 1'480);
    RealEstate& home = taxCase.realEstate.emplace_back();
    home.description = "Einfamilienhaus";
    home.municipality = "Altstätten";
    home.taxValue = 642'000;
    home.imputedRentalValue = 21'480;
    taxCase.debts.emplace_back() = {.creditor = "Kantonalbank",
                                    .amount = 410'000,
                                    .interest = Decimal::parse("6765.25").value()};
    struct Account {
        const char* name;
        Decimal value;
        Decimal withWithholding;
        Decimal withoutWithholding;
    };
    for (const Account& account :
         {Account{"Lohnkonto", 18'230, 0, 12}, Account{"Sparkonto", 64'000, 410, 0},
          Account{"Mietzinskonto", 2'450, 0, 3}}) {
        SecurityEntry& entry = taxCase.securities.emplace_back();
        entry.institution = "Kantonalbank";
        entry.description = account.name;
        entry.taxValue = account.value;
        entry.incomeWithWithholding = account.withWithholding;
        entry.incomeWithoutWithholding = account.withoutWithholding;
    }
    return taxCase;
}

/// Identities are drawn anew for every record; those of another case are put in their place.
template <class Item>
void takeIds(std::vector<Item>& items, const std::vector<Item>& from) {
    ASSERT_EQ(items.size(), from.size());
    for (std::size_t i = 0; i < items.size(); ++i) {
        items[i].id = from[i].id;
    }
}

TaxCase withIdsOf(TaxCase taxCase, const TaxCase& from) {
    takeIds(taxCase.children, from.children);
    takeIds(taxCase.income1.salaries, from.income1.salaries);
    takeIds(taxCase.income2.salaries, from.income2.salaries);
    takeIds(taxCase.realEstate, from.realEstate);
    takeIds(taxCase.debts, from.debts);
    takeIds(taxCase.securities, from.securities);
    return taxCase;
}

class FirstReturn : public ::testing::Test {
  protected:
    testing::OpenWindow program;

    void begin() {
        program.open();
        program.window->greet();
        program.settle();
        program.click(u"startStGallen"_s);
        program.click(u"startFresh"_s);
        program.settle();
        ASSERT_FALSE(program.isShown(u"start"_s));
    }
    void go(const QString& page) {
        program.click(u"nav:"_s + page);
        ASSERT_EQ(program.window->currentPage(), page);
    }
    void enterFamily() {
        go(u"family"_s);
        program.enter(u"person1.firstName"_s, u"Anna"_s);
        program.enter(u"person1.lastName"_s, u"Muster"_s);
        program.enter(u"person1.birthDate"_s, u"1.3.84"_s);
        program.choose(u"person1.confession"_s, u"röm"_s);
        program.enter(u"person2.firstName"_s, u"Beat"_s);
        program.enter(u"person2.lastName"_s, u"Muster"_s);
        program.enter(u"person2.birthDate"_s, u"01.03.1982"_s);
        program.choose(u"person2.confession"_s, u"evang"_s);
        enterChildren();
        program.click(u"municipality"_s);
        program.type(u"altstae"_s);
        QWidget* const names = program.find<QLineEdit>(u"municipality"_s).completer()->popup();
        QTest::keyClick(names, Qt::Key_Down);
        QTest::keyClick(names, Qt::Key_Return);
        program.press(Qt::Key_Tab);
    }
    void enterChildren() {
        program.click(u"add:children"_s);
        program.type(u"Cla"_s); // the first field of a new record has the keyboard
        program.press(Qt::Key_Tab);
        program.enter(u"children[0].birthDate"_s, u"17.5.2012"_s);
        program.click(u"add:children"_s);
        program.type(u"Dora"_s);
        program.press(Qt::Key_Tab);
        program.enter(u"children[1].birthDate"_s, u"17052021"_s);
        program.choose(u"children[1].education"_s, u"noch"_s);
    }
    void enterSalaries() {
        go(u"income"_s);
        program.click(u"add:income1.salaries"_s);
        program.type(u"Werk AG"_s);
        program.enter(u"income1.salaries[0].grossSalary"_s, u"98412.35"_s);
        program.enter(u"income1.salaries[0].socialContributions"_s, u"6'298"_s);
        program.enter(u"income1.salaries[0].pensionContributions"_s, u"5120,40"_s);
        program.click(u"add:income2.salaries"_s);
        program.type(u"Praxis Rhein"_s);
        program.enter(u"income2.salaries[0].grossSalary"_s, u"40000+1200"_s);
        program.enter(u"income2.salaries[0].socialContributions"_s, u"2636"_s);
        program.enter(u"income2.salaries[0].pensionContributions"_s, u"1480.00"_s);
    }
    void enterProperty() {
        go(u"wealth"_s);
        program.click(u"add:realEstate"_s);
        program.type(u"Einfamilienhaus"_s);
        program.enter(u"realEstate[0].taxValue"_s, u"642'000"_s);
        program.enter(u"realEstate[0].imputedRentalValue"_s, u"21480"_s);
        program.click(u"add:debts"_s);
        program.type(u"Kantonalbank"_s);
        program.enter(u"debts[0].amount"_s, u"410000"_s);
        program.enter(u"debts[0].interest"_s, u"6765.25"_s);
    }
    /// A row of the table, cell after cell by the tabulator.
    void enterAccount(int row, const QStringList& cells) {
        auto& table = program.find<QTableView>(u"table:securities"_s);
        constexpr int institution = 0;
        const QModelIndex first = table.model()->index(row, institution);
        ASSERT_TRUE(first.isValid());
        program.click(table);
        table.scrollTo(first);
        const QPoint at =
            table.viewport()->mapTo(program.window.get(), table.visualRect(first).center());
        QTest::mouseClick(program.window->windowHandle(), Qt::LeftButton, {}, at);
        for (const QString& cell : cells) {
            ASSERT_TRUE(table.isAncestorOf(QApplication::focusWidget())) << row;
            program.type(cell);
            program.press(Qt::Key_Tab);
        }
        program.press(Qt::Key_Escape);
    }
    void enterAccounts() {
        const QString same;
        enterAccount(0, {u"Kantonalbank"_s, same, u"18230"_s, same, u"12"_s, u"Lohnkonto"_s});
        enterAccount(1, {u"Kantonalbank"_s, same, u"64'000"_s, u"410"_s, same, u"Sparkonto"_s});
        enterAccount(2, {u"Kantonalbank"_s, same, u"2450.00"_s, same, u"3"_s, u"Mietzinskonto"_s});
    }
    QString shownTotal() { return program.find<QLabel>(u"total"_s).text(); }
};

TEST_F(FirstReturn, leadsFromTheFirstQuestionToTheBillAndBack) {
    begin();
    const TaxCase empty = program.store->current();
    const auto undoBefore = program.store->undoName();
    EXPECT_FALSE(undoBefore) << *undoBefore;
    enterFamily();
    enterSalaries();
    enterProperty();
    enterAccounts();
    program.settle();

    TaxCase expected = expectedHousehold();
    const auto& parishes = program.store->calculator()
                               ->stGallen()
                               ->municipalities.municipality("Altstätten")
                               ->parishes;
    if (parishes.size() == 1) {
        expected.parish = parishes.front().name; // follows the municipality
    }
    const TaxCase entered = program.store->current();
    expected = withIdsOf(expected, entered);
    for (const FieldChange& difference : diff(expected, entered)) {
        ADD_FAILURE() << difference.path << ": expected " << difference.before.value_or("nothing")
                      << ", entered " << difference.after.value_or("nothing");
    }

    const auto calculator = CaseCalculator::forCase(expected).value();
    const QString total = QString::fromStdString(
        MoneyFormat::chf(Advisor::totalTax(calculator.calculate(expected)), 2, true));
    EXPECT_NE(total, u"CHF 0.00"_s);
    EXPECT_EQ(shownTotal(), total);

    int steps = 0;
    for (; program.store->undoName() && steps < 200; ++steps) {
        program.press(Qt::Key_Z, Qt::ControlModifier);
    }
    program.settle();
    EXPECT_TRUE(program.store->current() == empty);
    EXPECT_EQ(shownTotal(), u"CHF 0.00"_s);
    for (int step = 0; step < steps; ++step) {
        program.press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    }
    program.settle();
    EXPECT_TRUE(program.store->current() == entered);
    EXPECT_EQ(shownTotal(), total);
    EXPECT_FALSE(program.store->redoName());
}

} // namespace
} // namespace fiscarel
