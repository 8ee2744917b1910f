// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "canvas/clip-area.h"

#include <QImage>
#include <QPainter>
#include <QWidget>
#include <QtTest>

class TestClipArea : public QObject
{
    Q_OBJECT

private slots:
    void unclippedPainterHasNoArea();
    void clipIsInLogicalCoordinates();
    void repaintRegionOfWidgetLimitsIt();
};

namespace {

// Notes the clip area its paint event sees, in the coordinates of an item drawn at offset.
class AreaWidget : public QWidget
{
public:
    QPointF offset;
    QRectF seen;

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.translate(offset);
        seen = clipArea(&painter);
    }
};

} // namespace

void TestClipArea::unclippedPainterHasNoArea()
{
    QImage image(100, 100, QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&image);
    QVERIFY(clipArea(&painter).isNull());
}

void TestClipArea::clipIsInLogicalCoordinates()
{
    QImage image(200, 200, QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&image);
    painter.setClipRect(QRect(10, 20, 50, 40));
    painter.translate(5, 5);
    QCOMPARE(clipArea(&painter), QRectF(5, 15, 50, 40));
}

void TestClipArea::repaintRegionOfWidgetLimitsIt()
{
    AreaWidget widget;
    widget.resize(300, 200);
    widget.offset = QPointF(30, 10);
    QImage image(300, 200, QImage::Format_ARGB32_Premultiplied);
    const QRegion region = QRegion(40, 50, 20, 10) + QRegion(100, 50, 10, 30);
    widget.render(&image, region.boundingRect().topLeft(), region);
    QCOMPARE(widget.seen, QRectF(10, 40, 70, 30));
}

QTEST_MAIN(TestClipArea)
#include "test-clip-area.moc"
