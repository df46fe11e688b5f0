#include "Fiscarel_SG/store/WriterThread.h"

namespace fiscarel {

WriterThread::WriterThread(std::function<void()> wake)
    : wake_(std::move(wake)), thread_([this] { run(); }) {}

WriterThread::~WriterThread() {
    {
        const std::lock_guard lock(mutex_);
        ends_ = true;
    }
    changed_.notify_all();
    thread_.join();
}

void WriterThread::post(std::function<void()> work, std::function<void()> done) {
    {
        const std::lock_guard lock(mutex_);
        waiting_.push_back({std::move(work), std::move(done)});
    }
    changed_.notify_all();
}

void WriterThread::report(std::function<void()> call) {
    {
        const std::lock_guard lock(mutex_);
        finished_.push_back(std::move(call));
    }
    wake_();
}

void WriterThread::drain() {
    for (bool more = true; more;) {
        {
            std::unique_lock lock(mutex_);
            changed_.wait(lock, [&] { return waiting_.empty() && !working_; });
            more = !finished_.empty();
        }
        deliver();
    }
}

void WriterThread::deliver() {
    std::deque<std::function<void()>> finished;
    {
        const std::lock_guard lock(mutex_);
        finished.swap(finished_);
    }
    for (const auto& done : finished) {
        done();
    }
}

void WriterThread::run() {
    std::unique_lock lock(mutex_);
    while (true) {
        changed_.wait(lock, [&] { return ends_ || !waiting_.empty(); });
        if (waiting_.empty()) {
            return;
        }
        Job job = std::move(waiting_.front());
        waiting_.pop_front();
        working_ = true;
        lock.unlock();
        job.work();
        job.work = nullptr; // what it holds goes here, not on the main thread
        lock.lock();
        working_ = false;
        finished_.push_back(std::move(job.done));
        lock.unlock();
        changed_.notify_all();
        wake_();
        lock.lock();
    }
}

} // namespace fiscarel
