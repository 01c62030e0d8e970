#include "app/SingleInstance.h"

#include <QDir>
#include <QList>
#include <QLocalSocket>
#include <QStandardPaths>

namespace ornivo::app {
namespace {

/// No path and no token holds this.
constexpr char separator = '\0';
constexpr qint64 longestRequest = 1 << 20;
constexpr int patienceMilliseconds = 2000;

QByteArray encoded(const SingleInstance::Request& request) {
    QByteArray bytes = request.activationToken;
    for (const auto& folder : request.folders) {
        bytes += separator + QByteArray::fromStdString(folder.native());
    }
    return bytes;
}

SingleInstance::Request decoded(const QByteArray& bytes) {
    QList<QByteArray> parts = bytes.split(separator);
    SingleInstance::Request request;
    request.activationToken = parts.takeFirst();
    for (const QByteArray& part : parts) {
        if (part.startsWith('/')) request.folders.emplace_back(part.toStdString());
    }
    return request;
}

}  // namespace

QString SingleInstance::usualFolder() {
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
    const QString sandboxed = qEnvironmentVariable("FLATPAK_ID");
    return sandboxed.isEmpty() ? folder : folder + QStringLiteral("/app/") + sandboxed;
}

SingleInstance::SingleInstance(const QString& folder, QObject* parent)
    : QObject(parent),
      socket_(QDir(folder).filePath(QStringLiteral("ornivo.socket"))),
      lock_(QDir(folder).filePath(QStringLiteral("ornivo.lock"))) {
    // The lock is let go of when its process ends, and never by age.
    lock_.setStaleLockTime(0);
    server_.setSocketOptions(QLocalServer::UserAccessOption);
    connect(&server_, &QLocalServer::newConnection, this, &SingleInstance::receive);
}

bool SingleInstance::claim() {
    if (!lock_.tryLock(0) && lock_.error() == QLockFile::LockFailedError) return false;
    // What is left of a start that came to a bad end.
    QLocalServer::removeServer(socket_);
    server_.listen(socket_);
    return true;
}

bool SingleInstance::handOver(const Request& request) const {
    QLocalSocket socket;
    socket.connectToServer(socket_, QIODevice::WriteOnly);
    if (!socket.waitForConnected(patienceMilliseconds)) return false;
    socket.write(encoded(request));
    socket.disconnectFromServer();
    return socket.state() == QLocalSocket::UnconnectedState ||
           socket.waitForDisconnected(patienceMilliseconds);
}

void SingleInstance::release() {
    server_.close();
    lock_.unlock();
}

void SingleInstance::receive() {
    while (QLocalSocket* const socket = server_.nextPendingConnection()) {
        socket->setReadBufferSize(longestRequest);
        const auto take = [this, socket] {
            // One that has gone without a word can't be read any more.
            const bool hasSpoken = socket->bytesAvailable() > 0;
            Q_EMIT requested(decoded(hasSpoken ? socket->readAll() : QByteArray()));
            socket->deleteLater();
        };
        // It may be all over before it could be watched.
        if (socket->state() == QLocalSocket::UnconnectedState) {
            take();
        } else {
            connect(socket, &QLocalSocket::disconnected, this, take);
        }
    }
}

}  // namespace ornivo::app
