// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "canvas-test-support.h"
#include "canvas/common-item.h"
#include "canvas/draw-manager-ex.h"
#include "canvas/graphics-view.h"

#include <QApplication>
#include <QGraphicsSceneHoverEvent>
#include <QSignalSpy>
#include <QtTest>

class TestCommonItem : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();
    void castsToItsType();
    void rightToLeftCoversSameArea_data();
    void rightToLeftCoversSameArea();
    void rectangleHitOnlyNearBorder();
    void rectangleBorderLiesInsideAtChosenWidth_data();
    void rectangleBorderLiesInsideAtChosenWidth();
    void arrowHeadSideByWidth_data();
    void arrowHeadSideByWidth();
    void lineJoinsPressAndReleasePoints();
    void hoverShowsMoveCursorExceptWithEraser();
    void commitReportsPathPositionAndTransform();

private:
    CommonItem* shape(QGraphicsScene& scene, int kind, QPointF start, QPointF end, int width,
                      QColor color = Qt::red);
};

void TestCommonItem::cleanup()
{
    while (QApplication::overrideCursor())
        QApplication::restoreOverrideCursor();
}

CommonItem* TestCommonItem::shape(QGraphicsScene& scene, int kind, QPointF start, QPointF end,
                                  int width, QColor color)
{
    auto* item = new CommonItem(kind, start);
    scene.addItem(item);
    item->setColor(color);
    item->setWidth(width);
    item->setExtent(end.x() - start.x(), end.y() - start.y());
    return item;
}

void TestCommonItem::castsToItsType()
{
    QGraphicsScene scene;
    QGraphicsItem* item = shape(scene, CommonItem::Rect, {10, 10}, {50, 50}, 1);
    QCOMPARE(item->type(), int(QGraphicsItem::UserType + 1));
    QVERIFY(qgraphicsitem_cast<CommonItem*>(item));
    QVERIFY(!qgraphicsitem_cast<QGraphicsPathItem*>(item));
    QVERIFY(!item->flags().testFlag(QGraphicsItem::ItemIsSelectable));
}

void TestCommonItem::rightToLeftCoversSameArea_data()
{
    QTest::addColumn<int>("kind");
    QTest::newRow("ellipse") << int(CommonItem::Ellipse);
    QTest::newRow("rect") << int(CommonItem::Rect);
}

void TestCommonItem::rightToLeftCoversSameArea()
{
    QFETCH(int, kind);
    QGraphicsScene forward;
    QGraphicsScene backward;
    auto* a = shape(forward, kind, {60, 40}, {300, 220}, 3);
    auto* b = shape(backward, kind, {300, 220}, {60, 40}, 3);
    QCOMPARE(a->pos(), b->pos());
    QCOMPARE(a->sceneBoundingRect(), b->sceneBoundingRect());
    QCOMPARE(renderScene(&forward), renderScene(&backward));
}

void TestCommonItem::rectangleHitOnlyNearBorder()
{
    QGraphicsScene scene;
    auto* rect = shape(scene, CommonItem::Rect, {100, 100}, {300, 250}, 1);
    QVERIFY(scene.items(QPointF(200, 170)).isEmpty());
    QVERIFY(scene.items(QPointF(100, 170)).contains(rect));
    QVERIFY(scene.items(QPointF(102.4, 170)).contains(rect));
    QVERIFY(scene.items(QPointF(97.6, 170)).contains(rect));
    QVERIFY(!scene.items(QPointF(103, 170)).contains(rect));
    QVERIFY(!scene.items(QPointF(97, 170)).contains(rect));
}

void TestCommonItem::rectangleBorderLiesInsideAtChosenWidth_data()
{
    QTest::addColumn<int>("width");
    QTest::newRow("1") << 1;
    QTest::newRow("3") << 3;
    QTest::newRow("6") << 6;
}

void TestCommonItem::rectangleBorderLiesInsideAtChosenWidth()
{
    QFETCH(int, width);
    QGraphicsScene scene;
    shape(scene, CommonItem::Rect, {200, 160}, {100, 100}, width);
    const QImage image = renderScene(&scene);
    keepPicture(image, QString("rect-border-%1").arg(width));
    // Left border along row 130: pixels 100 .. 100 + width - 1 are red, nothing outside.
    QCOMPARE(alphaAt(image, 99, 130), 0);
    for (int x = 100; x < 100 + width; ++x) {
        QCOMPARE(alphaAt(image, x, 130), 255);
        QCOMPARE(qRed(image.pixel(x, 130)), 255);
    }
    QCOMPARE(alphaAt(image, 100 + width, 130), 0);
    // Right and bottom borders end at the dragged corner.
    QCOMPARE(alphaAt(image, 199, 130), 255);
    QCOMPARE(alphaAt(image, 200, 130), 0);
    QCOMPARE(alphaAt(image, 150, 159), 255);
    QCOMPARE(alphaAt(image, 150, 160), 0);
    QCOMPARE(alphaAt(image, 150, 130), 0);
}

void TestCommonItem::arrowHeadSideByWidth_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("side");
    QTest::newRow("1") << 1 << 10;
    QTest::newRow("2") << 2 << 10;
    QTest::newRow("3") << 3 << 20;
    QTest::newRow("6") << 6 << 30;
}

void TestCommonItem::arrowHeadSideByWidth()
{
    QFETCH(int, width);
    QFETCH(int, side);
    QGraphicsScene scene;
    auto* arrow = shape(scene, CommonItem::Arrow, {50, 150}, {350, 150}, width);
    QCOMPARE(qgraphicsitem_cast<CommonItem*>(arrow)->outline().elementCount(), 2);
    const QImage image = renderScene(&scene);
    keepPicture(image, QString("arrow-%1").arg(width));
    int widest = 0;
    for (int x = 0; x < image.width(); ++x)
        widest = qMax(widest, opaqueInColumn(image, x));
    QVERIFY2(qAbs(widest - side) <= 1, qPrintable(QString("head %1").arg(widest)));
    // The head ends at the release point, the shaft starts at the press point.
    QVERIFY(alphaAt(image, 348, 150) > 0);
    QCOMPARE(alphaAt(image, 352, 150), 0);
    QVERIFY(alphaAt(image, 60, 150) > 0);
    QCOMPARE(alphaAt(image, 48, 150), 0);
}

void TestCommonItem::lineJoinsPressAndReleasePoints()
{
    QGraphicsScene scene;
    auto* line = shape(scene, CommonItem::Line, {300, 200}, {100, 50}, 3);
    QCOMPARE(line->pos(), QPointF(200, 125));
    const QPainterPath path = line->shapePath();
    QCOMPARE(line->mapToScene(path.elementAt(0)), QPointF(300, 200));
    QCOMPARE(line->mapToScene(path.elementAt(1)), QPointF(100, 50));
    const QImage image = renderScene(&scene);
    QVERIFY(alphaAt(image, 299, 199) > 0);
    QVERIFY(alphaAt(image, 101, 51) > 0);
    QVERIFY(alphaAt(image, 200, 125) > 0);
}

void TestCommonItem::hoverShowsMoveCursorExceptWithEraser()
{
    pallo::GraphicsView view(true, nullptr);
    auto* item = shape(*view.scene(), CommonItem::Rect, {10, 10}, {90, 90}, 1);
    item->setAcceptHoverEvents(true);

    view.drawManager()->slot_figure("erase");
    QGraphicsSceneHoverEvent enter(QEvent::GraphicsSceneHoverEnter);
    view.scene()->sendEvent(item, &enter);
    QVERIFY(!QApplication::overrideCursor());

    view.drawManager()->slot_figure("drag");
    view.scene()->sendEvent(item, &enter);
    QVERIFY(QApplication::overrideCursor());
    QCOMPARE(QApplication::overrideCursor()->pixmap().size(), QSize(32, 32));
    QGraphicsSceneHoverEvent leave(QEvent::GraphicsSceneHoverLeave);
    view.scene()->sendEvent(item, &leave);
    QVERIFY(!QApplication::overrideCursor());
}

void TestCommonItem::commitReportsPathPositionAndTransform()
{
    QGraphicsScene scene;
    auto* item = shape(scene, CommonItem::Ellipse, {0, 0}, {40, 20}, 1);
    QTransform rotation;
    rotation.rotate(30);
    item->takeTransform(rotation);
    qRegisterMetaType<QPainterPath>();
    qRegisterMetaType<QGraphicsItem*>();
    QSignalSpy spy(item, &CommonItem::signal_changeItem);
    item->commitChange();
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).value<QPainterPath>(), item->shapePath());
    QCOMPARE(spy.at(0).at(1).toPointF(), QPointF(20, 10));
    QCOMPARE(spy.at(0).at(2).value<QTransform>(), rotation);
    QCOMPARE(spy.at(0).at(3).value<QGraphicsItem*>(), static_cast<QGraphicsItem*>(item));
}

QTEST_MAIN(TestCommonItem)
#include "test-common-item.moc"
