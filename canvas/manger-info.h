// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QPainterPath>
#include <QRectF>
#include <QTransform>

// What the transform handles need from the shape they operate on.
class MangerInfo
{
public:
    virtual ~MangerInfo() = default;

    virtual QRectF shapeRect() const = 0;
    virtual QPainterPath shapePath() const = 0;
    virtual void setShapePath(const QPainterPath& path) = 0;
    virtual QTransform shapeTransform() const = 0;
    virtual void takeTransform(const QTransform& transform) = 0;
    // Reports the finished change, so that it becomes one undo step.
    virtual void commitChange() = 0;
};
