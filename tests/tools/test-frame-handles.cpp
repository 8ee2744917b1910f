// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "common/scale-factor.h"
#include "tool-test-support.h"
#include "tools/frame-handles.h"

#include <QApplication>
#include <QGraphicsDropShadowEffect>
#include <QPainter>
#include <QPushButton>
#include <QScreen>
#include <QtTest>

using namespace frame_handles;

class TestFrameHandles : public QObject
{
    Q_OBJECT
private slots:
    void scaleIsThePrimaryScreensAndKept();
    void scaledTruncates_data();
    void scaledTruncates();
    void hover_data();
    void hover();
    void cursors_data();
    void cursors();
    void buttonsSitUnderTheFrame_data();
    void buttonsSitUnderTheFrame();
    void handles_data();
    void handles();
    void paintedFrameAndHandles();
    void pictureAndDebugLine();
    void emptyPicturePaintsNothing();
    void preparedTool();
    void desktopIsTheWholeDesktop();
};

void TestFrameHandles::scaleIsThePrimaryScreensAndKept()
{
    QCOMPARE(scale(), screenScaleFactor());
    QCOMPARE(scale(), scale());
}

void TestFrameHandles::scaledTruncates_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<double>("s");
    QTest::addColumn<int>("expected");
    QTest::newRow("408 at 96 dpi") << 408.0 << 1.0 << 408;
    QTest::newRow("408 at 100 dpi") << 408.0 << 100 / 96.0 << 425;
    QTest::newRow("44 at 100 dpi") << 44.0 << 100 / 96.0 << 45;
    QTest::newRow("negative towards zero") << -22.0 << 100 / 96.0 << -22;
    QTest::newRow("10 at 1.25") << 10.0 << 1.25 << 12;
}

void TestFrameHandles::scaledTruncates()
{
    QFETCH(double, value);
    QFETCH(double, s);
    QFETCH(int, expected);
    QCOMPARE(scaled(value, s), expected);
}

void TestFrameHandles::hover_data()
{
    QTest::addColumn<QRect>("frame");
    QTest::addColumn<QPoint>("cursor");
    QTest::addColumn<double>("s");
    QTest::addColumn<int>("mode");
    const QRect lens(100, 100, 408, 329); // corners (100,100) (507,100) (100,428) (507,428)
    QTest::newRow("top-left exact") << lens << QPoint(100, 100) << 1.0 << 0;
    QTest::newRow("top-left within 4") << lens << QPoint(96, 104) << 1.0 << 0;
    QTest::newRow("top-left 5 off in x") << lens << QPoint(95, 100) << 1.0 << 4;
    QTest::newRow("top-left 5 off in y") << lens << QPoint(100, 105) << 1.0 << 4;
    QTest::newRow("top-right") << lens << QPoint(507, 100) << 1.0 << 3;
    QTest::newRow("top-right within 4") << lens << QPoint(511, 96) << 1.0 << 3;
    QTest::newRow("bottom-left") << lens << QPoint(100, 428) << 1.0 << 1;
    QTest::newRow("bottom-left within 4") << lens << QPoint(104, 432) << 1.0 << 1;
    QTest::newRow("bottom-right") << lens << QPoint(507, 428) << 1.0 << 2;
    QTest::newRow("bottom-right within 4") << lens << QPoint(503, 424) << 1.0 << 2;
    QTest::newRow("bottom-right 5 off") << lens << QPoint(512, 428) << 1.0 << 4;
    QTest::newRow("centre") << lens << QPoint(300, 260) << 1.0 << 4;
    QTest::newRow("on an edge, not a corner") << lens << QPoint(300, 100) << 1.0 << 4;
    QTest::newRow("tolerance grows with s") << lens << QPoint(92, 92) << 2.0 << 0;
    QTest::newRow("but stays truncated") << lens << QPoint(91, 100) << 2.0 << 4;
    // A frame small enough for the tolerance squares to overlap: the order decides.
    const QRect tiny(100, 100, 6, 6); // corners (100,100) (105,100) (100,105) (105,105)
    QTest::newRow("top-left before top-right") << tiny << QPoint(102, 100) << 1.0 << 0;
    QTest::newRow("top-left before bottom-right") << tiny << QPoint(103, 103) << 1.0 << 0;
    QTest::newRow("top-right before bottom-right") << tiny << QPoint(105, 104) << 1.0 << 3;
    QTest::newRow("bottom-left before bottom-right") << tiny << QPoint(101, 105) << 1.0 << 1;
}

void TestFrameHandles::hover()
{
    QFETCH(QRect, frame);
    QFETCH(QPoint, cursor);
    QFETCH(double, s);
    QFETCH(int, mode);
    QCOMPARE(hoverMode(frame, cursor, s), mode);
}

void TestFrameHandles::cursors_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<Qt::CursorShape>("shape");
    QTest::newRow("top-left") << 0 << Qt::SizeFDiagCursor;
    QTest::newRow("bottom-left") << 1 << Qt::SizeBDiagCursor;
    QTest::newRow("bottom-right") << 2 << Qt::SizeFDiagCursor;
    QTest::newRow("top-right") << 3 << Qt::SizeBDiagCursor;
    QTest::newRow("move") << 4 << Qt::ArrowCursor;
}

void TestFrameHandles::cursors()
{
    QFETCH(int, mode);
    QFETCH(Qt::CursorShape, shape);
    QCOMPARE(cursorForMode(mode), shape);
}

void TestFrameHandles::buttonsSitUnderTheFrame_data()
{
    QTest::addColumn<QRect>("frame");
    QTest::addColumn<double>("s");
    QTest::addColumn<QRect>("left");
    QTest::addColumn<QRect>("right");
    // Centre x 959, bottom 703.
    QTest::newRow("96 dpi") << QRect(756, 375, 408, 329) << 1.0 << QRect(914, 711, 44, 44)
                            << QRect(962, 711, 44, 44);
    QTest::newRow("192 dpi") << QRect(756, 375, 408, 329) << 2.0 << QRect(870, 711, 88, 88)
                             << QRect(962, 711, 88, 88);
}

void TestFrameHandles::buttonsSitUnderTheFrame()
{
    QFETCH(QRect, frame);
    QFETCH(double, s);
    QFETCH(QRect, left);
    QFETCH(QRect, right);
    const ButtonPair pair = buttonsUnder(frame, scaled(44, s), s);
    QCOMPARE(pair.left, left);
    QCOMPARE(pair.right, right);
    // 4 pixels apart about the centre line, 7 pixels below the bottom edge.
    QCOMPARE(pair.right.left() - pair.left.right() - 1, 4);
    QCOMPARE(pair.left.right() + 3, frame.center().x() + 1);
    QCOMPARE(pair.left.top() - frame.bottom() - 1, 7);
    QCOMPARE(pair.right.top(), pair.left.top());
}

void TestFrameHandles::handles_data()
{
    QTest::addColumn<int>("corner");
    QTest::addColumn<double>("s");
    QTest::addColumn<QRect>("handle");
    const double s100 = 100 / 96.0;
    QTest::newRow("top-left") << 0 << 1.0 << QRect(95, 45, 10, 10);
    QTest::newRow("bottom-right") << 2 << 1.0 << QRect(295, 145, 10, 10);
    QTest::newRow("top-right") << 3 << 1.0 << QRect(295, 46, 10, 10);
    QTest::newRow("bottom-left") << 1 << 1.0 << QRect(96, 145, 10, 10);
    // 5*s = 5.2 is subtracted before truncating: 100 - 5.2 = 94.79 -> 94.
    QTest::newRow("top-left at 100 dpi") << 0 << s100 << QRect(94, 44, 10, 10);
    QTest::newRow("double size") << 2 << 2.0 << QRect(290, 140, 20, 20);
}

void TestFrameHandles::handles()
{
    QFETCH(int, corner);
    QFETCH(double, s);
    QFETCH(QRect, handle);
    const QRect frame(100, 50, 200, 100); // corners (100,50) (299,50) (100,149) (299,149)
    QCOMPARE(handleRect(frame, corner, s), handle);
}

void TestFrameHandles::paintedFrameAndHandles()
{
    QImage image(400, 300, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    const QRect frame(100, 50, 200, 100);
    {
        QPainter painter(&image);
        paintFrame(painter, frame, 1.0);
    }
    const QColor orange("#F5A623");
    // The outline's middle, away from the handles.
    const QColor edge = image.pixelColor(200, 50);
    QVERIFY2(qAbs(edge.red() - orange.red()) < 40 && qAbs(edge.green() - orange.green()) < 40,
             qPrintable(edge.name()));
    QCOMPARE(image.pixelColor(200, 100).alpha(), 0); // no fill
    for (const QPoint& inside :
         {QPoint(100, 50), QPoint(299, 149), QPoint(299, 50), QPoint(100, 149)}) {
        QCOMPARE(image.pixelColor(inside), QColor(Qt::white));
    }
    QCOMPARE(image.pixelColor(91, 41).alpha(), 0); // outside the top-left handle
}

void TestFrameHandles::pictureAndDebugLine()
{
    QImage picture(20, 10, QImage::Format_RGB32);
    picture.fill(Qt::red);
    QImage target(50, 40, QImage::Format_RGB32);
    target.fill(Qt::blue);
    QTest::ignoreMessage(QtDebugMsg, "[ZOOM][this->Rect()]:QRect(0,0 50x40),[bgImg.Rect()]:"
                                     "QSize(20, 10)");
    QPainter painter(&target);
    paintPicture(painter, picture, target.rect(), "[ZOOM]");
    QVERIFY(painter.testRenderHint(QPainter::Antialiasing));
    QVERIFY(painter.testRenderHint(QPainter::SmoothPixmapTransform));
    painter.end();
    QCOMPARE(target.pixelColor(19, 9), QColor(Qt::red));
    QCOMPARE(target.pixelColor(20, 9), QColor(Qt::blue));
}

void TestFrameHandles::emptyPicturePaintsNothing()
{
    QImage target(50, 40, QImage::Format_RGB32);
    target.fill(Qt::blue);
    QTest::ignoreMessage(QtDebugMsg, "[SCN][this->Rect()]:QRect(0,0 50x40),[bgImg.Rect()]:"
                                     "QSize(0, 0)");
    QPainter painter(&target);
    paintPicture(painter, QImage(), target.rect(), "[SCN]");
    painter.end();
    QCOMPARE(target.pixelColor(0, 0), QColor(Qt::blue));
    QCOMPARE(target.pixelColor(49, 39), QColor(Qt::blue));
}

void TestFrameHandles::preparedTool()
{
    QWidget tool;
    auto* first = new QPushButton(&tool);
    auto* second = new QPushButton(&tool);
    prepareTool(&tool, first, second);
    QVERIFY(tool.testAttribute(Qt::WA_MouseTracking));
    for (QPushButton* button : {first, second}) {
        QCOMPARE(button->focusPolicy(), Qt::NoFocus);
        QVERIFY(tool_test::hasHalo(button));
    }
}

void TestFrameHandles::desktopIsTheWholeDesktop()
{
    QRect all;
    for (const QScreen* screen : QGuiApplication::screens())
        all |= screen->geometry();
    QCOMPARE(desktopSize(), all.size());
    QVERIFY(!desktopSize().isEmpty());
}

QTEST_MAIN(TestFrameHandles)
#include "test-frame-handles.moc"
