// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "app/instance-handshake.h"

#include "app/instance-checksum.h"

#include <QDataStream>
#include <QIODevice>

namespace {

constexpr QDataStream::Version streamVersion = QDataStream::Qt_5_6;

} // namespace

QByteArray encodeInstanceHandshakeMessage(const QString& blockName, ConnectionType type,
                                          quint32 instanceNumber)
{
    QByteArray message;
    QDataStream stream(&message, QIODevice::WriteOnly);
    stream.setVersion(streamVersion);
    stream << blockName.toLatin1();
    stream << static_cast<quint8>(type);
    stream << instanceNumber;
    const quint16 checksum = instanceChecksum(message.constData(), message.size());
    stream << checksum;
    return message;
}

QByteArray encodeInstanceHandshake(const QString& blockName, ConnectionType type,
                                   quint32 instanceNumber)
{
    const QByteArray message = encodeInstanceHandshakeMessage(blockName, type, instanceNumber);
    QByteArray header;
    QDataStream stream(&header, QIODevice::WriteOnly);
    stream.setVersion(streamVersion);
    stream << static_cast<quint64>(message.size());
    return header + message;
}

quint64 decodeInstanceHandshakeLength(const QByteArray& header)
{
    QDataStream stream(header);
    stream.setVersion(streamVersion);
    quint64 length = 0;
    stream >> length;
    return length;
}

bool decodeInstanceHandshake(const QByteArray& message, const QString& blockName,
                             InstanceHandshake* handshake)
{
    QDataStream stream(message);
    stream.setVersion(streamVersion);
    QByteArray name;
    quint8 type = 0;
    quint32 instanceNumber = 0;
    quint16 checksum = 0;
    stream >> name >> type >> instanceNumber >> checksum;
    if (stream.status() != QDataStream::Ok || message.size() < 2) {
        return false;
    }
    if (QString::fromLatin1(name.constData()) != blockName) {
        return false;
    }
    if (checksum != instanceChecksum(message.constData(), message.size() - 2)) {
        return false;
    }
    handshake->type = static_cast<ConnectionType>(type);
    handshake->instanceNumber = instanceNumber;
    return true;
}
