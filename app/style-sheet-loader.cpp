// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "app/style-sheet-loader.h"

#include "app/scale-factor.h"

#include <QApplication>
#include <QFile>
#include <QRegExp>

QString scaleStyleSheet(const QString& styleSheet, double factor)
{
    if (factor <= 1.0) {
        return styleSheet;
    }
    QString scaled = styleSheet;
    QRegExp size(QStringLiteral("(\\d+)px;"), Qt::CaseSensitive, QRegExp::RegExp);
    int pos = 0;
    while ((pos = size.indexIn(scaled, pos)) != -1) {
        const int value = size.cap(1).toInt(nullptr, 10);
        const QString replacement = QString::number(value * factor, 'g', 6) + QLatin1String("px;");
        scaled.replace(pos, size.matchedLength(), replacement);
        pos += replacement.length();
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
