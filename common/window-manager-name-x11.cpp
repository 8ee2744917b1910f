// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "common/window-manager-name.h"

#include "common/x11-display.h"

#include <QGuiApplication>

#include <X11/Xatom.h>
#include <X11/Xlib.h>

namespace {

// The property's whole value, or nothing if the window does not have it as that type.
QByteArray property(Display* display, Window window, Atom name, Atom type)
{
    Atom actualType = None;
    int format = 0;
    unsigned long count = 0;
    unsigned long left = 0;
    unsigned char* data = nullptr;
    if (XGetWindowProperty(display, window, name, 0, 1024, False, type, &actualType, &format,
                           &count, &left, &data) != Success)
        return QByteArray();
    QByteArray value;
    if (data && actualType == type)
        value = QByteArray(reinterpret_cast<const char*>(data),
                           static_cast<int>(count * (format == 32 ? sizeof(long) : format / 8)));
    if (data)
        XFree(data);
    return value;
}

} // namespace

QString x11WindowManagerName()
{
    if (QGuiApplication::platformName() != QLatin1String("xcb"))
        return QString();
    Display* display = x11Display();
    if (!display)
        return QString();
    const Atom check = XInternAtom(display, "_NET_SUPPORTING_WM_CHECK", False);
    const QByteArray checkWindow = property(display, DefaultRootWindow(display), check, XA_WINDOW);
    if (checkWindow.size() < static_cast<int>(sizeof(long)))
        return QString();
    const auto window =
        static_cast<Window>(*reinterpret_cast<const unsigned long*>(checkWindow.constData()));
    const Atom utf8 = XInternAtom(display, "UTF8_STRING", False);
    const Atom name = XInternAtom(display, "_NET_WM_NAME", False);
    return QString::fromUtf8(property(display, window, name, utf8));
}
