// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "common/scale-factor.h"

#include <QGuiApplication>
#include <QProcess>
#include <QScreen>
#include <QtTest>

#include <cstdio>

namespace {

const char* const printOption = "--print-scale-factor";
const char* const printBoardOption = "--print-board-scaling";

// Runs this program again with the given DPI and option; returns what it printed.
QString childOutput(const QString& dpi, const char* option)
{
    QProcess child;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_FONT_DPI"), dpi);
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    environment.remove(QStringLiteral("QT_ENABLE_HIGHDPI_SCALING"));
    environment.remove(QStringLiteral("QT_SCALE_FACTOR"));
    child.setProcessEnvironment(environment);
    child.start(QCoreApplication::applicationFilePath(), {QString::fromLatin1(option)});
    if (!child.waitForFinished(30000) || child.exitCode() != 0)
        return QStringLiteral("child failed");
    return QString::fromLatin1(child.readAllStandardOutput()).trimmed();
}

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
    void boardWindowsAreNotScaledByQt_data();
    void boardWindowsAreNotScaledByQt();
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
    QCOMPARE(childOutput(dpi, printOption), factor);
}

void TestScaleFactor::matchesThePrimaryScreen()
{
    QCOMPARE(screenScaleFactor(), QGuiApplication::primaryScreen()->logicalDotsPerInch() / 96.0);
}

// The board's own scale factor, then the device pixel ratio Qt draws its windows with.
void TestScaleFactor::boardWindowsAreNotScaledByQt_data()
{
    QTest::addColumn<QString>("dpi");
    QTest::addColumn<QString>("printed");
    QTest::newRow("96") << "96"
                        << "1 1";
    QTest::newRow("120") << "120"
                         << "1.25 1";
    QTest::newRow("192") << "192"
                         << "2 1";
}

void TestScaleFactor::boardWindowsAreNotScaledByQt()
{
    QFETCH(QString, dpi);
    QFETCH(QString, printed);
    QCOMPARE(childOutput(dpi, printBoardOption), printed);
}

int main(int argc, char* argv[])
{
    if (argc == 2 && qstrcmp(argv[1], printBoardOption) == 0) {
        leaveScalingToTheBoard();
        QGuiApplication app(argc, argv);
        std::printf("%.6g %.6g\n", screenScaleFactor(),
                    QGuiApplication::primaryScreen()->devicePixelRatio());
        return 0;
    }
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
