// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "app/scale-factor.h"

#include <QGuiApplication>
#include <QScreen>

double screenScaleFactor()
{
    const QScreen* screen = QGuiApplication::primaryScreen();
    if (!screen) {
        return 1.0;
    }
    return screen->logicalDotsPerInch() / 96.0;
}
