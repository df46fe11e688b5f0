// What is typed and cannot be read stays until the user mends it, whatever becomes of the page.

#include "TaxCore/demo/DemoData.h"
#include "tests/gui/OpenWindow.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>

namespace fiscarel {
namespace {

using namespace Qt::Literals::StringLiterals;
using namespace taxcore;

class Unread : public ::testing::Test {
  protected:
    testing::OpenWindow program;

    void open() {
        program.open();
        program.store->chooseInitialRegion(TaxRegion::stGallen);
        program.settle();
    }
    QString textOf(const QString& path) { return program.find<QLineEdit>(path).text(); }
    QString problemOf(const QString& path) {
        const QString name = u"problem:"_s + path;
        return program.isShown(name) ? program.find<QLabel>(name).text() : QString();
    }
    /// The fields with such text that the review of the year tells of.
    std::vector<std::string> told() {
        std::vector<std::string> paths;
        for (const Notice& notice : program.store->notices()) {
            if (notice.id.starts_with("unlesbar-")) {
                paths.push_back(notice.path.value_or(""));
            }
        }
        return paths;
    }
};

using Paths = std::vector<std::string>;

TEST_F(Unread, staysWhenItsPageIsMadeAnew) {
    struct Row {
        const char* what;
        std::function<void()> away;
        std::function<void()> back;
        bool isTold; ///< also meanwhile
    };
    const std::vector<Row> rows{
        {"year", [&] { program.store->setYear(2026); }, [&] { program.store->setYear(2025); },
         false},
        {"region", [&] { program.store->setRegion(TaxRegion::liechtenstein); },
         [&] { program.store->setRegion(TaxRegion::stGallen); }, true},
        {"appearance", [&] { program.window->setAppearance(look::Appearance::dark); },
         [&] { program.window->setAppearance(look::Appearance::light); }, true},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        open();
        program.store->setYear(2025);
        program.click(u"nav:wealth"_s);
        program.enter(u"cash"_s, u"viel"_s);
        program.click(u"otherAssets"_s);
        program.type(u"12 Stü"_s); // and the keyboard stays in it
        const QString problem = problemOf(u"cash"_s);
        ASSERT_FALSE(problem.isEmpty());
        row.away();
        program.settle();
        EXPECT_EQ(told(), row.isTold ? Paths({"cash", "otherAssets"}) : Paths());
        EXPECT_EQ(textOf(u"cash"_s), row.isTold ? u"viel"_s : QString());
        row.back();
        program.settle();
        EXPECT_EQ(textOf(u"cash"_s), u"viel"_s);
        EXPECT_EQ(problemOf(u"cash"_s), problem);
        EXPECT_EQ(textOf(u"otherAssets"_s), u"12 Stü"_s);
        EXPECT_EQ(told(), Paths({"cash", "otherAssets"}));
        program.click(u"cash"_s);
        program.press(Qt::Key_Escape);
        EXPECT_EQ(told(), Paths({"otherAssets"}));
        EXPECT_EQ(problemOf(u"cash"_s), QString());
    }
}

TEST_F(Unread, belongsToItsRecord) {
    open();
    TaxCase taxCase{.year = 2025};
    for (const char* creditor : {"Anna", "Beat"}) {
        taxCase.debts.emplace_back().creditor = creditor;
    }
    program.store->setYear(2025);
    program.show(taxCase);
    program.click(u"nav:wealth"_s);
    program.click(u"open:debts[1]"_s);
    program.enter(u"debts[1].interest"_s, u"viel"_s);
    ASSERT_EQ(told(), Paths({"debts[1].interest"}));

    program.click(u"up:debts[1]"_s);
    EXPECT_EQ(told(), Paths({"debts[0].interest"}));
    EXPECT_EQ(textOf(u"debts[0].interest"_s), u"viel"_s);
    program.click(u"remove:debts[0]"_s);
    program.settle();
    EXPECT_EQ(told(), Paths());
    program.click(u"open:debts[0]"_s);
    EXPECT_EQ(textOf(u"debts[0].interest"_s), QString()) << "that of the other record";
    program.click(u"tool:undo"_s);
    program.settle();
    EXPECT_EQ(told(), Paths({"debts[0].interest"}));
    program.window->showField(u"debts[0].interest"_s);
    EXPECT_EQ(textOf(u"debts[0].interest"_s), u"viel"_s);
}

TEST_F(Unread, isToldOnlyWhereThereIsAFieldToGoTo) {
    open();
    TaxCase taxCase{.year = 2025};
    taxCase.income1.salaries.emplace_back().grossSalary = 90'000;
    program.store->setYear(2025);
    program.show(taxCase);
    program.click(u"nav:work"_s);
    const QString path = u"deductions1.work.publicTransportCost"_s;
    ASSERT_TRUE(program.window->showField(path));
    program.type(u"viel"_s);
    program.press(Qt::Key_Tab);
    ASSERT_EQ(told(), Paths({path.toStdString()}));
    program.store->setRegion(TaxRegion::liechtenstein);
    program.settle();
    EXPECT_EQ(told(), Paths()) << "Liechtenstein does not ask for it";
    program.store->setRegion(TaxRegion::stGallen);
    program.settle();
    EXPECT_EQ(told(), Paths({path.toStdString()}));
    program.store->edit("Lohn", [](TaxCase& changed) { changed.income1.salaries.clear(); });
    program.settle();
    EXPECT_EQ(told(), Paths()) << "the card is gone";
}

TEST_F(Unread, ofAnotherYearIsAskedAboutBeforeLeaving) {
    open();
    program.store->setYear(2025);
    program.click(u"nav:wealth"_s);
    program.enter(u"cash"_s, u"viel"_s);
    program.store->setYear(2026);
    program.settle();
    QTimer::singleShot(0, program.window.get(), [] {
        auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        box->defaultButton()->click();
    });
    EXPECT_FALSE(program.window->close());
    program.settle();
    EXPECT_EQ(program.store->year(), 2025);
    ASSERT_NE(program.window->focusWidget(), nullptr);
    EXPECT_EQ(program.window->focusWidget()->objectName(), u"cash"_s);
    EXPECT_EQ(textOf(u"cash"_s), u"viel"_s);

    program.store->resetYear();
    program.settle();
    EXPECT_EQ(textOf(u"cash"_s), QString()) << "all entries of the year are gone";
    EXPECT_EQ(told(), Paths());
    EXPECT_TRUE(program.window->close());
}

} // namespace
} // namespace fiscarel
