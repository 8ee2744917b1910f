// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "app/font-fallback.h"
#include "app/pallo-translator.h"
#include "common/style-sheet-loader.h"
#include "tests/test-output.h"
#include "tools/time-widget.h"
#include "tools/widget.h"
#include "tools/widgettest.h"

#include <QLabel>
#include <QPushButton>
#include <QScopeGuard>
#include <QtTest>

// Renders the timer window as a presenter sees it, both pages, normal and compact,
// in both languages, into $PALLO_TEST_OUTPUT, and checks that every digit and
// caption is drawn whole.
class TestWidgettestLook : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void pictures_data();
    void pictures();

private:
    static QImage shot(QWidget* w, const QString& name);
    static void verifyTextsFit(QWidget* page);
    static void verifyInk(const QImage& image, QWidget* window, QLabel* label);
};

void TestWidgettestLook::initTestCase()
{
    QVERIFY(loadApplicationStyleSheet());
    installFontFallbacks();
    QVERIFY(!QImage(":/images/timer_fullscreen.png").isNull());
    QVERIFY(!QImage(":/image/plus.png").isNull());
}

QImage TestWidgettestLook::shot(QWidget* w, const QString& name)
{
    // Lets the window lay itself out for the new look before it is drawn.
    QTest::qWait(50);
    const QImage image = w->grab().toImage();
    keepPicture(image, name);
    return image;
}

// Every visible label and button caption is narrower and lower than the room it has.
void TestWidgettestLook::verifyTextsFit(QWidget* page)
{
    for (QLabel* label : page->findChildren<QLabel*>()) {
        if (!label->isVisible() || label->text().isEmpty())
            continue;
        const QRect room = label->contentsRect();
        const QFontMetrics fm = label->fontMetrics();
        QVERIFY2(fm.horizontalAdvance(label->text()) <= room.width(),
                 qPrintable(label->objectName()));
        QVERIFY2(fm.height() <= room.height() + fm.descent(), qPrintable(label->objectName()));
    }
    for (QPushButton* button : page->findChildren<QPushButton*>()) {
        if (!button->isVisible() || button->text().isEmpty())
            continue;
        QVERIFY2(button->fontMetrics().horizontalAdvance(button->text()) <= button->width() - 8,
                 qPrintable(button->objectName()));
    }
}

// The label's part of the picture has dark strokes: the digit is drawn.
void TestWidgettestLook::verifyInk(const QImage& image, QWidget* window, QLabel* label)
{
    const QRect area(label->mapTo(window, QPoint(0, 0)), label->size());
    int dark = 0;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x) {
            const QColor c = image.pixelColor(x, y);
            if (c.alpha() > 200 && c.lightness() < 80)
                ++dark;
        }
    }
    QVERIFY2(dark > 40, qPrintable(QString("%1: %2").arg(label->objectName()).arg(dark)));
}

void TestWidgettestLook::pictures_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("countdownTab");
    QTest::addColumn<QString>("start");
    QTest::addColumn<QString>("pause");
    QTest::newRow("en") << "english"
                        << "Countdown"
                        << "start"
                        << "pause";
    QTest::newRow("zh") << "chinese"
                        << "倒计时"
                        << "开始"
                        << "暂停";
}

void TestWidgettestLook::pictures()
{
    QFETCH(QString, language);
    QFETCH(QString, countdownTab);
    QFETCH(QString, start);
    QFETCH(QString, pause);
    const QString tag = QTest::currentDataTag();

    PalloTranslator translator(language);
    QCoreApplication::installTranslator(&translator);
    auto cleanup = qScopeGuard([&translator] { QCoreApplication::removeTranslator(&translator); });

    {
        Widgettest w;
        w.move(200, 200);
        w.show();
        QVERIFY(QTest::qWaitForWindowExposed(&w));
        QCOMPARE(w.findChild<QPushButton*>("pushButton_timer_countdown")->text(), countdownTab);
        QCOMPARE(w.countdown()->findChild<QPushButton*>("pushbutton_countdown_startBtn")->text(),
                 start);
        QList<QLabel*> digits;
        for (const char* name : {"label_minTen", "label_minOne", "label_secTen", "label_secOne"})
            digits << w.countdown()->findChild<QLabel*>(name);

        QImage image = shot(&w, "timer-countdown-" + tag);
        verifyTextsFit(&w);
        for (QLabel* label : digits)
            verifyInk(image, &w, label);
        // The corners are cut round: transparent outside, white inside.
        QCOMPARE(image.pixelColor(0, 0).alpha(), 0);
        QCOMPARE(image.pixelColor(image.width() / 2, image.height() - 4), QColor(Qt::white));

        w.countdown()->on_pushbutton_countdown_startBtn_clicked();
        QCOMPARE(w.countdown()->findChild<QPushButton*>("pushbutton_countdown_startBtn")->text(),
                 pause);
        image = shot(&w, "timer-countdown-running-" + tag);
        verifyTextsFit(&w);

        w.slot_time_out();
        QVERIFY(w.isCompact());
        image = shot(&w, "timer-countdown-compact-" + tag);
        verifyTextsFit(&w);
        for (QLabel* label : digits)
            verifyInk(image, &w, label);
    }

    {
        Widgettest w;
        w.move(200, 200);
        w.show();
        QVERIFY(QTest::qWaitForWindowExposed(&w));
        w.on_pushButton_timer_timer_clicked();
        QList<QLabel*> digits;
        for (const char* name : {"label_hour", "label_minute", "label_second"})
            digits << w.stopwatch()->findChild<QLabel*>(name);

        // After 1 h 2 min 3 s of running.
        w.stopwatch()->on_pushbutton_timer_start_btn_clicked();
        for (int i = 0; i < 3723; ++i) {
            QTimerEvent tick(w.stopwatch()->runningTimerId());
            QCoreApplication::sendEvent(w.stopwatch(), &tick);
        }
        QCOMPARE(digits[0]->text(), QString("01"));
        QImage image = shot(&w, "timer-clock-" + tag);
        verifyTextsFit(&w);
        for (QLabel* label : digits)
            verifyInk(image, &w, label);

        w.slot_time_out();
        QVERIFY(w.isCompact());
        image = shot(&w, "timer-clock-compact-" + tag);
        verifyTextsFit(&w);
        for (QLabel* label : digits)
            verifyInk(image, &w, label);
    }
}

QTEST_MAIN(TestWidgettestLook)
#include "test-widgettest-look.moc"
