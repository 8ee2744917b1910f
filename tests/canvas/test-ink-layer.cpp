// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "canvas/d-data.h"
#include "canvas/draw-manager-ex.h"
#include "canvas/graphics-view.h"
#include "canvas/ink-layer.h"
#include "tests/test-output.h"

#include <QGraphicsItem>
#include <QGraphicsScene>
#include <QtTest>

// The finished drawing painted from the ink layer's picture must look exactly like the same
// drawing painted item by item.
class TestInkLayer : public QObject
{
    Q_OBJECT

private slots:
    void samePixels_data();
    void samePixels();
    void pictureFollowsChanges();
    void pixelsHeldAreCounted();

private:
    static void stroke(DrawManagerEx* manager, const QString& tool, QPoint from, QPoint step,
                       int moves);
    static void drawMany(DrawManagerEx* manager, int strokes);
    static QImage paintItemByItem(pallo::GraphicsView* view);
    static QImage paintFromLayer(pallo::GraphicsView* view);
};

void TestInkLayer::stroke(DrawManagerEx* manager, const QString& tool, QPoint from, QPoint step,
                          int moves)
{
    manager->slot_figure(tool);
    manager->slot_mousestate("press", from.x(), from.y());
    for (int i = 1; i <= moves; ++i) {
        const QPoint p = from + step * i + QPoint(0, (i % 4) * 3);
        manager->slot_mousestate("move", p.x(), p.y());
    }
    const QPoint end = from + step * moves;
    manager->slot_mousestate("release", end.x(), end.y());
}

// Pen and highlighter strokes, shapes, eraser strokes across them, and ink over the erased
// parts.
void TestInkLayer::drawMany(DrawManagerEx* manager, int strokes)
{
    const QStringList colours = {"#ff0000", "#0000ff", "#00aa00"};
    for (int i = 0; i < strokes; ++i) {
        manager->slot_color(colours.at(i % colours.size()));
        manager->slot_width(1 + i % 3 * 2);
        const QPoint from(10 + (i * 37) % 300, 10 + (i * 23) % 250);
        if (i % 25 == 7) {
            stroke(manager, "erase", QPoint(0, from.y()), QPoint(20, 1), 20);
        } else if (i % 10 == 3) {
            const QStringList shapes = {"rect", "ellipse", "line", "arrow"};
            stroke(manager, shapes.at(i / 10 % shapes.size()), from, QPoint(9, 5), 6);
        } else {
            stroke(manager, i % 5 == 1 ? "highlighter" : "brush", from, QPoint(5, 2), 12);
        }
    }
}

QImage TestInkLayer::paintItemByItem(pallo::GraphicsView* view)
{
    view->inkLayer()->setEnabled(false);
    const QImage image =
        view->grab().toImage().convertToFormat(QImage::Format_ARGB32_Premultiplied);
    view->inkLayer()->setEnabled(true);
    return image;
}

QImage TestInkLayer::paintFromLayer(pallo::GraphicsView* view)
{
    return view->grab().toImage().convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

void TestInkLayer::samePixels_data()
{
    QTest::addColumn<int>("after");
    QTest::addColumn<QString>("step");
    QTest::addColumn<int>("held");
    QTest::newRow("drawn") << 0 << QString() << 150;
    QTest::newRow("last stroke undone") << 0 << "undo" << 149;
    QTest::newRow("clear undone") << 0 << "clear undo" << 150;
    QTest::newRow("clear redone") << 0 << "clear undo redo" << 0;
    QTest::newRow("an item selected") << 0 << "select" << 100;
    // Strokes drawn one by one over the picture, each painted before the next.
    QTest::newRow("drawn over the picture") << 20 << QString() << 170;
    QTest::newRow("one taken back") << 20 << "undo" << 169;
    QTest::newRow("five taken back") << 20 << "undo undo undo undo undo" << 165;
    QTest::newRow("taken back and redone") << 20 << "undo undo undo redo redo" << 169;
    QTest::newRow("all taken back and more")
        << 20 << QString("undo ").repeated(25).trimmed() << 145;
    QTest::newRow("taken back, then clear undone") << 20 << "undo undo clear undo" << 168;
    QTest::newRow("selected after drawing over") << 20 << "select" << 100;
}

void TestInkLayer::samePixels()
{
    QFETCH(int, after);
    QFETCH(QString, step);
    QFETCH(int, held);
    pallo::GraphicsView view(true, nullptr);
    view.resize(400, 300);
    DrawManagerEx* manager = view.drawManager();
    drawMany(manager, 150);
    // A first repaint makes the picture, so that the steps below change it.
    paintFromLayer(&view);
    for (int i = 0; i < after; ++i) {
        manager->slot_color(i % 2 ? "#ff00ff" : "#008080");
        stroke(manager, i % 7 == 3 ? "erase" : (i % 3 ? "brush" : "highlighter"),
               QPoint(20 + i * 13 % 300, 30 + i * 29 % 220), QPoint(7, 3), 10);
        paintFromLayer(&view);
    }

    for (const QString& word : step.split(' ', Qt::SkipEmptyParts)) {
        // Each step is painted, as the window would be between a presenter's clicks.
        if (after > 0)
            paintFromLayer(&view);
        if (word == "undo")
            manager->slot_undo();
        else if (word == "redo")
            manager->slot_redo();
        else if (word == "clear")
            manager->slot_clear();
        else if (word == "select") {
            QGraphicsItem* item = manager->data()->records().at(100).item;
            item->setFlag(QGraphicsItem::ItemIsSelectable, true);
            item->setSelected(true);
        }
    }

    const QImage fromLayer = paintFromLayer(&view);
    QCOMPARE(view.inkLayer()->heldCount(), held);
    const QImage itemByItem = paintItemByItem(&view);
    if (fromLayer != itemByItem) {
        keepPicture(fromLayer, "ink-layer-from-layer");
        keepPicture(itemByItem, "ink-layer-item-by-item");
    }
    QVERIFY(fromLayer == itemByItem);
}

void TestInkLayer::pictureFollowsChanges()
{
    pallo::GraphicsView view(true, nullptr);
    view.resize(400, 300);
    DrawManagerEx* manager = view.drawManager();
    drawMany(manager, 100);
    paintFromLayer(&view);
    QCOMPARE(view.inkLayer()->heldCount(), 100);

    // A stroke moved by its undo step leaves the picture that held it.
    QGraphicsItem* moved = manager->data()->records().at(10).item;
    moved->moveBy(30, 40);
    const QImage fromLayer = paintFromLayer(&view);
    QVERIFY(fromLayer == paintItemByItem(&view));

    // A stroke being drawn is painted on top and joins the picture once finished.
    manager->slot_figure("brush");
    manager->slot_mousestate("press", 50, 50);
    manager->slot_mousestate("move", 150, 80);
    QVERIFY(paintFromLayer(&view) == paintItemByItem(&view));
    QCOMPARE(view.inkLayer()->heldCount(), 100);
    manager->slot_mousestate("release", 160, 90);
    QVERIFY(paintFromLayer(&view) == paintItemByItem(&view));
    QCOMPARE(view.inkLayer()->heldCount(), 101);
}

void TestInkLayer::pixelsHeldAreCounted()
{
    pallo::GraphicsView view(true, nullptr);
    view.resize(400, 300);
    DrawManagerEx* manager = view.drawManager();
    QCOMPARE(view.inkLayer()->pixelBytes(), qint64(0));
    drawMany(manager, 100);
    paintFromLayer(&view);
    const qint64 picture = qint64(400) * 300 * 4;
    QCOMPARE(view.inkLayer()->pixelBytes(), picture);

    // A stroke finished over the picture keeps the pixels it covered, to be taken back out.
    stroke(manager, "brush", QPoint(20, 20), QPoint(30, 10), 5);
    paintFromLayer(&view);
    QCOMPARE(view.inkLayer()->heldCount(), 101);
    const qint64 withPatch = view.inkLayer()->pixelBytes();
    QVERIFY(withPatch > picture);
    QVERIFY(withPatch < 2 * picture);

    view.inkLayer()->dropAll();
    QCOMPARE(view.inkLayer()->pixelBytes(), qint64(0));
}

QTEST_MAIN(TestInkLayer)
#include "test-ink-layer.moc"
