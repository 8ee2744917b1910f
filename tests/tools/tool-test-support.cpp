// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "tool-test-support.h"

#include "tools/frame-handles.h"

#include <QGraphicsDropShadowEffect>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScreen>
#include <QWheelEvent>
#include <QWidget>
#include <QtTest>

namespace tool_test {

void sendMouse(QWidget* w, int type, const QPoint& global, Qt::MouseButton button,
               Qt::MouseButtons buttons)
{
    QMouseEvent e(static_cast<QEvent::Type>(type), w->mapFromGlobal(global), global, button,
                  buttons, Qt::NoModifier);
    QCoreApplication::sendEvent(w, &e);
}

void sendWheel(QWidget* w, const QPoint& angleDelta)
{
    const QPoint at(w->width() / 2, w->height() / 2);
    QWheelEvent e(at, w->mapToGlobal(at), QPoint(), angleDelta, Qt::NoButton, Qt::NoModifier,
                  Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(w, &e);
}

void sendKey(QWidget* w, int key)
{
    QKeyEvent e(QEvent::KeyPress, key, Qt::NoModifier);
    QCoreApplication::sendEvent(w, &e);
}

void showLikeItsOwner(QWidget* tool)
{
    tool->setGeometry(QGuiApplication::primaryScreen()->geometry());
    tool->showFullScreen();
}

void showActivated(QWidget* tool)
{
    showLikeItsOwner(tool);
    QVERIFY(QTest::qWaitForWindowExposed(tool));
    tool->activateWindow();
}

void showWithPicture(QWidget* tool, const QRect& frame, const QColor& corner)
{
    showActivated(tool);
    const QPoint handle =
        frame_handles::handleRect(frame, frame_handles::TopLeft, frame_handles::scale()).center();
    QTRY_VERIFY(tool->isVisible() && grabScreen().pixelColor(handle) == QColor(Qt::white) &&
                grabScreen().pixelColor(20, 20) == corner);
    QVERIFY(QTest::qWaitForWindowActive(tool));
}

void activateOther(QWidget* other)
{
    other->setGeometry(10, 10, 40, 40);
    other->show();
    QVERIFY(QTest::qWaitForWindowExposed(other));
    other->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(other));
}

QImage grabScreen()
{
    return QGuiApplication::primaryScreen()->grabWindow(0).toImage();
}

bool hasHalo(const QWidget* w)
{
    auto* shadow = qobject_cast<QGraphicsDropShadowEffect*>(w->graphicsEffect());
    return shadow != nullptr && shadow->offset() == QPointF(0, 0) &&
           shadow->color() == QColor(Qt::gray) && qFuzzyCompare(shadow->blurRadius(), 8.0);
}

bool sameColour(const QColor& a, const QColor& b, int tolerance)
{
    return qAbs(a.red() - b.red()) <= tolerance && qAbs(a.green() - b.green()) <= tolerance &&
           qAbs(a.blue() - b.blue()) <= tolerance;
}

namespace {
QStringList debugLines;
QtMessageHandler previousHandler = nullptr;

void record(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    if (type == QtDebugMsg)
        debugLines << message;
    else if (previousHandler != nullptr)
        previousHandler(type, context, message);
}
} // namespace

DebugLog::DebugLog()
{
    debugLines.clear();
    previousHandler = qInstallMessageHandler(record);
}

DebugLog::~DebugLog()
{
    qInstallMessageHandler(previousHandler);
}

QStringList DebugLog::lines() const
{
    return debugLines;
}

int DebugLog::count(const QString& prefix) const
{
    int n = 0;
    for (const QString& line : debugLines)
        n += line.startsWith(prefix) ? 1 : 0;
    return n;
}

void DebugLog::clear()
{
    debugLines.clear();
}

} // namespace tool_test
