// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "tests/e2e/vnc-input.h"

#include <QLineF>
#include <QTest>
#include <QtEndian>
#include <QtMath>

namespace {
constexpr int kTimeoutMs = 5000;
// Between pointer events: the compositor and the X server deliver them in order, and a
// user's hand is not faster.
constexpr int kStepMs = 15;
constexpr qreal kDragStepPx = 10;
} // namespace

bool VncInput::fail(const QString& why)
{
    m_error = why;
    return false;
}

bool VncInput::readExactly(char* data, qint64 size)
{
    qint64 got = 0;
    while (got < size) {
        if (m_socket.bytesAvailable() == 0 && !m_socket.waitForReadyRead(kTimeoutMs))
            return false;
        const qint64 n = m_socket.read(data + got, size - got);
        if (n < 0)
            return false;
        got += n;
    }
    return true;
}

bool VncInput::connectTo(const QString& socketPath)
{
    m_socket.connectToServer(socketPath);
    if (!m_socket.waitForConnected(kTimeoutMs))
        return fail("cannot connect to " + socketPath + ": " + m_socket.errorString());
    char version[12];
    if (!readExactly(version, 12) || QByteArray(version, 3) != "RFB")
        return fail("no RFB greeting");
    m_socket.write("RFB 003.008\n");
    quint8 count = 0;
    if (!readExactly(reinterpret_cast<char*>(&count), 1) || count == 0)
        return fail("the server offers no security type");
    QByteArray types(count, '\0');
    if (!readExactly(types.data(), count) || !types.contains('\x01'))
        return fail("the server wants authentication");
    m_socket.write("\x01", 1);
    char result[4];
    if (!readExactly(result, 4) || qFromBigEndian<quint32>(result) != 0)
        return fail("the server refused the connection");
    // Shared: other viewers may stay.
    m_socket.write("\x01", 1);
    char init[24];
    if (!readExactly(init, 24))
        return fail("no server init");
    QByteArray name(int(qFromBigEndian<quint32>(init + 20)), '\0');
    if (!readExactly(name.data(), name.size()))
        return fail("no desktop name");
    return true;
}

bool VncInput::pointer(const QPoint& point, bool leftDown)
{
    char message[6];
    message[0] = 5;
    message[1] = leftDown ? 1 : 0;
    qToBigEndian<quint16>(quint16(point.x()), message + 2);
    qToBigEndian<quint16>(quint16(point.y()), message + 4);
    if (m_socket.write(message, 6) != 6 || m_socket.state() != QLocalSocket::ConnectedState)
        return fail("cannot send a pointer event");
    m_socket.flush();
    QTest::qWait(kStepMs);
    return true;
}

bool VncInput::key(quint32 keysym, bool down)
{
    char message[8] = {4, char(down ? 1 : 0), 0, 0};
    qToBigEndian<quint32>(keysym, message + 4);
    if (m_socket.write(message, 8) != 8 || m_socket.state() != QLocalSocket::ConnectedState)
        return fail("cannot send a key event");
    m_socket.flush();
    QTest::qWait(kStepMs);
    return true;
}

bool VncInput::typeKey(quint32 keysym)
{
    return key(keysym, true) && key(keysym, false);
}

bool VncInput::moveTo(const QPoint& point)
{
    return pointer(point, false);
}

bool VncInput::click(const QPoint& point)
{
    return pointer(point, false) && pointer(point, true) && pointer(point, false);
}

bool VncInput::drag(const QList<QPoint>& points)
{
    if (points.isEmpty())
        return true;
    if (!pointer(points.first(), false) || !pointer(points.first(), true))
        return false;
    // Moved in small steps, as a hand moves: the toolkit merges motions that queue up while
    // the board is busy, and a merge across a corner of a few far-apart points would cut
    // the corner by more than the ink's width.
    QPoint from = points.first();
    for (const QPoint& to : points) {
        const int steps = qMax(1, qCeil(QLineF(from, to).length() / kDragStepPx));
        for (int i = 1; i <= steps; ++i) {
            if (!pointer(from + (to - from) * i / steps, true))
                return false;
        }
        from = to;
    }
    return pointer(points.last(), false);
}
