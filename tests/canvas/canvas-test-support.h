// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include "canvas/graphics-view.h"
#include "tests/test-output.h"

#include <QCoreApplication>
#include <QGraphicsScene>
#include <QImage>
#include <QMouseEvent>
#include <QPainter>
#include <QTest>

// Shows the canvas as a plain window of the given size, the way the tests paint it; false if
// it never came on screen.
inline bool showAsWindow(pallo::GraphicsView& view, const QSize& size)
{
    view.setWindowState(Qt::WindowNoState);
    view.resize(size);
    view.show();
    return QTest::qWaitForWindowExposed(&view);
}

// QTest's mouse move only moves the cursor; the widget gets a real move event here.
inline void sendMouseMove(QWidget* widget, const QPointF& pos, Qt::MouseButtons buttons)
{
    QMouseEvent event(QEvent::MouseMove, pos, widget->mapToGlobal(pos.toPoint()), Qt::NoButton,
                      buttons, Qt::NoModifier);
    QCoreApplication::sendEvent(widget, &event);
}

// Presses the left button at from, moves to to and lets go there.
inline void dragWithMouse(QWidget* widget, const QPoint& from, const QPoint& to)
{
    QTest::mousePress(widget, Qt::LeftButton, Qt::NoModifier, from);
    sendMouseMove(widget, to, Qt::LeftButton);
    QTest::mouseRelease(widget, Qt::LeftButton, Qt::NoModifier, to);
}

// Renders the scene like the canvas's translucent window: onto transparent pixels, so that
// the eraser's composition clears what lies beneath it.
inline QImage renderScene(QGraphicsScene* scene, const QSize& size = QSize(400, 300))
{
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing, true);
    const QRectF area(QPointF(0, 0), QSizeF(size));
    scene->render(&painter, area, area);
    painter.end();
    return image;
}

inline int alphaAt(const QImage& image, int x, int y)
{
    return qAlpha(image.pixel(x, y));
}

// Number of pixels in column x whose alpha is at least minAlpha.
inline int opaqueInColumn(const QImage& image, int x, int minAlpha = 128)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        if (qAlpha(image.pixel(x, y)) >= minAlpha)
            ++count;
    }
    return count;
}

// Sum of the alpha of column x, in whole pixels.
inline double coverageInColumn(const QImage& image, int x)
{
    double sum = 0;
    for (int y = 0; y < image.height(); ++y)
        sum += qAlpha(image.pixel(x, y)) / 255.0;
    return sum;
}
