#include "tests/server/WireClient.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdlib>

namespace fiscarel::server {

namespace {

constexpr int longestWait = 20'000;

std::string lowered(std::string text) {
    std::ranges::transform(text, text.begin(), [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    });
    return text;
}

std::size_t lengthIn(const std::string& head) {
    constexpr std::string_view name = "\r\ncontent-length: ";
    const std::size_t at = lowered(head).find(name);
    return at == std::string::npos ? 0 : std::strtoul(&head[at + name.size()], nullptr, 10);
}

} // namespace

WireClient::WireClient(int port) : socket_(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(static_cast<std::uint16_t>(port));
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    const int on = 1;
    ::setsockopt(socket_, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
    if (::connect(socket_, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0) {
        ::close(socket_);
        socket_ = -1;
    }
}

WireClient::~WireClient() {
    if (socket_ >= 0) {
        ::close(socket_);
    }
}

bool WireClient::send(std::string_view bytes) const {
    while (!bytes.empty()) {
        const ssize_t sent = ::send(socket_, bytes.data(), bytes.size(), MSG_NOSIGNAL);
        if (sent <= 0) {
            return false;
        }
        bytes.remove_prefix(static_cast<std::size_t>(sent));
    }
    return true;
}

void WireClient::endSending() const { ::shutdown(socket_, SHUT_WR); }

bool WireClient::readMore() {
    pollfd readable{.fd = socket_, .events = POLLIN, .revents = 0};
    std::array<char, 65'536> piece{};
    if (socket_ < 0 || ::poll(&readable, 1, longestWait) <= 0) {
        return false;
    }
    const ssize_t size = ::recv(socket_, piece.data(), piece.size(), 0);
    if (size > 0) {
        read_.append(piece.data(), static_cast<std::size_t>(size));
    }
    return size > 0;
}

std::optional<WireAnswer> WireClient::receive() {
    std::size_t end = 0;
    while ((end = read_.find("\r\n\r\n")) == std::string::npos) {
        if (!readMore()) {
            return std::nullopt;
        }
    }
    WireAnswer answer{.head = read_.substr(0, end + 2)};
    if (!answer.head.starts_with("HTTP/1.1 ")) {
        return std::nullopt;
    }
    answer.status = std::atoi(&answer.head[9]);
    const std::size_t length = lengthIn(answer.head);
    while (read_.size() < end + 4 + length) {
        if (!readMore()) {
            return std::nullopt;
        }
    }
    answer.body = read_.substr(end + 4, length);
    read_.erase(0, end + 4 + length);
    return answer;
}

bool WireClient::isClosedWithin(int milliseconds) {
    pollfd readable{.fd = socket_, .events = POLLIN, .revents = 0};
    char c = 0;
    return ::poll(&readable, 1, milliseconds) > 0 && ::recv(socket_, &c, 1, 0) <= 0;
}

std::string requestText(const std::string& method, const std::string& path, std::string_view body,
                        const std::string& token, const std::string& more) {
    std::string text = method + " /fiscarel/api/v1/" + path + " HTTP/1.1\r\nHost: 127.0.0.1\r\n";
    if (!token.empty()) {
        text += "X-Sitzung: " + token + "\r\n";
    }
    if (method == "POST") {
        text += "Content-Length: " + std::to_string(body.size()) + "\r\n";
    }
    return text + more + "\r\n" + std::string(body);
}

WireAnswer Machine::ask(const std::string& method, const std::string& path, std::string_view body,
                        const std::string& token, const std::string& more) {
    if (!connection_) {
        connection_.emplace(port_);
    }
    std::optional<WireAnswer> answer;
    if (connection_->send(requestText(method, path, body, token, more))) {
        answer = connection_->receive();
    }
    if (!answer || answer->head.find("Connection: close") != std::string::npos) {
        connection_.reset();
    }
    return answer.value_or(WireAnswer{});
}

} // namespace fiscarel::server
