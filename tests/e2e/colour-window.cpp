// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT

// A plain X program for the desktop tests to lay beneath the board: a window filled with
// one colour that turns to a second colour once a mouse button is pressed on it, so a
// picture of the screen tells whether a click reached it.
//
// colour-window X Y WIDTH HEIGHT RRGGBB RRGGBB

#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>

#include <unistd.h>

namespace {

unsigned long pixelOf(const char* hex)
{
    return std::strtoul(hex, nullptr, 16);
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 7) {
        std::fprintf(stderr, "usage: colour-window X Y WIDTH HEIGHT RRGGBB RRGGBB\n");
        return 2;
    }
    Display* display = XOpenDisplay(nullptr);
    if (display == nullptr)
        return 1;
    const int x = std::atoi(argv[1]);
    const int y = std::atoi(argv[2]);
    const unsigned width = static_cast<unsigned>(std::atoi(argv[3]));
    const unsigned height = static_cast<unsigned>(std::atoi(argv[4]));
    const unsigned long first = pixelOf(argv[5]);
    const unsigned long second = pixelOf(argv[6]);

    const Window window =
        XCreateSimpleWindow(display, DefaultRootWindow(display), x, y, width, height, 0, 0, first);
    XStoreName(display, window, "colour-window");
    const unsigned long pid = static_cast<unsigned long>(getpid());
    XChangeProperty(display, window, XInternAtom(display, "_NET_WM_PID", False), XA_CARDINAL, 32,
                    PropModeReplace, reinterpret_cast<const unsigned char*>(&pid), 1);
    // Where it was asked to be, even under a window manager that places windows itself.
    XSizeHints hints{};
    hints.flags = USPosition | USSize;
    hints.x = x;
    hints.y = y;
    hints.width = static_cast<int>(width);
    hints.height = static_cast<int>(height);
    XSetWMNormalHints(display, window, &hints);
    XSelectInput(display, window, ButtonPressMask | ExposureMask);
    XMapWindow(display, window);
    XFlush(display);

    for (;;) {
        XEvent event;
        XNextEvent(display, &event);
        if (event.type == ButtonPress) {
            XSetWindowBackground(display, window, second);
            XClearWindow(display, window);
            XFlush(display);
            std::printf("pressed %d %d\n", event.xbutton.x_root, event.xbutton.y_root);
            std::fflush(stdout);
        }
    }
}
