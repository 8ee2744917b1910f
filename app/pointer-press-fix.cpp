// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "app/pointer-press-fix.h"

#include "common/x11-display.h"

#include "logging/log-categories.h"

#include <QCoreApplication>
#include <QGuiApplication>

#include <X11/Xlib.h>
#include <X11/extensions/XInput2.h>

#include <cstring>

namespace {

// An XInput 2 device event as the X connection hands it over: the X protocol's layout
// with the connection's four-byte full sequence number inserted at byte 32.
constexpr int kGenericEvent = 35;
constexpr uint16_t kButtonPress = 4;
constexpr uint16_t kButtonRelease = 5;
constexpr uint16_t kMotion = 6;
constexpr uint16_t kLeave = 8;
constexpr int kExtension = 1;
constexpr int kEventType = 8;
constexpr int kDevice = 10;
constexpr int kTime = 12;
constexpr int kEventWindow = 24;
constexpr int kChild = 28;
constexpr int kRootX = 36;
constexpr int kRootY = 40;
constexpr int kEventX = 44;
constexpr int kEventY = 48;
constexpr int kSource = 56;

template <typename T> T field(const unsigned char* event, int offset)
{
    T value;
    std::memcpy(&value, event + offset, sizeof value);
    return value;
}

template <typename T> void setField(unsigned char* event, int offset, T value)
{
    std::memcpy(event + offset, &value, sizeof value);
}

} // namespace

PointerPressFix::Outcome PointerPressFix::correct(void* message)
{
    auto* event = static_cast<unsigned char*>(message);
    if ((event[0] & 0x7f) != kGenericEvent || event[kExtension] != m_opcode)
        return Kept;
    const auto type = field<uint16_t>(event, kEventType);
    if (type != kMotion && type != kLeave && type != kButtonPress && type != kButtonRelease)
        return Kept;
    // A leave event puts the device and the windows where device events do.
    const auto device = field<uint16_t>(event, kDevice);
    const auto window = field<uint32_t>(event, kEventWindow);
    const auto rootX = field<int32_t>(event, kRootX);
    const auto rootY = field<int32_t>(event, kRootY);
    if (type == kLeave) {
        // A stale press first moves XWayland's pointer to the stale place, which takes
        // it out of the board's window; a press at another place than that leave's was
        // made after the pointer really left.
        if (window != m_root && !m_redirecting && device == m_device) {
            m_left = true;
            m_leaveX = rootX;
            m_leaveY = rootY;
        }
        return Kept;
    }
    if (type == kMotion) {
        if (window == m_root) {
            if (!m_redirecting || device != m_device)
                return Kept;
            // The drag of a redirected press: the root window holds the pointer.
            moveTo(event, rootX, rootY);
            return Changed;
        }
        m_known = true;
        m_left = false;
        m_device = device;
        m_window = window;
        m_rootX = rootX;
        m_rootY = rootY;
        m_originX = rootX - field<int32_t>(event, kEventX);
        m_originY = rootY - field<int32_t>(event, kEventY);
        return Kept;
    }

    const auto time = field<uint32_t>(event, kTime);
    const bool leftForReal = m_left && (rootX != m_leaveX || rootY != m_leaveY);
    if (device != m_device) {
        // The pointer device's own press (its own source), which XWayland reports where
        // the pointer really is and which reaches the root window, or the board's window
        // where the toolkit asks for every device's events there (Qt 6): when it lies in
        // the window of the last motion, it stands in for the master pointer's (whose
        // stale place may have taken the pointer out of that window first). Its release
        // may come from a stale place again, and ends the press where the last motion left
        // the pointer.
        if (!m_known || field<uint16_t>(event, kSource) != device ||
            (window != m_root && window != m_window))
            return Kept;
        if (type == kButtonPress) {
            if (window == m_root && field<uint32_t>(event, kChild) != m_window)
                return Kept;
            m_standInDown = true;
            moveTo(event, rootX, rootY);
        } else {
            if (!m_standInDown)
                return Kept;
            m_standInDown = false;
            moveTo(event, m_rootX, m_rootY);
        }
        setField<uint16_t>(event, kDevice, m_device);
        m_standIn = true;
        m_standInTime = time;
        return Changed;
    }
    if (m_standIn && time == m_standInTime) {
        // The master pointer's copy of a press already handed on.
        m_redirecting = type == kButtonPress && window == m_root;
        return Dropped;
    }
    if (type == kButtonRelease)
        m_redirecting = false;
    if (!m_known || leftForReal || (rootX == m_rootX && rootY == m_rootY))
        return Kept;
    qCDebug(lcApp) << "pointer button moved from" << rootX / 65536.0 << rootY / 65536.0 << "to"
                   << m_rootX / 65536.0 << m_rootY / 65536.0;
    moveTo(event, m_rootX, m_rootY);
    m_redirecting = type == kButtonPress && window == m_root;
    return Changed;
}

void PointerPressFix::moveTo(unsigned char* event, int32_t rootX, int32_t rootY) const
{
    setField<uint32_t>(event, kEventWindow, m_window);
    setField<uint32_t>(event, kChild, 0);
    setField<int32_t>(event, kRootX, rootX);
    setField<int32_t>(event, kRootY, rootY);
    setField<int32_t>(event, kEventX, rootX - m_originX);
    setField<int32_t>(event, kEventY, rootY - m_originY);
}

#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
bool PointerPressFix::nativeEventFilter(const QByteArray& eventType, void* message, qintptr*)
#else
bool PointerPressFix::nativeEventFilter(const QByteArray& eventType, void* message, long*)
#endif
{
    return eventType == "xcb_generic_event_t" && correct(message) == Dropped;
}

void PointerPressFix::install()
{
    if (QGuiApplication::platformName() != QLatin1String("xcb") ||
        qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY"))
        return;
    Display* display = x11Display();
    int opcode = 0;
    int firstEvent = 0;
    int firstError = 0;
    if (!display || !XQueryExtension(display, "XInputExtension", &opcode, &firstEvent, &firstError))
        return;
    const Window root = DefaultRootWindow(display);
    // The pointer devices' own presses, which no window takes, come to the root window; so
    // does a stale press of the master pointer outside the board's windows, and the drag
    // it starts. The toolkit has already agreed the XInput version with the server on
    // this connection.
    unsigned char buttons[XIMaskLen(XI_LASTEVENT)] = {};
    XISetMask(buttons, XI_ButtonPress);
    XISetMask(buttons, XI_ButtonRelease);
    unsigned char motion[XIMaskLen(XI_LASTEVENT)] = {};
    XISetMask(motion, XI_ButtonPress);
    XISetMask(motion, XI_ButtonRelease);
    XISetMask(motion, XI_Motion);
    XIEventMask masks[] = {{XIAllDevices, sizeof buttons, buttons},
                           {XIAllMasterDevices, sizeof motion, motion}};
    XISelectEvents(display, root, masks, 2);
    XFlush(display);
    // Lives as long as the application that filters through it.
    static PointerPressFix fix(opcode, static_cast<uint32_t>(root));
    QCoreApplication::instance()->installNativeEventFilter(&fix);
}
