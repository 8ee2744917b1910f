// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>
#include <QProcessEnvironment>
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

// The toolbar's size and buttons depend on the display's fonts and scale, so a test of a
// board in a session of its own measures them with this program run again as a client of
// that session, with env; its main answers through answerToolbarMeasure.
ToolbarLayout measureToolbarLayoutIn(const QProcessEnvironment& env);
// When this program was run to measure the toolbar: prints the measure and returns true,
// with the program's exit code in exitCode.
bool answerToolbarMeasure(int argc, char** argv, int* exitCode);
