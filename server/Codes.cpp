#include "server/Codes.h"

#include "server/Secrets.h"

namespace fiscarel::server {

std::string Codes::issue(Database& database, std::string_view email, Moment now) const {
    std::string code = randomDigits();
    database.change("INSERT OR REPLACE INTO code (email, hash, expires, tries) VALUES (?, ?, ?, ?)",
                    email, Bytes{hashOf(email, code)}, now.seconds + goodSeconds,
                    std::int64_t{mostTries});
    return code;
}

Codes::Verdict Codes::check(Database& database, std::string_view email, std::string_view code,
                            Moment now) const {
    using Kind = Verdict::Kind;
    auto row = database.query("SELECT hash, expires, tries FROM code WHERE email = ?", email);
    if (!row.next() || row.number(1) <= now.seconds) {
        return {Kind::expired};
    }
    const auto tries = static_cast<int>(row.number(2));
    if (tries == 0) {
        return {Kind::burnt};
    }
    if (equalInConstantTime(row.text(0), hashOf(email, code))) {
        database.change("DELETE FROM code WHERE email = ?", email);
        return {Kind::right};
    }
    database.change("UPDATE code SET tries = tries - 1 WHERE email = ?", email);
    return tries == 1 ? Verdict{Kind::burnt} : Verdict{Kind::wrong, tries - 1};
}

void Codes::forgetOld(Database& database, Moment now) {
    database.change("DELETE FROM code WHERE expires <= ?", now.seconds - 86'400);
}

std::string Codes::hashOf(std::string_view email, std::string_view code) const {
    return keyedHash(key_, std::string(email) + '\n' + std::string(code));
}

} // namespace fiscarel::server
