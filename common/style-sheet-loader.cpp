// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "common/style-sheet-loader.h"

#include "common/scale-factor.h"

#include <QApplication>
#include <QFile>
#include <QRegularExpression>

QString scaleStyleSheet(const QString& styleSheet, double factor)
{
    if (factor <= 1.0) {
        return styleSheet;
    }
    QString scaled = styleSheet;
    static const QRegularExpression size(QStringLiteral("(\\d+)px;"));
    int pos = 0;
    for (auto match = size.match(scaled); match.hasMatch(); match = size.match(scaled, pos)) {
        const int value = match.captured(1).toInt(nullptr, 10);
        const QString replacement = QString::number(value * factor, 'g', 6) + QLatin1String("px;");
        scaled.replace(match.capturedStart(), match.capturedLength(), replacement);
        pos = match.capturedStart() + replacement.length();
    }
    return scaled;
}

bool applyStyleSheetFile(const QString& path, double factor)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return false;
    }
    const QString styleSheet = QString::fromUtf8(file.readAll());
    qApp->setStyleSheet(scaleStyleSheet(styleSheet, factor));
    return true;
}

bool loadApplicationStyleSheet()
{
    return applyStyleSheetFile(QStringLiteral(":/images/qss.css"), screenScaleFactor());
}
