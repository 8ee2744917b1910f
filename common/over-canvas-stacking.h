// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractNativeEventFilter>
#include <QList>
#include <QSet>

// Keeps the board's unmanaged windows (toolbar, strip, tools over the canvas) at the top
// of the X stacking order in a Wayland session. XWayland sends a click to the X window
// its own stacking order finds at the pointer, while the compositor draws unmanaged
// windows above all others whatever that order is: once the compositor's X window
// manager raised the canvas or another program's window on activation, the toolbar
// still showed on top but its clicks went to the window above it in X. So whenever
// another window is mapped or restacked, the board's unmanaged windows are raised again,
// in the order they had among themselves.
class OverCanvasStacking : public QAbstractNativeEventFilter
{
public:
    // Starts watching when the board runs as an X client of a Wayland session.
    static void install();

    // Which of the board's windows to raise, bottom first, given the screen's windows
    // from bottom to top: all of them when another window lies above any; else none.
    static QList<unsigned long> toRaise(const QList<unsigned long>& bottomToTop,
                                        const QSet<unsigned long>& ours);

#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;
#else
    bool nativeEventFilter(const QByteArray& eventType, void* message, long* result) override;
#endif

private:
    void raiseOurs();

    unsigned long m_root = 0;
    bool m_pending = false;
    bool m_swallow = true;
};
