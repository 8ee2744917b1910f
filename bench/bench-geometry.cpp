// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "bench/bench-geometry.h"

#include <QtMath>

namespace {

constexpr int kStep = 4;
constexpr int kRowHeight = 40;
constexpr int kMargin = 20;
constexpr int kScribblePoints = 8;

} // namespace

QPoint handwritingPoint(int i, const QSize& screen)
{
    const int perRow = (screen.width() - 2 * kMargin) / kStep;
    const int rows = (screen.height() - 2 * kMargin) / kRowHeight;
    const int row = (i / perRow) % rows;
    const int column = i % perRow;
    const int x = kMargin + column * kStep;
    const int y = kMargin + kRowHeight / 2 + row * kRowHeight + qRound(12 * qSin(x / 9.0));
    return QPoint(x, y);
}

QVector<QPoint> scribblePoints(int n, int count, const QSize& screen)
{
    // A grid with about as many cells as strokes, one stroke per cell, placed with a fixed
    // pseudo-random jitter so runs are comparable.
    const double aspect = double(screen.width()) / screen.height();
    const int columns = qMax(1, qCeil(qSqrt(count * aspect)));
    const int rows = qMax(1, qCeil(double(count) / columns));
    const double cellW = double(screen.width()) / columns;
    const double cellH = double(screen.height()) / rows;
    quint32 seed = 2654435761u * quint32(n + 1);
    auto next = [&seed] {
        seed = seed * 1664525u + 1013904223u;
        return (seed >> 8) / double(1 << 24);
    };
    const double x0 = (n % columns) * cellW + next() * cellW;
    const double y0 = (n / columns) * cellH + next() * cellH;
    QVector<QPoint> points;
    for (int i = 0; i < kScribblePoints; ++i) {
        const double angle = next() * 2 * M_PI;
        points.append(QPoint(qRound(x0 + 10 * qCos(angle) * i / 2.0),
                             qRound(y0 + 10 * qSin(angle) * i / 2.0)));
    }
    return points;
}
