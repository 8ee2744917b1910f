// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QtGlobal>

// The CRC-16 that guards the instance block and the handshake messages: qChecksum, whose
// Qt 6 form takes the bytes as a view.
inline quint16 instanceChecksum(const char* data, qsizetype size)
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    return qChecksum(QByteArrayView(data, size));
#else
    return qChecksum(data, static_cast<uint>(size));
#endif
}
