#include "TaxCore/demo/DemoData.h"
#include "TaxCore/rulebook/RuleBook.h"
#include "tests/gui/OpenWindow.h"
#include "tests/support/RandomCase.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QLocale>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <set>

namespace fiscarel {
namespace {

using namespace Qt::Literals::StringLiterals;
using namespace taxcore;

constexpr std::array regions{TaxRegion::stGallen, TaxRegion::liechtenstein};

class MainWindowTest : public ::testing::Test {
  protected:
    testing::OpenWindow program;

    QString focusName() {
        const QWidget* const focused = QApplication::focusWidget();
        return focused != nullptr ? focused->objectName() : QString();
    }
    const Decimal& cash() { return program.store->current().cash; }

    /// Whether the keyboard is at a path: in its field, in the table it stands in, on the row of
    /// its record, or, when it is a list, on the button that adds to it.
    bool isAt(const QString& path) {
        const QWidget* const focused = QApplication::focusWidget();
        if (focused == nullptr || !testing::isInSight(*focused)) {
            return false;
        }
        const QString name = focused->objectName();
        const QString list = path.section(u'[', 0, 0);
        const bool isItem = path.endsWith(u']');
        return name == path || name == u"table:"_s + list || (isItem && name == u"open:"_s + path)
               || (!path.contains(u'[') && name == u"add:"_s + path);
    }
    /// Follows every notice and tip of the case that is seen; the paths they led to.
    std::set<std::string> followNotices() {
        std::set<std::string> paths;
        for (const auto* list : {&program.store->review().notices, &program.store->tips()}) {
            for (const Notice& notice : *list) {
                if (notice.path) {
                    paths.insert(*notice.path);
                }
            }
        }
        for (const std::string& path : paths) {
            const QString name = QString::fromStdString(path);
            EXPECT_TRUE(program.window->showField(name)) << path;
            program.settle();
            // A page takes its form in several rounds; in the end the field must be in sight.
            EXPECT_TRUE(QTest::qWaitFor([&] { return isAt(name); }, 20'000))
                << path << " leads to " << focusName().toStdString();
        }
        return paths;
    }
};

TEST_F(MainWindowTest, everyNoticeOfTheDemosLeadsToItsField) {
    for (const TaxRegion region : regions) {
        program.openDemo(region);
        for (const int year : RuleBook::supportedYears) {
            program.store->setYear(year);
            program.show(DemoData::household(region, year));
            EXPECT_FALSE(followNotices().empty());
        }
    }
}

TEST_F(MainWindowTest, everyNoticeOfImpossibleHouseholdsLeadsToItsField) {
    for (const TaxRegion region : regions) {
        program.openDemo(region);
        std::set<std::string> followed;
        for (std::uint64_t seed = 1; seed <= 4; ++seed) {
            SCOPED_TRACE(seed);
            TaxCase household = taxcore::testing::RandomCase(seed).next();
            household.region = region;
            household.civilStatus = CivilStatus::verheiratet;
            program.show(std::move(household));
            followed.merge(followNotices());
        }
        EXPECT_GT(followed.size(), 60U) << "too few to be called impossible";
    }
}

TEST_F(MainWindowTest, everyFigureHasItsReason) {
    for (const TaxRegion region : regions) {
        program.openDemo(region);
        std::set<std::string> codes{"cantonTotal", "municipalityTotal", "total"};
        for (const TaxLine& line : program.store->result()->fields()) {
            codes.insert(line.code);
        }
        if (region == TaxRegion::stGallen) {
            codes.insert({"churchTotal", "federal"});
        }
        for (const std::string& code : codes) {
            program.window->showReason(QString::fromStdString(code));
            ASSERT_TRUE(program.isShown(u"reason"_s)) << code;
            program.find<QDialog>(u"reason"_s).reject();
        }
    }
}

TEST_F(MainWindowTest, theFiguresOfTheBarAreDoors) {
    for (const TaxRegion region : regions) {
        program.openDemo(region);
        int doors = 0;
        for (QPushButton* const door :
             program.find<QWidget>(u"taxBar"_s).findChildren<QPushButton*>()) {
            if (door->isVisible()) {
                testing::OpenWindow::click(*door);
                EXPECT_TRUE(program.isShown(u"reason"_s)) << door->text().toStdString();
                program.find<QDialog>(u"reason"_s).reject();
                ++doors;
            }
        }
        EXPECT_GE(doors, 4);
    }
}

TEST_F(MainWindowTest, searchFindsFieldsHoweverTheirUmlautsAreTyped) {
    program.openDemo(TaxRegion::stGallen);
    struct Row {
        QString query;
        QString focused;
    };
    for (const Row& row :
         {Row{u"übrige vermögenswerte"_s, u"otherAssets"_s},
          Row{u"uebrige vermoegenswerte"_s, u"otherAssets"_s},
          Row{u"UBRIGE VERMOGENSW"_s, u"otherAssets"_s}, Row{u"zivilst"_s, u"civilStatus"_s},
          Row{u"bargeld"_s, u"cash"_s}, Row{u"betreu"_s, u"children[0].childcareCosts"_s},
          Row{u"glaubiger"_s, u"debts[0].creditor"_s}}) {
        program.press(Qt::Key_K, Qt::ControlModifier);
        ASSERT_TRUE(program.isShown(u"search"_s));
        ASSERT_EQ(focusName(), u"searchQuery"_s);
        program.type(row.query);
        program.press(Qt::Key_Return);
        EXPECT_FALSE(program.isShown(u"search"_s));
        EXPECT_EQ(focusName(), row.focused) << row.query.toStdString();
        EXPECT_TRUE(QTest::qWaitFor([] { return testing::isInSight(*QApplication::focusWidget()); },
                                    20'000))
            << row.query.toStdString();
    }
    program.press(Qt::Key_K, Qt::ControlModifier);
    EXPECT_EQ(program.find<QLineEdit>(u"searchQuery"_s).text(), QString());
    program.type(u"xylophon"_s);
    const auto& results = program.find<QListWidget>(u"searchResults"_s);
    ASSERT_EQ(results.count(), 1);
    EXPECT_EQ(results.item(0)->text(), u"Nichts gefunden."_s);
    program.press(Qt::Key_Return);
    EXPECT_TRUE(program.isShown(u"search"_s));
    program.press(Qt::Key_Escape);
    EXPECT_FALSE(program.isShown(u"search"_s));
}

TEST_F(MainWindowTest, digitsGoToPages) {
    program.openDemo(TaxRegion::stGallen);
    for (std::size_t i = 0; i < 9; ++i) {
        program.press(static_cast<Qt::Key>(Qt::Key_1 + static_cast<int>(i)), Qt::ControlModifier);
        const QString& id = shell::MainWindow::pages()[i].id;
        EXPECT_EQ(program.window->currentPage(), id);
        EXPECT_TRUE(program.isShown(u"page:"_s + id));
        EXPECT_TRUE(program.find<QPushButton>(u"nav:"_s + id).isChecked());
    }
}

TEST_F(MainWindowTest, helpOpensAtTheFieldWithTheKeyboard) {
    program.openDemo(TaxRegion::stGallen);
    for (const QString& path : {u"civilStatus"_s, u"income1.salaries[0].grossSalary"_s}) {
        ASSERT_TRUE(program.window->showField(path));
        EXPECT_FALSE(program.isShown(u"help:"_s + path));
        program.press(Qt::Key_F1);
        EXPECT_TRUE(program.isShown(u"help:"_s + path));
        program.press(Qt::Key_F1);
        EXPECT_FALSE(program.isShown(u"help:"_s + path));
    }
}

TEST_F(MainWindowTest, undoInAFieldIsThatOfTheReturn) {
    program.openDemo(TaxRegion::stGallen);
    const Decimal before = cash();
    const Decimal otherBefore = program.store->current().otherAssets;
    program.click(u"nav:wealth"_s);
    program.enter(u"cash"_s, u"1200"_s);
    EXPECT_EQ(cash(), Decimal(1'200));
    program.click(u"otherAssets"_s);
    program.type(u"77"_s);
    EXPECT_EQ(program.store->current().otherAssets, Decimal(77)) << "as it is typed";
    program.press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(program.store->current().otherAssets, otherBefore);
    EXPECT_EQ(cash(), Decimal(1'200));
    program.press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(cash(), before);
    EXPECT_EQ(focusName(), u"cash"_s) << "where the change can be seen";
    program.press(Qt::Key_Y, Qt::ControlModifier);
    program.press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(cash(), Decimal(1'200));
    EXPECT_EQ(program.store->current().otherAssets, Decimal(77));
    EXPECT_EQ(program.find<QLineEdit>(u"otherAssets"_s).text(), u"77"_s);
}

TEST_F(MainWindowTest, yearAndRegionAreSwitchedInTheSidebar) {
    program.openDemo(TaxRegion::stGallen);
    program.click(u"nav:wealth"_s);
    const QString total = program.find<QLabel>(u"total"_s).text();
    program.find(u"year"_s).setFocus(Qt::TabFocusReason);
    program.press(Qt::Key_Down);
    program.settle();
    EXPECT_EQ(program.store->year(), 2026);
    const auto said = [&] { return program.find<QLabel>(u"toastText"_s).text(); };
    EXPECT_TRUE(said().startsWith(u"2026 beginnt mit den Angaben von 2025"_s)) << "carried over";
    EXPECT_EQ(program.find<QComboBox>(u"year"_s).currentData().toInt(), 2026);
    EXPECT_EQ(focusName(), u"year"_s);
    EXPECT_EQ(program.window->currentPage(), u"wealth"_s);

    program.find(u"region"_s).setFocus(Qt::TabFocusReason);
    program.press(Qt::Key_Down);
    program.settle();
    EXPECT_EQ(program.store->current().taxRegion(), TaxRegion::liechtenstein);
    EXPECT_TRUE(program.isShown(u"li.householdGoods"_s));
    EXPECT_TRUE(said().contains(QString::fromStdString(program.store->current().municipality)))
        << "it was replaced";
    EXPECT_NE(program.find<QLabel>(u"total"_s).text(), total);

    program.press(Qt::Key_Z, Qt::ControlModifier);
    program.settle();
    EXPECT_EQ(program.store->current().taxRegion(), TaxRegion::stGallen);
    EXPECT_EQ(program.find<QComboBox>(u"region"_s).currentIndex(), 0);
    EXPECT_FALSE(program.isShown(u"li.householdGoods"_s));
}

TEST_F(MainWindowTest, enterPressesAButtonLikeTheSpaceBar) {
    program.openDemo(TaxRegion::stGallen);
    program.find(u"nav:family"_s).setFocus(Qt::TabFocusReason);
    program.press(Qt::Key_Return);
    EXPECT_EQ(program.window->currentPage(), u"family"_s);
    const std::size_t children = program.store->current().children.size();
    program.find(u"add:children"_s).setFocus(Qt::TabFocusReason);
    program.press(Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_EQ(program.store->current().children.size(), children + 1);
}

TEST_F(MainWindowTest, theFirstStartAsksForTheRegionOnce) {
    program.open();
    program.window->greet();
    ASSERT_TRUE(program.isShown(u"start"_s));
    program.click(u"startLiechtenstein"_s);
    program.click(u"startFresh"_s);
    program.settle();
    EXPECT_FALSE(program.isShown(u"start"_s));
    EXPECT_EQ(program.store->current().taxRegion(), TaxRegion::liechtenstein);
    EXPECT_EQ(program.store->current().municipality, "Vaduz");
    program.open();
    program.window->greet();
    EXPECT_FALSE(program.isShown(u"start"_s));
    EXPECT_EQ(program.store->current().taxRegion(), TaxRegion::liechtenstein);
}

TEST_F(MainWindowTest, anUnreadableFileIsReplacedByItsBackup) {
    program.open();
    program.store->chooseInitialRegion(TaxRegion::stGallen);
    program.show(DemoData::family(2025));
    const PersistedState saved = program.store->snapshot();
    program.window.reset();
    program.store.reset();
    testing::writeFile(program.root() / "daten.json", "{\"cases\": {\"2025\":");

    program.open();
    EXPECT_TRUE(program.isShown(u"banner"_s));
    bool wasAsked = false;
    QTimer::singleShot(0, program.window.get(), [&] {
        auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        wasAsked = true;
        EXPECT_EQ(box->objectName(), u"recovery"_s);
        ASSERT_NE(box->defaultButton(), nullptr);
        EXPECT_EQ(box->buttonRole(box->defaultButton()), QMessageBox::AcceptRole);
        box->defaultButton()->click();
    });
    program.window->greet();
    program.settle();
    EXPECT_TRUE(wasAsked);
    EXPECT_EQ(program.store->snapshot(), saved);
    EXPECT_FALSE(program.store->loadError());
    EXPECT_FALSE(program.isShown(u"banner"_s));
    const auto written = decodeState(testing::readFile(program.root() / "daten.json"));
    ASSERT_TRUE(written) << "the file is whole again";
    EXPECT_EQ(*written, saved);
}

TEST_F(MainWindowTest, undoingGoesWhereTheChangeCanBeSeen) {
    program.openDemo(TaxRegion::stGallen);
    program.click(u"nav:wealth"_s);
    program.enter(u"cash"_s, u"1200"_s);
    program.click(u"nav:income"_s);
    program.click(u"tool:undo"_s);
    EXPECT_EQ(program.window->currentPage(), u"wealth"_s);
    EXPECT_EQ(focusName(), u"cash"_s);
    EXPECT_TRUE(program.isShown(u"toast"_s));
    EXPECT_FALSE(program.find(u"tool:undo"_s).isEnabled());
    program.click(u"nav:review"_s);
    program.click(u"tool:redo"_s);
    EXPECT_EQ(program.window->currentPage(), u"wealth"_s);
    EXPECT_EQ(cash(), Decimal(1'200));
}

TEST_F(MainWindowTest, whatCannotBeReadIsCountedAndAskedAbout) {
    program.open();
    program.store->chooseInitialRegion(TaxRegion::stGallen);
    program.click(u"nav:wealth"_s);
    const std::size_t before = program.store->notices().size();
    program.enter(u"cash"_s, u"viel"_s);
    EXPECT_EQ(program.store->unreadPlaces().size(), 1U);
    ASSERT_EQ(program.store->notices().size(), before + 1);
    EXPECT_EQ(program.store->notices().front().path, "cash");
    EXPECT_TRUE(program.find(u"nav:wealth"_s).accessibleName().contains(u"offene"_s));
    program.click(u"nav:review"_s);
    program.click(u"go:unlesbar-cash"_s);
    EXPECT_EQ(focusName(), u"cash"_s);

    bool wasAsked = false;
    QTimer::singleShot(0, program.window.get(), [&] {
        auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        wasAsked = box->objectName() == u"leavesUnread"_s;
        box->defaultButton()->click();
    });
    EXPECT_FALSE(program.window->close());
    EXPECT_TRUE(wasAsked);
    program.click(u"cash"_s);
    ASSERT_EQ(focusName(), u"cash"_s);
    program.press(Qt::Key_A, Qt::ControlModifier);
    program.type(u"50"_s);
    program.press(Qt::Key_Tab);
    ASSERT_EQ(program.store->unreadPlaces().size(), 0U);
    EXPECT_EQ(program.store->notices().size(), before);
    EXPECT_TRUE(program.window->close());
}

TEST_F(MainWindowTest, theReasonOfTheTotalLeadsOnAndBack) {
    program.openDemo(TaxRegion::stGallen);
    program.click(u"whyTotal"_s);
    ASSERT_TRUE(program.isShown(u"reason"_s));
    EXPECT_FALSE(program.isShown(u"reasonBack"_s));
    auto& dialog = program.find<QDialog>(u"reason"_s);
    const auto amounts = [&] {
        QStringList texts;
        for (const QLabel* const label : dialog.findChildren<QLabel*>()) {
            texts << label->text();
        }
        return texts;
    };
    EXPECT_FALSE(amounts().contains(u"Bund"_s)) << "the same for both stands once";
    for (QPushButton* const door : dialog.findChildren<QPushButton*>()) {
        if (door->accessibleName().contains(u"Bundessteuer"_s)
            || door->text().contains(u"Bundessteuer"_s)) {
            door->click();
            break;
        }
    }
    program.settle();
    EXPECT_TRUE(program.isShown(u"reasonBack"_s));
    program.click(u"reasonBack"_s);
    EXPECT_FALSE(program.isShown(u"reasonBack"_s));
}

TEST(WindowLibrary, itsOwnTextsAreSwissGerman) {
    const QDialogButtonBox box(QDialogButtonBox::Close | QDialogButtonBox::Cancel);
    EXPECT_EQ(box.button(QDialogButtonBox::Close)->text().remove(u'&'), u"Schliessen"_s);
    EXPECT_EQ(box.button(QDialogButtonBox::Cancel)->text().remove(u'&'), u"Abbrechen"_s);
    EXPECT_EQ(QLocale().name(), u"de_CH"_s);
}

} // namespace
} // namespace fiscarel
