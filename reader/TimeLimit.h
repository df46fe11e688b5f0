#pragma once

#include "reader/Document.h"

#include <functional>
#include <future>
#include <optional>
#include <thread>
#include <utility>

namespace fiscarel::reader {

/// What a piece of work comes to on a thread of its own; what it throws is thrown here. Absent when
/// it is not done by the deadline: then its thread is still at work, so the process must end
/// without tidying up, and what the work looks at stays for as long as the process.
template <class Result>
std::optional<Result> doneBy(Deadline deadline, std::function<Result()> work) {
    std::packaged_task<Result()> task(std::move(work));
    std::future<Result> result = task.get_future();
    std::thread thread(std::move(task));
    if (result.wait_until(deadline) != std::future_status::ready) {
        thread.detach();
        return std::nullopt;
    }
    thread.join(); // not in the midst of ending when the process ends
    return result.get();
}

} // namespace fiscarel::reader
