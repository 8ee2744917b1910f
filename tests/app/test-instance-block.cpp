// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "app/instance-block.h"
#include "app/instance-checksum.h"

#include <QByteArray>
#include <QtTest>

#include <cstring>

class TestInstanceBlock : public QObject
{
    Q_OBJECT

private slots:
    void resetRecordsNoPrimary();
    void checksumCoversTheFirst144Bytes();
    void everyByteBeforeTheChecksumCounts();
    void claimRecordsPidAndUser();
    void longUserNameIsCutAndTerminated();
};

void TestInstanceBlock::resetRecordsNoPrimary()
{
    InstanceBlock block;
    std::memset(static_cast<void*>(&block), 0xab, sizeof block);
    resetInstanceBlock(block);
    QCOMPARE(block.primary, false);
    QCOMPARE(block.secondary, 0u);
    QCOMPARE(block.primaryPid, qint64(-1));
    QCOMPARE(block.primaryUser[0], '\0');
    QVERIFY(instanceBlockIsConsistent(block));
}

void TestInstanceBlock::checksumCoversTheFirst144Bytes()
{
    InstanceBlock block;
    resetInstanceBlock(block);
    block.secondary = 7;
    sealInstanceBlock(block);
    const char* bytes = reinterpret_cast<const char*>(&block);
    QCOMPARE(block.checksum, instanceChecksum(bytes, 144));
    quint16 stored = 0;
    std::memcpy(&stored, bytes + 144, 2);
    QCOMPARE(stored, instanceChecksum(bytes, 144));
}

void TestInstanceBlock::everyByteBeforeTheChecksumCounts()
{
    InstanceBlock sealed;
    claimInstanceBlock(sealed, 4242, "presenter");
    for (int offset = 0; offset < 144; ++offset) {
        InstanceBlock block = sealed;
        reinterpret_cast<unsigned char*>(&block)[offset] ^= 0x5a;
        QVERIFY2(!instanceBlockIsConsistent(block), qPrintable(QString::number(offset)));
    }
    InstanceBlock tail = sealed;
    reinterpret_cast<unsigned char*>(&tail)[150] ^= 0x5a;
    QVERIFY(instanceBlockIsConsistent(tail));
}

void TestInstanceBlock::claimRecordsPidAndUser()
{
    InstanceBlock block;
    resetInstanceBlock(block);
    claimInstanceBlock(block, 31337, QByteArray("渡边"));
    QCOMPARE(block.primary, true);
    QCOMPARE(block.primaryPid, qint64(31337));
    QCOMPARE(QByteArray(block.primaryUser), QByteArray("渡边"));
    QVERIFY(instanceBlockIsConsistent(block));
}

void TestInstanceBlock::longUserNameIsCutAndTerminated()
{
    InstanceBlock block;
    resetInstanceBlock(block);
    claimInstanceBlock(block, 1, QByteArray(300, 'u'));
    QCOMPARE(QByteArray(block.primaryUser), QByteArray(127, 'u'));
    QVERIFY(instanceBlockIsConsistent(block));
}

QTEST_APPLESS_MAIN(TestInstanceBlock)
#include "test-instance-block.moc"
