// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QRectF>
#include <QTimer>

class QGraphicsScene;

// Gathers the small repaints a growing stroke asks for and hands them to the scene at most
// once per display frame. A mouse reports hundreds of moves a second; a screen shows some
// sixty frames, and every repaint beyond them costs the board (and a compositor) a whole
// paint for pixels nobody sees. The first repaint after a quiet frame goes at once, so a
// stroke starts without delay.
class FramePacer : public QObject
{
    Q_OBJECT

public:
    // The scene's pacer, made on first use with the primary screen's frame time.
    static FramePacer* forScene(QGraphicsScene* scene);
    static int screenFrameMs();

    FramePacer(QGraphicsScene* scene, int frameMs);

    void request(const QRectF& sceneRect);
    // Hands what is gathered to the scene now.
    void flush();

    int frameMs() const { return m_frameMs; }

private:
    QGraphicsScene* m_scene;
    const int m_frameMs;
    QRectF m_pending;
    QTimer m_timer;
    QElapsedTimer m_sinceFlush;
};
