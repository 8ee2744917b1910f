// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "app/font-fallback.h"
#include "app/pallo-translator.h"
#include "common/scale-factor.h"
#include "tests/test-output.h"
#include "tools/time-widget.h"
#include "tools/timer-logic.h"
#include "tools/widget.h"
#include "tools/widgettest.h"

#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QStackedWidget>
#include <QTimerEvent>
#include <QtTest>

// The timer window as a presenter meets it on a real X server: tabs, the compact
// strip after five seconds of running, restoring by click, dragging, full screen,
// the end of a countdown and quitting.
class TestWidgettest : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void cleanupTestCase();
    void opensNormal();
    void tabsSwitchPages();
    void turnsCompactFiveSecondsAfterStart();
    void stopwatchCompactAndClickRestores();
    void dragDoesNotRestore();
    void stopClearsCompactOnly();
    void fullScreenIsBlackAndLeftPressLeaves();
    void escapeLeavesFullScreen();
    void escapeDoesNotCloseTheWindow();
    void countdownEndRestoresNormal();
    void quitClosesAndSignals();

private:
    static QSize normalSize() { return timerNormalSize(screenScaleFactor()); }
    static QSize compactSize() { return timerCompactSize(screenScaleFactor()); }
    static QPushButton* button(const QWidget& w, const char* name);
    static void showWindow(Widgettest& w);
    // A window that was compact stays translucent unless Escape brought it back.
    static void verifyNormal(Widgettest& w, double opacity = 1.0);
    static void verifyCompact(Widgettest& w);
    static QString countdownShown(const Widgettest& w);

    PalloTranslator* translator = nullptr;
};

void TestWidgettest::initTestCase()
{
    installFontFallbacks();
    translator = new PalloTranslator(QStringLiteral("english"), this);
    QCoreApplication::installTranslator(translator);
}

void TestWidgettest::cleanupTestCase()
{
    QCoreApplication::removeTranslator(translator);
}

QPushButton* TestWidgettest::button(const QWidget& w, const char* name)
{
    auto* b = w.findChild<QPushButton*>(name);
    if (!b)
        qWarning() << "no button" << name;
    return b;
}

void TestWidgettest::showWindow(Widgettest& w)
{
    w.move(300, 200);
    w.show();
    QVERIFY(QTest::qWaitForWindowExposed(&w));
}

void TestWidgettest::verifyNormal(Widgettest& w, double opacity)
{
    QTRY_COMPARE(w.size(), normalSize());
    QCOMPARE(w.minimumSize(), normalSize());
    QCOMPARE(w.maximumSize(), normalSize());
    // Opacity is kept in 8 bits.
    QVERIFY2(qAbs(w.windowOpacity() - opacity) < 0.01,
             qPrintable(QString::number(w.windowOpacity())));
    QVERIFY(!w.isCompact());
    QVERIFY(!w.isFull());
    QVERIFY(button(w, "pushButton_timer_countdown")->isVisible());
    QVERIFY(button(w, "pushButton_timer_timer")->isVisible());
    QVERIFY(button(w, "pushButton_timer_quit")->isVisible());
    QCOMPARE(w.palette().color(QPalette::Window), QColor(Qt::white));
}

void TestWidgettest::verifyCompact(Widgettest& w)
{
    QTRY_COMPARE(w.size(), compactSize());
    QVERIFY(w.isCompact());
    // Opacity is kept in 8 bits.
    QVERIFY(qAbs(w.windowOpacity() - 0.7) < 0.01);
    QVERIFY(!button(w, "pushButton_timer_countdown")->isVisible());
    QVERIFY(!button(w, "pushButton_timer_timer")->isVisible());
    QVERIFY(!button(w, "pushButton_timer_quit")->isVisible());
}

QString TestWidgettest::countdownShown(const Widgettest& w)
{
    const Widget* c = w.countdown();
    return c->findChild<QLabel*>("label_minTen")->text() +
           c->findChild<QLabel*>("label_minOne")->text() + ":" +
           c->findChild<QLabel*>("label_secTen")->text() +
           c->findChild<QLabel*>("label_secOne")->text();
}

void TestWidgettest::opensNormal()
{
    Widgettest w;
    QVERIFY(w.windowFlags().testFlag(Qt::Tool));
    QVERIFY(w.windowFlags().testFlag(Qt::FramelessWindowHint));
    QVERIFY(w.windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    QVERIFY(w.testAttribute(Qt::WA_TranslucentBackground));
    showWindow(w);
    verifyNormal(w);
    auto* countdownTab = button(w, "pushButton_timer_countdown");
    auto* clockTab = button(w, "pushButton_timer_timer");
    QCOMPARE(countdownTab->text(), QString("Countdown"));
    QCOMPARE(clockTab->text(), QString("Timer"));
    QVERIFY(countdownTab->isChecked());
    QVERIFY(!clockTab->isChecked());
    QVERIFY(countdownTab->fontMetrics().horizontalAdvance("Countdown") <=
            countdownTab->minimumWidth());
    QVERIFY(w.countdown()->isVisible());
    QVERIFY(!w.stopwatch()->isVisible());
    QCOMPARE(countdownShown(w), QString("05:00"));
}

void TestWidgettest::tabsSwitchPages()
{
    Widgettest w;
    showWindow(w);
    auto* stack = w.findChild<QStackedWidget*>("stackedWidget");
    QCOMPARE(stack->widget(0), static_cast<QWidget*>(w.countdown()));
    QCOMPARE(stack->widget(1), static_cast<QWidget*>(w.stopwatch()));
    auto* countdownTab = button(w, "pushButton_timer_countdown");
    auto* clockTab = button(w, "pushButton_timer_timer");

    QTest::mouseClick(clockTab, Qt::LeftButton);
    QCOMPARE(stack->currentIndex(), 1);
    QVERIFY(clockTab->isChecked());
    QVERIFY(!countdownTab->isChecked());
    QVERIFY(w.stopwatch()->isVisible());

    // A second click on the chosen tab keeps it chosen.
    QTest::mouseClick(clockTab, Qt::LeftButton);
    QVERIFY(clockTab->isChecked());

    QTest::mouseClick(countdownTab, Qt::LeftButton);
    QCOMPARE(stack->currentIndex(), 0);
    QVERIFY(countdownTab->isChecked());
    QVERIFY(!clockTab->isChecked());
}

void TestWidgettest::turnsCompactFiveSecondsAfterStart()
{
    Widgettest w;
    showWindow(w);
    QTest::mouseClick(button(*w.countdown(), "pushbutton_countdown_startBtn"), Qt::LeftButton);
    QVERIFY(w.compactTimer().isActive());
    QCOMPARE(w.compactTimer().interval(), 5000);
    QCOMPARE(w.size(), normalSize());
    // The real five-second delay: this is the behaviour, not a speed check.
    QTRY_VERIFY_WITH_TIMEOUT(w.isCompact(), 9000);
    verifyCompact(w);
    // The countdown shows only its digits.
    for (QPushButton* b : w.countdown()->findChildren<QPushButton*>())
        QVERIFY2(!b->isVisible(), qPrintable(b->objectName()));
    auto* minTen = w.countdown()->findChild<QLabel*>("label_minTen");
    QCOMPARE(minTen->font().pointSize(), 35);
    QVERIFY(minTen->isVisible());
    QVERIFY(w.rect().contains(minTen->mapTo(&w, minTen->rect().bottomRight())));

    // A click without moving restores the window; it shrinks again while running.
    QTest::mouseClick(&w, Qt::LeftButton, Qt::NoModifier, QPoint(20, 20));
    verifyNormal(w, 0.7);
    QVERIFY(w.compactTimer().isActive());
    QCOMPARE(minTen->font().pointSize(), w.countdown()->fittedDigitFontSize());
    QVERIFY(button(*w.countdown(), "pushbutton_countdown_startBtn")->isVisible());
    QVERIFY(!button(*w.countdown(), "m_minOnePlusBtn")->isVisible());
}

void TestWidgettest::stopwatchCompactAndClickRestores()
{
    Widgettest w;
    showWindow(w);
    QTest::mouseClick(button(w, "pushButton_timer_timer"), Qt::LeftButton);
    QSignalSpy starts(w.stopwatch(), &timeWidget::timestart);
    QTest::mouseClick(button(*w.stopwatch(), "pushbutton_timer_start_btn"), Qt::LeftButton);
    QCOMPARE(starts.count(), 1);
    QVERIFY(w.compactTimer().isActive());
    w.slot_time_out();
    verifyCompact(w);
    QVERIFY(!button(*w.stopwatch(), "pushbutton_timer_start_btn")->isVisible());
    auto* hour = w.stopwatch()->findChild<QLabel*>("label_hour");
    QCOMPARE(hour->font().pointSize(), 24);
    QVERIFY(w.rect().contains(w.stopwatch()
                                  ->findChild<QLabel*>("label_second")
                                  ->geometry()
                                  .translated(w.stopwatch()->mapTo(&w, QPoint(0, 0)))));

    // Clicking on the digits restores the window.
    QTest::mouseClick(hour, Qt::LeftButton);
    verifyNormal(w, 0.7);
    QVERIFY(button(*w.stopwatch(), "pushbutton_timer_start_btn")->isVisible());
    QCOMPARE(hour->font().pointSize(), w.stopwatch()->fittedDigitFontSize());
}

void TestWidgettest::dragDoesNotRestore()
{
    Widgettest w;
    showWindow(w);
    w.countdown()->on_pushbutton_countdown_startBtn_clicked();
    w.slot_time_out();
    verifyCompact(w);
    const QPoint before = w.frameGeometry().center();

    const QPoint pressAt(30, 30);
    QTest::mousePress(&w, Qt::LeftButton, Qt::NoModifier, pressAt);
    const QPoint target = w.mapToGlobal(pressAt) + QPoint(120, 80);
    QMouseEvent move(QEvent::MouseMove, w.mapFromGlobal(target), target, Qt::NoButton,
                     Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&w, &move);
    QTest::mouseRelease(&w, Qt::LeftButton, Qt::NoModifier, w.mapFromGlobal(target));

    QTRY_COMPARE(w.frameGeometry().center(), before + QPoint(120, 80));
    verifyCompact(w);

    // The next click, without moving, restores it.
    QTest::mouseClick(&w, Qt::LeftButton, Qt::NoModifier, QPoint(30, 30));
    verifyNormal(w, 0.7);
}

void TestWidgettest::stopClearsCompactOnly()
{
    Widgettest w;
    showWindow(w);
    w.countdown()->on_pushbutton_countdown_startBtn_clicked();
    w.slot_time_out();
    verifyCompact(w);
    w.countdown()->on_pushbutton_countdown_startBtn_clicked();
    QVERIFY(!w.isCompact());
    QVERIFY(!w.compactTimer().isActive());
    // The strip stays as it is; a click no longer restores it.
    QCOMPARE(w.size(), compactSize());
    QTest::mouseClick(&w, Qt::LeftButton, Qt::NoModifier, QPoint(20, 20));
    QCOMPARE(w.size(), compactSize());
}

void TestWidgettest::fullScreenIsBlackAndLeftPressLeaves()
{
    Widgettest w;
    showWindow(w);
    QTest::mouseClick(button(w, "pushButton_timer_timer"), Qt::LeftButton);
    QTest::mouseClick(button(*w.stopwatch(), "pushbutton_timer_start_btn"), Qt::LeftButton);
    const QPoint normalPos = w.pos();
    QTest::mouseClick(button(*w.stopwatch(), "pushbutton_timer_full_btn"), Qt::LeftButton);
    QVERIFY(w.isFull());
    QVERIFY(!w.compactTimer().isActive());
    const QRect screen = w.screen()->geometry();
    QTRY_COMPARE(w.geometry(), screen);
    QVERIFY(!button(w, "pushButton_timer_quit")->isVisible());
    QVERIFY(!button(w, "pushButton_timer_timer")->isVisible());

    // What the screen shows: black to the edges, the clock in the middle.
    QTest::qWait(100);
    const QImage shot = w.screen()->grabWindow(0).toImage();
    keepPicture(shot, "timer-clock-fullscreen");
    for (const QPoint& p :
         {QPoint(2, 2), QPoint(screen.width() - 3, 2), QPoint(2, screen.height() - 3),
          QPoint(screen.width() - 3, screen.height() - 3), QPoint(screen.width() / 2, 40)})
        QCOMPARE(shot.pixelColor(p), QColor(Qt::black));
    auto* second = w.stopwatch()->findChild<QLabel*>("label_second");
    const QPoint secondCentre = second->mapToGlobal(second->rect().center());
    QVERIFY(qAbs(second->mapToGlobal(QPoint()).y() - screen.height() / 2) < screen.height() / 3);
    QVERIFY(shot.rect().contains(secondCentre));

    // A left press leaves full screen and restarts the compacting delay.
    QTest::mousePress(&w, Qt::LeftButton, Qt::NoModifier, QPoint(10, 10));
    QTest::mouseRelease(&w, Qt::LeftButton, Qt::NoModifier, QPoint(10, 10));
    verifyNormal(w);
    QTRY_COMPARE(w.pos(), normalPos);
    QVERIFY(w.compactTimer().isActive());
    QVERIFY(w.stopwatch()->isRunning());
}

void TestWidgettest::escapeLeavesFullScreen()
{
    Widgettest w;
    showWindow(w);
    QSignalSpy full(w.countdown(), &Widget::showfull);
    QTest::mouseClick(button(*w.countdown(), "pushbutton_countdown_fullBtn"), Qt::LeftButton);
    QCOMPARE(full.count(), 1);
    QVERIFY(w.isFull());
    QTRY_COMPARE(w.geometry(), w.screen()->geometry());
    const QImage grabbed = w.grab().toImage();
    QCOMPARE(grabbed.pixelColor(1, 1), QColor(Qt::black));
    QCOMPARE(grabbed.pixelColor(grabbed.width() - 2, grabbed.height() - 2), QColor(Qt::black));

    QTest::keyClick(&w, Qt::Key_Escape);
    verifyNormal(w);
    QVERIFY(w.isVisible());
    // Leaving full screen starts the compacting delay, even with the countdown stopped.
    QVERIFY(w.compactTimer().isActive());
    const QImage back = w.grab().toImage();
    QCOMPARE(back.pixelColor(back.width() / 2, back.height() - 4), QColor(Qt::white));
}

void TestWidgettest::escapeDoesNotCloseTheWindow()
{
    Widgettest w;
    showWindow(w);
    QSignalSpy exits(&w, &Widgettest::sg_timerexit);
    // Every key press is logged with its key code.
    QTest::ignoreMessage(QtDebugMsg, QByteArray::number(int(Qt::Key_Escape)).constData());
    QTest::keyClick(&w, Qt::Key_Escape);
    QVERIFY(w.isVisible());
    QCOMPARE(exits.count(), 0);
    verifyNormal(w);
    // Escape does what leaving full screen does, compacting delay included.
    QVERIFY(w.compactTimer().isActive());
    QTest::ignoreMessage(QtDebugMsg, QByteArray::number(int(Qt::Key_A)).constData());
    QTest::keyClick(&w, Qt::Key_A);

    // From the compact strip, Escape brings back the opaque window.
    w.countdown()->on_pushbutton_countdown_startBtn_clicked();
    w.slot_time_out();
    verifyCompact(w);
    QTest::keyClick(&w, Qt::Key_Escape);
    verifyNormal(w);
}

void TestWidgettest::countdownEndRestoresNormal()
{
    Widgettest w;
    showWindow(w);
    Widget* c = w.countdown();
    for (int i = 0; i < 5; ++i)
        QTest::mouseClick(button(*c, "m_minOneMinusBtn"), Qt::LeftButton);
    QTest::mouseClick(button(*c, "m_secOnePlusBtn"), Qt::LeftButton);
    QCOMPARE(countdownShown(w), QString("00:01"));
    QStringList order;
    connect(c, &Widget::timestop, this, [&order] { order << "timestop"; });
    connect(c, &Widget::countdounout, this, [&order] { order << "countdounout"; });
    QTest::mouseClick(button(*c, "pushbutton_countdown_startBtn"), Qt::LeftButton);
    w.slot_time_out();
    verifyCompact(w);

    QTimerEvent tick(c->runningTimerId());
    QCoreApplication::sendEvent(c, &tick);
    QCOMPARE(order, QStringList({"timestop", "countdounout"}));
    verifyNormal(w, 0.7);
    QVERIFY(!w.compactTimer().isActive());
    QCOMPARE(countdownShown(w), QString("00:00"));
    QVERIFY(button(*c, "pushbutton_countdown_startBtn")->isVisible());
    QVERIFY(button(*c, "m_secOnePlusBtn")->isVisible());

    // The same from full screen.
    QTest::mouseClick(button(*c, "m_secOnePlusBtn"), Qt::LeftButton);
    QTest::mouseClick(button(*c, "pushbutton_countdown_startBtn"), Qt::LeftButton);
    w.screencountdown();
    QVERIFY(w.isFull());
    QTimerEvent last(c->runningTimerId());
    QCoreApplication::sendEvent(c, &last);
    verifyNormal(w, 0.7);
}

void TestWidgettest::quitClosesAndSignals()
{
    Widgettest w;
    showWindow(w);
    QSignalSpy exits(&w, &Widgettest::sg_timerexit);
    QTest::ignoreMessage(QtDebugMsg, "sg_timerexit()");
    QTest::mouseClick(button(w, "pushButton_timer_quit"), Qt::LeftButton);
    QCOMPARE(exits.count(), 1);
    QVERIFY(!w.isVisible());
}

QTEST_MAIN(TestWidgettest)
#include "test-widgettest.moc"
