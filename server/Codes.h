#pragma once

#include "Fiscarel_SG/store/Clock.h"
#include "server/Database.h"

#include <string>
#include <string_view>

namespace fiscarel::server {

/// The one-time codes that sign in: six digits, good once, for ten minutes and five tries. The
/// database keeps a hash that says nothing without the key beside it.
class Codes {
  public:
    static constexpr std::int64_t goodSeconds = 600;
    static constexpr int mostTries = 5;

    struct Verdict {
        enum class Kind {
            right,  ///< and used up
            wrong,  ///< `remaining` tries are left
            burnt,  ///< no tries are left
            expired ///< or none was asked for, or it was used
        };
        Kind kind = Kind::expired;
        int remaining = 0;
    };

    /// `key` is secret, 32 bytes.
    explicit Codes(std::string key) : key_(std::move(key)) {}

    /// A new code for an address, in the place of an older one.
    std::string issue(Database& database, std::string_view email, Moment now) const;
    /// Checks a code; a wrong one costs a try.
    Verdict check(Database& database, std::string_view email, std::string_view code,
                  Moment now) const;
    static void forgetOld(Database& database, Moment now);

  private:
    std::string hashOf(std::string_view email, std::string_view code) const;

    std::string key_;
};

} // namespace fiscarel::server
