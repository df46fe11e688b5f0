// The engine as the program runs it: threads, timers of the event loop, and an end at any moment.

#include "Fiscarel_SG/store/QtServices.h"
#include "Fiscarel_SG/store/WriterThread.h"
#include "tests/cloud/CloudHousehold.h"

#include <gtest/gtest.h>

#include <QObject>
#include <memory>
#include <string>

namespace fiscarel::testing {
namespace {

struct ThreadWithLoop {
    QObject onMainThread;
    WriterThread thread{[this] {
        QMetaObject::invokeMethod(
            &onMainThread, [this] { thread.deliver(); }, Qt::QueuedConnection);
    }};
};

/// A start of the program on a machine's folder and keyring.
struct Program {
    explicit Program(CloudMachine& machine, const QUrl& base)
        : persistence(machine.files, machine.clock, machine.root()),
          store({&persistence, writer.thread, machine.clock, timers, machine.settings}, {}),
          api(base), sync({store, api, machine.keychain, &persistence, machine.files, writer.thread,
                           worker.thread, timers, machine.clock}) {}

    QtTimers timers;
    Persistence persistence;
    ThreadWithLoop writer;
    ThreadWithLoop worker;
    AppStore store;
    CloudAPI api;
    CloudSync sync;
};

using CloudThreadsTest = CloudHousehold;

TEST_F(CloudThreadsTest, theProgramMayEndAtAnyMoment) {
    setUpBoth();
    a.addDocument("Lohn.pdf", std::string(200'000, 'x'));
    a.quit();
    for (int end = 0; end < 25; ++end) {
        Program program(a, toA.base());
        program.store.edit("Bargeld", [&](taxcore::TaxCase& taxCase) { taxCase.cash = end; });
        passTime(std::chrono::milliseconds(end % 13));
        program.sync.checkNow();
        passTime(std::chrono::milliseconds(end / 2));
    }
    {
        Program program(a, toA.base());
        const CloudStatus& status = program.sync.status();
        ASSERT_TRUE(waitFor([&] {
            return status.compared && status.documentsToSend == 0 && !program.sync.isRunning();
        })) << status.problem.value_or("no problem");
        EXPECT_EQ(program.store.current().cash, 24);
        EXPECT_TRUE(program.sync.status().conflicts.empty());
    }
    a.start();
    exchange();
    expectEqual();
    EXPECT_EQ(b.store->current().cash, 24);
    EXPECT_EQ(fileIn(b, b.state().documents.at(0).id).size(), 200'000U);
}

} // namespace
} // namespace fiscarel::testing
