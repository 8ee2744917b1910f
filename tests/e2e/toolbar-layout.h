// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>
#include <QSize>

// Where the pen button lies inside the board's toolbar window, measured on a toolbar
// built in the test process the way the board builds its own: same stylesheet, same
// language, same screen, same order. The height lets a test check that the two match.
struct ToolbarLayout
{
    QSize size;
    QPoint penCentre;
    QPoint undoCentre;
    QPoint chooseCentre;
    QPoint textCentre;
    QPoint closeCentre;
};

ToolbarLayout measureToolbarLayout();
