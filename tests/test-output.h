// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

class QImage;

// The folder where tests leave files for people to look at: $PALLO_TEST_OUTPUT, or the
// system's temporary folder when that is not set. Made when it is missing.
QString testOutputFolder();

// Keeps image in that folder as NAME.png; false, with a warning, when it cannot.
bool keepPicture(const QImage& image, const QString& name);
