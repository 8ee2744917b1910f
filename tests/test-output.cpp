// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "tests/test-output.h"

#include <QDebug>
#include <QDir>
#include <QImage>

QString testOutputFolder()
{
    const QString folder = qEnvironmentVariable("PALLO_TEST_OUTPUT", QDir::tempPath());
    QDir().mkpath(folder);
    return folder;
}

bool keepPicture(const QImage& image, const QString& name)
{
    const QString path = QDir(testOutputFolder()).filePath(name + ".png");
    if (image.save(path))
        return true;
    qWarning() << "could not write" << path;
    return false;
}
