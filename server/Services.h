#pragma once

#include "Fiscarel_SG/store/Clock.h"
#include "Fiscarel_SG/store/PosixFiles.h"
#include "server/Codes.h"
#include "server/Mail.h"
#include "server/RateLimits.h"
#include "server/ReceiptFiles.h"
#include "server/Receipts.h"
#include "server/Store.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <set>
#include <string>

namespace fiscarel::server {

/// Bounds on what an account may store.
struct SpaceLimits {
    std::int64_t mostItemBytes = std::int64_t{25} << 20U;   ///< of a document or block, sealed
    std::int64_t mostAccountBytes = std::int64_t{1} << 30U; ///< of all of them
};

/// The addresses that may sign in: whole ones, and "@" with a domain for all of it.
using AllowList = std::set<std::string>;

/// The data folder of a server, open: `server.db`, `receipts/`, `code.key`.
struct Services {
    /// Opens the folder, makes it where there is none. Throws when that does not work. Mail and
    /// clock must live longer.
    Services(const std::filesystem::path& folder, Mail& mailer, const Clock& time,
             RateLimits::Rules rules = {}, SpaceLimits space = {});

    /// Clears what an ended run left behind. Only before the first request, and only by the one
    /// who holds the folder.
    void removeLeftovers();
    /// Removes accounts whose day has come, and forgets old sessions and codes.
    void tidyUp();
    /// Whether codes are sent to an address. Who is not allowed is told nothing of it.
    bool allows(const std::string& email) const;

    const Clock& clock;
    Mail& mail;
    SpaceLimits limits;
    PosixFiles fileSystem;
    ReceiptFiles files;
    Store store;
    Codes codes;
    RateLimits rates;
    Receipts receipts;
    std::optional<AllowList> allowed; ///< absent: everybody
};

} // namespace fiscarel::server
