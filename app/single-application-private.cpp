// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "app/single-application-private.h"

#include "app/instance-block-name.h"
#include "app/process-identity.h"

#include <QDateTime>
#include <QElapsedTimer>
#include <QLocalServer>
#include <QLocalSocket>
#include <QSharedMemory>
#include <QThread>

namespace {

// A real introduction is about sixty bytes; anything far larger is not one.
constexpr quint64 maxHandshakeLength = 4096;

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
    memory->unlock();
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
}

void SingleApplicationPrivate::initializeMemoryBlock()
{
    resetInstanceBlock(*block());
}

void SingleApplicationPrivate::startPrimary()
{
    claimInstanceBlock(*block(), QCoreApplication::applicationPid(), currentUserName().toUtf8());
    instanceNumber = 0;

    // A server file left by a primary that did not shut down would block listen().
    QLocalServer::removeServer(blockServerName);
    server = new QLocalServer(this);
    server->setSocketOptions(options & SingleApplication::User ? QLocalServer::UserAccessOption
                                                               : QLocalServer::WorldAccessOption);
    if (!server->listen(blockServerName)) {
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
            socket->connectToServer(blockServerName, QIODevice::ReadWrite);
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

    socket->write(encodeInstanceHandshake(blockServerName, connectionType, instanceNumber));
    const bool result = socket->waitForBytesWritten(remainingTime(msecs, time));
    socket->flush();
    return result;
}

bool SingleApplicationPrivate::primaryIsGone(int msecs) const
{
    if (!processExists(block()->primaryPid)) {
        return true;
    }
    // The id may have been handed to another process since; a primary that
    // still lives answers on its server.
    QLocalSocket probe;
    probe.connectToServer(blockServerName, QIODevice::ReadWrite);
    if (probe.waitForConnected(msecs)) {
        probe.abort();
        return false;
    }
    return probe.error() == QLocalSocket::ServerNotFoundError ||
           probe.error() == QLocalSocket::ConnectionRefusedError;
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
    connectionMap.insert(nextConnSocket, ConnectionInfo());

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
