#pragma once

#include "server/HttpServer.h"

#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <boost/asio/thread_pool.hpp>
#include <boost/beast/core/flat_buffer.hpp>
#include <boost/beast/core/tcp_stream.hpp>
#include <boost/beast/http.hpp>

#include <array>
#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace fiscarel::server {

/// What all connections share. Only the thread that moves bytes touches it, except `protocol` and
/// `workers`.
struct ConnectionHost {
    Protocol& protocol;
    const HttpServer::Settings& settings;
    boost::asio::io_context& io;
    boost::asio::thread_pool& workers;
    std::int64_t bytes = 0;           ///< of bodies held now
    bool isEnding = false;            ///< no further request is taken
    std::function<void()> ended = {}; ///< called when a connection is gone
};

/// A connection and the request it is at: head, admission, body, answer, and again.
class Connection : public std::enable_shared_from_this<Connection> {
  public:
    Connection(boost::asio::ip::tcp::socket socket, ConnectionHost& host);
    ~Connection();
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    void begin() { readHead(); }
    /// Closes it when no request runs; whether it did.
    bool endIfIdle();

  private:
    using Error = boost::system::error_code;

    void readHead();
    void onHead(const Error& error);
    void admit();
    void onAdmitted(tl::expected<Admission, Response> admitted);
    void askForBody();
    void readBody();
    void onBody(const Error& error);
    void answer();
    /// Reads what is left of a body that nobody wants, then answers.
    void refuse(Response response);
    void discardBody();
    void write(Response response, bool staysOpen);
    void onWritten(const Error& error);
    /// Ends the connection so that the other side still gets the answer.
    void linger();
    void readToTheEnd();

    void hold(std::int64_t bytes);
    void letGo();
    /// Calls `work` on another thread and `then` with its result on this one.
    template <class Work, class Then>
    void elsewhere(Work work, Then then);
    RequestHead headOf(const boost::beast::http::fields& fields) const;
    void note(int status) const;

    ConnectionHost& host_;
    boost::beast::tcp_stream stream_;
    boost::beast::flat_buffer buffer_;
    std::string peer_;
    std::optional<boost::beast::http::request_parser<boost::beast::http::empty_body>> headParser_;
    std::optional<boost::beast::http::request_parser<boost::beast::http::string_body>> bodyParser_;
    std::optional<boost::beast::http::request_parser<boost::beast::http::buffer_body>> unwanted_;
    std::optional<boost::beast::http::response<boost::beast::http::string_body>> response_;
    std::optional<Response> refusal_;
    std::array<char, 16'384> scratch_{};
    std::uint64_t discarded_ = 0;
    RequestHead head_;
    Admission admission_;
    std::int64_t held_ = 0;
    bool isBusy_ = false;
    bool staysOpen_ = true;
    std::chrono::steady_clock::time_point begun_;
};

} // namespace fiscarel::server
