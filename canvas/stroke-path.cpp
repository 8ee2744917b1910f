// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "canvas/stroke-path.h"

#include <QPolygonF>
#include <QtMath>
#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr qreal kCell = 64;
constexpr int kContext = 2;
// A stroke starts small, and a thin one grows across its thin side at once: at least this
// much room keeps the bounds from changing every few points.
constexpr qreal kLeastRoomToGrow = 64;
// Up to this many segments, finding those near a rectangle goes through all of them.
constexpr int kGridFrom = 128;

int cellOf(qreal v)
{
    return qFloor(v / kCell);
}

quint64 cellKey(int cx, int cy)
{
    return (quint64(quint32(cx)) << 32) | quint32(cy);
}

// Unlike QRectF::intersects, true for horizontal and vertical segments too.
bool touches(const QRectF& segment, const QRectF& area)
{
    return segment.left() <= area.right() && segment.right() >= area.left() &&
           segment.top() <= area.bottom() && segment.bottom() >= area.top();
}

// Whether the segment from a to b passes through area (Liang-Barsky clipping). A long
// diagonal whose bounds cover the area may still pass far from it.
bool crosses(const QPointF& a, const QPointF& b, const QRectF& area)
{
    const qreal dx = b.x() - a.x();
    const qreal dy = b.y() - a.y();
    const qreal p[4] = {-dx, dx, -dy, dy};
    const qreal q[4] = {a.x() - area.left(), area.right() - a.x(), a.y() - area.top(),
                        area.bottom() - a.y()};
    qreal enter = 0;
    qreal leave = 1;
    for (int i = 0; i < 4; ++i) {
        if (p[i] == 0) {
            if (q[i] < 0)
                return false;
        } else if (p[i] < 0) {
            enter = qMax(enter, q[i] / p[i]);
        } else {
            leave = qMin(leave, q[i] / p[i]);
        }
    }
    return enter <= leave;
}

// Whether the rectangle a pen with square ends paints around the segment from a to b (half
// its width on either side and beyond either end) meets rect; separating-axis test. The
// rasterizer's antialiasing touches no pixel farther than one from the rectangle.
bool squareMeets(const QPointF& a, const QPointF& b, qreal half, const QRectF& rect)
{
    constexpr qreal kMargin = 2;
    const QRectF near = rect.adjusted(-kMargin, -kMargin, kMargin, kMargin);
    const qreal length = std::hypot(b.x() - a.x(), b.y() - a.y());
    if (length == 0)
        return true;
    const QPointF u((b.x() - a.x()) / length, (b.y() - a.y()) / length);
    const QPointF v(-u.y(), u.x());
    const qreal along = length / 2 + half;
    const QPointF d = (a + b) / 2 - near.center();
    const qreal hx = near.width() / 2;
    const qreal hy = near.height() / 2;
    if (qAbs(d.x()) > hx + along * qAbs(u.x()) + half * qAbs(v.x()))
        return false;
    if (qAbs(d.y()) > hy + along * qAbs(u.y()) + half * qAbs(v.y()))
        return false;
    if (qAbs(QPointF::dotProduct(d, u)) > along + hx * qAbs(u.x()) + hy * qAbs(u.y()))
        return false;
    return qAbs(QPointF::dotProduct(d, v)) <= half + hx * qAbs(v.x()) + hy * qAbs(v.y());
}

// QRectF::united ignores rectangles of no size, and the bounds of points often have none.
QRectF withPoint(const QRectF& bounds, const QPointF& p)
{
    return QRectF(QPointF(qMin(bounds.left(), p.x()), qMin(bounds.top(), p.y())),
                  QPointF(qMax(bounds.right(), p.x()), qMax(bounds.bottom(), p.y())));
}

// Whether v is kept exactly by a 16-bit integer. Minus zero is not: it would come back as zero.
bool fitsPacked(qreal v)
{
    return v >= std::numeric_limits<qint16>::min() && v <= std::numeric_limits<qint16>::max() &&
           v == std::trunc(v) && !(v == 0 && std::signbit(v));
}

// Whether moveTo and lineTo make the polyline again element for element: they leave out a
// line to the point it stands on, and a move after a move.
bool remakeable(const QPainterPath& path)
{
    for (int i = 1; i < path.elementCount(); ++i) {
        const QPainterPath::Element& e = path.elementAt(i);
        const QPainterPath::Element& before = path.elementAt(i - 1);
        if (e.isMoveTo() ? before.isMoveTo() : e.x == before.x && e.y == before.y)
            return false;
    }
    return true;
}

struct Run
{
    int first;
    int last;
};

} // namespace

namespace pallo {

StrokePath::StrokePath(const QPainterPath& path) : m_path(path)
{
    for (int i = 0; i < m_path.elementCount(); ++i)
        index(i);
}

QPainterPath StrokePath::path() const
{
    if (!packed())
        return m_path;
    QPainterPath built;
    built.reserve(m_packedCount);
    auto nextMove = m_moves.cbegin();
    for (int i = 0; i < m_packedCount; ++i) {
        const QPointF point(m_packed[i].x, m_packed[i].y);
        if (i == 0 || (nextMove != m_moves.cend() && *nextMove == i)) {
            built.moveTo(point);
            if (i > 0)
                ++nextMove;
        } else {
            built.lineTo(point);
        }
    }
    return built;
}

int StrokePath::elementCount() const
{
    return packed() ? m_packedCount : m_path.elementCount();
}

void StrokePath::moveTo(const QPointF& point)
{
    prepareToGrow();
    const int before = m_path.elementCount();
    m_path.moveTo(point);
    if (m_path.elementCount() > before) {
        index(m_path.elementCount() - 1);
    } else {
        // The path replaced its trailing move; the old point may stay in the bounds.
        m_bounds = withPoint(m_bounds, point);
    }
}

QRectF StrokePath::lineTo(const QPointF& point)
{
    prepareToGrow();
    const int before = m_path.elementCount();
    m_path.lineTo(point);
    if (m_path.elementCount() == before)
        return QRectF();
    for (int i = before; i < m_path.elementCount(); ++i)
        index(i);
    return segmentRect(m_path.elementCount() - 1);
}

QPointF StrokePath::pointAt(int element) const
{
    if (packed())
        return QPointF(m_packed[element].x, m_packed[element].y);
    const QPainterPath::Element& e = m_path.elementAt(element);
    return QPointF(e.x, e.y);
}

bool StrokePath::isMove(int element) const
{
    if (packed())
        return element == 0 || std::binary_search(m_moves.cbegin(), m_moves.cend(), element);
    return m_path.elementAt(element).type == QPainterPath::MoveToElement;
}

bool StrokePath::isLine(int element) const
{
    // Packed points are those of a polyline: what does not start a subpath is a line.
    if (packed())
        return !isMove(element);
    return m_path.elementAt(element).type == QPainterPath::LineToElement;
}

QRectF StrokePath::segmentRect(int element) const
{
    const QPointF a = pointAt(element - 1);
    const QPointF b = pointAt(element);
    return QRectF(QPointF(qMin(a.x(), b.x()), qMin(a.y(), b.y())),
                  QPointF(qMax(a.x(), b.x()), qMax(a.y(), b.y())));
}

bool StrokePath::closesSubpath(int element) const
{
    const bool endsSubpath = element + 1 == elementCount() || isMove(element + 1);
    return endsSubpath && pointAt(element) == pointAt(subpathStart(element));
}

int StrokePath::subpathStart(int element) const
{
    if (m_movesInPath) {
        // Short walks: the eraser's subpaths are single segments, and a pen stroke is kept
        // this way only when its points do not pack.
        while (element > 0 && !isMove(element))
            --element;
        return element;
    }
    const auto after = std::upper_bound(m_moves.cbegin(), m_moves.cend(), element);
    return after == m_moves.cbegin() ? 0 : *(after - 1);
}

void StrokePath::index(int element)
{
    const QPainterPath::Element& e = m_path.elementAt(element);
    const QPointF point(e.x, e.y);
    m_bounds = element == 0 ? QRectF(point, point) : withPoint(m_bounds, point);
    const bool move = e.type == QPainterPath::MoveToElement;
    if (move && element > 0)
        m_moves.append(element);
    if (move)
        return;
    if (e.type != QPainterPath::LineToElement)
        m_polyline = false;
    if (!m_polyline)
        return;
    ++m_segments;
    if (m_segments == kGridFrom) {
        for (int i = 1; i <= element; ++i) {
            if (isLine(i))
                indexSegment(i);
        }
    } else if (m_segments > kGridFrom) {
        indexSegment(element);
    }
}

void StrokePath::indexSegment(int element)
{
    const QRectF rect = segmentRect(element);
    for (int cx = cellOf(rect.left()); cx <= cellOf(rect.right()); ++cx) {
        for (int cy = cellOf(rect.top()); cy <= cellOf(rect.bottom()); ++cy)
            m_cells[cellKey(cx, cy)].append(element);
    }
}

void StrokePath::compact(Packing packing)
{
    // Iterating a hash to change it detaches it, which makes even an empty one allocate.
    if (!m_cells.isEmpty()) {
        for (QVector<int>& elements : m_cells)
            elements.squeeze();
    }
    if (m_polyline && !packed() && remakeable(m_path)) {
        if (packing == PackPoints)
            pack();
        if (!packed())
            keepExactPath();
    }
    if (packed()) {
        m_moves.squeeze();
    } else {
        // A path knows where its subpaths start; the list would only repeat it.
        m_moves = QVector<int>();
        m_movesInPath = true;
    }
}

void StrokePath::keepExactPath()
{
    QPainterPath exact;
    exact.reserve(m_path.elementCount());
    exact.setFillRule(m_path.fillRule());
    for (int i = 0; i < m_path.elementCount(); ++i) {
        const QPainterPath::Element& e = m_path.elementAt(i);
        if (e.type == QPainterPath::MoveToElement)
            exact.moveTo(e.x, e.y);
        else
            exact.lineTo(e.x, e.y);
    }
    m_path = exact;
}

bool StrokePath::pack()
{
    // The path made from the points has the default fill rule.
    const int count = m_path.elementCount();
    if (count == 0 || m_path.fillRule() != Qt::OddEvenFill)
        return false;
    auto points = std::make_unique<PackedPoint[]>(count);
    for (int i = 0; i < count; ++i) {
        const QPainterPath::Element& e = m_path.elementAt(i);
        if (!fitsPacked(e.x) || !fitsPacked(e.y))
            return false;
        points[i] = {qint16(e.x), qint16(e.y)};
    }
    m_packed = std::move(points);
    m_packedCount = count;
    m_path = QPainterPath();
    return true;
}

void StrokePath::prepareToGrow()
{
    if (packed()) {
        m_path = path();
        m_packed.reset();
        m_packedCount = 0;
    }
    if (m_movesInPath) {
        for (int i = 1; i < m_path.elementCount(); ++i) {
            if (isMove(i))
                m_moves.append(i);
        }
        m_movesInPath = false;
    }
}

bool StrokePath::nearArea(int element, const QRectF& area, const QRectF& rect,
                          qreal squareHalf) const
{
    const QPointF a = pointAt(element - 1);
    const QPointF b = pointAt(element);
    return touches(segmentRect(element), area) && crosses(a, b, area) &&
           (squareHalf <= 0 || squareMeets(a, b, squareHalf, rect));
}

QRectF StrokePath::squareEndsBounds(const QPointF& a, const QPointF& b, qreal half)
{
    const qreal length = std::hypot(b.x() - a.x(), b.y() - a.y());
    if (length == 0) {
        const qreal corner = half * M_SQRT2;
        return QRectF(a.x() - corner, a.y() - corner, 2 * corner, 2 * corner);
    }
    const QPointF u = (b - a) * (half / length);
    const QPointF v(-u.y(), u.x());
    const QPolygonF corners({a - u + v, a - u - v, b + u - v, b + u + v});
    return corners.boundingRect();
}

QRectF StrokePath::roomToGrow(const QRectF& tight)
{
    const qreal dx = qMax(tight.width(), kLeastRoomToGrow);
    const qreal dy = qMax(tight.height(), kLeastRoomToGrow);
    return tight.adjusted(-dx, -dy, dx, dy);
}

QPainterPath StrokePath::partNear(const QRectF& rect, qreal reach, qreal squareHalf) const
{
    const QRectF area = rect.adjusted(-reach, -reach, reach, reach);
    if (rect.isNull() || !m_polyline || area.contains(m_bounds)) {
        if (packed())
            return path();
        QPainterPath whole = m_path;
        if (whole.elementCount() > 0) {
            const QPainterPath::Element& first = whole.elementAt(0);
            whole.setElementPositionAt(0, first.x, first.y);
        }
        return whole;
    }

    QVector<int> hits;
    const qint64 cells = qint64(cellOf(area.right()) - cellOf(area.left()) + 1) *
                         (cellOf(area.bottom()) - cellOf(area.top()) + 1);
    if (m_cells.isEmpty() || cells > m_segments) {
        for (int i = 1; i < elementCount(); ++i) {
            if (isLine(i) && nearArea(i, area, rect, squareHalf))
                hits.append(i);
        }
    } else {
        for (int cx = cellOf(area.left()); cx <= cellOf(area.right()); ++cx) {
            for (int cy = cellOf(area.top()); cy <= cellOf(area.bottom()); ++cy) {
                const auto found = m_cells.constFind(cellKey(cx, cy));
                if (found == m_cells.constEnd())
                    continue;
                for (int element : *found) {
                    if (nearArea(element, area, rect, squareHalf))
                        hits.append(element);
                }
            }
        }
        std::sort(hits.begin(), hits.end());
        hits.erase(std::unique(hits.begin(), hits.end()), hits.end());
    }

    // Each run takes a few more segments of its polyline on either side: the rasterizer's
    // rounding along an edge depends on where the edge is cut, and a segment stroked on its
    // own does not always round the same as inside its polyline.
    const auto inRun = [this](int element) {
        return element > 0 && element < elementCount() && isLine(element);
    };
    QVector<Run> runs;
    for (int element : qAsConst(hits)) {
        int first = element;
        int last = element;
        for (int k = 0; k < kContext && inRun(first - 1); ++k)
            --first;
        for (int k = 0; k < kContext && inRun(last + 1); ++k)
            ++last;
        if (!runs.isEmpty() && first <= runs.last().last + 1)
            runs.last().last = qMax(runs.last().last, last);
        else
            runs.append({first, last});
    }

    // The run that ends a closed subpath goes on through its first run, so that the two meet
    // in the same join as in the whole path.
    QHash<int, int> headRuns;
    for (int r = 0; r < runs.size(); ++r) {
        const int start = subpathStart(runs.at(r).first);
        if (runs.at(r).first == start + 1)
            headRuns.insert(start, r);
    }
    QVector<int> continuation(runs.size(), -1);
    QVector<bool> continues(runs.size(), false);
    for (int r = 0; r < runs.size(); ++r) {
        if (!closesSubpath(runs.at(r).last))
            continue;
        const int head = headRuns.value(subpathStart(runs.at(r).last), -1);
        if (head >= 0 && head != r) {
            continuation[r] = head;
            continues[head] = true;
        }
    }

    QPainterPath part;
    auto follow = [&](const Run& run) {
        for (int element = run.first; element <= run.last; ++element)
            part.lineTo(pointAt(element));
    };
    for (int r = 0; r < runs.size(); ++r) {
        if (continues.at(r))
            continue;
        part.moveTo(pointAt(runs.at(r).first - 1));
        follow(runs.at(r));
        if (continuation.at(r) >= 0)
            follow(runs.at(continuation.at(r)));
    }
    return part;
}

} // namespace pallo
