#pragma once

#include <QByteArray>
#include <QLocalServer>
#include <QLockFile>
#include <QObject>
#include <QString>
#include <filesystem>
#include <vector>

namespace ornivo::app {

/// One program for each user: a later start hands what it was given over to the first and ends.
class SingleInstance : public QObject {
    Q_OBJECT

public:
    /// What a start of the program has to say.
    struct Request {
        /// Absolute paths.
        std::vector<std::filesystem::path> folders;
        /// What entitles a window to come to the front, where the desktop asks for it.
        QByteArray activationToken;

        bool operator==(const Request&) const = default;
    };

    /// The user's own folder that all starts of the program see. Each sandbox has a
    /// $XDG_RUNTIME_DIR of its own, but for one folder in it.
    static QString usualFolder();

    /// `folder` must be there already, and nobody else's.
    explicit SingleInstance(const QString& folder, QObject* parent = nullptr);

    /// Whether this start is the first. It is then the one that gets the requests of later ones.
    bool claim();
    /// Hands a request to the first start; answers whether that took it.
    bool handOver(const Request& request) const;
    /// Later starts are on their own from now on.
    void release();

Q_SIGNALS:
    void requested(const ornivo::app::SingleInstance::Request& request);

private:
    void receive();

    QString socket_;
    QLockFile lock_;
    QLocalServer server_;
};

}  // namespace ornivo::app
