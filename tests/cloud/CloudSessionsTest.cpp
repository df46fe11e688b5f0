#include "tests/cloud/CloudSession.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <iostream>
#include <string>

namespace fiscarel::testing {
namespace {

std::uint64_t numberFrom(const char* variable, std::uint64_t otherwise) {
    const char* const text = std::getenv(variable); // NOLINT(concurrency-mt-unsafe): one thread
    return text != nullptr ? std::stoull(text) : otherwise;
}

/// `FISCAREL_CLOUD_SESSIONS` tells how many, `FISCAREL_CLOUD_FIRST` the first seed.
TEST(CloudSessions, twoMachinesEndEqualAndNothingIsLost) {
    needApplication();
    RunningServer server;
    const std::uint64_t first = numberFrom("FISCAREL_CLOUD_FIRST", 1);
    const std::uint64_t sessions = numberFrom("FISCAREL_CLOUD_SESSIONS", 40);
    SessionCounts total;
    int failed = 0;
    for (std::uint64_t seed = first; seed < first + sessions && failed < 5; ++seed) {
        CloudSession session(server, seed);
        const auto wrong = session.run();
        for (const std::string& what : wrong) {
            ADD_FAILURE() << "seed " << seed << ": " << what;
        }
        failed += wrong.empty() ? 0 : 1;
        for (std::size_t i = 0; i < FaultProxy::faults; ++i) {
            total.faults.at(i) += session.counts().faults.at(i);
        }
        for (const auto& [event, count] : session.counts().events) {
            total.events[event] += count;
        }
        total.edits += session.counts().edits;
        total.conflicts += session.counts().conflicts;
    }
    std::cout << sessions << " sessions, " << total.edits << " changed places, " << total.conflicts
              << " conflicts shown\nrequests without a fault: " << total.faults[0] << '\n';
    for (std::size_t i = 1; i < FaultProxy::faults; ++i) {
        std::cout << FaultProxy::names.at(i) << ": " << total.faults.at(i) << '\n';
        EXPECT_GT(total.faults.at(i), 0U) << FaultProxy::names.at(i);
    }
    for (const auto& [event, count] : total.events) {
        std::cout << event << ": " << count << '\n';
    }
}

} // namespace
} // namespace fiscarel::testing
