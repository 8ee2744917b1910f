// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "tests/e2e/xdotool.h"

#include <QProcess>

namespace xdotool {

bool run(const QStringList& arguments, const QString& display)
{
    QProcess process;
    if (!display.isEmpty()) {
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert(QStringLiteral("DISPLAY"), display);
        process.setProcessEnvironment(env);
    }
    process.start(QStringLiteral("xdotool"), arguments);
    return process.waitForFinished(10000) && process.exitStatus() == QProcess::NormalExit &&
           process.exitCode() == 0;
}

namespace {

QStringList moveTo(const QPoint& point)
{
    return {QStringLiteral("mousemove"), QString::number(point.x()), QString::number(point.y())};
}

} // namespace

bool click(const QPoint& at, int button, const QString& display)
{
    return run(moveTo(at) + QStringList{QStringLiteral("sleep"), QStringLiteral("0.1"),
                                        QStringLiteral("click"), QString::number(button)},
               display);
}

bool stroke(const QVector<QPoint>& points, const QString& display)
{
    if (points.isEmpty())
        return false;
    QStringList arguments = moveTo(points.first());
    arguments << QStringLiteral("sleep") << QStringLiteral("0.1") << QStringLiteral("mousedown")
              << QStringLiteral("1");
    for (int i = 1; i < points.size(); ++i)
        arguments << moveTo(points.at(i)) << QStringLiteral("sleep") << QStringLiteral("0.03");
    arguments << QStringLiteral("mouseup") << QStringLiteral("1");
    return run(arguments, display);
}

} // namespace xdotool
