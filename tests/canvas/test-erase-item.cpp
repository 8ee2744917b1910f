// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "bench/viewport-recorder.h"
#include "canvas-test-support.h"
#include "canvas/curve-item.h"
#include "canvas/draw-manager-ex.h"
#include "canvas/erase-item.h"
#include "canvas/graphics-view.h"
#include "canvas/stroke-path.h"

#include <QtTest>

class TestEraseItem : public QObject
{
    Q_OBJECT

private slots:
    void castsToItsType();
    void shapeIsFortyWide();
    void clearsPixelsBeneathOnly();
    void growingEraserRepaintsLikeAFullRepaint();
    void segmentRepaintsAllItClears_data();
    void segmentRepaintsAllItClears();
};

namespace {

EraseItem* eraser(const QPointF& from, const QPointF& to)
{
    QPainterPath path(from);
    path.lineTo(to);
    return new EraseItem(path, QPen(QColor(0, 0, 0, 1), 40));
}

// Blue pen lines of the given width across the canvas, from y = first down, spacing apart,
// each reaching margin short of the sides.
void drawLines(DrawManagerEx* manager, int width, int first, int spacing, int margin)
{
    manager->slot_color("#0000ff");
    manager->slot_width(width);
    manager->slot_figure("brush");
    for (int y = first; y < 300; y += spacing) {
        manager->slot_mousestate("press", margin, y);
        manager->slot_mousestate("move", 200, y);
        manager->slot_mousestate("move", 400 - margin, y);
        manager->slot_mousestate("release", 400 - margin, y);
    }
}

} // namespace

void TestEraseItem::castsToItsType()
{
    std::unique_ptr<EraseItem> erase(eraser({0, 0}, {10, 10}));
    QGraphicsItem* item = erase.get();
    QCOMPARE(item->type(), int(QGraphicsItem::UserType + 3));
    QCOMPARE(qgraphicsitem_cast<EraseItem*>(item), erase.get());
    QVERIFY(!qgraphicsitem_cast<CurveItem*>(item));
}

void TestEraseItem::shapeIsFortyWide()
{
    std::unique_ptr<EraseItem> erase(eraser({100, 100}, {300, 100}));
    QVERIFY(erase->shape().contains(QPointF(200, 119)));
    QVERIFY(erase->shape().contains(QPointF(200, 81)));
    QVERIFY(!erase->shape().contains(QPointF(200, 121)));
}

void TestEraseItem::clearsPixelsBeneathOnly()
{
    QGraphicsScene scene;
    auto* stroke = new CurveItem(Qt::blue, 6);
    QPainterPath path(QPointF(20, 150));
    path.lineTo(380, 150);
    stroke->setPath(path);
    scene.addItem(stroke);
    auto* erase = eraser({200, 20}, {200, 280});
    erase->setFlag(QGraphicsItem::ItemIsSelectable, true);
    erase->setSelected(true);
    scene.addItem(erase);
    const QImage image = renderScene(&scene);
    keepPicture(image, "erase-item");
    QVERIFY(alphaAt(image, 200, 150) <= 1);
    QVERIFY(alphaAt(image, 219, 150) <= 1);
    QCOMPARE(alphaAt(image, 222, 150), 255);
    QCOMPARE(alphaAt(image, 100, 150), 255);
    // Where nothing was painted the eraser leaves no visible trace.
    QVERIFY(alphaAt(image, 200, 60) <= 1);
    QVERIFY(scene.items().contains(stroke));
}

void TestEraseItem::growingEraserRepaintsLikeAFullRepaint()
{
    const QSize size(400, 300);
    pallo::GraphicsView view(true, nullptr);
    QVERIFY(showAsWindow(view, size));
    auto* recorder = new ViewportRecorder(view.viewport(), size);

    DrawManagerEx* manager = view.drawManager();
    drawLines(manager, 3, 30, 30, 10);
    recorder->repaintAll();

    // A zigzag eraser stroke over the lines, repainted after every move as on screen.
    manager->slot_figure("erase");
    manager->slot_mousestate("press", 20, 20);
    recorder->settle();
    for (int i = 1; i <= 120; ++i) {
        manager->slot_mousestate("move", 20 + i * 3,
                                 (i / 20) % 2 ? 280 - (i % 20) * 13 : 20 + (i % 20) * 13);
        recorder->settle();
    }
    manager->slot_mousestate("release", 380, 20);
    recorder->settle();
    const QImage incremental = recorder->image();
    keepPicture(incremental, "erase-item-incremental");

    int erasers = 0;
    for (QGraphicsItem* item : view.scene()->items()) {
        if (qgraphicsitem_cast<EraseItem*>(item))
            ++erasers;
    }
    QCOMPARE(erasers, 1);
    recorder->repaintAll();
    // Qt rounds the antialiased edge of a clearing composition a little differently when the
    // painter is clipped, as in any partial repaint; inside and outside the stroke every pixel
    // is the same.
    const QImage full = recorder->image();
    int edgePixels = 0;
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            const QRgb a = incremental.pixel(x, y);
            const QRgb b = full.pixel(x, y);
            if (a == b)
                continue;
            ++edgePixels;
            QVERIFY2(qAbs(qAlpha(a) - qAlpha(b)) <= 8 && qAbs(qBlue(a) - qBlue(b)) <= 8,
                     qPrintable(QString("pixel %1,%2").arg(x).arg(y)));
        }
    }
    QVERIFY(edgePixels < 400);
    // Lines are cleared where the eraser went and kept elsewhere.
    QVERIFY(qAlpha(incremental.pixel(23, 30)) <= 1);
    QCOMPARE(qAlpha(incremental.pixel(388, 150)), 255);
}

void TestEraseItem::segmentRepaintsAllItClears_data()
{
    QTest::addColumn<QPoint>("step");
    QTest::newRow("right") << QPoint(4, 0);
    QTest::newRow("down") << QPoint(0, 5);
    QTest::newRow("diagonal") << QPoint(6, 6);
    QTest::newRow("steep") << QPoint(-2, 9);
    QTest::newRow("shallow, to the left") << QPoint(-9, 3);
    QTest::newRow("long") << QPoint(30, -17);
}

void TestEraseItem::segmentRepaintsAllItClears()
{
    QFETCH(QPoint, step);
    const QSize size(400, 300);
    pallo::GraphicsView view(true, nullptr);
    QVERIFY(showAsWindow(view, size));
    auto* recorder = new ViewportRecorder(view.viewport(), size);

    // Ink everywhere, so that whatever the eraser clears shows.
    DrawManagerEx* manager = view.drawManager();
    drawLines(manager, 30, 10, 20, 0);
    recorder->repaintAll();

    // A stroke long enough that one more short segment in its middle fits its bounds.
    manager->slot_figure("erase");
    manager->slot_mousestate("press", 60, 60);
    manager->slot_mousestate("move", 340, 240);
    manager->slot_mousestate("move", 200, 150);
    recorder->settle();
    const QPoint from(200, 150);
    const QPoint to = from + step;
    manager->slot_mousestate("move", to.x(), to.y());
    recorder->settle();
    const QImage incremental = recorder->image();
    keepPicture(incremental, "erase-item-segment");

    const QRect square =
        pallo::StrokePath::squareEndsBounds(from, to, EraseItem::PenWidth / 2.0).toAlignedRect();
    // The segment's square and no more is repainted: two pixels more on each side from the
    // eraser, two from the view's own margin for antialiasing, one for rounding.
    QVERIFY2(recorder->lastPaintedArea() <= qint64(square.width() + 10) * (square.height() + 10),
             qPrintable(QString("painted %1 px").arg(recorder->lastPaintedArea())));
    recorder->repaintAll();
    const QImage full = recorder->image();
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            const QRgb a = incremental.pixel(x, y);
            const QRgb b = full.pixel(x, y);
            // As above: only the antialiased edge may round differently.
            QVERIFY2(qAbs(qAlpha(a) - qAlpha(b)) <= 8,
                     qPrintable(QString("pixel %1,%2: %3 after the move, %4 repainted whole")
                                    .arg(x)
                                    .arg(y)
                                    .arg(qAlpha(a))
                                    .arg(qAlpha(b))));
        }
    }
}

QTEST_MAIN(TestEraseItem)
#include "test-erase-item.moc"
