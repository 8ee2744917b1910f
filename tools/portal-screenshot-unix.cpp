// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "tools/portal-screenshot-unix.h"

#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QDBusPendingReply>
#include <QEventLoop>
#include <QFile>
#include <QImageReader>
#include <QRandomGenerator>
#include <QTimer>
#include <QUrl>

namespace {

const QString kService = QStringLiteral("org.freedesktop.portal.Desktop");
const QString kPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString kScreenshot = QStringLiteral("org.freedesktop.portal.Screenshot");
const QString kRequest = QStringLiteral("org.freedesktop.portal.Request");

// A compositor drops a hidden window from the screen with its next frame; a picture taken
// before that would still show the tool that asked for it.
constexpr int kSettleMs = 150;

} // namespace

QString PortalScreenshot::requestPath(const QString& uniqueName, const QString& token)
{
    QString sender = uniqueName;
    if (sender.startsWith(QLatin1Char(':')))
        sender.remove(0, 1);
    sender.replace(QLatin1Char('.'), QLatin1Char('_'));
    return QStringLiteral("/org/freedesktop/portal/desktop/request/%1/%2").arg(sender, token);
}

ScreenPicture PortalScreenshot::fromResponse(uint response, const QVariantMap& results)
{
    ScreenPicture picture;
    if (response == 1) {
        picture.failure = QStringLiteral("the portal's screenshot was cancelled");
        return picture;
    }
    if (response != 0) {
        picture.failure =
            QStringLiteral("the portal refused the screenshot (response %1)").arg(response);
        return picture;
    }
    const QUrl uri(results.value(QStringLiteral("uri")).toString());
    if (!uri.isLocalFile()) {
        picture.failure =
            QStringLiteral("the portal's answer holds no local file: '%1'").arg(uri.toString());
        return picture;
    }
    QImageReader reader(uri.toLocalFile());
    picture.image = reader.read();
    if (picture.image.isNull()) {
        picture.failure = QStringLiteral("the portal's file %1 is not a picture: %2")
                              .arg(uri.toLocalFile(), reader.errorString());
    }
    return picture;
}

void PortalScreenshot::onResponse(uint response, const QVariantMap& results)
{
    if (m_answered)
        return;
    m_answered = true;
    m_picture = fromResponse(response, results);
    // The portal leaves its file behind; the picture now lives in memory.
    if (m_picture.ok()) {
        const QUrl uri(results.value(QStringLiteral("uri")).toString());
        QFile::remove(uri.toLocalFile());
    }
    emit answered();
}

ScreenPicture PortalScreenshot::take(const QDBusConnection& bus, int timeoutMs)
{
    ScreenPicture failed;
    if (!bus.isConnected()) {
        failed.failure = QStringLiteral("there is no session bus");
        return failed;
    }
    {
        QEventLoop settle;
        QTimer::singleShot(kSettleMs, &settle, &QEventLoop::quit);
        settle.exec(QEventLoop::ExcludeUserInputEvents);
    }

    PortalScreenshot waiter;
    const QString token = QStringLiteral("pallo%1").arg(QRandomGenerator::global()->generate());
    QString path = requestPath(bus.baseService(), token);
    QDBusConnection connection(bus);
    auto watch = [&](const QString& requestObject) {
        return connection.connect(kService, requestObject, kRequest, QStringLiteral("Response"),
                                  &waiter, SLOT(onResponse(uint, QVariantMap)));
    };
    watch(path);

    QDBusMessage call =
        QDBusMessage::createMethodCall(kService, kPath, kScreenshot, QStringLiteral("Screenshot"));
    QVariantMap options;
    options.insert(QStringLiteral("handle_token"), token);
    options.insert(QStringLiteral("interactive"), false);
    options.insert(QStringLiteral("modal"), false);
    call << QString() << options;
    QDBusPendingReply<QDBusObjectPath> reply = connection.asyncCall(call, timeoutMs);
    reply.waitForFinished();
    if (reply.isError()) {
        connection.disconnect(kService, path, kRequest, QStringLiteral("Response"), &waiter,
                              SLOT(onResponse(uint, QVariantMap)));
        failed.failure =
            QStringLiteral("the desktop portal did not answer: %1").arg(reply.error().message());
        return failed;
    }
    // Older portals chose the path themselves.
    const QString given = reply.value().path();
    if (given != path) {
        connection.disconnect(kService, path, kRequest, QStringLiteral("Response"), &waiter,
                              SLOT(onResponse(uint, QVariantMap)));
        path = given;
        watch(path);
    }

    if (!waiter.m_answered) {
        QEventLoop loop;
        QTimer timeout;
        timeout.setSingleShot(true);
        connect(&timeout, &QTimer::timeout, &loop, &QEventLoop::quit);
        connect(&waiter, &PortalScreenshot::answered, &loop, &QEventLoop::quit);
        timeout.start(timeoutMs);
        loop.exec(QEventLoop::ExcludeUserInputEvents);
    }
    connection.disconnect(kService, path, kRequest, QStringLiteral("Response"), &waiter,
                          SLOT(onResponse(uint, QVariantMap)));
    if (!waiter.m_answered) {
        failed.failure =
            QStringLiteral("the desktop portal gave no answer within %1 ms").arg(timeoutMs);
        return failed;
    }
    return waiter.m_picture;
}
