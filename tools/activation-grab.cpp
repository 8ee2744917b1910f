// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "tools/activation-grab.h"

#include <QApplication>
#include <QEvent>
#include <QGuiApplication>
#include <QWidget>

bool regrabOnActivation(QWidget* window, QObject* watched, QEvent* event, bool& grabbed,
                        const std::function<void()>& takePicture)
{
    if (watched != window)
        return false;
    if (event->type() == QEvent::WindowDeactivate) {
        grabbed = false;
        return false;
    }
    if (event->type() == QEvent::WindowActivate && !grabbed) {
        window->hide();
        grabbed = true;
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
        return true;
    }
    return false;
}
