// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>
#include <QPainterPath>
#include <QRectF>
#include <QVector>
#include <memory>

namespace pallo {

// A path drawn point by point. Appending costs the same however long the path is, and the
// segments that come near a rectangle are found without walking the whole path, so that a
// repaint of a small area strokes only what can reach it.
class StrokePath
{
public:
    StrokePath() = default;
    explicit StrokePath(const QPainterPath& path);

    // Made anew on each call once a finished polyline keeps only its points.
    QPainterPath path() const;
    int elementCount() const;
    // Bounds of every point of the path.
    QRectF pointBounds() const { return m_bounds; }

    void moveTo(const QPointF& point);
    // Returns the rectangle spanned by the new segment, or a null rectangle when the point
    // repeats the last one (the path skips it).
    QRectF lineTo(const QPointF& point);

    // Bounds for an item whose stroke paints inside tight and keeps growing: its own size, and
    // at least 64 px, to spare on every side. A change of bounds repaints the stroke whole and
    // makes the scene visit every drawn item once; with room that grows as the stroke does,
    // that happens a few times per stroke, not every few points.
    static QRectF roomToGrow(const QRectF& tight);

    // Bounds of the rectangle that a pen with square ends paints around the segment from a to
    // b: half its width to either side and beyond either end.
    static QRectF squareEndsBounds(const QPointF& a, const QPointF& b, qreal half);

    // What of the path can paint inside rect when it is stroked with a pen that reaches no
    // farther than reach from the path: the runs of consecutive segments that come within
    // reach of rect, as one path. Inside rect they paint the same pixels as the whole path.
    // A null rect asks for the whole path. The path returned shares nothing with this one, so
    // that what painting caches in it goes away with it.
    // A pen with square ends paints a rectangle around each segment, reaching squareHalf
    // beyond the segment on every side; given that, a segment is taken only when its
    // rectangle comes near rect, which leaves out many that reach alone would take.
    QPainterPath partNear(const QRectF& rect, qreal reach, qreal squareHalf = 0) const;

    enum Packing
    {
        PackPoints,
        KeepPath
    };
    // For a path that is done growing: gives back the room kept for more points. With
    // PackPoints, a polyline whose every coordinate is a whole number of a small range keeps
    // just those, a sixth of the room of its path. A path that grows again is unpacked.
    void compact(Packing packing = PackPoints);

private:
    struct PackedPoint
    {
        qint16 x;
        qint16 y;
    };

    bool packed() const { return m_packedCount > 0; }
    bool pack();
    void keepExactPath();
    // Makes a finished path ready for more points.
    void prepareToGrow();
    bool isMove(int element) const;
    bool isLine(int element) const;
    void index(int element);
    void indexSegment(int element);
    int subpathStart(int element) const;
    QRectF segmentRect(int element) const;
    QPointF pointAt(int element) const;
    // Whether the segment ending at element passes through area, and, with squareHalf, its
    // square-ended rectangle comes near rect.
    bool nearArea(int element, const QRectF& area, const QRectF& rect, qreal squareHalf) const;
    // A subpath whose last point is its first is stroked with a join there, not two ends.
    bool closesSubpath(int element) const;

    // Empty while the points are packed.
    QPainterPath m_path;
    // An array of its own rather than a container: its header would take an eighth more.
    std::unique_ptr<PackedPoint[]> m_packed;
    QRectF m_bounds;
    // The elements after the first that start a subpath, in order; most strokes have none, and
    // keep no list for them. Not kept while m_movesInPath: a finished path that is not packed
    // tells them by its elements.
    QVector<int> m_moves;
    // Grid cell to the elements that end a line segment crossing the cell; made only once
    // the path is long enough for a search through every segment to cost more.
    QHash<quint64, QVector<int>> m_cells;
    // The small members last, together, so that each item holding a path keeps less padding.
    int m_packedCount = 0;
    int m_segments = 0;
    // Curves are not indexed; a path holding one is always painted whole.
    bool m_polyline = true;
    bool m_movesInPath = false;
};

} // namespace pallo
