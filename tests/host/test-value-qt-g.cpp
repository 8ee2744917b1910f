// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "bridge/value-registry.h"
#include "host/value-qt-g.h"
#include "host/value-qt.h"

#include <QtTest>

class TestValueQtG : public QObject
{
    Q_OBJECT

private slots:
    void typesAreRegistered();
    void colorWrite_data();
    void colorWrite();
    void colorRead_data();
    void colorRead();
    void translucentColorComesBackOpaque();
    void fontRoundTrip();
    void fontRead_data();
    void fontRead();
    void readRejects_data();
    void readRejects();
    void variantTextBecomesAString();
    void coreTypesReadThroughTheRegistry();
};

void TestValueQtG::typesAreRegistered()
{
    bg::ValueType type;
    QVERIFY(bg::find_value_type(bg::TypeId(39), &type));
    QCOMPARE(type.name, std::string("font"));
    QVERIFY(bg::find_value_type(bg::TypeId(40), &type));
    QCOMPARE(type.name, std::string("color"));
}

void TestValueQtG::colorWrite_data()
{
    QTest::addColumn<QColor>("color");
    QTest::addColumn<QByteArray>("text");

    QTest::newRow("half red") << QColor(255, 0, 0, 128) << QByteArray("[color]#ff0000");
    QTest::newRow("opaque") << QColor(18, 52, 86) << QByteArray("[color]#123456");
    QTest::newRow("black") << QColor(Qt::black) << QByteArray("[color]#000000");
    QTest::newRow("white") << QColor(Qt::white) << QByteArray("[color]#ffffff");
}

void TestValueQtG::colorWrite()
{
    QFETCH(QColor, color);
    QFETCH(QByteArray, text);
    const bg::ValueQtG v(color);
    QCOMPARE(v.type(), bg::TypeId(bg::ValueQtG::kColor));
    QCOMPARE(QByteArray::fromStdString(v.write()), text);
    const bg::Value plain = v;
    QCOMPARE(QByteArray::fromStdString(plain.write()), text);
}

void TestValueQtG::colorRead_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<quint32>("rgba");

    QTest::newRow("hex") << QByteArray("[color]#00ff00") << quint32(0xff00ff00);
    QTest::newRow("name") << QByteArray("[color]red") << quint32(0xffff0000);
    QTest::newRow("with alpha") << QByteArray("[color]#80102030") << quint32(0x80102030);
    QTest::newRow("invalid name") << QByteArray("[color]nonsense") << quint32(QColor().rgba());
    QTest::newRow("empty") << QByteArray("[color]") << quint32(QColor().rgba());
}

void TestValueQtG::colorRead()
{
    QFETCH(QByteArray, text);
    QFETCH(quint32, rgba);
    bg::ValueQtG v;
    QVERIFY(v.read(text.constData()));
    QCOMPARE(v.type(), bg::TypeId(bg::ValueQtG::kColor));
    QCOMPARE(v.word(), rgba);
    QCOMPARE(v.toColor().rgba(), rgba);
}

void TestValueQtG::translucentColorComesBackOpaque()
{
    const bg::ValueQtG v(QColor(10, 20, 30, 40));
    bg::ValueQtG back;
    QVERIFY(back.read(v.write().c_str()));
    QCOMPARE(back.toColor(), QColor(10, 20, 30));
    QCOMPARE(back.toColor().alpha(), 255);
}

void TestValueQtG::fontRoundTrip()
{
    QFont font("DejaVu Sans", 13);
    font.setBold(true);
    const bg::ValueQtG v(font);
    QCOMPARE(v.type(), bg::TypeId(bg::ValueQtG::kFont));
    QCOMPARE(QString::fromStdString(v.write()), "[font]" + font.toString());
    bg::ValueQtG back;
    QVERIFY(back.read(v.write().c_str()));
    QCOMPARE(back.fontDescription(), font.toString());
    QCOMPARE(back.toFont().family(), QString("DejaVu Sans"));
    QCOMPARE(back.toFont().pointSize(), 13);
    QVERIFY(back.toFont().bold());
}

void TestValueQtG::fontRead_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("description");

    QTest::newRow("description") << QByteArray("[font]Sans,10,-1,5,50,0,0,0,0,0")
                                 << "Sans,10,-1,5,50,0,0,0,0,0";
    QTest::newRow("empty") << QByteArray("[font]") << "";
    QTest::newRow("any text") << QByteArray("[font]not a font") << "not a font";
}

void TestValueQtG::fontRead()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, description);
    bg::ValueQtG v;
    QVERIFY(v.read(text.constData()));
    QCOMPARE(v.type(), bg::TypeId(bg::ValueQtG::kFont));
    QCOMPARE(v.fontDescription(), description);
    QCOMPARE(QString::fromStdString(v.write()), "[font]" + description);
}

void TestValueQtG::readRejects_data()
{
    QTest::addColumn<QByteArray>("text");

    QTest::newRow("missing bracket") << QByteArray("[color#ff0000");
    QTest::newRow("null") << QByteArray("<null>]");
    QTest::newRow("too short") << QByteArray("[c]");
    QTest::newRow("unknown") << QByteArray("[colour]#ff0000");
}

void TestValueQtG::readRejects()
{
    QFETCH(QByteArray, text);
    bg::ValueQtG v(QColor(Qt::red));
    QVERIFY(!v.read(text.constData()));
    QCOMPARE(v.type(), bg::TypeId(0));
}

void TestValueQtG::variantTextBecomesAString()
{
    bg::ValueQtG v;
    QVERIFY(v.read("<variant>#ff0000"));
    QCOMPARE(v.type(), bg::TypeId(bg::Value::kString));
    QCOMPARE(v.toStdString(), std::string("#ff0000"));
}

void TestValueQtG::coreTypesReadThroughTheRegistry()
{
    bg::ValueQtG v;
    QVERIFY(v.read("[point]x:3;y:-4"));
    QCOMPARE(v.type(), bg::TypeId(bg::ValueQt::kPoint));
    QCOMPARE(bg::ValueQt(v).toPoint(), QPoint(3, -4));
}

QTEST_MAIN(TestValueQtG)
#include "test-value-qt-g.moc"
