#pragma once

#include <chrono>
#include <functional>
#include <memory>

namespace fiscarel {

/// Calls back once, some time after it was last started; on the main thread.
class Timer {
  public:
    Timer() = default;
    Timer(const Timer&) = delete;
    Timer& operator=(const Timer&) = delete;
    virtual ~Timer() = default; ///< a timer that is gone calls nobody

    /// Starts, or starts anew.
    virtual void start(std::chrono::milliseconds after) = 0;
    virtual void stop() = 0;
    virtual bool isRunning() const = 0;
};

/// Where timers come from.
class Timers {
  public:
    Timers() = default;
    Timers(const Timers&) = delete;
    Timers& operator=(const Timers&) = delete;
    virtual ~Timers() = default;

    virtual std::unique_ptr<Timer> make(std::function<void()> call) = 0;
};

} // namespace fiscarel
