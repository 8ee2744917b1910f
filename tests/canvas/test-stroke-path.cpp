// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "canvas-test-support.h"
#include "canvas/stroke-path.h"

#include <QtMath>
#include <QtTest>
#include <cstring>

class TestStrokePath : public QObject
{
    Q_OBJECT

private slots:
    void partPaintsLikeWholePath_data();
    void partPaintsLikeWholePath();
    void repeatedPointAddsNothing();
    void partOfFarAreaIsEmpty();
    void diagonalPassingByIsLeftOut();
    void squareEndsLeaveOutWhatTheyCannotReach();
    void areaCoveringAllGivesWholePath();
    void pathWithCurveIsAlwaysWhole();
    void boundsFollowPoints();
    void roomToGrowAddsItsSizeOrAtLeast64_data();
    void roomToGrowAddsItsSizeOrAtLeast64();
    void finishedPathKeepsEveryElement_data();
    void finishedPathKeepsEveryElement();
    void finishedPathGrowsOn_data();
    void finishedPathGrowsOn();
    void finishedPathGivesSamePartNear_data();
    void finishedPathGivesSamePartNear();
};

Q_DECLARE_METATYPE(QPainterPath)

namespace {

const QSize kSize(400, 300);

// A scribble that crosses itself many times, with short and long segments, horizontal and
// vertical ones and sharp turns. Under 128 segments a stroke has no grid of its segments.
QPainterPath scribble(int points = 400)
{
    pallo::StrokePath stroke;
    stroke.moveTo(QPointF(40, 150));
    for (int i = 1; i < points; ++i) {
        const double t = i / 25.0;
        stroke.lineTo(
            QPointF(qRound(200 + 150 * qSin(t * 1.3)), qRound(150 + 110 * qSin(t * 2.1))));
    }
    stroke.lineTo(QPointF(380, 20));
    stroke.lineTo(QPointF(380, 280));
    stroke.lineTo(QPointF(20, 280));
    return stroke.path();
}

// Like a ring drawn back to its starting pixel: the stroke meets itself in a join.
QPainterPath closedRing()
{
    pallo::StrokePath stroke;
    stroke.moveTo(QPointF(300, 150));
    for (int i = 1; i < 60; ++i) {
        const double a = i * 2 * M_PI / 60;
        stroke.lineTo(QPointF(qRound(200 + 100 * qCos(a)), qRound(150 + 100 * qSin(a))));
    }
    stroke.lineTo(QPointF(300, 150));
    return stroke.path();
}

// The eraser's way: every segment a subpath of its own.
QPainterPath separateSegments()
{
    pallo::StrokePath stroke;
    QPointF previous(30, 30);
    for (int i = 1; i < 120; ++i) {
        const QPointF next(30 + (i * 37) % 340, 30 + (i * 53) % 240);
        stroke.moveTo(previous);
        stroke.lineTo(next);
        previous = next;
    }
    return stroke.path();
}

// The eraser rubbed back and forth in rows closer than its width, in short steps with a
// wobble, so that each area meets segments of two rows and many pass just beside it.
QPainterPath eraserRows()
{
    pallo::StrokePath stroke;
    QPointF previous(10, 20);
    for (int i = 1; i < 400; ++i) {
        const int row = i / 90;
        const int column = row % 2 ? 90 - i % 90 : i % 90;
        const QPointF next(10 + column * 4, 20 + row * 35 + qRound(10 * qSin(i / 3.0)));
        stroke.moveTo(previous);
        stroke.lineTo(next);
        previous = next;
    }
    return stroke.path();
}

// The same path, every point moved by offset and scaled by factor.
QPainterPath moved(const QPainterPath& path, const QPointF& offset, qreal factor = 1)
{
    QPainterPath result;
    for (int i = 0; i < path.elementCount(); ++i) {
        const QPainterPath::Element& e = path.elementAt(i);
        const QPointF p = QPointF(e.x, e.y) * factor + offset;
        if (e.isMoveTo())
            result.moveTo(p);
        else
            result.lineTo(p);
    }
    return result;
}

// A polyline through points, with moves where move is set.
QPainterPath polyline(const QVector<QPointF>& points, const QVector<bool>& moves = {})
{
    QPainterPath path;
    for (int i = 0; i < points.size(); ++i) {
        if (i == 0 || moves.value(i))
            path.moveTo(points.at(i));
        else
            path.lineTo(points.at(i));
    }
    return path;
}

bool sameBits(qreal a, qreal b)
{
    return std::memcmp(&a, &b, sizeof a) == 0;
}

// Whether two paths are element for element the same, to the last bit; QPainterPath's own
// comparison forgives small differences.
QString differenceOf(const QPainterPath& actual, const QPainterPath& expected)
{
    if (actual.fillRule() != expected.fillRule())
        return "fill rules differ";
    if (actual.elementCount() != expected.elementCount()) {
        return QString("%1 elements instead of %2")
            .arg(actual.elementCount())
            .arg(expected.elementCount());
    }
    for (int i = 0; i < actual.elementCount(); ++i) {
        const QPainterPath::Element& a = actual.elementAt(i);
        const QPainterPath::Element& e = expected.elementAt(i);
        if (a.type != e.type || !sameBits(a.x, e.x) || !sameBits(a.y, e.y)) {
            return QString("element %1 is %2 (%3, %4) instead of %5 (%6, %7)")
                .arg(i)
                .arg(a.type)
                .arg(a.x, 0, 'g', 17)
                .arg(a.y, 0, 'g', 17)
                .arg(e.type)
                .arg(e.x, 0, 'g', 17)
                .arg(e.y, 0, 'g', 17);
        }
    }
    return QString();
}

QImage paint(const QPainterPath& path, const QPen& pen, const QRect& clip)
{
    QImage image(kSize, QImage::Format_ARGB32_Premultiplied);
    image.fill(QColor(0, 128, 0, 200));
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.setClipRect(clip);
    painter.setPen(pen);
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    painter.drawPath(path);
    painter.end();
    return image;
}

} // namespace

void TestStrokePath::partPaintsLikeWholePath_data()
{
    QTest::addColumn<QPainterPath>("path");
    QTest::addColumn<QPen>("pen");
    QTest::addColumn<qreal>("reach");
    QTest::addColumn<qreal>("squareHalf");
    QTest::addColumn<bool>("finished");

    QPen brush(QColor(255, 0, 0), 3);
    brush.setCapStyle(Qt::FlatCap);
    QPen highlighter(QColor(255, 0, 0, 127), 30);
    highlighter.setCapStyle(Qt::FlatCap);
    // The eraser's pen as it reaches: 40 wide with square ends. Its own colour, black of alpha
    // 1, would hardly change a pixel of this picture, so an opaque one shows what it touches.
    const QPen eraser(QColor(255, 0, 0), 40);

    QTest::newRow("pen") << scribble() << brush << 3.5 << 0.0 << false;
    QTest::newRow("pen, short") << scribble(40) << brush << 3.5 << 0.0 << false;
    QTest::newRow("pen, finished") << scribble() << brush << 3.5 << 0.0 << true;
    QTest::newRow("pen, short and finished") << scribble(40) << brush << 3.5 << 0.0 << true;
    QTest::newRow("highlighter crossing itself")
        << scribble() << highlighter << 17.0 << 0.0 << false;
    QTest::newRow("highlighter ring closed on itself")
        << closedRing() << highlighter << 17.0 << 0.0 << false;
    QTest::newRow("highlighter ring, finished")
        << closedRing() << highlighter << 17.0 << 0.0 << true;
    const qreal eraserReach = 20 * M_SQRT2 + 2;
    QTest::newRow("eraser segments with square ends")
        << separateSegments() << eraser << eraserReach << 0.0 << false;
    QTest::newRow("eraser segments, finished")
        << separateSegments() << eraser << eraserReach << 0.0 << true;
    QTest::newRow("eraser segments, only those whose squares come near")
        << separateSegments() << eraser << eraserReach << 20.0 << false;
    QTest::newRow("eraser segments in rows, only those whose squares come near")
        << eraserRows() << eraser << eraserReach << 20.0 << false;
    QTest::newRow("eraser segments in rows, finished")
        << eraserRows() << eraser << eraserReach << 20.0 << true;
}

void TestStrokePath::partPaintsLikeWholePath()
{
    QFETCH(QPainterPath, path);
    QFETCH(QPen, pen);
    QFETCH(qreal, reach);
    QFETCH(qreal, squareHalf);
    QFETCH(bool, finished);

    pallo::StrokePath stroke(path);
    if (finished) {
        stroke.compact();
        QCOMPARE(stroke.path(), path);
    }
    int compared = 0;
    for (int y = -20; y < kSize.height(); y += 23) {
        for (int x = -20; x < kSize.width(); x += 29) {
            for (const QSize size : {QSize(9, 9), QSize(40, 25), QSize(120, 70)}) {
                const QRect clip(QPoint(x, y), size);
                const QPainterPath part = stroke.partNear(clip, reach, squareHalf);
                const QImage whole = paint(path, pen, clip);
                const QImage local = paint(part, pen, clip);
                if (whole != local) {
                    keepPicture(whole, "stroke-path-whole");
                    keepPicture(local, "stroke-path-part");
                    QFAIL(qPrintable(QString("pixels differ in %1,%2 %3x%4")
                                         .arg(x)
                                         .arg(y)
                                         .arg(size.width())
                                         .arg(size.height())));
                }
                ++compared;
            }
        }
    }
    QVERIFY(compared > 500);
}

void TestStrokePath::repeatedPointAddsNothing()
{
    pallo::StrokePath stroke;
    stroke.moveTo(QPointF(10, 10));
    QCOMPARE(stroke.lineTo(QPointF(30, 10)), QRectF(QPointF(10, 10), QPointF(30, 10)));
    QVERIFY(stroke.lineTo(QPointF(30, 10)).isNull());
    QCOMPARE(stroke.path().elementCount(), 2);
}

void TestStrokePath::partOfFarAreaIsEmpty()
{
    const pallo::StrokePath stroke(scribble());
    QVERIFY(stroke.partNear(QRectF(1000, 1000, 10, 10), 20).isEmpty());
    // A segment that only passes by the corner of the area is part of it, with two more of
    // its polyline on either side.
    pallo::StrokePath line;
    line.moveTo(QPointF(0, 0));
    for (int i = 1; i <= 30; ++i)
        line.lineTo(QPointF(i * 40, (i % 2) * 3));
    const QPainterPath part = line.partNear(QRectF(180, 10, 2, 2), 8);
    QCOMPARE(part.elementCount(), 6);
    QCOMPARE(QPointF(part.elementAt(0)), QPointF(80, 0));
    QCOMPARE(QPointF(part.elementAt(5)), QPointF(280, 3));
}

void TestStrokePath::diagonalPassingByIsLeftOut()
{
    pallo::StrokePath stroke;
    stroke.moveTo(QPointF(0, 0));
    stroke.lineTo(QPointF(1000, 1000));
    stroke.lineTo(QPointF(1000, 990));
    // Inside the diagonal's bounds, far from the diagonal itself.
    QVERIFY(stroke.partNear(QRectF(800, 100, 10, 10), 5).isEmpty());
    // Across it.
    QCOMPARE(stroke.partNear(QRectF(495, 495, 10, 10), 5).elementCount(), 3);
}

void TestStrokePath::squareEndsLeaveOutWhatTheyCannotReach()
{
    // Stroked 40 wide with square ends, a short horizontal segment paints 20 px beyond its
    // ends and sides; only its corners reach as far as the reach of 30.
    pallo::StrokePath stroke;
    stroke.moveTo(QPointF(100, 100));
    stroke.lineTo(QPointF(104, 100));
    const qreal reach = 20 * M_SQRT2 + 2;
    const QRectF beyondEnd(130, 95, 10, 10);
    const QRectF nearCorner(120, 118, 10, 10);
    QCOMPARE(stroke.partNear(beyondEnd, reach).elementCount(), 2);
    QVERIFY(stroke.partNear(beyondEnd, reach, 20).isEmpty());
    QCOMPARE(stroke.partNear(nearCorner, reach, 20).elementCount(), 2);
}

void TestStrokePath::areaCoveringAllGivesWholePath()
{
    const QPainterPath path = scribble();
    const pallo::StrokePath stroke(path);
    QCOMPARE(stroke.partNear(QRectF(0, 0, 400, 300), 2), path);
}

void TestStrokePath::pathWithCurveIsAlwaysWhole()
{
    QPainterPath path(QPointF(0, 0));
    path.lineTo(100, 0);
    path.cubicTo(150, 0, 150, 100, 100, 100);
    path.lineTo(0, 100);
    pallo::StrokePath stroke(path);
    stroke.lineTo(QPointF(0, 200));
    QCOMPARE(stroke.partNear(QRectF(0, 190, 5, 5), 2), stroke.path());
}

void TestStrokePath::boundsFollowPoints()
{
    pallo::StrokePath stroke;
    stroke.moveTo(QPointF(50, 60));
    QCOMPARE(stroke.pointBounds(), QRectF(50, 60, 0, 0));
    stroke.lineTo(QPointF(10, 90));
    stroke.lineTo(QPointF(70, 80));
    QCOMPARE(stroke.pointBounds(), QRectF(QPointF(10, 60), QPointF(70, 90)));
}

void TestStrokePath::roomToGrowAddsItsSizeOrAtLeast64_data()
{
    QTest::addColumn<QRectF>("tight");
    QTest::addColumn<QRectF>("grown");
    QTest::newRow("large") << QRectF(0, 0, 800, 400) << QRectF(-800, -400, 2400, 1200);
    QTest::newRow("thin") << QRectF(0, 0, 800, 16) << QRectF(-800, -64, 2400, 144);
    QTest::newRow("small") << QRectF(10, 20, 80, 16) << QRectF(-70, -44, 240, 144);
    QTest::newRow("a point") << QRectF(5, 5, 0, 0) << QRectF(-59, -59, 128, 128);
}

void TestStrokePath::roomToGrowAddsItsSizeOrAtLeast64()
{
    QFETCH(QRectF, tight);
    QFETCH(QRectF, grown);
    QCOMPARE(pallo::StrokePath::roomToGrow(tight), grown);
}

void TestStrokePath::finishedPathKeepsEveryElement_data()
{
    QTest::addColumn<QPainterPath>("path");

    QTest::newRow("one subpath") << scribble(60);
    QTest::newRow("one long subpath") << scribble();
    QTest::newRow("a single point") << polyline({{12, 34}});
    QTest::newRow("subpath of its own for every segment") << separateSegments();
    QTest::newRow("rows of segments") << eraserRows();
    QTest::newRow("several subpaths")
        << polyline({{10, 10}, {20, 10}, {20, 30}, {50, 50}, {60, 40}, {5, 5}, {6, 7}, {8, 9}},
                    {false, false, false, true, false, true, false, false});
    QTest::newRow("closed on its start") << closedRing();
    QPainterPath closedTwice = polyline({{10, 10}, {50, 10}, {50, 50}});
    closedTwice.closeSubpath();
    closedTwice.lineTo(90, 90);
    closedTwice.lineTo(90, 10);
    closedTwice.closeSubpath();
    QTest::newRow("closed subpaths") << closedTwice;
    QTest::newRow("negative") << moved(scribble(), QPointF(-1000, -700));
    QTest::newRow("edges of the compact range")
        << polyline({{-32768, 32767}, {32767, -32768}, {0, 0}, {-1, 1}});
    QTest::newRow("beyond the compact range, high")
        << polyline({{10, 10}, {20, 20}, {32768, 20}, {30, 30}});
    QTest::newRow("beyond the compact range, low")
        << polyline({{10, 10}, {20, 20}, {20, -32769}, {30, 30}});
    QTest::newRow("far beyond the compact range") << moved(scribble(), QPointF(1e6, 0));
    QTest::newRow("fractions") << polyline({{10, 10}, {20, 20.5}, {30, 30}});
    QTest::newRow("a fraction of the last point") << polyline({{10, 10}, {20, 20}, {30, 30.25}});
    QTest::newRow("tiny fraction") << polyline({{10, 10}, {20 + 1e-9, 20}, {30, 30}});
    QTest::newRow("fraction beyond the range") << polyline({{10, 10}, {32767.5, 20}, {30, 30}});
    QTest::newRow("long path scaled to fractions") << moved(scribble(), QPointF(0.25, 0), 1.5);
    QTest::newRow("minus zero") << polyline({{10, 10}, {-0.0, 20}, {30, 30}});
    QPainterPath winding = scribble(60);
    winding.setFillRule(Qt::WindingFill);
    QTest::newRow("winding fill") << winding;
    QPainterPath repeated;
    repeated.addPolygon(QPolygonF({{10, 10}, {20, 20}, {20, 20}, {30, 10}}));
    QTest::newRow("a line to the point it stands on") << repeated;
    QPainterPath curve = polyline({{0, 0}, {100, 0}});
    curve.cubicTo(150, 0, 150, 100, 100, 100);
    curve.lineTo(0, 100);
    QTest::newRow("curve") << curve;
}

void TestStrokePath::finishedPathKeepsEveryElement()
{
    QFETCH(QPainterPath, path);
    for (const auto packing : {pallo::StrokePath::PackPoints, pallo::StrokePath::KeepPath}) {
        pallo::StrokePath stroke(path);
        const QRectF bounds = stroke.pointBounds();
        stroke.compact(packing);
        const QString difference = differenceOf(stroke.path(), path);
        QVERIFY2(difference.isEmpty(), qPrintable(difference));
        QCOMPARE(stroke.elementCount(), path.elementCount());
        QCOMPARE(stroke.pointBounds(), bounds);
    }
}

void TestStrokePath::finishedPathGrowsOn_data()
{
    QTest::addColumn<QPainterPath>("path");
    QTest::newRow("one subpath") << scribble(60);
    QTest::newRow("several subpaths") << separateSegments();
    QTest::newRow("fractions") << moved(scribble(60), QPointF(0.5, 0));
}

void TestStrokePath::finishedPathGrowsOn()
{
    QFETCH(QPainterPath, path);
    for (const auto packing : {pallo::StrokePath::PackPoints, pallo::StrokePath::KeepPath}) {
        pallo::StrokePath stroke(path);
        stroke.compact(packing);
        const QPointF last = path.currentPosition();
        QCOMPARE(stroke.lineTo(last + QPointF(7, 3)), QRectF(last, last + QPointF(7, 3)));
        stroke.moveTo(QPointF(-5, -6));
        stroke.lineTo(QPointF(-15, -16));

        QPainterPath expected = path;
        expected.lineTo(last + QPointF(7, 3));
        expected.moveTo(-5, -6);
        expected.lineTo(-15, -16);
        const QString difference = differenceOf(stroke.path(), expected);
        QVERIFY2(difference.isEmpty(), qPrintable(difference));
        QCOMPARE(stroke.pointBounds().topLeft(), QPointF(-15, -16));
        // Where its subpaths start is known again.
        const pallo::StrokePath fresh(expected);
        const QRectF nearEnds(-40, -40, 80, 80);
        const QString part =
            differenceOf(stroke.partNear(nearEnds, 30), fresh.partNear(nearEnds, 30));
        QVERIFY2(part.isEmpty(), qPrintable(part));
    }
}

void TestStrokePath::finishedPathGivesSamePartNear_data()
{
    QTest::addColumn<QPainterPath>("path");
    QTest::addColumn<qreal>("squareHalf");

    // Over 128 segments the parts are found through the grid.
    QTest::newRow("long stroke") << scribble() << 0.0;
    QTest::newRow("short stroke") << scribble(40) << 0.0;
    QTest::newRow("long stroke, negative") << moved(scribble(), QPointF(-300, -200)) << 0.0;
    QTest::newRow("ring closed on itself") << closedRing() << 0.0;
    QPainterPath rings = closedRing();
    rings.addPath(moved(closedRing(), QPointF(40, 30)));
    QTest::newRow("two rings closed on themselves") << rings << 0.0;
    QTest::newRow("eraser segments") << separateSegments() << 20.0;
    QTest::newRow("eraser rows") << eraserRows() << 20.0;
    QTest::newRow("eraser rows, negative") << moved(eraserRows(), QPointF(-300, -200)) << 20.0;
    QTest::newRow("long stroke in fractions") << moved(scribble(), QPointF(0, 0.5)) << 0.0;
    QTest::newRow("long stroke beyond the compact range")
        << moved(scribble(), QPointF(40000, 0)) << 0.0;
}

void TestStrokePath::finishedPathGivesSamePartNear()
{
    QFETCH(QPainterPath, path);
    QFETCH(qreal, squareHalf);
    const pallo::StrokePath growing(path);
    for (const auto packing : {pallo::StrokePath::PackPoints, pallo::StrokePath::KeepPath}) {
        pallo::StrokePath finished(path);
        finished.compact(packing);
        const QRectF bounds = growing.pointBounds();
        int parts = 0;
        for (qreal y = bounds.top() - 30; y < bounds.bottom() + 30; y += 23) {
            for (qreal x = bounds.left() - 30; x < bounds.right() + 30; x += 29) {
                for (const QSizeF size : {QSizeF(9, 9), QSizeF(40, 25), QSizeF(120, 70)}) {
                    const QRectF rect(QPointF(x, y), size);
                    const QPainterPath expected = growing.partNear(rect, 8, squareHalf);
                    const QString difference =
                        differenceOf(finished.partNear(rect, 8, squareHalf), expected);
                    QVERIFY2(difference.isEmpty(), qPrintable(QString("%1 %2,%3 %4x%5")
                                                                  .arg(difference)
                                                                  .arg(x)
                                                                  .arg(y)
                                                                  .arg(size.width())
                                                                  .arg(size.height())));
                    if (!expected.isEmpty())
                        ++parts;
                }
            }
        }
        QVERIFY(parts > 100);
        const QString whole = differenceOf(finished.partNear(QRectF(), 8, squareHalf), path);
        QVERIFY2(whole.isEmpty(), qPrintable(whole));
    }
}

QTEST_MAIN(TestStrokePath)
#include "test-stroke-path.moc"
