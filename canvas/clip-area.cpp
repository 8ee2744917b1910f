// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "canvas/clip-area.h"

#include <QPaintEngine>
#include <QPainter>

QRectF clipArea(const QPainter* painter)
{
    QRectF area;
    if (painter->hasClipping())
        area = painter->clipBoundingRect();
    const QPaintEngine* engine = painter->paintEngine();
    const QRegion system = engine ? engine->systemClip() : QRegion();
    if (!system.isEmpty()) {
        bool invertible = false;
        const QTransform toLogical = painter->deviceTransform().inverted(&invertible);
        if (invertible) {
            const QRectF repaint = toLogical.mapRect(QRectF(system.boundingRect()));
            area = area.isNull() ? repaint : area.intersected(repaint);
        }
    }
    return area;
}
