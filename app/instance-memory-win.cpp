// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "app/instance-memory.h"

#include <QSharedMemory>

// Windows keeps named shared memory in the user's own session namespace.
struct InstanceMemory::Private
{
    explicit Private(const QString& key) : memory(key) {}

    QSharedMemory memory;
};

InstanceMemory::InstanceMemory(const QString&, const QString& blockName)
    : d(std::make_unique<Private>(blockName))
{
}

InstanceMemory::~InstanceMemory() = default;

bool InstanceMemory::create(int size)
{
    return d->memory.create(size);
}

bool InstanceMemory::attach(int)
{
    return d->memory.attach();
}

bool InstanceMemory::lock()
{
    return d->memory.lock();
}

bool InstanceMemory::unlock()
{
    return d->memory.unlock();
}

void* InstanceMemory::data() const
{
    return d->memory.data();
}

// Windows frees the memory with its last handle.
bool InstanceMemory::isLastUser()
{
    return false;
}

InstanceMemory::Error InstanceMemory::error() const
{
    switch (d->memory.error()) {
    case QSharedMemory::NoError:
        return NoError;
    case QSharedMemory::AlreadyExists:
        return AlreadyExists;
    case QSharedMemory::PermissionDenied:
        return NotPrivate;
    default:
        return OtherError;
    }
}

QString InstanceMemory::errorString() const
{
    return d->memory.errorString();
}
