// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "app/font-fallback.h"
#include "app/pallo-translator.h"
#include "tools/widget.h"

#include <QFontMetrics>
#include <QLabel>
#include <QPushButton>
#include <QTimerEvent>
#include <QtTest>

// The countdown page: setting the digits, counting down, pausing, resetting, the
// end of the count and its two looks.
class TestWidget : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void cleanupTestCase();
    void startsAtFiveMinutes();
    void stepButtons_data();
    void stepButtons();
    void startHidesStepButtonsAndCountsDown();
    void pauseContinuesFromWhatIsLeft();
    void endShowsZeroAndSignalsInOrder();
    void fromZeroCountsAnHour();
    void resetWhileStoppedMakesStartPause();
    void resetShowsTheSavedDigits();
    void ignoresOtherTimers();
    void looks();
    void stepPicturesTurnBlueUnderThePointer();
    void fullScreenButtonAsksForFullScreen();

private:
    static void tick(Widget& w, int times = 1);
    static QString shown(const Widget& w);
    static QPushButton* button(const Widget& w, const QString& name);
    static void press(Widget& w, const QString& name, int times = 1);

    PalloTranslator* translator = nullptr;
};

void TestWidget::initTestCase()
{
    installFontFallbacks();
    translator = new PalloTranslator(QStringLiteral("english"), this);
    QCoreApplication::installTranslator(translator);
}

void TestWidget::cleanupTestCase()
{
    QCoreApplication::removeTranslator(translator);
}

void TestWidget::tick(Widget& w, int times)
{
    for (int i = 0; i < times; ++i) {
        QVERIFY(w.runningTimerId() != 0);
        QTimerEvent event(w.runningTimerId());
        QCoreApplication::sendEvent(&w, &event);
    }
}

QString TestWidget::shown(const Widget& w)
{
    return w.findChild<QLabel*>("label_minTen")->text() +
           w.findChild<QLabel*>("label_minOne")->text() + ":" +
           w.findChild<QLabel*>("label_secTen")->text() +
           w.findChild<QLabel*>("label_secOne")->text();
}

QPushButton* TestWidget::button(const Widget& w, const QString& name)
{
    return w.findChild<QPushButton*>(name);
}

void TestWidget::press(Widget& w, const QString& name, int times)
{
    QPushButton* b = button(w, name);
    QVERIFY2(b, qPrintable(name));
    for (int i = 0; i < times; ++i)
        QTest::mouseClick(b, Qt::LeftButton);
}

void TestWidget::startsAtFiveMinutes()
{
    Widget w;
    QCOMPARE(shown(w), QString("05:00"));
    QVERIFY(!w.isRunning());
    QVERIFY(!w.targetTime().isValid());
    auto* start = button(w, "pushbutton_countdown_startBtn");
    auto* reset = button(w, "pushbutton_countdown_resetBtn");
    QCOMPARE(start->text(), QString("start"));
    QCOMPARE(reset->text(), QString("reset"));
    QCOMPARE(start->font().pointSize(), reset->font().pointSize() + 1);
    QVERIFY(reset->fontMetrics().horizontalAdvance("fullscree") <= reset->width() - 30);

    auto* minTen = w.findChild<QLabel*>("label_minTen");
    QVERIFY(w.fittedDigitFontSize() <= 58 && w.fittedDigitFontSize() > 10);
    QCOMPARE(minTen->font().pointSize(), w.fittedDigitFontSize());
    QVERIFY(minTen->font().bold());
    QVERIFY(minTen->fontMetrics().horizontalAdvance("0") <= minTen->width() - 50);
    QCOMPARE(w.findChild<QLabel*>("label_colon")->font(), minTen->font());
    for (const char* digit : {"minTen", "minOne", "secTen", "secOne"}) {
        for (const char* kind : {"Plus", "Minus"}) {
            QPushButton* b = button(w, QString("m_%1%2Btn").arg(digit, kind));
            QVERIFY(b);
            QCOMPARE(b->focusPolicy(), Qt::NoFocus);
            QVERIFY(!b->icon().isNull());
        }
    }
}

void TestWidget::stepButtons_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("presses");
    QTest::addColumn<QString>("expected");
    QTest::newRow("minus on minute tens at 0 gives 5") << "m_minTenMinusBtn" << 1 << "55:00";
    QTest::newRow("plus on minute tens wraps after 5") << "m_minTenPlusBtn" << 6 << "05:00";
    QTest::newRow("plus on minute ones to 9") << "m_minOnePlusBtn" << 4 << "09:00";
    QTest::newRow("plus on minute ones past 9 gives 0") << "m_minOnePlusBtn" << 5 << "00:00";
    QTest::newRow("minus on minute ones") << "m_minOneMinusBtn" << 5 << "00:00";
    QTest::newRow("minus on minute ones below 0 gives 9") << "m_minOneMinusBtn" << 6 << "09:00";
    QTest::newRow("minus on second tens at 0 gives 5") << "m_secTenMinusBtn" << 1 << "05:50";
    QTest::newRow("plus on second tens") << "m_secTenPlusBtn" << 2 << "05:20";
    QTest::newRow("plus on second ones at 9 gives 0") << "m_secOnePlusBtn" << 10 << "05:00";
    QTest::newRow("minus on second ones at 0 gives 9") << "m_secOneMinusBtn" << 1 << "05:09";
}

void TestWidget::stepButtons()
{
    QFETCH(QString, name);
    QFETCH(int, presses);
    QFETCH(QString, expected);
    Widget w;
    press(w, name, presses);
    QCOMPARE(shown(w), expected);
}

void TestWidget::startHidesStepButtonsAndCountsDown()
{
    Widget w;
    w.show();
    QVERIFY(QTest::qWaitForWindowExposed(&w));
    QSignalSpy starts(&w, &Widget::timestart);
    auto* start = button(w, "pushbutton_countdown_startBtn");
    QTest::mouseClick(start, Qt::LeftButton);
    QCOMPARE(starts.count(), 1);
    QVERIFY(w.isRunning());
    QVERIFY(start->isChecked());
    QCOMPARE(start->text(), QString("pause"));
    QCOMPARE(w.targetTime(), QTime(0, 5, 0));
    for (QPushButton* b : w.findChildren<QPushButton*>(QRegularExpression("^m_")))
        QVERIFY(!b->isVisible());
    tick(w);
    QCOMPARE(shown(w), QString("04:59"));
    tick(w, 59);
    QCOMPARE(shown(w), QString("04:00"));
    tick(w, 61);
    QCOMPARE(shown(w), QString("02:59"));
}

void TestWidget::pauseContinuesFromWhatIsLeft()
{
    Widget w;
    w.show();
    QVERIFY(QTest::qWaitForWindowExposed(&w));
    QSignalSpy stops(&w, &Widget::timestop);
    auto* start = button(w, "pushbutton_countdown_startBtn");
    QTest::mouseClick(start, Qt::LeftButton);
    tick(w, 90);
    QTest::mouseClick(start, Qt::LeftButton);
    QCOMPARE(stops.count(), 1);
    QVERIFY(!w.isRunning());
    QCOMPARE(w.runningTimerId(), 0);
    QCOMPARE(w.elapsedSeconds(), 0);
    QCOMPARE(start->text(), QString("start"));
    QVERIFY(!start->isChecked());
    QCOMPARE(shown(w), QString("03:30"));
    // The plus and minus buttons stay hidden while paused.
    QVERIFY(!button(w, "m_minOnePlusBtn")->isVisible());

    QTest::mouseClick(start, Qt::LeftButton);
    QCOMPARE(w.targetTime(), QTime(0, 3, 30));
    tick(w, 10);
    QCOMPARE(shown(w), QString("03:20"));
}

void TestWidget::endShowsZeroAndSignalsInOrder()
{
    Widget w;
    w.show();
    QVERIFY(QTest::qWaitForWindowExposed(&w));
    QStringList order;
    connect(&w, &Widget::timestart, this, [&order] { order << "timestart"; });
    connect(&w, &Widget::timestop, this, [&order] { order << "timestop"; });
    connect(&w, &Widget::countdounout, this, [&order] { order << "countdounout"; });
    press(w, "m_minOneMinusBtn", 5);
    press(w, "m_secTenPlusBtn");
    QCOMPARE(shown(w), QString("00:10"));
    press(w, "pushbutton_countdown_startBtn");
    w.compactLook();
    tick(w, 9);
    QCOMPARE(shown(w), QString("00:01"));
    tick(w);
    QCOMPARE(shown(w), QString("00:00"));
    QCOMPARE(order, QStringList({"timestart", "timestop", "countdounout"}));
    QVERIFY(!w.isRunning());
    QCOMPARE(w.runningTimerId(), 0);
    QCOMPARE(w.elapsedSeconds(), 0);
    auto* start = button(w, "pushbutton_countdown_startBtn");
    QCOMPARE(start->text(), QString("start"));
    QVERIFY(!start->isChecked());
    // The end brings back the full page: buttons, plus and minus, large digits.
    QVERIFY(start->isVisible());
    QVERIFY(button(w, "m_secTenPlusBtn")->isVisible());
    QCOMPARE(w.findChild<QLabel*>("label_minTen")->font().pointSize(), w.fittedDigitFontSize());
}

void TestWidget::fromZeroCountsAnHour()
{
    Widget w;
    QSignalSpy out(&w, &Widget::countdounout);
    w.on_m_minOneMinusBtn_clicked();
    for (int i = 0; i < 4; ++i)
        w.on_m_minOneMinusBtn_clicked();
    QCOMPARE(shown(w), QString("00:00"));
    w.on_pushbutton_countdown_startBtn_clicked();
    tick(w);
    QCOMPARE(shown(w), QString("59:59"));
    tick(w, 3598);
    QCOMPARE(shown(w), QString("00:01"));
    QCOMPARE(out.count(), 0);
    tick(w);
    QCOMPARE(out.count(), 1);
    QCOMPARE(shown(w), QString("00:00"));

    // After an end the display reads 00:00, and the next start runs an hour again.
    w.on_pushbutton_countdown_startBtn_clicked();
    QVERIFY(w.isRunning());
    tick(w);
    QCOMPARE(shown(w), QString("59:59"));
    tick(w, 3599);
    QCOMPARE(out.count(), 2);
    QCOMPARE(shown(w), QString("00:00"));
}

void TestWidget::resetWhileStoppedMakesStartPause()
{
    Widget w;
    QStringList order;
    connect(&w, &Widget::timestart, this, [&order] { order << "timestart"; });
    connect(&w, &Widget::timestop, this, [&order] { order << "timestop"; });
    press(w, "pushbutton_countdown_resetBtn");
    QCOMPARE(order, QStringList({"timestop"}));
    QVERIFY(w.isRunning());

    // First press pauses: no timer, another timestop.
    press(w, "pushbutton_countdown_startBtn");
    QCOMPARE(order, QStringList({"timestop", "timestop"}));
    QCOMPARE(w.runningTimerId(), 0);
    QVERIFY(!w.isRunning());
    QCOMPARE(shown(w), QString("05:00"));

    // Second press starts.
    press(w, "pushbutton_countdown_startBtn");
    QCOMPARE(order, QStringList({"timestop", "timestop", "timestart"}));
    QVERIFY(w.runningTimerId() != 0);
    tick(w);
    QCOMPARE(shown(w), QString("04:59"));
}

void TestWidget::resetShowsTheSavedDigits()
{
    Widget w;
    w.show();
    QVERIFY(QTest::qWaitForWindowExposed(&w));
    press(w, "m_minOnePlusBtn", 2);
    QCOMPARE(shown(w), QString("07:00"));
    press(w, "pushbutton_countdown_startBtn");
    tick(w, 125);
    QCOMPARE(shown(w), QString("04:55"));
    QSignalSpy stops(&w, &Widget::timestop);
    press(w, "pushbutton_countdown_resetBtn");
    QCOMPARE(stops.count(), 1);
    QCOMPARE(shown(w), QString("07:00"));
    QVERIFY(!w.isRunning());
    QCOMPARE(w.runningTimerId(), 0);
    for (QPushButton* b : w.findChildren<QPushButton*>(QRegularExpression("^m_")))
        QVERIFY(b->isVisible());
    QCOMPARE(button(w, "pushbutton_countdown_startBtn")->text(), QString("start"));
}

void TestWidget::ignoresOtherTimers()
{
    Widget w;
    w.on_pushbutton_countdown_startBtn_clicked();
    QTimerEvent foreign(w.runningTimerId() + 1000);
    QCoreApplication::sendEvent(&w, &foreign);
    QCOMPARE(w.elapsedSeconds(), 0);
    QCOMPARE(shown(w), QString("05:00"));
}

void TestWidget::looks()
{
    Widget w;
    w.show();
    QVERIFY(QTest::qWaitForWindowExposed(&w));
    auto* minTen = w.findChild<QLabel*>("label_minTen");
    auto* colon = w.findChild<QLabel*>("label_colon");
    const QString digitStyle = minTen->styleSheet();
    const QString compactStyle =
        "QLabel { background-color:rgba(255,255,255,255);color:rgba(0,0,0,255); }";
    QVERIFY(!digitStyle.isEmpty());
    QVERIFY(digitStyle != compactStyle);

    w.compactLook();
    for (QPushButton* b : w.findChildren<QPushButton*>())
        QVERIFY2(!b->isVisible(), qPrintable(b->objectName()));
    for (const char* name : {"label_minTen", "label_minOne", "label_secTen", "label_secOne"}) {
        auto* label = w.findChild<QLabel*>(name);
        QCOMPARE(label->font().pointSize(), 35);
        QVERIFY(label->font().bold());
        QCOMPARE(label->minimumSize(), QSize(30, 45));
        QCOMPARE(label->styleSheet(), compactStyle);
    }
    QCOMPARE(colon->font().pointSize(), 35);

    w.normalLook();
    QVERIFY(button(w, "pushbutton_countdown_startBtn")->isVisible());
    QVERIFY(button(w, "pushbutton_countdown_resetBtn")->isVisible());
    for (const char* name : {"label_minTen", "label_minOne", "label_secTen", "label_secOne"}) {
        auto* label = w.findChild<QLabel*>(name);
        QCOMPARE(label->font().pointSize(), w.fittedDigitFontSize());
        QCOMPARE(label->minimumSize(), QSize(60, 90));
        QCOMPARE(label->styleSheet(), digitStyle);
    }
    QCOMPARE(colon->styleSheet(), compactStyle);
    QCOMPARE(colon->font().pointSize(), w.fittedDigitFontSize());
}

void TestWidget::stepPicturesTurnBlueUnderThePointer()
{
    Widget w;
    w.show();
    QVERIFY(QTest::qWaitForWindowExposed(&w));
    QPushButton* plus = button(w, "m_minOnePlusBtn");
    const QImage atRest = plus->icon().pixmap(24, 24).toImage();
    QEnterEvent enter(QPointF(1, 1), QPointF(1, 1), QPointF(1, 1));
    QCoreApplication::sendEvent(plus, &enter);
    const QImage hovered = plus->icon().pixmap(24, 24).toImage();
    QVERIFY(atRest != hovered);
    // The vertical bar of the plus is drawn in the accent blue.
    const QColor bar = hovered.pixelColor(12, 9);
    QVERIFY2(bar.blue() > 200 && bar.red() < 80, qPrintable(bar.name()));
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(plus, &leave);
    QCOMPARE(plus->icon().pixmap(24, 24).toImage(), atRest);
}

void TestWidget::fullScreenButtonAsksForFullScreen()
{
    Widget w;
    QSignalSpy full(&w, &Widget::showfull);
    QPushButton* b = button(w, "pushbutton_countdown_fullBtn");
    QCOMPARE(b->toolTip(), QString("fullscree"));
    QTest::mouseClick(b, Qt::LeftButton);
    QCOMPARE(full.count(), 1);
}

QTEST_MAIN(TestWidget)
#include "test-widget.moc"
