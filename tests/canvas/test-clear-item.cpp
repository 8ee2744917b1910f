// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "bench/viewport-recorder.h"
#include "canvas-test-support.h"
#include "canvas/draw-manager-ex.h"
#include "canvas/graphics-view.h"

#include <QtTest>

class TestClearItem : public QObject
{
    Q_OBJECT

private slots:
    void clearUndoAndRedoRepaintTheWindow();
};

void TestClearItem::clearUndoAndRedoRepaintTheWindow()
{
    const QSize size(400, 300);
    pallo::GraphicsView view(true, nullptr);
    QVERIFY(showAsWindow(view, size));
    auto* recorder = new ViewportRecorder(view.viewport(), size);
    recorder->repaintAll();
    const QImage empty = recorder->image();

    DrawManagerEx* manager = view.drawManager();
    manager->slot_color("#0000ff");
    manager->slot_figure("brush");
    for (int y = 40; y < 300; y += 40) {
        manager->slot_mousestate("press", 20, y);
        manager->slot_mousestate("move", 200, y + 10);
        manager->slot_mousestate("move", 380, y);
        manager->slot_mousestate("release", 380, y);
    }
    recorder->settle();
    const QImage drawn = recorder->image();
    QVERIFY(drawn != empty);

    manager->slot_clear();
    recorder->settle();
    QCOMPARE(recorder->image(), empty);
    manager->slot_undo();
    recorder->settle();
    QCOMPARE(recorder->image(), drawn);
    manager->slot_redo();
    recorder->settle();
    QCOMPARE(recorder->image(), empty);
}

QTEST_MAIN(TestClearItem)
#include "test-clear-item.moc"
