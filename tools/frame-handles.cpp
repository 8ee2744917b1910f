// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "tools/frame-handles.h"

#include "common/scale-factor.h"
#include "logging/log-categories.h"

#include <QApplication>
#include <QFont>
#include <QGraphicsDropShadowEffect>
#include <QPainter>
#include <QScreen>
#include <QString>
#include <QWidget>

#include <cstdlib>

namespace frame_handles {

double scale()
{
    static const double s = screenScaleFactor();
    return s;
}

int scaled(double value, double s)
{
    return static_cast<int>(value * s);
}

int hoverMode(const QRect& frame, const QPoint& cursor, double s)
{
    const int tolerance = scaled(4, s);
    const struct
    {
        QPoint corner;
        int mode;
    } corners[] = {
        {frame.topLeft(), TopLeft},
        {frame.topRight(), TopRight},
        {frame.bottomLeft(), BottomLeft},
        {frame.bottomRight(), BottomRight},
    };
    for (const auto& c : corners) {
        if (std::abs(cursor.x() - c.corner.x()) <= tolerance &&
            std::abs(cursor.y() - c.corner.y()) <= tolerance)
            return c.mode;
    }
    return Move;
}

Qt::CursorShape cursorForMode(int mode)
{
    switch (mode) {
    case TopLeft:
    case BottomRight:
        return Qt::SizeFDiagCursor;
    case TopRight:
    case BottomLeft:
        return Qt::SizeBDiagCursor;
    default:
        return Qt::ArrowCursor;
    }
}

QRect centredOn(QRect rect, const QPoint& centre)
{
    rect.moveCenter(centre);
    return rect;
}

ButtonPair buttonsUnder(const QRect& frame, int size, double s)
{
    const int d = scaled(-22, s);
    const int off = 7 - d;
    const QRect square(0, 0, size, size);
    const int y = frame.bottom() + off;
    return {centredOn(square, QPoint(frame.center().x() - scaled(22, s) - 2, y)),
            centredOn(square, QPoint(frame.center().x() - d + 2, y))};
}

QRect handleRect(const QRect& frame, int corner, double s)
{
    const int side = scaled(10, s);
    const QRect square(0, 0, side, side);
    switch (corner) {
    case TopLeft:
        return square.translated(static_cast<int>(frame.left() - 5 * s),
                                 static_cast<int>(frame.top() - 5 * s));
    case BottomRight:
        return centredOn(square, frame.bottomRight());
    case TopRight:
        return centredOn(square, frame.topRight());
    default:
        return centredOn(square, frame.bottomLeft());
    }
}

void paintPicture(QPainter& painter, const QImage& picture, const QRect& widgetRect,
                  const char* tag)
{
    painter.drawImage(QRect(QPoint(0, 0), picture.size()), picture);
    qCDebug(lcTools).nospace() << tag << "[this->Rect()]:" << widgetRect
                               << ",[bgImg.Rect()]:" << picture.size();
    // Qt 5.15 ignores the high-quality antialiasing hint; Antialiasing is that hint now.
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
}

void paintFailure(QPainter& painter, const QRect& widgetRect, const QString& message)
{
    painter.fillRect(widgetRect, QColor(0xf2, 0xf2, 0xf2));
    QFont font = painter.font();
    font.setPixelSize(qMax(16, widgetRect.height() / 40));
    painter.setFont(font);
    painter.setPen(QColor(0x33, 0x33, 0x33));
    const QRect box = widgetRect.adjusted(widgetRect.width() / 5, 0, -widgetRect.width() / 5, 0);
    painter.drawText(box, Qt::AlignCenter | Qt::TextWordWrap, message);
}

void paintFrame(QPainter& painter, const QRect& frame, double s)
{
    painter.setPen(QPen(QColor("#F5A623"), 1.5));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(frame);
    painter.setBrush(QBrush(Qt::white, Qt::SolidPattern));
    for (int corner : {TopLeft, BottomRight, TopRight, BottomLeft})
        painter.drawRect(handleRect(frame, corner, s));
}

void addShadow(QWidget* widget)
{
    auto* shadow = new QGraphicsDropShadowEffect(widget);
    shadow->setOffset(0, 0);
    shadow->setColor(Qt::gray);
    shadow->setBlurRadius(8.0);
    widget->setGraphicsEffect(shadow);
}

void prepareTool(QWidget* tool, QWidget* firstButton, QWidget* secondButton)
{
    tool->installEventFilter(tool);
    tool->setAttribute(Qt::WA_MouseTracking);
    for (QWidget* button : {firstButton, secondButton}) {
        button->setFocusPolicy(Qt::NoFocus);
        addShadow(button);
    }
}

QSize desktopSize()
{
    return QGuiApplication::primaryScreen()->virtualGeometry().size();
}

} // namespace frame_handles
