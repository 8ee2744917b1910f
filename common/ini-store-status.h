// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

class QSettings;

// Says on standard error, with the file's path, when Qt's reader found the ini store
// malformed: Qt then skips the broken line and may lose the keys around it silently.
// Returns whether it did.
bool reportIniFormatError(const QSettings& settings);
