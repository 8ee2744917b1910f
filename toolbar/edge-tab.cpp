// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "toolbar/edge-tab.h"

#include "common/window-layering.h"
#include "toolbar/toolbar-geometry.h"

#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>

EdgeTab::EdgeTab(QWidget* parent) : QWidget(parent, window_layering::overCanvasFlags())
{
    setObjectName(QStringLiteral("edgeTab"));
    setAttribute(Qt::WA_TranslucentBackground);
    setCursor(Qt::PointingHandCursor);
}

void EdgeTab::setSide(int side)
{
    m_side = side;
    update();
}

void EdgeTab::enterEvent(EnterEvent*)
{
    emit entered();
}

void EdgeTab::leaveEvent(QEvent*)
{
    emit left();
}

void EdgeTab::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton && rect().contains(event->pos()))
        emit clicked();
}

void EdgeTab::paintEvent(QPaintEvent*)
{
    using namespace toolbar_geometry;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF r = QRectF(rect()).adjusted(1, 1, -1, -1);
    const qreal radius = qMin(r.width(), r.height()) / 2;
    // Rounded on the side away from the edge, square where it meets the strip: the
    // rounded rectangle is drawn twice as deep and the half beyond the edge cut off.
    QRectF body = r;
    switch (m_side) {
    case DockTop:
        body.setTop(r.top() - r.height());
        break;
    case DockBottom:
        body.setBottom(r.bottom() + r.height());
        break;
    case DockLeft:
        body.setLeft(r.left() - r.width());
        break;
    case DockRight:
        body.setRight(r.right() + r.width());
        break;
    default:
        break;
    }
    QPainterPath path;
    path.addRoundedRect(body, radius, radius);
    painter.setClipRect(rect());
    painter.fillPath(path, Qt::white);
    painter.strokePath(path, QPen(QColor("#009FFF"), 2));

    // A chevron pointing away from the edge: the way the toolbar comes out.
    const QPointF c = r.center();
    const qreal a = qMin(r.width(), r.height()) / 4;
    QPointF tip;
    QPointF back1;
    QPointF back2;
    switch (m_side) {
    case DockTop:
        tip = c + QPointF(0, a / 2);
        back1 = tip + QPointF(-a, -a);
        back2 = tip + QPointF(a, -a);
        break;
    case DockBottom:
        tip = c - QPointF(0, a / 2);
        back1 = tip + QPointF(-a, a);
        back2 = tip + QPointF(a, a);
        break;
    case DockLeft:
        tip = c + QPointF(a / 2, 0);
        back1 = tip + QPointF(-a, -a);
        back2 = tip + QPointF(-a, a);
        break;
    case DockRight:
        tip = c - QPointF(a / 2, 0);
        back1 = tip + QPointF(a, -a);
        back2 = tip + QPointF(a, a);
        break;
    default:
        return;
    }
    painter.setPen(QPen(QColor("#009FFF"), 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolyline(QPolygonF({back1, tip, back2}));
}
