// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "tests/e2e/sway-session.h"

#include "tests/e2e/session-user.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>
#include <QTest>

#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr int kStartMs = 20000;

bool writeFile(const QString& path, const QByteArray& text)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(text) == text.size();
}

} // namespace

SwaySession::SwaySession() = default;

SwaySession::~SwaySession()
{
    stopSessionPrograms({&m_vnc, &m_sway});
}

bool SwaySession::fail(const QString& why)
{
    m_error = why;
    return false;
}

bool SwaySession::skip(const QString& why)
{
    m_skipReason = why;
    return false;
}

QString SwaySession::log(const QString& name) const
{
    QFile file(m_dir->filePath(name));
    if (!file.open(QIODevice::ReadOnly))
        return QString();
    return QString::fromUtf8(file.readAll().right(2000));
}

bool SwaySession::waitForFile(const QString& path, int timeoutMs) const
{
    return QTest::qWaitFor(
               [&] { return QFile::exists(path) || m_sway.state() == QProcess::NotRunning; },
               timeoutMs) &&
           QFile::exists(path);
}

QString SwaySession::vncSocket() const
{
    return m_dir->filePath("vnc.sock");
}

QProcessEnvironment SwaySession::waylandEnvironment() const
{
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert("XDG_RUNTIME_DIR", m_dir->path());
    env.insert("WAYLAND_DISPLAY", m_waylandDisplay);
    env.insert("DISPLAY", m_display);
    return env;
}

bool SwaySession::start()
{
    for (const char* program : {"sway", "foot", "grim", "wayvnc", "xhost", "Xwayland"}) {
        if (QStandardPaths::findExecutable(program).isEmpty())
            return skip(QString("%1 is not installed (scripts/setup installs it)").arg(program));
    }
    m_dir = std::make_unique<QTemporaryDir>(QDir::tempPath() + "/pallo-sway-XXXXXX");
    if (!m_dir->isValid())
        return fail("cannot make the session's runtime folder");

    // A test that is killed takes its session with it.
    QStringList command{"setpriv", "--pdeathsig", "TERM"};
    const SessionUser user = prepareSessionUser(m_dir->path(), "sway");
    if (!user.skipReason.isEmpty())
        return skip(user.skipReason);
    if (!user.failReason.isEmpty())
        return fail(user.failReason);
    command << user.runAs;
    chmod(QFile::encodeName(m_dir->path()).constData(), 0700);

    const QString dir = m_dir->path();
    const QByteArray config = QString(R"(xwayland enable
output HEADLESS-1 resolution %1x%2 position 0 0 bg #404040 solid_color
default_border none
default_floating_border none
focus_follows_mouse no
exec sh -c 'xhost +SI:localuser:root > %3/xhost.log 2>&1; echo "$DISPLAY" > %3/display.new && mv %3/display.new %3/display'
exec foot -o colors.background=00c040 sleep 1000000
)")
                                  .arg(width)
                                  .arg(height)
                                  .arg(dir)
                                  .toUtf8();
    if (!writeFile(m_dir->filePath("sway.conf"), config))
        return fail("cannot write the sway configuration");

    command << "env"
            << "-i"
            << "PATH=/usr/local/bin:/usr/bin:/bin"
            << "XDG_RUNTIME_DIR=" + dir << "WLR_BACKENDS=headless"
            << "WLR_RENDERER=pixman"
            << "WLR_LIBINPUT_NO_DEVICES=1"
            << "sway"
            << "-c" << m_dir->filePath("sway.conf");
    m_sway.setStandardOutputFile(m_dir->filePath("sway.log"));
    m_sway.setStandardErrorFile(m_dir->filePath("sway.log"));
    m_sway.start(command.takeFirst(), command);
    if (!m_sway.waitForStarted(kStartMs))
        return fail("sway does not start: " + m_sway.errorString());
    if (!waitForFile(m_dir->filePath("display"), kStartMs))
        return fail("the sway session did not come up:\n" + log("sway.log"));

    QFile display(m_dir->filePath("display"));
    display.open(QIODevice::ReadOnly);
    m_display = QString::fromUtf8(display.readAll()).trimmed();
    for (const QString& name : QDir(dir).entryList({"wayland-*"}, QDir::System)) {
        if (!name.endsWith(".lock"))
            m_waylandDisplay = name;
    }
    if (m_display.isEmpty() || m_waylandDisplay.isEmpty())
        return fail("the session has no display:\n" + log("sway.log") + log("xhost.log"));

    m_vnc.setProcessEnvironment(waylandEnvironment());
    m_vnc.setStandardOutputFile(m_dir->filePath("wayvnc.log"));
    m_vnc.setStandardErrorFile(m_dir->filePath("wayvnc.log"));
    m_vnc.start("wayvnc", {"--unix-socket", vncSocket()});
    if (!m_vnc.waitForStarted(kStartMs) || !waitForFile(vncSocket(), kStartMs))
        return fail("wayvnc does not listen:\n" + log("wayvnc.log"));
    // foot has drawn its green once the compositor shows it.
    const bool footShown = QTest::qWaitFor(
        [this] { return screenshot().pixelColor(20, height / 2) == QColor(0x00, 0xc0, 0x40); },
        kStartMs);
    if (!footShown)
        return fail("foot does not show:\n" + log("sway.log"));
    return true;
}

QImage SwaySession::screenshot() const
{
    QProcess grim;
    grim.setProcessEnvironment(waylandEnvironment());
    grim.start("grim", {"-t", "ppm", "-"});
    if (!grim.waitForFinished(20000))
        return QImage();
    if (grim.exitCode() != 0)
        return QImage();
    return QImage::fromData(grim.readAllStandardOutput(), "PPM");
}
