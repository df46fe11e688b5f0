#pragma once

#include "Fiscarel_SG/store/WorkQueue.h"

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>

namespace fiscarel {

/// The one thread that writes. What is still waiting at the end is done before it goes.
class WriterThread final : public WorkQueue {
  public:
    /// `wake` is called on the writer's thread when something waits for `deliver`.
    explicit WriterThread(std::function<void()> wake);
    ~WriterThread() override;

    using WorkQueue::post;
    void post(std::function<void()> work, std::function<void()> done) override;
    void report(std::function<void()> call) override;
    void drain() override;

    /// Calls what is done or reported; on the main thread.
    void deliver();

  private:
    struct Job {
        std::function<void()> work;
        std::function<void()> done;
    };

    void run();

    const std::function<void()> wake_;
    std::mutex mutex_;
    std::condition_variable changed_;
    std::deque<Job> waiting_;
    std::deque<std::function<void()>> finished_;
    bool working_ = false;
    bool ends_ = false;
    std::thread thread_;
};

} // namespace fiscarel
