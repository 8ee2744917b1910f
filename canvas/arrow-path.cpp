// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "canvas/arrow-path.h"

#include <QLineF>
#include <QPolygonF>
#include <cmath>

int arrowHeadSize(int penWidth)
{
    switch (penWidth) {
    case 3:
        return 20;
    case 6:
        return 30;
    default:
        return 10;
    }
}

QPainterPath arrowPath(const QPointF& tail, const QPointF& head, int penWidth)
{
    QPainterPath path;
    const QPointF shaft = tail - head;
    const qreal length = std::hypot(shaft.x(), shaft.y());
    if (length <= 0.0)
        return path;

    const qreal size = arrowHeadSize(penWidth);
    const QPointF along = shaft / length;
    const QPointF across(-along.y(), along.x());
    const QPointF base = head + along * (std::sqrt(3.0) * size / 2.0);

    QPolygonF polygon;
    polygon << tail << base + across * (size / 4.0) << base + across * (size / 2.0) << head
            << base - across * (size / 2.0) << base - across * (size / 4.0) << tail;
    path.addPolygon(polygon);
    path.closeSubpath();
    return path;
}
