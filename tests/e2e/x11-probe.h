// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QList>
#include <QPoint>
#include <QRect>
#include <QString>

// What the X server shows of another process: its top-level windows, their input shape,
// the screen's pixels; and a way to ask its windows to close. Opens its own connection
// to the display the test runs on.
class X11Probe
{
public:
    struct Window
    {
        unsigned long id = 0;
        QRect geometry;
        bool viewable = false;
        QString title;
    };

    X11Probe();
    ~X11Probe();
    X11Probe(const X11Probe&) = delete;
    X11Probe& operator=(const X11Probe&) = delete;

    bool isValid() const { return display_ != nullptr; }

    // The top-level windows of process pid, mapped or not.
    QList<Window> windowsOf(qint64 pid) const;
    // Only those on screen.
    QList<Window> viewableWindowsOf(qint64 pid) const;
    // The viewable window of pid as wide as the screen and covering most of it (all of it
    // but a compositor's panel), or one with id 0.
    Window canvasOf(qint64 pid) const;
    // The viewable window of pid smaller than the screen (the toolbar), or one with id 0.
    Window toolbarOf(qint64 pid) const;
    // The board with this process id has both its canvas and its toolbar on screen.
    bool showsCanvasAndToolbar(qint64 pid) const;
    // The viewable window of pid with this title, or one with id 0.
    Window windowTitled(qint64 pid, const QString& title) const;

    // True when window upper lies above window lower among the screen's top-level windows.
    bool stackedAbove(unsigned long upper, unsigned long lower) const;

    // The window holding the keyboard focus, as the server sees it.
    unsigned long inputFocus() const;

    // True when the window takes no pointer input at all (clicks fall through it).
    bool inputShapeEmpty(unsigned long window) const;

    // Sends WM_DELETE_WINDOW, as a window manager's close button does.
    void requestClose(unsigned long window) const;

    // From now on counts the windows that any client maps on the screen.
    void startCountingMaps();
    int mapsCounted();

    QImage grabScreen() const;
    // Touches a property of the root window, which every window manager watches. Just
    // after it starts, openbox can leave a map request unanswered until its next event.
    void nudgeWindowManager() const;

private:
    void* display_ = nullptr;
    int maps_ = 0;
};

// The number of pixels of image in which red stands out: strokes of the board's red pen,
// anti-aliased edges included, whatever lies beneath.
int countReddish(const QImage& image);
bool isReddish(QRgb pixel);
