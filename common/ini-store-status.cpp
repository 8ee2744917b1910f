// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "common/ini-store-status.h"

#include <QDir>
#include <QFile>
#include <QSettings>

#include <cstdio>

bool reportIniFormatError(const QSettings& settings)
{
    if (settings.status() != QSettings::FormatError)
        return false;
    std::fprintf(stderr,
                 "[E] settings file %s has a format error; some settings in it are not read\n",
                 QFile::encodeName(QDir::toNativeSeparators(settings.fileName())).constData());
    return true;
}
