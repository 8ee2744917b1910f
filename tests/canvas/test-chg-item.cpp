// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "canvas/common-item.h"
#include "canvas/d-data.h"
#include "canvas/draw-manager-ex.h"
#include "canvas/graphics-view.h"

#include <QUndoStack>
#include <QtTest>

class TestChgItem : public QObject
{
    Q_OBJECT

private slots:
    void changesAreUndoneStepByStep();
};

void TestChgItem::changesAreUndoneStepByStep()
{
    pallo::GraphicsView view(true, nullptr);
    DrawManagerEx* manager = view.drawManager();
    manager->slot_figure("rect");
    manager->slot_mousestate("press", 100, 100);
    manager->slot_mousestate("move", 150, 150);
    manager->slot_mousestate("release", 200, 160);
    auto* rect = qgraphicsitem_cast<CommonItem*>(view.scene()->items().first());
    const QPainterPath original = rect->shapePath();
    const QPointF originalPos = rect->pos();

    // What the handles do during a drag, then the commit at release.
    QPainterPath bigger;
    bigger.addRect(-80, -50, 160, 100);
    QTransform turned;
    turned.rotate(15);
    rect->setShapePath(bigger);
    rect->takeTransform(turned);
    rect->setPos(180, 150);
    rect->commitChange();

    QUndoStack* stack = manager->data()->undoStack();
    QCOMPARE(stack->count(), 2);
    QCOMPARE(rect->shapePath(), bigger);
    QCOMPARE(manager->data()->records().first().pos, QPointF(180, 150));

    QPainterPath smaller;
    smaller.addRect(-10, -10, 20, 20);
    rect->setShapePath(smaller);
    rect->setPos(50, 50);
    rect->commitChange();

    stack->undo();
    QCOMPARE(rect->shapePath(), bigger);
    QCOMPARE(rect->pos(), QPointF(180, 150));
    QCOMPARE(rect->shapeTransform(), turned);
    stack->undo();
    QCOMPARE(rect->shapePath(), original);
    QCOMPARE(rect->pos(), originalPos);
    QVERIFY(!rect->shapeTransform().isRotating());
    QCOMPARE(manager->data()->records().first().pos, originalPos);
    stack->redo();
    stack->redo();
    QCOMPARE(rect->shapePath(), smaller);
    QCOMPARE(rect->pos(), QPointF(50, 50));
}

QTEST_MAIN(TestChgItem)
#include "test-chg-item.moc"
