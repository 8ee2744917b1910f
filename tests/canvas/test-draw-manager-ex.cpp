// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "canvas-test-support.h"
#include "canvas/common-item.h"
#include "canvas/curve-item.h"
#include "canvas/d-data.h"
#include "canvas/draw-manager-ex.h"
#include "canvas/erase-item.h"
#include "canvas/graphics-view.h"
#include "canvas/text-itemchange.h"

#include <QSignalSpy>
#include <QUndoStack>
#include <QtTest>
#include <memory>

class TestDrawManagerEx : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void figureEmitsCursorAndSetsPen_data();
    void figureEmitsCursorAndSetsPen();
    void redPenStrokeWhereTheMouseWent();
    void highlighterIsWideAndHalfTransparent();
    void highlighterCrossingItselfIsNoDarker();
    void brushAfterHighlighterUsesChosenWidthAndFullAlpha();
    void delayedEraseStrokeVanishesButStaysInHistory();
    void lineDraggedRightToLeft();
    void eraserOfManyMovesIsOneItem();
    void eraserClearsPixelsAndUndoBringsThemBack();
    void pressAndReleaseWithoutMoveLeavesNothing_data();
    void pressAndReleaseWithoutMoveLeavesNothing();
    void moveWithoutPressIsIgnored();
    void unknownFigureDrawsNothing();
    void textPressWhileEditingMakesNoSecondText();
    void textBoldOnlyAtSize22_data();
    void textBoldOnlyAtSize22();
    void colourAndWidthDeselectItems();
    void editorLostFocusDeletesEmptyText();

private:
    void stroke(const QVector<QPoint>& points);
    QList<QGraphicsItem*> visibleItems() const;

    std::unique_ptr<pallo::GraphicsView> m_view;
    DrawManagerEx* m_manager = nullptr;
};

void TestDrawManagerEx::init()
{
    m_view = std::make_unique<pallo::GraphicsView>(true, nullptr);
    m_view->resize(400, 300);
    m_manager = m_view->drawManager();
    m_manager->slot_color("#ff0000");
    m_manager->slot_width(3);
    m_manager->slot_figure("brush");
}

void TestDrawManagerEx::cleanup()
{
    m_view.reset();
}

void TestDrawManagerEx::stroke(const QVector<QPoint>& points)
{
    m_manager->slot_mousestate("press", points.first().x(), points.first().y());
    for (int i = 1; i < points.size(); ++i)
        m_manager->slot_mousestate("move", points.at(i).x(), points.at(i).y());
    m_manager->slot_mousestate("release", points.last().x(), points.last().y());
}

QList<QGraphicsItem*> TestDrawManagerEx::visibleItems() const
{
    QList<QGraphicsItem*> visible;
    for (QGraphicsItem* item : m_view->scene()->items()) {
        if (item->isVisible())
            visible << item;
    }
    return visible;
}

void TestDrawManagerEx::figureEmitsCursorAndSetsPen_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("figure");
    QTest::addColumn<QString>("cursor");
    QTest::addColumn<int>("factor");
    QTest::addColumn<int>("alpha");
    QTest::addColumn<bool>("delayErase");
    QTest::newRow("brush") << "brush"
                           << "curve"
                           << "curve" << 1 << 255 << false;
    QTest::newRow("highlighter") << "highlighter"
                                 << "curve"
                                 << "highlighter" << 10 << 127 << false;
    QTest::newRow("delayerase") << "delayerase"
                                << "curve"
                                << "delayerase" << 1 << 255 << true;
    QTest::newRow("erase") << "erase"
                           << "erase"
                           << "erase" << 1 << 255 << false;
    QTest::newRow("drag") << "drag"
                          << "drag"
                          << "drag" << 1 << 255 << false;
    QTest::newRow("rect") << "rect"
                          << "rect"
                          << "normal" << 1 << 255 << false;
    QTest::newRow("text") << "text"
                          << "text"
                          << "normal" << 1 << 255 << false;
    QTest::newRow("unknown") << "spray"
                             << "spray"
                             << "normal" << 1 << 255 << false;
}

void TestDrawManagerEx::figureEmitsCursorAndSetsPen()
{
    QFETCH(QString, name);
    m_manager->slot_figure("highlighter");
    m_manager->slot_figure("delayerase");
    QSignalSpy cursors(m_manager, &DrawManagerEx::sg_cursor);
    m_manager->slot_figure(name);
    QCOMPARE(cursors.count(), 1);
    QTEST(cursors.at(0).at(0).toString(), "cursor");
    DData* data = m_manager->data();
    QTEST(data->figure, "figure");
    QTEST(data->widthFactor, "factor");
    QTEST(data->alpha, "alpha");
    QTEST(data->delayErase, "delayErase");
}

void TestDrawManagerEx::redPenStrokeWhereTheMouseWent()
{
    stroke({{50, 100}, {100, 100}, {200, 100}, {300, 100}, {300, 200}});
    const QImage image = renderScene(m_view->scene());
    keepPicture(image, "pen-stroke");
    for (QPoint p : {QPoint(120, 100), QPoint(250, 100), QPoint(300, 150)}) {
        QCOMPARE(alphaAt(image, p.x(), p.y()), 255);
        QCOMPARE(qRed(image.pixel(p)), 255);
        QCOMPARE(qGreen(image.pixel(p)), 0);
    }
    QCOMPARE(alphaAt(image, 200, 150), 0);
    QCOMPARE(alphaAt(image, 200, 104), 0);
    QCOMPARE(m_manager->data()->records().size(), 1);
    QVERIFY(qgraphicsitem_cast<CurveItem*>(m_manager->data()->records().first().item));
}

void TestDrawManagerEx::highlighterIsWideAndHalfTransparent()
{
    m_manager->slot_figure("highlighter");
    stroke({{100, 150}, {150, 150}, {250, 150}, {300, 150}});
    auto* curve = qgraphicsitem_cast<CurveItem*>(m_view->scene()->items().first());
    QCOMPARE(curve->penWidth(), 30);
    QCOMPARE(curve->penColor().alpha(), 127);
    const QImage image = renderScene(m_view->scene());
    keepPicture(image, "highlighter");
    QCOMPARE(opaqueInColumn(image, 200, 100), 30);
    QCOMPARE(alphaAt(image, 200, 150), 127);
    QCOMPARE(alphaAt(image, 200, 134), 0);
    QCOMPARE(alphaAt(image, 200, 165), 0);
}

void TestDrawManagerEx::highlighterCrossingItselfIsNoDarker()
{
    m_manager->slot_figure("highlighter");
    stroke({{50, 150}, {60, 150}, {300, 150}, {300, 250}, {200, 250}, {200, 50}});
    const QImage image = renderScene(m_view->scene());
    keepPicture(image, "highlighter-crossing");
    QCOMPARE(alphaAt(image, 200, 150), 127);
    QCOMPARE(alphaAt(image, 120, 150), 127);

    // A second stroke over the first adds up.
    stroke({{150, 100}, {160, 100}, {150, 200}});
    const QImage twice = renderScene(m_view->scene());
    QVERIFY(alphaAt(twice, 152, 150) > 127);
}

void TestDrawManagerEx::brushAfterHighlighterUsesChosenWidthAndFullAlpha()
{
    m_manager->slot_figure("highlighter");
    m_manager->slot_figure("brush");
    stroke({{100, 150}, {150, 150}, {300, 150}});
    auto* curve = qgraphicsitem_cast<CurveItem*>(m_view->scene()->items().first());
    QCOMPARE(curve->penWidth(), 3);
    QCOMPARE(curve->penColor().alpha(), 255);
    const QImage image = renderScene(m_view->scene());
    QVERIFY(qAbs(coverageInColumn(image, 200) - 3.0) < 0.1);
    QCOMPARE(alphaAt(image, 200, 150), 255);
}

void TestDrawManagerEx::delayedEraseStrokeVanishesButStaysInHistory()
{
    m_manager->slot_figure("delayerase");
    stroke({{100, 150}, {150, 150}, {300, 150}});
    QCOMPARE(alphaAt(renderScene(m_view->scene()), 200, 150), 255);
    QElapsedTimer clock;
    clock.start();
    QTRY_VERIFY_WITH_TIMEOUT(m_view->scene()->items().isEmpty(), 2000);
    QVERIFY(clock.elapsed() >= 190);
    QCOMPARE(alphaAt(renderScene(m_view->scene()), 200, 150), 0);

    QUndoStack* stack = m_manager->data()->undoStack();
    QCOMPARE(stack->count(), 1);
    QVERIFY(stack->canUndo());
    m_manager->slot_undo();
    QCOMPARE(stack->index(), 0);
    QVERIFY(m_manager->data()->records().isEmpty());
    m_manager->slot_redo();
    QCOMPARE(stack->index(), 1);
    QCOMPARE(m_manager->data()->records().size(), 1);
    // The stroke has left the canvas; the history steps over it without showing it again.
    QCOMPARE(alphaAt(renderScene(m_view->scene()), 200, 150), 0);
}

void TestDrawManagerEx::lineDraggedRightToLeft()
{
    m_manager->slot_figure("line");
    stroke({{300, 200}, {250, 180}, {100, 50}});
    auto* line = qgraphicsitem_cast<CommonItem*>(m_view->scene()->items().first());
    QVERIFY(line);
    QCOMPARE(line->kind(), int(CommonItem::Line));
    const QPainterPath path = line->shapePath();
    QCOMPARE(QPointF(path.elementAt(1)) - QPointF(path.elementAt(0)), QPointF(-200, -150));
    QCOMPARE(line->mapToScene(path.elementAt(0)), QPointF(300, 200));
    QCOMPARE(line->mapToScene(path.elementAt(1)), QPointF(100, 50));
    QCOMPARE(line->color(), QColor(255, 0, 0));
    QCOMPARE(line->width(), 3);
}

void TestDrawManagerEx::eraserOfManyMovesIsOneItem()
{
    m_manager->slot_figure("erase");
    QSignalSpy onTop(m_manager, &DrawManagerEx::sg_widstayontop);
    QVector<QPoint> points;
    for (int x = 20; x <= 380; x += 10)
        points << QPoint(x, 100 + (x % 40));
    stroke(points);
    QCOMPARE(m_view->scene()->items().size(), 1);
    auto* erase = qgraphicsitem_cast<EraseItem*>(m_view->scene()->items().first());
    QVERIFY(erase);
    QCOMPARE(erase->pen().width(), 40);
    QCOMPARE(erase->pen().color(), QColor(0, 0, 0, 1));
    QCOMPARE(onTop.count(), points.size());
    QCOMPARE(m_manager->data()->records().size(), 1);
    QVERIFY(erase->shape().contains(QPointF(200, 100 + (200 % 40))));
}

void TestDrawManagerEx::eraserClearsPixelsAndUndoBringsThemBack()
{
    stroke({{50, 150}, {100, 150}, {350, 150}});
    auto* curve = m_view->scene()->items().first();
    m_manager->slot_figure("erase");
    stroke({{200, 50}, {200, 100}, {200, 250}});
    const QImage erased = renderScene(m_view->scene());
    keepPicture(erased, "eraser");
    QVERIFY(alphaAt(erased, 200, 150) <= 1);
    QVERIFY(alphaAt(erased, 185, 150) <= 1);
    QCOMPARE(alphaAt(erased, 150, 150), 255);
    QCOMPARE(alphaAt(erased, 250, 150), 255);
    QVERIFY(m_view->scene()->items().contains(curve));
    QVERIFY(curve->isVisible());

    m_manager->slot_undo();
    const QImage restored = renderScene(m_view->scene());
    QCOMPARE(alphaAt(restored, 200, 150), 255);
    m_manager->slot_redo();
    QVERIFY(alphaAt(renderScene(m_view->scene()), 200, 150) <= 1);
}

void TestDrawManagerEx::pressAndReleaseWithoutMoveLeavesNothing_data()
{
    QTest::addColumn<QString>("tool");
    for (const char* tool : {"brush", "highlighter", "line", "rect", "ellipse", "arrow", "erase"})
        QTest::newRow(tool) << tool;
}

void TestDrawManagerEx::pressAndReleaseWithoutMoveLeavesNothing()
{
    QFETCH(QString, tool);
    m_manager->slot_figure(tool);
    m_manager->slot_mousestate("press", 100, 100);
    m_manager->slot_mousestate("release", 100, 100);
    QVERIFY(m_view->scene()->items().isEmpty());
    QCOMPARE(m_manager->data()->undoStack()->count(), 0);
}

void TestDrawManagerEx::moveWithoutPressIsIgnored()
{
    m_manager->slot_mousestate("move", 100, 100);
    m_manager->slot_mousestate("move", 200, 100);
    m_manager->slot_mousestate("release", 200, 100);
    QVERIFY(m_view->scene()->items().isEmpty());
    QCOMPARE(m_manager->data()->undoStack()->count(), 0);
    QCOMPARE(m_manager->data()->mouseState, QString("release"));
}

void TestDrawManagerEx::unknownFigureDrawsNothing()
{
    for (const char* name : {"spray", "drag", "choose"}) {
        m_manager->slot_figure(name);
        stroke({{10, 10}, {50, 50}, {90, 90}});
    }
    QVERIFY(m_view->scene()->items().isEmpty());
    QCOMPARE(m_manager->data()->undoStack()->count(), 0);
}

void TestDrawManagerEx::textPressWhileEditingMakesNoSecondText()
{
    m_manager->slot_figure("text");
    stroke({{100, 100}});
    QCOMPARE(m_view->scene()->items().size(), 1);
    auto* text = qgraphicsitem_cast<textItemchange*>(m_view->scene()->items().first());
    QVERIFY(text);
    QCOMPARE(text->pos(), QPointF(100, 100));
    QCOMPARE(text->defaultTextColor(), QColor(255, 0, 0));
    QVERIFY(textItemchange::isEditing());
    QCOMPARE(m_manager->data()->undoStack()->count(), 1);

    stroke({{250, 200}});
    QCOMPARE(m_view->scene()->items().size(), 1);
    QCOMPARE(m_manager->data()->undoStack()->count(), 1);
}

void TestDrawManagerEx::textBoldOnlyAtSize22_data()
{
    QTest::addColumn<int>("size");
    QTest::addColumn<bool>("bold");
    QTest::newRow("14") << 14 << false;
    QTest::newRow("20") << 20 << false;
    QTest::newRow("22") << 22 << true;
    QTest::newRow("24") << 24 << false;
}

void TestDrawManagerEx::textBoldOnlyAtSize22()
{
    QFETCH(int, size);
    QFETCH(bool, bold);
    m_manager->slot_changeFontSize(size);
    m_manager->slot_figure("text");
    stroke({{100, 100}});
    auto* text = qgraphicsitem_cast<textItemchange*>(m_view->scene()->items().first());
    QCOMPARE(text->font().pointSize(), size);
    // Bold is 75 and normal 50 on Qt 5's weight scale, 700 and 400 on Qt 6's.
    QCOMPARE(static_cast<int>(text->font().weight()),
             static_cast<int>(bold ? QFont::Bold : QFont::Normal));
}

void TestDrawManagerEx::colourAndWidthDeselectItems()
{
    m_manager->slot_figure("rect");
    stroke({{10, 10}, {50, 50}, {90, 90}});
    QGraphicsItem* rect = m_view->scene()->items().first();
    rect->setFlag(QGraphicsItem::ItemIsSelectable, true);
    rect->setSelected(true);
    m_manager->slot_color("#0000ff");
    QVERIFY(!rect->isSelected());
    QCOMPARE(m_manager->data()->color, QColor(0, 0, 255));
    rect->setSelected(true);
    m_manager->slot_width(6);
    QVERIFY(!rect->isSelected());
    QCOMPARE(m_manager->data()->width, 6);
    // The change reaches only strokes that start later.
    QCOMPARE(qgraphicsitem_cast<CommonItem*>(rect)->color(), QColor(255, 0, 0));
}

void TestDrawManagerEx::editorLostFocusDeletesEmptyText()
{
    auto* empty = new textItemchange(m_manager->data());
    auto* full = new textItemchange(m_manager->data());
    full->setPlainText("hello");
    m_view->scene()->addItem(empty);
    m_view->scene()->addItem(full);
    QPointer<textItemchange> guard(empty);
    m_manager->editorLostFocus(full);
    m_manager->editorLostFocus(empty);
    QCOMPARE(m_view->scene()->items().size(), 1);
    QCOMPARE(m_view->scene()->items().first(), static_cast<QGraphicsItem*>(full));
    QTRY_VERIFY(guard.isNull());
}

QTEST_MAIN(TestDrawManagerEx)
#include "test-draw-manager-ex.moc"
