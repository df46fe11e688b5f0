#include "server/Connection.h"

#include "server/ServerLog.h"

#include <boost/asio/buffer.hpp>
#include <boost/asio/executor_work_guard.hpp>
#include <boost/asio/post.hpp>
#include <boost/asio/write.hpp>

#include <algorithm>
#include <string_view>
#include <utility>

namespace fiscarel::server {

namespace {

namespace asio = boost::asio;
namespace beast = boost::beast;
namespace http = beast::http;

/// Of a body that is refused so much is read over; beyond that the connection ends.
constexpr std::uint64_t mostDiscarded = std::uint64_t{64} << 20U;
constexpr std::chrono::seconds lingerTime{5};
constexpr std::string_view goOn = "HTTP/1.1 100 Continue\r\n\r\n";

std::string_view view(beast::string_view text) { return {text.data(), text.size()}; }

/// The last address in X-Forwarded-For, which the proxy itself wrote.
std::string lastForwarded(std::string_view header) {
    const std::size_t comma = header.rfind(',');
    std::string_view last = comma == std::string_view::npos ? header : header.substr(comma + 1);
    while (!last.empty() && (last.front() == ' ' || last.front() == '[')) {
        last.remove_prefix(1);
    }
    while (!last.empty() && (last.back() == ' ' || last.back() == ']')) {
        last.remove_suffix(1);
    }
    return std::string(last.substr(0, 64));
}

} // namespace

Connection::Connection(asio::ip::tcp::socket socket, ConnectionHost& host)
    : host_(host), stream_(std::move(socket)), buffer_(std::size_t{128} << 10U) {
    Error ignored;
    const auto endpoint = stream_.socket().remote_endpoint(ignored);
    peer_ = ignored ? std::string() : endpoint.address().to_string();
}

Connection::~Connection() {
    letGo();
    if (host_.ended) {
        host_.ended();
    }
}

bool Connection::endIfIdle() {
    const bool isIdle = !isBusy_ && stream_.socket().is_open();
    if (isIdle) {
        stream_.close();
    }
    return isIdle;
}

template <class Work, class Then>
void Connection::elsewhere(Work work, Then then) {
    asio::post(host_.workers, [self = shared_from_this(), work = std::move(work),
                               then = std::move(then),
                               busy = asio::make_work_guard(host_.io)]() mutable {
        auto result = work();
        asio::io_context& io = self->host_.io;
        // Moved along: the last one to hold a connection must be the thread that moves bytes.
        asio::post(io, [self = std::move(self), then = std::move(then),
                        result = std::move(result)]() mutable { then(std::move(result)); });
    });
}

void Connection::readHead() {
    if (host_.isEnding) {
        stream_.close();
        return;
    }
    isBusy_ = false;
    bodyParser_.reset();
    unwanted_.reset();
    headParser_.emplace();
    headParser_->header_limit(static_cast<std::uint32_t>(host_.settings.limits.mostHeadBytes));
    headParser_->body_limit(boost::none); // the body has a limit of its own
    stream_.expires_after(host_.settings.limits.headTime);
    http::async_read_header(
        stream_, buffer_, *headParser_,
        [self = shared_from_this()](const Error& error, std::size_t) { self->onHead(error); });
}

void Connection::onHead(const Error& error) {
    begun_ = std::chrono::steady_clock::now();
    if (error.category() == http::make_error_code(http::error::bad_method).category()
        && error != http::error::end_of_stream && error != http::error::partial_message) {
        head_ = {};
        write(Protocol::malformed(), false);
        return;
    }
    if (error) {
        stream_.close(); // gone, or too slow
        return;
    }
    isBusy_ = true;
    discarded_ = 0;
    admit();
}

RequestHead Connection::headOf(const http::fields& fields) const {
    const auto& message = headParser_->get();
    RequestHead head{.method = std::string(view(message.method_string())),
                     .target = std::string(view(message.target())),
                     .token = std::string(view(fields["X-Sitzung"])),
                     .client = peer_};
    if (host_.settings.isBehindProxy) {
        // Of several headers of the name the last counts as well.
        std::string_view forwarded;
        const auto range = fields.equal_range("X-Forwarded-For");
        for (auto field = range.first; field != range.second; ++field) {
            forwarded = view(field->value());
        }
        if (std::string last = lastForwarded(forwarded); !last.empty()) {
            head.client = std::move(last);
        }
    }
    head.client = clientOf(head.client);
    return head;
}

void Connection::admit() {
    head_ = headOf(headParser_->get().base());
    staysOpen_ = headParser_->keep_alive();
    elsewhere(
        [this] { return host_.protocol.admit(head_); },
        [this](tl::expected<Admission, Response> admitted) { onAdmitted(std::move(admitted)); });
}

void Connection::onAdmitted(tl::expected<Admission, Response> admitted) {
    if (!admitted) {
        refuse(std::move(admitted.error()));
        return;
    }
    admission_ = std::move(*admitted);
    const auto length = headParser_->content_length();
    const auto expected = static_cast<std::uint64_t>(length                   ? *length
                                                     : headParser_->chunked() ? admission_.mostBody
                                                                              : 0);
    if (expected > admission_.mostBody) {
        refuse(Protocol::tooLarge());
    } else if (host_.bytes + static_cast<std::int64_t>(expected)
               > host_.settings.limits.mostBytes) {
        refuse(Protocol::busy());
    } else {
        hold(static_cast<std::int64_t>(expected));
        askForBody();
    }
}

void Connection::askForBody() {
    const auto expect = headParser_->get()[http::field::expect];
    if (!beast::iequals(expect, "100-continue") || headParser_->is_done()) {
        readBody();
        return;
    }
    stream_.expires_after(host_.settings.limits.headTime);
    asio::async_write(stream_, asio::buffer(goOn.data(), goOn.size()),
                      [self = shared_from_this()](const Error& error, std::size_t) {
                          if (!error) {
                              self->readBody();
                          }
                      });
}

void Connection::readBody() {
    bodyParser_.emplace(std::move(*headParser_));
    bodyParser_->body_limit(admission_.mostBody);
    stream_.expires_after(host_.settings.limits.bodyTime);
    http::async_read(
        stream_, buffer_, *bodyParser_,
        [self = shared_from_this()](const Error& error, std::size_t) { self->onBody(error); });
}

void Connection::onBody(const Error& error) {
    if (error == http::error::body_limit) {
        write(Protocol::tooLarge(), false);
    } else if (error.category() == http::make_error_code(http::error::bad_chunk).category()
               && error != http::error::partial_message && error != http::error::end_of_stream) {
        write(Protocol::malformed(), false);
    } else if (error) {
        stream_.close(); // cut off on the way, or too slow
    } else {
        answer();
    }
}

void Connection::answer() {
    elsewhere(
        [this] { return host_.protocol.answer(admission_, head_, bodyParser_->get().body()); },
        [this](Response response) {
            letGo();
            hold(static_cast<std::int64_t>(response.body.size()));
            write(std::move(response), staysOpen_);
        });
}

void Connection::refuse(Response response) {
    const auto length = headParser_->content_length();
    const bool waits = beast::iequals(headParser_->get()[http::field::expect], "100-continue");
    if (headParser_->is_done()) {
        write(std::move(response), staysOpen_);
    } else if (waits || (length && *length > mostDiscarded)) {
        write(std::move(response), false);
    } else {
        refusal_ = std::move(response);
        unwanted_.emplace(std::move(*headParser_));
        unwanted_->body_limit(boost::none);
        stream_.expires_after(host_.settings.limits.bodyTime);
        discardBody();
    }
}

void Connection::discardBody() {
    auto& body = unwanted_->get().body();
    body.data = scratch_.data();
    body.size = scratch_.size();
    body.more = true;
    http::async_read(stream_, buffer_, *unwanted_,
                     [self = shared_from_this()](const Error& error, std::size_t bytes) {
                         self->discarded_ += bytes;
                         if (error && error != http::error::need_buffer) {
                             self->write(std::move(*self->refusal_), false);
                         } else if (self->unwanted_->is_done()) {
                             self->write(std::move(*self->refusal_), self->staysOpen_);
                         } else if (self->discarded_ > mostDiscarded) {
                             self->write(std::move(*self->refusal_), false);
                         } else {
                             self->discardBody();
                         }
                     });
}

void Connection::write(Response response, bool staysOpen) {
    isBusy_ = true;
    note(response.status);
    staysOpen_ = staysOpen && !host_.isEnding && head_.method != "HEAD";
    response_.emplace(static_cast<http::status>(response.status), 11);
    if (!response.body.empty()) {
        response_->set(http::field::content_type, response.type);
    }
    response_->set(http::field::cache_control, "no-store");
    response_->set("X-Content-Type-Options", "nosniff");
    if (response.retryAfter) {
        response_->set(http::field::retry_after, std::to_string(*response.retryAfter));
    }
    if (!response.allow.empty()) {
        response_->set(http::field::allow, response.allow);
    }
    if (head_.method != "HEAD") {
        response_->body() = std::move(response.body);
    }
    response_->keep_alive(staysOpen_);
    response_->prepare_payload();
    stream_.expires_after(host_.settings.limits.bodyTime);
    http::async_write(
        stream_, *response_,
        [self = shared_from_this()](const Error& error, std::size_t) { self->onWritten(error); });
}

void Connection::onWritten(const Error& error) {
    response_.reset();
    letGo();
    if (error) {
        stream_.close();
    } else if (staysOpen_) {
        readHead();
    } else {
        linger();
    }
}

void Connection::linger() {
    Error ignored;
    stream_.socket().shutdown(asio::ip::tcp::socket::shutdown_send, ignored);
    isBusy_ = false;
    stream_.expires_after(lingerTime);
    readToTheEnd();
}

void Connection::readToTheEnd() {
    stream_.async_read_some(asio::buffer(scratch_),
                            [self = shared_from_this()](const Error& error, std::size_t bytes) {
                                self->discarded_ += bytes;
                                if (!error && self->discarded_ <= mostDiscarded) {
                                    self->readToTheEnd();
                                } else {
                                    self->stream_.close();
                                }
                            });
}

void Connection::hold(std::int64_t bytes) {
    held_ += bytes;
    host_.bytes += bytes;
}

void Connection::letGo() {
    host_.bytes -= held_;
    held_ = 0;
}

void Connection::note(int status) const {
    if (host_.settings.logsRequests) {
        const auto took = std::chrono::steady_clock::now() - begun_;
        logLine(
            std::string(endpointName(head_.target)) + ' ' + std::to_string(status) + ' '
            + std::to_string(std::chrono::duration_cast<std::chrono::milliseconds>(took).count())
            + " ms");
    }
}

} // namespace fiscarel::server
