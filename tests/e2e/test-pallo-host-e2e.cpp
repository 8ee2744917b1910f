// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "tests/e2e/toolbar-layout.h"
#include "tests/e2e/x11-probe.h"
#include "tests/e2e/xdotool.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

// pallo-host finds the pallo-board beside it, starts it on its pipe and drives it with
// the commands typed on its standard input.
class TestPalloHostE2e : public QObject
{
    Q_OBJECT

private slots:
    void hostStartsTheBoardAndClearsItsCanvas();

private:
    X11Probe probe;
};

namespace {

const QRect strokeArea(200, 300, 800, 400);

// The first child process of pid, or 0.
qint64 childOf(qint64 pid)
{
    QFile children(QStringLiteral("/proc/%1/task/%1/children").arg(pid));
    if (!children.open(QIODevice::ReadOnly))
        return 0;
    const QList<QByteArray> ids = children.readAll().simplified().split(' ');
    return ids.isEmpty() ? 0 : ids.first().toLongLong();
}

bool copyExecutable(const QString& from, const QString& to)
{
    return QFile::copy(from, to) &&
           QFile::setPermissions(to, QFile::permissions(from) | QFile::ExeOwner);
}

} // namespace

void TestPalloHostE2e::hostStartsTheBoardAndClearsItsCanvas()
{
    QVERIFY(probe.isValid());
    const ToolbarLayout layout = measureToolbarLayout();
    QVERIFY(!layout.size.isEmpty());

    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    QVERIFY(copyExecutable(QStringLiteral(PALLO_HOST_PATH), dir.filePath("pallo-host")));
    QVERIFY(copyExecutable(QStringLiteral(PALLO_BOARD_PATH), dir.filePath("pallo-board")));

    QProcess host;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
    env.insert(QStringLiteral("HOME"), dir.path());
    env.insert(QStringLiteral("XDG_CONFIG_HOME"), dir.filePath("config"));
    env.insert(QStringLiteral("PALLO_BRIDGE_CONFIG"), dir.filePath("bridge.json"));
    env.insert(QStringLiteral("TMPDIR"), dir.path());
    host.setProcessEnvironment(env);
    host.start(dir.filePath("pallo-host"), {QStringLiteral("--name"), dir.filePath("pipe")});
    QVERIFY(host.waitForStarted(5000));

    qint64 board = 0;
    QTRY_VERIFY_WITH_TIMEOUT((board = childOf(host.processId())) != 0, 10000);
    QTRY_VERIFY_WITH_TIMEOUT(probe.canvasOf(board).id != 0 && probe.toolbarOf(board).id != 0,
                             10000);

    QTRY_COMPARE_WITH_TIMEOUT(probe.toolbarOf(board).geometry.size(), layout.size, 5000);
    const X11Probe::Window bar = probe.toolbarOf(board);
    QVERIFY(xdotool::click(bar.geometry.topLeft() + layout.penCentre));
    QTRY_VERIFY_WITH_TIMEOUT(!probe.inputShapeEmpty(probe.canvasOf(board).id), 5000);
    QVERIFY(xdotool::stroke({{300, 400}, {450, 460}, {600, 520}, {800, 600}}));
    QTRY_VERIFY_WITH_TIMEOUT(countReddish(probe.grabScreen().copy(strokeArea)) > 200, 5000);

    host.write("trash_can\n");
    QTRY_COMPARE_WITH_TIMEOUT(countReddish(probe.grabScreen().copy(strokeArea)), 0, 5000);

    host.write("quit\n");
    QVERIFY(host.waitForFinished(5000));
    QCOMPARE(host.exitCode(), 0);
    QVERIFY(!QFile::exists(QStringLiteral("/proc/%1").arg(board)));
}

QTEST_MAIN(TestPalloHostE2e)
#include "test-pallo-host-e2e.moc"
