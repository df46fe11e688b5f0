#pragma once

#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <utility>

namespace taxcore {

/// Keeps rules once read. They are immutable and shared, so handing them out copies nothing. Any
/// thread may use it.
template <class Key, class Rules>
class RuleCache {
  public:
    /// The rules kept under a key; null when there are none.
    std::shared_ptr<const Rules> get(const Key& key) const {
        const std::lock_guard guard(lock_);
        const auto found = rules_.find(key);
        return found == rules_.end() ? nullptr : found->second;
    }

    /// Keeps rules under a key, replacing any other.
    void put(Key key, std::shared_ptr<const Rules> rules) {
        const std::lock_guard guard(lock_);
        rules_.insert_or_assign(std::move(key), std::move(rules));
    }

  private:
    mutable std::mutex lock_;
    std::map<Key, std::shared_ptr<const Rules>> rules_;
};

} // namespace taxcore
