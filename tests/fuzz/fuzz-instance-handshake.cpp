// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT

// Reads arbitrary bytes as the introduction a connecting instance sends, and checks that
// every introduction the board writes is read back.
#include "app/instance-handshake.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<int>(size));
    const QString blockName = QStringLiteral("pallo-board-fuzz");
    (void)decodeInstanceHandshakeLength(bytes.left(instanceHandshakeHeaderSize));
    InstanceHandshake handshake;
    (void)decodeInstanceHandshake(bytes, blockName, &handshake);
    (void)decodeInstanceHandshake(bytes.mid(instanceHandshakeHeaderSize), blockName, &handshake);

    if (size >= 5) {
        const auto type = static_cast<ConnectionType>(data[0] % 4);
        const quint32 number = data[1] | data[2] << 8 | data[3] << 16 | quint32(data[4]) << 24;
        const QString name = QString::fromLatin1(bytes.mid(5));
        const QByteArray message = encodeInstanceHandshakeMessage(name, type, number);
        InstanceHandshake back;
        if (!decodeInstanceHandshake(message, name, &back) || back.type != type ||
            back.instanceNumber != number)
            std::abort();
    }
    return 0;
}
