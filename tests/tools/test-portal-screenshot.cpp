// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "app/pallo-translator.h"
#include "bridge/bridge.h"
#include "bridge/config-store.h"
#include "private-session-bus.h"
#include "tools/portal-screenshot-unix.h"
#include "tools/screen-grabber.h"
#include "tools/screen-shot-widget.h"
#include "tools/zoom-widget.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDir>
#include <QPainter>
#include <QProcess>
#include <QPushButton>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

namespace {
const QColor kLeft(0x20, 0xc0, 0x40);
const QColor kRight(0xd0, 0x30, 0xa0);
const QColor kPage(0xf2, 0xf2, 0xf2);
} // namespace

// The magnifier and the screenshot tool in a Wayland session, where the picture of the
// screen comes from the desktop portal: here a stand-in portal on a private session bus.
class TestPortalScreenshot : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void cleanupTestCase();
    void cleanup();

    void wayFollowsTheSession_data();
    void wayFollowsTheSession();
    void requestPathFollowsTheConnection();

    void grabberReturnsThePortalsPicture();
    void magnifierShowsThePortalsPicture();
    void screenshotSavesFromThePortalsPicture();

    void failuresGiveTheMessageAndNoPicture_data();
    void failuresGiveTheMessageAndNoPicture();

private:
    void startPortal(const QStringList& args);
    void stopPortal();
    QImage render(QWidget* tool) const;
    // The screenshot tool takes its picture on an activation that follows a deactivation.
    static void activate(QWidget* tool);

    std::unique_ptr<PrivateSessionBus> bus;
    QProcess portal;
    QTemporaryDir dir;
    QString pictureFile;
    QImage picture;
    PalloTranslator* translator = nullptr;
};

void TestPortalScreenshot::initTestCase()
{
    bus = std::make_unique<PrivateSessionBus>();
    QVERIFY2(bus->isRunning(), qPrintable(bus->error()));
    // Read by the session bus on its first use, and by the grabber on every picture.
    qputenv("DBUS_SESSION_BUS_ADDRESS", bus->address().toUtf8());
    qputenv("WAYLAND_DISPLAY", "pallo-test-wayland");
    QVERIFY(QDBusConnection::sessionBus().isConnected());

    QVERIFY(dir.isValid());
    picture = QImage(400, 300, QImage::Format_RGB32);
    QPainter painter(&picture);
    painter.fillRect(0, 0, 200, 300, kLeft);
    painter.fillRect(200, 0, 200, 300, kRight);
    painter.end();
    pictureFile = dir.filePath("screen.png");
    QVERIFY(picture.save(pictureFile));

    translator = new PalloTranslator("english", this);
    QCoreApplication::installTranslator(translator);
    QVERIFY(bg::InitBridge(0, nullptr));
}

void TestPortalScreenshot::cleanupTestCase()
{
    bg::UninitBridge();
    stopPortal();
}

void TestPortalScreenshot::cleanup()
{
    stopPortal();
}

void TestPortalScreenshot::startPortal(const QStringList& args)
{
    portal.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    // The portal is stopped with a signal and cannot clean up after itself: its files go
    // into the test's own folder.
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("TMPDIR"), dir.path());
    portal.setProcessEnvironment(environment);
    portal.start(QCoreApplication::applicationDirPath() + "/fake-screenshot-portal", args);
    QVERIFY(portal.waitForStarted());
    QDBusConnectionInterface* names = QDBusConnection::sessionBus().interface();
    QTRY_VERIFY(names->isServiceRegistered("org.freedesktop.portal.Desktop"));
}

void TestPortalScreenshot::stopPortal()
{
    if (portal.state() == QProcess::NotRunning)
        return;
    portal.terminate();
    portal.waitForFinished();
    QDBusConnectionInterface* names = QDBusConnection::sessionBus().interface();
    QTRY_VERIFY(!names->isServiceRegistered("org.freedesktop.portal.Desktop"));
}

QImage TestPortalScreenshot::render(QWidget* tool) const
{
    tool->setGeometry(0, 0, picture.width(), picture.height());
    return tool->grab().toImage();
}

void TestPortalScreenshot::activate(QWidget* tool)
{
    QEvent deactivate(QEvent::WindowDeactivate);
    QCoreApplication::sendEvent(tool, &deactivate);
    QEvent activate(QEvent::WindowActivate);
    QCoreApplication::sendEvent(tool, &activate);
}

void TestPortalScreenshot::wayFollowsTheSession_data()
{
    QTest::addColumn<QByteArray>("waylandDisplay");
    QTest::addColumn<int>("way");
    QTest::newRow("X11") << QByteArray() << int(ScreenGrabber::Way::WindowSystem);
    QTest::newRow("Wayland") << QByteArray("wayland-0") << int(ScreenGrabber::Way::Portal);
}

void TestPortalScreenshot::wayFollowsTheSession()
{
    QFETCH(QByteArray, waylandDisplay);
    QFETCH(int, way);
    QCOMPARE(int(ScreenGrabber::wayFor(waylandDisplay)), way);
}

void TestPortalScreenshot::requestPathFollowsTheConnection()
{
    QCOMPARE(PortalScreenshot::requestPath(":1.42", "pallo7"),
             QString("/org/freedesktop/portal/desktop/request/1_42/pallo7"));
}

void TestPortalScreenshot::grabberReturnsThePortalsPicture()
{
    startPortal({"picture", pictureFile});
    const ScreenPicture shot = ScreenGrabber::grab();
    QVERIFY2(shot.ok(), qPrintable(shot.failure));
    QCOMPARE(shot.image.convertToFormat(QImage::Format_RGB32), picture);
    // The portal's file is not left lying about.
    QCOMPARE(QDir(dir.path()).entryList(QDir::Files), QStringList{"screen.png"});
}

void TestPortalScreenshot::magnifierShowsThePortalsPicture()
{
    startPortal({"picture", pictureFile});
    ZoomWidget zoom;
    zoom.updateImage();
    QVERIFY(zoom.failure().isEmpty());
    const QImage seen = render(&zoom);
    QCOMPARE(seen.pixelColor(5, 5), kLeft);
    QCOMPARE(seen.pixelColor(picture.width() - 5, 5), kRight);
}

void TestPortalScreenshot::screenshotSavesFromThePortalsPicture()
{
    QTemporaryDir out;
    bg::ConfigStore& config = bg::GetBridge()->config();
    QVERIFY(config.set("screen.shot.path", bg::Value(out.path().toStdString())));
    QVERIFY(config.set("screen.shot.format", bg::Value(std::string("png"))));
    startPortal({"picture", pictureFile});

    screenShotWidget shot;
    shot.show();
    activate(&shot);
    QVERIFY(shot.failure().isEmpty());
    QCOMPARE(render(&shot).pixelColor(5, 5), kLeft);

    QSignalSpy handedOn(&shot, &screenShotWidget::sg_screenimage);
    shot.findChild<QPushButton*>("pushButton_screenshot")->click();
    QCOMPARE(handedOn.count(), 1);
    const QImage expected = picture.copy(shot.selectionRect());
    QCOMPARE(handedOn.at(0).at(0).value<QImage>().convertToFormat(QImage::Format_RGB32), expected);
    const QStringList files = QDir(out.path()).entryList(QDir::Files);
    QCOMPARE(files.size(), 1);
    QCOMPARE(QImage(out.filePath(files.first())).convertToFormat(QImage::Format_RGB32), expected);
}

void TestPortalScreenshot::failuresGiveTheMessageAndNoPicture_data()
{
    QTest::addColumn<QStringList>("portalArgs");
    QTest::addColumn<QString>("logged");
    QTest::newRow("cancelled") << QStringList{"cancel"} << "cancelled";
    QTest::newRow("refused") << QStringList{"refuse"} << "refused the screenshot \\(response 2\\)";
    QTest::newRow("no portal") << QStringList() << "did not answer";
    QTest::newRow("broken file") << QStringList{"broken"} << "is not a picture";
}

void TestPortalScreenshot::failuresGiveTheMessageAndNoPicture()
{
    QFETCH(QStringList, portalArgs);
    QFETCH(QString, logged);
    if (!portalArgs.isEmpty())
        startPortal(portalArgs);
    const QString message = ScreenGrabber::failureMessage();
    QVERIFY(message.startsWith("The screen could not be pictured."));
    const QRegularExpression line("^no picture of the screen: .*" + logged);

    QTest::ignoreMessage(QtWarningMsg, line);
    const ScreenPicture shot = ScreenGrabber::grab();
    QVERIFY(shot.image.isNull());
    QCOMPARE(shot.failure, message);

    QTest::ignoreMessage(QtWarningMsg, line);
    ZoomWidget zoom;
    zoom.updateImage();
    QCOMPARE(zoom.failure(), message);
    const QImage magnified = render(&zoom);
    QCOMPARE(magnified.pixelColor(5, 5), kPage);
    QCOMPARE(magnified.pixelColor(picture.width() - 5, 5), kPage);

    QTemporaryDir out;
    QVERIFY(bg::GetBridge()->config().set("screen.shot.path", bg::Value(out.path().toStdString())));
    QTest::ignoreMessage(QtWarningMsg, line);
    screenShotWidget tool;
    tool.show();
    activate(&tool);
    QCOMPARE(tool.failure(), message);
    QCOMPARE(render(&tool).pixelColor(5, 5), kPage);
    QSignalSpy handedOn(&tool, &screenShotWidget::sg_screenimage);
    tool.findChild<QPushButton*>("pushButton_screenshot")->click();
    QCOMPARE(handedOn.count(), 0);
    QVERIFY(tool.isVisible());
    QCOMPARE(QDir(out.path()).entryList(QDir::Files), QStringList());
}

QTEST_MAIN(TestPortalScreenshot)
#include "test-portal-screenshot.moc"
