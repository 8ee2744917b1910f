// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "canvas-test-support.h"
#include "canvas/common-item.h"
#include "canvas/cursor-image.h"
#include "canvas/d-data.h"
#include "canvas/draw-manager-ex.h"
#include "canvas/graphics-view.h"
#include "canvas/handle-geometry.h"
#include "canvas/operate-item.h"

#include <QApplication>
#include <QUndoStack>
#include <QtTest>
#include <memory>

namespace {

// The rectangle every test starts from: 100 by 60, from (200, 150) to (300, 210).
const QRectF kRect(200, 150, 100, 60);
const QPointF kCentre(250, 180);

bool fuzzyPoint(const QPointF& a, const QPointF& b, qreal tolerance = 1e-6)
{
    return std::abs(a.x() - b.x()) <= tolerance && std::abs(a.y() - b.y()) <= tolerance;
}

bool fuzzyRect(const QRectF& a, const QRectF& b, qreal tolerance = 1e-6)
{
    return fuzzyPoint(a.topLeft(), b.topLeft(), tolerance) &&
           fuzzyPoint(a.bottomRight(), b.bottomRight(), tolerance);
}

bool samePath(const QPainterPath& a, const QPainterPath& b, qreal tolerance = 1e-6)
{
    if (a.elementCount() != b.elementCount())
        return false;
    for (int i = 0; i < a.elementCount(); ++i) {
        if (!fuzzyPoint(QPointF(a.elementAt(i)), QPointF(b.elementAt(i)), tolerance))
            return false;
    }
    return true;
}

QString describe(const QRectF& r)
{
    return QString("(%1, %2) %3 x %4").arg(r.x()).arg(r.y()).arg(r.width()).arg(r.height());
}

// Where a shape lies on the screen: its path's bounding rectangle in scene coordinates.
QRectF sceneRectOf(CommonItem* item)
{
    return item->shapeRect().translated(item->pos());
}

QTransform rotation(qreal degrees)
{
    QTransform t;
    t.rotate(degrees);
    return t;
}

bool isHandleBlue(QRgb pixel)
{
    return qAlpha(pixel) == 255 && qRed(pixel) < 40 && std::abs(qGreen(pixel) - 120) < 40 &&
           qBlue(pixel) > 170;
}

} // namespace

class TestOperateItem : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void oneInstanceCastsToItsType();
    void handlesArePaintedAroundTheShape();
    void detachHidesTheHandles();
    void cornerOverOutlineScales();
    void rotationHandleSitsAboveTopEdge();
    void rotatingByTheHandle();
    void secondRotationGoesOnFromTheFirst();
    void scalingFreelyKeepsAnchor_data();
    void scalingFreelyKeepsAnchor();
    void scalingRotatedShapeIsProportional_data();
    void scalingRotatedShapeIsProportional();
    void draggingAcrossAnchorStopsAtTen_data();
    void draggingAcrossAnchorStopsAtTen();
    void movingByTheOutline();
    void pressAndReleaseWithoutMovePushesNothing_data();
    void pressAndReleaseWithoutMovePushesNothing();
    void hoverCursors_data();
    void hoverCursors();
    void setZvalueTopRaisesHandles();

private:
    void press(const QPointF& pos);
    void move(const QPointF& pos, Qt::MouseButtons buttons = Qt::LeftButton);
    void release(const QPointF& pos);
    void drag(const QPointF& from, const QVector<QPointF>& path);
    QUndoStack* stack() const { return m_view->drawManager()->data()->undoStack(); }

    std::unique_ptr<pallo::GraphicsView> m_view;
    CommonItem* m_rect = nullptr;
    OperateItem* m_handles = nullptr;
    QPainterPath m_original;
};

void TestOperateItem::init()
{
    m_view = std::make_unique<pallo::GraphicsView>(true, nullptr);
    m_view->setWindowState(Qt::WindowNoState);
    m_view->resize(600, 400);
    m_view->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_view.get()));
    DrawManagerEx* manager = m_view->drawManager();
    manager->slot_color("#ff0000");
    manager->slot_width(3);
    manager->slot_figure("rect");
    manager->slot_mousestate("press", 200, 150);
    manager->slot_mousestate("move", 250, 180);
    manager->slot_mousestate("release", 300, 210);
    m_rect = qgraphicsitem_cast<CommonItem*>(m_view->scene()->items().first());
    QVERIFY(m_rect);
    QCOMPARE(sceneRectOf(m_rect), kRect);
    m_original = m_rect->shapePath();
    manager->slot_figure("drag");
    QVERIFY(m_view->dragMode());
    // A press on the border, as a user picks the shape.
    press(QPointF(250, 150));
    release(QPointF(250, 150));
    m_handles = OperateItem::existing();
    QVERIFY(m_handles);
    QVERIFY(m_handles->isAttachedTo(m_rect));
    QCOMPARE(stack()->count(), 1);
}

void TestOperateItem::cleanup()
{
    m_view.reset();
    m_rect = nullptr;
    m_handles = nullptr;
    QVERIFY(!QApplication::overrideCursor());
}

void TestOperateItem::oneInstanceCastsToItsType()
{
    QCOMPARE(OperateItem::instance(), m_handles);
    QGraphicsItem* item = m_handles;
    QCOMPARE(item->type(), int(QGraphicsItem::UserType + 4));
    QCOMPARE(qgraphicsitem_cast<OperateItem*>(item), m_handles);
    QVERIFY(!qgraphicsitem_cast<CommonItem*>(item));
    QVERIFY(m_handles->flags().testFlag(QGraphicsItem::ItemIsSelectable));
    QCOMPARE(m_handles->scene(), m_view->scene());
    QVERIFY(m_handles->isVisible());
    // The scene owns the handles; with the canvas they are gone.
    m_view.reset();
    QVERIFY(!OperateItem::existing());
}

void TestOperateItem::press(const QPointF& pos)
{
    QTest::mousePress(m_view->viewport(), Qt::LeftButton, Qt::NoModifier, pos.toPoint());
}

void TestOperateItem::move(const QPointF& pos, Qt::MouseButtons buttons)
{
    sendMouseMove(m_view->viewport(), pos, buttons);
}

void TestOperateItem::release(const QPointF& pos)
{
    QTest::mouseRelease(m_view->viewport(), Qt::LeftButton, Qt::NoModifier, pos.toPoint());
}

void TestOperateItem::drag(const QPointF& from, const QVector<QPointF>& path)
{
    press(from);
    for (const QPointF& point : path)
        move(point);
    release(path.isEmpty() ? from : path.last());
}

void TestOperateItem::handlesArePaintedAroundTheShape()
{
    const QImage image = renderScene(m_view->scene(), QSize(600, 400));
    keepPicture(image, "operate-item-handles");
    // White corner squares with a blue border on the four corners.
    for (const QPointF& corner :
         {kRect.topLeft(), kRect.topRight(), kRect.bottomLeft(), kRect.bottomRight()}) {
        const QPoint c = corner.toPoint();
        QCOMPARE(image.pixel(c.x() + 2, c.y() + 2), qRgb(255, 255, 255));
        QVERIFY(isHandleBlue(image.pixel(c.x() + 5, c.y() + 2)));
    }
    // The rotation handle, 20 above the middle of the top edge, joined to it by a line.
    QVERIFY(isHandleBlue(image.pixel(250, 130)));
    QVERIFY(isHandleBlue(image.pixel(250, 140)));
    QCOMPARE(alphaAt(image, 240, 130), 0);
}

void TestOperateItem::detachHidesTheHandles()
{
    // A press on empty canvas takes the handles away.
    press(QPointF(500, 350));
    release(QPointF(500, 350));
    QVERIFY(!m_handles->isVisible());
    QVERIFY(!m_handles->target());
    const QImage image = renderScene(m_view->scene(), QSize(600, 400));
    QCOMPARE(alphaAt(image, 250, 130), 0);
    QCOMPARE(alphaAt(image, 302, 212), 0);
}

void TestOperateItem::cornerOverOutlineScales()
{
    // (298, 208) lies on the stroked border and in the bottom-right corner's square.
    QCOMPARE(m_handles->handleAt(m_handles->mapFromScene(QPointF(298, 208))), 1);
    drag(QPointF(298, 208), {QPointF(320, 230), QPointF(350, 240)});
    QVERIFY2(fuzzyRect(sceneRectOf(m_rect), QRectF(200, 150, 150, 90)),
             qPrintable(describe(sceneRectOf(m_rect))));
}

void TestOperateItem::rotationHandleSitsAboveTopEdge()
{
    const QPointF handle =
        m_handles->mapToScene(handles::handleCentre(handles::Rotation, m_handles->frame()));
    QVERIFY(fuzzyPoint(handle, QPointF(250, 130)));
    QCOMPARE(m_handles->handleAt(m_handles->mapFromScene(QPointF(250, 130))), 5);
    QCOMPARE(m_handles->handleAt(m_handles->mapFromScene(QPointF(250, 141))), -1);

    // Turned a quarter to the right, the handle is 20 beyond the edge that was on top.
    drag(QPointF(250, 130), {QPointF(300, 130), QPointF(350, 180)});
    const QPointF turned =
        m_handles->mapToScene(handles::handleCentre(handles::Rotation, m_handles->frame()));
    QVERIFY2(fuzzyPoint(turned, QPointF(300, 180), 1e-3),
             qPrintable(QString("%1 %2").arg(turned.x()).arg(turned.y())));
    QCOMPARE(m_handles->handleAt(m_handles->mapFromScene(QPointF(300, 180))), 5);
    const QImage image = renderScene(m_view->scene(), QSize(600, 400));
    keepPicture(image, "operate-item-rotated");
    QVERIFY(isHandleBlue(image.pixel(300, 180)));
    QVERIFY(!isHandleBlue(image.pixel(250, 130)));
}

void TestOperateItem::rotatingByTheHandle()
{
    QSignalSpy changes(m_rect, &CommonItem::signal_changeItem);
    press(QPointF(250, 130));
    move(QPointF(300, 150));
    const float a1 = handles::rotationAngle(50, -30);
    QVERIFY(samePath(m_rect->shapePath(), rotation(a1).map(m_original)));
    move(QPointF(290, 220));
    const float a2 = handles::rotationAngle(40, 40);
    const QPainterPath expected = rotation(a2 - a1).map(rotation(a1).map(m_original));
    QVERIFY(samePath(m_rect->shapePath(), expected));
    QCOMPARE(m_rect->shapeTransform(), rotation(a2));
    QCOMPARE(m_handles->transform(), rotation(a2));
    QCOMPARE(m_rect->pos(), kCentre);
    QCOMPARE(changes.count(), 0);
    release(QPointF(290, 220));

    QCOMPARE(changes.count(), 1);
    QCOMPARE(stack()->count(), 2);
    const QPainterPath rotated = m_rect->shapePath();
    stack()->undo();
    QCOMPARE(m_rect->shapePath(), m_original);
    QVERIFY(!m_rect->shapeTransform().isRotating());
    QCOMPARE(m_rect->pos(), kCentre);
    // The handles follow the shape back.
    QVERIFY(!m_handles->transform().isRotating());
    QCOMPARE(m_handles->handleAt(m_handles->mapFromScene(QPointF(250, 130))), 5);
    stack()->redo();
    QCOMPARE(m_rect->shapePath(), rotated);
    QCOMPARE(m_rect->shapeTransform(), rotation(a2));
    QCOMPARE(m_handles->transform(), rotation(a2));
}

void TestOperateItem::secondRotationGoesOnFromTheFirst()
{
    drag(QPointF(250, 130), {QPointF(350, 180)});
    const float a1 = handles::rotationAngle(100, 0);
    // The handle is now right of the centre; dragging it below the centre turns on by 90.
    const QPointF handle =
        m_handles->mapToScene(handles::handleCentre(handles::Rotation, m_handles->frame()));
    drag(handle, {QPointF(250, 260)});
    // Measured from where the handle was at the press: a quarter turn again.
    const float a2 = handles::rotationAngle(80, 0);
    QVERIFY(samePath(m_rect->shapePath(), rotation(a1 + a2).map(m_original), 1e-3));
    QVERIFY(std::abs(m_rect->shapeTransform().map(QPointF(0, -1)).y() - 1) < 1e-5);
    QCOMPARE(stack()->count(), 3);
    stack()->undo();
    QVERIFY(samePath(m_rect->shapePath(), rotation(a1).map(m_original)));
    stack()->undo();
    QCOMPARE(m_rect->shapePath(), m_original);
}

void TestOperateItem::scalingFreelyKeepsAnchor_data()
{
    QTest::addColumn<QPointF>("grab");
    QTest::addColumn<QPointF>("anchor");
    QTest::addColumn<QPointF>("drop");
    QTest::newRow("1 bottom-right") << kRect.bottomRight() << kRect.topLeft() << QPointF(350, 240);
    QTest::newRow("2 bottom-left") << kRect.bottomLeft() << kRect.topRight() << QPointF(150, 250);
    QTest::newRow("3 top-left") << kRect.topLeft() << kRect.bottomRight() << QPointF(170, 130);
    QTest::newRow("4 top-right") << kRect.topRight() << kRect.bottomLeft() << QPointF(320, 100);
    QTest::newRow("1 smaller") << kRect.bottomRight() << kRect.topLeft() << QPointF(240, 170);
}

void TestOperateItem::scalingFreelyKeepsAnchor()
{
    QFETCH(QPointF, grab);
    QFETCH(QPointF, anchor);
    QFETCH(QPointF, drop);
    press(grab);
    // On every step the anchor corner stays where it is on the screen.
    const QPointF step = grab + (drop - grab) / 2 + QPointF(3, -2);
    for (const QPointF& point : {step, drop}) {
        move(point);
        const QRectF expected = QRectF(anchor, point).normalized();
        QVERIFY2(fuzzyRect(sceneRectOf(m_rect), expected),
                 qPrintable(describe(sceneRectOf(m_rect)) + " vs " + describe(expected)));
    }
    release(drop);

    const QRectF expected = QRectF(anchor, drop).normalized();
    QPainterPath path;
    path.addRect(-expected.width() / 2, -expected.height() / 2, expected.width(),
                 expected.height());
    QVERIFY(samePath(m_rect->shapePath(), path));
    QVERIFY(fuzzyPoint(m_rect->pos(), expected.center()));
    QVERIFY(fuzzyPoint(m_handles->pos(), expected.center()));
    QVERIFY(!m_rect->shapeTransform().isRotating());

    const QImage image = renderScene(m_view->scene(), QSize(600, 400));
    // The red border now runs along the new edges, inside the dragged rectangle.
    const QPoint inside = (expected.topLeft() + QPointF(1, expected.height() / 2)).toPoint();
    QVERIFY(qRed(image.pixel(inside)) > 200);
    QCOMPARE(stack()->count(), 2);
    stack()->undo();
    QCOMPARE(m_rect->shapePath(), m_original);
    QCOMPARE(m_rect->pos(), kCentre);
    QCOMPARE(m_handles->pos(), kCentre);
    QCOMPARE(m_handles->frame(), m_original.boundingRect());
    stack()->redo();
    QVERIFY(samePath(m_rect->shapePath(), path));
    QVERIFY(fuzzyPoint(m_rect->pos(), expected.center()));
}

void TestOperateItem::scalingRotatedShapeIsProportional_data()
{
    QTest::addColumn<int>("code");
    // Where the pointer ends, from the anchor, in widths and heights of the turned shape's
    // bounding rectangle; the larger of the two gives the factor.
    QTest::addColumn<qreal>("kx");
    QTest::addColumn<qreal>("ky");
    QTest::newRow("1 by width") << 1 << 1.5 << 1.2;
    QTest::newRow("1 by height") << 1 << 1.1 << 1.25;
    QTest::newRow("2 by width") << 2 << 1.5 << 1.0;
    QTest::newRow("2 by height") << 2 << 0.75 << 0.9;
    QTest::newRow("3 by width") << 3 << 1.25 << 0.5;
    QTest::newRow("3 by height") << 3 << 1.0 << 1.5;
    QTest::newRow("4 by width") << 4 << 0.8 << 0.6;
    QTest::newRow("4 by height") << 4 << 1.0 << 2.0;
}

void TestOperateItem::scalingRotatedShapeIsProportional()
{
    QFETCH(int, code);
    QFETCH(qreal, kx);
    QFETCH(qreal, ky);
    // Turn the shape a little first.
    drag(QPointF(250, 130), {QPointF(265, 130)});
    const float a = handles::rotationAngle(15, -50);
    const QPainterPath turned = m_rect->shapePath();
    QVERIFY(samePath(turned, rotation(a).map(m_original)));
    QVERIFY(m_rect->shapeTransform().isRotating());
    QCOMPARE(stack()->count(), 2);

    const QRectF r0 = sceneRectOf(m_rect);
    const QPointF anchor = handles::anchorCorner(code, r0);
    const QPointF grab = m_handles->mapToScene(handles::handleCentre(code, m_handles->frame()));
    QCOMPARE(m_handles->handleAt(m_handles->mapFromScene(grab)), code);
    const QPointF away = handles::grabbedCorner(code, r0) - anchor;
    const QPointF drop = anchor + QPointF((away.x() > 0 ? kx : -kx) * r0.width(),
                                          (away.y() > 0 ? ky : -ky) * r0.height());
    press(grab);
    move(drop);
    release(drop);

    // The view hands whole pixels on; the factor comes from where the pointer really was.
    const QPointF d = QPointF(drop.toPoint()) - anchor;
    const qreal f = std::max(std::abs(d.x()) / r0.width(), std::abs(d.y()) / r0.height());
    QVERIFY(std::abs(f - std::max(kx, ky)) < 0.05);
    QVERIFY(samePath(m_rect->shapePath(), QTransform::fromScale(f, f).map(turned), 1e-6));
    const QRectF r1 = sceneRectOf(m_rect);
    QVERIFY2(fuzzyPoint(handles::anchorCorner(code, r1), anchor),
             qPrintable(describe(r1) + " vs " + describe(r0)));
    QVERIFY(std::abs(r1.width() - f * r0.width()) < 1e-6);
    QCOMPARE(m_rect->shapeTransform(), rotation(a));

    QCOMPARE(stack()->count(), 3);
    stack()->undo();
    QCOMPARE(m_rect->shapePath(), turned);
    QVERIFY(fuzzyRect(sceneRectOf(m_rect), r0));
    stack()->undo();
    QCOMPARE(m_rect->shapePath(), m_original);
    QCOMPARE(m_rect->pos(), kCentre);
    stack()->redo();
    stack()->redo();
    QVERIFY(fuzzyPoint(handles::anchorCorner(code, sceneRectOf(m_rect)), anchor));
}

void TestOperateItem::draggingAcrossAnchorStopsAtTen_data()
{
    QTest::addColumn<QPointF>("grab");
    QTest::addColumn<QPointF>("anchor");
    QTest::addColumn<QPointF>("drop");
    QTest::addColumn<QRectF>("expected");
    QTest::newRow("1") << kRect.bottomRight() << kRect.topLeft() << QPointF(100, 100)
                       << QRectF(200, 150, 10, 10);
    QTest::newRow("2") << kRect.bottomLeft() << kRect.topRight() << QPointF(400, 120)
                       << QRectF(290, 150, 10, 10);
    QTest::newRow("3") << kRect.topLeft() << kRect.bottomRight() << QPointF(380, 300)
                       << QRectF(290, 200, 10, 10);
    QTest::newRow("4") << kRect.topRight() << kRect.bottomLeft() << QPointF(150, 350)
                       << QRectF(200, 200, 10, 10);
    QTest::newRow("1 x only") << kRect.bottomRight() << kRect.topLeft() << QPointF(120, 260)
                              << QRectF(200, 150, 10, 110);
}

void TestOperateItem::draggingAcrossAnchorStopsAtTen()
{
    QFETCH(QPointF, grab);
    QFETCH(QPointF, anchor);
    QFETCH(QPointF, drop);
    QFETCH(QRectF, expected);
    drag(grab, {(grab + drop) / 2, drop});
    QVERIFY2(fuzzyRect(sceneRectOf(m_rect), expected), qPrintable(describe(sceneRectOf(m_rect))));
    // The anchor is a corner of the small rectangle that is left.
    QVERIFY(fuzzyPoint(anchor, expected.topLeft()) || fuzzyPoint(anchor, expected.topRight()) ||
            fuzzyPoint(anchor, expected.bottomLeft()) ||
            fuzzyPoint(anchor, expected.bottomRight()));
    stack()->undo();
    QCOMPARE(sceneRectOf(m_rect), kRect);
}

void TestOperateItem::movingByTheOutline()
{
    QSignalSpy changes(m_rect, &CommonItem::signal_changeItem);
    drag(QPointF(250, 150), {QPointF(260, 160), QPointF(270, 175)});
    QCOMPARE(m_rect->pos(), kCentre + QPointF(20, 25));
    QCOMPARE(m_handles->pos(), m_rect->pos());
    QCOMPARE(m_rect->shapePath(), m_original);
    QCOMPARE(changes.count(), 1);
    QCOMPARE(changes.first().at(1).toPointF(), kCentre + QPointF(20, 25));
    QCOMPARE(stack()->count(), 2);
    stack()->undo();
    QCOMPARE(m_rect->pos(), kCentre);
    QCOMPARE(m_handles->pos(), kCentre);
    stack()->redo();
    QCOMPARE(m_rect->pos(), kCentre + QPointF(20, 25));
}

void TestOperateItem::pressAndReleaseWithoutMovePushesNothing_data()
{
    QTest::addColumn<QPointF>("point");
    QTest::newRow("outline") << QPointF(250, 150);
    QTest::newRow("corner") << kRect.bottomRight();
    QTest::newRow("rotation") << QPointF(250, 130);
}

void TestOperateItem::pressAndReleaseWithoutMovePushesNothing()
{
    QFETCH(QPointF, point);
    QSignalSpy changes(m_rect, &CommonItem::signal_changeItem);
    press(point);
    release(point);
    QCOMPARE(changes.count(), 0);
    QCOMPARE(stack()->count(), 1);
    QCOMPARE(m_rect->shapePath(), m_original);
    QCOMPARE(m_rect->pos(), kCentre);
    // The same press with a movement is one step.
    drag(point, {point + QPointF(7, 9)});
    QCOMPARE(changes.count(), 1);
    QCOMPARE(stack()->count(), 2);
    QVERIFY(m_rect->shapePath() != m_original || m_rect->pos() != kCentre);
}

void TestOperateItem::hoverCursors_data()
{
    QTest::addColumn<QPointF>("point");
    QTest::addColumn<QString>("image");
    QTest::newRow("outline") << QPointF(230, 150) << ":/images/move.png";
    QTest::newRow("bottom-right") << kRect.bottomRight() << ":/images/scale.png";
    QTest::newRow("bottom-left") << kRect.bottomLeft() << ":/images/scale2.png";
    QTest::newRow("top-left") << kRect.topLeft() << ":/images/scale.png";
    QTest::newRow("top-right") << kRect.topRight() << ":/images/scale2.png";
    QTest::newRow("rotation") << QPointF(250, 130) << ":/images/rotate.png";
}

void TestOperateItem::hoverCursors()
{
    QFETCH(QPointF, point);
    QFETCH(QString, image);
    move(QPointF(500, 350), Qt::NoButton);
    QVERIFY(!QApplication::overrideCursor());
    move(point, Qt::NoButton);
    QVERIFY(QApplication::overrideCursor());
    const QCursor expected = cursorFromImage(image, 32);
    QCOMPARE(QApplication::overrideCursor()->pixmap().toImage(), expected.pixmap().toImage());
    QCOMPARE(QApplication::overrideCursor()->pixmap().size(), QSize(32, 32));
    QCOMPARE(QApplication::overrideCursor()->hotSpot(), QPoint(16, 16));
    // From the handle onto the middle of the left edge: the move cursor replaces it.
    move(QPointF(200, 180), Qt::NoButton);
    QCOMPARE(QApplication::overrideCursor()->pixmap().toImage(),
             cursorFromImage(":/images/move.png", 32).pixmap().toImage());
    // Leaving restores the cursor the canvas had: every installed cursor was taken back.
    move(QPointF(500, 350), Qt::NoButton);
    QVERIFY(!QApplication::overrideCursor());
}

void TestOperateItem::setZvalueTopRaisesHandles()
{
    const qreal before = m_handles->zValue();
    m_handles->slot_setZvalueTop(before - 100);
    QCOMPARE(m_handles->zValue(), before);
    // An item raised above the handles would cover them, until the handles are raised too.
    auto* cover = m_view->scene()->addRect(290, 200, 20, 20, QPen(Qt::NoPen), QBrush(Qt::green));
    cover->setZValue(before + 50);
    QCOMPARE(renderScene(m_view->scene(), QSize(600, 400)).pixel(302, 212), qRgb(0, 255, 0));
    m_handles->slot_setZvalueTop(before + 50);
    QVERIFY(m_handles->zValue() > before + 50);
    QCOMPARE(renderScene(m_view->scene(), QSize(600, 400)).pixel(302, 212), qRgb(255, 255, 255));
}

QTEST_MAIN(TestOperateItem)
#include "test-operate-item.moc"
