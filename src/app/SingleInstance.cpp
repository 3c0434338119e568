// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#include "app/SingleInstance.h"

#include "base/Log.h"

#include <QCryptographicHash>
#include <QDeadlineTimer>
#include <QDir>
#include <QFileInfo>
#include <QLocalServer>
#include <QLocalSocket>
#include <QLockFile>
#include <QStandardPaths>
#include <QTimer>
#include <QtEndian>

#include <optional>

// The running program greets whoever connects, the second start then sends its paths (a length and
// NUL-separated UTF-8), and the running program answers that it has them. The greeting comes first so that a
// program that hangs is never given paths that it would open much later, beside the one that replaced it.

namespace tavrin {

using namespace Qt::StringLiterals;

namespace {

constexpr std::chrono::milliseconds patience{2000};
/// More than a command line can hold.
constexpr quint32 longestMessage = 4 * 1024 * 1024;
constexpr char greeting = 'T';
constexpr char received = 'R';

QByteArray encode(const QStringList &paths)
{
    QByteArray message(sizeof(quint32), Qt::Uninitialized);
    for (const QString &path : paths) {
        message += QFileInfo(path).absoluteFilePath().toUtf8();
        message += '\0';
    }
    qToBigEndian(static_cast<quint32>(message.size()) - quint32{sizeof(quint32)}, message.data());
    return message;
}

QStringList decode(const QByteArray &message)
{
    QStringList paths;
    const QList<QByteArray> parts = message.split('\0');
    for (const QByteArray &part : parts) {
        if (!part.isEmpty())
            paths.append(QString::fromUtf8(part));
    }
    return paths;
}

bool waitFor(QLocalSocket &socket, char answer, const QDeadlineTimer &deadline)
{
    while (socket.bytesAvailable() == 0) {
        if (!socket.waitForReadyRead(static_cast<int>(deadline.remainingTime())))
            return false;
    }
    char got = 0;
    return socket.getChar(&got) && got == answer;
}

bool sendTo(const QString &name, const QStringList &paths)
{
    const QDeadlineTimer deadline(patience);
    QLocalSocket socket;
    socket.connectToServer(name);
    if (!socket.waitForConnected(static_cast<int>(deadline.remainingTime())))
        return false;
    if (!waitFor(socket, greeting, deadline)) {
        qCWarning(log) << "the running program does not answer; starting another";
        return false;
    }
    socket.write(encode(paths));
    while (socket.bytesToWrite() > 0) {
        if (!socket.waitForBytesWritten(static_cast<int>(deadline.remainingTime())))
            return false;
    }
    return waitFor(socket, received, deadline);
}

/// The paths, once all of them came; nothing while some are missing.
std::optional<QStringList> readMessage(QLocalSocket &socket)
{
    QByteArray head = socket.peek(sizeof(quint32));
    if (head.size() < qsizetype{sizeof(quint32)})
        return std::nullopt;
    const auto length = qFromBigEndian<quint32>(head.constData());
    if (length > longestMessage) {
        socket.abort();
        return std::nullopt;
    }
    if (socket.bytesAvailable() < qint64{length} + qint64{sizeof(quint32)})
        return std::nullopt;
    socket.skip(sizeof(quint32));
    return decode(socket.read(length));
}

} // namespace

SingleInstance::SingleInstance(const QString &name) : g_name(name) {}

SingleInstance::~SingleInstance() = default;

QString SingleInstance::defaultName()
{
    QByteArray session = qgetenv("WAYLAND_DISPLAY");
    if (session.isEmpty())
        session = qgetenv("DISPLAY");
    const QByteArray person = QFileInfo(QStandardPaths::writableLocation(QStandardPaths::HomeLocation))
                                  .canonicalFilePath()
                                  .toUtf8();
    const QByteArray digest =
        QCryptographicHash::hash(person + '\0' + session, QCryptographicHash::Sha256).toHex().left(16);
    QString name = u"tavrin-"_s + QString::fromLatin1(digest);
#ifdef Q_OS_UNIX
    // A folder that only this person may enter, where there is one.
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
    if (!folder.isEmpty())
        return folder + u'/' + name;
#endif
    return name;
}

bool SingleInstance::handOver(const QStringList &paths)
{
    // Of two starts at the same moment, the second waits until the first listens.
    const bool isPath = QFileInfo(g_name).isAbsolute();
    QLockFile starting((isPath ? g_name : QDir::temp().filePath(g_name)) + u".starting"_s);
    if (!starting.tryLock(static_cast<int>(patience.count())))
        qCWarning(log) << "another start of the program takes long";

    if (sendTo(g_name, paths))
        return true;

    // What is there is left over from a program that crashed, or belongs to one that does not answer.
    QLocalServer::removeServer(g_name);
    g_server = std::make_unique<QLocalServer>();
    g_server->setSocketOptions(QLocalServer::UserAccessOption);
    connect(g_server.get(), &QLocalServer::newConnection, this, &SingleInstance::receive);
    if (!g_server->listen(g_name))
        qCWarning(log) << "other starts of the program will not find this one:" << g_server->errorString();
    return false;
}

void SingleInstance::receive()
{
    while (QLocalSocket *socket = g_server->nextPendingConnection()) {
        connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
        connect(socket, &QLocalSocket::readyRead, this, [this, socket] {
            const std::optional<QStringList> paths = readMessage(*socket);
            if (!paths)
                return;
            socket->putChar(received);
            socket->disconnectFromServer();
            Q_EMIT openRequested(*paths);
        });
        socket->setReadBufferSize(qint64{longestMessage} + qint64{sizeof(quint32)});
        QTimer::singleShot(patience, socket, [socket] { socket->abort(); });
        socket->putChar(greeting);
        socket->flush();
    }
}

} // namespace tavrin
