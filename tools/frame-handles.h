// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QPoint>
#include <QRect>
#include <QSize>
#include <Qt>

class QPainter;
class QString;
class QWidget;

// What the magnifier and the screenshot tool have in common: a rectangle on a still
// picture of the screen, with four corner handles to drag and two round buttons under it.
namespace frame_handles {

// What a drag does: resize from one of the four corners, or move the whole rectangle.
enum DragMode
{
    TopLeft = 0,
    BottomLeft = 1,
    BottomRight = 2,
    TopRight = 3,
    Move = 4
};

// The primary screen's scale, read on first use and kept for the rest of the process.
double scale();
// value * s, truncated towards zero.
int scaled(double value, double s);

// The corner under the cursor (within trunc(4*s) on both axes), tried top-left,
// top-right, bottom-left, bottom-right; Move when none is hit.
int hoverMode(const QRect& frame, const QPoint& cursor, double s);
Qt::CursorShape cursorForMode(int mode);

QRect centredOn(QRect rect, const QPoint& centre);

struct ButtonPair
{
    QRect left;
    QRect right;
};
// The two square buttons of side size, side by side under frame, 4 pixels apart about
// its vertical centre line, their tops 7 pixels below its bottom edge.
ButtonPair buttonsUnder(const QRect& frame, int size, double s);

// The four handle squares, top-left, bottom-right, top-right, bottom-left.
QRect handleRect(const QRect& frame, int corner, double s);

// Draws picture at the origin, logs the debug line "<tag>[this->Rect()]:..." and turns
// on smooth rendering for what is painted next.
// Stands in for the picture when the screen could not be read: a plain light page with
// the message in its middle, so nobody takes it for the screen.
void paintFailure(QPainter& painter, const QRect& widgetRect, const QString& message);
void paintPicture(QPainter& painter, const QImage& picture, const QRect& widgetRect,
                  const char* tag);
// The orange outline of frame and its four white handles.
void paintFrame(QPainter& painter, const QRect& frame, double s);

// The soft grey halo the floating buttons and pinned pictures carry.
void addShadow(QWidget* widget);

// Readies one of the two full-screen tools: it filters its own events (for the grab on
// activation), tracks the mouse without a button down, and its two buttons take no
// focus and carry the halo.
void prepareTool(QWidget* tool, QWidget* firstButton, QWidget* secondButton);

// The size of the whole desktop, the bounds of moving and resizing.
QSize desktopSize();

} // namespace frame_handles
