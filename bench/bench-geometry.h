// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>
#include <QSize>
#include <QVector>

// Point i of a long stroke written like lines of handwriting: rows 40 apart, each a wavy line
// across the screen, the next row starting back at the left edge.
QPoint handwritingPoint(int i, const QSize& screen);

// The points of finished stroke number n of a canvas holding count strokes: a short scribble
// of a few points, the strokes spread evenly over the screen.
QVector<QPoint> scribblePoints(int n, int count, const QSize& screen);
