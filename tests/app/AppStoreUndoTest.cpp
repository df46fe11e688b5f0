// Taking edits back and making them again.

#include "tests/app/AppStoreFixture.h"
#include "tests/support/RandomCase.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace fiscarel {
namespace {

using taxcore::TaxCase;

class AppStoreUndo : public AppStoreTest {};

TEST_F(AppStoreUndo, undoesFieldByFieldAndMergesKeystrokes) {
    start();
    const TaxCase fresh = store->current();
    setCash(*store, 1);
    setCash(*store, 12);
    setCash(*store, 123);
    store->edit("Gemeinde", [](TaxCase& taxCase) { taxCase.municipality = "Buchs"; });
    EXPECT_EQ(store->undoName(), "Gemeinde");
    EXPECT_EQ(store->undo(), "Gemeinde");
    EXPECT_EQ(store->current().cash, 123);
    EXPECT_EQ(store->redoName(), "Gemeinde");
    EXPECT_EQ(store->undo(), "Bargeld");
    EXPECT_EQ(store->current(), fresh);
    EXPECT_EQ(store->undo(), std::nullopt);
    EXPECT_EQ(store->redo(), "Bargeld");
    EXPECT_EQ(store->redo(), "Gemeinde");
    EXPECT_EQ(store->redo(), std::nullopt);

    // A pause, another place for the keyboard, and an undo each begin a new edit.
    setCash(*store, 4);
    clock.moment.seconds += History::mergeSeconds + 1;
    setCash(*store, 45);
    store->endMerging();
    setCash(*store, 456);
    EXPECT_EQ(store->undo(), "Bargeld");
    EXPECT_EQ(store->current().cash, 45);
    setCash(*store, 7);
    EXPECT_FALSE(store->redoName().has_value());
    store->undo();
    store->undo();
    EXPECT_EQ(store->current().cash, 4);
    // Typing and taking it back is nothing to undo.
    store->edit("IBAN", [](TaxCase& taxCase) { taxCase.iban = "C"; });
    store->edit("IBAN", [](TaxCase& taxCase) { taxCase.iban.clear(); });
    EXPECT_EQ(store->undoName(), "Bargeld");
}

TEST_F(AppStoreUndo, undoingAnythingLeadsBackExactly) {
    start();
    taxcore::testing::RandomCase random(7);
    std::vector<TaxCase> history{store->current()};
    for (int i = 0; i < 100; ++i) {
        TaxCase next = history.back();
        switch (random.below(4)) {
        case 0:
            next = random.next();
            break;
        case 1:
            random.fill(next.securities);
            break;
        case 2:
            std::ranges::reverse(next.children);
            break;
        default:
            random.fill(next.deductions1);
        }
        next.year = 2025;
        store->setCurrent(next);
        if (next != history.back()) {
            history.push_back(next);
        }
    }
    for (std::size_t i = history.size() - 1; i > 0; --i) {
        ASSERT_TRUE(store->undo().has_value()) << i;
        ASSERT_TRUE(store->current() == history[i - 1]) << i;
    }
    EXPECT_FALSE(store->undo().has_value());
    for (std::size_t i = 1; i < history.size(); ++i) {
        ASSERT_TRUE(store->redo().has_value()) << i;
        ASSERT_TRUE(store->current() == history[i]) << i;
    }
}

TEST_F(AppStoreUndo, undoingGoesToTheYearOfTheEdit) {
    start();
    setCash(*store, 5);
    store->setYear(2026);
    setCash(*store, 6);
    store->undo();
    EXPECT_EQ(store->year(), 2026);
    store->undo();
    EXPECT_EQ(store->year(), 2025);
    EXPECT_EQ(store->current().cash, 0);
}

TEST_F(AppStoreUndo, undoingLeavesWhatCameFromElsewhere) {
    start();
    store->edit("Schuld", [](TaxCase& taxCase) { taxCase.debts.resize(2); });
    store->edit("Bargeld", [](TaxCase& taxCase) { taxCase.cash = 5; });
    store->edit("Zins", [](TaxCase& taxCase) { taxCase.debts[1].interest = 50; });
    PersistedState remote = store->snapshot();
    remote.cases[2025].debts[0].creditor = "Bank";
    remote.cases[2025].cash = 9; // the edit of the cash no longer applies
    store->applyRemote(remote);
    EXPECT_EQ(store->undo(), "Zins");
    EXPECT_EQ(store->current().debts[1].interest, 0);
    EXPECT_EQ(store->current().debts[0].creditor, "Bank");
    EXPECT_EQ(store->undoName(), std::nullopt)
        << "a debt that has changed elsewhere is not taken away";
    EXPECT_EQ(store->redo(), "Zins");
    EXPECT_EQ(store->current().debts[1].interest, 50);
}

TEST_F(AppStoreUndo, keepsABoundedHistory) {
    start();
    for (int i = 1; i <= static_cast<int>(History::longest) + 20; ++i) {
        store->endMerging();
        setCash(*store, i);
    }
    int undone = 0;
    while (store->undo()) {
        ++undone;
    }
    EXPECT_EQ(undone, static_cast<int>(History::longest));
    EXPECT_EQ(store->current().cash, 20);
}

} // namespace
} // namespace fiscarel
