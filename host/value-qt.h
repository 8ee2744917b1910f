// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include "bridge/value.h"

#include <QPoint>
#include <QPointF>
#include <QRect>
#include <QRectF>
#include <QSize>
#include <QSizeF>
#include <QString>

namespace bg {

// Bridge values of Qt's core types: text, points, rectangles and sizes.
class ValueQt : public Value
{
public:
    enum : TypeId
    {
        kQString = 31,
        kRectF = 32,
        kRect = 33,
        kPointF = 34,
        kPoint = 35,
        kSizeF = 36,
        kSize = 37,
    };

    ValueQt();
    ValueQt(const Value& other);
    ValueQt(const QString& v);
    ValueQt(const QRectF& v);
    ValueQt(const QRect& v);
    ValueQt(const QPointF& v);
    ValueQt(const QPoint& v);
    ValueQt(const QSizeF& v);
    ValueQt(const QSize& v);
    ValueQt(const ValueQt&) = default;
    ValueQt& operator=(const ValueQt&) = default;
    ~ValueQt() override;

    std::string write() const override;
    bool read(const char* text) override;

    // Each gives a default-constructed object when the value holds another type;
    // toQString() also takes the bridge's own strings.
    QString toQString() const;
    QRectF toRectF() const;
    QRect toRect() const;
    QPointF toPointF() const;
    QPoint toPoint() const;
    QSizeF toSizeF() const;
    QSize toSize() const;

    // Registers the seven types once; runs during static initialisation.
    static bool registerTypes();
};

} // namespace bg
