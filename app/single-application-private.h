// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include "app/instance-block.h"
#include "app/instance-handshake.h"
#include "app/single-application.h"

#include <QHash>
#include <QObject>
#include <QRandomGenerator>

#include <memory>

class InstanceMemory;
class QLocalServer;
class QLocalSocket;
class QLockFile;

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
    bool primaryIsGone();
    // The lock a primary holds for as long as it runs.
    bool takePrimaryLock();
    void randomSleep();

    SingleApplication* q_ptr;
    QString blockServerName;
    QString runtimeFolder;
    QString serverName;
    InstanceMemory* memory = nullptr;
    std::unique_ptr<QLockFile> primaryLock;
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
    int connectionsNotIntroduced() const;
    void dropIfNotIntroduced(QLocalSocket* connection);

    QRandomGenerator random;
};
