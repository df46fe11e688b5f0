// While somebody types, nothing on the page moves: figures, notes and fields that hang on an entry
// have their places before they have something to tell.

#include "TaxCore/demo/DemoData.h"
#include "tests/gui/OpenWindow.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QTableView>
#include <map>

namespace fiscarel {
namespace {

using namespace Qt::Literals::StringLiterals;
using namespace taxcore;

class Calm : public ::testing::TestWithParam<TaxRegion> {
  protected:
    testing::OpenWindow program;
    TaxCase household;

    QWidget& page() { return program.find(u"page:"_s + program.window->currentPage()); }
    /// Where the fields, tables and buttons of the page stand, by name.
    std::map<QString, int> places() {
        std::map<QString, int> places;
        const QWidget* const column = page().findChild<QScrollArea*>()->widget();
        for (const QWidget* const widget : page().findChildren<QWidget*>()) {
            const QString name = widget->objectName();
            const bool isPart = name.startsWith(u"row:"_s) || name.startsWith(u"table:"_s)
                                || name.startsWith(u"add:"_s) || name.startsWith(u"open:"_s)
                                || name == u"next"_s;
            if (isPart && widget->isVisible()) {
                places[name] = widget->mapTo(column, QPoint()).y();
            }
        }
        return places;
    }
    void expectCalm(const QString& where, const std::map<QString, int>& before) {
        for (const auto& [name, place] : places()) {
            const auto found = before.find(name);
            if (found == before.end() || found->second != place) {
                ADD_FAILURE() << where.toStdString() << " moves " << name.toStdString() << " by "
                              << (found == before.end() ? 0 : place - found->second);
                return;
            }
        }
        EXPECT_EQ(places().size(), before.size()) << where.toStdString();
    }
    /// The names of the lines of the page that take the keyboard.
    std::vector<QString> lines() {
        std::vector<QString> names;
        for (const QLineEdit* const line : page().findChildren<QLineEdit*>()) {
            if (line->isVisible() && line->isEnabled() && !line->objectName().isEmpty()) {
                names.push_back(line->objectName());
            }
        }
        return names;
    }
    /// Types a text into a line and takes it out again; the page stays as it was all the while.
    void typeAndClear(const QString& name, const QString& text) {
        auto& line = program.find<QLineEdit>(name);
        line.setFocus(Qt::TabFocusReason);
        program.settle();
        const auto before = places();
        line.selectAll();
        for (const QChar letter : text) {
            testing::OpenWindow::key(line, letter);
            program.settle();
            expectCalm(name + u": "_s + line.text(), before);
        }
        line.selectAll();
        testing::OpenWindow::press(Qt::Key_Delete);
        program.settle();
        expectCalm(name + u" empty"_s, before);
        program.show(household);
    }
};

INSTANTIATE_TEST_SUITE_P(Regions, Calm,
                         ::testing::Values(TaxRegion::stGallen, TaxRegion::liechtenstein),
                         [](const auto& region) {
                             return region.param == TaxRegion::stGallen ? "StGallen"
                                                                        : "Liechtenstein";
                         });

/// A couple with a salary, a child, a house and a debt, and else nothing.
TaxCase plainHousehold(TaxRegion region) {
    TaxCase taxCase{.year = 2025, .civilStatus = CivilStatus::verheiratet, .region = region};
    taxCase.municipality = region == TaxRegion::stGallen ? "Sevelen" : "Vaduz";
    taxCase.person1.firstName = "Anna";
    taxCase.person2.firstName = "Beat";
    for (PersonIncome* const income : {&taxCase.income1, &taxCase.income2}) {
        income->salaries.emplace_back().grossSalary = 60'000;
    }
    taxCase.children.emplace_back().firstName = "Cla";
    taxCase.realEstate.emplace_back().description = "Haus";
    taxCase.debts.emplace_back().creditor = "Bank";
    taxCase.vehicles.emplace_back().description = "Auto";
    return taxCase;
}

TEST_P(Calm, typingMovesNothing) {
    program.openDemo(GetParam());
    household = plainHousehold(GetParam());
    program.show(household);
    program.window->resize(1000, 640); // where texts have least room
    for (const char* const id : {"income", "work", "pension", "other", "wealth"}) {
        program.click(u"nav:"_s + QString::fromLatin1(id));
        for (QPushButton* const head : page().findChildren<QPushButton*>()) {
            if (head->objectName().startsWith(u"open:"_s) && head->isVisible()) {
                head->click();
            }
        }
        program.settle();
        for (const QString& name : lines()) {
            typeAndClear(name, u"9000"_s);
        }
    }
}

} // namespace
} // namespace fiscarel
