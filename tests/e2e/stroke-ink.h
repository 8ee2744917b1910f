// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QList>
#include <QPoint>

// Where the red ink on a picture of the screen lies, measured against the line the
// pointer went along while drawing.
struct StrokeInk
{
    // Red pixels within reach of the line.
    int along = 0;
    // Red pixels farther away, and the first of them (row by row).
    int astray = 0;
    QPoint firstAstray;
};

StrokeInk strokeInk(const QImage& shot, const QList<QPoint>& line, qreal reach);
// Red pixels in the 7 by 7 square around p: ink where a stroke began.
int inkAround(const QImage& shot, const QPoint& p);
