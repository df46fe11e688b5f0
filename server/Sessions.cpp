#include "server/Sessions.h"

#include "server/Secrets.h"

namespace fiscarel::server {

namespace {

constexpr std::size_t tokenBytes = 32;
constexpr std::int64_t noteSeconds = 300;

} // namespace

std::string beginSession(Database& database, std::int64_t account, std::string_view device,
                         Moment now) {
    std::string token = hexOf(randomBytes(tokenBytes));
    database.change("INSERT INTO session (account, token_hash, device, since, last_seen)"
                    " VALUES (?, ?, ?, ?4, ?4)",
                    account, Bytes{sha256(token)}, device, now.seconds);
    database.change("DELETE FROM session WHERE id IN (SELECT id FROM session WHERE account = ?"
                    " ORDER BY last_seen DESC, id DESC LIMIT -1 OFFSET ?)",
                    account, std::int64_t{mostSessions});
    return token;
}

tl::expected<Session, NoSession> findSession(Database& database, std::string_view token,
                                             Moment now) {
    if (token.size() != 2 * tokenBytes) {
        return tl::unexpected(NoSession::unknown);
    }
    auto row = database.query("SELECT id, account, last_seen FROM session WHERE token_hash = ?",
                              Bytes{sha256(token)});
    if (!row.next()) {
        return tl::unexpected(NoSession::unknown);
    }
    if (row.number(2) + sessionSeconds <= now.seconds) {
        return tl::unexpected(NoSession::over);
    }
    return Session{.id = row.number(0), .account = row.number(1), .lastSeen = {row.number(2)}};
}

bool isWorthNoting(const Session& session, Moment now) {
    return now.seconds - session.lastSeen.seconds >= noteSeconds;
}

void noteUse(Database& database, const Session& session, Moment now) {
    database.change("UPDATE session SET last_seen = ? WHERE id = ?", now.seconds, session.id);
}

void endSession(Database& database, std::int64_t id) {
    database.change("DELETE FROM session WHERE id = ?", id);
}

std::vector<Device> devicesOf(Database& database, std::int64_t account, Moment now) {
    std::vector<Device> devices;
    auto rows = database.query("SELECT id, device, since, last_seen FROM session"
                               " WHERE account = ? AND last_seen > ? ORDER BY id",
                               account, now.seconds - sessionSeconds);
    while (rows.next()) {
        devices.push_back({.id = rows.number(0),
                           .name = rows.text(1),
                           .since = {rows.number(2)},
                           .lastSeen = {rows.number(3)}});
    }
    return devices;
}

void forgetOldSessions(Database& database, Moment now) {
    database.change("DELETE FROM session WHERE last_seen <= ?", now.seconds - 2 * sessionSeconds);
}

} // namespace fiscarel::server
