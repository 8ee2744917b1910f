// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

// How a connecting instance introduces itself to the primary.
enum class ConnectionType : quint8
{
    InvalidConnection = 0,
    NewInstance = 1,
    SecondaryInstance = 2,
    Reconnect = 3,
};

// Size of the header that announces the length of the introduction.
constexpr int instanceHandshakeHeaderSize = 8;

struct InstanceHandshake
{
    ConnectionType type = ConnectionType::InvalidConnection;
    quint32 instanceNumber = 0;
};

// The introduction: the block name (Latin-1), the connection type, the instance
// number and a qChecksum of those bytes, in QDataStream 5.6 format.
QByteArray encodeInstanceHandshakeMessage(const QString& blockName, ConnectionType type,
                                          quint32 instanceNumber);

// The 64-bit length header followed by the introduction.
QByteArray encodeInstanceHandshake(const QString& blockName, ConnectionType type,
                                   quint32 instanceNumber);

// Reads the length from the first eight bytes of header.
quint64 decodeInstanceHandshakeLength(const QByteArray& header);

// False when message is truncated, names another block or fails its checksum.
bool decodeInstanceHandshake(const QByteArray& message, const QString& blockName,
                             InstanceHandshake* handshake);
