// What is typed and cannot be read stays until the user mends it, whatever becomes of the page.

#include "Fiscarel_SG/look/Theme.h"
#include "TaxCore/demo/DemoData.h"
#include "tests/gui/OpenWindow.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QIcon>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTableView>
#include <QTimer>
#include <algorithm>

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
        std::ranges::sort(paths); // those of records come by their identities
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

TEST_F(Unread, saysWhatCountsMeanwhile) {
    open();
    program.store->setYear(2025);
    program.click(u"nav:wealth"_s);
    for (const char* const before : {"", "50"}) {
        program.enter(u"cash"_s, QString::fromLatin1(before));
        program.enter(u"cash"_s, u"viel"_s);
        ASSERT_EQ(told(), Paths({"cash"}));
        EXPECT_TRUE(program.store->notices().front().message.ends_with(
            *before == 0 ? "Bis dahin bleibt das Feld leer."
                         : "Bis dahin gilt der bisherige Wert."));
        program.click(u"cash"_s);
        program.press(Qt::Key_Escape);
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

/// The same in the cells of a table.
class UnreadCell : public Unread {
  protected:
    static constexpr int date = 0;
    static constexpr int amount = 2;

    /// Gifts of these amounts, on their page.
    void openWith(const std::vector<int>& amounts) {
        open();
        TaxCase taxCase{.year = 2025};
        for (const int francs : amounts) {
            taxCase.householdDeductions.donations.emplace_back().amount = francs;
        }
        program.store->setYear(2025);
        program.show(taxCase);
        program.click(u"nav:other"_s);
        program.settle();
    }
    const auto& gifts() { return program.store->current().householdDeductions.donations; }
    QTableView& table() {
        return program.find<QTableView>(u"table:householdDeductions.donations"_s);
    }
    QModelIndex cell(int row, int column) { return table().model()->index(row, column); }
    QString textAt(int row, int column) { return cell(row, column).data().toString(); }
    bool isMarked(int row, int column) {
        const bool isRed = cell(row, column).data(Qt::ForegroundRole).value<QColor>()
                           == look::Theme::current().error;
        const bool hasSign = !cell(row, column).data(Qt::DecorationRole).value<QIcon>().isNull();
        EXPECT_EQ(isRed, hasSign);
        return isRed && hasSign;
    }
    static std::string pathOf(int row, const std::string& field = "amount") {
        return "householdDeductions.donations[" + std::to_string(row) + "]." + field;
    }
    void goTo(int row, int column) {
        table().setFocus(Qt::OtherFocusReason);
        table().setCurrentIndex(cell(row, column));
        QApplication::processEvents();
    }
    void enterAt(int row, int column, const QString& text) {
        goTo(row, column);
        program.type(text);
        program.press(Qt::Key_Tab);
        program.settle();
    }
    QString problem() {
        return program.find<QLabel>(u"problem:householdDeductions.donations"_s).text();
    }
    /// What the cell that is being edited shows.
    static QString edited() {
        const auto* const line = qobject_cast<QLineEdit*>(QApplication::focusWidget());
        return line != nullptr ? line->text() : QString();
    }
};

TEST_F(UnreadCell, keepsItsTextUntilItCanBeRead) {
    openWith({500, 80});
    QWidget& sums = program.find(u"sums:householdDeductions.donations"_s);
    const QString sum = sums.accessibleName();
    enterAt(0, amount, u"viel"_s);
    EXPECT_EQ(textAt(0, amount), u"viel"_s);
    EXPECT_TRUE(isMarked(0, amount));
    EXPECT_FALSE(isMarked(1, amount));
    EXPECT_TRUE(cell(0, amount).data(Qt::ToolTipRole).toString().startsWith(u"Betrag: «viel»"_s));
    EXPECT_TRUE(problem().startsWith(u"Zeile 1, Betrag: «viel»"_s)) << problem().toStdString();
    EXPECT_TRUE(testing::isInSight(program.find(u"problem:householdDeductions.donations"_s)));
    EXPECT_EQ(told(), Paths({pathOf(0)}));
    EXPECT_EQ(gifts()[0].amount, 500);
    EXPECT_EQ(sums.accessibleName(), sum);
    EXPECT_TRUE(
        program.store->notices().front().message.ends_with("Bis dahin gilt der bisherige Wert."));

    enterAt(1, date, u"32.1.25"_s);
    EXPECT_TRUE(problem().startsWith(u"Zeile 2, Datum: Den 32. Januar"_s))
        << problem().toStdString();
    EXPECT_TRUE(problem().endsWith(u"Noch ein Feld ist nicht lesbar."_s));
    EXPECT_EQ(told(), Paths({pathOf(0), pathOf(1, "date")}));

    program.click(u"nav:wealth"_s);
    ASSERT_TRUE(program.window->showField(QString::fromStdString(pathOf(0))));
    program.settle();
    EXPECT_EQ(edited(), u"viel"_s) << "one goes on from what was typed";
    EXPECT_TRUE(problem().startsWith(u"Betrag: «viel»"_s)) << problem().toStdString();
    program.press(Qt::Key_Tab);
    EXPECT_EQ(textAt(0, amount), u"viel"_s) << "only passed through";
    enterAt(0, amount, u"500"_s); // what the gift was all along
    EXPECT_EQ(textAt(0, amount), u"500"_s);
    EXPECT_FALSE(isMarked(0, amount));
    enterAt(1, date, u"31.1.25"_s);
    EXPECT_EQ(told(), Paths());
    EXPECT_EQ(problem(), QString());
    EXPECT_EQ(gifts()[1].date, Date::of(2025, 1, 31));
}

TEST_F(UnreadCell, isGivenUpForTheValue) {
    struct Row {
        const char* what;
        std::function<void()> act;
        QString left;
    };
    const std::vector<Row> rows{
        {"escape while editing",
         [&] {
             goTo(0, amount);
             program.press(Qt::Key_Escape);
         },
         u"60"_s},
        {"escape in the middle of another text",
         [&] {
             goTo(0, amount);
             program.type(u"mehr"_s);
             program.press(Qt::Key_Escape);
         },
         u"60"_s},
        {"emptied",
         [&] {
             goTo(0, amount);
             program.press(Qt::Key_Delete);
             program.press(Qt::Key_Tab);
         },
         QString()},
        {"undone what it stood over", [&] { program.click(u"tool:undo"_s); }, u"500"_s},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        openWith({500});
        enterAt(0, amount, u"60"_s);
        enterAt(0, amount, u"viel"_s);
        ASSERT_EQ(told(), Paths({pathOf(0)}));
        row.act();
        program.settle();
        EXPECT_EQ(told(), Paths());
        EXPECT_EQ(textAt(0, amount), row.left);
        EXPECT_FALSE(isMarked(0, amount));
        EXPECT_EQ(problem(), QString());
    }
}

TEST_F(UnreadCell, belongsToItsRecord) {
    openWith({500, 80});
    enterAt(2, amount, u"viel"_s); // the empty row
    ASSERT_EQ(gifts().size(), 3U) << "a gift begins with it";
    EXPECT_EQ(told(), Paths({pathOf(2)}));
    goTo(2, date);
    program.click(u"up:householdDeductions.donations"_s);
    program.settle();
    EXPECT_EQ(told(), Paths({pathOf(1)}));
    EXPECT_EQ(textAt(1, amount), u"viel"_s);
    EXPECT_EQ(textAt(2, amount), u"80"_s);
    program.click(u"remove:householdDeductions.donations"_s);
    program.settle();
    EXPECT_EQ(told(), Paths());
    EXPECT_EQ(textAt(1, amount), u"80"_s);
    EXPECT_EQ(problem(), QString());
    program.click(u"tool:undo"_s);
    program.settle();
    EXPECT_EQ(told(), Paths({pathOf(1)}));
    EXPECT_EQ(textAt(1, amount), u"viel"_s);
}

TEST_F(UnreadCell, staysWhenItsPageIsMadeAnew) {
    struct Row {
        const char* what;
        std::function<void()> away;
        std::function<void()> back;
    };
    const std::vector<Row> rows{
        {"year", [&] { program.store->setYear(2026); }, [&] { program.store->setYear(2025); }},
        {"region", [&] { program.store->setRegion(TaxRegion::liechtenstein); },
         [&] { program.store->setRegion(TaxRegion::stGallen); }},
        {"appearance", [&] { program.window->setAppearance(look::Appearance::dark); },
         [&] { program.window->setAppearance(look::Appearance::light); }},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        openWith({500, 80});
        enterAt(0, amount, u"viel"_s);
        goTo(1, date);
        program.type(u"32.1."_s); // and the keyboard stays in it
        row.away();
        program.settle();
        row.back();
        program.settle();
        EXPECT_EQ(textAt(0, amount), u"viel"_s);
        EXPECT_EQ(textAt(1, date), u"32.1."_s);
        EXPECT_TRUE(isMarked(0, amount));
        EXPECT_EQ(told(), Paths({pathOf(0), pathOf(1, "date")}));
        EXPECT_FALSE(problem().isEmpty());
        EXPECT_EQ(gifts().size(), 2U);
        program.store->setYear(2026);
        EXPECT_TRUE(gifts().empty()) << "nothing came into the other year";
    }
}

TEST_F(UnreadCell, isAskedAboutBeforeLeaving) {
    openWith({500});
    goTo(0, amount);
    program.type(u"viel"_s); // and the keyboard stays in it
    bool isAsked = false;
    QTimer::singleShot(0, program.window.get(), [&] {
        auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        isAsked = box != nullptr;
        if (isAsked) {
            box->defaultButton()->click();
        }
    });
    EXPECT_FALSE(program.window->close());
    program.settle();
    EXPECT_TRUE(isAsked);
    EXPECT_EQ(edited(), u"viel"_s);
}

TEST_F(UnreadCell, holdsWhatIsPastedToo) {
    openWith({500, 80});
    QApplication::clipboard()->setText(
        u"1.2.25\tA\tviel\tja\nnie\tB\tx\tnein\n3.3.25\tC\t7\tja\n"_s);
    goTo(0, date);
    program.press(Qt::Key_V, Qt::ControlModifier);
    program.settle();
    EXPECT_TRUE(problem().startsWith(u"3 Felder sind nicht lesbar. Betrag: «viel»"_s))
        << problem().toStdString();
    EXPECT_EQ(told(), Paths({pathOf(0), pathOf(1), pathOf(1, "date")}));
    EXPECT_EQ(textAt(0, amount), u"viel"_s);
    EXPECT_EQ(textAt(1, date), u"nie"_s);
    EXPECT_EQ(gifts()[0].amount, 500);
    EXPECT_EQ(gifts()[2].amount, 7);
    program.press(Qt::Key_Z, Qt::ControlModifier);
    program.settle();
    EXPECT_EQ(told(), Paths()) << "undone with all that was pasted";
    EXPECT_EQ(textAt(0, amount), u"500"_s);
    EXPECT_EQ(problem(), QString());
}

TEST_F(UnreadCell, ofAChoiceWaitsForAnotherOne) {
    openWith({});
    TaxCase taxCase{.year = 2025};
    taxCase.securities.emplace_back();
    program.show(taxCase);
    program.click(u"nav:wealth"_s);
    auto& securities = program.find<QTableView>(u"table:securities"_s);
    const QModelIndex kind = securities.model()->index(0, 1);
    const QString usual = kind.data().toString();
    securities.setFocus(Qt::OtherFocusReason);
    securities.setCurrentIndex(securities.model()->index(0, 0));
    QApplication::clipboard()->setText(u"Bank\tQuatsch\n"_s);
    program.press(Qt::Key_V, Qt::ControlModifier);
    program.settle();
    EXPECT_EQ(kind.data().toString(), u"Quatsch"_s);
    EXPECT_EQ(told(), Paths({"securities[0].kind"}));
    ASSERT_TRUE(program.window->showField(u"securities[0].kind"_s));
    program.settle();
    auto* const box = qobject_cast<QComboBox*>(QApplication::focusWidget());
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(box->placeholderText(), u"Quatsch"_s);
    program.press(Qt::Key_Down); // the first one, as it was
    program.settle();
    EXPECT_EQ(kind.data().toString(), usual);
    EXPECT_EQ(told(), Paths());
}

} // namespace
} // namespace fiscarel
