// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "root-pattern.h"

#include <X11/Xlib.h>
#include <X11/Xutil.h>

RootPattern::RootPattern() : display(XOpenDisplay(nullptr)) {}

RootPattern::~RootPattern()
{
    if (display != nullptr)
        XCloseDisplay(display);
}

bool RootPattern::isOpen() const
{
    return display != nullptr;
}

void RootPattern::show(const QImage& picture)
{
    QImage image = picture.convertToFormat(QImage::Format_RGB32);
    const int screen = DefaultScreen(display);
    const Window root = RootWindow(display, screen);
    const int depth = DefaultDepth(display, screen);
    XImage* xImage = XCreateImage(display, DefaultVisual(display, screen), depth, ZPixmap, 0,
                                  reinterpret_cast<char*>(image.bits()), image.width(),
                                  image.height(), 32, image.bytesPerLine());
    const Pixmap pixmap = XCreatePixmap(display, root, image.width(), image.height(), depth);
    GC gc = XCreateGC(display, pixmap, 0, nullptr);
    XPutImage(display, pixmap, gc, xImage, 0, 0, 0, 0, image.width(), image.height());
    XSetWindowBackgroundPixmap(display, root, pixmap);
    XClearWindow(display, root);
    XFreeGC(display, gc);
    XFreePixmap(display, pixmap);
    xImage->data = nullptr;
    XDestroyImage(xImage);
    XSync(display, False);
}

QImage RootPattern::gradient(const QSize& size, int cell, int phase)
{
    QImage image(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < size.width(); ++x) {
            const int red = x * 255 / (size.width() - 1);
            const int green = y * 255 / (size.height() - 1);
            const int blue = ((x / cell + y / cell + phase) % 2) != 0 ? 255 : 0;
            line[x] = qRgb(red, green, blue);
        }
    }
    return image;
}

QPoint RootPattern::origin(const QColor& colour, const QSize& size)
{
    return QPoint(colour.red() * (size.width() - 1) / 255,
                  colour.green() * (size.height() - 1) / 255);
}
