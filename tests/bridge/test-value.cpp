// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "bridge/value-registry.h"
#include "bridge/value.h"

#include <QtTest>

#include <string>

namespace {

constexpr bg::TypeId kTestPair = 200;

std::string writePair(const bg::Value& v)
{
    return "[pair]" + std::to_string(v.integer(0)) + "/" + std::to_string(v.integer(1));
}

bg::Value readPair(const char*, const char* body)
{
    int a = 0, b = 0;
    bg::Value v;
    if (std::sscanf(body, "%d/%d", &a, &b) == 2)
        v.setInts(kTestPair, a, b, 0, 0);
    return v;
}

} // namespace

class TestValue : public QObject
{
    Q_OBJECT

private slots:
    void scalarsCarryTheirType();
    void conversions_data();
    void conversions();
    void builtInTextForms_data();
    void builtInTextForms();
    void readRejects_data();
    void readRejects();
    void variantTextIsTakenAsItIs();
    void nullValueWritesNull();
    void stringLengthNeverReachesPastTheText_data();
    void stringLengthNeverReachesPastTheText();
    void registeredTypeRoundTrips();
    void registrationRefusesClashes();
    void clearDropsTypeAndPayload();
};

void TestValue::scalarsCarryTheirType()
{
    QCOMPARE(bg::Value().type(), bg::TypeId(0));
    QVERIFY(bg::Value().isNull());
    QCOMPARE(bg::Value(true).type(), bg::TypeId(bg::Value::kBool));
    QCOMPARE(bg::Value(7).type(), bg::TypeId(bg::Value::kInt));
    QCOMPARE(bg::Value(std::int64_t(7)).type(), bg::TypeId(bg::Value::kInt64));
    QCOMPARE(bg::Value(1.5).type(), bg::TypeId(bg::Value::kDouble));
    QCOMPARE(bg::Value("x").type(), bg::TypeId(bg::Value::kString));
    QCOMPARE(bg::Value(std::string("x")).type(), bg::TypeId(bg::Value::kString));
}

void TestValue::conversions_data()
{
    QTest::addColumn<int>("which");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("asInt");
    QTest::addColumn<double>("asDouble");
    QTest::addColumn<bool>("asBool");

    QTest::newRow("bool") << 0 << "true" << 1 << 1.0 << true;
    QTest::newRow("int") << 1 << "-42" << -42 << -42.0 << true;
    QTest::newRow("double") << 2 << "2.5" << 2 << 2.5 << true;
    QTest::newRow("numeric string") << 3 << "17" << 17 << 17.0 << false;
    QTest::newRow("word string") << 4 << "pallo" << -1 << -1.0 << false;
    QTest::newRow("untyped") << 5 << "" << -1 << -1.0 << false;
}

void TestValue::conversions()
{
    QFETCH(int, which);
    QFETCH(QString, text);
    QFETCH(int, asInt);
    QFETCH(double, asDouble);
    QFETCH(bool, asBool);

    const bg::Value values[] = {bg::Value(true), bg::Value(-42),     bg::Value(2.5),
                                bg::Value("17"), bg::Value("pallo"), bg::Value()};
    const bg::Value& v = values[which];
    QCOMPARE(QString::fromStdString(v.toStdString()), text);
    QCOMPARE(v.toInt(-1), asInt);
    QCOMPARE(v.toDouble(-1.0), asDouble);
    QCOMPARE(v.toBool(false), asBool);
}

void TestValue::builtInTextForms_data()
{
    QTest::addColumn<int>("which");
    QTest::addColumn<QString>("text");

    QTest::newRow("bool") << 0 << "[bool]true";
    QTest::newRow("int") << 1 << "[int]-42";
    QTest::newRow("int64") << 2 << "[int64]9000000000";
    QTest::newRow("double") << 3 << "[double]0.1";
    QTest::newRow("string") << 4 << "[str:6]a]b[cd";
    QTest::newRow("empty string") << 5 << "[str:0]";
}

void TestValue::builtInTextForms()
{
    QFETCH(int, which);
    QFETCH(QString, text);

    const bg::Value values[] = {
        bg::Value(true), bg::Value(-42),      bg::Value(std::int64_t(9000000000)),
        bg::Value(0.1),  bg::Value("a]b[cd"), bg::Value("")};
    const bg::Value& v = values[which];
    QCOMPARE(QString::fromStdString(v.write()), text);

    bg::Value back;
    QVERIFY(back.read(text.toUtf8().constData()));
    QCOMPARE(back.type(), v.type());
    QCOMPARE(back.toStdString(), v.toStdString());
}

void TestValue::readRejects_data()
{
    QTest::addColumn<QByteArray>("text");

    QTest::newRow("no bracket") << QByteArray("int]3");
    QTest::newRow("no closing bracket") << QByteArray("[int3");
    QTest::newRow("unknown type") << QByteArray("[nothing]3");
    QTest::newRow("null") << QByteArray("<null>");
    QTest::newRow("int junk") << QByteArray("[int]3x");
    QTest::newRow("int too large") << QByteArray("[int]3000000000");
    QTest::newRow("bool word") << QByteArray("[bool]yes");
    QTest::newRow("double empty") << QByteArray("[double]");
    QTest::newRow("string without length") << QByteArray("[str]abc");
}

void TestValue::readRejects()
{
    QFETCH(QByteArray, text);
    bg::Value v(5);
    QVERIFY(!v.read(text.constData()));
    QVERIFY(v.isNull());
    QVERIFY(!v.read(nullptr));
}

void TestValue::variantTextIsTakenAsItIs()
{
    bg::Value v;
    QVERIFY(v.read("<variant>[point]x:1;y:2"));
    QCOMPARE(v.type(), bg::TypeId(bg::Value::kString));
    QCOMPARE(v.toStdString(), std::string("[point]x:1;y:2"));

    bg::Value direct;
    direct.fast_set("[int]3");
    QCOMPARE(direct.type(), bg::TypeId(bg::Value::kString));
    QCOMPARE(direct.toStdString(), std::string("[int]3"));
}

void TestValue::nullValueWritesNull()
{
    QCOMPARE(bg::Value().write(), std::string("<null>"));
    bg::Value unknown;
    unknown.setInts(4321, 1, 2, 3, 4);
    QCOMPARE(unknown.write(), std::string("<null>"));
}

void TestValue::stringLengthNeverReachesPastTheText_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<bool>("ok");
    QTest::addColumn<QByteArray>("content");

    QTest::newRow("shorter than body") << QByteArray("[str:2]abcdef") << true << QByteArray("ab");
    QTest::newRow("exact") << QByteArray("[str:3]abc") << true << QByteArray("abc");
    QTest::newRow("longer than body") << QByteArray("[str:4]abc") << false << QByteArray();
    QTest::newRow("negative") << QByteArray("[str:-1]abc") << false << QByteArray();
    QTest::newRow("huge") << QByteArray("[str:99999999999999999999]abc") << false << QByteArray();
}

void TestValue::stringLengthNeverReachesPastTheText()
{
    QFETCH(QByteArray, text);
    QFETCH(bool, ok);
    QFETCH(QByteArray, content);

    bg::Value v;
    QCOMPARE(v.read(text.constData()), ok);
    QCOMPARE(QByteArray::fromStdString(v.toStdString()), content);
}

void TestValue::registeredTypeRoundTrips()
{
    QVERIFY(bg::regist_value_type(kTestPair, "pair", writePair, readPair));
    bg::Value v;
    v.setInts(kTestPair, 3, -9, 0, 0);
    QCOMPARE(v.write(), std::string("[pair]3/-9"));
    QCOMPARE(v.toStdString(), std::string("[pair]3/-9"));

    bg::Value back;
    QVERIFY(back.read("[pair]3/-9"));
    QCOMPARE(back.type(), kTestPair);
    QCOMPARE(back.integer(0), 3);
    QCOMPARE(back.integer(1), -9);

    QVERIFY(!back.read("[pair]3"));
    QCOMPARE(back.type(), bg::TypeId(0));
}

void TestValue::registrationRefusesClashes()
{
    QVERIFY(!bg::regist_value_type(0, "zero", writePair, readPair));
    QVERIFY(!bg::regist_value_type(201, "", writePair, readPair));
    QVERIFY(!bg::regist_value_type(201, nullptr, writePair, readPair));
    QVERIFY(!bg::regist_value_type(201, "nowriter", nullptr, readPair));
    QVERIFY(!bg::regist_value_type(201, "noreader", writePair, nullptr));
    QVERIFY(!bg::regist_value_type(201, "bad:name", writePair, readPair));
    QVERIFY(!bg::regist_value_type(bg::Value::kInt, "other", writePair, readPair));
    QVERIFY(!bg::regist_value_type(202, "int", writePair, readPair));
    // The same pair again is accepted.
    QVERIFY(bg::regist_value_type(203, "again", writePair, readPair));
    QVERIFY(bg::regist_value_type(203, "again", writePair, readPair));

    bg::Value stillInt;
    QVERIFY(stillInt.read("[int]5"));
    QCOMPARE(stillInt.toInt(), 5);
}

void TestValue::clearDropsTypeAndPayload()
{
    bg::Value v("text");
    v.clear();
    QVERIFY(v.isNull());
    QCOMPARE(v.toStdString(), std::string());
    QCOMPARE(v.write(), std::string("<null>"));
}

QTEST_APPLESS_MAIN(TestValue)
#include "test-value.moc"
