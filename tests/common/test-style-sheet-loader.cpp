// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "common/style-sheet-loader.h"

#include "common/scale-factor.h"
#include "tests/test-output.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QPushButton>
#include <QtTest>

namespace {

QString resourceText(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return QString();
    }
    return QString::fromUtf8(file.readAll());
}

const QString samplePath = QStringLiteral(":/test/sample.css");

} // namespace

class TestStyleSheetLoader : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();
    void scaling_data();
    void scaling();
    void replacementIsNotScannedAgain();
    void sampleAppliedByteForByteAt96Dpi();
    void sampleScaledAt144Dpi();
    void scaledSizeReachesTheWidgets();
    void missingFileSetsNothing();
    void boardStyleSheetFollowsTheScreen();
};

void TestStyleSheetLoader::cleanup()
{
    qApp->setStyleSheet(QString());
}

void TestStyleSheetLoader::scaling_data()
{
    QTest::addColumn<double>("dpi");
    QTest::addColumn<QString>("input");
    QTest::addColumn<QString>("expected");

    QTest::newRow("96 dpi keeps every byte") << 96.0 << "QLabel{font-size:13px;padding:12px;}"
                                             << "QLabel{font-size:13px;padding:12px;}";
    QTest::newRow("72 dpi keeps every byte") << 72.0 << "a{width:10px;}"
                                             << "a{width:10px;}";
    QTest::newRow("120 dpi 13px") << 120.0 << "font-size:13px;"
                                  << "font-size:16.25px;";
    QTest::newRow("120 dpi 12px") << 120.0 << "font-size:12px;"
                                  << "font-size:15px;";
    QTest::newRow("120 dpi blank after px") << 120.0 << "padding:12px 4px;"
                                            << "padding:12px 5px;";
    QTest::newRow("120 dpi brace after px") << 120.0 << "a{padding:12px}"
                                            << "a{padding:12px}";
    QTest::newRow("144 dpi several") << 144.0 << "a{width:10px;height:7px;margin:0px;}"
                                     << "a{width:15px;height:10.5px;margin:0px;}";
    QTest::newRow("144 dpi in a value list") << 144.0 << "border:1px solid #12px;"
                                             << "border:1px solid #18px;";
    QTest::newRow("144 dpi large") << 144.0 << "width:1234567px;"
                                   << "width:1.85185e+06px;";
    QTest::newRow("192 dpi no semicolon anywhere") << 192.0 << "a{b:3px}"
                                                   << "a{b:3px}";
    QTest::newRow("192 dpi non-ASCII around") << 192.0 << "/* 设置 */ x:5px; /* 关闭 */"
                                              << "/* 设置 */ x:10px; /* 关闭 */";
}

void TestStyleSheetLoader::scaling()
{
    QFETCH(double, dpi);
    QFETCH(QString, input);
    QFETCH(QString, expected);
    QCOMPARE(scaleStyleSheet(input, dpi / 96.0), expected);
}

void TestStyleSheetLoader::replacementIsNotScannedAgain()
{
    // 2 * 5 = 10; "10px;" must not be found and doubled once more.
    QCOMPARE(scaleStyleSheet("a:5px;b:5px;", 2.0), QStringLiteral("a:10px;b:10px;"));
    QCOMPARE(scaleStyleSheet("a:1px;", 11.0), QStringLiteral("a:11px;"));
}

void TestStyleSheetLoader::sampleAppliedByteForByteAt96Dpi()
{
    const QString original = resourceText(samplePath);
    QVERIFY(original.contains(QStringLiteral("微软雅黑")));
    QVERIFY(applyStyleSheetFile(samplePath, 96.0 / 96.0));
    QCOMPARE(qApp->styleSheet(), original);
}

void TestStyleSheetLoader::sampleScaledAt144Dpi()
{
    QVERIFY(applyStyleSheetFile(samplePath, 144.0 / 96.0));
    const QString applied = qApp->styleSheet();
    QVERIFY(applied.contains(QStringLiteral("font-size: 19.5px;")));
    QVERIFY(applied.contains(QStringLiteral("min-width: 18px;")));
    QVERIFY(applied.contains(QStringLiteral("margin:6px;")));
    QVERIFY(applied.contains(QStringLiteral("border: 1px solid")));
    QVERIFY(applied.contains(QStringLiteral("padding: 12px }")));
    QVERIFY(applied.contains(QStringLiteral("padding:12px}")));
    QVERIFY(applied.contains(QStringLiteral("微软雅黑")));
}

void TestStyleSheetLoader::scaledSizeReachesTheWidgets()
{
    const auto minimumWith = [](const QString& styleSheet) {
        qApp->setStyleSheet(styleSheet);
        QPushButton button;
        button.ensurePolished();
        return button.minimumSize();
    };
    const QSize designed =
        minimumWith(QStringLiteral("QPushButton{min-width:60px;min-height:30px;}"));

    const QString path =
        QDir(testOutputFolder()).filePath(QStringLiteral("style-sheet-loader-size.css"));
    QFile css(path);
    QVERIFY(css.open(QIODevice::WriteOnly | QIODevice::Truncate));
    css.write("QPushButton{min-width:40px;min-height:20px;}");
    css.close();

    QVERIFY(applyStyleSheetFile(path, 1.5));
    QPushButton button;
    button.ensurePolished();
    QCOMPARE(button.minimumSize(), designed);
    QVERIFY(designed !=
            minimumWith(QStringLiteral("QPushButton{min-width:40px;min-height:20px;}")));
}

void TestStyleSheetLoader::missingFileSetsNothing()
{
    qApp->setStyleSheet(QStringLiteral("QWidget{color:#ff0000;}"));
    QVERIFY(!applyStyleSheetFile(QStringLiteral(":/test/no-such.css"), 1.5));
    QCOMPARE(qApp->styleSheet(), QStringLiteral("QWidget{color:#ff0000;}"));
}

void TestStyleSheetLoader::boardStyleSheetFollowsTheScreen()
{
    const QString board = resourceText(QStringLiteral(":/images/qss.css"));
    qApp->setStyleSheet(QStringLiteral("QWidget{color:#00ff00;}"));
    const bool loaded = loadApplicationStyleSheet();
    QCOMPARE(loaded, QFile::exists(QStringLiteral(":/images/qss.css")));
    if (loaded) {
        QCOMPARE(qApp->styleSheet(), scaleStyleSheet(board, screenScaleFactor()));
    } else {
        QCOMPARE(qApp->styleSheet(), QStringLiteral("QWidget{color:#00ff00;}"));
    }
}

QTEST_MAIN(TestStyleSheetLoader)
#include "test-style-sheet-loader.moc"
