#include "server/HttpServer.h"

#include "server/Connection.h"
#include "server/ServerLog.h"

#include <boost/asio/executor_work_guard.hpp>
#include <boost/asio/post.hpp>
#include <boost/asio/signal_set.hpp>
#include <boost/asio/steady_timer.hpp>

#include <algorithm>
#include <csignal>
#include <exception>
#include <list>
#include <memory>
#include <utility>

namespace fiscarel::server {

namespace asio = boost::asio;
using asio::ip::tcp;

class HttpServer::Core {
  public:
    Core(Protocol& protocol, Settings settings)
        : settings_(std::move(settings)), host_{protocol, settings_, io_, workers_},
          workers_(static_cast<std::size_t>(settings_.limits.threads)) {
        const tcp::endpoint endpoint(asio::ip::make_address(settings_.address), settings_.port);
        acceptor_.open(endpoint.protocol());
        acceptor_.set_option(asio::socket_base::reuse_address(true));
        acceptor_.bind(endpoint);
        acceptor_.listen();
        port_ = acceptor_.local_endpoint().port();
        host_.ended = [this] { onEnded(); };
    }
    ~Core() {
        host_.ended = nullptr;
        workers_.join();
    }
    Core(const Core&) = delete;
    Core& operator=(const Core&) = delete;

    unsigned short port() const { return port_; }

    void run() {
        signals_.async_wait([this](const auto& error, int) {
            if (!error) {
                end();
            }
        });
        accept();
        keepTidy();
        io_.run();
        workers_.join();
    }
    void stop() {
        asio::post(io_, [this] { end(); });
    }

  private:
    void accept() {
        if (isAccepting_ || host_.isEnding
            || (open_ >= settings_.limits.mostConnections && !makeRoom())) {
            return; // the end of a connection asks again
        }
        isAccepting_ = true;
        acceptor_.async_accept([this](const boost::system::error_code& error, tcp::socket socket) {
            isAccepting_ = false;
            if (!error) {
                const auto connection = std::make_shared<Connection>(std::move(socket), host_);
                ++open_;
                std::erase_if(connections_, [](const auto& one) { return one.expired(); });
                connections_.push_back(connection);
                connection->begin();
                accept();
            } else if (!host_.isEnding) {
                retryAccept();
            }
        });
    }
    /// Closes the oldest connection that waits for a request; false when there is none.
    bool makeRoom() {
        return std::ranges::any_of(connections_, [](const auto& one) {
            const auto connection = one.lock();
            return connection != nullptr && connection->endIfIdle();
        });
    }
    /// Out of files, most likely: it gets better when connections end.
    void retryAccept() {
        pause_.expires_after(std::chrono::milliseconds(100));
        pause_.async_wait([this](const auto& error) {
            if (!error) {
                accept();
            }
        });
    }
    void onEnded() {
        --open_;
        asio::post(io_, [this] { accept(); });
    }
    void keepTidy() {
        if (settings_.everyHour) {
            asio::post(workers_, [this] {
                try {
                    settings_.everyHour();
                } catch (const std::exception& failure) {
                    logLine(std::string("internal error: ") + failure.what());
                }
            });
        }
        tidying_.expires_after(std::chrono::hours(1));
        tidying_.async_wait([this](const auto& error) {
            if (!error) {
                keepTidy();
            }
        });
    }
    void end() {
        if (host_.isEnding) {
            return;
        }
        host_.isEnding = true;
        boost::system::error_code ignored;
        acceptor_.close(ignored);
        signals_.cancel(ignored);
        tidying_.cancel();
        pause_.cancel();
        for (const auto& one : connections_) {
            if (const auto connection = one.lock()) {
                connection->endIfIdle();
            }
        }
        // Requests that still run keep it going, but not for ever. The guard's timer must not.
        ending_.expires_after(settings_.limits.endTime);
        ending_.async_wait([this](const auto& error) {
            if (!error) {
                io_.stop();
            }
        });
        watchEnd();
    }
    void watchEnd() {
        if (open_ == 0) {
            ending_.cancel();
            return;
        }
        pause_.expires_after(std::chrono::milliseconds(10));
        pause_.async_wait([this](const auto&) { watchEnd(); });
    }

    const Settings settings_;
    ConnectionHost host_; ///< before what still holds connections when it goes
    asio::io_context io_{1};
    asio::thread_pool workers_;
    tcp::acceptor acceptor_{io_};
    asio::signal_set signals_{io_, SIGTERM, SIGINT};
    asio::steady_timer tidying_{io_};
    asio::steady_timer pause_{io_};
    asio::steady_timer ending_{io_};
    std::list<std::weak_ptr<Connection>> connections_;
    std::size_t open_ = 0;
    unsigned short port_ = 0;
    bool isAccepting_ = false;
};

HttpServer::HttpServer(Protocol& protocol, Settings settings)
    : core_(std::make_unique<Core>(protocol, std::move(settings))) {}

HttpServer::~HttpServer() = default;

unsigned short HttpServer::port() const { return core_->port(); }

void HttpServer::run() { core_->run(); }

void HttpServer::stop() { core_->stop(); }

} // namespace fiscarel::server
