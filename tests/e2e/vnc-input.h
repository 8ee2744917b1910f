// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QLocalSocket>
#include <QPoint>
#include <QString>

// Real pointer and key input for a Wayland compositor, sent as a VNC viewer does: the RFB
// handshake without authentication, then PointerEvent and KeyEvent messages, which the VNC
// server (wayvnc) hands to the compositor as a virtual pointer and keyboard. XTEST input
// never reaches programs through XWayland; this does, like a user's mouse and keyboard.
class VncInput
{
public:
    // Connects to the server's Unix socket and completes the handshake.
    bool connectTo(const QString& socketPath);
    QString error() const { return m_error; }

    bool moveTo(const QPoint& point);
    bool click(const QPoint& point);
    // Presses at the first point, moves through the others and releases at the last.
    bool drag(const QList<QPoint>& points);
    // Presses and releases the key of an X keysym on the session's keyboard.
    bool typeKey(quint32 keysym);

private:
    bool pointer(const QPoint& point, bool leftDown);
    bool key(quint32 keysym, bool down);
    bool readExactly(char* data, qint64 size);
    bool fail(const QString& why);

    QLocalSocket m_socket;
    QString m_error;
};
