// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

class QObject;
class QSettings;

// The board's own settings store: INI format in the user's scope, organisation = the
// application name, application = the application name followed by "New".
QSettings* openBoardSettings(QObject* parent);

// Writes the default of every key whose value is missing; values that exist, even empty
// ones, are kept.
void writeBoardSettingDefaults(QSettings& settings);
