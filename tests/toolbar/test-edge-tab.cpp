// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "toolbar/edge-tab.h"

#include <QtTest>

class TestEdgeTab : public QObject
{
    Q_OBJECT
private slots:
    void windowFlags();
    void reportsThePointer();
    void leftClickOnly();
    void paints_data();
    void paints();
};

void TestEdgeTab::windowFlags()
{
    QWidget parent;
    EdgeTab tab(&parent);
    const Qt::WindowFlags f = tab.windowFlags();
    QVERIFY(f.testFlag(Qt::FramelessWindowHint));
    QVERIFY(f.testFlag(Qt::WindowStaysOnTopHint));
    QVERIFY(f.testFlag(Qt::X11BypassWindowManagerHint));
    QCOMPARE(tab.parentWidget(), &parent);
    QVERIFY(tab.isWindow());
}

void TestEdgeTab::reportsThePointer()
{
    EdgeTab tab;
    QSignalSpy entered(&tab, &EdgeTab::entered);
    QSignalSpy left(&tab, &EdgeTab::left);
    QEvent enter(QEvent::Enter);
    QCoreApplication::sendEvent(&tab, &enter);
    QCOMPARE(entered.count(), 1);
    QCOMPARE(left.count(), 0);
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(&tab, &leave);
    QCOMPARE(left.count(), 1);
}

void TestEdgeTab::leftClickOnly()
{
    EdgeTab tab;
    tab.resize(56, 12);
    QSignalSpy clicked(&tab, &EdgeTab::clicked);
    QTest::mouseClick(&tab, Qt::RightButton, Qt::NoModifier, QPoint(28, 6));
    QCOMPARE(clicked.count(), 0);
    QTest::mouseClick(&tab, Qt::LeftButton, Qt::NoModifier, QPoint(28, 6));
    QCOMPARE(clicked.count(), 1);
}

void TestEdgeTab::paints_data()
{
    QTest::addColumn<int>("side");
    QTest::addColumn<QSize>("size");
    // A point on the edge the tab hangs from (square there, white) and a corner away
    // from it (rounded off, so nothing painted).
    QTest::addColumn<QPoint>("atEdge");
    QTest::addColumn<QPoint>("farCorner");

    QTest::newRow("top") << 1 << QSize(56, 12) << QPoint(28, 0) << QPoint(0, 11);
    QTest::newRow("bottom") << 2 << QSize(56, 12) << QPoint(28, 11) << QPoint(0, 0);
    QTest::newRow("left") << 3 << QSize(12, 56) << QPoint(0, 28) << QPoint(11, 0);
    QTest::newRow("right") << 4 << QSize(12, 56) << QPoint(11, 28) << QPoint(0, 55);
}

void TestEdgeTab::paints()
{
    QFETCH(int, side);
    QFETCH(QSize, size);
    QFETCH(QPoint, atEdge);
    QFETCH(QPoint, farCorner);
    EdgeTab tab;
    tab.setSide(side);
    tab.resize(size);
    QImage image(size, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    tab.render(&image, QPoint(), QRegion(), QWidget::DrawChildren);

    QCOMPARE(image.pixelColor(atEdge), QColor(Qt::white));
    QCOMPARE(qAlpha(image.pixel(farCorner)), 0);
    // The outline and the chevron: plenty of the strip's blue.
    int blue = 0;
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            const QColor c = image.pixelColor(x, y);
            if (c.alpha() > 200 && c.blue() > 200 && c.red() < 80)
                ++blue;
        }
    }
    QVERIFY2(blue > 40, qPrintable(QString::number(blue)));
}

QTEST_MAIN(TestEdgeTab)
#include "test-edge-tab.moc"
