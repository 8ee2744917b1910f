// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "common/over-canvas-stacking.h"

#include <QtTest>

using Windows = QList<unsigned long>;
Q_DECLARE_METATYPE(Windows)

class TestOverCanvasStacking : public QObject
{
    Q_OBJECT
private slots:
    void raisesOnlyWhenCovered_data();
    void raisesOnlyWhenCovered();
};

void TestOverCanvasStacking::raisesOnlyWhenCovered_data()
{
    QTest::addColumn<Windows>("bottomToTop");
    QTest::addColumn<Windows>("expected");

    // The board's unmanaged windows are 10 (toolbar) and 11 (strip); 5 is the canvas.
    QTest::newRow("already on top") << Windows{1, 5, 10, 11} << Windows{};
    QTest::newRow("canvas raised above") << Windows{1, 10, 11, 5} << Windows{10, 11};
    QTest::newRow("program between them") << Windows{10, 7, 11} << Windows{10, 11};
    QTest::newRow("order among them kept") << Windows{11, 10, 7} << Windows{11, 10};
    QTest::newRow("none of them shown") << Windows{1, 5, 7} << Windows{};
}

void TestOverCanvasStacking::raisesOnlyWhenCovered()
{
    QFETCH(Windows, bottomToTop);
    QFETCH(Windows, expected);
    QCOMPARE(OverCanvasStacking::toRaise(bottomToTop, {10, 11}), expected);
}

QTEST_APPLESS_MAIN(TestOverCanvasStacking)
#include "test-over-canvas-stacking.moc"
