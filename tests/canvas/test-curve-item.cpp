// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "bench/viewport-recorder.h"
#include "canvas-test-support.h"
#include "canvas/curve-item.h"
#include "canvas/d-data.h"
#include "canvas/draw-manager-ex.h"
#include "canvas/graphics-view.h"

#include <QApplication>
#include <QGraphicsSceneHoverEvent>
#include <QSignalSpy>
#include <QUndoStack>
#include <QtMath>
#include <QtTest>
#include <memory>

class TestCurveItem : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();
    void castsToItsType();
    void strokesOfOnePenShareIt();
    void selectedStrokeIsDarker();
    void hoverWithEraserLeavesCursor();
    void draggingMovesAndUndoes();
    void eraserDoesNotMoveIt();
    void growingStrokeRepaintsLikeAFullRepaint_data();
    void growingStrokeRepaintsLikeAFullRepaint();
    void movedStrokeRepaintsPartLikeWhole();
    void finishedStrokeIsFoundOnlyNearItsInk();
};

void TestCurveItem::cleanup()
{
    while (QApplication::overrideCursor())
        QApplication::restoreOverrideCursor();
}

void TestCurveItem::castsToItsType()
{
    CurveItem curve(Qt::red, 3);
    QGraphicsItem* item = &curve;
    QCOMPARE(item->type(), int(QGraphicsItem::UserType + 2));
    QCOMPARE(qgraphicsitem_cast<CurveItem*>(item), &curve);
    QVERIFY(!qgraphicsitem_cast<QGraphicsPathItem*>(item));
}

void TestCurveItem::strokesOfOnePenShareIt()
{
    CurveItem first(QColor(255, 0, 0, 127), 30);
    CurveItem second(QColor(255, 0, 0, 127), 30);
    CurveItem other(QColor(0, 0, 255), 30);
    QPen firstPen = first.pen();
    QPen secondPen = second.pen();
    QPen otherPen = other.pen();
    QCOMPARE(firstPen.data_ptr(), secondPen.data_ptr());
    QVERIFY(otherPen.data_ptr() != firstPen.data_ptr());
    for (const QPen& pen : {firstPen, otherPen}) {
        QCOMPARE(pen.width(), 30);
        QCOMPARE(pen.capStyle(), Qt::FlatCap);
    }
    QCOMPARE(firstPen.color(), QColor(255, 0, 0, 127));
    QCOMPARE(otherPen.color(), QColor(0, 0, 255));
}

void TestCurveItem::selectedStrokeIsDarker()
{
    QGraphicsScene scene;
    auto* curve = new CurveItem(QColor(200, 0, 0), 6);
    QPainterPath path(QPointF(50, 100));
    path.lineTo(300, 100);
    curve->setPath(path);
    scene.addItem(curve);
    QCOMPARE(qRed(renderScene(&scene).pixel(150, 100)), 200);
    curve->setFlag(QGraphicsItem::ItemIsSelectable, true);
    curve->setSelected(true);
    QCOMPARE(qRed(renderScene(&scene).pixel(150, 100)), QColor(200, 0, 0).darker(150).red());
    // Flat caps: nothing beyond the ends.
    QCOMPARE(alphaAt(renderScene(&scene), 48, 100), 0);
}

void TestCurveItem::hoverWithEraserLeavesCursor()
{
    pallo::GraphicsView view(true, nullptr);
    auto* curve = new CurveItem(Qt::red, 3);
    view.scene()->addItem(curve);
    curve->setAcceptHoverEvents(true);
    view.drawManager()->slot_figure("erase");
    QGraphicsSceneHoverEvent enter(QEvent::GraphicsSceneHoverEnter);
    view.scene()->sendEvent(curve, &enter);
    QVERIFY(!QApplication::overrideCursor());
    view.drawManager()->slot_figure("drag");
    view.scene()->sendEvent(curve, &enter);
    QVERIFY(QApplication::overrideCursor());
}

void TestCurveItem::draggingMovesAndUndoes()
{
    qRegisterMetaType<QGraphicsPathItem*>();
    pallo::GraphicsView view(true, nullptr);
    QVERIFY(showAsWindow(view, QSize(400, 300)));
    DrawManagerEx* manager = view.drawManager();
    manager->slot_figure("brush");
    manager->slot_mousestate("press", 50, 100);
    manager->slot_mousestate("move", 100, 100);
    manager->slot_mousestate("move", 200, 100);
    manager->slot_mousestate("release", 200, 100);
    auto* curve = qgraphicsitem_cast<CurveItem*>(view.scene()->items().first());
    QSignalSpy moved(curve, &CurveItem::singal_changePos);

    manager->slot_figure("drag");
    QWidget* viewport = view.viewport();
    dragWithMouse(viewport, QPoint(150, 100), QPoint(170, 130));

    QCOMPARE(moved.count(), 1);
    QCOMPARE(curve->pos(), QPointF(20, 30));
    QCOMPARE(moved.at(0).at(0).toPointF(), QPointF(20, 30));
    QUndoStack* stack = manager->data()->undoStack();
    QCOMPARE(stack->count(), 2);
    QCOMPARE(manager->data()->records().first().pos, QPointF(20, 30));
    stack->undo();
    QCOMPARE(curve->pos(), QPointF(0, 0));
    QCOMPARE(manager->data()->records().first().pos, QPointF(0, 0));
    stack->redo();
    QCOMPARE(curve->pos(), QPointF(20, 30));

    // A second drag of the same stroke is one more step, not two.
    dragWithMouse(viewport, QPoint(170, 130), QPoint(180, 130));
    QCOMPARE(moved.count(), 2);
    QCOMPARE(stack->count(), 3);
    QCOMPARE(manager->data()->records().first().pos, QPointF(30, 30));
    stack->undo();
    QCOMPARE(curve->pos(), QPointF(20, 30));
    QCOMPARE(stack->index(), 2);
}

void TestCurveItem::eraserDoesNotMoveIt()
{
    pallo::GraphicsView view(true, nullptr);
    auto* curve = new CurveItem(Qt::red, 3);
    QPainterPath path(QPointF(50, 100));
    path.lineTo(300, 100);
    curve->setPath(path);
    view.scene()->addItem(curve);
    curve->setFlag(QGraphicsItem::ItemIsMovable, true);
    view.drawManager()->slot_figure("erase");
    QGraphicsSceneMouseEvent press(QEvent::GraphicsSceneMousePress);
    press.setButton(Qt::LeftButton);
    press.setScenePos(QPointF(100, 100));
    view.scene()->sendEvent(curve, &press);
    QVERIFY(!press.isAccepted());
    QGraphicsSceneMouseEvent move(QEvent::GraphicsSceneMouseMove);
    move.setScenePos(QPointF(150, 150));
    view.scene()->sendEvent(curve, &move);
    QCOMPARE(curve->pos(), QPointF(0, 0));
}

void TestCurveItem::growingStrokeRepaintsLikeAFullRepaint_data()
{
    QTest::addColumn<QString>("tool");
    QTest::newRow("pen") << "brush";
    QTest::newRow("highlighter") << "highlighter";
}

void TestCurveItem::growingStrokeRepaintsLikeAFullRepaint()
{
    QFETCH(QString, tool);
    const QSize size(400, 300);
    pallo::GraphicsView view(true, nullptr);
    QVERIFY(showAsWindow(view, size));
    auto* recorder = new ViewportRecorder(view.viewport(), size);
    recorder->repaintAll();

    DrawManagerEx* manager = view.drawManager();
    manager->slot_color("#ff0000");
    manager->slot_width(3);
    manager->slot_figure(tool);
    // Out along a line, then back and forth across it: the stroke grows and crosses itself,
    // and every move is repainted on its own as on screen.
    manager->slot_mousestate("press", 30, 150);
    recorder->settle();
    for (int x = 34; x <= 370; x += 4) {
        manager->slot_mousestate("move", x, 150);
        recorder->settle();
    }
    for (int i = 0; i < 160; ++i) {
        const int x = 360 - i * 2;
        const int y = 150 + qRound(100 * qSin(i / 6.0));
        manager->slot_mousestate("move", x, y);
        recorder->settle();
    }
    manager->slot_mousestate("release", 40, 150);
    recorder->settle();
    const QImage incremental = recorder->image();
    keepPicture(incremental, "curve-item-incremental-" + tool);

    recorder->repaintAll();
    QCOMPARE(incremental, recorder->image());
    // The stroke is there, painted once: no darker where it crosses itself.
    const int crossing = qAlpha(incremental.pixel(360, 150));
    QVERIFY(crossing > 100);
    QCOMPARE(qAlpha(incremental.pixel(100, 150)), qAlpha(incremental.pixel(50, 150)));
    QCOMPARE(crossing, qAlpha(incremental.pixel(50, 150)));
}

void TestCurveItem::movedStrokeRepaintsPartLikeWhole()
{
    const QSize size(400, 300);
    pallo::GraphicsView view(true, nullptr);
    QVERIFY(showAsWindow(view, size));
    auto* recorder = new ViewportRecorder(view.viewport(), size);
    DrawManagerEx* manager = view.drawManager();
    manager->slot_figure("rect");
    manager->slot_mousestate("press", 20, 20);
    manager->slot_mousestate("move", 120, 90);
    manager->slot_mousestate("release", 120, 90);
    manager->slot_figure("highlighter");
    manager->slot_mousestate("press", 20, 150);
    for (int i = 1; i <= 200; ++i)
        manager->slot_mousestate("move", 20 + i, 150 + qRound(60 * qSin(i / 8.0)));
    manager->slot_mousestate("release", 220, 150);
    auto* curve = qgraphicsitem_cast<CurveItem*>(view.scene()->items().first());
    QVERIFY(curve);
    curve->setPos(37, -21);
    recorder->settle();
    recorder->repaintAll();
    const QImage whole = recorder->image();

    // Small repaints across the moved stroke, one at a time.
    for (int x = 40; x < 280; x += 13) {
        view.viewport()->update(QRect(x, 100, 9, 90));
        recorder->settle();
    }
    QCOMPARE(recorder->image(), whole);
    QVERIFY(qAlpha(whole.pixel(57 + 37, 150 - 21 + qRound(60 * qSin(37 / 8.0)))) > 100);
}

void TestCurveItem::finishedStrokeIsFoundOnlyNearItsInk()
{
    pallo::GraphicsView view(true, nullptr);
    view.resize(400, 300);
    DrawManagerEx* manager = view.drawManager();
    manager->slot_figure("brush");
    manager->slot_width(3);
    manager->slot_mousestate("press", 50, 100);
    manager->slot_mousestate("move", 100, 104);
    // While it grows, the stroke keeps room around it to grow into.
    auto* curve = qgraphicsitem_cast<CurveItem*>(view.scene()->items().first());
    QVERIFY(curve);
    manager->slot_mousestate("move", 200, 110);
    QVERIFY(curve->boundingRect().top() <= 110 - 24);
    manager->slot_mousestate("release", 200, 110);

    // Finished, it reaches half its width and two pixels beyond its points, no farther: the
    // scene finds it under an area 10 px below its ink no more.
    QCOMPARE(curve->boundingRect(),
             QRectF(QPointF(50, 100), QPointF(200, 110)).adjusted(-3.5, -3.5, 3.5, 3.5));
    QVERIFY(view.scene()->items(QRectF(60, 125, 100, 10)).isEmpty());
    QCOMPARE(view.scene()->items(QRectF(60, 100, 100, 10)).size(), 1);
}

QTEST_MAIN(TestCurveItem)
#include "test-curve-item.moc"
