// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "app/instance-block-name.h"

#include "app/single-application.h"

#include <QCryptographicHash>

QString instanceBlockName(const InstanceIdentity& identity, int options)
{
    QCryptographicHash hash(QCryptographicHash::Sha256);
    hash.addData(QByteArrayLiteral("SingleApplication"));
    hash.addData(identity.applicationName.toUtf8());
    hash.addData(identity.organizationName.toUtf8());
    hash.addData(identity.organizationDomain.toUtf8());
    if (!(options & SingleApplication::ExcludeAppVersion)) {
        hash.addData(identity.applicationVersion.toUtf8());
    }
    if (!(options & SingleApplication::ExcludeAppPath)) {
        hash.addData(identity.applicationFilePath.toLower().toUtf8());
    }
    if (options & SingleApplication::User) {
        hash.addData(identity.userName.toUtf8());
    }
    // "/" may not appear in a local server name.
    return QString::fromLatin1(hash.result().toBase64())
        .replace(QLatin1Char('/'), QLatin1Char('_'));
}
