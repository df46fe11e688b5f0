#pragma once

#include "Fiscarel_SG/store/Clock.h"
#include "Fiscarel_SG/store/Settings.h"
#include "Fiscarel_SG/store/Timer.h"
#include "Fiscarel_SG/store/WorkQueue.h"

#include <chrono>
#include <cstdint>
#include <deque>
#include <functional>
#include <list>
#include <map>
#include <memory>
#include <string>
#include <utility>

namespace fiscarel::testing {

/// A clock that stands until it is told to go; its zone is an hour ahead of UTC.
class FakeClock final : public Clock {
  public:
    explicit FakeClock(std::int64_t seconds = 1'773'000'000) // 2026-03-08T20:00:00Z
        : moment{seconds} {}

    Moment moment;

    Moment now() const override { return moment; }
    LocalTime localTime(Moment at) const override {
        const std::string text = Moment{at.seconds + 3600}.toString();
        const auto two = [&](std::size_t from) { return std::stoi(text.substr(from, 2)); };
        return {taxcore::Date::parse(text.substr(0, 10)).value(), two(11), two(14), two(17)};
    }
    void nextDay() { moment.seconds += 86'400; }
};

/// Timers that run when time is made to pass.
class FakeTimers final : public Timers {
  public:
    std::unique_ptr<Timer> make(std::function<void()> call) override {
        auto state = std::make_shared<State>();
        state->call = std::move(call);
        timers_.push_back(state);
        return std::make_unique<One>(*this, state);
    }

    /// Lets time pass; timers call in the order they are due.
    void advance(std::chrono::milliseconds by) {
        const auto end = now_ + by;
        for (State* next = due(end); next != nullptr; next = due(end)) {
            now_ = next->at;
            next->running = false;
            next->call();
        }
        now_ = end;
    }

  private:
    struct State {
        std::function<void()> call;
        std::chrono::milliseconds at{0};
        bool running = false;
    };
    class One final : public Timer {
      public:
        One(FakeTimers& timers, std::shared_ptr<State> state)
            : timers_(timers), state_(std::move(state)) {}
        ~One() override { state_->running = false; }
        One(const One&) = delete;
        One& operator=(const One&) = delete;
        void start(std::chrono::milliseconds after) override {
            state_->at = timers_.now_ + after;
            state_->running = true;
        }
        void stop() override { state_->running = false; }
        bool isRunning() const override { return state_->running; }

      private:
        FakeTimers& timers_;
        std::shared_ptr<State> state_;
    };

    State* due(std::chrono::milliseconds until) {
        State* first = nullptr;
        for (const auto& timer : timers_) {
            if (timer->running && timer->at <= until
                && (first == nullptr || timer->at < first->at)) {
                first = timer.get();
            }
        }
        return first;
    }

    std::chrono::milliseconds now_{0};
    std::list<std::shared_ptr<State>> timers_;
};

/// Does work at once, or, while held, when it is let go or drained.
class InlineQueue final : public WorkQueue {
  public:
    bool held = false;

    using WorkQueue::post;
    void post(std::function<void()> work, std::function<void()> done) override {
        waiting_.emplace_back(std::move(work), std::move(done));
        if (!held) {
            drain();
        }
    }
    void drain() override {
        while (!waiting_.empty()) {
            const auto [work, done] = std::move(waiting_.front());
            waiting_.pop_front();
            work();
            done();
        }
    }

    void report(std::function<void()> call) override { call(); }

  private:
    std::deque<std::pair<std::function<void()>, std::function<void()>>> waiting_;
};

class MemorySettings final : public Settings {
  public:
    explicit MemorySettings(std::map<std::string, std::string> stored = {})
        : values(std::move(stored)) {}

    std::map<std::string, std::string> values;

    std::optional<std::string> text(std::string_view key) const override {
        const auto found = values.find(std::string(key));
        return found == values.end() ? std::nullopt : std::optional(found->second);
    }
    void setText(std::string_view key, std::string_view value) override {
        values[std::string(key)] = std::string(value);
    }
};

} // namespace fiscarel::testing
