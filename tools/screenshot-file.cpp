// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "tools/screenshot-file.h"

#include "bridge/bridge.h"
#include "bridge/clock.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QImageWriter>
#include <QSaveFile>
#include <QStandardPaths>

#include <cstdio>

namespace screenshot_file {

namespace {
const char* const pathKey = "screen.shot.path";
const char* const formatKey = "screen.shot.format";
const char* const defaultFormat = "png";
} // namespace

Target configuredTarget()
{
    const QString desktop = QStandardPaths::writableLocation(QStandardPaths::DesktopLocation);
    QString folder = desktop;
    QString format = QString::fromLatin1(defaultFormat);
    if (bg::BridgeInterface* bridge = bg::GetBridge()) {
        bg::ConfigStore& config = bridge->config();
        const bg::Value stored = config.get_or_default(pathKey, bg::Value(desktop.toStdString()));
        if (stored.type() == bg::Value::kString) {
            folder = QString::fromStdString(stored.toStdString());
        } else {
            std::fprintf(stderr, "[E] %s is not a text; screenshots go to %s\n", pathKey,
                         QFile::encodeName(desktop).constData());
        }
        format = QString::fromStdString(
            config.get_or_default(formatKey, bg::Value(defaultFormat)).toStdString());
    }
    return {folder, format.simplified()};
}

QString timeStamp(std::time_t when)
{
    return QString::fromStdString(bg::Clock().format("%Y-%m-%d-%H-%M-%S", when));
}

QString filePath(const QString& folder, const QString& stamp, const QString& format)
{
    return folder + QLatin1Char('/') + stamp + QLatin1Char('.') + format;
}

QString save(const QImage& picture, const QString& path, const QString& format)
{
    const QString folder = QFileInfo(path).path();
    if (!QDir().mkpath(folder))
        return QStringLiteral("the folder %1 cannot be created").arg(folder);
    // QSaveFile writes beside the target and renames only a complete file into place.
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return file.errorString();
    QImageWriter writer(&file, format.toLatin1());
    if (!writer.write(picture)) {
        file.cancelWriting();
        return writer.errorString();
    }
    if (!file.commit())
        return file.errorString();
    return QString();
}

} // namespace screenshot_file
