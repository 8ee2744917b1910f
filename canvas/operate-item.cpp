// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "canvas/operate-item.h"

#include "canvas/common-item.h"
#include "canvas/cursor-image.h"
#include "canvas/handle-geometry.h"
#include "logging/log-categories.h"

#include <QApplication>
#include <QGraphicsScene>
#include <QGraphicsSceneHoverEvent>
#include <QGraphicsSceneMouseEvent>
#include <QPainter>
#include <cmath>

QPointer<OperateItem> OperateItem::s_instance;

namespace {

const QColor kHandleColor(0, 120, 215);

const char* cursorImageFor(int code)
{
    switch (code) {
    case handles::Outline:
        return ":/images/move.png";
    case handles::BottomRight:
    case handles::TopLeft:
        return ":/images/scale.png";
    case handles::BottomLeft:
    case handles::TopRight:
        return ":/images/scale2.png";
    case handles::Rotation:
        return ":/images/rotate.png";
    default:
        return nullptr;
    }
}

bool isCorner(int code)
{
    return code >= handles::BottomRight && code <= handles::TopRight;
}

} // namespace

OperateItem* OperateItem::instance()
{
    if (!s_instance)
        s_instance = new OperateItem;
    return s_instance;
}

OperateItem* OperateItem::existing()
{
    return s_instance;
}

OperateItem::OperateItem()
{
    setFlag(ItemIsSelectable, true);
    setFlag(ItemIsMovable, true);
    setAcceptHoverEvents(true);
    // Above every drawn item, whatever order they were added in.
    setZValue(1e6);
    hide();
}

OperateItem::~OperateItem()
{
    restoreCursor();
}

void OperateItem::attachTo(CommonItem* target)
{
    if (!target)
        return;
    QGraphicsScene* scene = target->scene();
    if (scene && this->scene() != scene) {
        if (this->scene())
            this->scene()->removeItem(this);
        scene->addItem(this);
    }
    m_target = target;
    m_pressType = handles::None;
    m_changed = false;
    followTarget();
    show();
}

void OperateItem::detach()
{
    restoreCursor();
    prepareGeometryChange();
    m_target = nullptr;
    m_outline = QPainterPath();
    m_pressType = handles::None;
    hide();
}

CommonItem* OperateItem::target() const
{
    return m_target;
}

bool OperateItem::isAttachedTo(const QGraphicsItem* item) const
{
    return item && m_target && static_cast<const QGraphicsItem*>(m_target.data()) == item;
}

void OperateItem::followTarget()
{
    if (!m_target)
        return;
    setPos(m_target->scenePos());
    m_rotate = m_target->shapeTransform();
    setTransform(m_rotate);
    setOutline(m_rotate.inverted().map(m_target->shapePath()));
}

void OperateItem::setOutline(const QPainterPath& outline)
{
    prepareGeometryChange();
    m_outline = outline;
    update();
}

QRectF OperateItem::frame() const
{
    return m_outline.boundingRect();
}

int OperateItem::handleAt(const QPointF& point) const
{
    if (!m_target)
        return handles::None;
    qCDebug(lcCanvas) << "handle test" << point << m_target->shapeRect();
    return handles::handleCodeAt(point, frame(), m_outline);
}

QRectF OperateItem::boundingRect() const
{
    if (!m_target)
        return QRectF();
    const qreal half = handles::SquareSide / 2 + 1;
    const QRectF f = frame();
    QRectF rect = f.adjusted(-half, -half, half, half);
    rect |= handles::handleSquare(handles::Rotation, f).adjusted(-1, -1, 1, 1);
    const qreal stroke = handles::OutlineWidth / 2 + 1;
    rect |= m_outline.boundingRect().adjusted(-stroke, -stroke, stroke, stroke);
    return rect;
}

QPainterPath OperateItem::shape() const
{
    QPainterPath path;
    if (!m_target)
        return path;
    path.setFillRule(Qt::WindingFill);
    for (int code = handles::BottomRight; code <= handles::Rotation; ++code) {
        QPainterPath square;
        square.addRect(handles::handleSquare(code, frame()));
        path = path.united(square);
    }
    return path.united(handles::outlineStroke(m_outline));
}

bool OperateItem::contains(const QPointF& point) const
{
    return m_target && handles::handleCodeAt(point, frame(), m_outline) != handles::None;
}

void OperateItem::paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*)
{
    if (!m_target)
        return;
    const QRectF f = frame();
    painter->setRenderHint(QPainter::Antialiasing, false);
    painter->setBrush(Qt::NoBrush);
    painter->setPen(QPen(kHandleColor, 1, Qt::DashLine));
    painter->drawRect(f);
    painter->setPen(QPen(kHandleColor, 1));
    const QPointF topMiddle(f.center().x(), f.top());
    painter->drawLine(topMiddle, handles::handleCentre(handles::Rotation, f));

    painter->setBrush(Qt::white);
    for (int code = handles::BottomRight; code <= handles::TopRight; ++code)
        painter->drawRect(handles::handleSquare(code, f));
    painter->setRenderHint(QPainter::Antialiasing, true);
    painter->setBrush(kHandleColor);
    painter->drawEllipse(handles::handleSquare(handles::Rotation, f));
}

void OperateItem::slot_setZvalueTop(double z)
{
    if (z + 1 > zValue())
        setZValue(z + 1);
}

void OperateItem::installCursor(int code)
{
    const char* image = cursorImageFor(code);
    if (!image)
        return;
    QApplication::setOverrideCursor(cursorFromImage(QString::fromLatin1(image), 32));
}

void OperateItem::restoreCursor()
{
    if (m_hoverType != handles::None)
        QApplication::restoreOverrideCursor();
    m_hoverType = handles::None;
}

void OperateItem::hoverEnterEvent(QGraphicsSceneHoverEvent* event)
{
    restoreCursor();
    const int code = handleAt(event->pos());
    qCDebug(lcCanvas) << "hoverEnterEvent" << code;
    if (isCorner(code))
        qCDebug(lcCanvas) << "hovertype" << code;
    installCursor(code);
    m_hoverType = code;
    QGraphicsItem::hoverEnterEvent(event);
}

void OperateItem::hoverMoveEvent(QGraphicsSceneHoverEvent* event)
{
    const int code = handleAt(event->pos());
    if (code != m_hoverType) {
        restoreCursor();
        qCDebug(lcCanvas) << "hoverEnterEvent" << code;
        if (isCorner(code))
            qCDebug(lcCanvas) << "hovertype" << code;
        installCursor(code);
        m_hoverType = code;
    }
    QGraphicsItem::hoverMoveEvent(event);
}

void OperateItem::hoverLeaveEvent(QGraphicsSceneHoverEvent* event)
{
    qCDebug(lcCanvas) << "hoverLeaveEvent";
    restoreCursor();
    QGraphicsItem::hoverLeaveEvent(event);
}

void OperateItem::mousePressEvent(QGraphicsSceneMouseEvent* event)
{
    m_changed = false;
    m_pressType = handleAt(event->pos());
    qCDebug(lcCanvas) << "contains point:" << m_pressType << isSelected();
    if (m_pressType == handles::Rotation) {
        setFlag(ItemIsMovable, false);
        m_angle = 0;
        m_pressRotate = m_rotate;
    } else if (isCorner(m_pressType)) {
        setFlag(ItemIsMovable, false);
        prepareScaling(m_pressType);
    } else if (m_pressType == handles::Outline) {
        setFlag(ItemIsMovable, true);
    }
    QGraphicsItem::mousePressEvent(event);
}

void OperateItem::prepareScaling(int code)
{
    const QRectF rect = m_target->shapeRect().translated(scenePos());
    m_anchor = handles::anchorCorner(code, rect);
    const QPointF grabbed = handles::grabbedCorner(code, rect);
    m_slope = (grabbed.y() - m_anchor.y()) / (grabbed.x() - m_anchor.x());
    m_direction = handles::scaleDirection(code);
}

void OperateItem::mouseMoveEvent(QGraphicsSceneMouseEvent* event)
{
    if (m_pressType == handles::None || !m_target)
        return;
    QGraphicsItem::mouseMoveEvent(event);
    m_changed = true;
    if (m_pressType == handles::Outline)
        m_target->setPos(scenePos());
    else if (m_pressType == handles::Rotation)
        rotateTo(event->scenePos());
    else
        scaleTo(event->scenePos());
    update();
}

void OperateItem::rotateTo(const QPointF& scenePoint)
{
    // Measured in the frame the handles had at the press, so that a second drag goes on from
    // the rotation the first one left.
    const QPointF p = m_pressRotate.inverted().map(scenePoint - scenePos());
    if (p.isNull())
        return;
    const float a = handles::rotationAngle(p.x(), p.y());
    QTransform step;
    step.rotate(a - m_angle);
    m_target->setShapePath(step.map(m_target->shapePath()));
    m_angle = a;

    QTransform rotate = m_pressRotate;
    rotate.rotate(a);
    m_rotate = rotate;
    setTransform(m_rotate);
    m_target->takeTransform(m_rotate);
    m_target->update();
}

void OperateItem::scaleTo(const QPointF& scenePoint)
{
    const QPointF d = handles::clampExtent(m_pressType, scenePoint - m_anchor);
    const QPainterPath path = m_target->shapePath();
    const QRectF r0 = path.boundingRect();
    qreal sx;
    qreal sy;
    if (m_target->shapeTransform().isRotating()) {
        sx = sy = handles::proportionalFactor(d, r0.size(), m_slope, m_direction);
    } else {
        sx = handles::axisFactor(std::abs(d.x()), r0.width());
        sy = handles::axisFactor(std::abs(d.y()), r0.height());
        qCDebug(lcCanvas) << "dist" << d;
        qCDebug(lcCanvas) << sx << sy;
    }
    const QPainterPath scaled = QTransform::fromScale(sx, sy).map(path);
    const QRectF r1 = scaled.boundingRect();
    // The anchor corner stays where it is on the screen.
    const QPointF newPos = m_anchor - handles::anchorCorner(m_pressType, r1);
    m_target->setShapePath(scaled);
    m_target->setPos(newPos);
    setPos(newPos);
    setOutline(m_rotate.inverted().map(scaled));
}

void OperateItem::mouseReleaseEvent(QGraphicsSceneMouseEvent* event)
{
    setFlag(ItemIsMovable, true);
    m_pressType = handles::None;
    if (m_changed && m_target)
        m_target->commitChange();
    m_changed = false;
    QGraphicsItem::mouseReleaseEvent(event);
}
