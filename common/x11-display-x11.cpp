// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "common/x11-display.h"

#include <QGuiApplication>
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
#include <QX11Info>
#endif

#include <X11/Xlib.h>

Display* x11Display()
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return x11 ? x11->display() : nullptr;
#else
    return QX11Info::display();
#endif
}
