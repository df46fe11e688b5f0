#include "Fiscarel_SG/store/FolderLock.h"
#include "server/Accounts.h"
#include "server/HttpServer.h"
#include "server/Options.h"
#include "server/Protocol.h"
#include "server/ServerLog.h"
#include "server/Services.h"

#include <sys/stat.h>

#include <csignal>
#include <exception>
#include <iostream>
#include <memory>
#include <string>

namespace {

using namespace fiscarel;
using namespace fiscarel::server;

enum ExitCode { fine = 0, failed = 1 };

/// Plans the deletion of an account, or takes it back. A server that runs on the folder may go on.
int changeDeletion(const Options& options, const Clock& clock) {
    if (!std::filesystem::exists(options.data / "server.db")) {
        std::cerr << "There are no accounts in " << options.data.string() << ".\n";
        return failed;
    }
    Store store(options.data / "server.db");
    const std::string& email =
        options.deleteAccount ? *options.deleteAccount : *options.keepAccount;
    std::optional<std::string> day;
    if (options.deleteAccount) {
        day = dayOf({clock.now().seconds + std::int64_t{options.inDays} * 86'400});
    }
    const bool isThere =
        store.change([&](Database& database) { return planDeletion(database, email, day); });
    if (!isThere) {
        std::cerr << "There is no account of that address.\n";
        return failed;
    }
    std::cout << (day ? "The account is deleted on " + *day + "." : "The account is kept.") << '\n';
    return fine;
}

std::unique_ptr<Mail> mailOf(const Options& options) {
    if (!options.codeFile.empty()) {
        return std::make_unique<CodeFile>(options.codeFile);
    }
    return std::make_unique<SmtpMail>(options.smtp);
}

RateLimits::Rules rulesOf(const Options& options) {
    RateLimits::Rules rules;
    rules.requestsPerClient.most = options.requestsPerMinute;
    return options.hasRateLimits ? rules : RateLimits::Rules::none();
}

int serve(const Options& options, const Clock& clock) {
    const auto lock = FolderLock::acquire(options.data);
    if (!lock) {
        std::cerr << "Another server runs on " << options.data.string() << ".\n";
        return failed;
    }
    const auto mail = mailOf(options);
    Services services(options.data, *mail, clock, rulesOf(options),
                      {.mostAccountBytes = std::int64_t{options.accountMegabytes} << 20U});
    services.allowed = options.allowed;
    services.removeLeftovers();
    Protocol protocol(services);
    HttpServer http(protocol, {.address = options.address,
                               .port = options.port,
                               .isBehindProxy = options.isBehindProxy,
                               .logsRequests = options.logsRequests,
                               .everyHour = [&services] { services.tidyUp(); },
                               .limits = {.threads = options.threads}});
    const bool isV6 = options.address.find(':') != std::string::npos;
    std::cout << "listening on http://" << (isV6 ? "[" + options.address + "]" : options.address)
              << ':' << http.port() << "/fiscarel/api/v1/" << std::endl;
    http.run();
    logLine("ended");
    return fine;
}

} // namespace

int main(int argc, char** argv) {
    umask(S_IRWXG | S_IRWXO);      // what it writes is for its user alone
    std::signal(SIGPIPE, SIG_IGN); // a client that leaves is no reason to end
    try {
        const auto options = readOptions(argc, argv);
        if (!options) {
            return options.error().exitCode;
        }
        const SystemClock clock;
        return options->deleteAccount || options->keepAccount ? changeDeletion(*options, clock)
                                                              : serve(*options, clock);
    } catch (const std::exception& failure) {
        std::cerr << "fiscarel-server: " << failure.what() << '\n';
        return failed;
    }
}
