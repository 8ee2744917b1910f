// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "common/board-settings.h"

#include "common/ini-store-status.h"

#include <QCoreApplication>
#include <QDir>
#include <QSettings>
#include <QVariant>

QSettings* openBoardSettings(QObject* parent)
{
    const QString name = QCoreApplication::applicationName();
    auto* settings =
        new QSettings(QSettings::IniFormat, QSettings::UserScope, name, name + "New", parent);
    reportIniFormatError(*settings);
    writeBoardSettingDefaults(*settings);
    return settings;
}

void writeBoardSettingDefaults(QSettings& settings)
{
    const QList<QPair<QString, QString>> defaults = {
        {"timer", "Ctrl+M"},  {"zoom", "Ctrl+B"},
        {"screen", "Alt+S"},  {"cutdirectory", QDir::homePath() + "/Desktop"},
        {"picformat", "PNG"},
    };
    for (const auto& entry : defaults) {
        if (settings.value(entry.first, QVariant()).isNull())
            settings.setValue(entry.first, entry.second);
    }
}
