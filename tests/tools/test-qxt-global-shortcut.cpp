// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "tools/qxt-global-shortcut.h"

#include <QProcess>
#include <QSignalSpy>
#include <QtTest>

#include <X11/Xlib.h>
#include <X11/keysym.h>

namespace {

bool press(const QString& keys)
{
    const bool sent = QProcess::execute("xdotool", {"key", keys}) == 0;
    QTest::qWait(100);
    return sent;
}

int s_otherError = 0;

int recordOtherError(Display*, XErrorEvent* event)
{
    s_otherError = event->error_code;
    return 0;
}

// Another program on the same X server, holding key combinations of its own.
class OtherProgram
{
public:
    OtherProgram() : m_display(XOpenDisplay(nullptr)) {}
    ~OtherProgram()
    {
        if (m_display != nullptr)
            XCloseDisplay(m_display);
    }
    bool grab(KeySym symbol, unsigned int mask)
    {
        if (m_display == nullptr)
            return false;
        XSync(m_display, False);
        s_otherError = 0;
        XErrorHandler previous = XSetErrorHandler(recordOtherError);
        XGrabKey(m_display, XKeysymToKeycode(m_display, symbol), mask, DefaultRootWindow(m_display),
                 True, GrabModeAsync, GrabModeAsync);
        XSync(m_display, False);
        XSetErrorHandler(previous);
        return s_otherError == 0;
    }

private:
    Display* m_display;
};

} // namespace

class TestQxtGlobalShortcut : public QObject
{
    Q_OBJECT

private slots:
    void pressedAnywhereFires();
    void combinationHeldByAnotherProgramIsRefused();
    void changingGivesTheOldCombinationBack();
    void destroyingGivesTheCombinationBack();
    void emptySequenceIsRefused();
};

void TestQxtGlobalShortcut::pressedAnywhereFires()
{
    QxtGlobalShortcut shortcut;
    QSignalSpy activated(&shortcut, &QxtGlobalShortcut::activated);
    QVERIFY(shortcut.setShortcut(QKeySequence("Ctrl+Alt+K")));
    QCOMPARE(shortcut.shortcut(), QKeySequence("Ctrl+Alt+K"));
    // No window of this process exists, let alone has the keyboard.
    QVERIFY(press("ctrl+alt+k"));
    QTRY_COMPARE(activated.count(), 1);
    QVERIFY(press("ctrl+k"));
    QVERIFY(press("alt+k"));
    QTest::qWait(200);
    QCOMPARE(activated.count(), 1);
    QVERIFY(press("ctrl+alt+k"));
    QTRY_COMPARE(activated.count(), 2);
}

void TestQxtGlobalShortcut::combinationHeldByAnotherProgramIsRefused()
{
    OtherProgram other;
    QVERIFY(other.grab(XK_j, ControlMask | Mod1Mask));
    QxtGlobalShortcut shortcut;
    QSignalSpy activated(&shortcut, &QxtGlobalShortcut::activated);
    QTest::ignoreMessage(
        QtWarningMsg,
        QRegularExpression("^QxtGlobalShortcut failed to register: .*Ctrl\\+Alt\\+J"));
    QVERIFY(!shortcut.setShortcut(QKeySequence("Ctrl+Alt+J")));
    QVERIFY(shortcut.shortcut().isEmpty());
    QVERIFY(press("ctrl+alt+j"));
    QTest::qWait(200);
    QCOMPARE(activated.count(), 0);
    // A free combination still works afterwards.
    QVERIFY(shortcut.setShortcut(QKeySequence("Ctrl+Alt+H")));
}

void TestQxtGlobalShortcut::changingGivesTheOldCombinationBack()
{
    QxtGlobalShortcut shortcut;
    QSignalSpy activated(&shortcut, &QxtGlobalShortcut::activated);
    QVERIFY(shortcut.setShortcut(QKeySequence("Ctrl+Shift+F7")));
    QVERIFY(shortcut.setShortcut(QKeySequence("Ctrl+Shift+F8")));
    QVERIFY(press("ctrl+shift+F7"));
    QTest::qWait(200);
    QCOMPARE(activated.count(), 0);
    QVERIFY(press("ctrl+shift+F8"));
    QTRY_COMPARE(activated.count(), 1);
    OtherProgram other;
    QVERIFY(other.grab(XK_F7, ControlMask | ShiftMask));
    QVERIFY(!other.grab(XK_F8, ControlMask | ShiftMask));
}

void TestQxtGlobalShortcut::destroyingGivesTheCombinationBack()
{
    {
        QxtGlobalShortcut shortcut;
        QVERIFY(shortcut.setShortcut(QKeySequence("Alt+S")));
        OtherProgram other;
        QVERIFY(!other.grab(XK_s, Mod1Mask));
    }
    OtherProgram other;
    QVERIFY(other.grab(XK_s, Mod1Mask));
}

void TestQxtGlobalShortcut::emptySequenceIsRefused()
{
    QxtGlobalShortcut shortcut;
    QTest::ignoreMessage(QtWarningMsg,
                         QRegularExpression("^QxtGlobalShortcut failed to register:"));
    QVERIFY(!shortcut.setShortcut(QKeySequence()));
}

QTEST_MAIN(TestQxtGlobalShortcut)
#include "test-qxt-global-shortcut.moc"
