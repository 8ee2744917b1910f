// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "app/scale-factor.h"

#include <QGuiApplication>
#include <QProcess>
#include <QScreen>
#include <QtTest>

#include <cstdio>

namespace {

const char* const printOption = "--print-scale-factor";

} // namespace

// The screen's DPI is fixed when the application starts, so each DPI is measured
// in a fresh copy of this program started with QT_FONT_DPI set.
class TestScaleFactor : public QObject
{
    Q_OBJECT

private slots:
    void followsLogicalDpi_data();
    void followsLogicalDpi();
    void matchesThePrimaryScreen();
};

void TestScaleFactor::followsLogicalDpi_data()
{
    QTest::addColumn<QString>("dpi");
    QTest::addColumn<QString>("factor");
    QTest::newRow("96") << "96"
                        << "1";
    QTest::newRow("120") << "120"
                         << "1.25";
    QTest::newRow("144") << "144"
                         << "1.5";
    QTest::newRow("192") << "192"
                         << "2";
    QTest::newRow("72") << "72"
                        << "0.75";
}

void TestScaleFactor::followsLogicalDpi()
{
    QFETCH(QString, dpi);
    QFETCH(QString, factor);
    QProcess child;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_FONT_DPI"), dpi);
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    child.setProcessEnvironment(environment);
    child.start(QCoreApplication::applicationFilePath(), {QString::fromLatin1(printOption)});
    QVERIFY(child.waitForFinished(30000));
    QCOMPARE(child.exitCode(), 0);
    QCOMPARE(QString::fromLatin1(child.readAllStandardOutput()).trimmed(), factor);
}

void TestScaleFactor::matchesThePrimaryScreen()
{
    QCOMPARE(screenScaleFactor(), QGuiApplication::primaryScreen()->logicalDotsPerInch() / 96.0);
}

int main(int argc, char* argv[])
{
    if (argc == 2 && qstrcmp(argv[1], printOption) == 0) {
        QGuiApplication app(argc, argv);
        std::printf("%.6g\n", screenScaleFactor());
        return 0;
    }
    QGuiApplication app(argc, argv);
    TestScaleFactor test;
    return QTest::qExec(&test, argc, argv);
}

#include "test-scale-factor.moc"
