// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "canvas-test-support.h"
#include "canvas/draw-manager-ex.h"
#include "canvas/frame-pacer.h"
#include "canvas/graphics-view.h"

#include <QGraphicsScene>
#include <QPaintEvent>
#include <QScreen>
#include <QtTest>

namespace {

// Rectangles the scene reported as changed, one list per report.
QList<QList<QRectF>> reports(const QSignalSpy& spy)
{
    QList<QList<QRectF>> all;
    for (const QList<QVariant>& args : spy)
        all << args.at(0).value<QList<QRectF>>();
    return all;
}

// A scene with its pacer, and the scene's reports of what changed. A new scene reports
// itself changed as a whole once; the reports kept start after that one.
struct PacedScene
{
    explicit PacedScene(int frameMs) : pacer(&scene, frameMs) {}

    QGraphicsScene scene{0, 0, 400, 300};
    const bool settled = [this] {
        QSignalSpy first(&scene, &QGraphicsScene::changed);
        return first.wait(5000);
    }();
    QSignalSpy changed{&scene, &QGraphicsScene::changed};
    FramePacer pacer;
};

// Collects what the viewport repaints, letting the paint through.
class PaintedArea : public QObject
{
public:
    explicit PaintedArea(QWidget* viewport) { viewport->installEventFilter(this); }
    QRegion region;
    bool covers(const QRect& rect) const { return (QRegion(rect) - region).isEmpty(); }

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Paint)
            region += static_cast<QPaintEvent*>(event)->region();
        return false;
    }
};

} // namespace

class TestFramePacer : public QObject
{
    Q_OBJECT

private slots:
    void firstRepaintGoesAtOnce();
    void repaintsWithinAFrameAreGathered();
    void gatheredRepaintsFollowWithinAFrame();
    void oneScenePacerIsMadeOnce();
    void screenFrameTimeIsOneFrame();
    void lastSegmentOfAStrokeIsShown();
};

void TestFramePacer::firstRepaintGoesAtOnce()
{
    PacedScene paced(60000);
    QSignalSpy& changed = paced.changed;
    FramePacer& pacer = paced.pacer;
    pacer.request(QRectF(10, 10, 20, 20));
    QTRY_COMPARE(changed.count(), 1);
    QCOMPARE(reports(changed).at(0), QList<QRectF>{QRectF(10, 10, 20, 20)});
}

void TestFramePacer::repaintsWithinAFrameAreGathered()
{
    PacedScene paced(60000);
    QSignalSpy& changed = paced.changed;
    FramePacer& pacer = paced.pacer;
    pacer.request(QRectF(10, 10, 20, 20));
    QTRY_COMPARE(changed.count(), 1);

    pacer.request(QRectF(50, 50, 10, 10));
    pacer.request(QRectF(100, 40, 10, 10));
    QCoreApplication::processEvents();
    QCoreApplication::processEvents();
    QCOMPARE(changed.count(), 1);

    pacer.flush();
    QTRY_COMPARE(changed.count(), 2);
    QCOMPARE(reports(changed).at(1), QList<QRectF>{QRectF(50, 40, 60, 20)});
    // Nothing is left to hand over.
    pacer.flush();
    QCoreApplication::processEvents();
    QCOMPARE(changed.count(), 2);
}

void TestFramePacer::gatheredRepaintsFollowWithinAFrame()
{
    PacedScene paced(40);
    QSignalSpy& changed = paced.changed;
    FramePacer& pacer = paced.pacer;
    pacer.request(QRectF(10, 10, 20, 20));
    QTRY_COMPARE(changed.count(), 1);
    pacer.request(QRectF(200, 100, 10, 10));
    // Without another request, the frame's end hands it over.
    QTRY_COMPARE(changed.count(), 2);
    QCOMPARE(reports(changed).at(1), QList<QRectF>{QRectF(200, 100, 10, 10)});
}

void TestFramePacer::oneScenePacerIsMadeOnce()
{
    QGraphicsScene scene;
    FramePacer* pacer = FramePacer::forScene(&scene);
    QCOMPARE(FramePacer::forScene(&scene), pacer);
    QCOMPARE(pacer->parent(), &scene);
    QCOMPARE(pacer->frameMs(), FramePacer::screenFrameMs());
    QGraphicsScene other;
    QVERIFY(FramePacer::forScene(&other) != pacer);
}

void TestFramePacer::screenFrameTimeIsOneFrame()
{
    const int ms = FramePacer::screenFrameMs();
    QVERIFY2(ms >= 2 && ms <= 33, qPrintable(QString::number(ms)));
    const qreal hz = QGuiApplication::primaryScreen()->refreshRate();
    if (hz >= 30 && hz <= 360)
        QCOMPARE(ms, int(1000 / hz));
    else
        QCOMPARE(ms, 16);
}

// However the moves are gathered, the stroke's end is on screen without another move.
void TestFramePacer::lastSegmentOfAStrokeIsShown()
{
    pallo::GraphicsView view(true, nullptr);
    QVERIFY(showAsWindow(view, QSize(400, 300)));
    DrawManagerEx* manager = view.drawManager();
    manager->slot_color("#ff0000");
    manager->slot_width(3);
    manager->slot_figure("brush");
    manager->slot_mousestate("press", 30, 150);
    QCoreApplication::processEvents();

    PaintedArea painted(view.viewport());
    for (int x = 34; x <= 370; x += 4) {
        manager->slot_mousestate("move", x, 150);
        QCoreApplication::processEvents();
    }
    QTRY_VERIFY(painted.covers(QRect(360, 148, 10, 4)));
    QVERIFY(painted.covers(QRect(40, 148, 10, 4)));
    manager->slot_mousestate("release", 370, 150);
}

QTEST_MAIN(TestFramePacer)
#include "test-frame-pacer.moc"
