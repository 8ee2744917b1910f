// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "bridge/control-escape.h"

#include <QtTest>

class TestControlEscape : public QObject
{
    Q_OBJECT

private slots:
    void escapesControls_data();
    void escapesControls();
};

void TestControlEscape::escapesControls_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("escaped");

    QTest::newRow("plain") << QByteArray("{\"type\":[1]}") << QByteArray("{\"type\":[1]}");
    QTest::newRow("empty") << QByteArray() << QByteArray();
    QTest::newRow("new line") << QByteArray("a\nb") << QByteArray("a\\nb");
    QTest::newRow("carriage return and tab") << QByteArray("a\r\tb") << QByteArray("a\\r\\tb");
    QTest::newRow("terminal escape") << QByteArray("\x1b[31mred") << QByteArray("\\x1b[31mred");
    QTest::newRow("nul") << QByteArray("a\0b", 3) << QByteArray("a\\x00b");
    QTest::newRow("delete") << QByteArray("a\x7f") << QByteArray("a\\x7f");
    QTest::newRow("C1 control sequence introducer") << QByteArray("a\xc2\x9b"
                                                                  "31m")
                                                    << QByteArray("a\\u009b31m");
    QTest::newRow("other UTF-8 kept")
        << QByteArray("\xe4\xb8\xad\xc2\xa0\xc3\xa9") << QByteArray("\xe4\xb8\xad\xc2\xa0\xc3\xa9");
    QTest::newRow("lone lead byte at the end") << QByteArray("a\xc2") << QByteArray("a\xc2");
    QTest::newRow("backslash kept") << QByteArray("a\\nb") << QByteArray("a\\nb");
}

void TestControlEscape::escapesControls()
{
    QFETCH(QByteArray, text);
    QFETCH(QByteArray, escaped);
    const std::string result = bg::escape_control(
        std::string_view(text.constData(), static_cast<std::size_t>(text.size())));
    QCOMPARE(QByteArray::fromStdString(result), escaped);
}

QTEST_APPLESS_MAIN(TestControlEscape)
#include "test-control-escape.moc"
