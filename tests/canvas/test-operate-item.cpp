// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "canvas-test-support.h"
#include "canvas/common-item.h"
#include "canvas/operate-item.h"

#include <QtTest>

class TestOperateItem : public QObject
{
    Q_OBJECT

private slots:
    void oneInstanceCastsToItsType();
    void attachDetachAndFrame();
};

void TestOperateItem::oneInstanceCastsToItsType()
{
    QVERIFY(!OperateItem::existing());
    OperateItem* handles = OperateItem::instance();
    QCOMPARE(OperateItem::instance(), handles);
    QCOMPARE(OperateItem::existing(), handles);
    QGraphicsItem* item = handles;
    QCOMPARE(item->type(), int(QGraphicsItem::UserType + 4));
    QCOMPARE(qgraphicsitem_cast<OperateItem*>(item), handles);
    QVERIFY(!qgraphicsitem_cast<CommonItem*>(item));
    QVERIFY(handles->flags().testFlag(QGraphicsItem::ItemIsSelectable));
    QVERIFY(!handles->isVisible());
}

void TestOperateItem::attachDetachAndFrame()
{
    QGraphicsScene scene;
    auto* rect = new CommonItem(CommonItem::Rect, QPointF(100, 100));
    scene.addItem(rect);
    rect->setColor(Qt::red);
    rect->setExtent(100, 60);
    OperateItem* handles = OperateItem::instance();
    handles->attachTo(rect);
    QCOMPARE(handles->scene(), &scene);
    QVERIFY(handles->isVisible());
    QVERIFY(handles->isAttachedTo(rect));
    QCOMPARE(handles->target(), rect);
    const QImage image = renderScene(&scene);
    keepPicture(image, "operate-item");
    // A dashed frame 5 outside the shape's border.
    QVERIFY(alphaAt(image, 150, 95) > 0);
    handles->detach();
    QVERIFY(!handles->isVisible());
    QVERIFY(!handles->target());
    QVERIFY(!handles->isAttachedTo(rect));
    QCOMPARE(alphaAt(renderScene(&scene), 150, 95), 0);
}

QTEST_MAIN(TestOperateItem)
#include "test-operate-item.moc"
