#pragma once

#include <atomic>
#include <filesystem>
#include <mutex>
#include <string>

namespace fiscarel::server {

/// How a code reaches the user. Any thread may call.
class Mail {
  public:
    Mail() = default;
    Mail(const Mail&) = delete;
    Mail& operator=(const Mail&) = delete;
    virtual ~Mail() = default;

    /// Whether it was taken for delivery.
    virtual bool sendCode(const std::string& address, const std::string& code) = 0;
};

/// By an SMTP server, encrypted except to this machine.
class SmtpMail final : public Mail {
  public:
    struct Settings {
        std::string url;  ///< "smtp://host:587" or "smtps://host"
        std::string from; ///< an e-mail address
        std::string user; ///< empty: without signing in
        std::string password;
        long seconds = 20; ///< for the whole of it
    };
    explicit SmtpMail(Settings settings);
    bool sendCode(const std::string& address, const std::string& code) override;

  private:
    const Settings settings_;
    std::atomic<int> running_ = 0;
};

/// Appends a line "ADDRESS CODE" to a file that only this user reads. For trying out and for tests.
class CodeFile final : public Mail {
  public:
    explicit CodeFile(std::filesystem::path file) : file_(std::move(file)) {}
    bool sendCode(const std::string& address, const std::string& code) override;

  private:
    const std::filesystem::path file_;
    std::mutex mutex_;
};

} // namespace fiscarel::server
