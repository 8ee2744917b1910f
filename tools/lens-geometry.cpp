// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "tools/lens-geometry.h"

#include "tools/frame-handles.h"

#include <cstdlib>

namespace lens_geometry {

using namespace frame_handles;

QRect initialLens(const QSize& desktop, double s)
{
    return centredOn(QRect(100, 100, scaled(408, s), scaled(329, s)),
                     QPoint(desktop.width() / 2, desktop.height() / 2));
}

QRect moved(const QRect& lens, const QPoint& centre, const QSize& desktop)
{
    QRect result = lens;
    if (centre.x() >= 0 && centre.x() <= desktop.width())
        result.moveCenter(QPoint(centre.x(), result.center().y()));
    if (centre.y() >= 0 && centre.y() <= desktop.height())
        result.moveCenter(QPoint(result.center().x(), centre.y()));
    return result;
}

QRect resized(const QRect& lens, int mode, const QPoint& cursor, const QPoint& pressCentre,
              const QPoint& mirrored, const QSize& desktop, double s)
{
    const double minimum = 200 * s;
    const QPoint away = cursor - pressCentre;
    const int width = 2 * std::abs(away.x());
    const int height = 2 * std::abs(away.y());
    const bool left = mode == TopLeft || mode == BottomLeft;
    const bool top = mode == TopLeft || mode == TopRight;

    QRect result = lens;
    if (width >= minimum && width <= desktop.width()) {
        if (left && away.x() < 0) {
            result.setLeft(cursor.x());
            result.setRight(mirrored.x());
        } else if (!left && away.x() >= 1) {
            result.setLeft(mirrored.x());
            result.setRight(cursor.x());
        }
    }
    if (height >= minimum && height <= desktop.height()) {
        if (top && away.y() < 0) {
            result.setTop(cursor.y());
            result.setBottom(mirrored.y());
        } else if (!top && away.y() >= 1) {
            result.setTop(mirrored.y());
            result.setBottom(cursor.y());
        }
    }
    return result;
}

float zoomStep(float factor, int delta)
{
    if (delta > 0) {
        if (factor <= 4.0f)
            factor += 0.2f;
    } else if (factor >= 1.0f) {
        factor -= 0.2f;
    }
    return factor;
}

int classicDelta(const QPoint& angleDelta)
{
    return std::abs(angleDelta.x()) > std::abs(angleDelta.y()) ? angleDelta.x() : angleDelta.y();
}

} // namespace lens_geometry
