// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "bridge/logger.h"
#include "tests/bridge/stderr-capture.h"

#include <QtTest>

namespace {

QByteArray contentOf(std::FILE* file)
{
    std::fflush(file);
    std::rewind(file);
    QByteArray text;
    char buffer[1024];
    std::size_t n = 0;
    while ((n = std::fread(buffer, 1, sizeof buffer, file)) > 0)
        text.append(buffer, static_cast<int>(n));
    return text;
}

} // namespace

class TestLogger : public QObject
{
    Q_OBJECT

private slots:
    void writesFormattedLinesToStandardError();
    void thresholdDropsLowerLevels();
    void tagThresholdOverridesTheGeneralOne();
    void baseName_data();
    void baseName();
};

void TestLogger::writesFormattedLinesToStandardError()
{
    bg::Logger logger;
    StderrCapture capture;
    logger.log(bg::Logger::kError, "bg", "%s[E][bg] %s %-4d: \"%s\"\n", "0501-13:45:07",
               "local-holder.cpp", 89, "text");
    QCOMPARE(capture.finish(),
             QByteArray("0501-13:45:07[E][bg] local-holder.cpp 89  : \"text\"\n"));
}

void TestLogger::thresholdDropsLowerLevels()
{
    bg::Logger logger;
    std::FILE* sink = std::tmpfile();
    logger.setSink(sink);
    logger.setThreshold(bg::Logger::kInfo);
    QCOMPARE(logger.threshold(), int(bg::Logger::kInfo));
    logger.log(bg::Logger::kDebug, "bg", "debug\n");
    logger.log(bg::Logger::kInfo, "bg", "info\n");
    logger.log(bg::Logger::kError, "bg", "error %d\n", 2);
    QCOMPARE(contentOf(sink), QByteArray("info\nerror 2\n"));
    std::fclose(sink);
}

void TestLogger::tagThresholdOverridesTheGeneralOne()
{
    bg::Logger logger;
    std::FILE* sink = std::tmpfile();
    logger.setSink(sink);
    logger.setTagThreshold("noisy", bg::Logger::kError);
    QCOMPARE(logger.threshold("noisy"), int(bg::Logger::kError));
    QCOMPARE(logger.threshold("bg"), int(bg::Logger::kDebug));
    logger.log(bg::Logger::kInfo, "noisy", "dropped\n");
    logger.log(bg::Logger::kInfo, "bg", "kept\n");
    logger.log(bg::Logger::kInfo, nullptr, "untagged\n");
    QCOMPARE(contentOf(sink), QByteArray("kept\nuntagged\n"));
    std::fclose(sink);
}

void TestLogger::baseName_data()
{
    QTest::addColumn<QByteArray>("path");
    QTest::addColumn<QByteArray>("name");

    QTest::newRow("unix") << QByteArray("/src/white-board/local-holder.cpp")
                          << QByteArray("local-holder.cpp");
    QTest::newRow("windows") << QByteArray("C:\\src\\white-board\\local-holder.cpp")
                             << QByteArray("local-holder.cpp");
    QTest::newRow("mixed") << QByteArray("C:\\src/host\\local-holder.cpp")
                           << QByteArray("local-holder.cpp");
    QTest::newRow("bare") << QByteArray("local-holder.cpp") << QByteArray("local-holder.cpp");
    QTest::newRow("trailing slash") << QByteArray("dir/") << QByteArray("");
}

void TestLogger::baseName()
{
    QFETCH(QByteArray, path);
    QFETCH(QByteArray, name);
    QCOMPARE(QByteArray(bg::base_name(path.constData())), name);
    QCOMPARE(QByteArray(bg::base_name(nullptr)), QByteArray());
}

QTEST_APPLESS_MAIN(TestLogger)
#include "test-logger.moc"
