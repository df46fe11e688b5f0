#include "server/Options.h"

#include "Fiscarel_SG/store/PosixFiles.h"
#include "server/EmailAddress.h"

#include <CLI/CLI.hpp>

#include <cstdint>
#include <iostream>
#include <sstream>
#include <utility>

namespace fiscarel::server {

namespace {

constexpr int usageError = 2;
constexpr std::uint64_t mostPasswordBytes = 4096;
constexpr std::uint64_t mostListBytes = std::uint64_t{16} << 20U;

/// Takes an e-mail address in the form accounts are named by.
auto toAddress() {
    return CLI::Validator(
        [](std::string& typed) {
            const auto address = emailAddressOf(typed);
            typed = address.value_or(typed);
            return address ? std::string() : "no e-mail address: " + typed;
        },
        "E-MAIL", "e-mail");
}

/// The first line of the file a password is in.
std::optional<std::string> passwordIn(const std::filesystem::path& file) {
    const auto content = PosixFiles().read(file, mostPasswordBytes);
    return content ? std::optional(content->substr(0, content->find_first_of("\r\n")))
                   : std::nullopt;
}

/// Addresses and domains, one a line; lines that begin with "#" are left out.
std::optional<AllowList> allowListIn(const std::filesystem::path& file) {
    const auto content = PosixFiles().read(file, mostListBytes);
    if (!content) {
        return std::nullopt;
    }
    AllowList list;
    std::istringstream lines(*content);
    for (std::string line; std::getline(lines, line);) {
        const bool isDomain = line.starts_with('@');
        if (const auto address = emailAddressOf(isDomain ? "x" + line : line)) {
            list.insert(isDomain ? address->substr(1) : *address);
        } else if (!line.starts_with('#') && line.find_first_not_of(" \t\r") != std::string::npos) {
            return std::nullopt;
        }
    }
    return list;
}

tl::unexpected<OptionsEnd> misused(const std::string& sentence) {
    std::cerr << sentence << '\n';
    return tl::unexpected(OptionsEnd{usageError});
}

} // namespace

tl::expected<Options, OptionsEnd> readOptions(int argc, const char* const* argv) {
    Options options;
    std::string passwordFile;
    std::string allowFile;
    CLI::App app("Server of the encrypted backup of Fiscarel SG. It sees only ciphertext.",
                 "fiscarel-server");
    app.option_defaults()->always_capture_default();
    app.add_option("--data", options.data, "Folder of all data; made where there is none")
        ->required()
        ->capture_default_str();
    app.add_option("--listen", options.address, "IP address to listen on");
    app.add_option("--port", options.port, "Port to listen on; 0 picks a free one");
    app.add_flag("--behind-proxy", options.isBehindProxy,
                 "Clients are told apart by the last address in X-Forwarded-For");
    app.add_option("--smtp", options.smtp.url,
                   "Mail server for codes: smtp://HOST:587 or smtps://HOST");
    app.add_option("--mail-from", options.smtp.from, "Sender of the codes")->transform(toAddress());
    app.add_option("--smtp-user", options.smtp.user, "User at the mail server");
    app.add_option("--smtp-password-file", passwordFile,
                   "File with the password at the mail server");
    app.add_option("--code-file", options.codeFile,
                   "Codes go to this file instead of by mail; for trying out");
    app.add_option("--allow-file", allowFile,
                   "Only these may sign in: e-mail addresses or @DOMAINs, one a line");
    app.add_option("--account-megabytes", options.accountMegabytes, "Space of an account")
        ->check(CLI::Range(1, 1 << 20));
    app.add_option("--threads", options.threads, "Requests answered at once")
        ->check(CLI::Range(1, 256));
    app.add_option("--requests-per-minute", options.requestsPerMinute, "Of one client")
        ->check(CLI::Range(1, 1'000'000));
    bool isUnlimited = false;
    app.add_flag("--no-rate-limits", isUnlimited, "No limits on requests and codes; for tests");
    app.add_flag("--log-requests", options.logsRequests,
                 "A line for each request: endpoint, status, time");
    app.add_option("--delete-account", options.deleteAccount,
                   "Plan the deletion of an account and end")
        ->transform(toAddress());
    app.add_option("--in-days", options.inDays, "When that account is deleted")
        ->check(CLI::Range(0, 3650));
    app.add_option("--keep-account", options.keepAccount, "Take a planned deletion back and end")
        ->transform(toAddress());
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& end) {
        return tl::unexpected(OptionsEnd{app.exit(end) == 0 ? 0 : usageError});
    }
    options.hasRateLimits = !isUnlimited;
    if (options.deleteAccount || options.keepAccount) {
        return options;
    }
    if (options.codeFile.empty() == options.smtp.url.empty()) {
        return misused("Say how codes reach the users: either --smtp or --code-file.");
    }
    if (!options.smtp.url.empty() && !options.smtp.url.starts_with("smtp://")
        && !options.smtp.url.starts_with("smtps://")) {
        return misused("--smtp is smtp://HOST:PORT or smtps://HOST.");
    }
    if (!options.smtp.url.empty() && options.smtp.from.empty()) {
        return misused("--smtp needs --mail-from.");
    }
    if (!passwordFile.empty()) {
        const auto password = passwordIn(passwordFile);
        if (!password) {
            return misused("The password file cannot be read: " + passwordFile);
        }
        options.smtp.password = *password;
    }
    if (!allowFile.empty()) {
        options.allowed = allowListIn(allowFile);
        if (!options.allowed) {
            return misused(
                "The file of those allowed cannot be read, or has a line that is neither "
                "an e-mail address nor a @DOMAIN: "
                + allowFile);
        }
    }
    return options;
}

} // namespace fiscarel::server
