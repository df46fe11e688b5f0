#include "server/Codes.h"

#include "server/Secrets.h"

namespace fiscarel::server {

std::string Codes::issue(Database& database, const Who& who, Moment now) const {
    std::string code = randomDigits();
    database.change(
        "INSERT OR REPLACE INTO code (email, hash, client, expires, tries, others_tries)"
        " VALUES (?, ?, ?, ?, ?, ?)",
        who.email, Bytes{hashOf(who.email, code)}, Bytes{hashOfClient(who)},
        now.seconds + goodSeconds, std::int64_t{mostTries}, std::int64_t{mostTriesOfOthers});
    return code;
}

Codes::Verdict Codes::check(Database& database, const Who& who, std::string_view code,
                            Moment now) const {
    using Kind = Verdict::Kind;
    auto row = database.query(
        "SELECT hash, client, expires, tries, others_tries FROM code WHERE email = ?", who.email);
    if (!row.next() || row.number(2) <= now.seconds) {
        return {Kind::expired};
    }
    const bool hasAsked = equalInConstantTime(row.text(1), hashOfClient(who));
    const auto tries = static_cast<int>(row.number(hasAsked ? 3 : 4));
    if (tries == 0) {
        return {Kind::burnt};
    }
    if (equalInConstantTime(row.text(0), hashOf(who.email, code))) {
        database.change("DELETE FROM code WHERE email = ?", who.email);
        return {Kind::right};
    }
    database.change(hasAsked ? "UPDATE code SET tries = tries - 1 WHERE email = ?"
                             : "UPDATE code SET others_tries = others_tries - 1 WHERE email = ?",
                    who.email);
    return tries == 1 ? Verdict{Kind::burnt} : Verdict{Kind::wrong, tries - 1};
}

void Codes::forgetOld(Database& database, Moment now) {
    database.change("DELETE FROM code WHERE expires <= ?", now.seconds - 86'400);
}

std::string Codes::hashOf(std::string_view email, std::string_view code) const {
    return keyedHash(key_, std::string(email) + '\n' + std::string(code));
}

/// With the address, so that nobody sees who else asked from there.
std::string Codes::hashOfClient(const Who& who) const {
    return keyedHash(key_, "client\n" + std::string(who.email) + '\n' + std::string(who.client));
}

} // namespace fiscarel::server
