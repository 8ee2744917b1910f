// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

// What choosing a tool by name does to the drawing settings.
struct ToolSettings
{
    QString figure;
    QString cursor;
    int widthFactor = 1;
    int alpha = 255;
    bool delayErase = false;
};

ToolSettings toolSettingsFor(const QString& name);

// The kind number of the shape item a figure makes, or 0 when the figure makes no shape.
int commonItemKindFor(const QString& figure);
