// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "tests/e2e/weston-session.h"

#include "tests/e2e/session-user.h"
#include "tests/e2e/xdotool.h"

#include <QColor>
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
const QColor kFoot(0x00, 0xc0, 0x40);

} // namespace

WestonSession::WestonSession() = default;

WestonSession::~WestonSession()
{
    stopSessionPrograms({&m_foot, &m_weston, &m_xvfb});
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

QString WestonSession::log(const QString& name) const
{
    QFile file(m_dir->filePath(name));
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

void WestonSession::startAsUser(QProcess& process, const QStringList& command,
                                const QString& logName)
{
    const QString dir = m_dir->path();
    // A test that is killed takes its session with it.
    QStringList full{"setpriv", "--pdeathsig", "TERM"};
    full << m_asUser << "env"
         << "-i"
         << "PATH=/usr/local/bin:/usr/bin:/bin"
         << "LANG=C.UTF-8"
         << "XDG_RUNTIME_DIR=" + dir << "HOME=" + dir << command;
    process.setStandardOutputFile(m_dir->filePath(logName));
    process.setStandardErrorFile(m_dir->filePath(logName));
    process.start(full.takeFirst(), full);
}

bool WestonSession::startOuterServer()
{
    // It names the display it found free on its standard output. Without an
    // authorization file it lets in local clients, the session's user among them.
    m_xvfb.setStandardErrorFile(m_dir->filePath("xvfb.log"));
    m_xvfb.start("setpriv", {"--pdeathsig", "TERM", "Xvfb", "-displayfd", "1", "-screen", "0",
                             QString("%1x%2x24").arg(width).arg(height), "-nolisten", "tcp"});
    if (!m_xvfb.waitForStarted(kStartMs))
        return fail("Xvfb does not start: " + m_xvfb.errorString());
    QByteArray number;
    const bool named = QTest::qWaitFor(
        [&] {
            number += m_xvfb.readAllStandardOutput();
            return number.contains('\n') || m_xvfb.state() == QProcess::NotRunning;
        },
        kStartMs);
    if (!named || !number.contains('\n'))
        return fail("Xvfb names no display:\n" + log("xvfb.log").right(2000));
    m_outerDisplay = ":" + QString::fromLatin1(number).trimmed();
    return true;
}

bool WestonSession::start()
{
    for (const char* program :
         {"weston", "weston-screenshooter", "xhost", "Xwayland", "Xvfb", "xdotool", "foot"}) {
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

    if (!startOuterServer())
        return false;
    startAsUser(m_weston,
                {"DISPLAY=" + m_outerDisplay, "weston", "--backend=x11-backend.so", "--use-pixman",
                 "--xwayland", "--debug", "--idle-time=0", QString("--width=%1").arg(width),
                 QString("--height=%1").arg(height), QString("--socket=%1").arg(kSocket)},
                "weston.log");
    if (!m_weston.waitForStarted(kStartMs))
        return fail("weston does not start: " + m_weston.errorString());

    // weston starts its X server at once; it names the display once it listens.
    const QRegularExpression listening("xserver listening on display (:\\d+)");
    const bool up = QTest::qWaitFor(
        [&] {
            return listening.match(log("weston.log")).hasMatch() ||
                   m_weston.state() == QProcess::NotRunning;
        },
        kStartMs);
    const QRegularExpressionMatch match = listening.match(log("weston.log"));
    if (!up || !match.hasMatch())
        return fail("the weston session did not come up:\n" + log("weston.log").right(2000));
    m_display = match.captured(1);

    QProcess xhost;
    startAsUser(xhost, {"DISPLAY=" + m_display, "xhost", "+SI:localuser:root"}, "xhost.log");
    if (!xhost.waitForFinished(kStartMs) || xhost.exitCode() != 0)
        return fail("xhost cannot let root in:\n" + log("xhost.log"));

    // No decorations of its own, so that nothing of it changes with the focus.
    startAsUser(m_foot,
                {"WAYLAND_DISPLAY=" + QString(kSocket), "foot", "--maximized", "-o",
                 "csd.preferred=none", "-o", "colors.background=" + kFoot.name().mid(1), "-o",
                 "colors.foreground=" + kFoot.name().mid(1), "sleep", "1000000"},
                "foot.log");
    // weston draws its pointer, which is taken to a corner first, into its screenshots.
    if (!syncPointer())
        return fail("xdotool cannot move the pointer of " + m_outerDisplay);
    const bool footShown = QTest::qWaitFor(
        [this] { return screenshot().pixelColor(width / 2, height / 2) == kFoot; }, kStartMs);
    if (!footShown)
        return fail("foot does not show:\n" + log("foot.log").right(2000) +
                    log("weston.log").right(2000));
    return true;
}

// weston's X11 backend moves its pointer by how far the outer pointer moved since the
// last event it saw, and keeps it on the screen, so the two may start apart. Pushed into
// two opposite corners, both stop at the same edges and go on together.
bool WestonSession::syncPointer() const
{
    return xdotool::run({"mousemove", "0", "0", "sleep", "0.1", "mousemove",
                         QString::number(width - 1), QString::number(height - 1), "sleep", "0.1"},
                        m_outerDisplay);
}

bool WestonSession::moveTo(const QPoint& p) const
{
    return xdotool::run({"mousemove", QString::number(p.x()), QString::number(p.y())},
                        m_outerDisplay);
}

bool WestonSession::click(const QPoint& p) const
{
    return xdotool::click(p, 1, m_outerDisplay);
}

bool WestonSession::drag(const QList<QPoint>& points) const
{
    return xdotool::stroke(QVector<QPoint>(points.begin(), points.end()), m_outerDisplay);
}

bool WestonSession::pressKey(const QString& name) const
{
    return xdotool::run({"key", name}, m_outerDisplay);
}

bool WestonSession::type(const QString& text) const
{
    return xdotool::run({"type", "--delay", "80", text}, m_outerDisplay);
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
