// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "tools/screen-grabber.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QLoggingCategory>
#include <QPixmap>
#include <QScreen>

#ifdef PALLO_HAS_PORTAL
#include "tools/portal-screenshot-unix.h"
#endif

Q_LOGGING_CATEGORY(lcScreenGrab, "pallo.screen")

ScreenGrabber::Way ScreenGrabber::wayFor(const QByteArray& waylandDisplay)
{
#ifdef PALLO_HAS_PORTAL
    return waylandDisplay.isEmpty() ? Way::WindowSystem : Way::Portal;
#else
    Q_UNUSED(waylandDisplay)
    return Way::WindowSystem;
#endif
}

ScreenPicture ScreenGrabber::grab()
{
    ScreenPicture picture;
#ifdef PALLO_HAS_PORTAL
    if (wayFor(qgetenv("WAYLAND_DISPLAY")) == Way::Portal)
        picture = PortalScreenshot::take(QDBusConnection::sessionBus());
    else
#endif
        picture = grabWindowSystem();
    if (!picture.ok()) {
        qCWarning(lcScreenGrab).noquote() << "no picture of the screen:" << picture.failure;
        picture.image = QImage();
        picture.failure = failureMessage();
    }
    return picture;
}

ScreenPicture ScreenGrabber::grabWindowSystem()
{
    ScreenPicture picture;
    QScreen* screen = QGuiApplication::primaryScreen();
    if (screen == nullptr) {
        picture.failure = QStringLiteral("there is no screen");
        return picture;
    }
    picture.image = screen->grabWindow(0).toImage();
    if (picture.image.isNull())
        picture.failure = QStringLiteral("the window system gave no picture");
    return picture;
}

QString ScreenGrabber::failureMessage()
{
    return QCoreApplication::translate("ScreenGrabber", "ScreenGrabber.Text.NoPicture");
}
