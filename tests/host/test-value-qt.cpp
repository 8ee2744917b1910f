// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "bridge/value-registry.h"
#include "host/value-qt.h"
#include "tests/bridge/stderr-capture.h"

#include <QtTest>

#include <climits>

namespace {

bg::ValueQt fromVariant(const QVariant& v)
{
    switch (static_cast<QMetaType::Type>(v.userType())) {
    case QMetaType::QString:
        return bg::ValueQt(v.toString());
    case QMetaType::QRectF:
        return bg::ValueQt(v.toRectF());
    case QMetaType::QRect:
        return bg::ValueQt(v.toRect());
    case QMetaType::QPointF:
        return bg::ValueQt(v.toPointF());
    case QMetaType::QPoint:
        return bg::ValueQt(v.toPoint());
    case QMetaType::QSizeF:
        return bg::ValueQt(v.toSizeF());
    case QMetaType::QSize:
        return bg::ValueQt(v.toSize());
    default:
        return bg::ValueQt();
    }
}

QVariant toVariant(const bg::ValueQt& v)
{
    switch (v.type()) {
    case bg::ValueQt::kQString:
        return v.toQString();
    case bg::ValueQt::kRectF:
        return v.toRectF();
    case bg::ValueQt::kRect:
        return v.toRect();
    case bg::ValueQt::kPointF:
        return v.toPointF();
    case bg::ValueQt::kPoint:
        return v.toPoint();
    case bg::ValueQt::kSizeF:
        return v.toSizeF();
    case bg::ValueQt::kSize:
        return v.toSize();
    default:
        return QVariant();
    }
}

} // namespace

class TestValueQt : public QObject
{
    Q_OBJECT

private slots:
    void typesAreRegistered_data();
    void typesAreRegistered();
    void write_data();
    void write();
    void roundTrip_data();
    void roundTrip();
    void read_data();
    void read();
    void readRejects_data();
    void readRejects();
    void variantTextBecomesAString();
    void qstrLengthStaysInsideTheText_data();
    void qstrLengthStaysInsideTheText();
    void qstrWithoutLengthIsReported();
    void otherTypesUseTheBaseForms();
    void accessorsOfOtherTypesGiveEmptyObjects();
};

void TestValueQt::typesAreRegistered_data()
{
    QTest::addColumn<int>("id");
    QTest::addColumn<QString>("name");

    QTest::newRow("qstr") << 31 << "qstr";
    QTest::newRow("rectf") << 32 << "rectf";
    QTest::newRow("rect") << 33 << "rect";
    QTest::newRow("pointf") << 34 << "pointf";
    QTest::newRow("point") << 35 << "point";
    QTest::newRow("sizef") << 36 << "sizef";
    QTest::newRow("size") << 37 << "size";
}

void TestValueQt::typesAreRegistered()
{
    QFETCH(int, id);
    QFETCH(QString, name);
    bg::ValueType type;
    QVERIFY(bg::find_value_type(bg::TypeId(id), &type));
    QCOMPARE(QString::fromStdString(type.name), name);
    QVERIFY(!bg::find_value_type(bg::TypeId(38), &type));
}

void TestValueQt::write_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QByteArray>("text");

    QTest::newRow("qstr") << QVariant(QString::fromUtf8("h\xc3\xa9llo"))
                          << QByteArray("[qstr:6]h\xc3\xa9llo");
    QTest::newRow("qstr empty") << QVariant(QString()) << QByteArray("[qstr:0]");
    QTest::newRow("qstr with bracket") << QVariant(QString("a]b")) << QByteArray("[qstr:3]a]b");
    QTest::newRow("rectf") << QVariant(QRectF(1.5, 2, 3.25, -4))
                           << QByteArray("[rectf]x:1.500000;y:2.000000;w:3.250000;h:-4.000000");
    QTest::newRow("rect") << QVariant(QRect(1, 2, 3, 4)) << QByteArray("[rect]x:1;y:2;w:3;h:4");
    QTest::newRow("pointf") << QVariant(QPointF(0.5, -1))
                            << QByteArray("[pointf]x:0.500000;y:-1.000000");
    QTest::newRow("point") << QVariant(QPoint(3, -4)) << QByteArray("[point]x:3;y:-4");
    QTest::newRow("sizef") << QVariant(QSizeF(2.5, 3))
                           << QByteArray("[sizef]w:2.500000;h:3.000000");
    QTest::newRow("size") << QVariant(QSize(640, 480)) << QByteArray("[size]w:640;h:480");
}

void TestValueQt::write()
{
    QFETCH(QVariant, value);
    QFETCH(QByteArray, text);
    const bg::ValueQt v = fromVariant(value);
    QCOMPARE(QByteArray::fromStdString(v.write()), text);
    // The registry writes the same text for a plain bridge value of that type.
    const bg::Value plain = v;
    QCOMPARE(QByteArray::fromStdString(plain.write()), text);
}

void TestValueQt::roundTrip_data()
{
    write_data();
}

void TestValueQt::roundTrip()
{
    QFETCH(QVariant, value);
    const bg::ValueQt v = fromVariant(value);
    bg::ValueQt back;
    QVERIFY(back.read(v.write().c_str()));
    QCOMPARE(back.type(), v.type());
    QCOMPARE(toVariant(back), value);
}

void TestValueQt::read_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QVariant>("value");

    QTest::newRow("point") << QByteArray("[point]x:3;y:-4") << QVariant(QPoint(3, -4));
    QTest::newRow("point labels ignored")
        << QByteArray("[point]a:3;b:-4") << QVariant(QPoint(3, -4));
    QTest::newRow("qstr takes its length")
        << QByteArray("[qstr:3]abcdef") << QVariant(QString("abc"));
    QTest::newRow("qstr zero") << QByteArray("[qstr:0]abc") << QVariant(QString(""));
    QTest::newRow("rect") << QByteArray("[rect]x:-1;y:2;w:30;h:40")
                          << QVariant(QRect(-1, 2, 30, 40));
    QTest::newRow("rect reaching past the int range")
        << QByteArray("[rect]x:1;y:2;w:2147483647;h:2147483647")
        << QVariant(QRect(QPoint(1, 2), QPoint(INT_MAX, INT_MIN)));
    QTest::newRow("rectf short numbers")
        << QByteArray("[rectf]x:1.5;y:2;w:3;h:4") << QVariant(QRectF(1.5, 2, 3, 4));
    QTest::newRow("pointf") << QByteArray("[pointf]x:-0.25;y:8") << QVariant(QPointF(-0.25, 8));
    QTest::newRow("sizef") << QByteArray("[sizef]w:1;h:2.5") << QVariant(QSizeF(1, 2.5));
    QTest::newRow("size") << QByteArray("[size]w:7;h:9") << QVariant(QSize(7, 9));
}

void TestValueQt::read()
{
    QFETCH(QByteArray, text);
    QFETCH(QVariant, value);
    bg::ValueQt v;
    QVERIFY(v.read(text.constData()));
    QCOMPARE(toVariant(v), value);
}

void TestValueQt::readRejects_data()
{
    QTest::addColumn<QByteArray>("text");

    QTest::newRow("point short") << QByteArray("[point]x:3");
    QTest::newRow("point not a number") << QByteArray("[point]x:a;y:2");
    QTest::newRow("point empty labels") << QByteArray("[point]:3;:4");
    QTest::newRow("pointf short") << QByteArray("[pointf]x:1.5");
    QTest::newRow("rect short") << QByteArray("[rect]x:1;y:2;w:3");
    QTest::newRow("rectf short") << QByteArray("[rectf]x:1;y:2;w:3");
    QTest::newRow("size short") << QByteArray("[size]w:1");
    QTest::newRow("sizef short") << QByteArray("[sizef]w:1.5");
    QTest::newRow("missing bracket") << QByteArray("[point x:3;y:4");
    QTest::newRow("null") << QByteArray("<null>");
    QTest::newRow("null with bracket") << QByteArray("<null>]");
    QTest::newRow("too short") << QByteArray("[a]");
    QTest::newRow("empty") << QByteArray("");
    QTest::newRow("unknown type") << QByteArray("[widget]x:1");
    QTest::newRow("no opening bracket") << QByteArray("xpoint]x:1;y:2");
}

void TestValueQt::readRejects()
{
    QFETCH(QByteArray, text);
    bg::ValueQt v(QPoint(1, 1));
    QVERIFY(!v.read(text.constData()));
    QCOMPARE(v.type(), bg::TypeId(0));
    QVERIFY(!v.read(nullptr));
}

void TestValueQt::variantTextBecomesAString()
{
    bg::ValueQt v;
    QVERIFY(v.read("<variant>[point]x:1;y:2"));
    QCOMPARE(v.type(), bg::TypeId(bg::Value::kString));
    QCOMPARE(v.toQString(), QString("[point]x:1;y:2"));
}

void TestValueQt::qstrLengthStaysInsideTheText_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<bool>("ok");
    QTest::addColumn<QString>("content");

    QTest::newRow("exact") << QByteArray("[qstr:3]abc") << true << "abc";
    QTest::newRow("one past the end") << QByteArray("[qstr:4]abc") << false << "";
    QTest::newRow("far past the end") << QByteArray("[qstr:100000]abc") << false << "";
    QTest::newRow("beyond int") << QByteArray("[qstr:4294967299]abc") << false << "";
    QTest::newRow("negative") << QByteArray("[qstr:-1]abc") << false << "";
    QTest::newRow("empty body") << QByteArray("[qstr:1]") << false << "";
}

void TestValueQt::qstrLengthStaysInsideTheText()
{
    QFETCH(QByteArray, text);
    QFETCH(bool, ok);
    QFETCH(QString, content);
    StderrCapture capture;
    bg::ValueQt v;
    QCOMPARE(v.read(text.constData()), ok);
    QCOMPARE(v.type(), bg::TypeId(ok ? bg::ValueQt::kQString : 0));
    QCOMPARE(v.toQString(), content);
    for (const QString& line : capture.lines()) {
        QVERIFY2(line.startsWith("> bg::Value:read() err: type='qstr:"), qPrintable(line));
        QVERIFY2(line.endsWith("'len' out of range."), qPrintable(line));
    }
}

void TestValueQt::qstrWithoutLengthIsReported()
{
    StderrCapture capture;
    bg::ValueQt v;
    QVERIFY(!v.read("[qstr:]abc"));
    QCOMPARE(v.type(), bg::TypeId(0));
    const QStringList lines = capture.lines();
    QVERIFY(!lines.isEmpty());
    for (const QString& line : lines)
        QCOMPARE(line, QString("> bg::Value:read() err: type='qstr:', missing 'len'."));
}

void TestValueQt::otherTypesUseTheBaseForms()
{
    const bg::ValueQt number(bg::Value(5));
    QCOMPARE(number.write(), std::string("[int]5"));
    QCOMPARE(bg::ValueQt().write(), std::string("<null>"));
    bg::ValueQt v;
    QVERIFY(v.read("[int]12"));
    QCOMPARE(v.toInt(), 12);
    QVERIFY(v.read("[str:2]ok"));
    QCOMPARE(v.toQString(), QString("ok"));
}

void TestValueQt::accessorsOfOtherTypesGiveEmptyObjects()
{
    const bg::ValueQt point(QPoint(3, 4));
    QCOMPARE(point.toRect(), QRect());
    QCOMPARE(point.toPointF(), QPointF());
    QCOMPARE(point.toSize(), QSize());
    QCOMPARE(point.toQString(), QString());
    const bg::ValueQt size(QSize(5, 6));
    QCOMPARE(size.toRect(), QRect());
    QCOMPARE(size.toSize(), QSize(5, 6));
}

QTEST_APPLESS_MAIN(TestValueQt)
#include "test-value-qt.moc"
