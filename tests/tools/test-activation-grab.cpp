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
    void showingWithoutAPictureTakesOneBeforeTheWindowIsMapped();
    void othersActivationsDoNotCount();
    void handingTheFocusToAnotherOwnWindowAfterAPictureTakesNoNewOne();
    void leavingForAnotherProgramAfterAPictureStillCounts();
    void hidingEndsTheSettling();
};

namespace {
bool deliver(QWidget* w, QEvent::Type type, ActivationPicture& flag, QStringList& log)
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
    ActivationPicture flag;
    QStringList log;
    QVERIFY(deliver(&w, QEvent::WindowActivate, flag, log));
    QCOMPARE(log, QStringList{"grab while hidden"});
    QVERIFY(flag.taken);
    QVERIFY(w.isVisible());
}

void TestActivationGrab::activationWithACurrentPictureTakesNone()
{
    QWidget w;
    w.show();
    ActivationPicture flag;
    flag.taken = true;
    QStringList log;
    QVERIFY(!deliver(&w, QEvent::WindowActivate, flag, log));
    QVERIFY(log.isEmpty());
    QVERIFY(flag.taken);
}

void TestActivationGrab::deactivationClearsTheFlagAndPassesOn()
{
    QWidget w;
    w.show();
    ActivationPicture flag;
    flag.taken = true;
    QStringList log;
    QVERIFY(!deliver(&w, QEvent::WindowDeactivate, flag, log));
    QVERIFY(!flag.taken);
    QVERIFY(deliver(&w, QEvent::WindowActivate, flag, log));
    QCOMPARE(log.size(), 1);
}

void TestActivationGrab::showingWithoutAPictureTakesOneBeforeTheWindowIsMapped()
{
    QWidget w;
    ActivationPicture flag;
    QStringList log;
    QVERIFY(!deliver(&w, QEvent::Show, flag, log));
    QCOMPARE(log, QStringList{"grab while hidden"});
    QVERIFY(flag.taken);
    w.show();
    QVERIFY(!deliver(&w, QEvent::WindowActivate, flag, log));
    QVERIFY(!deliver(&w, QEvent::Show, flag, log));
    QCOMPARE(log.size(), 1);
}

void TestActivationGrab::otherEventsPassOn()
{
    QWidget w;
    ActivationPicture flag;
    QStringList log;
    for (QEvent::Type type : {QEvent::FocusIn, QEvent::ActivationChange, QEvent::Hide})
        QVERIFY(!deliver(&w, type, flag, log));
    QVERIFY(log.isEmpty());
    QVERIFY(!flag.taken);
}

void TestActivationGrab::othersActivationsDoNotCount()
{
    QWidget w;
    QWidget child(&w);
    w.show();
    ActivationPicture flag;
    QEvent event(QEvent::WindowActivate);
    int pictures = 0;
    QVERIFY(!regrabOnActivation(&w, &child, &event, flag, [&] { ++pictures; }));
    QCOMPARE(pictures, 0);
    QVERIFY(!flag.taken);
}

void TestActivationGrab::handingTheFocusToAnotherOwnWindowAfterAPictureTakesNoNewOne()
{
    // As under openbox: the hiding for the picture lets the window manager focus the
    // canvas, then the tool takes the focus back.
    QWidget tool;
    QWidget canvas;
    canvas.show();
    tool.show();
    ActivationPicture flag;
    QStringList log;
    QVERIFY(deliver(&tool, QEvent::WindowActivate, flag, log));
    canvas.activateWindow();
    QTRY_COMPARE(QGuiApplication::focusWindow(), canvas.windowHandle());
    QVERIFY(!deliver(&tool, QEvent::WindowDeactivate, flag, log));
    QVERIFY(!deliver(&tool, QEvent::WindowActivate, flag, log));
    QCOMPARE(log.size(), 1);
    QVERIFY(flag.taken);

    // Once the tool had the focus back, leaving it counts again.
    QVERIFY(!deliver(&tool, QEvent::WindowDeactivate, flag, log));
    QVERIFY(deliver(&tool, QEvent::WindowActivate, flag, log));
    QCOMPARE(log.size(), 2);
}

void TestActivationGrab::leavingForAnotherProgramAfterAPictureStillCounts()
{
    QWidget tool;
    tool.show();
    ActivationPicture flag;
    QStringList log;
    QVERIFY(deliver(&tool, QEvent::WindowActivate, flag, log));
    tool.hide();
    QVERIFY(!deliver(&tool, QEvent::Hide, flag, log));
    QTRY_VERIFY(QGuiApplication::focusWindow() == nullptr);
    QVERIFY(!deliver(&tool, QEvent::WindowDeactivate, flag, log));
    QVERIFY(!flag.taken);
    tool.show();
    QVERIFY(deliver(&tool, QEvent::WindowActivate, flag, log));
    QCOMPARE(log.size(), 2);
}

void TestActivationGrab::hidingEndsTheSettling()
{
    QWidget tool;
    QWidget canvas;
    canvas.show();
    tool.show();
    ActivationPicture flag;
    QStringList log;
    QVERIFY(deliver(&tool, QEvent::WindowActivate, flag, log));
    QVERIFY(!deliver(&tool, QEvent::Hide, flag, log));
    canvas.activateWindow();
    QTRY_COMPARE(QGuiApplication::focusWindow(), canvas.windowHandle());
    QVERIFY(!deliver(&tool, QEvent::WindowDeactivate, flag, log));
    QVERIFY(!flag.taken);
}

QTEST_MAIN(TestActivationGrab)
#include "test-activation-grab.moc"
