// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "tools/activation-grab.h"

#include <QApplication>
#include <QEvent>
#include <QGuiApplication>
#include <QWidget>

bool regrabOnActivation(QWidget* window, QObject* watched, QEvent* event,
                        ActivationPicture& picture, const std::function<void()>& takePicture)
{
    if (watched != window)
        return false;
    // A tool closed before its focus came back leaves no settling behind for the next.
    if (event->type() == QEvent::Hide)
        picture.settling = false;
    // Before the window is mapped the screen does not show it yet, so no hiding is needed.
    // Hiding would not do on a compositing desktop either: the compositor draws the screen
    // anew only a while after the window is gone, and a grab at once would picture the
    // window's own first page.
    if (event->type() == QEvent::Show && !picture.taken) {
        picture.taken = true;
        takePicture();
        return false;
    }
    if (event->type() == QEvent::WindowDeactivate) {
        // Losing the focus to another program always counts: coming back must picture the
        // screen again.
        if (!picture.settling || QGuiApplication::focusWindow() == nullptr)
            picture.taken = false;
        return false;
    }
    if (event->type() != QEvent::WindowActivate)
        return false;
    if (picture.settling) {
        picture.settling = false;
        return false;
    }
    if (!picture.taken) {
        window->hide();
        picture.taken = true;
        takePicture();
        window->show();
        // Hiding took the application's active window away while the window system kept
        // its focus here, so no activation event would come back; without one, leaving
        // the window later would go unnoticed and the next return would show an old picture.
        if (QApplication::activeWindow() == nullptr &&
            QGuiApplication::focusWindow() == window->windowHandle())
            QApplication::setActiveWindow(window);
        // On X11 the server moved its focus away when the window was unmapped and says so
        // only later; asking for it back keeps that late word from deactivating the window,
        // which would make the next click on it take another picture instead.
        window->activateWindow();
        picture.settling = true;
        return true;
    }
    return false;
}
