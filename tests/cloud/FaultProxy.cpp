#include "tests/cloud/FaultProxy.h"

#include <QHostAddress>
#include <QPointer>
#include <QTimer>
#include <algorithm>
#include <memory>
#include <utility>

namespace fiscarel::testing {

using namespace Qt::Literals::StringLiterals;

namespace {

/// Bytes of the first message with its body; 0: not all of it is there.
qsizetype messageLength(const QByteArray& bytes) {
    const qsizetype head = bytes.indexOf("\r\n\r\n");
    if (head < 0) {
        return 0;
    }
    const QByteArray name = "content-length: ";
    const QByteArray lower = bytes.left(head).toLower();
    const qsizetype at = lower.indexOf(name);
    const qsizetype body =
        at < 0 ? 0 : lower.mid(at + name.size()).split('\r').front().trimmed().toLongLong();
    return bytes.size() >= head + 4 + body ? head + 4 + body : 0;
}

} // namespace

/// A client's connection: one request after the other.
struct FaultProxy::Exchange {
    QPointer<QTcpSocket> client;
    QByteArray unread;
    bool isBusy = false;

    void close() const {
        if (client) {
            client->abort();
        }
    }
};

FaultProxy::FaultProxy(int serverPort, std::uint64_t seed)
    : serverPort_(serverPort), random_(seed) {
    server_.listen(QHostAddress::LocalHost);
    connect(&server_, &QTcpServer::newConnection, this, [this] {
        while (QTcpSocket* const client = server_.nextPendingConnection()) {
            serve(client);
        }
    });
}

QUrl FaultProxy::base() const {
    return QUrl(u"http://127.0.0.1:%1/fiscarel/api/v1/"_s.arg(server_.serverPort()));
}

FaultProxy::Fault FaultProxy::draw(const QByteArray& request) {
    if (chooses) {
        return chooses(request);
    }
    const bool hits = static_cast<int>(random_() % 100) < faultsPerHundred;
    if (!hits) {
        return Fault::none;
    }
    // What keeps everybody waiting comes less often, or a test would last for ever.
    const auto fault = static_cast<Fault>(1 + random_() % (faults - 1));
    const bool waits = fault == Fault::late || fault == Fault::answerLate || fault == Fault::lost;
    return waits && random_() % 4 != 0 ? Fault::answerLost : fault;
}

void FaultProxy::serve(QTcpSocket* client) {
    connect(client, &QTcpSocket::disconnected, client, &QObject::deleteLater);
    if (isOffline) {
        client->abort();
        return;
    }
    auto exchange = std::make_shared<Exchange>();
    exchange->client = client;
    connect(client, &QTcpSocket::readyRead, this, [this, exchange] {
        exchange->unread += exchange->client->readAll();
        readRequest(exchange);
    });
}

void FaultProxy::readRequest(const std::shared_ptr<Exchange>& exchange) {
    if (!exchange->isBusy && messageLength(exchange->unread) > 0) {
        exchange->isBusy = true;
        handle(exchange);
    }
}

void FaultProxy::handle(const std::shared_ptr<Exchange>& exchange) {
    const qsizetype length = messageLength(exchange->unread);
    const QByteArray request = exchange->unread.left(length);
    exchange->unread.remove(0, length);
    if (isOffline) {
        exchange->close();
        return;
    }
    const Fault fault = draw(request);
    ++fired.at(static_cast<std::size_t>(fault));
    const auto deliver = [this, exchange](const QByteArray& answer) {
        if (answer.isEmpty()) {
            exchange->close(); // there is no server
        } else if (exchange->client) {
            exchange->client->write(answer);
            exchange->isBusy = false;
            readRequest(exchange);
        }
    };
    switch (fault) {
    case Fault::none:
        forward(request, deliver);
        break;
    case Fault::refused:
        exchange->close();
        break;
    case Fault::lost: // the client waits in vain
        break;
    case Fault::answerLost:
        forward(request, [exchange](const QByteArray&) { exchange->close(); });
        break;
    case Fault::late:
        QTimer::singleShot(late, this, [this, request] { forward(request, [](const auto&) {}); });
        break;
    case Fault::answerLate:
        forward(request, [this, deliver](const QByteArray& answer) {
            QTimer::singleShot(late, this, [deliver, answer] { deliver(answer); });
        });
        break;
    case Fault::twice:
        forward(request,
                [this, request, deliver](const QByteArray&) { forward(request, deliver); });
        break;
    case Fault::truncated:
        forward(request, [this, exchange](const QByteArray& answer) {
            if (exchange->client) {
                const auto kept = static_cast<qsizetype>(
                    random_() % static_cast<std::uint64_t>(std::max<qsizetype>(answer.size(), 1)));
                exchange->client->write(answer.left(kept));
                exchange->client->disconnectFromHost();
            }
        });
        break;
    }
}

/// On a connection of its own.
void FaultProxy::forward(const QByteArray& request, std::function<void(QByteArray)> answered) {
    auto* const server = new QTcpSocket(this);
    auto answer = std::make_shared<QByteArray>();
    if (records) {
        seen += request;
    }
    connect(server, &QTcpSocket::connected, server, [server, request] { server->write(request); });
    connect(server, &QTcpSocket::readyRead, this, [this, server, answer, answered] {
        *answer += server->readAll();
        if (messageLength(*answer) > 0) {
            if (records) {
                seen += *answer;
            }
            server->disconnect(this);
            server->abort();
            server->deleteLater();
            answered(*answer);
        }
    });
    connect(server, &QTcpSocket::errorOccurred, this, [this, server, answered] {
        server->disconnect(this);
        server->deleteLater();
        answered({});
    });
    server->connectToHost(QHostAddress::LocalHost, static_cast<quint16>(serverPort_));
}

} // namespace fiscarel::testing
