#include "Fiscarel_SG/AppStore.h"
#include "Fiscarel_SG/pages/OverviewPage.h"
#include "Fiscarel_SG/pages/overview/MoneyText.h"
#include "tests/support/FakeServices.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QSlider>
#include <QSpinBox>
#include <memory>

namespace fiscarel::pages {
namespace {

using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;
using namespace taxcore;

class OverviewTest : public ::testing::Test {
  protected:
    testing::FakeClock clock;
    testing::FakeTimers timers;
    testing::InlineQueue queue;
    testing::MemorySettings settings;
    std::unique_ptr<AppStore> store;
    std::unique_ptr<OverviewPage> page;
    QString reason;
    QString wantedPage;
    QString wantedField;

    void open(TaxCase taxCase) {
        page.reset();
        store =
            std::make_unique<AppStore>(AppStore::Services{nullptr, queue, clock, timers, settings},
                                       LaunchArguments{.demo = true});
        store->setCurrent(std::move(taxCase));
        settle();
        page = std::make_unique<OverviewPage>(*store, nullptr);
        QObject::connect(store.get(), &AppStore::currentChanged, page.get(),
                         [this] { page->refresh(); });
        QObject::connect(store.get(), &AppStore::resultChanged, page.get(),
                         [this] { page->refreshResult(); });
        QObject::connect(page.get(), &OverviewPage::reasonWanted, page.get(),
                         [this](const QString& code) { reason = code; });
        QObject::connect(page.get(), &OverviewPage::pageWanted, page.get(),
                         [this](const QString& id) { wantedPage = id; });
        QObject::connect(page.get(), &OverviewPage::fieldWanted, page.get(),
                         [this](const QString& path) { wantedField = path; });
        page->resize(860, 800);
        page->show();
        QApplication::processEvents();
    }
    void openDemo() {
        page.reset();
        store =
            std::make_unique<AppStore>(AppStore::Services{nullptr, queue, clock, timers, settings},
                                       LaunchArguments{.demo = true});
        open(store->current());
    }
    void settle() {
        timers.advance(1s);
        QApplication::processEvents();
    }
    template <class Widget>
    Widget& find(const QString& name) {
        auto* const found = page->findChild<Widget*>(name);
        if (found == nullptr) {
            throw std::runtime_error("no " + name.toStdString());
        }
        return *found;
    }
    /// A text that is seen somewhere on the page.
    bool shows(const QString& text) {
        for (const QLabel* label : page->findChildren<QLabel*>()) {
            if (label->isVisible() && label->text().contains(text)) {
                return true;
            }
        }
        return false;
    }
};

TEST(MoneyText, differencesHaveTheirSign) {
    EXPECT_EQ(change(312, 0), u"+312"_s);
    EXPECT_EQ(change(Decimal(-6336) / 10, 2), u"−633.60"_s);
    EXPECT_EQ(change(-1'312, 0), u"−1’312"_s);
    EXPECT_EQ(change(Decimal(-1) / 10, 0), u"0"_s);
}

TEST_F(OverviewTest, everyRecipientOfTheBillIsADoor) {
    openDemo();
    for (const QString& code : {u"cantonTotal"_s, u"municipalityTotal"_s, u"churchTotal"_s,
                                u"federal"_s, u"kapitalleistungen"_s}) {
        find<QPushButton>(u"bill:"_s + code).click();
        EXPECT_EQ(reason, code);
        EXPECT_TRUE(store->calculator()->explain(store->current(), code.toStdString()))
            << code.toStdString();
    }
    find<QPushButton>(u"progress:wealth"_s).click();
    EXPECT_EQ(wantedPage, u"wealth"_s);
}

TEST_F(OverviewTest, nothingIsWrittenUntilAValueIsTakenOver) {
    openDemo();
    const TaxCase before = store->current();
    auto& slider = find<QSlider>(u"slider:pillar3a-2"_s);
    auto& box = find<QSpinBox>(u"box:pillar3a-2"_s);
    EXPECT_EQ(box.value(), 4'000);
    EXPECT_TRUE(find<QPushButton>(u"take:pillar3a-2"_s).isHidden());
    slider.setValue(slider.maximum());
    QApplication::processEvents();
    EXPECT_EQ(box.value(), 7'258);
    EXPECT_EQ(box.text(), u"7’258"_s);
    box.setValue(6'033);
    find<QSlider>(u"slider:gifts"_s).setValue(5);
    QApplication::processEvents();
    EXPECT_EQ(store->current(), before);
    EXPECT_FALSE(store->undoName());

    find<QPushButton>(u"take:pillar3a-2"_s).click();
    TaxCase expected = before;
    expected.deductions2.pillar3a = 6'033;
    EXPECT_EQ(store->current(), expected);
    EXPECT_EQ(find<QSpinBox>(u"box:gifts"_s).value(), 500) << "the others stay imagined";
    EXPECT_TRUE(find<QPushButton>(u"take:pillar3a-2"_s).isHidden());

    // What is added to the return is not added again by a second click before the calculation.
    find<QPushButton>(u"take:gifts"_s).click();
    find<QPushButton>(u"take:gifts"_s).click();
    EXPECT_EQ(store->current().householdDeductions.donations.size(), 4U);
    EXPECT_EQ(store->undo(), "Weitere Spenden");
    EXPECT_EQ(store->current(), expected);
    store->undo();
    EXPECT_EQ(store->current(), before);
    EXPECT_EQ(box.value(), 4'000);
}

TEST_F(OverviewTest, resettingPutsEveryLeverBack) {
    openDemo();
    auto& slider = find<QSlider>(u"slider:salary-1"_s);
    const int start = slider.value();
    slider.setValue(0);
    QApplication::processEvents();
    EXPECT_TRUE(find<QPushButton>(u"whatIfReset"_s).isEnabled());
    find<QPushButton>(u"whatIfReset"_s).click();
    QApplication::processEvents();
    EXPECT_EQ(slider.value(), start);
    EXPECT_FALSE(find<QPushButton>(u"whatIfReset"_s).isEnabled());
}

TEST_F(OverviewTest, anEmptyCaseIsGreetedAndFillsInLater) {
    open(TaxCase{.year = 2025});
    EXPECT_TRUE(shows(u"Noch nichts eingetragen"_s));
    EXPECT_FALSE(find<QLabel>(u"billTotal"_s).isVisible());
    find<QPushButton>(u"begin:family"_s).click();
    EXPECT_EQ(wantedPage, u"family"_s);
    store->edit("Bargeld", [](TaxCase& taxCase) { taxCase.cash = 10; });
    settle();
    EXPECT_TRUE(find<QLabel>(u"billTotal"_s).isVisible());
}

TEST_F(OverviewTest, withoutRulesItSaysSo) {
    openDemo();
    store->setYear(2031);
    settle();
    EXPECT_TRUE(shows(u"Keine Berechnung"_s));
    EXPECT_FALSE(find<QLabel>(u"billTotal"_s).isVisible());
}

TEST_F(OverviewTest, theChangeShowsItsLinesOrWhyThereIsNone) {
    openDemo();
    EXPECT_TRUE(shows(u"Für das Vorjahr 2024 sind keine Angaben erfasst."_s));
    store->setYear(2026);
    settle();
    ASSERT_TRUE(store->review().change);
    const auto& lines = store->review().change->lines;
    auto& more = find<QPushButton>(u"changeMore"_s);
    EXPECT_TRUE(more.isVisible());
    const auto rows = [&] {
        int count = 0;
        for (const QPushButton* row : page->findChildren<QPushButton*>()) {
            count += row->isVisible() && row->objectName().startsWith(u"change:"_s) ? 1 : 0;
        }
        return count;
    };
    EXPECT_EQ(rows(), 10);
    more.click();
    QApplication::processEvents();
    EXPECT_EQ(rows(), static_cast<int>(lines.size()));
}

TEST_F(OverviewTest, theKeyboardGoesFromTopToBottom) {
    openDemo();
    settle();
    QWidget* at = &find<QPushButton>(u"bill:cantonTotal"_s);
    const QWidget* const first = at;
    int last = 0;
    int count = 0;
    for (; count == 0 || at != first; at = at->nextInFocusChain()) {
        const bool counts = (at->focusPolicy() & Qt::TabFocus) != 0 && at->isVisible()
                            && page->isAncestorOf(at) && at->focusProxy() == nullptr;
        if (!counts) {
            ASSERT_LT(++count, 5'000);
            continue;
        }
        const int y = at->mapTo(page.get(), QPoint(0, at->height() / 2)).y();
        EXPECT_GE(y + 4, last) << at->objectName().toStdString();
        last = y;
        ++count;
    }
    EXPECT_GT(count, 30);
}

} // namespace
} // namespace fiscarel::pages
