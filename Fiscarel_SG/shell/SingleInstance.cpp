#include "Fiscarel_SG/shell/SingleInstance.h"

#include "Fiscarel_SG/look/QtText.h"

#include <QCryptographicHash>
#include <QLocalSocket>

namespace fiscarel::shell {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int patience = 1'000; ///< milliseconds

QString nameFor(const std::filesystem::path& folder) {
    const QByteArray path = QByteArray::fromStdString(folder.string());
    return u"fiscarel-sg-"_s
           + QString::fromLatin1(
               QCryptographicHash::hash(path, QCryptographicHash::Sha256).toHex().left(16));
}

} // namespace

SingleInstance::SingleInstance(const std::filesystem::path& folder) : name_(nameFor(folder)) {
    server_.setSocketOptions(QLocalServer::UserAccessOption);
    connect(&server_, &QLocalServer::newConnection, this, [this] {
        while (QLocalSocket* const caller = server_.nextPendingConnection()) {
            connect(caller, &QLocalSocket::disconnected, caller, &QObject::deleteLater);
            caller->disconnectFromServer();
            Q_EMIT asked();
        }
    });
}

void SingleInstance::listen() {
    QLocalServer::removeServer(name_); // of one that crashed; the lock says that nobody has it
    server_.listen(name_);
}

bool SingleInstance::askFirst() const {
    QLocalSocket socket;
    socket.connectToServer(name_);
    return socket.waitForConnected(patience);
}

} // namespace fiscarel::shell
