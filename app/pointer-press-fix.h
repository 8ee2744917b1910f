// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractNativeEventFilter>

#include <cstdint>

// XWayland (22.x, under sway) reports a button press or release on the master pointer at
// a stale place (where its relative pointer device last was, e.g. the screen's edge)
// instead of where its last motion put the pointer. The press then goes to whatever X
// window lies at that place: clicks miss the toolbar's buttons, or go to another program,
// and strokes begin far from the pen. The pointer device's own copy of the press is where
// the pointer is, so the board listens for it on the root window, hands it on as the
// master pointer's and drops the master pointer's stale copy. A stale press that reaches
// the board's window or the root window without a device copy is moved back to the
// window and place of the pointer's last motion, and so is the drag it starts.
class PointerPressFix : public QAbstractNativeEventFilter
{
public:
    // Installs the fix when the board runs as an X client of a Wayland session.
    static void install();

    // The XInput extension's major opcode, which marks its events, and the root window.
    PointerPressFix(int xinputOpcode, uint32_t root) : m_opcode(xinputOpcode), m_root(root) {}

    enum Outcome
    {
        Kept,
        Changed,
        Dropped
    };
    // Looks at one event as the X connection delivers it and corrects it in place, or
    // tells that the toolkit must not see it.
    Outcome correct(void* event);

#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;
#else
    bool nativeEventFilter(const QByteArray& eventType, void* message, long* result) override;
#endif

private:
    void moveTo(unsigned char* event, int32_t rootX, int32_t rootY) const;

    int m_opcode;
    uint32_t m_root;
    bool m_known = false;
    bool m_redirecting = false;
    bool m_left = false;
    bool m_standIn = false;
    bool m_standInDown = false;
    uint32_t m_standInTime = 0;
    uint16_t m_device = 0;
    uint32_t m_window = 0;
    // 16.16 fixed point, as the events carry them.
    int32_t m_rootX = 0;
    int32_t m_rootY = 0;
    int32_t m_originX = 0;
    int32_t m_originY = 0;
    int32_t m_leaveX = 0;
    int32_t m_leaveY = 0;
};
