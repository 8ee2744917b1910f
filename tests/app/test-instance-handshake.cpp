// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "app/instance-checksum.h"
#include "app/instance-handshake.h"

#include <QtTest>

class TestInstanceHandshake : public QObject
{
    Q_OBJECT

private slots:
    void wireFormat();
    void roundTrip_data();
    void roundTrip();
    void rejectsAnotherBlock();
    void rejectsBadChecksum();
    void rejectsTruncatedMessage();
    void nameIsComparedUpToItsFirstNul();
};

void TestInstanceHandshake::wireFormat()
{
    const QByteArray expected = QByteArray::fromHex("000000000000000d" // length of what follows
                                                    "00000002"
                                                    "4142"     // name "AB"
                                                    "02"       // secondary instance
                                                    "00000001" // instance number
                                                    "51ee");   // checksum
    QCOMPARE(encodeInstanceHandshake("AB", ConnectionType::SecondaryInstance, 1), expected);
    QCOMPARE(decodeInstanceHandshakeLength(expected.left(8)), quint64(13));
}

void TestInstanceHandshake::roundTrip_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<quint32>("instance");
    QTest::newRow("new instance") << 1 << 0u;
    QTest::newRow("secondary") << 2 << 1u;
    QTest::newRow("reconnect") << 3 << 4000000000u;
}

void TestInstanceHandshake::roundTrip()
{
    QFETCH(int, type);
    QFETCH(quint32, instance);
    const QString name = QStringLiteral("zZMKGunW4boGKpgbJVUEKhUW_Kr16svYCOwwg1pUmE4=");
    const QByteArray message =
        encodeInstanceHandshakeMessage(name, static_cast<ConnectionType>(type), instance);
    InstanceHandshake handshake;
    QVERIFY(decodeInstanceHandshake(message, name, &handshake));
    QCOMPARE(static_cast<int>(handshake.type), type);
    QCOMPARE(handshake.instanceNumber, instance);
}

void TestInstanceHandshake::rejectsAnotherBlock()
{
    const QByteArray message =
        encodeInstanceHandshakeMessage("other", ConnectionType::SecondaryInstance, 1);
    InstanceHandshake handshake;
    QVERIFY(!decodeInstanceHandshake(message, "mine", &handshake));
}

void TestInstanceHandshake::rejectsBadChecksum()
{
    QByteArray message =
        encodeInstanceHandshakeMessage("mine", ConnectionType::SecondaryInstance, 1);
    message[message.size() - 1] = static_cast<char>(message.at(message.size() - 1) ^ 0x01);
    InstanceHandshake handshake;
    QVERIFY(!decodeInstanceHandshake(message, "mine", &handshake));

    QByteArray body = encodeInstanceHandshakeMessage("mine", ConnectionType::SecondaryInstance, 1);
    body[9] = 7; // instance number changed after the checksum was taken
    QVERIFY(!decodeInstanceHandshake(body, "mine", &handshake));
}

void TestInstanceHandshake::rejectsTruncatedMessage()
{
    const QByteArray message =
        encodeInstanceHandshakeMessage("mine", ConnectionType::NewInstance, 1);
    InstanceHandshake handshake;
    for (int size = 0; size < message.size(); ++size) {
        QVERIFY2(!decodeInstanceHandshake(message.left(size), "mine", &handshake),
                 qPrintable(QString::number(size)));
    }
}

void TestInstanceHandshake::nameIsComparedUpToItsFirstNul()
{
    QByteArray message;
    QDataStream stream(&message, QIODevice::WriteOnly);
    stream.setVersion(QDataStream::Qt_5_6);
    stream << QByteArray("mine\0tail", 9) << quint8(2) << quint32(5);
    stream << instanceChecksum(message.constData(), message.size());
    InstanceHandshake handshake;
    QVERIFY(decodeInstanceHandshake(message, "mine", &handshake));
    QCOMPARE(handshake.instanceNumber, 5u);
}

QTEST_APPLESS_MAIN(TestInstanceHandshake)
#include "test-instance-handshake.moc"
