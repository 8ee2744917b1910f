// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

class QImage;

#include <ctime>

// Where a screenshot is saved and under which name.
namespace screenshot_file {

struct Target
{
    QString folder;
    QString format;
};

// The folder ("screen.shot.path", default the user's desktop folder) and the format
// ("screen.shot.format", default "png", blanks simplified) from the configuration shared
// with the host; an absent key is stored with its default. Without a bridge (a tool
// started outside the board) the defaults alone. A folder that is not a text is
// reported on standard error and the desktop folder used instead.
Target configuredTarget();

// The local time "%Y-%m-%d-%H-%M-%S".
QString timeStamp(std::time_t when);

// folder/stamp.format, also when format is empty (the name then ends in ".").
QString filePath(const QString& folder, const QString& stamp, const QString& format);

// Saves the picture at path in format, creating a missing folder. Nothing is left at
// path when saving fails (a read-only or full disk, an unknown format); the returned
// text then says why, else it is empty.
QString save(const QImage& picture, const QString& path, const QString& format);

} // namespace screenshot_file
