#pragma once

#include <functional>
#include <memory>
#include <utility>

namespace fiscarel {

/// Work off the main thread, one piece after the other in the order it was given.
class WorkQueue {
  public:
    WorkQueue() = default;
    WorkQueue(const WorkQueue&) = delete;
    WorkQueue& operator=(const WorkQueue&) = delete;
    virtual ~WorkQueue() = default;

    /// Runs `work` off the main thread and then `done` on it. From the main thread only.
    virtual void post(std::function<void()> work, std::function<void()> done) = 0;
    /// Runs `call` on the main thread before the `done` of the work that is under way. From within
    /// work only.
    virtual void report(std::function<void()> call) = 0;
    /// Waits until all work is done and `done` was called for each, also for what these post.
    virtual void drain() = 0;

    /// The same for work with a result.
    template <class Result>
    void post(std::function<Result()> work, std::function<void(Result)> done) {
        auto result = std::make_shared<std::unique_ptr<Result>>();
        post([result, work = std::move(work)] { *result = std::make_unique<Result>(work()); },
             [result, done = std::move(done)] { done(std::move(**result)); });
    }
};

} // namespace fiscarel
