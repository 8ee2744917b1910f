// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "canvas/cursor-image.h"

#include <QPixmap>

QCursor cursorFromImage(const QString& path, int size)
{
    const QPixmap pixmap =
        QPixmap(path).scaled(size, size, Qt::KeepAspectRatio, Qt::FastTransformation);
    return QCursor(pixmap, pixmap.width() / 2, pixmap.height() / 2);
}
