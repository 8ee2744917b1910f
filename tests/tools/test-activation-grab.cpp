// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "tools/activation-grab.h"

#include <QEvent>
#include <QWidget>
#include <QtTest>

class TestActivationGrab : public QObject
{
    Q_OBJECT
private slots:
    void firstActivationTakesAPictureWhileHidden();
    void activationWithACurrentPictureTakesNone();
    void deactivationClearsTheFlagAndPassesOn();
    void otherEventsPassOn();
    void othersActivationsDoNotCount();
};

namespace {
bool deliver(QWidget* w, QEvent::Type type, bool& flag, QStringList& log)
{
    QEvent event(type);
    return regrabOnActivation(w, w, &event, flag, [&] {
        log << (w->isVisible() ? "grab while shown" : "grab while hidden");
    });
}
} // namespace

void TestActivationGrab::firstActivationTakesAPictureWhileHidden()
{
    QWidget w;
    w.show();
    bool flag = false;
    QStringList log;
    QVERIFY(deliver(&w, QEvent::WindowActivate, flag, log));
    QCOMPARE(log, QStringList{"grab while hidden"});
    QVERIFY(flag);
    QVERIFY(w.isVisible());
}

void TestActivationGrab::activationWithACurrentPictureTakesNone()
{
    QWidget w;
    w.show();
    bool flag = true;
    QStringList log;
    QVERIFY(!deliver(&w, QEvent::WindowActivate, flag, log));
    QVERIFY(log.isEmpty());
    QVERIFY(flag);
}

void TestActivationGrab::deactivationClearsTheFlagAndPassesOn()
{
    QWidget w;
    w.show();
    bool flag = true;
    QStringList log;
    QVERIFY(!deliver(&w, QEvent::WindowDeactivate, flag, log));
    QVERIFY(!flag);
    QVERIFY(deliver(&w, QEvent::WindowActivate, flag, log));
    QCOMPARE(log.size(), 1);
}

void TestActivationGrab::otherEventsPassOn()
{
    QWidget w;
    bool flag = false;
    QStringList log;
    for (QEvent::Type type : {QEvent::Show, QEvent::FocusIn, QEvent::ActivationChange})
        QVERIFY(!deliver(&w, type, flag, log));
    QVERIFY(log.isEmpty());
    QVERIFY(!flag);
}

void TestActivationGrab::othersActivationsDoNotCount()
{
    QWidget w;
    QWidget child(&w);
    w.show();
    bool flag = false;
    QEvent event(QEvent::WindowActivate);
    int pictures = 0;
    QVERIFY(!regrabOnActivation(&w, &child, &event, flag, [&] { ++pictures; }));
    QCOMPARE(pictures, 0);
    QVERIFY(!flag);
}

QTEST_MAIN(TestActivationGrab)
#include "test-activation-grab.moc"
