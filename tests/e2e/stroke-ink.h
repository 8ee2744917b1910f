// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QList>
#include <QPoint>
#include <QString>

// Red pixels in the 7 by 7 square around p: ink where a stroke began.
int inkAround(const QImage& shot, const QPoint& p);
// What is wrong with the ink of a stroke drawn along line, or nothing: no more than least
// red pixels along it, none where it began, or red pixels away from it.
QString strokeInkFault(const QImage& shot, const QList<QPoint>& line, qreal reach, int least);
