// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "app/single-application-private.h"

#include "app/instance-block-name.h"
#include "app/instance-memory.h"
#include "app/process-identity.h"
#include "app/runtime-folder.h"
#include "logging/log-categories.h"

#include <QDateTime>
#include <QElapsedTimer>
#include <QLocalServer>
#include <QLocalSocket>
#include <QLockFile>
#include <QThread>
#include <QTimer>

namespace {

// A real introduction is about sixty bytes; anything far larger is not one.
constexpr quint64 maxHandshakeLength = 4096;

// Connections that have not introduced themselves yet: a few are plenty for
// instances starting together, and each one holds a file descriptor, so more are
// turned away and the silent ones are dropped after a while.
constexpr int maxConnectionsNotIntroduced = 16;
constexpr int introductionTimeoutMs = 5000;

int remainingTime(int msecs, const QElapsedTimer& timer)
{
    return qMax(0, msecs - static_cast<int>(timer.elapsed()));
}

} // namespace

SingleApplicationPrivate::SingleApplicationPrivate(SingleApplication* q)
    : q_ptr(q), random(static_cast<quint32>(QDateTime::currentMSecsSinceEpoch()))
{
}

SingleApplicationPrivate::~SingleApplicationPrivate()
{
    if (socket) {
        socket->close();
        delete socket;
        socket = nullptr;
    }
    // Client sockets die with the server; their last signals must not reach a
    // half-destroyed application.
    for (QLocalSocket* connection : connectionMap.keys()) {
        QObject::disconnect(connection, nullptr, this, nullptr);
    }
    if (!memory) {
        return;
    }
    memory->lock();
    if (server) {
        server->close();
        delete server;
        server = nullptr;
        InstanceBlock* info = block();
        info->primary = false;
        info->primaryPid = -1;
        info->primaryUser[0] = '\0';
        sealInstanceBlock(*info);
    }
    if (memory->isLastUser()) {
        initializeMemoryBlock();
    }
    memory->unlock();
    primaryLock.reset();
    delete memory;
    memory = nullptr;
}

InstanceBlock* SingleApplicationPrivate::block() const
{
    return static_cast<InstanceBlock*>(memory->data());
}

void SingleApplicationPrivate::genBlockServerName()
{
    InstanceIdentity identity;
    identity.applicationName = QCoreApplication::applicationName();
    identity.organizationName = QCoreApplication::organizationName();
    identity.organizationDomain = QCoreApplication::organizationDomain();
    identity.applicationVersion = QCoreApplication::applicationVersion();
    identity.applicationFilePath = QCoreApplication::applicationFilePath();
    if (options & SingleApplication::User) {
        identity.userName = currentUserName();
    }
    blockServerName = instanceBlockName(identity, static_cast<int>(options));
    runtimeFolder = privateRuntimeFolder();
    serverName = instanceServerName(runtimeFolder, blockServerName);
}

void SingleApplicationPrivate::initializeMemoryBlock()
{
    resetInstanceBlock(*block());
}

void SingleApplicationPrivate::startPrimary()
{
    claimInstanceBlock(*block(), QCoreApplication::applicationPid(), currentUserName().toUtf8());
    instanceNumber = 0;
    if (!takePrimaryLock()) {
        qCDebug(lcApp) << "SingleApplication: An earlier primary instance still holds the lock.";
    }

    // A server file left by a primary that did not shut down would block listen().
    QLocalServer::removeServer(serverName);
    server = new QLocalServer(this);
    server->setSocketOptions(options & SingleApplication::User ? QLocalServer::UserAccessOption
                                                               : QLocalServer::WorldAccessOption);
    if (!server->listen(serverName)) {
        qWarning().noquote() << "SingleApplication: Unable to listen for later instances:"
                             << server->errorString();
    }
    connect(server, &QLocalServer::newConnection, this,
            &SingleApplicationPrivate::slotConnectionEstablished);
}

void SingleApplicationPrivate::startSecondary()
{
    InstanceBlock* info = block();
    info->secondary += 1;
    sealInstanceBlock(*info);
    instanceNumber = info->secondary;
}

bool SingleApplicationPrivate::connectToPrimary(int msecs, ConnectionType connectionType)
{
    QElapsedTimer time;
    time.start();

    if (!socket) {
        socket = new QLocalSocket(this);
    }
    if (socket->state() == QLocalSocket::ConnectedState) {
        return true;
    }

    for (;;) {
        randomSleep();
        if (socket->state() != QLocalSocket::ConnectingState) {
            socket->connectToServer(serverName, QIODevice::ReadWrite);
        }
        if (socket->state() == QLocalSocket::ConnectingState) {
            socket->waitForConnected(remainingTime(msecs, time));
        }
        if (socket->state() == QLocalSocket::ConnectedState) {
            break;
        }
        if (time.elapsed() >= msecs) {
            return false;
        }
    }

    // Whatever listens there, nothing goes to a process of another user.
    if (!peerIsCurrentUser(socket->socketDescriptor())) {
        qWarning("SingleApplication: The server of the primary instance belongs to another user. "
                 "Nothing was sent to it.");
        socket->abort();
        return false;
    }

    socket->write(encodeInstanceHandshake(blockServerName, connectionType, instanceNumber));
    const bool result = socket->waitForBytesWritten(remainingTime(msecs, time));
    socket->flush();
    return result;
}

bool SingleApplicationPrivate::primaryIsGone()
{
    if (!processExists(block()->primaryPid)) {
        return true;
    }
    // The id may have been handed to another process since. A primary that still
    // runs holds its lock; a missing or silent server proves nothing, since a busy
    // primary may have lost it.
    return takePrimaryLock();
}

bool SingleApplicationPrivate::takePrimaryLock()
{
    if (primaryLock && primaryLock->isLocked()) {
        return true;
    }
    primaryLock = std::make_unique<QLockFile>(serverName + QStringLiteral(".lock"));
    // Only a dead holder makes the lock stale, however long the primary has run.
    primaryLock->setStaleLockTime(0);
    return primaryLock->tryLock(0);
}

void SingleApplicationPrivate::randomSleep()
{
    const double fraction = random.bounded(32768) / 32767.0;
    QThread::msleep(8 + static_cast<unsigned long>(fraction * 10));
}

void SingleApplicationPrivate::slotConnectionEstablished()
{
    QLocalSocket* nextConnSocket = server->nextPendingConnection();
    if (!nextConnSocket) {
        return;
    }
    if (!peerIsCurrentUser(nextConnSocket->socketDescriptor()) ||
        connectionsNotIntroduced() >= maxConnectionsNotIntroduced) {
        qCDebug(lcApp) << "SingleApplication: Turned away a connection.";
        nextConnSocket->abort();
        nextConnSocket->deleteLater();
        return;
    }
    connectionMap.insert(nextConnSocket, ConnectionInfo());
    QTimer::singleShot(introductionTimeoutMs, nextConnSocket,
                       [this, nextConnSocket]() { dropIfNotIntroduced(nextConnSocket); });

    connect(
        nextConnSocket, &QLocalSocket::aboutToClose, this,
        [this, nextConnSocket]() { slotClientConnectionClosed(nextConnSocket); },
        Qt::DirectConnection);
    connect(
        nextConnSocket, &QLocalSocket::disconnected, this,
        [this, nextConnSocket]() {
            connectionMap.remove(nextConnSocket);
            nextConnSocket->deleteLater();
        },
        Qt::DirectConnection);
    connect(
        nextConnSocket, &QLocalSocket::readyRead, this,
        [this, nextConnSocket]() { slotDataAvailable(nextConnSocket); }, Qt::DirectConnection);
}

int SingleApplicationPrivate::connectionsNotIntroduced() const
{
    int count = 0;
    for (const ConnectionInfo& info : connectionMap) {
        if (info.stage == StageHeader || info.stage == StageBody) {
            ++count;
        }
    }
    return count;
}

void SingleApplicationPrivate::dropIfNotIntroduced(QLocalSocket* connection)
{
    const auto it = connectionMap.constFind(connection);
    if (it == connectionMap.constEnd() || (it->stage != StageHeader && it->stage != StageBody)) {
        return;
    }
    qCDebug(lcApp) << "SingleApplication: Dropped a connection that stayed silent.";
    connectionMap.remove(connection);
    connection->abort();
    connection->deleteLater();
}

void SingleApplicationPrivate::slotDataAvailable(QLocalSocket* dataSocket)
{
    readFromConnection(dataSocket);
}

void SingleApplicationPrivate::slotClientConnectionClosed(QLocalSocket* closedSocket)
{
    if (closedSocket->bytesAvailable() > 0) {
        readFromConnection(closedSocket);
    }
}

void SingleApplicationPrivate::readFromConnection(QLocalSocket* connection)
{
    auto it = connectionMap.find(connection);
    if (it == connectionMap.end()) {
        return;
    }

    switch (it->stage) {
    case StageHeader:
        if (connection->bytesAvailable() < instanceHandshakeHeaderSize) {
            return;
        }
        it->msgLen = decodeInstanceHandshakeLength(connection->read(instanceHandshakeHeaderSize));
        it->stage = StageBody;
        if (it->msgLen > maxHandshakeLength) {
            readInitMessageBody(connection);
            return;
        }
        if (static_cast<quint64>(connection->bytesAvailable()) < it->msgLen) {
            return;
        }
        readInitMessageBody(connection);
        return;
    case StageBody:
        if (static_cast<quint64>(connection->bytesAvailable()) < it->msgLen) {
            return;
        }
        readInitMessageBody(connection);
        return;
    case StageConnected:
        if (connection->bytesAvailable() > 0) {
            const quint32 instanceId = it->instanceId;
            emit q_ptr->receivedMessage(instanceId, connection->readAll());
        }
        return;
    case StageRejected:
        return;
    }
}

void SingleApplicationPrivate::readInitMessageBody(QLocalSocket* connection)
{
    ConnectionInfo& info = connectionMap[connection];
    InstanceHandshake handshake;
    const bool valid = info.msgLen <= maxHandshakeLength &&
                       decodeInstanceHandshake(connection->read(static_cast<qint64>(info.msgLen)),
                                               blockServerName, &handshake);
    if (!valid) {
        qWarning("SingleApplication: Closed a connection that did not introduce itself "
                 "correctly.");
        info.stage = StageRejected;
        connection->close();
        return;
    }

    info.instanceId = handshake.instanceNumber;
    info.stage = StageConnected;
    const quint32 instanceId = info.instanceId;

    if (handshake.type == ConnectionType::NewInstance ||
        (handshake.type == ConnectionType::SecondaryInstance &&
         options & SingleApplication::SecondaryNotification)) {
        emit q_ptr->instanceStarted();
    }
    if (connection->bytesAvailable() > 0) {
        emit q_ptr->receivedMessage(instanceId, connection->readAll());
    }
}
