// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "canvas/tool-vocabulary.h"

ToolSettings toolSettingsFor(const QString& name)
{
    ToolSettings settings;
    if (name == "brush") {
        settings.figure = "curve";
        settings.cursor = "curve";
    } else if (name == "highlighter") {
        settings.figure = "curve";
        settings.cursor = "highlighter";
        settings.widthFactor = 10;
        settings.alpha = 127;
    } else if (name == "delayerase") {
        settings.figure = "curve";
        settings.cursor = "delayerase";
        settings.delayErase = true;
    } else if (name == "erase" || name == "drag") {
        settings.figure = name;
        settings.cursor = name;
    } else {
        settings.figure = name;
        settings.cursor = "normal";
    }
    return settings;
}

int commonItemKindFor(const QString& figure)
{
    if (figure == "ellipse")
        return 1;
    if (figure == "rect")
        return 2;
    if (figure == "line")
        return 3;
    if (figure == "arrow")
        return 4;
    return 0;
}
