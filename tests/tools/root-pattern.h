// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QImage>
#include <QPoint>
#include <QSize>

// A known picture on the X server's root window, which the server itself paints
// wherever no window covers it: what a screen grab sees once the tools hide.
class RootPattern
{
public:
    RootPattern();
    ~RootPattern();
    RootPattern(const RootPattern&) = delete;
    RootPattern& operator=(const RootPattern&) = delete;

    bool isOpen() const;
    void show(const QImage& picture);

    // Red grows with x, green with y, blue is a checkerboard of cell-pixel squares
    // (shifted by phase cells), so a pixel tells roughly where it came from and how
    // much it was enlarged.
    static QImage gradient(const QSize& size, int cell, int phase = 0);
    // The point of gradient(size, ...) a colour came from, to a few pixels.
    static QPoint origin(const QColor& colour, const QSize& size);

private:
    struct _XDisplay* display;
};
