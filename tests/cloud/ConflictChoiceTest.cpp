// Conflicts over what one machine removed and the other changed, settled on the machine that shows
// them.

#include "tests/cloud/CloudHousehold.h"

#include <gtest/gtest.h>

#include <functional>
#include <vector>

namespace fiscarel::testing {
namespace {

using taxcore::TaxCase;

class ConflictChoice : public CloudHousehold {
  protected:
    struct Thing {
        const char* name;
        std::function<void(CloudMachine&)> change;
        std::function<void(CloudMachine&)> remove;
        std::function<bool(const CloudMachine&)> isThere;
    };

    /// Both come to rest; losses are agreed to.
    void meet() {
        for (CloudMachine* machine : {&a, &b, &a, &b}) {
            ASSERT_TRUE(machine->settle() && machine->check()) << told(*machine);
            for (int questions = 0; machine->status().question && questions < 3; ++questions) {
                machine->sync->answerQuestion(true);
                ASSERT_TRUE(machine->rest());
            }
        }
    }
    /// As a backup that is restored does it.
    static void without(CloudMachine& machine, int year) {
        PersistedState state = machine.state();
        state.cases.erase(year);
        machine.store->applyRemote(std::move(state));
        machine.work();
    }
    static void inYear(CloudMachine& machine, int year,
                       const std::function<void(TaxCase&)>& change) {
        const int before = machine.store->year();
        machine.store->setYear(year);
        machine.store->edit("Angabe", change);
        machine.store->endMerging();
        machine.store->setYear(before);
    }
    std::vector<Thing> things() {
        const auto removeYear = [this](CloudMachine& machine) { without(machine, otherYear_); };
        const auto changeYear = [this](CloudMachine& machine) {
            inYear(machine, otherYear_, [this](TaxCase& taxCase) { taxCase.cash = ++francs_; });
        };
        const auto hasYear = [this](const CloudMachine& machine) {
            const auto found = machine.state().cases.find(otherYear_);
            return found != machine.state().cases.end() && found->second.cash == francs_;
        };
        const auto hasFile = [this](const CloudMachine& machine) {
            return fileIn(machine, document_) == "Lohnausweis";
        };
        return {
            {"a record",
             [this](CloudMachine& machine) {
                 inYear(machine, machine.store->year(),
                        [this](TaxCase& taxCase) { taxCase.debts.front().amount = ++francs_; });
             },
             [this](CloudMachine& machine) {
                 inYear(machine, machine.store->year(),
                        [](TaxCase& taxCase) { taxCase.debts.clear(); });
             },
             [](const CloudMachine& machine) { return !machine.store->current().debts.empty(); }},
            {"a document",
             [this](CloudMachine& machine) {
                 machine.store->updateDocument(document_, [this](StoredDocument& document) {
                     document.note = std::to_string(++francs_);
                 });
             },
             [this](CloudMachine& machine) { machine.store->deleteDocument(document_); }, hasFile},
            {"a year", changeYear, removeYear, hasYear}};
    }

    int otherYear_ = 0;
    int francs_ = 100;
    Uuid document_;
};

TEST_F(ConflictChoice, whatOneRemovedAndTheOtherChangedGoesOrStaysAsChosen) {
    setUpBoth();
    otherYear_ = a.store->year() - 1;
    document_ = a.addDocument("Lohn.pdf", "Lohnausweis");
    a.store->edit("Schuld", [](TaxCase& taxCase) { taxCase.debts.emplace_back().amount = 100; });
    inYear(a, otherYear_, [](TaxCase& taxCase) { taxCase.cash = 50; });
    meet();
    for (const Thing& thing : things()) {
        for (const bool isGoneHere : {true, false}) { // on the machine that shows the conflict
            for (const bool goes : {false, true}) {
                SCOPED_TRACE(std::string(thing.name) + (isGoneHere ? ", gone here" : ", gone there")
                             + (goes ? ", goes" : ", stays"));
                (isGoneHere ? thing.change : thing.remove)(b);
                ASSERT_TRUE(b.settle() && b.check());
                if (b.status().question) {
                    b.sync->answerQuestion(true);
                    ASSERT_TRUE(b.rest());
                }
                (isGoneHere ? thing.remove : thing.change)(a);
                meet();
                ASSERT_EQ(a.status().conflicts.size(), 1U);
                ASSERT_TRUE(thing.isThere(a) && thing.isThere(b)) << "kept for the choice";
                const int year = a.store->year();
                a.sync->settleConflict(0, goes != isGoneHere);
                EXPECT_EQ(a.store->year(), year);
                EXPECT_TRUE(a.status().conflicts.empty());
                EXPECT_EQ(a.status().problem, std::nullopt);
                EXPECT_EQ(thing.isThere(a), !goes);
                meet();
                EXPECT_EQ(thing.isThere(b), !goes);
                expectEqual();
                if (goes) {
                    EXPECT_TRUE(a.store->undo()) << "as any edit";
                    EXPECT_TRUE(thing.isThere(a));
                    EXPECT_TRUE(a.store->redo());
                    EXPECT_FALSE(thing.isThere(a));
                    a.store->undo();
                    meet();
                    EXPECT_TRUE(thing.isThere(b));
                    expectEqual();
                }
            }
        }
    }
}

TEST_F(ConflictChoice, whatWasGoneHereAndHasChangedSinceStays) {
    setUpBoth();
    a.store->edit("Schuld", [](TaxCase& taxCase) { taxCase.debts.emplace_back().amount = 100; });
    meet();
    const auto amount = [](CloudMachine& machine, int francs) {
        machine.store->edit("Schuld",
                            [&](TaxCase& taxCase) { taxCase.debts.front().amount = francs; });
        machine.store->endMerging();
    };
    amount(b, 200);
    ASSERT_TRUE(b.settle());
    a.store->edit("Schuld", [](TaxCase& taxCase) { taxCase.debts.clear(); });
    meet();
    amount(a, 300);
    ASSERT_EQ(a.status().conflicts.size(), 1U);
    a.sync->settleConflict(0, false);
    ASSERT_EQ(a.store->current().debts.size(), 1U);
    EXPECT_EQ(a.store->current().debts.front().amount, 300);
    EXPECT_TRUE(a.status().problem);
}

/// The selected year always has a case.
TEST_F(ConflictChoice, theSelectedYearGivesWayToANewOne) {
    setUpBoth();
    otherYear_ = a.store->year() - 1;
    inYear(a, otherYear_, [](TaxCase& taxCase) { taxCase.cash = 50; });
    meet();
    inYear(b, otherYear_, [](TaxCase& taxCase) { taxCase.cash = 60; });
    ASSERT_TRUE(b.settle());
    without(a, otherYear_);
    meet();
    ASSERT_EQ(a.status().conflicts.size(), 1U);
    a.store->setYear(otherYear_);
    a.sync->settleConflict(0, false);
    EXPECT_EQ(a.store->current(), TaxCase{.year = otherYear_});
    meet();
    EXPECT_EQ(b.state().cases.at(otherYear_), TaxCase{.year = otherYear_});
    EXPECT_TRUE(a.store->undo());
    EXPECT_EQ(a.store->current().cash, 60);
    meet();
    expectEqual();
}

} // namespace
} // namespace fiscarel::testing
