// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "canvas/handle-geometry.h"

#include <QPainterPathStroker>
#include <QSizeF>
#include <cmath>

namespace handles {

QPointF handleCentre(int code, const QRectF& frame)
{
    if (code == Rotation)
        return QPointF(frame.center().x(), frame.top() - RotationDistance);
    return grabbedCorner(code, frame);
}

QRectF handleSquare(int code, const QRectF& frame)
{
    const QPointF centre = handleCentre(code, frame);
    return QRectF(centre.x() - SquareSide / 2, centre.y() - SquareSide / 2, SquareSide, SquareSide);
}

int handleCodeAt(const QPointF& point, const QRectF& frame, const QPainterPath& outline)
{
    for (int code = BottomRight; code <= Rotation; ++code) {
        if (handleSquare(code, frame).contains(point))
            return code;
    }
    if (outlineStroke(outline).contains(point))
        return Outline;
    return None;
}

QPainterPath outlineStroke(const QPainterPath& outline)
{
    QPainterPathStroker stroker;
    stroker.setWidth(OutlineWidth);
    return stroker.createStroke(outline);
}

float rotationAngle(qreal x, qreal y)
{
    const float pi = 3.1415926f;
    const float fx = static_cast<float>(x);
    const float fy = static_cast<float>(y);
    float a = std::asin(fx / std::sqrt(fx * fx + fy * fy)) * 180.0f / pi;
    if (fy > 0)
        a = 180.0f - a;
    return a;
}

QPointF grabbedCorner(int code, const QRectF& rect)
{
    switch (code) {
    case BottomRight:
        return rect.bottomRight();
    case BottomLeft:
        return rect.bottomLeft();
    case TopLeft:
        return rect.topLeft();
    case TopRight:
        return rect.topRight();
    default:
        return rect.center();
    }
}

QPointF anchorCorner(int code, const QRectF& rect)
{
    switch (code) {
    case BottomRight:
        return rect.topLeft();
    case BottomLeft:
        return rect.topRight();
    case TopLeft:
        return rect.bottomRight();
    case TopRight:
        return rect.bottomLeft();
    default:
        return rect.center();
    }
}

int scaleDirection(int code)
{
    return (code == TopLeft || code == TopRight) ? 1 : -1;
}

QPointF clampExtent(int code, const QPointF& d)
{
    qreal x = d.x();
    qreal y = d.y();
    const bool right = code == BottomRight || code == TopRight;
    const bool bottom = code == BottomRight || code == BottomLeft;
    x = right ? std::max(x, MinimumExtent) : std::min(x, -MinimumExtent);
    y = bottom ? std::max(y, MinimumExtent) : std::min(y, -MinimumExtent);
    return QPointF(x, y);
}

qreal proportionalFactor(const QPointF& d, const QSizeF& size, qreal slope, int direction)
{
    const bool ge = d.x() * slope >= d.y();
    const bool byHeight = (ge && direction == 1) || (!ge && direction == -1);
    if (byHeight)
        return axisFactor(std::abs(d.y()), size.height());
    return axisFactor(std::abs(d.x()), size.width());
}

qreal axisFactor(qreal extent, qreal size)
{
    if (size <= 0)
        return 1;
    return extent / size;
}

} // namespace handles
