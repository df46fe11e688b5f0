#pragma once

#include <QByteArray>
#include <QObject>
#include <QTcpServer>
#include <QTcpSocket>
#include <QUrl>
#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <random>
#include <string_view>

namespace fiscarel::testing {

/// Stands between a client and the server, and does to requests what lines do. On the main thread.
class FaultProxy : public QObject {
  public:
    enum class Fault {
        none,
        refused,    ///< the connection is closed at once
        lost,       ///< the request never reaches the server
        answerLost, ///< it does, the answer never comes back
        late,       ///< it reaches the server when the client has given up
        answerLate, ///< the answer comes when the client has given up
        twice,      ///< it reaches the server twice
        truncated,  ///< the answer ends in its midst
    };
    static constexpr std::size_t faults = 8;
    static constexpr std::array<std::string_view, faults> names{
        "none", "connection refused", "request lost", "answer lost",
        "late", "answer late",        "twice",        "truncated answer"};
    using Counts = std::array<std::size_t, faults>;

    FaultProxy(int serverPort, std::uint64_t seed);

    QUrl base() const;
    bool isOffline = false;
    int faultsPerHundred = 0;
    std::chrono::milliseconds late{600}; ///< longer than the client waits
    /// Instead of drawing; of the request's head and body.
    std::function<Fault(const QByteArray& request)> chooses;
    Counts fired{};
    QByteArray seen; ///< everything that passed either way, while `records`
    bool records = false;

  private:
    struct Exchange;
    void serve(QTcpSocket* client);
    void readRequest(const std::shared_ptr<Exchange>& exchange);
    void handle(const std::shared_ptr<Exchange>& exchange);
    void forward(const QByteArray& request, std::function<void(QByteArray)> answered);
    Fault draw(const QByteArray& request);

    const int serverPort_;
    std::mt19937_64 random_;
    QTcpServer server_;
};

} // namespace fiscarel::testing
