// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "app/instance-block-name.h"

#include "app/single-application.h"

#include <QtTest>

namespace {

InstanceIdentity boardIdentity(const QString& user)
{
    InstanceIdentity identity;
    identity.applicationName = QStringLiteral("pallo-board");
    identity.organizationName = QStringLiteral("Pallo");
    identity.organizationDomain = QStringLiteral("pallo.example");
    identity.applicationVersion = QStringLiteral("1.0.2");
    identity.applicationFilePath = QStringLiteral("/opt/Pallo/Pallo-Board");
    identity.userName = user;
    return identity;
}

constexpr int boardMode =
    SingleApplication::User | SingleApplication::System | SingleApplication::SecondaryNotification;

} // namespace

class TestInstanceBlockName : public QObject
{
    Q_OBJECT

private slots:
    void knownDigests_data();
    void knownDigests();
    void anotherUserGetsAnotherName();
    void userIsLeftOutWithoutUserMode();
    void pathCaseDoesNotMatter();
    void nameIsUsableAsServerName();
};

void TestInstanceBlockName::knownDigests_data()
{
    QTest::addColumn<QString>("user");
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("expected");

    QTest::newRow("board mode, alice")
        << "alice" << boardMode << "zZMKGunW4boGKpgbJVUEKhUW_Kr16svYCOwwg1pUmE4=";
    QTest::newRow("board mode, bob")
        << "bob" << boardMode << "xqg1athHZi1ph5DE1uyhsEbY9tQk8AocXX7MI4QM4D8=";
    QTest::newRow("board mode, non-ASCII user")
        << "渡边" << boardMode << "R4p7SVnH6wTMrBGfkdRBRj9i7rTqXU36Nx3DJZVFvFM=";
    QTest::newRow("system wide") << "alice" << int(SingleApplication::System)
                                 << "qM9VOFl8GF6ki_pdo6oT_f36T+ux4BtPPMcp3G3GmEI=";
    QTest::newRow("without version")
        << "alice" << (boardMode | SingleApplication::ExcludeAppVersion)
        << "yY5fR_2GV2I9jUbrHd9gBERbIBed6bpdNij4p7xRA0E=";
    QTest::newRow("without path") << "alice" << (boardMode | SingleApplication::ExcludeAppPath)
                                  << "ds23Cp4d9XEtsFeq3GoBcOciIXRMIpn9NB8GjLfjwJA=";
}

void TestInstanceBlockName::knownDigests()
{
    QFETCH(QString, user);
    QFETCH(int, mode);
    QFETCH(QString, expected);
    QCOMPARE(instanceBlockName(boardIdentity(user), mode), expected);
}

void TestInstanceBlockName::anotherUserGetsAnotherName()
{
    QVERIFY(instanceBlockName(boardIdentity("alice"), boardMode) !=
            instanceBlockName(boardIdentity("bob"), boardMode));
}

void TestInstanceBlockName::userIsLeftOutWithoutUserMode()
{
    const int mode = SingleApplication::System | SingleApplication::SecondaryNotification;
    QCOMPARE(instanceBlockName(boardIdentity("alice"), mode),
             instanceBlockName(boardIdentity("bob"), mode));
}

void TestInstanceBlockName::pathCaseDoesNotMatter()
{
    InstanceIdentity lower = boardIdentity("alice");
    lower.applicationFilePath = lower.applicationFilePath.toLower();
    QCOMPARE(instanceBlockName(lower, boardMode),
             instanceBlockName(boardIdentity("alice"), boardMode));
}

void TestInstanceBlockName::nameIsUsableAsServerName()
{
    for (const char* user : {"alice", "bob", "carol", "dave", "erin", "frank"}) {
        const QString name = instanceBlockName(boardIdentity(user), boardMode);
        QCOMPARE(name.size(), 44);
        QVERIFY2(!name.contains('/'), qPrintable(name));
    }
}

QTEST_APPLESS_MAIN(TestInstanceBlockName)
#include "test-instance-block-name.moc"
