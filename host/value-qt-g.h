// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include "bridge/value.h"

#include <QColor>
#include <QFont>

namespace bg {

// Bridge values of Qt's GUI types: colours and fonts.
class ValueQtG : public Value
{
public:
    enum : TypeId
    {
        kFont = 39,
        kColor = 40,
    };

    ValueQtG();
    ValueQtG(const Value& other);
    ValueQtG(const QColor& v);
    ValueQtG(const QFont& v);
    ValueQtG(const ValueQtG&) = default;
    ValueQtG& operator=(const ValueQtG&) = default;
    ~ValueQtG() override;

    std::string write() const override;
    bool read(const char* text) override;

    // The colour as stored: an invalid colour's value stays what QColor made of it.
    QColor toColor() const;
    QFont toFont() const;
    QString fontDescription() const;

    // Registers the two types once; runs during static initialisation.
    static bool registerTypes();
};

} // namespace bg
