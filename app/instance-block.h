// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <cstddef>

// The record every instance of one application shares through shared memory. Its
// layout is fixed (152 bytes) because processes of different builds read it.
struct InstanceBlock
{
    bool primary;
    quint32 secondary;
    qint64 primaryPid;
    char primaryUser[128];
    quint16 checksum;
};

static_assert(sizeof(InstanceBlock) == 152, "the shared block is 152 bytes");
static_assert(offsetof(InstanceBlock, secondary) == 4, "secondary count at offset 4");
static_assert(offsetof(InstanceBlock, primaryPid) == 8, "primary pid at offset 8");
static_assert(offsetof(InstanceBlock, primaryUser) == 16, "user name at offset 16");
static_assert(offsetof(InstanceBlock, checksum) == 144, "checksum at offset 144");

// qChecksum of every byte in front of the checksum field.
quint16 instanceBlockChecksum(const InstanceBlock& block);

bool instanceBlockIsConsistent(const InstanceBlock& block);

void sealInstanceBlock(InstanceBlock& block);

// No primary, no secondaries, pid -1, empty user name, valid checksum.
void resetInstanceBlock(InstanceBlock& block);

// Records the calling process as the primary and seals the block.
void claimInstanceBlock(InstanceBlock& block, qint64 pid, const QByteArray& userName);
