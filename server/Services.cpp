#include "server/Services.h"

#include "server/Accounts.h"
#include "server/Secrets.h"
#include "server/ServerLog.h"
#include "server/Sessions.h"

namespace fiscarel::server {

Services::Services(const std::filesystem::path& folder, Mail& mailer, const Clock& time,
                   RateLimits::Rules rules, SpaceLimits space)
    : clock(time), mail(mailer), limits(space), files(fileSystem, folder / "receipts"),
      store(folder / "server.db"), codes(secretIn(folder / "code.key")), rates(rules),
      receipts(store, files, limits.mostAccountBytes) {}

void Services::removeLeftovers() {
    if (const std::size_t count = receipts.removeLeftovers(); count > 0) {
        logLine("removed " + std::to_string(count) + " files of documents that were not finished");
    }
}

bool Services::allows(const std::string& email) const {
    return !allowed || allowed->contains(email) || allowed->contains(email.substr(email.find('@')));
}

void Services::tidyUp() {
    const Moment now = clock.now();
    const auto due =
        store.read([&](Database& database) { return dueAccounts(database, dayOf(now)); });
    for (const std::int64_t account : due) {
        receipts.removeAccount(account);
        logLine("account " + std::to_string(account) + " was deleted as planned");
    }
    store.change([&](Database& database) {
        forgetOldSessions(database, now);
        Codes::forgetOld(database, now);
    });
}

} // namespace fiscarel::server
