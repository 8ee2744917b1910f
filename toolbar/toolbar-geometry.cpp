// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "toolbar/toolbar-geometry.h"

#include <QLineF>
#include <QtGlobal>
#include <cstdlib>

namespace toolbar_geometry {

namespace {
constexpr int menuGap = 4;
}

int scaled(int px, double s)
{
    return qRound(px * s);
}

QPoint startPosition(const QSize& toolbar, const QRect& screen)
{
    return QPoint(screen.left() + screen.width() - rightGap - toolbar.width(), screen.top());
}

QRect keepOnScreen(const QRect& g, const QRect& screen, bool flush, double s, int edgeDistance)
{
    const int near = scaled(edgeDistance, s);
    const int m = flush ? 0 : scaled(edgeDistance + 2, s);
    // Right and bottom land 2*s further out than left and top; kept that way on purpose.
    const int overhang = scaled(2, s);
    QRect r = g;
    if (r.left() < screen.left() || r.left() - screen.left() < near)
        r.setLeft(screen.left() + m);
    if (r.top() < screen.top() || r.top() - screen.top() < near)
        r.setTop(screen.top() + m);
    if (r.right() > screen.right() || std::abs(screen.right() - r.right()) < near)
        r.setLeft(screen.right() - m - r.width() + overhang);
    if (r.bottom() > screen.bottom() || std::abs(screen.bottom() - r.bottom()) < near)
        r.setTop(screen.bottom() - m - r.height() + overhang);
    // The toolbar's size constraints keep its size: in effect it is only moved.
    return QRect(r.topLeft(), g.size());
}

int dockSide(const QRect& g, const QRect& screen, bool horizontal, int d)
{
    const bool nearLeft = std::abs(g.left() - screen.left()) < d;
    const bool nearTop = std::abs(g.top() - screen.top()) < d;
    const bool nearBottom = std::abs(g.bottom() - screen.bottom()) < d;
    const bool nearRight = std::abs(g.right() - screen.right()) < d;
    if (horizontal) {
        if (nearTop)
            return DockTop;
        if (nearBottom)
            return DockBottom;
        if (nearLeft)
            return DockLeft;
        if (nearRight)
            return DockRight;
        return DockNone;
    }
    if (nearLeft)
        return DockLeft;
    if (nearRight)
        return DockRight;
    if (nearTop)
        return DockTop;
    if (nearBottom)
        return DockBottom;
    return DockNone;
}

QRect stripRect(const QRect& g, int side, double s, int thickness)
{
    const int t = scaled(thickness, s);
    QRect r = g;
    switch (side) {
    case DockTop:
        r.setHeight(t);
        break;
    case DockBottom:
        r.setTop(g.bottom() - t);
        r.setHeight(t);
        break;
    case DockLeft:
        r.setWidth(t);
        break;
    case DockRight:
        r.setLeft(g.right() - t);
        r.setWidth(t);
        break;
    default:
        return QRect();
    }
    return r;
}

QRect tabRect(const QRect& strip, int side, double s)
{
    const int depth = scaled(tabDepth, s);
    const bool alongX = side == DockTop || side == DockBottom;
    const int length = qMin(scaled(tabLength, s), alongX ? strip.width() : strip.height());
    const int x = strip.left() + (strip.width() - length) / 2;
    const int y = strip.top() + (strip.height() - length) / 2;
    switch (side) {
    case DockTop:
        return QRect(x, strip.bottom() + 1, length, depth);
    case DockBottom:
        return QRect(x, strip.top() - depth, length, depth);
    case DockLeft:
        return QRect(strip.right() + 1, y, depth, length);
    case DockRight:
        return QRect(strip.left() - depth, y, depth, length);
    default:
        return QRect();
    }
}

QPoint bottomCentre(const QRect& b)
{
    return QLineF(b.bottomLeft(), b.bottomRight()).center().toPoint();
}

QPoint topCentre(const QRect& b)
{
    return QLineF(b.topLeft(), b.topRight()).center().toPoint();
}

QPoint normalMenuPosition(MenuAnchor anchor, const QRect& b, const QSize& menu)
{
    const QPoint bc = bottomCentre(b);
    if (anchor == MenuAnchor::Centre)
        return QPoint(bc.x() - menu.width() / 4, bc.y() + menuGap);
    return QPoint(bc.x() + menu.width() / 2, bc.y() + menuGap);
}

QPoint menuPosition(MenuAnchor anchor, const QRect& b, const QSize& menu, int screenBottom)
{
    const QPoint normal = normalMenuPosition(anchor, b, menu);
    if (QRect(normal, menu).bottom() <= screenBottom)
        return normal;
    if (anchor == MenuAnchor::Centre) {
        const QPoint tc = topCentre(b);
        return QPoint(tc.x() - menu.width() / 4, tc.y() - menuGap - menu.height());
    }
    // Flipped pen-side menus hang from top-left plus half of top-right, not from the
    // midpoint; existing placements depend on exactly this point.
    const QPoint a = b.topLeft() + b.topRight() / 2;
    return QPoint(a.x() + menu.width() / 2, a.y() - menuGap - menu.height());
}

} // namespace toolbar_geometry
