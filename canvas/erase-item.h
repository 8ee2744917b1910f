// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include "canvas/stroke-item.h"

// One eraser stroke. It clears the pixels of whatever was painted beneath its path; the
// items beneath stay as they are.
class EraseItem : public StrokeItem
{
public:
    enum
    {
        Type = UserType + 3
    };
    static constexpr int PenWidth = 40;

    EraseItem(const QPainterPath& path, const QPen& pen);

    int type() const override { return Type; }

    // Adds the segment from one point to another as a subpath of its own and repaints only
    // around it.
    void addSegment(const QPointF& from, const QPointF& to);

    QPainterPath shape() const override;
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

protected:
    qreal reach() const override;
    pallo::StrokePath::Packing packing() const override;

private:
    // Half the width of the widest pen the stroke is painted with.
    qreal halfWidth() const;
};
