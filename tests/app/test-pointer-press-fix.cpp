// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "app/pointer-press-fix.h"

#include <QPoint>
#include <QtTest>

#include <array>
#include <cstring>

namespace {

constexpr int kOpcode = 131;
constexpr uint32_t kRoot = 0x528;
// The toolbar, at (987, 0) on the screen.
constexpr uint32_t kToolbar = 0x40000a;
const QPoint kToolbarOrigin(987, 0);
constexpr uint16_t kMaster = 2;
// The pointer device beneath the master pointer.
constexpr uint16_t kPointerDevice = 8;
constexpr uint16_t kPress = 4;
constexpr uint16_t kRelease = 5;
constexpr uint16_t kMotion = 6;
constexpr uint16_t kEnter = 7;
constexpr uint16_t kLeave = 8;

// An XInput 2 device event laid out as the X connection delivers it.
struct Event
{
    std::array<unsigned char, 96> bytes{};

    Event(uint16_t type, QPoint root, uint32_t window = kToolbar, uint16_t device = kMaster,
          int opcode = kOpcode)
    {
        bytes[0] = 35;
        bytes[1] = static_cast<unsigned char>(opcode);
        put<uint16_t>(8, type);
        put<uint16_t>(10, device);
        put<uint32_t>(24, window);
        const QPoint origin = window == kToolbar ? kToolbarOrigin : QPoint();
        put<int32_t>(36, root.x() * 65536);
        put<int32_t>(40, root.y() * 65536);
        put<int32_t>(44, (root.x() - origin.x()) * 65536);
        put<int32_t>(48, (root.y() - origin.y()) * 65536);
    }
    template <typename T> void put(int offset, T value)
    {
        std::memcpy(bytes.data() + offset, &value, sizeof value);
    }
    template <typename T> T get(int offset) const
    {
        T value;
        std::memcpy(&value, bytes.data() + offset, sizeof value);
        return value;
    }
    // The device whose own event this is (the master pointer's copies carry it too).
    void setSource(uint16_t device) { put<uint16_t>(56, device); }
    void setChild(uint32_t child) { put<uint32_t>(28, child); }
    void* data() { return bytes.data(); }
    uint16_t device() const { return get<uint16_t>(10); }
    uint32_t window() const { return get<uint32_t>(24); }
    QPoint root() const { return QPoint(get<int32_t>(36) / 65536, get<int32_t>(40) / 65536); }
    QPoint local() const { return QPoint(get<int32_t>(44) / 65536, get<int32_t>(48) / 65536); }
};

} // namespace

class TestPointerPressFix : public QObject
{
    Q_OBJECT
private slots:
    void pressFollowsTheMotionBeforeIt_data();
    void pressFollowsTheMotionBeforeIt();
    void dragOfAPressOnTheRootFollowsToo();
    void otherEventsStayAsTheyAre();
    void leavingForTheStalePlaceIsNoLeaving();
    void devicesOwnPressStandsInForTheMasterPointers_data();
    void devicesOwnPressStandsInForTheMasterPointers();
};

void TestPointerPressFix::pressFollowsTheMotionBeforeIt_data()
{
    QTest::addColumn<uint16_t>("buttonType");
    QTest::addColumn<QPoint>("buttonRoot");
    QTest::addColumn<uint32_t>("buttonWindow");
    QTest::addColumn<QPoint>("expectedRoot");

    QTest::newRow("stale press in the window")
        << kPress << QPoint(1200, 0) << kToolbar << QPoint(1100, 39);
    QTest::newRow("stale release in the window")
        << kRelease << QPoint(1200, 0) << kToolbar << QPoint(1100, 39);
    QTest::newRow("stale press on the root")
        << kPress << QPoint(0, 1079) << kRoot << QPoint(1100, 39);
    QTest::newRow("press where the pointer is")
        << kPress << QPoint(1100, 39) << kToolbar << QPoint(1100, 39);
}

void TestPointerPressFix::pressFollowsTheMotionBeforeIt()
{
    QFETCH(uint16_t, buttonType);
    QFETCH(QPoint, buttonRoot);
    QFETCH(uint32_t, buttonWindow);
    QFETCH(QPoint, expectedRoot);

    PointerPressFix fix(kOpcode, kRoot);
    Event motion(kMotion, QPoint(1100, 39));
    QVERIFY(!fix.correct(motion.data()));
    QCOMPARE(motion.root(), QPoint(1100, 39));

    Event button(buttonType, buttonRoot, buttonWindow);
    QCOMPARE(fix.correct(button.data()), expectedRoot != buttonRoot);
    QCOMPARE(button.root(), expectedRoot);
    QCOMPARE(button.window(), kToolbar);
    QCOMPARE(button.local(), expectedRoot - kToolbarOrigin);
}

void TestPointerPressFix::dragOfAPressOnTheRootFollowsToo()
{
    PointerPressFix fix(kOpcode, kRoot);
    Event motion(kMotion, QPoint(1100, 39));
    fix.correct(motion.data());
    Event press(kPress, QPoint(0, 1079), kRoot);
    QVERIFY(fix.correct(press.data()));

    // The root window holds the pointer until the release.
    Event drag(kMotion, QPoint(1150, 60), kRoot);
    QVERIFY(fix.correct(drag.data()));
    QCOMPARE(drag.window(), kToolbar);
    QCOMPARE(drag.root(), QPoint(1150, 60));
    QCOMPARE(drag.local(), QPoint(1150, 60) - kToolbarOrigin);

    Event release(kRelease, QPoint(0, 1079), kRoot);
    QVERIFY(fix.correct(release.data()));
    QCOMPARE(release.window(), kToolbar);
    QCOMPARE(release.root(), QPoint(1100, 39));

    // Afterwards the root's own motion is not the board's.
    Event after(kMotion, QPoint(500, 500), kRoot);
    QVERIFY(!fix.correct(after.data()));
    QCOMPARE(after.window(), kRoot);
}

void TestPointerPressFix::otherEventsStayAsTheyAre()
{
    PointerPressFix fix(kOpcode, kRoot);
    // A press before any motion has nothing to follow.
    Event first(kPress, QPoint(1200, 0));
    QVERIFY(!fix.correct(first.data()));
    QCOMPARE(first.root(), QPoint(1200, 0));

    Event motion(kMotion, QPoint(1100, 39));
    QVERIFY(!fix.correct(motion.data()));
    // Another extension's event, and another master pointer's press.
    Event foreign(kPress, QPoint(1200, 0), kToolbar, kMaster, kOpcode + 1);
    QVERIFY(!fix.correct(foreign.data()));
    QCOMPARE(foreign.root(), QPoint(1200, 0));
    Event otherMaster(kPress, QPoint(1200, 0), kToolbar, kMaster + 9);
    QVERIFY(!fix.correct(otherMaster.data()));
    QCOMPARE(otherMaster.root(), QPoint(1200, 0));
    // Once the pointer has really left the board's windows, for another program's, their
    // last position is no guide, nor is where it entered that program.
    Event leave(kLeave, QPoint(1500, 300));
    QVERIFY(!fix.correct(leave.data()));
    Event enter(kEnter, QPoint(1500, 300), 0x600001);
    QVERIFY(!fix.correct(enter.data()));
    Event afterLeaving(kPress, QPoint(0, 1079), kRoot);
    QVERIFY(!fix.correct(afterLeaving.data()));
    QCOMPARE(afterLeaving.root(), QPoint(0, 1079));
    QCOMPARE(afterLeaving.window(), kRoot);
}

void TestPointerPressFix::leavingForTheStalePlaceIsNoLeaving()
{
    PointerPressFix fix(kOpcode, kRoot);
    Event motion(kMotion, QPoint(1100, 39));
    fix.correct(motion.data());
    // XWayland moves its pointer to the stale place before it reports the press there.
    Event leave(kLeave, QPoint(0, 1079));
    QVERIFY(!fix.correct(leave.data()));
    Event press(kPress, QPoint(0, 1079), kRoot);
    QVERIFY(fix.correct(press.data()));
    QCOMPARE(press.window(), kToolbar);
    QCOMPARE(press.root(), QPoint(1100, 39));
}

void TestPointerPressFix::devicesOwnPressStandsInForTheMasterPointers_data()
{
    QTest::addColumn<uint32_t>("window");
    QTest::addColumn<uint32_t>("child");
    QTest::addColumn<uint16_t>("source");
    QTest::addColumn<bool>("standsIn");

    // Qt 5 asks for no device's own events on its windows: the press reaches the root.
    QTest::newRow("on the root, over the window") << kRoot << kToolbar << kPointerDevice << true;
    // Qt 6 asks for every device's events on its windows.
    QTest::newRow("on the window") << kToolbar << 0u << kPointerDevice << true;
    QTest::newRow("on the root, over another window")
        << kRoot << 0x600001u << kPointerDevice << false;
    QTest::newRow("on another window") << 0x600001u << 0u << kPointerDevice << false;
    QTest::newRow("another master pointer's")
        << kToolbar << 0u << uint16_t(kPointerDevice + 1) << false;
}

void TestPointerPressFix::devicesOwnPressStandsInForTheMasterPointers()
{
    QFETCH(uint32_t, window);
    QFETCH(uint32_t, child);
    QFETCH(uint16_t, source);
    QFETCH(bool, standsIn);

    PointerPressFix fix(kOpcode, kRoot);
    Event motion(kMotion, QPoint(1100, 39));
    fix.correct(motion.data());

    Event own(kPress, QPoint(1105, 41), window, kPointerDevice);
    own.setSource(source);
    own.setChild(child);
    QCOMPARE(fix.correct(own.data()) == PointerPressFix::Changed, standsIn);
    if (!standsIn) {
        QCOMPARE(own.device(), kPointerDevice);
        return;
    }
    // Handed on as the master pointer's press, where the device says the pointer is.
    QCOMPARE(own.device(), kMaster);
    QCOMPARE(own.window(), kToolbar);
    QCOMPARE(own.root(), QPoint(1105, 41));
    QCOMPARE(own.local(), QPoint(1105, 41) - kToolbarOrigin);

    // The master pointer's copy of the same press, from its stale place, is dropped.
    Event copy(kPress, QPoint(1200, 0), kToolbar);
    copy.setSource(kPointerDevice);
    QCOMPARE(fix.correct(copy.data()), PointerPressFix::Dropped);
}

QTEST_APPLESS_MAIN(TestPointerPressFix)
#include "test-pointer-press-fix.moc"
