#pragma once

#include "server/Mail.h"
#include "server/Services.h"

#include <tl/expected.hpp>

#include <filesystem>
#include <optional>
#include <string>

namespace fiscarel::server {

/// What the command line asks for.
struct Options {
    std::filesystem::path data;
    std::string address = "127.0.0.1";
    unsigned short port = 8420; ///< 0: one that is free
    bool isBehindProxy = false;
    bool logsRequests = false;
    bool hasRateLimits = true;
    int requestsPerMinute = 600; ///< of one client
    int accountMegabytes = 1024;
    int threads = 8;

    std::filesystem::path codeFile; ///< empty: codes go by mail
    SmtpMail::Settings smtp;
    std::optional<AllowList> allowed; ///< absent: everybody may sign in

    std::optional<std::string> deleteAccount; ///< an e-mail address
    int inDays = 30;
    std::optional<std::string> keepAccount; ///< an e-mail address
};

/// Where reading the command line ends the program: after the help, or a call it does not
/// understand, which was explained on standard error.
struct OptionsEnd {
    int exitCode = 0;
};

tl::expected<Options, OptionsEnd> readOptions(int argc, const char* const* argv);

} // namespace fiscarel::server
