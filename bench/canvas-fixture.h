// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QSize>
#include <QString>
#include <memory>

class DrawManagerEx;
class ViewportRecorder;
namespace pallo {
class GraphicsView;
}

// A full-screen canvas with its view, its drawing manager and finished strokes on it, painted
// into an ARGB image after every step.
class CanvasFixture
{
public:
    static constexpr QSize Screen = QSize(1920, 1080);

    // Draws items finished pen strokes spread over the screen. Without the ink layer, every
    // item paints itself on every repaint, as the canvas did before it had one.
    explicit CanvasFixture(int items, bool inkLayer = true);
    ~CanvasFixture();

    // Chooses tool and presses, then moves until the stroke holds points points.
    void beginStroke(const QString& tool, int points);
    // One more point of the stroke, painted.
    void move();
    void release();

    // Draws count finished strokes of points points each with tool, every one painted as it
    // is finished, the strokes written one after another like handwriting.
    void drawStrokes(const QString& tool, int count, int points);

    // Settles and paints whatever the last calls dirtied.
    void settle();
    void repaintAll();
    // Hides the canvas and shows it again, as show_or_hide does twice, then paints it whole.
    void hideAndShow();

    DrawManagerEx* manager() const;
    // Bytes of pixels the canvas's ink layer holds (none without it).
    qint64 inkLayerBytes() const;
    ViewportRecorder* recorder() const { return m_recorder; }

private:
    std::unique_ptr<pallo::GraphicsView> m_view;
    ViewportRecorder* m_recorder = nullptr;
    int m_next = 0;
};
