// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "app/instance-block.h"

#include "app/instance-checksum.h"

#include <QByteArray>

#include <cstring>

quint16 instanceBlockChecksum(const InstanceBlock& block)
{
    return instanceChecksum(reinterpret_cast<const char*>(&block),
                            offsetof(InstanceBlock, checksum));
}

bool instanceBlockIsConsistent(const InstanceBlock& block)
{
    return block.checksum == instanceBlockChecksum(block);
}

void sealInstanceBlock(InstanceBlock& block)
{
    block.checksum = instanceBlockChecksum(block);
}

void resetInstanceBlock(InstanceBlock& block)
{
    std::memset(static_cast<void*>(&block), 0, sizeof block);
    block.primary = false;
    block.secondary = 0;
    block.primaryPid = -1;
    block.primaryUser[0] = '\0';
    sealInstanceBlock(block);
}

void claimInstanceBlock(InstanceBlock& block, qint64 pid, const QByteArray& userName)
{
    block.primary = true;
    block.primaryPid = pid;
    qstrncpy(block.primaryUser, userName.constData(), sizeof block.primaryUser);
    sealInstanceBlock(block);
}
