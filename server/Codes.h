#pragma once

#include "Fiscarel_SG/store/Clock.h"
#include "server/Database.h"

#include <string>
#include <string_view>

namespace fiscarel::server {

/// The one-time codes that sign in: six digits, good once, for ten minutes. The database keeps
/// hashes that say nothing without the key beside it.
///
/// Wrong tries count against the code, those of the client that asked for it apart from those of
/// everybody else: who guesses at the code of another uses up only what others have, and a new code
/// begins anew. Nothing is counted beyond a code except by client.
///
/// What guessing comes to: 8 tries a code, 5 codes an hour for an address, so 960 tries a day among
/// 1,000,000 codes. That is a chance of less than 1 in 1,000 a day, while 120 mails a day tell the
/// owner, for a session that opens nothing without the recovery key.
class Codes {
  public:
    static constexpr std::int64_t goodSeconds = 600;
    static constexpr int mostTries = 5;         ///< of the client that asked for the code
    static constexpr int mostTriesOfOthers = 3; ///< of all other clients together

    struct Verdict {
        enum class Kind {
            right,  ///< and used up
            wrong,  ///< `remaining` tries are left to this client
            burnt,  ///< none are left to it
            expired ///< or none was asked for, or it was used
        };
        Kind kind = Kind::expired;
        int remaining = 0;
    };

    /// `key` is secret, 32 bytes.
    explicit Codes(std::string key) : key_(std::move(key)) {}

    /// Who signs in, and from where.
    struct Who {
        std::string_view email;
        std::string_view client;
    };

    /// A new code for an address, in the place of an older one.
    std::string issue(Database& database, const Who& who, Moment now) const;
    /// Checks a code; a wrong one costs a try.
    Verdict check(Database& database, const Who& who, std::string_view code, Moment now) const;
    static void forgetOld(Database& database, Moment now);

  private:
    std::string hashOf(std::string_view email, std::string_view code) const;
    std::string hashOfClient(const Who& who) const;

    std::string key_;
};

} // namespace fiscarel::server
