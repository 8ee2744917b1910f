// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "bench/viewport-recorder.h"

#include "canvas/frame-pacer.h"

#include <QCoreApplication>
#include <QGraphicsView>
#include <QPaintEvent>
#include <QPainter>
#include <QWidget>

ViewportRecorder::ViewportRecorder(QWidget* viewport, const QSize& size)
    : QObject(viewport), m_viewport(viewport), m_image(size, QImage::Format_ARGB32_Premultiplied)
{
    m_image.fill(Qt::transparent);
    viewport->installEventFilter(this);
}

bool ViewportRecorder::eventFilter(QObject* object, QEvent* event)
{
    if (object == m_viewport && event->type() == QEvent::Paint && !m_painting) {
        m_pending += static_cast<QPaintEvent*>(event)->region();
        return true;
    }
    return QObject::eventFilter(object, event);
}

void ViewportRecorder::settle()
{
    // Repaints gathered for the next frame count as pending too: each settle stands for a
    // frame of its own.
    if (auto* view = qobject_cast<QGraphicsView*>(m_viewport->parentWidget());
        view && view->scene())
        FramePacer::forScene(view->scene())->flush();
    // The scene processes its dirty items in a queued call, which asks the viewport for an
    // update; the update request is another posted event.
    QCoreApplication::sendPostedEvents();
    QCoreApplication::sendPostedEvents();
    m_lastArea = 0;
    if (m_pending.isEmpty())
        return;
    const QRegion region = m_pending;
    m_pending = QRegion();
    paint(region);
}

void ViewportRecorder::repaintAll()
{
    paint(QRegion(m_viewport->rect()));
}

void ViewportRecorder::paint(const QRegion& region)
{
    // A translucent window starts every repaint from transparent pixels.
    QPainter clear(&m_image);
    clear.setCompositionMode(QPainter::CompositionMode_Source);
    for (const QRect& rect : region)
        clear.fillRect(rect, Qt::transparent);
    clear.end();

    m_painting = true;
    m_viewport->render(&m_image, region.boundingRect().topLeft(), region,
                       QWidget::DrawWindowBackground);
    m_painting = false;
    for (const QRect& rect : region)
        m_lastArea += qint64(rect.width()) * rect.height();
}
