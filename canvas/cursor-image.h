// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QCursor>
#include <QString>

// A cursor made of an image scaled to fit size by size (aspect kept, fast scaling), with its
// hot spot at the centre of the scaled image.
QCursor cursorFromImage(const QString& path, int size);
