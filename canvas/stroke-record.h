// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QPainterPath>
#include <QString>
#include <QTransform>

class QGraphicsItem;

// One stroke from press to release, and the item it made.
struct StrokeRecord
{
    QString figure;
    int startX = 0;
    int endX = 0;
    int startY = 0;
    int endY = 0;
    int width = 0;
    QString spare;
    QColor color;
    QGraphicsItem* item = nullptr;
    QPainterPath path;
    QTransform transform;
    int flag = 1;
};
