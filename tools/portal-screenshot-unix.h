// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include "tools/screen-grabber.h"

#include <QDBusConnection>
#include <QDBusObjectPath>
#include <QObject>
#include <QVariantMap>

// Asks the desktop portal (org.freedesktop.portal.Screenshot) for a picture of the screen:
// the call returns a Request object at once, and that object's Response signal later
// brings the outcome and the URI of a file that holds the picture.
class PortalScreenshot : public QObject
{
    Q_OBJECT
public:
    // Waits for the portal's answer at most timeoutMs, keeping the event loop running.
    static ScreenPicture take(const QDBusConnection& bus, int timeoutMs = 30000);

    // The picture a Response carries: response 0 with a readable image file at the
    // results' "uri"; anything else is a failure that says why.
    static ScreenPicture fromResponse(uint response, const QVariantMap& results);

    // The Request object path the portal will use for this connection and token, so the
    // signal can be watched before the call (a fast portal may answer before it returns).
    static QString requestPath(const QString& uniqueName, const QString& token);

signals:
    void answered();

private slots:
    void onResponse(uint response, const QVariantMap& results);

private:
    explicit PortalScreenshot(QObject* parent = nullptr) : QObject(parent) {}

    bool m_answered = false;
    ScreenPicture m_picture;
};
