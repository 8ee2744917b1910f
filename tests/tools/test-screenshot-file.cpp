// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "bridge/bridge.h"
#include "tests/bridge/stderr-capture.h"
#include "tools/screenshot-file.h"

#include <QStandardPaths>
#include <QtTest>

#include <ctime>

using namespace screenshot_file;

namespace {
std::time_t localTime(int year, int month, int day, int hour, int minute, int second)
{
    std::tm parts{};
    parts.tm_year = year - 1900;
    parts.tm_mon = month - 1;
    parts.tm_mday = day;
    parts.tm_hour = hour;
    parts.tm_min = minute;
    parts.tm_sec = second;
    parts.tm_isdst = -1;
    return std::mktime(&parts);
}
} // namespace

class TestScreenshotFile : public QObject
{
    Q_OBJECT
private slots:
    void cleanup();
    void namedAfterTheSecond();
    void stampsArePaddedLocalTime_data();
    void stampsArePaddedLocalTime();
    void emptyFormatEndsInADot();
    void withoutBridgeTheDefaults();
    void absentKeysAreStoredWithDefaults();
    void storedValuesWinAndFormatIsSimplified();
    void folderThatIsNotATextIsReported();
};

void TestScreenshotFile::cleanup()
{
    bg::UninitBridge();
}

void TestScreenshotFile::namedAfterTheSecond()
{
    const QString stamp = timeStamp(localTime(2024, 5, 1, 13, 45, 7));
    QCOMPARE(filePath("/home/ann/shots", stamp, "jpg"),
             QString("/home/ann/shots/2024-05-01-13-45-07.jpg"));
}

void TestScreenshotFile::stampsArePaddedLocalTime_data()
{
    QTest::addColumn<int>("year");
    QTest::addColumn<int>("month");
    QTest::addColumn<int>("day");
    QTest::addColumn<int>("hour");
    QTest::addColumn<int>("minute");
    QTest::addColumn<int>("second");
    QTest::addColumn<QString>("stamp");
    QTest::newRow("new year") << 2026 << 1 << 1 << 0 << 0 << 0 << "2026-01-01-00-00-00";
    QTest::newRow("new year's eve") << 2025 << 12 << 31 << 23 << 59 << 59 << "2025-12-31-23-59-59";
}

void TestScreenshotFile::stampsArePaddedLocalTime()
{
    QFETCH(int, year);
    QFETCH(int, month);
    QFETCH(int, day);
    QFETCH(int, hour);
    QFETCH(int, minute);
    QFETCH(int, second);
    QFETCH(QString, stamp);
    QCOMPARE(timeStamp(localTime(year, month, day, hour, minute, second)), stamp);
}

void TestScreenshotFile::emptyFormatEndsInADot()
{
    QCOMPARE(filePath("/tmp", "2024-05-01-13-45-07", ""), QString("/tmp/2024-05-01-13-45-07."));
}

void TestScreenshotFile::withoutBridgeTheDefaults()
{
    QVERIFY(bg::GetBridge() == nullptr);
    const Target target = configuredTarget();
    QCOMPARE(target.folder, QStandardPaths::writableLocation(QStandardPaths::DesktopLocation));
    QCOMPARE(target.format, QString("png"));
}

void TestScreenshotFile::absentKeysAreStoredWithDefaults()
{
    QVERIFY(qEnvironmentVariableIsSet("PALLO_BRIDGE_CONFIG"));
    QFile::remove(qEnvironmentVariable("PALLO_BRIDGE_CONFIG"));
    QVERIFY(bg::InitBridge(0, nullptr));
    const Target target = configuredTarget();
    const QString desktop = QStandardPaths::writableLocation(QStandardPaths::DesktopLocation);
    QCOMPARE(target.folder, desktop);
    QCOMPARE(target.format, QString("png"));
    bg::ConfigStore& config = bg::GetBridge()->config();
    QCOMPARE(QString::fromStdString(config.get("screen.shot.path").toStdString()), desktop);
    QCOMPARE(QString::fromStdString(config.get("screen.shot.format").toStdString()),
             QString("png"));
}

void TestScreenshotFile::storedValuesWinAndFormatIsSimplified()
{
    QVERIFY(bg::InitBridge(0, nullptr));
    bg::ConfigStore& config = bg::GetBridge()->config();
    const QString folder = QString::fromUtf8("/tmp/Bildschirmfotos-\xc3\xa4\xc3\xb6");
    QVERIFY(config.set("screen.shot.path", bg::Value(folder.toStdString())));
    QVERIFY(config.set("screen.shot.format", bg::Value("  jpg \t")));
    const Target target = configuredTarget();
    QCOMPARE(target.folder, folder);
    QCOMPARE(target.format, QString("jpg"));
    // An empty format is a value of its own, not a missing one.
    QVERIFY(config.set("screen.shot.format", bg::Value("")));
    QCOMPARE(configuredTarget().format, QString());
}

void TestScreenshotFile::folderThatIsNotATextIsReported()
{
    QVERIFY(bg::InitBridge(0, nullptr));
    bg::ConfigStore& config = bg::GetBridge()->config();
    QVERIFY(config.set("screen.shot.path", bg::Value(42)));
    const QString desktop = QStandardPaths::writableLocation(QStandardPaths::DesktopLocation);
    StderrCapture capture;
    QCOMPARE(configuredTarget().folder, desktop);
    QCOMPARE(capture.finish(), "[E] screen.shot.path is not a text; screenshots go to " +
                                   QFile::encodeName(desktop) + "\n");
}

QTEST_GUILESS_MAIN(TestScreenshotFile)
#include "test-screenshot-file.moc"
