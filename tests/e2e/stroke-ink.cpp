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

// Where the red ink on a picture of the screen lies, measured against the line the
// pointer went along while drawing.
struct StrokeInk
{
    // Red pixels within reach of the line.
    int along = 0;
    // Red pixels farther away, and the first of them (row by row).
    int astray = 0;
    QPoint firstAstray;
};

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

} // namespace

int inkAround(const QImage& shot, const QPoint& p)
{
    int count = 0;
    for (int y = p.y() - 3; y <= p.y() + 3; ++y) {
        for (int x = p.x() - 3; x <= p.x() + 3; ++x)
            count += shot.valid(x, y) && isReddish(shot.pixel(x, y)) ? 1 : 0;
    }
    return count;
}

QString strokeInkFault(const QImage& shot, const QList<QPoint>& line, qreal reach, int least)
{
    const StrokeInk drawn = strokeInk(shot, line, reach);
    if (drawn.along <= least)
        return QString("only %1 red pixels along the stroke").arg(drawn.along);
    if (inkAround(shot, line.first()) == 0)
        return "no ink where the stroke was begun";
    if (drawn.astray != 0)
        return QString("%1 red pixels away from the stroke, first at %2,%3")
            .arg(drawn.astray)
            .arg(drawn.firstAstray.x())
            .arg(drawn.firstAstray.y());
    return QString();
}
