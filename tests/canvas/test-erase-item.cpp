// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "canvas-test-support.h"
#include "canvas/curve-item.h"
#include "canvas/erase-item.h"

#include <QtTest>

class TestEraseItem : public QObject
{
    Q_OBJECT

private slots:
    void castsToItsType();
    void shapeIsFortyWide();
    void clearsPixelsBeneathOnly();
};

namespace {

EraseItem* eraser(const QPointF& from, const QPointF& to)
{
    QPainterPath path(from);
    path.lineTo(to);
    return new EraseItem(path, QPen(QColor(0, 0, 0, 1), 40));
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

QTEST_MAIN(TestEraseItem)
#include "test-erase-item.moc"
