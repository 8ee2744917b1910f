// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "app/font-fallback.h"

#include <QFont>

QStringList cjkFallbackFamilies()
{
    return {QStringLiteral("Noto Sans CJK SC"), QStringLiteral("Source Han Sans SC"),
            QStringLiteral("WenQuanYi Micro Hei"), QStringLiteral("Droid Sans Fallback")};
}

void installFontFallbacks()
{
    QFont::insertSubstitutions(QStringLiteral("微软雅黑"), cjkFallbackFamilies());
}
