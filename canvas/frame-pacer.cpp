// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "canvas/frame-pacer.h"

#include <QGraphicsScene>
#include <QGuiApplication>
#include <QScreen>

#include <cmath>

FramePacer* FramePacer::forScene(QGraphicsScene* scene)
{
    auto* pacer = scene->findChild<FramePacer*>(QString(), Qt::FindDirectChildrenOnly);
    return pacer ? pacer : new FramePacer(scene, screenFrameMs());
}

int FramePacer::screenFrameMs()
{
    const QScreen* screen = QGuiApplication::primaryScreen();
    const qreal hz = screen ? screen->refreshRate() : 0;
    // A screen that reports no rate, or an unlikely one, is taken as a 60 Hz one.
    if (!(hz >= 30 && hz <= 360))
        return 16;
    return int(std::floor(1000 / hz));
}

FramePacer::FramePacer(QGraphicsScene* scene, int frameMs)
    : QObject(scene), m_scene(scene), m_frameMs(frameMs)
{
    m_timer.setSingleShot(true);
    m_timer.setTimerType(Qt::PreciseTimer);
    connect(&m_timer, &QTimer::timeout, this, &FramePacer::flush);
}

void FramePacer::request(const QRectF& sceneRect)
{
    m_pending |= sceneRect;
    if (m_timer.isActive())
        return;
    const qint64 since = m_sinceFlush.isValid() ? m_sinceFlush.elapsed() : m_frameMs;
    if (since >= m_frameMs)
        flush();
    else
        m_timer.start(int(m_frameMs - since));
}

void FramePacer::flush()
{
    m_timer.stop();
    if (m_pending.isNull())
        return;
    m_scene->update(m_pending);
    m_pending = QRectF();
    m_sinceFlush.start();
}
