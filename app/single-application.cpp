// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "app/single-application.h"

#include "app/instance-memory.h"
#include "app/single-application-private.h"
#include "logging/log-categories.h"

#include <QElapsedTimer>
#include <QLocalSocket>
#include <QtDebug>

#include <cstdlib>

namespace {

constexpr qint64 inconsistentBlockTimeout = 5000;

[[noreturn]] void failStart(SingleApplicationPrivate* d, const char* message)
{
    qCritical("%s", message);
    delete d;
    std::exit(EXIT_FAILURE);
}

} // namespace

SingleApplication::SingleApplication(int& argc, char* argv[], bool allowSecondary, Options options,
                                     int timeout)
    : QApplication(argc, argv), d_ptr(new SingleApplicationPrivate(this))
{
    Q_D(SingleApplication);
    d->options = options;
    d->genBlockServerName();

    d->randomSleep();

    d->memory = new InstanceMemory(d->runtimeFolder, d->blockServerName);
    if (d->memory->create(sizeof(InstanceBlock))) {
        if (!d->memory->lock()) {
            failStart(d, "SingleApplication: Unable to lock memory block after create.");
        }
        d->initializeMemoryBlock();
    } else if (d->memory->error() == InstanceMemory::AlreadyExists) {
        if (!d->memory->attach(sizeof(InstanceBlock))) {
            failStart(d, "SingleApplication: Unable to attach to shared memory block.");
        }
        if (!d->memory->lock()) {
            failStart(d, "SingleApplication: Unable to lock memory block after attach.");
        }
    } else {
        failStart(d, "SingleApplication: Unable to create block.");
    }

    QElapsedTimer time;
    time.start();

    // Another instance may be half way through updating the block; a block that
    // stays inconsistent belongs to an instance that died while writing it.
    while (!instanceBlockIsConsistent(*d->block())) {
        if (time.elapsed() > inconsistentBlockTimeout) {
            qWarning("SingleApplication: Shared memory block has been in an inconsistent state "
                     "from more than 5s. Assuming primary instance failure.");
            d->initializeMemoryBlock();
        }
        if (!d->memory->unlock()) {
            qCDebug(lcApp).noquote()
                << "SingleApplication: Unable to unlock memory for random wait."
                << d->memory->errorString();
        }
        d->randomSleep();
        if (!d->memory->lock()) {
            failStart(d, "SingleApplication: Unable to lock memory after random wait.");
        }
    }

    if (d->block()->primary && d->primaryIsGone()) {
        qWarning("SingleApplication: The primary instance (pid %lld) ended without cleaning up. "
                 "Taking over as primary instance.",
                 static_cast<long long>(d->block()->primaryPid));
        d->initializeMemoryBlock();
    }

    if (!d->block()->primary) {
        d->startPrimary();
        if (!d->memory->unlock()) {
            qCDebug(lcApp).noquote()
                << "SingleApplication: Unable to unlock memory after primary start."
                << d->memory->errorString();
        }
        return;
    }

    if (!allowSecondary) {
        if (!d->memory->unlock()) {
            qCDebug(lcApp).noquote()
                << "SingleApplication: Unable to unlock memory at end of execution."
                << d->memory->errorString();
        }
        d->connectToPrimary(timeout, ConnectionType::NewInstance);
        delete d;
        std::exit(EXIT_SUCCESS);
    }

    d->startSecondary();
    if (d->options & Mode::SecondaryNotification) {
        d->connectToPrimary(timeout, ConnectionType::SecondaryInstance);
    }
    if (!d->memory->unlock()) {
        qCDebug(lcApp).noquote()
            << "SingleApplication: Unable to unlock memory after secondary start."
            << d->memory->errorString();
    }
}

SingleApplication::~SingleApplication()
{
    delete d_ptr;
    d_ptr = nullptr;
}

bool SingleApplication::isPrimary() const
{
    Q_D(const SingleApplication);
    return d->server != nullptr;
}

bool SingleApplication::isSecondary() const
{
    Q_D(const SingleApplication);
    return d->server == nullptr;
}

quint32 SingleApplication::instanceId() const
{
    Q_D(const SingleApplication);
    return d->instanceNumber;
}

bool SingleApplication::sendMessage(const QByteArray& message, int timeout)
{
    Q_D(SingleApplication);
    if (isPrimary()) {
        return false;
    }
    if (!d->connectToPrimary(timeout, ConnectionType::Reconnect)) {
        return false;
    }
    d->socket->write(message);
    const bool dataWritten = d->socket->waitForBytesWritten(timeout);
    d->socket->flush();
    return dataWritten;
}
