// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "canvas-test-support.h"
#include "canvas/common-item.h"
#include "canvas/curve-item.h"
#include "canvas/d-data.h"
#include "canvas/draw-manager-ex.h"
#include "canvas/erase-item.h"
#include "canvas/graphics-view.h"
#include "canvas/operate-item.h"
#include "canvas/text-itemchange.h"

#include <QUndoStack>
#include <QtTest>
#include <memory>

class TestDData : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void addListsItemOnceAndKeepsItVisible();
    void clearWithNothingSelectedThenUndoRedo();
    void clearWithOnlyEraserStrokesSelectedClearsAll();
    void clearWithRectangleSelectedDeletesOnlyIt();
    void clearWithHandlesSelectedDeletesTheirShape();
    void undoingAddWhileHandlesAttachedHidesThem();
    void emptyTextIsDiscardedWithoutRedoStep();
    void typedTextStays();
    void changeOfUnknownItemIsIgnored();

private:
    void draw(const QString& tool, QPoint from, QPoint to);
    QList<QGraphicsItem*> visibleItems() const;

    std::unique_ptr<pallo::GraphicsView> m_view;
    DrawManagerEx* m_manager = nullptr;
    DData* m_data = nullptr;
};

void TestDData::init()
{
    m_view = std::make_unique<pallo::GraphicsView>(true, nullptr);
    m_view->setWindowState(Qt::WindowNoState);
    m_view->resize(400, 300);
    m_manager = m_view->drawManager();
    m_data = m_manager->data();
}

void TestDData::cleanup()
{
    m_view.reset();
}

void TestDData::draw(const QString& tool, QPoint from, QPoint to)
{
    m_manager->slot_figure(tool);
    m_manager->slot_mousestate("press", from.x(), from.y());
    const QPoint middle = (from + to) / 2;
    m_manager->slot_mousestate("move", middle.x(), middle.y());
    m_manager->slot_mousestate("move", to.x(), to.y());
    m_manager->slot_mousestate("release", to.x(), to.y());
}

QList<QGraphicsItem*> TestDData::visibleItems() const
{
    QList<QGraphicsItem*> visible;
    for (QGraphicsItem* item : m_view->scene()->items()) {
        if (item->isVisible())
            visible << item;
    }
    return visible;
}

void TestDData::addListsItemOnceAndKeepsItVisible()
{
    draw("rect", {10, 10}, {100, 100});
    QCOMPARE(m_data->records().size(), 1);
    const ItemRecord& record = m_data->records().first();
    QVERIFY(record.item->isVisible());
    QCOMPARE(record.figure, QString("rect"));
    QCOMPARE(record.startX, 10);
    QCOMPARE(record.endY, 100);
    QCOMPARE(record.pos, QPointF(55, 55));
    QCOMPARE(m_data->indexOfItem(record.item), 0);

    // Recording an item that is listed already keeps one record.
    StrokeRecord again;
    again.item = record.item;
    m_data->add(again);
    QCOMPARE(m_data->records().size(), 1);
}

void TestDData::clearWithNothingSelectedThenUndoRedo()
{
    draw("brush", {10, 10}, {100, 100});
    draw("rect", {120, 10}, {200, 100});
    draw("arrow", {10, 200}, {200, 250});
    QCOMPARE(visibleItems().size(), 3);
    QVERIFY(m_data->clearOrDelete());
    QVERIFY(visibleItems().isEmpty());
    QCOMPARE(m_view->scene()->items().size(), 3);
    QCOMPARE(alphaAt(renderScene(m_view->scene()), 55, 55), 0);

    m_data->undo();
    QCOMPARE(visibleItems().size(), 3);
    QVERIFY(alphaAt(renderScene(m_view->scene()), 55, 55) > 0);
    m_data->redo();
    QVERIFY(visibleItems().isEmpty());
}

void TestDData::clearWithOnlyEraserStrokesSelectedClearsAll()
{
    draw("brush", {10, 10}, {100, 100});
    draw("erase", {10, 100}, {100, 10});
    QGraphicsItem* eraser = m_view->scene()->items().first();
    QVERIFY(qgraphicsitem_cast<EraseItem*>(eraser));
    eraser->setFlag(QGraphicsItem::ItemIsSelectable, true);
    eraser->setSelected(true);
    QVERIFY(m_data->clearOrDelete());
    QVERIFY(visibleItems().isEmpty());
}

void TestDData::clearWithRectangleSelectedDeletesOnlyIt()
{
    draw("brush", {10, 10}, {100, 100});
    draw("rect", {120, 10}, {200, 100});
    draw("ellipse", {10, 150}, {200, 250});
    auto* rect = m_data->records().at(1).item;
    rect->setFlag(QGraphicsItem::ItemIsSelectable, true);
    rect->setSelected(true);
    QVERIFY(!m_data->clearOrDelete());
    QCOMPARE(visibleItems().size(), 2);
    QVERIFY(!rect->isVisible());
    QCOMPARE(m_data->indexOfItem(rect), -1);
    QCOMPARE(m_data->records().size(), 2);

    m_data->undo();
    QVERIFY(rect->isVisible());
    QCOMPARE(m_data->records().size(), 3);
    QCOMPARE(m_data->indexOfItem(rect), 1);
    m_data->redo();
    QVERIFY(!rect->isVisible());
}

void TestDData::clearWithHandlesSelectedDeletesTheirShape()
{
    draw("rect", {10, 10}, {100, 100});
    draw("line", {120, 10}, {200, 100});
    auto* rect = qgraphicsitem_cast<CommonItem*>(m_data->records().at(0).item);
    OperateItem* handles = OperateItem::instance();
    handles->attachTo(rect);
    handles->setSelected(true);
    QVERIFY(!m_data->clearOrDelete());
    QVERIFY(!rect->isVisible());
    QVERIFY(!handles->isVisible());
    QVERIFY(m_data->records().at(0).item->isVisible());
    QCOMPARE(m_data->records().size(), 1);
}

void TestDData::undoingAddWhileHandlesAttachedHidesThem()
{
    draw("ellipse", {10, 10}, {100, 100});
    auto* ellipse = qgraphicsitem_cast<CommonItem*>(m_data->records().at(0).item);
    OperateItem::instance()->attachTo(ellipse);
    QVERIFY(OperateItem::existing()->isVisible());
    m_data->undo();
    QVERIFY(!ellipse->isVisible());
    QVERIFY(!OperateItem::existing()->isVisible());
    QVERIFY(!OperateItem::existing()->target());
}

void TestDData::emptyTextIsDiscardedWithoutRedoStep()
{
    m_view->show();
    m_view->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_view.get()));
    draw("brush", {10, 10}, {100, 100});
    m_manager->slot_figure("text");
    QTest::mouseClick(m_view->viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(200, 150));
    auto* text = qgraphicsitem_cast<textItemchange*>(m_view->scene()->items().first());
    QVERIFY(text);
    QVERIFY(text->hasFocus());
    QCOMPARE(m_data->undoStack()->count(), 2);

    QTest::mouseClick(m_view->viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(350, 280));
    QVERIFY(!textItemchange::isEditing());
    QVERIFY(!text->isVisible());
    QCOMPARE(visibleItems().size(), 1);
    QCOMPARE(m_data->records().size(), 1);
    QVERIFY(!m_data->undoStack()->canRedo());
    QCOMPARE(m_data->undoStack()->count(), 2);
    // The step left in the text's place does nothing; the stroke stays until the next undo.
    m_data->undo();
    QCOMPARE(visibleItems().size(), 1);
    m_data->undo();
    QVERIFY(visibleItems().isEmpty());
}

void TestDData::typedTextStays()
{
    m_view->show();
    m_view->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_view.get()));
    m_manager->slot_figure("text");
    QTest::mouseClick(m_view->viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(200, 150));
    auto* text = qgraphicsitem_cast<textItemchange*>(m_view->scene()->items().first());
    QTest::keyClicks(m_view->viewport(), "Hi");
    QCOMPARE(text->toPlainText(), QString("Hi"));
    QTest::mouseClick(m_view->viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(350, 280));
    QVERIFY(text->isVisible());
    QCOMPARE(m_data->undoStack()->count(), 1);
    QCOMPARE(text->textInteractionFlags(), Qt::NoTextInteraction);
}

void TestDData::changeOfUnknownItemIsIgnored()
{
    CommonItem stranger(CommonItem::Rect, QPointF(0, 0));
    m_data->slot_changeItem(QPainterPath(), QPointF(1, 1), QTransform(), &stranger);
    CurveItem curve(Qt::red, 3);
    m_data->slot_changePos(QPointF(1, 1), &curve);
    QCOMPARE(m_data->undoStack()->count(), 0);
}

QTEST_MAIN(TestDData)
#include "test-d-data.moc"
