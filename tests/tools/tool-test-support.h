// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QImage>
#include <QPoint>
#include <QRect>
#include <QStringList>

class QWidget;

namespace tool_test {

void sendMouse(QWidget* w, int type, const QPoint& global, Qt::MouseButton button,
               Qt::MouseButtons buttons);
void sendWheel(QWidget* w, const QPoint& angleDelta);
void sendKey(QWidget* w, int key);

// Shows a full-screen tool the way its owner does, also where no window manager gives it
// the screen's size.
void showLikeItsOwner(QWidget* tool);
// Shows it like its owner and asks the X server to activate it.
void showActivated(QWidget* tool);
// Shows the tool activated and waits until it has taken its picture and shows it again:
// the picture's pixel at (20, 20) is corner, and the white handle at frame's top-left
// corner is drawn over it.
void showWithPicture(QWidget* tool, const QRect& frame, const QColor& corner);
// Activates another window of the test, so that the tool loses activation.
void activateOther(QWidget* other);

// The whole screen as the X server holds it.
QImage grabScreen();

// The soft grey drop shadow of the tools' buttons and pinned pictures.
bool hasHalo(const QWidget* w);

bool sameColour(const QColor& a, const QColor& b, int tolerance = 0);

// Debug lines written while it exists.
class DebugLog
{
public:
    DebugLog();
    ~DebugLog();
    QStringList lines() const;
    int count(const QString& prefix) const;
    void clear();
};

} // namespace tool_test
