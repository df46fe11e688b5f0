#pragma once

#include <memory>
#include <utility>

namespace fiscarel {

/// Answers that come later: they reach nobody once the object that asked is gone. Main thread only.
class Lifeline {
  public:
    template <class Call>
    auto guard(Call call) const {
        return [alive = std::weak_ptr<const bool>(alive_),
                call = std::move(call)](auto&&... arguments) mutable {
            if (!alive.expired()) {
                call(std::forward<decltype(arguments)>(arguments)...);
            }
        };
    }

  private:
    std::shared_ptr<const bool> alive_ = std::make_shared<const bool>(true);
};

} // namespace fiscarel
