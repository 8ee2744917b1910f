// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "canvas-test-support.h"
#include "canvas/draw-manager-ex.h"
#include "canvas/graphics-view.h"
#include "canvas/scene-index-fit.h"

#include <QGraphicsScene>
#include <QtTest>

class TestSceneIndexFit : public QObject
{
    Q_OBJECT

private slots:
    void refitDue_data();
    void refitDue();
    void depthFor_data();
    void depthFor();
    void fitsOnlyWhenDue();
    void strokesDrawnOneByOneAreIndexedByPlace();
};

void TestSceneIndexFit::refitDue_data()
{
    QTest::addColumn<int>("fittedFor");
    QTest::addColumn<int>("count");
    QTest::addColumn<bool>("due");
    QTest::newRow("few items") << 0 << 63 << false;
    QTest::newRow("enough items") << 0 << 64 << true;
    QTest::newRow("not yet doubled") << 64 << 127 << false;
    QTest::newRow("doubled") << 64 << 128 << true;
    QTest::newRow("more than doubled") << 1000 << 2500 << true;
    QTest::newRow("fewer again") << 1000 << 40 << false;
}

void TestSceneIndexFit::refitDue()
{
    QFETCH(int, fittedFor);
    QFETCH(int, count);
    QFETCH(bool, due);
    QCOMPARE(SceneIndexFit::refitDue(fittedFor, count), due);
}

void TestSceneIndexFit::depthFor_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("depth");
    QTest::newRow("one") << 1 << 5;
    QTest::newRow("128") << 128 << 5;
    QTest::newRow("129") << 129 << 6;
    QTest::newRow("1000") << 1000 << 8;
    QTest::newRow("10000") << 10000 << 12;
    QTest::newRow("a million") << 1000000 << 12;
}

void TestSceneIndexFit::depthFor()
{
    QFETCH(int, count);
    QFETCH(int, depth);
    QCOMPARE(SceneIndexFit::depthFor(count), depth);
}

void TestSceneIndexFit::fitsOnlyWhenDue()
{
    QGraphicsScene scene;
    scene.setBspTreeDepth(3);
    SceneIndexFit fit(&scene);
    fit.itemCountIs(10);
    QCOMPARE(scene.bspTreeDepth(), 3);
    fit.itemCountIs(100);
    QCOMPARE(scene.bspTreeDepth(), 5);
    fit.itemCountIs(150);
    QCOMPARE(scene.bspTreeDepth(), 5);
    fit.itemCountIs(300);
    QCOMPARE(scene.bspTreeDepth(), 7);
}

// As on the board: the canvas is shown, and strokes come one by one with repaints between.
// Qt's own choice would keep the depth it took for the first stroke.
void TestSceneIndexFit::strokesDrawnOneByOneAreIndexedByPlace()
{
    pallo::GraphicsView view(true, nullptr);
    QVERIFY(showAsWindow(view, QSize(640, 480)));
    DrawManagerEx* manager = view.drawManager();
    manager->slot_figure("brush");
    for (int n = 0; n < 300; ++n) {
        const int x = 20 + (n * 37) % 560;
        const int y = 20 + (n * 53) % 420;
        manager->slot_mousestate("press", x, y);
        manager->slot_mousestate("move", x + 20, y + 5);
        manager->slot_mousestate("release", x + 40, y);
        QCoreApplication::processEvents();
    }
    QCOMPARE(view.scene()->bspTreeDepth(), SceneIndexFit::depthFor(256));
    // The index finds a stroke by its place.
    const QList<QGraphicsItem*> found = view.scene()->items(QRectF(20, 20, 40, 10));
    QVERIFY(!found.isEmpty());
    QVERIFY(found.size() < 20);
}

QTEST_MAIN(TestSceneIndexFit)
#include "test-scene-index-fit.moc"
