// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT

// The tree `cmake --install` makes, used as a user would use it: every file in its
// place, the programs run from there and give their version, the installed host
// starts the installed board, and the man pages describe every option.
#include "pallo-version.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QtTest>

namespace {

QString installedPath(const QString& prefix, const QString& relative)
{
    return QDir(prefix).filePath(relative);
}

QString binPath(const QString& prefix, const QString& program)
{
    return installedPath(prefix, QStringLiteral(PALLO_INSTALL_BINDIR "/") + program);
}

// Runs a program with the environment a user has, without the build tree anywhere.
QProcessEnvironment userEnvironment(const QString& runtimeDir)
{
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert("PATH", "/usr/bin:/bin");
    env.remove("LD_LIBRARY_PATH");
    env.insert("XDG_RUNTIME_DIR", runtimeDir);
    return env;
}

QStringList childrenOf(qint64 pid)
{
    QFile file(QStringLiteral("/proc/%1/task/%1/children").arg(pid));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QString::fromLatin1(file.readAll()).split(' ', Qt::SkipEmptyParts);
}

void addProgramRows()
{
    QTest::addColumn<QString>("program");
    QTest::newRow("board") << "pallo-board";
    QTest::newRow("host") << "pallo-host";
}

} // namespace

class TestInstalledTree : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void filesAreInTheirPlaces_data();
    void filesAreInTheirPlaces();
    void nothingForDevelopersIsInstalled();
    void programsGiveTheProjectVersion_data();
    void programsGiveTheProjectVersion();
    void boardLoadsTheInstalledLibrary();
    void installedHostStartsTheInstalledBoard();
    void manPagesDescribeEveryOption_data();
    void manPagesDescribeEveryOption();

private:
    QTemporaryDir prefix_;
};

void TestInstalledTree::initTestCase()
{
    QVERIFY(prefix_.isValid());
    QProcess install;
    install.start(PALLO_CMAKE, {"--install", PALLO_BUILD_DIR, "--prefix", prefix_.path()});
    QVERIFY(install.waitForFinished(60000));
    QVERIFY2(install.exitCode() == 0, install.readAllStandardError().constData());
}

void TestInstalledTree::filesAreInTheirPlaces_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<bool>("executable");

    QTest::newRow("board") << PALLO_INSTALL_BINDIR "/pallo-board" << true;
    QTest::newRow("host") << PALLO_INSTALL_BINDIR "/pallo-host" << true;
    QTest::newRow("library") << PALLO_INSTALL_PRIVATE_LIBDIR "/libpallo.so." PALLO_VERSION << false;
    QTest::newRow("desktop entry")
        << PALLO_INSTALL_DATADIR "/applications/org.pallo.Board.desktop" << false;
    QTest::newRow("icon") << PALLO_INSTALL_DATADIR
        "/icons/hicolor/scalable/apps/org.pallo.Board.svg"
                          << false;
    QTest::newRow("metainfo") << PALLO_INSTALL_DATADIR "/metainfo/org.pallo.Board.metainfo.xml"
                              << false;
    QTest::newRow("board man page") << PALLO_INSTALL_MANDIR "/man1/pallo-board.1.gz" << false;
    QTest::newRow("host man page") << PALLO_INSTALL_MANDIR "/man1/pallo-host.1.gz" << false;
    QTest::newRow("licence") << PALLO_INSTALL_DOCDIR "/LICENSE" << false;
}

void TestInstalledTree::filesAreInTheirPlaces()
{
    QFETCH(QString, path);
    QFETCH(bool, executable);
    const QFileInfo info(installedPath(prefix_.path(), path));
    QVERIFY2(info.isFile(), qPrintable(info.filePath()));
    QVERIFY(info.size() > 0);
    QCOMPARE(info.isExecutable(), executable);
}

void TestInstalledTree::nothingForDevelopersIsInstalled()
{
    QVERIFY(!QFileInfo::exists(
        installedPath(prefix_.path(), PALLO_INSTALL_PRIVATE_LIBDIR "/libpallo.so")));
    QVERIFY(!QFileInfo::exists(installedPath(prefix_.path(), "include")));
    const QStringList libraries =
        QDir(installedPath(prefix_.path(), PALLO_INSTALL_PRIVATE_LIBDIR)).entryList(QDir::Files);
    QCOMPARE(libraries, QStringList{"libpallo.so." PALLO_VERSION});
    const QStringList programs =
        QDir(installedPath(prefix_.path(), PALLO_INSTALL_BINDIR)).entryList(QDir::Files);
    QCOMPARE(programs, (QStringList{"pallo-board", "pallo-host"}));
}

void TestInstalledTree::programsGiveTheProjectVersion_data()
{
    addProgramRows();
}

void TestInstalledTree::programsGiveTheProjectVersion()
{
    QFETCH(QString, program);
    QProcess process;
    process.setProcessEnvironment(userEnvironment(prefix_.path()));
    process.start(binPath(prefix_.path(), program), {"--version"});
    QVERIFY(process.waitForFinished(10000));
    QVERIFY2(process.exitCode() == 0, process.readAllStandardError().constData());
    QCOMPARE(QString::fromLatin1(process.readAllStandardOutput()),
             program + " " PALLO_VERSION "\n");
}

void TestInstalledTree::boardLoadsTheInstalledLibrary()
{
    QProcess ldd;
    ldd.setProcessEnvironment(userEnvironment(prefix_.path()));
    ldd.start("ldd", {binPath(prefix_.path(), "pallo-board")});
    QVERIFY(ldd.waitForFinished(10000));
    const QString text = QString::fromLocal8Bit(ldd.readAllStandardOutput());
    const QRegularExpression line("libpallo\\.so\\.[0-9.]+ => (\\S+)");
    const QRegularExpressionMatch match = line.match(text);
    QVERIFY2(match.hasMatch(), qPrintable(text));
    QCOMPARE(QFileInfo(match.captured(1)).canonicalFilePath(),
             QFileInfo(installedPath(prefix_.path(),
                                     PALLO_INSTALL_PRIVATE_LIBDIR "/libpallo.so." PALLO_VERSION))
                 .canonicalFilePath());
}

void TestInstalledTree::installedHostStartsTheInstalledBoard()
{
    QProcess host;
    QProcessEnvironment env = userEnvironment(prefix_.path());
    env.insert("QT_QPA_PLATFORM", "offscreen");
    // The board says "Client Read: <bytes>" for each message it takes from the pipe.
    env.insert("QT_LOGGING_RULES", "pallo.host.debug=true");
    host.setProcessEnvironment(env);
    host.start(binPath(prefix_.path(), "pallo-host"), {"--name", "installed-board"});
    QVERIFY(host.waitForStarted(5000));

    QStringList children;
    QTRY_VERIFY_WITH_TIMEOUT(!(children = childrenOf(host.processId())).isEmpty(), 10000);
    QCOMPARE(children.size(), 1);
    // Between its fork and its exec the child is still a copy of the host.
    const QString board = QStringLiteral("/proc/%1/exe").arg(children.first());
    QTRY_COMPARE_WITH_TIMEOUT(QFile::symLinkTarget(board),
                              QFileInfo(binPath(prefix_.path(), "pallo-board")).canonicalFilePath(),
                              10000);

    host.write("show_or_hide\nwait 500\nquit\n");
    host.closeWriteChannel();
    QVERIFY(host.waitForFinished(20000));
    const QByteArray errors = host.readAllStandardError();
    QVERIFY2(host.exitCode() == 0, errors.constData());
    QVERIFY2(errors.contains("Client Read: 23\n"), errors.constData());
}

void TestInstalledTree::manPagesDescribeEveryOption_data()
{
    addProgramRows();
}

void TestInstalledTree::manPagesDescribeEveryOption()
{
    QFETCH(QString, program);
    const QString page = QStringLiteral(PALLO_BUILD_DIR "/man/%1.1").arg(program);

    QProcess groff;
    groff.start("groff", {"-man", "-ww", "-z", page});
    QVERIFY(groff.waitForFinished(10000));
    QCOMPARE(groff.exitCode(), 0);
    QCOMPARE(groff.readAllStandardError(), QByteArray());

    QFile file(page);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QString text = QString::fromUtf8(file.readAll());
    QVERIFY(text.contains(".TH " + program.toUpper() + " 1"));
    QVERIFY(text.contains(PALLO_VERSION));

    QProcess process;
    process.setProcessEnvironment(userEnvironment(prefix_.path()));
    process.start(binPath(prefix_.path(), program), {"--help"});
    QVERIFY(process.waitForFinished(10000));
    const QString help = QString::fromLocal8Bit(process.readAllStandardOutput());
    QRegularExpressionMatchIterator options =
        QRegularExpression("(?:^|\\s)(--[a-z][a-z-]+)").globalMatch(help);
    int count = 0;
    while (options.hasNext()) {
        const QString option = options.next().captured(1);
        // troff writes each hyphen of an option as "\-".
        QString inTroff = option;
        inTroff.replace('-', "\\-");
        QVERIFY2(text.contains(inTroff), qPrintable(program + " " + option));
        ++count;
    }
    QVERIFY(count >= 4);
}

QTEST_GUILESS_MAIN(TestInstalledTree)
#include "test-installed-tree.moc"
