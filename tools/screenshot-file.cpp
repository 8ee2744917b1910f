// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "tools/screenshot-file.h"

#include "bridge/bridge.h"
#include "bridge/clock.h"

#include <QStandardPaths>

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
        folder = QString::fromStdString(
            config.get_or_default(pathKey, bg::Value(desktop.toStdString())).toStdString());
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

} // namespace screenshot_file
