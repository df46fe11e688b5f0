#pragma once

#include "Fiscarel_SG/store/Clock.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace fiscarel::server {

/// How often something may be asked for. Counts are kept in memory and begin anew with the program.
/// Any thread may call.
class RateLimits {
  public:
    /// So many in each stretch of time; none: as many as one likes.
    struct Rule {
        std::optional<int> most;
        std::int64_t seconds = 3600;
    };
    struct Rules {
        Rule codesPerAddress{5, 3600};
        Rule codesPerClient{20, 3600};
        Rule triesPerClient{60, 3600};
        Rule requestsPerClient{600, 60};

        static Rules none();
    };
    enum class Kind { codesOfAddress, codesOfClient, triesOfClient, requests };

    explicit RateLimits(Rules rules) : rules_(rules) {}

    /// Counts one more by an address or client; the seconds to wait when that is one too many.
    std::optional<std::int64_t> take(Kind kind, std::string_view by, Moment now);

  private:
    struct Count {
        std::int64_t since = 0;
        int taken = 0;
    };
    const Rule& ruleOf(Kind kind) const;
    void forgetOld(std::int64_t now);

    const Rules rules_;
    std::mutex mutex_;
    std::map<std::pair<Kind, std::string>, Count> counts_;
    std::size_t crowded_ = 10'000; ///< how many counts make it look for old ones
};

/// What counts as one client: an IPv4 address, or the network of 64 bits of an IPv6 address.
std::string clientOf(std::string_view address);

} // namespace fiscarel::server
