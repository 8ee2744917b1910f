// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "bench/canvas-fixture.h"

#include "bench/bench-geometry.h"
#include "bench/viewport-recorder.h"
#include "canvas/draw-manager-ex.h"
#include "canvas/graphics-view.h"
#include "canvas/ink-layer.h"

#include <QCoreApplication>

CanvasFixture::CanvasFixture(int items, bool inkLayer)
    : m_view(std::make_unique<pallo::GraphicsView>(true, nullptr))
{
    m_view->inkLayer()->setEnabled(inkLayer);
    m_view->setWindowState(Qt::WindowNoState);
    m_view->resize(Screen);
    m_view->show();
    QCoreApplication::processEvents();
    m_recorder = new ViewportRecorder(m_view->viewport(), Screen);

    DrawManagerEx* drawing = manager();
    drawing->slot_figure("brush");
    drawing->slot_width(3);
    const QStringList colors = {"#ff0000", "#0000ff", "#00a000", "#000000"};
    for (int n = 0; n < items; ++n) {
        const QVector<QPoint> points = scribblePoints(n, items, Screen);
        drawing->slot_color(colors.at(n % colors.size()));
        drawing->slot_mousestate("press", points.first().x(), points.first().y());
        for (int i = 1; i < points.size(); ++i)
            drawing->slot_mousestate("move", points.at(i).x(), points.at(i).y());
        drawing->slot_mousestate("release", points.last().x(), points.last().y());
        // Painted stroke by stroke, as on screen: the scene's index is built while the
        // drawing grows, not once for all of it.
        settle();
    }
    drawing->slot_color("#ff0000");
    repaintAll();
    settle();
}

CanvasFixture::~CanvasFixture() = default;

DrawManagerEx* CanvasFixture::manager() const
{
    return m_view->drawManager();
}

qint64 CanvasFixture::inkLayerBytes() const
{
    return m_view->inkLayer() ? m_view->inkLayer()->pixelBytes() : 0;
}

void CanvasFixture::beginStroke(const QString& tool, int points)
{
    DrawManagerEx* drawing = manager();
    drawing->slot_figure(tool);
    m_next = 0;
    const QPoint start = handwritingPoint(m_next++, Screen);
    drawing->slot_mousestate("press", start.x(), start.y());
    while (m_next < points) {
        const QPoint p = handwritingPoint(m_next++, Screen);
        drawing->slot_mousestate("move", p.x(), p.y());
    }
    settle();
}

void CanvasFixture::move()
{
    const QPoint p = handwritingPoint(m_next++, Screen);
    manager()->slot_mousestate("move", p.x(), p.y());
    settle();
}

void CanvasFixture::release()
{
    const QPoint p = handwritingPoint(m_next - 1, Screen);
    manager()->slot_mousestate("release", p.x(), p.y());
    settle();
}

void CanvasFixture::drawStrokes(const QString& tool, int count, int points)
{
    DrawManagerEx* drawing = manager();
    drawing->slot_figure(tool);
    for (int n = 0; n < count; ++n) {
        QPoint p = handwritingPoint(m_next++, Screen);
        drawing->slot_mousestate("press", p.x(), p.y());
        for (int i = 1; i < points; ++i) {
            p = handwritingPoint(m_next++, Screen);
            drawing->slot_mousestate("move", p.x(), p.y());
        }
        drawing->slot_mousestate("release", p.x(), p.y());
        settle();
    }
}

void CanvasFixture::settle()
{
    m_recorder->settle();
}

void CanvasFixture::hideAndShow()
{
    m_view->hide();
    QCoreApplication::processEvents();
    m_view->show();
    QCoreApplication::processEvents();
    repaintAll();
}

void CanvasFixture::repaintAll()
{
    m_recorder->repaintAll();
}
