// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "common/board-settings.h"
#include "tests/bridge/stderr-capture.h"
#include "common/ini-store-status.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSettings>
#include <QTemporaryDir>
#include <QtTest>

class TestIniStoreStatus : public QObject
{
    Q_OBJECT

private slots:
    void formatErrorIsReported_data();
    void formatErrorIsReported();
    void boardStoreIsChecked();
};

void TestIniStoreStatus::formatErrorIsReported_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<bool>("reported");

    QTest::newRow("good") << QByteArray("[General]\nzoom=Ctrl+B\ntimer=Ctrl+M\n") << false;
    QTest::newRow("missing") << QByteArray() << false;
    // Qt reads these two without complaint, so there is nothing to report.
    QTest::newRow("trailing backslash") << QByteArray("[General]\nzoom=Ctrl+B\\\n") << false;
    QTest::newRow("unclosed section") << QByteArray("[General\nzoom=Ctrl+B\n") << true;
    QTest::newRow("line without equals") << QByteArray("[General]\nzoom\ntimer=Ctrl+M\n") << false;
}

void TestIniStoreStatus::formatErrorIsReported()
{
    QFETCH(QByteArray, content);
    QFETCH(bool, reported);
    QTemporaryDir dir;
    const QString path = dir.filePath("store.ini");
    if (!content.isEmpty()) {
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(content);
    }
    QSettings settings(path, QSettings::IniFormat);
    StderrCapture capture;
    QCOMPARE(reportIniFormatError(settings), reported);
    const QByteArray expected = reported
                                    ? "[E] settings file " + QFile::encodeName(path) +
                                          " has a format error; some settings in it are not read\n"
                                    : QByteArray();
    QCOMPARE(capture.finish(), expected);
}

void TestIniStoreStatus::boardStoreIsChecked()
{
    QTemporaryDir dir;
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, dir.path());
    const QString name = QCoreApplication::applicationName();
    const QString path = dir.filePath(name + "/" + name + "New.ini");
    QVERIFY(QDir().mkpath(QFileInfo(path).path()));
    {
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("[General\nzoom=Ctrl+B\n");
    }
    StderrCapture capture;
    delete openBoardSettings(nullptr);
    QCOMPARE(capture.finish(), "[E] settings file " + QFile::encodeName(path) +
                                   " has a format error; some settings in it are not read\n");
}

QTEST_MAIN(TestIniStoreStatus)
#include "test-ini-store-status.moc"
