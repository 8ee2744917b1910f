// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "tests/e2e/weston-session.h"

#include "tests/e2e/session-user.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTest>

#include <sys/stat.h>
#include <unistd.h>

namespace {

const char* const kSocket = "wayland-pallo";
constexpr int kStartMs = 20000;

} // namespace

WestonSession::WestonSession() = default;

WestonSession::~WestonSession()
{
    if (m_weston.state() == QProcess::NotRunning)
        return;
    m_weston.terminate();
    if (!m_weston.waitForFinished(5000))
        m_weston.kill();
    m_weston.waitForFinished(2000);
}

bool WestonSession::fail(const QString& why)
{
    m_error = why;
    return false;
}

bool WestonSession::skip(const QString& why)
{
    m_skipReason = why;
    return false;
}

QString WestonSession::log() const
{
    QFile file(m_dir->filePath("weston.log"));
    if (!file.open(QIODevice::ReadOnly))
        return QString();
    return QString::fromUtf8(file.readAll());
}

QProcessEnvironment WestonSession::waylandEnvironment() const
{
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert("XDG_RUNTIME_DIR", m_dir->path());
    env.insert("WAYLAND_DISPLAY", kSocket);
    env.insert("DISPLAY", m_display);
    return env;
}

bool WestonSession::start()
{
    for (const char* program : {"weston", "weston-screenshooter", "xhost", "Xwayland"}) {
        if (QStandardPaths::findExecutable(program).isEmpty())
            return skip(QString("%1 is not installed (scripts/setup installs it)").arg(program));
    }
    m_dir = std::make_unique<QTemporaryDir>(QDir::tempPath() + "/pallo-weston-XXXXXX");
    if (!m_dir->isValid())
        return fail("cannot make the session's runtime folder");

    const SessionUser user = prepareSessionUser(m_dir->path(), "weston");
    if (!user.skipReason.isEmpty())
        return skip(user.skipReason);
    if (!user.failReason.isEmpty())
        return fail(user.failReason);
    m_asUser = user.runAs;
    chmod(QFile::encodeName(m_dir->path()).constData(), 0700);

    const QString dir = m_dir->path();
    // A test that is killed takes its session with it.
    QStringList command{"setpriv", "--pdeathsig", "TERM"};
    command << m_asUser << "env"
            << "-i"
            << "PATH=/usr/local/bin:/usr/bin:/bin"
            << "XDG_RUNTIME_DIR=" + dir << "HOME=" + dir << "weston"
            << "--backend=headless-backend.so"
            << "--use-pixman"
            << "--xwayland"
            << "--debug"
            << "--idle-time=0" << QString("--width=%1").arg(width)
            << QString("--height=%1").arg(height) << QString("--socket=%1").arg(kSocket);
    m_weston.setStandardOutputFile(m_dir->filePath("weston.log"));
    m_weston.setStandardErrorFile(m_dir->filePath("weston.log"));
    m_weston.start(command.takeFirst(), command);
    if (!m_weston.waitForStarted(kStartMs))
        return fail("weston does not start: " + m_weston.errorString());

    // weston starts its X server when the first X client comes; it names the display
    // once it listens.
    const QRegularExpression listening("xserver listening on display (:\\d+)");
    const bool up = QTest::qWaitFor(
        [&] {
            return listening.match(log()).hasMatch() || m_weston.state() == QProcess::NotRunning;
        },
        kStartMs);
    const QRegularExpressionMatch match = listening.match(log());
    if (!up || !match.hasMatch())
        return fail("the weston session did not come up:\n" + log().right(2000));
    m_display = match.captured(1);

    QProcess xhost;
    QStringList xhostCommand = m_asUser;
    xhostCommand << "env"
                 << "-i"
                 << "PATH=/usr/local/bin:/usr/bin:/bin"
                 << "XDG_RUNTIME_DIR=" + dir << "DISPLAY=" + m_display << "xhost"
                 << "+SI:localuser:root";
    xhost.start(xhostCommand.takeFirst(), xhostCommand);
    if (!xhost.waitForFinished(kStartMs) || xhost.exitCode() != 0)
        return fail("xhost cannot let root in:\n" +
                    QString::fromUtf8(xhost.readAllStandardError()));

    if (!QTest::qWaitFor([this] { return !screenshot().isNull(); }, kStartMs))
        return fail("weston takes no screenshot:\n" + log().right(2000));
    return true;
}

QImage WestonSession::screenshot() const
{
    // It writes its picture into the folder it runs in, under a name of the time.
    QTemporaryDir shots(m_dir->path() + "/shot-XXXXXX");
    if (!shots.isValid())
        return QImage();
    QProcess shooter;
    shooter.setProcessEnvironment(waylandEnvironment());
    shooter.setWorkingDirectory(shots.path());
    shooter.start("weston-screenshooter", QStringList());
    if (!shooter.waitForFinished(20000) || shooter.exitCode() != 0)
        return QImage();
    const QStringList pictures = QDir(shots.path()).entryList({"*.png"}, QDir::Files);
    if (pictures.isEmpty())
        return QImage();
    return QImage(QDir(shots.path()).filePath(pictures.first()));
}
