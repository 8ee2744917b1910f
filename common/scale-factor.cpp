// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "common/scale-factor.h"

#include <QGuiApplication>
#include <QScreen>

double screenScaleFactor()
{
    const QScreen* screen = QGuiApplication::primaryScreen();
    if (!screen) {
        return 1.0;
    }
    // Where Qt scales, it reports the DPI divided by the factor it scales by.
    return screen->logicalDotsPerInch() * screen->devicePixelRatio() / 96.0;
}

void leaveScalingToTheBoard()
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    if (!qEnvironmentVariableIsSet("QT_ENABLE_HIGHDPI_SCALING"))
        qputenv("QT_ENABLE_HIGHDPI_SCALING", "0");
#endif
}
