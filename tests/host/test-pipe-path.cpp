// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "host/pipe-path.h"

#include <QtTest>

class TestPipePath : public QObject
{
    Q_OBJECT

private slots:
    void paths_data();
    void paths();
    void environmentIsRead();
};

void TestPipePath::paths_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("runtimeSet");
    QTest::addColumn<QString>("runtime");
    QTest::addColumn<QString>("path");

    QTest::newRow("absolute name") << "/run/x/pipe" << true << "/run/user/1000"
                                   << "/run/x/pipe";
    QTest::newRow("runtime dir") << "pipe1" << true << "/run/user/1000"
                                 << "/run/user/1000/pipe1";
    QTest::newRow("runtime dir empty") << "pipe1" << true << ""
                                       << "/tmp/pipe1";
    QTest::newRow("runtime dir unset") << "pipe1" << false << ""
                                       << "/tmp/pipe1";
}

void TestPipePath::paths()
{
    QFETCH(QString, name);
    QFETCH(bool, runtimeSet);
    QFETCH(QString, runtime);
    QFETCH(QString, path);
    const QByteArray dir = runtime.toUtf8();
    QCOMPARE(QString::fromStdString(
                 pipePathForName(name.toStdString(), runtimeSet ? dir.constData() : nullptr)),
             path);
}

void TestPipePath::environmentIsRead()
{
    qputenv("XDG_RUNTIME_DIR", "/run/user/77");
    QCOMPARE(pipePathForName("p"), std::string("/run/user/77/p"));
    qunsetenv("XDG_RUNTIME_DIR");
    QCOMPARE(pipePathForName("p"), std::string("/tmp/p"));
}

QTEST_APPLESS_MAIN(TestPipePath)
#include "test-pipe-path.moc"
