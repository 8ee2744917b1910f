// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "canvas/d-data.h"
#include "canvas/draw-manager-ex.h"
#include "canvas/graphics-view.h"
#include "canvas/pass-through.h"

#include <QApplication>
#include <QGraphicsItem>
#include <QProcess>
#include <QUndoStack>
#include <QtTest>

namespace {

// A plain window beneath the canvas that counts the presses it receives.
class PressCounter : public QWidget
{
public:
    int presses = 0;

protected:
    void mousePressEvent(QMouseEvent*) override { ++presses; }
};

bool click(const QPoint& global)
{
    return QProcess::execute("xdotool", {"mousemove", QString::number(global.x()),
                                         QString::number(global.y()), "click", "1"}) == 0;
}

} // namespace

class TestPassThrough : public QObject
{
    Q_OBJECT

private slots:
    void clicksFallThroughInDesktopOperation();
};

void TestPassThrough::clicksFallThroughInDesktopOperation()
{
    QCOMPARE(QGuiApplication::platformName(), QString("xcb"));
    PressCounter below;
    below.setGeometry(100, 100, 400, 300);
    below.show();
    QVERIFY(QTest::qWaitForWindowExposed(&below));

    pallo::GraphicsView view(true, nullptr);
    view.drawManager()->slot_figure("text");
    view.setGeometry(0, 0, 800, 600);
    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view));
    view.raise();
    QTest::qWait(200);

    const QPoint point(300, 250);
    DData* data = view.drawManager()->data();
    view.slot_choose();
    QVERIFY(click(point));
    QTRY_COMPARE(below.presses, 1);
    QVERIFY(data->mouseState.isEmpty());

    view.slot_test();
    // Far enough in time from the first click not to make a double click of the two.
    QTest::qWait(QApplication::doubleClickInterval() + 100);
    QVERIFY(click(point));
    QTRY_COMPARE(data->mouseState, QString("release"));
    QCOMPARE(below.presses, 1);
    // The press reached the manager: the text tool made a text at the point.
    QCOMPARE(view.scene()->items().size(), 1);
    QCOMPARE(view.scene()->items().first()->scenePos(), QPointF(view.mapFromGlobal(point)));
}

QTEST_MAIN(TestPassThrough)
#include "test-pass-through.moc"
