// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include "app/instance-block.h"
#include "app/instance-handshake.h"
#include "app/single-application.h"

#include <QHash>
#include <QObject>
#include <QRandomGenerator>

class QLocalServer;
class QLocalSocket;
class QSharedMemory;

class SingleApplicationPrivate : public QObject
{
    Q_OBJECT
    Q_DECLARE_PUBLIC(SingleApplication)

public:
    enum ConnectionStage : quint8
    {
        StageHeader,
        StageBody,
        StageConnected,
        StageRejected,
    };

    struct ConnectionInfo
    {
        quint64 msgLen = 0;
        quint32 instanceId = 0;
        ConnectionStage stage = StageHeader;
    };

    explicit SingleApplicationPrivate(SingleApplication* q);
    ~SingleApplicationPrivate() override;

    InstanceBlock* block() const;
    void genBlockServerName();
    void initializeMemoryBlock();
    void startPrimary();
    void startSecondary();
    bool connectToPrimary(int msecs, ConnectionType connectionType);
    // A primary recorded in the block that died without cleaning up.
    bool primaryIsGone(int msecs) const;
    void randomSleep();

    SingleApplication* q_ptr;
    QString blockServerName;
    QSharedMemory* memory = nullptr;
    QLocalSocket* socket = nullptr;
    QLocalServer* server = nullptr;
    quint32 instanceNumber = 0;
    SingleApplication::Options options;
    QHash<QLocalSocket*, ConnectionInfo> connectionMap;

public slots:
    void slotConnectionEstablished();
    void slotDataAvailable(QLocalSocket* dataSocket);
    void slotClientConnectionClosed(QLocalSocket* closedSocket);

private:
    void readFromConnection(QLocalSocket* connection);
    void readInitMessageBody(QLocalSocket* connection);

    QRandomGenerator random;
};
