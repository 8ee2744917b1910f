// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <memory>

// The memory block every instance of one application shares, with a lock across
// processes. On Unix it is a file in the user's private runtime folder mapped into
// memory, so no other user can make, hold or read it; elsewhere it is a
// QSharedMemory named after the block.
class InstanceMemory
{
public:
    enum Error
    {
        NoError,
        AlreadyExists,
        NotPrivate,
        OtherError,
    };

    InstanceMemory(const QString& folder, const QString& blockName);
    ~InstanceMemory();
    InstanceMemory(const InstanceMemory&) = delete;
    InstanceMemory& operator=(const InstanceMemory&) = delete;

    // Makes a zero-filled block; fails with AlreadyExists when there is one.
    bool create(int size);
    // Maps the block that is there; refuses one that is not the user's own.
    bool attach(int size);
    bool lock();
    bool unlock();
    void* data() const;
    // Whether no other process has this block mapped: the last one out clears it,
    // so the next start finds it as new.
    bool isLastUser();
    Error error() const;
    QString errorString() const;

private:
    struct Private;
    std::unique_ptr<Private> d;
};
