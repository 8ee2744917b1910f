// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QMouseEvent>
#include <QPointF>
#include <QTabletEvent>
#include <QtGlobal>

// Where a mouse or tablet event happened, under the names each Qt version gives it: Qt 6
// calls the positions position() and globalPosition().
namespace event_position {

inline QPointF local(const QMouseEvent* event)
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    return event->position();
#else
    return event->localPos();
#endif
}

// Rounded to whole pixels, as QMouseEvent::globalPos() did.
inline QPoint global(const QMouseEvent* event)
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    return event->globalPosition().toPoint();
#else
    return event->globalPos();
#endif
}

inline QPointF local(const QTabletEvent* event)
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    return event->position();
#else
    return event->posF();
#endif
}

inline QPointF global(const QTabletEvent* event)
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    return event->globalPosition();
#else
    return event->globalPosF();
#endif
}

} // namespace event_position
