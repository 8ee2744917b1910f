// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "app/font-fallback.h"
#include "app/pallo-translator.h"
#include "common/scale-factor.h"
#include "tools/time-widget.h"

#include <QFontMetrics>
#include <QLabel>
#include <QPushButton>
#include <QTimerEvent>
#include <QtTest>

// The stopwatch page: start, pause, reset, its ticks and its two looks.
class TestTimeWidget : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void cleanupTestCase();
    void startsAtZeroWithFittedFonts();
    void startAndPauseEmitInOrder();
    void ticksShowSecondsThenMinutes();
    void hoursStartAgainAfter60Hours();
    void pauseKeepsTheCount();
    void resetClearsAndStops();
    void clickResetActsLikeTheButton();
    void ignoresOtherTimers();
    void realTimerTicks();
    void looks();
    void fullScreenButtonAsksForFullScreen();

private:
    static void tick(timeWidget& w, int times = 1);
    static QString shown(const timeWidget& w);
    static QPushButton* button(const timeWidget& w, const char* name);

    PalloTranslator* translator = nullptr;
};

void TestTimeWidget::initTestCase()
{
    installFontFallbacks();
    translator = new PalloTranslator(QStringLiteral("english"), this);
    QCoreApplication::installTranslator(translator);
}

void TestTimeWidget::cleanupTestCase()
{
    QCoreApplication::removeTranslator(translator);
}

void TestTimeWidget::tick(timeWidget& w, int times)
{
    QVERIFY(w.runningTimerId() != 0);
    for (int i = 0; i < times; ++i) {
        QTimerEvent event(w.runningTimerId());
        QCoreApplication::sendEvent(&w, &event);
    }
}

QString TestTimeWidget::shown(const timeWidget& w)
{
    return w.findChild<QLabel*>("label_hour")->text() + ":" +
           w.findChild<QLabel*>("label_minute")->text() + ":" +
           w.findChild<QLabel*>("label_second")->text();
}

QPushButton* TestTimeWidget::button(const timeWidget& w, const char* name)
{
    return w.findChild<QPushButton*>(name);
}

void TestTimeWidget::startsAtZeroWithFittedFonts()
{
    timeWidget w;
    QCOMPARE(shown(w), QString("00:00:00"));
    QVERIFY(!w.isRunning());
    QCOMPARE(w.runningTimerId(), 0);
    auto* start = button(w, "pushbutton_timer_start_btn");
    auto* reset = button(w, "pushbutton_timer_reset_btn");
    QCOMPARE(start->text(), QString("start"));
    QCOMPARE(reset->text(), QString("reset"));
    QVERIFY(start->isCheckable());
    QCOMPARE(start->focusPolicy(), Qt::NoFocus);
    QCOMPARE(reset->focusPolicy(), Qt::NoFocus);

    // Digits: bold, at most 50 points, "00" narrower than the hours label less 30.
    auto* hour = w.findChild<QLabel*>("label_hour");
    QVERIFY(w.fittedDigitFontSize() <= 50 && w.fittedDigitFontSize() > 10);
    QCOMPARE(hour->font().pointSize(), w.fittedDigitFontSize());
    QVERIFY(hour->font().bold());
    QVERIFY(hour->fontMetrics().horizontalAdvance("00") <= hour->width() - 30);
    QCOMPARE(hour->palette().color(QPalette::WindowText), QColor(Qt::black));
    for (const char* name : {"label_colon_1", "label_minute", "label_colon_2", "label_second"})
        QCOMPARE(w.findChild<QLabel*>(name)->font(), hour->font());

    // Buttons: the start button one point larger than reset.
    QCOMPARE(start->font().pointSize(), reset->font().pointSize() + 1);
    QVERIFY(reset->font().pointSize() <= 11);
    QVERIFY(reset->fontMetrics().horizontalAdvance("fullscree") <= reset->width() - 30);
}

void TestTimeWidget::startAndPauseEmitInOrder()
{
    timeWidget w;
    QStringList order;
    connect(&w, &timeWidget::timestart, this, [&order] { order << "start"; });
    connect(&w, &timeWidget::timestop, this, [&order] { order << "stop"; });
    auto* start = button(w, "pushbutton_timer_start_btn");

    QTest::mouseClick(start, Qt::LeftButton);
    QVERIFY(w.isRunning());
    QVERIFY(w.runningTimerId() != 0);
    QVERIFY(start->isChecked());
    QCOMPARE(start->text(), QString("pause"));

    QTest::mouseClick(start, Qt::LeftButton);
    QVERIFY(!w.isRunning());
    QCOMPARE(w.runningTimerId(), 0);
    QVERIFY(!start->isChecked());
    QCOMPARE(start->text(), QString("start"));
    QCOMPARE(order, QStringList({"start", "stop"}));
}

void TestTimeWidget::ticksShowSecondsThenMinutes()
{
    timeWidget w;
    w.on_pushbutton_timer_start_btn_clicked();
    tick(w, 59);
    QCOMPARE(shown(w), QString("00:00:59"));
    tick(w);
    QCOMPARE(shown(w), QString("00:01:00"));
    tick(w, 3600);
    QCOMPARE(shown(w), QString("01:01:00"));
}

void TestTimeWidget::hoursStartAgainAfter60Hours()
{
    timeWidget w;
    w.on_pushbutton_timer_start_btn_clicked();
    tick(w, 60 * 3600 - 1);
    QCOMPARE(shown(w), QString("59:59:59"));
    tick(w);
    QCOMPARE(w.elapsedSeconds(), 60 * 3600);
    QCOMPARE(shown(w), QString("00:00:00"));
    tick(w, 3601);
    QCOMPARE(shown(w), QString("01:00:01"));
}

void TestTimeWidget::pauseKeepsTheCount()
{
    timeWidget w;
    w.on_pushbutton_timer_start_btn_clicked();
    tick(w, 75);
    w.on_pushbutton_timer_start_btn_clicked();
    QCOMPARE(shown(w), QString("00:01:15"));
    QCOMPARE(w.elapsedSeconds(), 75);
    w.on_pushbutton_timer_start_btn_clicked();
    tick(w);
    QCOMPARE(shown(w), QString("00:01:16"));
}

void TestTimeWidget::resetClearsAndStops()
{
    timeWidget w;
    QSignalSpy stops(&w, &timeWidget::timestop);
    auto* start = button(w, "pushbutton_timer_start_btn");
    QTest::mouseClick(start, Qt::LeftButton);
    tick(w, 3725);
    QCOMPARE(shown(w), QString("01:02:05"));

    QTest::mouseClick(button(w, "pushbutton_timer_reset_btn"), Qt::LeftButton);
    QCOMPARE(shown(w), QString("00:00:00"));
    QCOMPARE(w.elapsedSeconds(), 0);
    QVERIFY(!w.isRunning());
    QCOMPARE(w.runningTimerId(), 0);
    QVERIFY(!start->isChecked());
    QCOMPARE(start->text(), QString("start"));
    QCOMPARE(stops.count(), 1);

    // Reset while stopped stops nothing but still says so, and start starts.
    QTest::mouseClick(button(w, "pushbutton_timer_reset_btn"), Qt::LeftButton);
    QCOMPARE(stops.count(), 2);
    QSignalSpy starts(&w, &timeWidget::timestart);
    QTest::mouseClick(start, Qt::LeftButton);
    QCOMPARE(starts.count(), 1);
    QVERIFY(w.isRunning());
}

void TestTimeWidget::clickResetActsLikeTheButton()
{
    timeWidget w;
    QSignalSpy stops(&w, &timeWidget::timestop);
    w.on_pushbutton_timer_start_btn_clicked();
    tick(w, 10);
    w.clickReset();
    QCOMPARE(stops.count(), 1);
    QCOMPARE(shown(w), QString("00:00:00"));
    QVERIFY(!w.isRunning());
}

void TestTimeWidget::ignoresOtherTimers()
{
    timeWidget w;
    w.on_pushbutton_timer_start_btn_clicked();
    QTimerEvent foreign(w.runningTimerId() + 1000);
    QCoreApplication::sendEvent(&w, &foreign);
    QCOMPARE(w.elapsedSeconds(), 0);
    QCOMPARE(shown(w), QString("00:00:00"));
}

void TestTimeWidget::realTimerTicks()
{
    timeWidget w;
    w.on_pushbutton_timer_start_btn_clicked();
    QTRY_COMPARE_WITH_TIMEOUT(shown(w), QString("00:00:01"), 3000);
}

void TestTimeWidget::looks()
{
    timeWidget w;
    auto* start = button(w, "pushbutton_timer_start_btn");
    auto* reset = button(w, "pushbutton_timer_reset_btn");
    auto* full = button(w, "pushbutton_timer_full_btn");
    w.show();
    QVERIFY(QTest::qWaitForWindowExposed(&w));
    QVERIFY(start->isVisible() && reset->isVisible() && full->isVisible());

    w.compactLook();
    QVERIFY(!start->isVisible() && !reset->isVisible() && !full->isVisible());
    const int side = qRound(45 * screenScaleFactor());
    for (const char* name : {"label_hour", "label_minute", "label_second"}) {
        auto* label = w.findChild<QLabel*>(name);
        QCOMPARE(label->font().pointSize(), 24);
        QVERIFY(!label->font().bold());
        QCOMPARE(label->font().family(), QString("微软雅黑"));
        QCOMPARE(label->minimumSize(), QSize(side, side));
    }
    QCOMPARE(w.findChild<QLabel*>("label_colon_1")->font().pointSize(), 24);

    w.normalLook();
    QVERIFY(start->isVisible() && reset->isVisible() && full->isVisible());
    for (const char* name : {"label_hour", "label_colon_1", "label_second"}) {
        auto* label = w.findChild<QLabel*>(name);
        QCOMPARE(label->font().pointSize(), w.fittedDigitFontSize());
        QVERIFY(label->font().bold());
        QCOMPARE(label->font().family(), QString("Arial"));
    }
}

void TestTimeWidget::fullScreenButtonAsksForFullScreen()
{
    timeWidget w;
    QSignalSpy full(&w, &timeWidget::showfull);
    auto* button = TestTimeWidget::button(w, "pushbutton_timer_full_btn");
    QCOMPARE(button->toolTip(), QString("fullscree"));
    QCOMPARE(button->focusPolicy(), Qt::NoFocus);
    QTest::mouseClick(button, Qt::LeftButton);
    QCOMPARE(full.count(), 1);
}

QTEST_MAIN(TestTimeWidget)
#include "test-time-widget.moc"
