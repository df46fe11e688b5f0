#include "server/Mail.h"

#include "server/Secrets.h"

#include <curl/curl.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <ctime>
#include <memory>
#include <string_view>

namespace fiscarel::server {

namespace {

/// Mails on their way at once; a mail server that hangs must not hold up everything else.
constexpr int mostRunning = 3;

/// The date as mails write it.
std::string mailDate() {
    const std::time_t now = std::time(nullptr);
    std::tm parts{};
    gmtime_r(&now, &parts);
    std::array<char, 64> text{};
    const std::size_t size =
        std::strftime(text.data(), text.size(), "%a, %d %b %Y %H:%M:%S +0000", &parts);
    return {text.data(), size};
}

std::string mailText(const std::string& from, const std::string& to, const std::string& code) {
    return "Date: " + mailDate() + "\r\nFrom: Fiscarel SG <" + from + ">\r\nTo: <" + to
           + ">\r\nMessage-ID: <" + hexOf(randomBytes(16)) + "@" + from.substr(from.find('@') + 1)
           + ">\r\nSubject: Ihr Anmeldecode\r\nAuto-Submitted: auto-generated\r\n"
             "MIME-Version: 1.0\r\nContent-Type: text/plain; charset=utf-8\r\n"
             "Content-Transfer-Encoding: 8bit\r\n\r\n"
             "Guten Tag\r\n\r\n"
             "Ihr Code für die Anmeldung bei der Sicherung von Fiscarel SG:\r\n\r\n    "
           + code
           + "\r\n\r\nEr gilt zehn Minuten und nur einmal. Geben Sie ihn niemandem weiter.\r\n"
             "Haben Sie keinen Code angefordert, müssen Sie nichts tun.\r\n";
}

bool isLoopback(std::string_view url) {
    const std::size_t scheme = url.find("://");
    std::string_view host = scheme == std::string_view::npos ? url : url.substr(scheme + 3);
    host = host.substr(0, host.find('/'));
    host =
        host.starts_with('[') ? host.substr(0, host.find(']') + 1) : host.substr(0, host.find(':'));
    return host == "localhost" || host == "127.0.0.1" || host == "[::1]";
}

/// What is still to be sent.
std::size_t readText(char* into, std::size_t size, std::size_t count, void* source) {
    auto& rest = *static_cast<std::string_view*>(source);
    const std::size_t bytes = std::min(size * count, rest.size());
    std::memcpy(into, rest.data(), bytes);
    rest.remove_prefix(bytes);
    return bytes;
}

} // namespace

SmtpMail::SmtpMail(Settings settings) : settings_(std::move(settings)) {
    curl_global_init(CURL_GLOBAL_DEFAULT);
}

bool SmtpMail::sendCode(const std::string& address, const std::string& code) {
    struct Running {
        std::atomic<int>& count;
        int before = count++;
        ~Running() { --count; }
    };
    const Running running{running_};
    const std::unique_ptr<CURL, decltype(&curl_easy_cleanup)> curl(curl_easy_init(),
                                                                   curl_easy_cleanup);
    const std::unique_ptr<curl_slist, decltype(&curl_slist_free_all)> to(
        curl_slist_append(nullptr, ("<" + address + ">").c_str()), curl_slist_free_all);
    if (running.before >= mostRunning || curl == nullptr || to == nullptr) {
        return false;
    }
    const std::string text = mailText(settings_.from, address, code);
    std::string_view rest = text;
    CURL* const mail = curl.get();
    curl_easy_setopt(mail, CURLOPT_URL, settings_.url.c_str());
    curl_easy_setopt(mail, CURLOPT_PROTOCOLS_STR, "smtp,smtps");
    const long encryption = isLoopback(settings_.url) ? CURLUSESSL_TRY : CURLUSESSL_ALL;
    curl_easy_setopt(mail, CURLOPT_USE_SSL, encryption);
    if (!settings_.user.empty()) {
        curl_easy_setopt(mail, CURLOPT_USERNAME, settings_.user.c_str());
        curl_easy_setopt(mail, CURLOPT_PASSWORD, settings_.password.c_str());
    }
    curl_easy_setopt(mail, CURLOPT_MAIL_FROM, ("<" + settings_.from + ">").c_str());
    curl_easy_setopt(mail, CURLOPT_MAIL_RCPT, to.get());
    curl_easy_setopt(mail, CURLOPT_UPLOAD, 1L);
    curl_easy_setopt(mail, CURLOPT_READFUNCTION, readText);
    curl_easy_setopt(mail, CURLOPT_READDATA, &rest);
    curl_easy_setopt(mail, CURLOPT_TIMEOUT, settings_.seconds);
    curl_easy_setopt(mail, CURLOPT_NOSIGNAL, 1L);
    return curl_easy_perform(mail) == CURLE_OK;
}

bool CodeFile::sendCode(const std::string& address, const std::string& code) {
    const std::lock_guard lock(mutex_);
    const int file = ::open(file_.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC | O_NOFOLLOW,
                            S_IRUSR | S_IWUSR);
    if (file < 0) {
        return false;
    }
    const std::string line = address + ' ' + code + '\n';
    const bool isWritten =
        ::fchmod(file, S_IRUSR | S_IWUSR) == 0
        && ::write(file, line.data(), line.size()) == static_cast<ssize_t>(line.size());
    return ::close(file) == 0 && isWritten;
}

} // namespace fiscarel::server
