// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "app/pallo-translator.h"
#include "root-pattern.h"
#include "tests/test-output.h"
#include "tool-test-support.h"
#include "tools/frame-handles.h"
#include "tools/lens-geometry.h"
#include "tools/zoom-widget.h"
#include "x-input-focus.h"

#include <QApplication>
#include <QGraphicsDropShadowEffect>
#include <QPushButton>
#include <QScreen>
#include <QSignalSpy>
#include <QtTest>

using namespace tool_test;
using frame_handles::scale;
using frame_handles::scaled;

namespace {
const int cell = 16;
} // namespace

class TestZoomWidget : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void init();
    void cleanup();

    void form();
    void startsInTheMiddle();
    void hoverSetsModeAndCursor_data();
    void hoverSetsModeAndCursor();
    void shrinkingStopsAtTheMinimumWidth();
    void resizeAcrossTheCentreDoesNotFlip();
    void moveLeavingTheDesktopIsRefusedPerAxis();
    void pressAfterReleaseMoves();
    void wheelEndValues();
    void escapeClosesAndOtherKeysDoNothing();
    void closeButtonCloses();
    void lensShowsThePictureEnlarged();
    void lightsOffBlacksOutAllButLensAndButtons();
    void pictureNeverContainsTheMagnifier();
    void reactivationTakesANewPicture();
    void keepsActivationAfterItsPicture();
    void everyPaintWritesTheDebugLine();

private:
    void openActivated();
    QImage pattern(int phase = 0) const;
    QColor patternAt(const QPoint& p, int phase = 0) const;

    RootPattern root;
    PalloTranslator* translator = nullptr;
    ZoomWidget* zoom = nullptr;
    QSize desktop;
};

void TestZoomWidget::initTestCase()
{
    QVERIFY(root.isOpen());
    translator = new PalloTranslator("english", this);
    QCoreApplication::installTranslator(translator);
    desktop = frame_handles::desktopSize();
}

void TestZoomWidget::init()
{
    root.show(pattern());
    zoom = new ZoomWidget;
}

void TestZoomWidget::cleanup()
{
    // Closed before it goes, as its owner does, so that its activation ends.
    zoom->close();
    delete zoom;
    zoom = nullptr;
}

QImage TestZoomWidget::pattern(int phase) const
{
    return RootPattern::gradient(desktop, cell, phase);
}

QColor TestZoomWidget::patternAt(const QPoint& p, int phase) const
{
    const int red = p.x() * 255 / (desktop.width() - 1);
    const int green = p.y() * 255 / (desktop.height() - 1);
    const int blue = ((p.x() / cell + p.y() / cell + phase) % 2) != 0 ? 255 : 0;
    return QColor(red, green, blue);
}

void TestZoomWidget::openActivated()
{
    showWithPicture(zoom, zoom->lensRect(), patternAt(QPoint(20, 20)));
}

void TestZoomWidget::form()
{
    QCOMPARE(zoom->objectName(), QString("ZoomWidget"));
    QCOMPARE(zoom->windowTitle(), QString("ZoomWidget"));
    auto* turnoff = zoom->findChild<QPushButton*>("pushButton_zoom_turnoff");
    auto* close = zoom->findChild<QPushButton*>("pushButton_zoom_close");
    QVERIFY(turnoff != nullptr && close != nullptr);
    QVERIFY(turnoff->isCheckable());
    QVERIFY(!close->isCheckable());
    QCOMPARE(turnoff->text(), QString());
    QCOMPARE(turnoff->styleSheet(), QString());
    QCOMPARE(turnoff->iconSize(), QSize(32, 32));
    QCOMPARE(turnoff->toolTip(), QString("Turn off the light"));
    QVERIFY(zoom->testAttribute(Qt::WA_MouseTracking));
    for (QPushButton* button : {turnoff, close}) {
        QCOMPARE(button->focusPolicy(), Qt::NoFocus);
        QVERIFY(hasHalo(button));
    }
    QVERIFY(!zoom->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
}

void TestZoomWidget::startsInTheMiddle()
{
    const double s = scale();
    const QRect lens = zoom->lensRect();
    QCOMPARE(lens.size(), QSize(scaled(408, s), scaled(329, s)));
    QCOMPARE(lens.center(), QPoint(desktop.width() / 2, desktop.height() / 2));
    const int b = scaled(44, s);
    auto* turnoff = zoom->findChild<QPushButton*>("pushButton_zoom_turnoff");
    auto* close = zoom->findChild<QPushButton*>("pushButton_zoom_close");
    const frame_handles::ButtonPair under = frame_handles::buttonsUnder(lens, b, s);
    QCOMPARE(turnoff->geometry(), under.left);
    QCOMPARE(close->geometry(), under.right);
    QCOMPARE(turnoff->size(), QSize(b, b));
    QCOMPARE(zoom->zoom(), 2.0f);
    QCOMPARE(zoom->currentDragMode(), 4);
    QVERIFY(!zoom->isLightOff());
    if (qFuzzyCompare(s, 1.0)) {
        QCOMPARE(lens.size(), QSize(408, 329));
        QCOMPARE(b, 44);
    }
    // Handles as the user sees them: white squares of side trunc(10*s) on the corners.
    openActivated();
    const QImage seen = grabScreen();
    const QRect handle = frame_handles::handleRect(lens, 2, s);
    QCOMPARE(handle.size(), QSize(scaled(10, s), scaled(10, s)));
    QCOMPARE(seen.pixelColor(handle.center()), QColor(Qt::white));
    QVERIFY(seen.pixelColor(handle.bottomRight() + QPoint(2, 2)) != QColor(Qt::white));
}

void TestZoomWidget::hoverSetsModeAndCursor_data()
{
    QTest::addColumn<int>("corner");
    QTest::addColumn<int>("mode");
    QTest::addColumn<Qt::CursorShape>("shape");
    QTest::newRow("top-left") << 0 << 0 << Qt::SizeFDiagCursor;
    QTest::newRow("top-right") << 3 << 3 << Qt::SizeBDiagCursor;
    QTest::newRow("bottom-left") << 1 << 1 << Qt::SizeBDiagCursor;
    QTest::newRow("bottom-right") << 2 << 2 << Qt::SizeFDiagCursor;
    QTest::newRow("centre") << 4 << 4 << Qt::ArrowCursor;
}

void TestZoomWidget::hoverSetsModeAndCursor()
{
    QFETCH(int, corner);
    QFETCH(int, mode);
    QFETCH(Qt::CursorShape, shape);
    const QRect lens = zoom->lensRect();
    const QPoint points[] = {lens.topLeft(), lens.bottomLeft(), lens.bottomRight(), lens.topRight(),
                             lens.center()};
    const int t = scaled(4, scale());
    sendMouse(zoom, QEvent::MouseMove, points[corner] + QPoint(t, -t), Qt::NoButton, Qt::NoButton);
    QCOMPARE(zoom->currentDragMode(), mode);
    QCOMPARE(zoom->cursor().shape(), shape);
}

void TestZoomWidget::shrinkingStopsAtTheMinimumWidth()
{
    const QRect lens = zoom->lensRect();
    const QPoint pc = lens.center();
    sendMouse(zoom, QEvent::MouseMove, lens.bottomRight(), Qt::NoButton, Qt::NoButton);
    sendMouse(zoom, QEvent::MouseButtonPress, lens.bottomRight(), Qt::LeftButton, Qt::LeftButton);
    const double minimum = 200 * scale();
    // The lens is mirrored about its integer centre, which lies left of the middle when its
    // width is even: the first move, on the corner itself, then widens it by a pixel.
    int lastWidth = 2 * (lens.right() - pc.x()) + 1;
    for (int x = lens.right(); x > pc.x() + 40; x -= 10) {
        sendMouse(zoom, QEvent::MouseMove, QPoint(x, lens.bottom() + 30), Qt::NoButton,
                  Qt::LeftButton);
        QVERIFY(zoom->lensRect().width() <= lastWidth);
        lastWidth = zoom->lensRect().width();
    }
    const QRect shrunk = zoom->lensRect();
    QVERIFY2(shrunk.width() - 1 >= minimum && shrunk.width() - 1 < minimum + 20,
             qPrintable(QString::number(shrunk.width())));
    // The other axis went on following the cursor.
    QCOMPARE(shrunk.bottom(), lens.bottom() + 30);
    QCOMPARE(shrunk.center(), pc);
    // The buttons follow the lens.
    auto* turnoff = zoom->findChild<QPushButton*>("pushButton_zoom_turnoff");
    QCOMPARE(turnoff->geometry(),
             frame_handles::buttonsUnder(shrunk, turnoff->width(), scale()).left);
}

void TestZoomWidget::resizeAcrossTheCentreDoesNotFlip()
{
    const QRect lens = zoom->lensRect();
    sendMouse(zoom, QEvent::MouseMove, lens.topLeft(), Qt::NoButton, Qt::NoButton);
    sendMouse(zoom, QEvent::MouseButtonPress, lens.topLeft(), Qt::LeftButton, Qt::LeftButton);
    const QPoint across = lens.center() + QPoint(300, 250);
    sendMouse(zoom, QEvent::MouseMove, across, Qt::NoButton, Qt::LeftButton);
    QCOMPARE(zoom->lensRect(), lens);
    // Horizontally across, vertically still on the dragged corner's side.
    const QPoint half = lens.center() + QPoint(300, -250);
    sendMouse(zoom, QEvent::MouseMove, half, Qt::NoButton, Qt::LeftButton);
    QCOMPARE(zoom->lensRect().left(), lens.left());
    QCOMPARE(zoom->lensRect().right(), lens.right());
    QCOMPARE(zoom->lensRect().top(), half.y());
}

void TestZoomWidget::moveLeavingTheDesktopIsRefusedPerAxis()
{
    const QRect lens = zoom->lensRect();
    const QPoint grip = lens.center() + QPoint(10, 10);
    sendMouse(zoom, QEvent::MouseButtonPress, grip, Qt::LeftButton, Qt::LeftButton);
    sendMouse(zoom, QEvent::MouseMove, QPoint(30, 500), Qt::NoButton, Qt::LeftButton);
    QCOMPARE(zoom->lensRect().center(), QPoint(20, 490));
    // Further left would put the centre at x < 0: x stays, y still follows.
    sendMouse(zoom, QEvent::MouseMove, QPoint(5, 600), Qt::NoButton, Qt::LeftButton);
    QCOMPARE(zoom->lensRect().center(), QPoint(20, 590));
    sendMouse(zoom, QEvent::MouseMove, QPoint(700, desktop.height() + 50), Qt::NoButton,
              Qt::LeftButton);
    QCOMPARE(zoom->lensRect().center(), QPoint(690, 590));
    QCOMPARE(zoom->lensRect().size(), lens.size());
}

void TestZoomWidget::pressAfterReleaseMoves()
{
    const QRect lens = zoom->lensRect();
    sendMouse(zoom, QEvent::MouseMove, lens.bottomRight(), Qt::NoButton, Qt::NoButton);
    QCOMPARE(zoom->currentDragMode(), 2);
    sendMouse(zoom, QEvent::MouseButtonRelease, lens.bottomRight(), Qt::LeftButton, Qt::NoButton);
    QCOMPARE(zoom->currentDragMode(), 4);
    // Pressed on the same corner with no hover in between: the lens moves.
    sendMouse(zoom, QEvent::MouseButtonPress, lens.bottomRight(), Qt::LeftButton, Qt::LeftButton);
    sendMouse(zoom, QEvent::MouseMove, lens.bottomRight() + QPoint(40, 30), Qt::NoButton,
              Qt::LeftButton);
    QCOMPARE(zoom->lensRect(), lens.translated(40, 30));
}

void TestZoomWidget::wheelEndValues()
{
    for (int i = 0; i < 10; ++i)
        sendWheel(zoom, QPoint(0, 120));
    const float top = zoom->zoom();
    QVERIFY2(top > 4.0f && top < 4.0001f, qPrintable(QString::number(top, 'g', 9)));
    sendWheel(zoom, QPoint(0, 120));
    QCOMPARE(zoom->zoom(), top);
    for (int i = 0; i < 15; ++i)
        sendWheel(zoom, QPoint(0, -120));
    const float bottom = zoom->zoom();
    QVERIFY2(bottom < 1.0f && bottom > 0.9999f, qPrintable(QString::number(bottom, 'g', 9)));
    sendWheel(zoom, QPoint(0, -120));
    QCOMPARE(zoom->zoom(), bottom);
}

void TestZoomWidget::escapeClosesAndOtherKeysDoNothing()
{
    openActivated();
    QSignalSpy exits(zoom, &ZoomWidget::sg_exit);
    bool visibleAtExit = true;
    connect(zoom, &ZoomWidget::sg_exit, this, [&] { visibleAtExit = zoom->isVisible(); });
    sendKey(zoom, Qt::Key_Return);
    sendKey(zoom, Qt::Key_Enter);
    sendKey(zoom, Qt::Key_Space);
    QVERIFY(zoom->isVisible());
    QCOMPARE(exits.count(), 0);
    sendKey(zoom, Qt::Key_Escape);
    QVERIFY(!zoom->isVisible());
    QCOMPARE(exits.count(), 1);
    QVERIFY(!visibleAtExit);
    QCOMPARE(zoom->result(), int(QDialog::Rejected));
}

void TestZoomWidget::closeButtonCloses()
{
    openActivated();
    QSignalSpy exits(zoom, &ZoomWidget::sg_exit);
    zoom->findChild<QPushButton*>("pushButton_zoom_close")->click();
    QVERIFY(!zoom->isVisible());
    QCOMPARE(exits.count(), 1);
}

void TestZoomWidget::lensShowsThePictureEnlarged()
{
    openActivated();
    const QRect lens = zoom->lensRect();
    const QPoint c = lens.center();
    QImage seen;
    QTRY_VERIFY((seen = grabScreen()).pixelColor(5, 5) == patternAt(QPoint(5, 5)));
    // Outside the lens the picture as it was.
    for (const QPoint& p :
         {QPoint(100, 100), QPoint(lens.left() - 20, c.y()), QPoint(c.x(), lens.top() - 20)})
        QCOMPARE(seen.pixelColor(p), patternAt(p));
    // Inside: the pixel at c + d shows the picture at c + d / 2.
    for (const QPoint& d : {QPoint(-180, -140), QPoint(150, -100), QPoint(-120, 130),
                            QPoint(170, 150), QPoint(0, 0)}) {
        const QPoint origin = RootPattern::origin(seen.pixelColor(c + d), desktop);
        const QPoint expected = c + d / 2;
        QVERIFY2(qAbs(origin.x() - expected.x()) <= 10 && qAbs(origin.y() - expected.y()) <= 10,
                 qPrintable(QString("at %1,%2 shows %3,%4 instead of %5,%6")
                                .arg(d.x())
                                .arg(d.y())
                                .arg(origin.x())
                                .arg(origin.y())
                                .arg(expected.x())
                                .arg(expected.y())));
    }
    // The checkerboard cells are twice as large inside: count the blue edges on a row.
    auto edges = [&seen](int y, int from, int to) {
        int n = 0;
        for (int x = from + 1; x < to; ++x)
            n += (seen.pixelColor(x, y).blue() > 127) != (seen.pixelColor(x - 1, y).blue() > 127);
        return n;
    };
    const int inside = edges(c.y() + 3, c.x() - 160, c.x() + 160);
    const int outside = edges(lens.bottom() + 80, c.x() - 160, c.x() + 160);
    QVERIFY2(qAbs(outside - 2 * inside) <= 2,
             qPrintable(QString("%1 edges inside, %2 outside").arg(inside).arg(outside)));
    keepPicture(seen, "zoom-widget-lens");
}

void TestZoomWidget::lightsOffBlacksOutAllButLensAndButtons()
{
    openActivated();
    auto* turnoff = zoom->findChild<QPushButton*>("pushButton_zoom_turnoff");
    turnoff->click();
    QVERIFY(zoom->isLightOff());
    QVERIFY(turnoff->isChecked());
    QCOMPARE(turnoff->toolTip(), QString("Turn on the light"));
    const QRect lens = zoom->lensRect();
    QImage seen;
    QTRY_COMPARE((seen = grabScreen()).pixelColor(5, 5), QColor(Qt::black));
    for (const QPoint& p :
         {QPoint(desktop.width() - 5, desktop.height() - 5),
          QPoint(lens.left() - 20, lens.center().y()), QPoint(lens.center().x(), lens.top() - 20),
          QPoint(turnoff->geometry().left() - 30, turnoff->geometry().center().y())})
        QCOMPARE(seen.pixelColor(p), QColor(Qt::black));
    // The lens still shows the picture, the frame and handles are still drawn.
    const QPoint inLens = lens.center() + QPoint(-100, 50);
    QVERIFY(seen.pixelColor(inLens) != QColor(Qt::black));
    const QColor edge = seen.pixelColor(lens.center().x(), lens.top());
    QVERIFY2(sameColour(edge, QColor("#F5A623"), 60), qPrintable(edge.name()));
    QCOMPARE(seen.pixelColor(frame_handles::handleRect(lens, 0, scale()).center()),
             QColor(Qt::white));
    // The buttons are drawn over the black.
    QVERIFY(seen.pixelColor(turnoff->geometry().center()) != QColor(Qt::black));
    QVERIFY(seen.pixelColor(
                zoom->findChild<QPushButton*>("pushButton_zoom_close")->geometry().center()) !=
            QColor(Qt::black));
    keepPicture(seen, "zoom-widget-lights-off");
    turnoff->click();
    QVERIFY(!zoom->isLightOff());
    QVERIFY(!turnoff->isChecked());
    QTRY_COMPARE(grabScreen().pixelColor(5, 5), patternAt(QPoint(5, 5)));
}

void TestZoomWidget::pictureNeverContainsTheMagnifier()
{
    openActivated();
    const QRect lens = zoom->lensRect();
    auto* turnoff = zoom->findChild<QPushButton*>("pushButton_zoom_turnoff");
    const QPoint buttonSpot = turnoff->geometry().center();
    const QPoint frameSpot(lens.center().x(), lens.top());
    // Move the lens and its buttons away: where they were, the picture shows through.
    sendMouse(zoom, QEvent::MouseButtonPress, lens.center(), Qt::LeftButton, Qt::LeftButton);
    sendMouse(zoom, QEvent::MouseMove, QPoint(400, 300), Qt::NoButton, Qt::LeftButton);
    sendMouse(zoom, QEvent::MouseButtonRelease, QPoint(400, 300), Qt::LeftButton, Qt::NoButton);
    QImage seen;
    QTRY_VERIFY((seen = grabScreen()).pixelColor(buttonSpot) == patternAt(buttonSpot));
    QCOMPARE(seen.pixelColor(frameSpot), patternAt(frameSpot));
    QCOMPARE(seen.pixelColor(lens.center()), patternAt(lens.center()));
}

void TestZoomWidget::reactivationTakesANewPicture()
{
    openActivated();
    // Activated again without losing activation in between: no new picture.
    root.show(pattern(1));
    QEvent again(QEvent::WindowActivate);
    QCoreApplication::sendEvent(zoom, &again);
    QVERIFY(zoom->isVisible());
    zoom->repaint();
    QCOMPARE(grabScreen().pixelColor(100, 100), patternAt(QPoint(100, 100), 0));
    root.show(pattern(0));
    QWidget other;
    activateOther(&other);
    root.show(pattern(1));
    // Still the old picture while the magnifier is not activated again.
    QImage seen = grabScreen();
    QCOMPARE(seen.pixelColor(100, 100), patternAt(QPoint(100, 100), 0));
    other.hide();
    zoom->activateWindow();
    QTRY_VERIFY(grabScreen().pixelColor(100, 100) == patternAt(QPoint(100, 100), 1));
    QVERIFY(zoom->isVisible());
    seen = grabScreen();
    for (const QPoint& p : {QPoint(500, 200), QPoint(1500, 900)})
        QCOMPARE(seen.pixelColor(p), patternAt(p, 1));
}

void TestZoomWidget::everyPaintWritesTheDebugLine()
{
    openActivated();
    DebugLog log;
    zoom->repaint();
    zoom->repaint();
    QCOMPARE(log.count("[ZOOM][this->Rect()]:"), 2);
    const QString expected =
        QString("[ZOOM][this->Rect()]:QRect(0,0 %1x%2),[bgImg.Rect()]:QSize(%1, %2)")
            .arg(desktop.width())
            .arg(desktop.height());
    QCOMPARE(log.lines().first(), expected);
}

void TestZoomWidget::keepsActivationAfterItsPicture()
{
    showLikeItsOwner(zoom);
    QTRY_VERIFY(grabScreen().pixelColor(20, 20) == patternAt(QPoint(20, 20)));
    // Hiding for the picture takes the X server's focus away, and the server says so only
    // after the magnifier is back. It must come out of that active and holding the focus,
    // or the next click on it would take another picture instead of reaching its button.
    QTest::qWait(1000);
    QCOMPARE(QApplication::activeWindow(), static_cast<QWidget*>(zoom));
    QCOMPARE(xInputFocus(), static_cast<unsigned long>(zoom->winId()));
}

QTEST_MAIN(TestZoomWidget)
#include "test-zoom-widget.moc"
