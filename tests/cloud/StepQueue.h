#pragma once

#include "Fiscarel_SG/store/WorkQueue.h"

#include <deque>
#include <functional>
#include <utility>

namespace fiscarel::testing {

/// Does work when it is let, one piece at a time: a program may end between any two.
class StepQueue final : public WorkQueue {
  public:
    using WorkQueue::post;
    void post(std::function<void()> work, std::function<void()> done) override {
        waiting_.emplace_back(std::move(work), std::move(done));
    }
    void report(std::function<void()> call) override { call(); }
    void drain() override {
        while (step()) {
        }
    }

    /// Whether there was something to do.
    bool step() {
        if (waiting_.empty()) {
            return false;
        }
        const auto [work, done] = std::move(waiting_.front());
        waiting_.pop_front();
        work();
        done();
        return true;
    }
    bool isIdle() const { return waiting_.empty(); }
    /// What waits is never done, as when the program is killed.
    void clear() { waiting_.clear(); }

  private:
    std::deque<std::pair<std::function<void()>, std::function<void()>>> waiting_;
};

} // namespace fiscarel::testing
