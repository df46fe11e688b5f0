#pragma once

#include "Fiscarel_SG/store/Clock.h"
#include "server/Database.h"

#include <tl/expected.hpp>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace fiscarel::server {

struct Session {
    std::int64_t id = 0; ///< also the device's
    std::int64_t account = 0;
    Moment lastSeen;
};

enum class NoSession {
    unknown, ///< never given, or signed out
    over,    ///< not used for `sessionSeconds`
};

struct Device {
    std::int64_t id = 0;
    std::string name;
    Moment since;
    Moment lastSeen;
};

/// A session ends when it was not used for 180 days.
inline constexpr std::int64_t sessionSeconds = std::int64_t{180} * 86'400;
/// Devices of an account; a further one takes the place of that not seen for longest.
inline constexpr int mostSessions = 50;

/// Begins the session of a device; its token, 64 hexadecimal digits, of which only the SHA-256 is
/// kept.
std::string beginSession(Database& database, std::int64_t account, std::string_view device,
                         Moment now);
tl::expected<Session, NoSession> findSession(Database& database, std::string_view token,
                                             Moment now);
/// Whether the use now is to be written down: kept to some minutes, not to the second.
bool isWorthNoting(const Session& session, Moment now);
void noteUse(Database& database, const Session& session, Moment now);
void endSession(Database& database, std::int64_t id);
/// The devices signed in, the first seen first.
std::vector<Device> devicesOf(Database& database, std::int64_t account, Moment now);
/// Forgets sessions that have been over for so long that nobody has to be told.
void forgetOldSessions(Database& database, Moment now);

} // namespace fiscarel::server
