// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "tests/e2e/stroke-ink.h"

#include "tests/e2e/x11-probe.h"

#include <QLineF>

namespace {

qreal distanceToPolyline(const QPoint& p, const QList<QPoint>& line)
{
    qreal best = 1e9;
    for (int i = 1; i < line.size(); ++i) {
        const QLineF segment(line.at(i - 1), line.at(i));
        const QPointF d = segment.p2() - segment.p1();
        const qreal length2 = d.x() * d.x() + d.y() * d.y();
        qreal t = length2 > 0 ? QPointF::dotProduct(QPointF(p) - segment.p1(), d) / length2 : 0;
        t = qBound<qreal>(0, t, 1);
        best = qMin(best, QLineF(QPointF(p), segment.pointAt(t)).length());
    }
    return best;
}

} // namespace

StrokeInk strokeInk(const QImage& shot, const QList<QPoint>& line, qreal reach)
{
    StrokeInk ink;
    for (int y = 0; y < shot.height(); ++y) {
        for (int x = 0; x < shot.width(); ++x) {
            if (!isReddish(shot.pixel(x, y)))
                continue;
            if (distanceToPolyline(QPoint(x, y), line) <= reach) {
                ++ink.along;
            } else if (ink.astray++ == 0) {
                ink.firstAstray = QPoint(x, y);
            }
        }
    }
    return ink;
}

int inkAround(const QImage& shot, const QPoint& p)
{
    int count = 0;
    for (int y = p.y() - 3; y <= p.y() + 3; ++y) {
        for (int x = p.x() - 3; x <= p.x() + 3; ++x)
            count += shot.valid(x, y) && isReddish(shot.pixel(x, y)) ? 1 : 0;
    }
    return count;
}
