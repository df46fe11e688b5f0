// Work that may take too long.

#include "reader/TimeLimit.h"

#include <gtest/gtest.h>

#include <chrono>
#include <future>
#include <memory>
#include <new>

namespace fiscarel::reader {
namespace {

using namespace std::chrono_literals;

Deadline in(std::chrono::seconds time) { return std::chrono::steady_clock::now() + time; }

TEST(TimeLimit, handsOverWhatIsDoneInTime) {
    EXPECT_EQ(doneBy<int>(in(60s), [] { return 7; }), 7);
    EXPECT_THROW(doneBy<int>(in(60s), []() -> int { throw std::bad_alloc(); }), std::bad_alloc);
}

TEST(TimeLimit, goesOnWithoutWhatIsNotDone) {
    const auto goOn = std::make_shared<std::promise<void>>();
    const auto ended = std::make_shared<std::promise<void>>();
    const auto result = doneBy<int>(in(0s), [=] {
        goOn->get_future().wait();
        ended->set_value_at_thread_exit();
        return 7;
    });
    EXPECT_EQ(result, std::nullopt);
    goOn->set_value();
    EXPECT_EQ(ended->get_future().wait_for(60s), std::future_status::ready);
}

} // namespace
} // namespace fiscarel::reader
