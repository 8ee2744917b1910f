// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "app/process-identity.h"

#include <QProcess>
#include <QtTest>

#include <pwd.h>
#include <unistd.h>

class TestProcessIdentity : public QObject
{
    Q_OBJECT

private slots:
    void userNameIsTheAccountName();
    void ownProcessExists();
    void finishedProcessDoesNotExist();
    void invalidIdsDoNotExist();
};

void TestProcessIdentity::userNameIsTheAccountName()
{
    const passwd* entry = getpwuid(getuid());
    QVERIFY(entry);
    QCOMPARE(currentUserName(), QString::fromLocal8Bit(entry->pw_name));
    QVERIFY(!currentUserName().isEmpty());
}

void TestProcessIdentity::ownProcessExists()
{
    QVERIFY(processExists(QCoreApplication::applicationPid()));
}

void TestProcessIdentity::finishedProcessDoesNotExist()
{
    QProcess child;
    child.start(QStringLiteral("sleep"), {QStringLiteral("30")});
    QVERIFY(child.waitForStarted());
    const qint64 pid = child.processId();
    QVERIFY(processExists(pid));
    child.kill();
    QVERIFY(child.waitForFinished());
    QVERIFY(!processExists(pid));
}

void TestProcessIdentity::invalidIdsDoNotExist()
{
    QVERIFY(!processExists(0));
    QVERIFY(!processExists(-1));
}

QTEST_GUILESS_MAIN(TestProcessIdentity)
#include "test-process-identity.moc"
